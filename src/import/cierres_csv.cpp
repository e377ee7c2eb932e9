#include "import/cierres_csv.h"

#include "core/numbers.h"
#include "core/texto_1252.h"

namespace tesorel
{

QString FileInet::Line_Input()
{
    const qsizetype inicio = pos_;
    qsizetype fin = inicio;
    while (fin < bytes_.size() && bytes_[fin] != '\r')
        ++fin;
    pos_ = fin;
    if (pos_ < bytes_.size()) { // the CR, and the LF that may follow it
        ++pos_;
        if (pos_ < bytes_.size() && bytes_[pos_] == '\n')
            ++pos_;
    }
    return desde1252(QByteArrayView(bytes_).sliced(inicio, fin - inicio));
}

int CuantasComas(const QString &linea)
{
    return int(linea.count(u','));
}

QString Enlacolumna(const QString &linea, const QString &n)
{
    const int campo = int(Numero_Val(n));
    qsizetype desde = 0;
    for (int k = 1; k < campo; ++k) {
        const qsizetype coma = linea.indexOf(u',', desde);
        if (coma < 0)
            break; // past the end: the last field
        desde = coma + 1;
    }
    const qsizetype hasta = linea.indexOf(u',', desde);
    return linea.mid(desde, hasta < 0 ? -1 : hasta - desde);
}

QString Primer(const QString &linea)
{
    const qsizetype coma = linea.indexOf(u',');
    return coma < 0 ? linea : linea.left(coma);
}

LecturaCierres leerCierres(const QByteArray &bytes, const QDate &dia)
{
    LecturaCierres r;
    const QString diaTexto = dia.toString(QStringLiteral("yyyyMMdd"));
    FileInet f(bytes);
    while (!f.Eof()) {
        const QString linea = f.Line_Input();
        if (CuantasComas(linea) != 6) {
            r.completa = false;
            break;
        }
        const QStringList c = linea.split(u',');
        // The day check rejects a page served in place of the file and a
        // file of another day.
        if (c[1].trimmed() != diaTexto) {
            r.completa = false;
            break;
        }
        FilaCierre fila;
        fila.ticker = c[0].trimmed();
        fila.maximo = Numero_Val(c[3]);
        fila.minimo = Numero_Val(c[4]);
        fila.ultimo = Numero_Val(c[5]);
        fila.volumen = Numero_Val(c[6]);
        r.filas.push_back(std::move(fila));
    }
    return r;
}

} // namespace tesorel
