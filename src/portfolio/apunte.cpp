#include "portfolio/apunte.h"

#include "core/dates.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

#include <QVariant>

namespace tesorel
{

ReglasApunte ReglasApunte::compraVentana()
{
    return {true, QStringLiteral(": Compra de "), QStringLiteral(" por "), true};
}
ReglasApunte ReglasApunte::ventaVentana()
{
    return {true, QStringLiteral(": Venta de "), QStringLiteral(" por "), true};
}
ReglasApunte ReglasApunte::compraImportada()
{
    return {false, QStringLiteral(": Compra "), QStringLiteral(" x "), false};
}
ReglasApunte ReglasApunte::ventaImportada()
{
    return {false, QStringLiteral(": Venta de "), QStringLiteral(" x "), false};
}

namespace
{

// One step of the booking: under the windows' rule a failure is reported
// and the step skipped; imported rows let it end the booking.
template <class Step> void paso(Session &s, const ReglasApunte &r, Step &&step)
{
    if (!r.seguirTrasFallo) {
        step();
        return;
    }
    s.paso(std::forward<Step>(step));
}

double lectura(const ReglasApunte &r, const QString &texto)
{
    return r.reglaPunto ? Numero_Val(texto) : Numero_Cdbl(texto);
}

// A division of doubles that fails as the language's does.
double cociente(double a, double b)
{
    if (b == 0)
        throw RuntimeError(a == 0 ? err::Overflow : err::DivisionByZero,
                           a == 0 ? QStringLiteral("Desbordamiento") : QStringLiteral("División por cero"));
    return a / b;
}

struct Posicion {
    bool existe = false;
    qint64 fila = 0;
    double cantidad = 0, precio = 0, total = 0;
};

Posicion posicionDe(Session &s, double valor)
{
    Query q(*s.Base_Datos, QStringLiteral("select rowid, Cantidad, Precio_Compra, Total_Compra from cartera "
                                          "where (usuario = ?) and (valor = ?)"));
    q.bind(1, s.Usuario_Numero).bind(2, valor);
    if (!q.next())
        return {};
    return Posicion{true, q.whole(0), q.number(1), q.number(2), q.number(3)};
}

// The user's row of the value; a failed search finds nothing.
Posicion posicionGuardada(Session &s, const ReglasApunte &r, double valor)
{
    if (!r.seguirTrasFallo)
        return posicionDe(s, valor);
    try {
        return posicionDe(s, valor);
    } catch (const std::exception &e) {
        s.Registrar_Error(e);
        return {};
    }
}

void lineaDeHistorico(Session &s, const TextosApunte &t, const ReglasApunte &r, double valor, bool venta)
{
    QVariant cantidad, precio, fecha, total;
    const double signo = venta ? -1 : 1;
    paso(s, r, [&] { cantidad = venta ? -Numero_Cdbl(t.cantidad) : lectura(r, t.cantidad); });
    paso(s, r, [&] { precio = Numero_Cdbl(t.precio); });
    paso(s, r, [&] { fecha = CDate(t.fecha); });
    paso(s, r, [&] { total = signo * Numero_Cdbl(t.total); });
    const QString frase = t.fecha + r.verbo + t.cantidad + " " + t.valor + r.union_ + t.total;
    paso(s, r, [&] {
        Query q(*s.Base_Datos,
                QStringLiteral("insert into historico (Usuario, Cantidad, Valor, operacionNum, Operacion, "
                               "Entidad, precio_operacion, Fecha_operacion, Total_operacion) "
                               "values (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
        q.bind(1, s.Usuario_Numero).bind(2, cantidad).bind(3, valor).bind(4, venta ? 4 : 2).bind(5, frase);
        q.bind(6, t.entidad).bind(7, precio).bind(8, fecha).bind(9, total).exec();
    });
}

} // namespace

void apuntarCompra(Session &s, const TextosApunte &t, const ReglasApunte &r)
{
    const double valor = Codigo_De(s, t.valor, BuscarPor::Abreviatura11);
    const Posicion fila = posicionGuardada(s, r, valor);
    if (!fila.existe) {
        QVariant cantidad, precio, fecha, total;
        paso(s, r, [&] { cantidad = lectura(r, t.cantidad); });
        paso(s, r, [&] { precio = Numero_Cdbl(t.precio); });
        paso(s, r, [&] { fecha = CDate(t.fecha); });
        paso(s, r, [&] { total = Numero_Cdbl(t.total); });
        paso(s, r, [&] {
            Query q(*s.Base_Datos,
                    QStringLiteral("insert into cartera (Usuario, Cantidad, Valor, Precio_Compra, "
                                   "Fecha_Compra, Total_Compra) values (?, ?, ?, ?, ?, ?)"));
            q.bind(1, s.Usuario_Numero).bind(2, cantidad).bind(3, valor).bind(4, precio);
            q.bind(5, fecha).bind(6, total).exec();
        });
    } else {
        // The commission stays out of the price; it lives only in the total.
        double p = 0, q = 0;
        paso(s, r, [&] { p = CDbl(t.precio); });
        paso(s, r, [&] { q = CDbl(t.cantidad); });
        const double qv = lectura(r, t.cantidad);
        QVariant precio, fecha;
        paso(s, r, [&] { precio = cociente(fila.cantidad * fila.precio + p * q, qv + fila.cantidad); });
        paso(s, r, [&] { fecha = CDate(t.fecha); });
        const double total = fila.total + lectura(r, t.total);
        paso(s, r, [&] {
            // A step that failed leaves its field as it was.
            Query u(*s.Base_Datos,
                    QStringLiteral("update cartera set Cantidad = ?, Precio_Compra = coalesce(?, "
                                   "Precio_Compra), Fecha_Compra = coalesce(?, Fecha_Compra), "
                                   "Total_Compra = ? where rowid = ?"));
            u.bind(1, fila.cantidad + qv).bind(2, precio).bind(3, fecha).bind(4, total).bind(5, fila.fila);
            u.exec();
        });
    }
    lineaDeHistorico(s, t, r, valor, false);
}

ResultadoVenta apuntarVenta(Session &s, const TextosApunte &t, const ReglasApunte &r)
{
    const double valor = Codigo_De(s, t.valor, BuscarPor::Abreviatura11);
    const Posicion fila = posicionGuardada(s, r, valor);
    if (!fila.existe) {
        s.ui.MsgBox(QStringLiteral("Valor no encontrado, apunte rechazado"), mb::Critical,
                    QStringLiteral("Atención"));
        return ResultadoVenta::ValorNoEncontrado;
    }
    double vendidas = 0;
    paso(s, r, [&] { vendidas = CDbl(t.cantidad); });
    const double resto = fila.cantidad - vendidas;
    if (resto > 0) {
        // The cost goes pro rata, the purchase's commission with it.
        paso(s, r, [&] {
            Query u(
                *s.Base_Datos,
                QStringLiteral("update cartera set Usuario = ?, Valor = ?, Total_Compra = ?, Cantidad = ? "
                               "where rowid = ?"));
            u.bind(1, s.Usuario_Numero).bind(2, valor).bind(3, resto * cociente(fila.total, fila.cantidad));
            u.bind(4, resto).bind(5, fila.fila).exec();
        });
    } else if (resto == 0) {
        paso(s, r, [&] {
            Query d(*s.Base_Datos,
                    QStringLiteral("delete * from cartera where (valor = ?) AND (usuario = ?)"));
            d.bind(1, valor).bind(2, s.Usuario_Numero).exec();
        });
    } else {
        s.ui.MsgBox("Sólo constan " + CStr(fila.cantidad) + " acciones de " + t.valor + ", apunte rechazado",
                    mb::Critical, QStringLiteral("Atención"));
        return ResultadoVenta::Insuficiente;
    }
    lineaDeHistorico(s, t, r, valor, true);
    return ResultadoVenta::Apuntada;
}

} // namespace tesorel
