#include "import/cierres_csv.h"

#include "core/numbers.h"

namespace tesorel
{

QString textoWindows1252(QByteArrayView bytes)
{
    // 0x80..0x9F differ from Latin-1; the five holes stay as their code.
    static const char16_t alto[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                      0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    QString out(bytes.size(), Qt::Uninitialized);
    QChar *d = out.data();
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        *d++ = (b >= 0x80 && b < 0xA0) ? QChar(alto[b - 0x80]) : QChar(b);
    }
    return out;
}

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
    return textoWindows1252(QByteArrayView(bytes_).sliced(inicio, fin - inicio));
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
