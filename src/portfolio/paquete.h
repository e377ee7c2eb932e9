#pragma once
#include "core/currency.h"
#include "core/int16.h"

#include <QDate>
#include <QString>

namespace tesorel
{

struct LineaHistorico;

// One ledger record in memory. Shares, value codes and the broker pass
// through 16 bits here: a line of more than 32767 shares fails with an
// overflow when it is read.
class Paquete_
{
  public:
    Int16 Entidad;
    QDate Fecha;
    Currency Total;
    Currency Precio;
    Int16 Valor;
    Int16 Cantidad;
    Int16 Operacion; // operacionNum: 2 a purchase, 4 a sale
    QString Descripcion;

    // What the operation cost beyond the shares, to the whole unit.
    Int16 Comisiones() const;

    // Raises RuntimeError(Overflow) for a field past its range.
    static Paquete_ de(const LineaHistorico &linea);
};

} // namespace tesorel
