#pragma once
#include <QByteArray>
#include <QDate>
#include <QString>
#include <vector>

namespace tesorel
{

// A day file read a line at a time, as the text files of the program are:
// Windows-1252, a line ends at CR LF or at CR (a lone LF is part of the line),
// and a last line without its end is a line too.
class FileInet
{
  public:
    explicit FileInet(QByteArray bytes) : bytes_(std::move(bytes)) {}
    bool Eof() const { return pos_ >= bytes_.size(); }
    QString Line_Input();
    // Writing a day file never had a body; downloads write the files.
    void Guardar() {}

  private:
    QByteArray bytes_;
    qsizetype pos_ = 0;
};

// The number of commas of a line.
int CuantasComas(const QString &linea);
// The n-th comma-separated field (from 1); past the last comma, the last field.
QString Enlacolumna(const QString &linea, const QString &n);
// The text up to the first comma; the whole line without one.
QString Primer(const QString &linea);

// One line of a closes file as it goes into bolsa.
struct FilaCierre {
    QString ticker; // trimmed
    double maximo = 0, minimo = 0, ultimo = 0, volumen = 0;
    double efect() const { return ultimo * volumen / 1000; } // money traded, in thousands
};

// The lines of a closes file up to the first that is not a line of the day:
// one without exactly six commas, or whose day (YYYYMMDD) is another. The
// rows before such a line are still loaded; `completa` tells whether the
// whole file was good.
struct LecturaCierres {
    std::vector<FilaCierre> filas;
    bool completa = true;
};
LecturaCierres leerCierres(const QByteArray &bytes, const QDate &dia);

} // namespace tesorel
