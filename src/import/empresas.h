#pragma once
#include <QString>
#include <QStringList>
#include <functional>

namespace tesorel
{

class Session;

// The identifier of a value at Invertia: what follows the first "=" of the
// address that the user pastes; "" when there is none.
QString codigoinvertia(const QString &enlace);

// What the caller of the add-company window puts in before it opens and
// reads afterwards. The importers hand over the ticker they did not know.
struct AltaDeEmpresa {
    QString NOMBRE, ABREVIATURA11, ABREVIATURA3;
    // After the window closed: true and the new code when "Aceptar" added it.
    bool aceptada = false;
    double codigo = 0;
};

// The session's pending request of the add-company window. The command
// "AddEmpresa" starts from it, writes the outcome back into it and clears
// the fields, so the next opening starts empty:
//     entradaAddEmpresa(s) = {.ABREVIATURA3 = ticker};
//     comandos.ejecutar("AddEmpresa");           // answers the new code, or nothing
//     if (entradaAddEmpresa(s).aceptada) Abrir_Empresas(s);
AltaDeEmpresa &entradaAddEmpresa(Session &s);

// The window that adds one company by hand ("Añadir Empresa").
class AddEmpresa
{
  public:
    explicit AddEmpresa(Session &s) : s_(s) {}
    static inline const QString Caption = QStringLiteral("Añadir Empresa");

    QString NOMBRE, ABREVIATURA11, ABREVIATURA3, Invertia;
    bool Descargado = false;
    double codigoAnadido = 0; // the code of the row added; 0 until then

    // The first three fields turn what is typed into capitals.
    static QString EnMayusculas(const QString &tecleado) { return tecleado.toUpper(); }

    // The new row, with the code after the highest one, in 16 bits; no
    // validation, empty fields are stored empty. Companies are not reread:
    // the caller does that.
    void Aceptar_Click();
    void Cancelar_Click() { Descargado = true; }

  private:
    Session &s_;
};

// The cleaning window: merges the values that share a ticker into the one
// with the lowest code.
class DepuraCotiza
{
  public:
    explicit DepuraCotiza(Session &s) : s_(s) {}

    QStringList List1; // what was merged
    int List1_ListIndex = -1;
    QStringList List2; // stays empty
    // The window shows the lists; called before each yield of the scan.
    std::function<void()> mostrar;

    // Runs to the end; a failing statement ends it, and what was merged stays.
    void Depurar_Click();

  private:
    // One scan from the top; true when it merged a pair (and so must start again).
    bool unaPasada();
    void fusionar(double nuevo, double viejo);
    Session &s_;
};

} // namespace tesorel
