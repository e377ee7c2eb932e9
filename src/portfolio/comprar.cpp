#include "portfolio/comprar.h"

#include "core/format.h"
#include "core/numbers.h"
#include "portfolio/apunte.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"

namespace tesorel
{

QString textoNumero(double valor)
{
    return CStr(valor);
}

Comprar::Comprar(Session &s, EntornoCompraVenta entorno) : s_(s), entorno_(std::move(entorno)) {}

void Comprar::Form_Load()
{
    Combo1_Lista.clear();
    Combo1.clear();
    Fecha = Format(s_.Hoy(), "dd/mm/yy");
    s_.paso([&] {
        Combo2_Lista = nombresOperadores(s_);
        Combo2 = Combo2_Lista.value(0);
    });
    // Every value with quotes, portfolio series included (they show as "").
    s_.paso([&] {
        Query q(*s_.Base_Datos, QStringLiteral("Select valor from bolsa group by valor "));
        while (q.next())
            Combo1_Lista << Abreviatura11_De(s_, q.number(0));
    });
    const QString nombre = entorno_.valorPrincipal ? entorno_.valorPrincipal() : QString();
    Combo1 = Abreviatura11_De(s_, Codigo_De(s_, nombre, BuscarPor::Nombre));
}

void Comprar::setCantidad(const QString &texto)
{
    if (texto == cantidad_)
        return;
    cantidad_ = texto;
    setPrecio_total(textoNumero(Numero_Val(precio_) * Numero_Val(cantidad_)));
}

void Comprar::setPrecio(const QString &texto)
{
    if (texto == precio_)
        return;
    precio_ = texto;
    setPrecio_total(textoNumero(Numero_Cdbl(precio_) * Numero_Cdbl(cantidad_)));
}

void Comprar::setPrecio_total(const QString &texto)
{
    if (texto == precioTotal_)
        return;
    precioTotal_ = texto;
    recalcularTotal();
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

void Comprar::EditarOperadores_Click()
{
    if (entorno_.abrirOperadores)
        entorno_.abrirOperadores();
}

} // namespace tesorel
