#pragma once
#include <QString>
#include <functional>
#include <memory>

namespace tesorel
{

class Recordset;
class Session;

// The editor of one position of the user's portfolio: a record browser on
// the user's rows of cartera, opened on the value of Valor_Cartera_Edicion.
// It never touches the ledger: position and ledger may part ways here.
class ModifCartera
{
  public:
    ModifCartera(Session &s, std::function<void()> cerrar);
    ~ModifCartera();

    // Controls: the texts of the boxes; `Valor` shows the abbreviation and
    // its tag holds the code.
    QString FechaCompra, Cantidad, Valor, PrecioCompra, CosteInversion;
    QString Valor_Tag;

    void Form_Load();
    void CargarTitulos();
    void GrabarTitulos();
    void Aceptar_Click();
    void Cancelar_Click();
    void Label4_Click(); // next record, without saving
    void Label5_Click(); // previous record, without saving
    void Eliminar_Click();

  private:
    Session &s_;
    std::function<void()> cerrar_;
    std::unique_ptr<Recordset> rs_;
};

} // namespace tesorel
