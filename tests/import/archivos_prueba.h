#pragma once
#include <QDate>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <shapefil.h>
#include <stdexcept>

namespace tesorel::testing
{

// A day file as the program reads them: Windows-1252 (Latin-1 here), CR LF.
inline void escribirTexto(const QString &ruta, const QStringList &lineas)
{
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw std::runtime_error("cannot write test file");
    for (const QString &l : lineas)
        f.write(l.toLatin1() + "\r\n");
}

// One row of a dBase day table.
struct FilaDbf {
    const char *valor; // nullptr: an empty field
    double anterior, ultimo, maximo, minimo;
};

// A dBase day table with the fields the import reads; the close is the
// third field under a name of its own ("Cierre").
inline void escribirDbf(const QString &ruta, const QDate &dia, const std::vector<FilaDbf> &filas)
{
    DBFHandle h = DBFCreate(QFile::encodeName(ruta).constData());
    if (!h)
        throw std::runtime_error("cannot create dbf");
    DBFAddField(h, "Valor", FTString, 20, 0);
    DBFAddField(h, "Anterior", FTDouble, 12, 3);
    DBFAddField(h, "Cierre", FTDouble, 12, 3);
    DBFAddField(h, "Dif", FTDouble, 8, 2);
    DBFAddField(h, "Volumen", FTDouble, 14, 0);
    DBFAddField(h, "Maximo", FTDouble, 12, 3);
    DBFAddField(h, "minimo", FTDouble, 12, 3);
    DBFAddField(h, "Efect", FTDouble, 16, 2);
    DBFAddNativeFieldType(h, "Fecha", 'D', 8, 0);
    const QByteArray fecha = dia.toString("yyyyMMdd").toLatin1();
    for (int r = 0; r < int(filas.size()); ++r) {
        const FilaDbf &f = filas[size_t(r)];
        if (f.valor)
            DBFWriteStringAttribute(h, r, 0, f.valor);
        else
            DBFWriteNULLAttribute(h, r, 0);
        DBFWriteDoubleAttribute(h, r, 1, f.anterior);
        DBFWriteDoubleAttribute(h, r, 2, f.ultimo);
        DBFWriteDoubleAttribute(h, r, 3, 1.5);
        DBFWriteDoubleAttribute(h, r, 4, 1000);
        DBFWriteDoubleAttribute(h, r, 5, f.maximo);
        DBFWriteDoubleAttribute(h, r, 6, f.minimo);
        DBFWriteDoubleAttribute(h, r, 7, 5000);
        DBFWriteAttributeDirectly(h, r, 8, const_cast<char *>(fecha.constData()));
    }
    DBFClose(h);
}

} // namespace tesorel::testing
