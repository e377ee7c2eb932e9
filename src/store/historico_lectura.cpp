#include "store/historico_lectura.h"

#include "store/query.h"

namespace tesorel
{

namespace
{

// Columns in the order of LineaHistorico. The user, and the value when one
// is asked for, are the ones bound, so they are not read back; a replay
// does without the sentence too.
LineaHistorico leerLinea(const Query &q, double usuario, std::optional<double> valor, FraseDeLinea frase)
{
    LineaHistorico l;
    l.usuario = usuario;
    int c = 0;
    l.cantidad = q.number(c++);
    l.valor = valor ? *valor : q.number(c++);
    l.operacionNum = q.number(c++);
    if (frase == FraseDeLinea::Leer)
        l.operacion = q.text(c++);
    l.entidad = q.number(c++);
    l.precio = q.number(c++);
    l.fecha = q.date(c++);
    l.total = q.number(c);
    return l;
}

} // namespace

void recorrerHistorico(Database &db, double usuario, std::optional<double> valor, FraseDeLinea frase,
                       const std::function<void(const LineaHistorico &)> &cada)
{
    const QString campos = QStringLiteral("select Cantidad, ") +
                           (valor ? QString() : QStringLiteral("VALOR, ")) +
                           QStringLiteral("operacionNum, ") +
                           (frase == FraseDeLinea::Leer ? QStringLiteral("Operacion, ") : QString()) +
                           QStringLiteral("Entidad, precio_operacion, Fecha_operacion, Total_operacion from "
                                          "historico where usuario = ?");
    Query q(db, valor ? campos + QStringLiteral(" and valor = ? order by fecha_operacion, rowid")
                      : campos + QStringLiteral(" order by fecha_operacion, rowid"));
    q.bind(1, usuario);
    if (valor)
        q.bind(2, *valor);
    while (q.next())
        cada(leerLinea(q, usuario, valor, frase));
}

std::vector<LineaHistorico> leerHistorico(Database &db, double usuario, std::optional<double> valor,
                                          FraseDeLinea frase)
{
    std::vector<LineaHistorico> lineas;
    recorrerHistorico(db, usuario, valor, frase, [&](const LineaHistorico &l) { lineas.push_back(l); });
    return lineas;
}

} // namespace tesorel
