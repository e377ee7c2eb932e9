#include "store/historico_lectura.h"

#include "store/query.h"

namespace tesorel
{

namespace
{

LineaHistorico leerLinea(const Query &q)
{
    LineaHistorico l;
    l.usuario = q.number(0);
    l.cantidad = q.number(1);
    l.valor = q.number(2);
    l.operacionNum = q.number(3);
    l.operacion = q.text(4);
    l.entidad = q.number(5);
    l.precio = q.number(6);
    l.fecha = q.date(7);
    l.total = q.number(8);
    return l;
}

} // namespace

void recorrerHistorico(Database &db, double usuario, std::optional<double> valor, FraseDeLinea frase,
                       const std::function<void(const LineaHistorico &)> &cada)
{
    const QString campos =
        QStringLiteral("select Usuario, Cantidad, VALOR, operacionNum, ") +
        (frase == FraseDeLinea::Leer ? QStringLiteral("Operacion") : QStringLiteral("''")) +
        QStringLiteral(", Entidad, precio_operacion, Fecha_operacion, Total_operacion from "
                       "historico where usuario = ?");
    Query q(db, valor ? campos + QStringLiteral(" and valor = ? order by fecha_operacion, rowid")
                      : campos + QStringLiteral(" order by fecha_operacion, rowid"));
    q.bind(1, usuario);
    if (valor)
        q.bind(2, *valor);
    while (q.next())
        cada(leerLinea(q));
}

std::vector<LineaHistorico> leerHistorico(Database &db, double usuario, std::optional<double> valor,
                                          FraseDeLinea frase)
{
    std::vector<LineaHistorico> lineas;
    recorrerHistorico(db, usuario, valor, frase, [&](const LineaHistorico &l) { lineas.push_back(l); });
    return lineas;
}

} // namespace tesorel
