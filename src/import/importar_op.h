#pragma once
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace tesorel
{

class Session;

// The number of words of a line (runs of characters other than blanks
// and tabs) and the n-th of them, from 1; "" past the last.
int ContarPalabras(const QString &linea);
QString Palabra(const QString &linea, int n);

// One row of the grid.
struct FilaOp {
    QString Fecha, Operacion, Cantidad, Precio, Precio_total, Total;
};

// The broker statements window: each .SCL and .TXT file of a folder is read
// into the grid, the person confirms it (Command3), and its rows are booked
// as purchases and sales.
class ImportarOp
{
  public:
    explicit ImportarOp(Session &s);

    QString Text1; // the folder
    QString Text2; // the log
    QString Valor; // the file at hand
    QString Text3;
    QString Combo1, Combo2;
    QStringList Combo1_Lista, Combo2_Lista;
    int ImportarOp_ = 1; // "Importar operaciones"
    int Guardar = 0;     // "Guardar código"
    std::vector<FilaOp> filas{1};
    bool Descargado = false;

    // The wait for Command3: runs events until it returns; it is called
    // again while the file is not confirmed and the window stays open.
    std::function<void()> esperar;
    std::function<void()> alCambiar;

    void Form_Load();
    void cargar_operadores();
    void Label2_Click() { Text1 = QStringLiteral("d:\\renta-acciones"); }
    void Valor_Click();
    void Command2_Click();
    void Command3_Click();
    void Salir_Click();

    void Mostrar(const QString &texto);
    void destruir();
    bool comprobarop(int) { return true; }
    void ImportarCompra(int fila);
    void ImportarVenta(int fila);

    bool esperando() const { return esperando_; }

  private:
    void importarArchivo(const QString &ruta, bool scl);
    void clasificar(const QString &linea, bool scl, bool &codigo, int &contador);
    void NuevaFila();
    void reservarCodigo(const QString &ruta, bool codigo);
    void cambiado()
    {
        if (alCambiar)
            alCambiar();
    }

    Session &s_;
    double entidad_ = 0;
    bool confirmado_ = false;
    bool esperando_ = false;
};

} // namespace tesorel
