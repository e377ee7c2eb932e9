#pragma once
#include <QString>
#include <QStringList>

namespace tesorel
{

class Session;

// The editor of one ledger line: the record on which s.Historico_rs
// stands. Saving never touches cartera.
class ModifHistorico
{
  public:
    explicit ModifHistorico(Session &s) : s_(s) {}

    // Controls.
    QString Fecha, Operacion, Cantidad, Valor, Precio, Importe, Descripcion, Entidad;
    QStringList Operacion_Lista, Valor_Lista, Entidad_Lista;
    QString foco; // the control that is given the focus

    // Events.
    void Form_Load();
    void LLenarCombos();
    // Rewrites the description from the fields, for a purchase or a sale.
    void CambiarEtiqueta();
    // True when the window closes (the record was written).
    bool Aceptar_Click();

  private:
    Session &s_;
};

} // namespace tesorel
