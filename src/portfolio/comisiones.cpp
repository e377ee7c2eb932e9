#include "portfolio/comisiones.h"

#include "core/format.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/recordset.h"
#include "store/session.h"

#include <QRegularExpression>

namespace tesorel
{

namespace
{

// A line past the last control of the array.
constexpr int kElementoInexistente = 340;

RuntimeError sinElemento(int linea)
{
    return RuntimeError(kElementoInexistente,
                        QStringLiteral("El elemento '%1' de la matriz de controles no existe").arg(linea));
}

// The amount as it reaches the engine after the commas became points: a
// plain number literal, or the statement is wrong.
double importeDeSentencia(const QString &texto)
{
    static const QRegularExpression literal(
        QStringLiteral(R"(^\s*[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?\s*$)"));
    if (!literal.match(texto).hasMatch())
        throw RuntimeError(
            err::SyntaxError,
            QStringLiteral("Error de sintaxis en la expresión de consulta '(desde <= %1)'.").arg(texto));
    return texto.trimmed().toDouble();
}

} // namespace

const EstiloComision &EstiloComision::compra()
{
    static const EstiloComision e{true, false, QStringLiteral("####0.00  "), 4};
    return e;
}

const EstiloComision &EstiloComision::venta()
{
    static const EstiloComision e{false, true, QStringLiteral("#####.## "), 3};
    return e;
}

double codigoOperador(Session &s, const QString &nombre)
{
    if (nombre.contains(u'\'')) {
        // The criteria as written, so the engine gives its own failure.
        Recordset operadores(s.Base_Datos, QStringLiteral("select * from operadores"));
        operadores.FindFirst("nombre = '" + nombre + "'");
        return operadores.NoMatch() ? 0 : operadores.field("codigo").toDouble();
    }
    Query q(*s.Base_Datos, QStringLiteral("select codigo from operadores where nombre = ?"));
    q.bind(1, nombre);
    return q.next() ? q.number(0) : 0;
}

QStringList nombresOperadores(Session &s)
{
    QStringList nombres;
    Query q(*s.Base_Datos, QStringLiteral("select NOMBRE from operadores order by nombre"));
    while (q.next())
        nombres << q.text(0);
    return nombres;
}

double Cargar_comisiones(Session &s, double operador, const QString &importe, LineasComision &l,
                         const EstiloComision &estilo)
{
    auto paso = [&](auto &&step) {
        try {
            step();
        } catch (const RuntimeError &e) {
            if (estilo.informarFallos)
                s.Registrar_Error(e);
        }
    };
    double total = 0;

    // The link: the first band whose name is a broker's draws that broker in.
    double enlazado = -1;
    {
        Query bandas(*s.Base_Datos, QStringLiteral("select NOMBRE from comisiones where entidad = ?"));
        bandas.bind(1, operador);
        while (enlazado < 0 && bandas.next()) {
            const QString nombre = bandas.text(0);
            paso([&] {
                Query o(*s.Base_Datos, QStringLiteral("select codigo from operadores where nombre = ?"));
                if (nombre.contains(u'\''))
                    codigoOperador(s, nombre); // fails as the search always has
                o.bind(1, nombre);
                if (o.next())
                    enlazado = o.number(0);
            });
        }
    }

    int linea = 0;
    paso([&] {
        const double a = importeDeSentencia(Coma_A_Punto(importe));
        Query q(*s.Base_Datos, QStringLiteral("select NOMBRE, Tanto, minimo from comisiones where "
                                              "(entidad = ? or entidad = ?) and desde <= ? and Hasta >= ?"));
        q.bind(1, operador).bind(2, enlazado).bind(3, a).bind(4, a);
        double cargo = 0; // deliberately kept from one band to the next when a rate is missing
        while (q.next()) {
            const bool sinTanto = q.isNull(1), sinMinimo = q.isNull(2);
            const double tanto = q.number(1), minimo = q.number(2);
            if (!sinTanto && !sinMinimo && tanto == 0 && minimo == 0)
                continue; // a pure link row
            ++linea;
            const bool existe = linea <= LineasComision::kLineas;
            auto celda = [&](auto &arr, const QString &texto) {
                paso([&] {
                    if (!existe)
                        throw sinElemento(linea);
                    arr[size_t(linea)] = texto;
                });
            };
            celda(l.Concepto, q.text(0) + "  ");
            if (estilo.textoComoGuardado) {
                celda(l.porciento, Texto_Nulo(q.value(1)) + "  " + " %");
                celda(l.Min, Texto_Nulo(q.value(2)) + "  " + "  ");
            } else {
                celda(l.porciento, (sinTanto ? QString() : Format(tanto, "#0.000")) + " %");
                celda(l.Min, (sinMinimo ? QString() : Format(minimo, "####0.000")) + "  ");
            }
            if (!sinTanto)
                paso([&] { cargo = CDbl(importe) * tanto / 100; });
            if (!sinMinimo && cargo < minimo)
                cargo = minimo;
            const QString texto = Format(cargo, "###,##0.00  ");
            celda(l.Importe, texto);
            paso([&] {
                if (!existe)
                    throw sinElemento(linea);
                total += CDbl(texto);
            });
            celda(l.totalcomision, Format(total, estilo.mascaraTotal));
        }
    });

    for (int i = linea + 1; i <= estilo.ultimaEnBlanco; ++i) {
        l.Concepto[size_t(i)].clear();
        l.porciento[size_t(i)].clear();
        l.Min[size_t(i)].clear();
        l.Importe[size_t(i)].clear();
        l.totalcomision[size_t(i)].clear();
    }
    return total;
}

} // namespace tesorel
