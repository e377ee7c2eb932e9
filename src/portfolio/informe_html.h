#pragma once
#include <QFile>
#include <QString>

namespace tesorel
{

// A report file written as plain lines: windows-1252, CR LF after each.
// Opening replaces an earlier report of the same name. A file that cannot
// be opened raises RuntimeError(75); writing to it afterwards raises
// RuntimeError(52), as a write on a file number never opened does.
class InformeHtml
{
  public:
    explicit InformeHtml(const QString &ruta) { abrir(ruta); }
    InformeHtml() = default; // not open: every write fails
    void abrir(const QString &ruta);
    bool abierto() const { return archivo_.isOpen(); }
    void linea(const QString &texto);
    void cerrar();

  private:
    QFile archivo_;
};

// The site that the report's title links to.
inline const QString SitioWeb = QStringLiteral("https://tesorel.example.org/");

// The opening of both reports, up to the title line.
void aperturaInforme(InformeHtml &f);
// The opening of the grid's table and of its heading row.
void aperturaTabla(InformeHtml &f);
// One heading cell.
void Cabecera(InformeHtml &f, const QString &texto, const QString &ancho);

// The cells of a grid row, each written as prefix + text + suffix.
enum class Celda {
    Fecha,   // centred, a blank before
    Derecha, // right, two blanks after (shares of the portfolio, verb of the ledger)
    Tanto,   // right, with the odd closing of the percentage
    Texto,   // left, a blank before (the value)
    Numero,  // right, a blank after
};
void celda(InformeHtml &f, Celda tipo, const QString &texto);

} // namespace tesorel
