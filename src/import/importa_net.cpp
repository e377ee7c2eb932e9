#include "import/importa_net.h"

#include "store/query.h"
#include "store/session.h"

namespace tesorel
{

QDate ImportaNet::UltFecha(const QDate &porDefecto) const
{
    Query q(*s_.Base_Datos, QStringLiteral("Select Fecha from fechas order by fecha desc"));
    if (!q.next() || q.isNull(0))
        return porDefecto;
    return q.date(0);
}

bool ImportaNet::HayFecha(const QDate &dia) const
{
    // A day of Fechas is a day with a row in bolsa; asked of bolsa's day index, so
    // that a list builder asking once per trading day does not walk the whole view.
    Query q(*s_.Base_Datos, QStringLiteral("Select FECHA from bolsa where [fecha] = ?"));
    q.bind(1, dia);
    return q.next();
}

QString ImportaNet::Fecha(const QDate &dia, int tipo)
{
    switch (tipo) {
    case 1:
        return dia.toString(QStringLiteral("yyMMdd"));
    case 2:
        return dia.toString(QStringLiteral("yyyyMMdd"));
    case 4:
        (void)dia.toString(QStringLiteral("ddMMyy")); // worked out, never answered
        return {};
    default:
        return {};
    }
}

} // namespace tesorel
