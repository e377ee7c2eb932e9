#pragma once
#include <QString>
#include <QStringList>
#include <QVariant>
#include <array>
#include <memory>
#include <vector>

namespace tesorel
{

class Recordset;
class Session;

// The brokers' editor: the list of brokers and the grid of 15 bands of
// the selected one. Typing in a cell raises the changed flag; moving to
// another broker asks whether to save.
class operadoresform
{
  public:
    static constexpr int kFilas = 15;
    enum Columna { NOMBRE, Tanto, minimo, desde, Hasta, kColumnas };
    static const std::array<QString, kColumnas> Cabeceras;

    explicit operadoresform(Session &s);
    ~operadoresform();

    QStringList List1;
    int List1_ListIndex = -1;
    std::vector<double> codigos; // operadores.codigo of each line of List1
    // Row 0 holds the headings; rows 1 to 15 the bands.
    std::array<std::array<QString, kColumnas>, kFilas + 1> celdas{};
    short cambiado = 0; // 16-bit flag, -1 when set
    double lineaActual = 0;
    QString Text1;
    bool Text1ConFoco = false;
    bool Cerrada = false;

    void Form_Load();
    void cargar_operadores();
    void Cargar_comisiones();
    void Grabar_comisiones(double linea);
    static QVariant sincero(const QString &texto);
    void ComprobarCambios();

    // A keystroke in a band cell.
    void Celda_Change(int columna, int fila, const QString &texto);
    void Borrar_Click(int fila);
    void Label3_Click(); // "Grabar"
    void List1_Click(int indice);
    void menu_anadir_operador_Click() { Text1ConFoco = true; }
    void Text1_KeyPress(int tecla);
    void menu_borrar_operador_Click();
    void Volver_Click() { Cerrada = true; }

  private:
    double codigoDe(double linea) const;

    Session &s_;
    std::unique_ptr<Recordset> operadores_;
};

} // namespace tesorel
