#include "portfolio/ventana_de_apunte.h"

#include "core/numbers.h"
#include "store/helpers.h"
#include "store/session.h"

namespace tesorel
{

QString textoNumero(double valor)
{
    return CStr(valor);
}

VentanaDeApunte::VentanaDeApunte(Session &s, EntornoCompraVenta entorno) : s_(s), entorno_(std::move(entorno))
{
}

void VentanaDeApunte::setCantidad(const QString &texto)
{
    if (texto == cantidad_)
        return;
    cantidad_ = texto;
    setPrecio_total(textoNumero(Numero_Val(precio_) * Numero_Val(cantidad_)));
}

void VentanaDeApunte::setPrecio(const QString &texto)
{
    if (texto == precio_)
        return;
    precio_ = texto;
    setPrecio_total(textoNumero(Numero_Cdbl(precio_) * Numero_Cdbl(cantidad_)));
}

void VentanaDeApunte::setPrecio_total(const QString &texto)
{
    if (texto == precioTotal_)
        return;
    precioTotal_ = texto;
    recalcularTotal();
}

void VentanaDeApunte::EditarOperadores_Click()
{
    if (entorno_.abrirOperadores)
        entorno_.abrirOperadores();
}

void VentanaDeApunte::valorDeLaPrincipal()
{
    const QString nombre = entorno_.valorPrincipal ? entorno_.valorPrincipal() : QString();
    Combo1 = Abreviatura11_De(s_, Codigo_De(s_, nombre, BuscarPor::Nombre));
}

void VentanaDeApunte::cargarOperadores()
{
    s_.paso([&] {
        Combo2_Lista = nombresOperadores(s_);
        Combo2 = Combo2_Lista.value(0);
    });
}

} // namespace tesorel
