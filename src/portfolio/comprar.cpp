#include "portfolio/comprar.h"

#include "core/format.h"
#include "core/numbers.h"
#include "portfolio/apunte.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"

namespace tesorel
{

Comprar::Comprar(Session &s, EntornoCompraVenta entorno) : VentanaDeApunte(s, std::move(entorno)) {}

void Comprar::Form_Load()
{
    Combo1_Lista.clear();
    Combo1.clear();
    Fecha = Format(s_.Hoy(), "dd/mm/yy");
    cargarOperadores();
    // Every value with quotes, portfolio series included (they show as "").
    s_.paso([&] {
        Query q(*s_.Base_Datos, QStringLiteral("Select valor from bolsa group by valor "));
        while (q.next())
            Combo1_Lista << Abreviatura11_De(s_, q.number(0));
    });
    valorDeLaPrincipal();
}

void Comprar::recalcularTotal()
{
    totalComision = Cargar_comisiones(s_, operador, precioTotal_, lineas, EstiloComision::compra());
    s_.paso([&] { setTotal(textoNumero(CDbl(precioTotal_) + totalComision)); });
}

void Comprar::Combo2_Evento(int evento)
{
    if (evento != 2)
        return;
    operador = 0;
    s_.paso([&] { operador = codigoOperador(s_, Combo2); });
    recalcularTotal();
}

void Comprar::Aceptar_Click()
{
    apuntarCompra(s_, {Combo1, cantidad_, precio_, Fecha, total_, operador}, ReglasApunte::compraVentana());
    Cerrada = true;
}

} // namespace tesorel
