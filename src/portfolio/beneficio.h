#pragma once
#include "core/currency.h"
#include "core/int16.h"
#include "store/coleccion.h"

#include <QDate>
#include <memory>

namespace tesorel
{

class Paquete_;

// One lot: a purchase and what has been sold of it.
class op_
{
  public:
    static constexpr int Marca = 100; // Vacio of the lot that ends a walk

    Int16 Vacio;
    Int16 Compradas;
    Currency Precio;
    Currency TotalCompra; // commission included
    Int16 Vendidas;
    QDate Fecha;
    Currency TotalVenta; // what the sold shares brought in, net and positive

    // Proceeds less the cost of the shares sold, to two decimals.
    // A lot of no shares with shares sold divides by zero.
    Currency Beneficio() const;
    // The gain as a percentage of what the sale brought in.
    double Tanto() const;
};

// Replays one value's ledger into lots, first in first out. Plain
// arithmetic: no window, no base, nothing kept between two uses.
// Shares are 16-bit and the lots at most 1000: past either a call raises
// RuntimeError (Overflow, SubscriptOutOfRange), which the caller reports.
//
// Use: Apuntar each record in date order, Normalizar, optionally one
// Venta (the sale being typed), Fin, Operaciones until the marker, Total.
class Beneficio
{
  public:
    Beneficio() = default;
    // Two copies would carve their next lots from the same block.
    Beneficio(const Beneficio &) = delete;
    Beneficio &operator=(const Beneficio &) = delete;

    void Apuntar(const Paquete_ &registro);
    void Compra(const QDate &Fecha, Int16 Cuantas, Currency Precio, Currency Total);
    // Cuantas and Total arrive negative, as the ledger keeps a sale.
    void Venta(const QDate &Fecha, double Cuantas, Currency Precio, Currency Total);
    void Fin();
    op_ Total() const;
    void Normalizar();
    // The next lot with shares, or a new op_ with Vacio = op_::Marca.
    // Read-only: a sale skips the lots it has found used up.
    std::shared_ptr<const op_> Operaciones();

    int lotes() const { return int(lotes_.Count()); }

  private:
    Int16 contador_;
    Coleccion<op_> lotes_;
    double primeroAbierto_ = 1; // lots before it have no shares left to sell
    static constexpr int kLotesPorBloque = 64;
    std::shared_ptr<op_[]> bloque_;
    int libresEnBloque_ = 0;
};

} // namespace tesorel
