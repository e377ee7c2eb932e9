#include "import/fuentes_cierres.h"

#include <QSettings>

namespace tesorel
{

FuentesCierres FuentesCierres::leer(const QString &carpeta)
{
    FuentesCierres f;
    const QSettings ini(carpeta + QStringLiteral("/fuentes.ini"), QSettings::IniFormat);
    for (int i = 0; i < 3; ++i) {
        const QString clave = QStringLiteral("cierres/fuente%1").arg(i + 1);
        if (ini.contains(clave))
            f.bases[size_t(i)] = ini.value(clave).toString();
    }
    f.graficos = ini.value(QStringLiteral("cierres/graficos"), f.graficos).toString();
    bool ok = false;
    const int limite = ini.value(QStringLiteral("cierres/limite_ms")).toInt(&ok);
    if (ok && limite > 0)
        f.limiteMs = limite;
    return f;
}

QString FuentesCierres::direccion(int fuente, const QDate &dia) const
{
    if (fuente < 1 || fuente > 3 || bases[size_t(fuente - 1)].isEmpty())
        return {};
    QString base = bases[size_t(fuente - 1)];
    while (base.endsWith(u'/'))
        base.chop(1);
    switch (fuente) {
    case 2:
        return base + QStringLiteral("/webn/servicios/..%5C..%5Cficherostxt%5Cmc%5CBM") +
               dia.toString(QStringLiteral("yyyyMMdd")) + QStringLiteral(".txt");
    default:
        return base + QStringLiteral("/cierres/") + dia.toString(QStringLiteral("yyMMdd")) +
               QStringLiteral(".txt");
    }
}

} // namespace tesorel
