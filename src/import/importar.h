#pragma once
#include <QByteArray>
#include <QDate>
#include <QString>

#include "store/helpers.h"
#include <functional>
#include <memory>
#include <optional>

namespace tesorel
{

class Session;
class TablaDbf;

// The quote-file window: text day files and dBase day tables of a folder
// into bolsa, the ticker file applied to the companies, the mail files moved
// into the folder, and the folder remembered in "importa.de".
class Importar
{
  public:
    static inline const QString Directorio = QStringLiteral("Directorio :");
    static inline const QString Importando = QStringLiteral("Importando");

    // What the window opens, and what it tells while it works.
    struct Acciones {
        // "Examinar": the folder chosen, or nothing when it was left by "Cancelar".
        std::function<std::optional<QString>()> Examinar;
        // The mail window, modal; false when the program has none.
        std::function<bool()> ImportCorreo;
        std::function<void()> DatosUsuario;
        std::function<void()> Importinet;
        // The window shows the model's state (before each yield).
        std::function<void()> mostrar;
        // A day file whose rows are about to be read.
        std::function<void(const QDate &dia)> importando;
        // Progress over the files of the top folder's text pass.
        std::function<void(int hechos, int total)> progreso;
    };

    Importar(Session &s, Acciones acciones = {});
    ~Importar();

    // Controls.
    QString Text1;
    QString Label2 = Directorio;
    int Sobre = 0; // "Sobreescribir datos"
    bool Descargado = false;

    // How often finished files are committed: 0 at the end of each file; a
    // positive count of milliseconds groups the files finished within it
    // (a kill loses at most that much finished work, never part of a file).
    int agruparMs = 0;

    // The server that "Descargar datos 2.002" points at (scheme, host, port).
    QString servidorCierres;

    void Form_Load();
    void Aceptar1_Click();
    void Text1_Enter() { Aceptar1_Click(); }
    void Cancelar_Click() { Descargado = true; }
    void Label4_Click() { Descargado = true; }
    void Label6_Click();
    void Label7_Click();
    void Label8_Click();
    void Label9_Click();
    void Label12_Click();
    void Label13_Click();
    // Closing, whatever the cause: the session's date becomes the newest day.
    void Form_Unload();

    // The folder last accepted, and keeping it.
    QString ImportaDe() const;
    void GuardarImporta(const QString &carpeta) const;

    void ImportarTicker();
    // One pass over a folder: "DBASE" (with its subfolders) or "TXT".
    void Importar_(QString carpeta,
                   const QString &tipo); // the folder by value: Text1 changes during the pass
    // One text day file.
    void Importa_txt(const QString &ruta);
    // The same over the bytes of a day file already read.
    void importarTexto(const QByteArray &bytes);

  private:
    void pasoDbase(const QString &carpeta);
    // The day tests: with Sobre the day goes first; a day already present is passed over.
    bool admiteDia(const QDate &dia);
    double codigoDe(const QString &nombre, BuscarPor primeraClase);
    void mostrar();

    Session &s_;
    Acciones acciones_;
    int anidamiento_ = 0; // depth of Importar_: the outermost pass sets the log up
};

} // namespace tesorel
