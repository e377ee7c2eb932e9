#include "portfolio/panel_lotes.h"

#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "portfolio/beneficio.h"
#include "portfolio/paquete.h"
#include "store/historico_lectura.h"
#include "store/session.h"

namespace tesorel
{

namespace
{

PanelLotes::Fila filaDe(const op_ &lote, bool conFecha)
{
    PanelLotes::Fila f;
    if (conFecha)
        f.fecha = lote.Fecha;
    f.compradas = lote.Compradas;
    f.precio = lote.Precio.toDouble();
    f.totalCompra = lote.TotalCompra.toDouble();
    f.resultado = lote.Beneficio().toDouble();
    f.vendidas = -double(lote.Vendidas);
    f.tanto = lote.Tanto();
    return f;
}

PanelLotes::Celdas celdasDe(const PanelLotes::Fila &f, bool conFecha)
{
    PanelLotes::Celdas c;
    if (conFecha)
        c.FechaCompra = Format(f.fecha, "dd/mm/yyyy");
    c.CantidadCompra = CStr(f.compradas);
    c.PrecioCompra = CStr(f.precio);
    c.TotalCompra = CStr(f.totalCompra);
    c.Resultado = CStr(f.resultado);
    c.Vendidas = CStr(f.vendidas);
    c.Tanto = CStr(f.tanto) + "%";
    return c;
}

} // namespace

void Recalcular_Lotes(Session &s, double valor, const VentaEnCurso &venta, PanelLotes &panel)
{
    Beneficio b;
    recorrerHistorico(*s.Base_Datos, s.Usuario_Numero, valor, FraseDeLinea::Omitir,
                      [&b](const LineaHistorico &linea) { b.Apuntar(Paquete_::de(linea)); });
    b.Normalizar();
    if (Numero_Val(venta.total) != 0)
        b.Venta(CDate(venta.fecha), -Numero_Val(venta.cantidad),
                Currency::fromDouble(-Numero_Val(venta.precio)),
                Currency::fromDouble(-Numero_Val(venta.total)));
    b.Fin();

    // Five rows of lots: a value with more open lots shows its first five.
    panel.lotes.clear();
    panel.hayTotal = false;
    int fila = 0;
    for (; fila < PanelLotes::kLotes; ++fila) {
        const std::shared_ptr<const op_> lote = b.Operaciones();
        if (lote->Vacio > 0)
            break;
        panel.lotes.push_back(filaDe(*lote, true));
        panel.celdas[size_t(fila)] = celdasDe(panel.lotes.back(), true);
    }
    for (; fila <= PanelLotes::kLotes; ++fila)
        panel.celdas[size_t(fila)] = {};
    panel.total = filaDe(b.Total(), false);
    panel.celdas[PanelLotes::kLotes] = celdasDe(panel.total, false);
    panel.hayTotal = true;
}

} // namespace tesorel
