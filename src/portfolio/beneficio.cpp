#include "portfolio/beneficio.h"

#include "core/runtime_error.h"
#include "portfolio/paquete.h"

#include <cmath>

namespace tesorel
{

Currency op_::Beneficio() const
{
    if (Vendidas.value() == 0)
        return {};
    if (Compradas.value() == 0)
        throw TotalCompra.units() == 0
            ? RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"))
            : RuntimeError(err::DivisionByZero, QStringLiteral("División por cero"));
    const Currency coste =
        Currency::fromDouble(std::fabs(TotalCompra.toDouble() / double(Compradas) * -double(Vendidas)));
    return -Currency::fromDouble(Round((coste - TotalVenta).toDouble(), 2));
}

double op_::Tanto() const
{
    if (TotalVenta.units() == 0)
        return 0;
    return Round(Beneficio() / TotalVenta * 100, 2);
}

void Beneficio::Apuntar(const Paquete_ &r)
{
    if (r.Operacion.value() == 2)
        Compra(r.Fecha, r.Cantidad, r.Precio, r.Total);
    else if (r.Operacion.value() == 4)
        Venta(r.Fecha, r.Cantidad, r.Precio, r.Total);
}

void Beneficio::Compra(const QDate &Fecha, Int16 Cuantas, Currency Precio, Currency Total)
{
    // Lots are carved from blocks of a few dozen: a long ledger would
    // otherwise allocate (and free) each of them on its own.
    if (libresEnBloque_ == 0) {
        bloque_ = std::make_shared<op_[]>(kLotesPorBloque);
        libresEnBloque_ = kLotesPorBloque;
    }
    std::shared_ptr<op_> lote(bloque_, &bloque_[kLotesPorBloque - libresEnBloque_--]);
    lote->Compradas = Cuantas;
    lote->Precio = Precio;
    lote->TotalCompra = Total;
    lote->Fecha = Fecha;
    lotes_.Add(std::move(lote));
    contador_ += Int16(1);
}

void Beneficio::Venta(const QDate &, double Cuantas, Currency, Currency Total)
{
    if (Cuantas == 0)
        return;
    const double todas = std::fabs(Cuantas);
    double resto = todas;
    // Each part is valued anew at the sale's average net price, so the
    // sale's commission is spread over the lots by shares.
    const double n = lotes_.Count();
    for (double i = primeroAbierto_; i <= n; ++i) {
        op_ &lote = *lotes_.Item(i);
        if ((lote.Compradas - lote.Vendidas).value() <= 0) {
            // Used up for good: Vendidas only grows and Normalizar keeps
            // the difference, so later sales start past it.
            if (i == primeroAbierto_)
                primeroAbierto_ = i + 1;
            continue;
        }
        // The whole lot is compared, not what is left of it: a lot partly
        // sold can take more than it has.
        if (double(lote.Compradas) - resto > 0) {
            lote.Vendidas = Int16(double(lote.Vendidas) + resto);
            lote.TotalVenta += Currency::fromDouble(-Total.toDouble() / todas * resto);
            return;
        }
        const Int16 p = lote.Compradas - lote.Vendidas;
        lote.Vendidas += p;
        lote.TotalVenta += Currency::fromDouble(-Total.toDouble() / todas * double(p));
        resto -= double(p);
    }
    // What the lots cannot hold of the sale is dropped.
}

void Beneficio::Fin()
{
    contador_ = Int16();
}

op_ Beneficio::Total() const
{
    op_ s;
    const double n = lotes_.Count();
    for (double i = 1; i <= n; ++i) {
        const op_ &lote = *lotes_.Item(i);
        if (lote.Compradas.value() <= 0)
            continue;
        const Currency suma = s.Precio * double(s.Compradas) + lote.Precio * double(lote.Compradas);
        s.Precio = Currency::fromDouble(suma.toDouble() / double(s.Compradas + lote.Compradas));
        s.Compradas += lote.Compradas;
        s.Vendidas += lote.Vendidas;
        s.TotalCompra += lote.TotalCompra;
        s.TotalVenta += lote.TotalVenta;
    }
    s.Precio = Currency::fromDouble(Round(s.Precio.toDouble(), 2));
    return s;
}

void Beneficio::Normalizar()
{
    const double n = lotes_.Count();
    for (double i = 1; i <= n; ++i) {
        op_ &lote = *lotes_.Item(i);
        lote.Compradas -= lote.Vendidas;
        lote.Vendidas = Int16();
        lote.TotalCompra -= lote.TotalVenta;
        lote.TotalVenta = Currency();
    }
}

std::shared_ptr<const op_> Beneficio::Operaciones()
{
    for (;;) {
        contador_ += Int16(1);
        if (double(contador_) > lotes_.Count()) {
            auto marca = std::make_shared<op_>();
            marca->Vacio = Int16(op_::Marca);
            return marca;
        }
        auto lote = lotes_.Item(double(contador_));
        if (lote->Compradas.value() >= 1) {
            lote->Vacio = Int16();
            return lote;
        }
    }
}

} // namespace tesorel
