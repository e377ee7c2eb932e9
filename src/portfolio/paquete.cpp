#include "portfolio/paquete.h"

#include "store/historico_lectura.h"

namespace tesorel
{

Int16 Paquete_::Comisiones() const
{
    return Int16((Total - Precio * double(Cantidad)).toDouble());
}

Paquete_ Paquete_::de(const LineaHistorico &l)
{
    // In the order the record's fields are copied, so the first field out
    // of range is the one that fails.
    Paquete_ p;
    p.Entidad = Int16(l.entidad);
    p.Fecha = l.fecha;
    p.Total = Currency::fromDouble(l.total);
    p.Precio = Currency::fromDouble(l.precio);
    p.Valor = Int16(l.valor);
    p.Cantidad = Int16(l.cantidad);
    p.Operacion = Int16(l.operacionNum);
    p.Descripcion = l.operacion;
    return p;
}

} // namespace tesorel
