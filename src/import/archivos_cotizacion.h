#pragma once
#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <utility>
#include <vector>

namespace tesorel
{

// The day of a quote text file from its first line: an optional "tx" is cut
// off and the rest must be a date of the user's locale; nothing otherwise.
std::optional<QDate> diaDeCabecera(const QString &primeraLinea);

// One value's line of a quote text file, its eight fields as read.
struct LineaCotizacion {
    QString nombre;
    double anterior = 0, ultimo = 0, dif = 0, volumen = 0, maximo = 0, minimo = 0, efect = 0;
};

// Reads the lines after the first: a line of exactly seven commas gives its
// fields; any other line keeps those of the line before (all empty and zero
// before the first good one) and is marked bad.
class LectorLineas
{
  public:
    // False when the line was bad: the caller beeps and files `actual()` all the same.
    bool leer(const QString &linea);
    const LineaCotizacion &actual() const { return actual_; }

  private:
    LineaCotizacion actual_;
};

// The high and low that a row stores: a high of 0 with a close takes the
// close for both; otherwise the file's own. The low alone is never corrected.
std::pair<double, double> maximoYMinimo(double maximo, double minimo, double ultimo);

// The records of a ticker file, in the comma-separated input form (quotes
// allowed): pairs of ABREVIATURA11 and ABREVIATURA3, across lines.
std::vector<std::pair<QString, QString>> leerTickers(const QByteArray &bytes);

// The names of a folder's listing, ascending without regard to case.
// `patron` matches any case ("*.TXT"); `sinPunto` keeps files and folders
// whose name has no point (the "*." listing of subfolders).
QStringList listarCarpeta(const QString &carpeta, const QString &patron);
QStringList listarSinPunto(const QString &carpeta);

// The table number that a dBase file's name gives (its leading number, as
// the Val rule reads it; 0 for a name that starts with a letter), and the
// table's name as the statement writes that number.
double numeroDeTabla(const QString &archivo);
QString nombreDeTabla(double numero);

// A dBase IV table, read through shapelib. A folder is the database and a
// table is the file whose name (without ".DBF", any case) is the table's.
// Rows marked deleted are not part of the table.
class TablaDbf
{
  public:
    // Throws RuntimeError when the folder holds no such table or it is unreadable.
    TablaDbf(const QString &carpeta, const QString &tabla);
    // A file opened directly (tests, fuzzing).
    explicit TablaDbf(const QString &ruta);
    ~TablaDbf();
    TablaDbf(const TablaDbf &) = delete;
    TablaDbf &operator=(const TablaDbf &) = delete;

    bool Eof() const { return fila_ >= filas_.size(); }
    void MoveNext() { ++fila_; }
    int fieldCount() const { return int(campos_.size()); }
    // Null for an empty field; a number for numeric fields, a day for dates,
    // text otherwise. An unknown name, a position past the fields or no
    // current row throw RuntimeError, as a missing field does in a recordset.
    QVariant field(const QString &nombre) const;
    QVariant field(int posicion) const;

  private:
    struct Campo {
        QString nombre;
        char tipo;
    };
    void abrir(const QString &ruta);
    void *dbf_ = nullptr; // DBFHandle
    std::vector<Campo> campos_;
    std::vector<int> filas_; // records not marked deleted
    size_t fila_ = 0;
};

} // namespace tesorel
