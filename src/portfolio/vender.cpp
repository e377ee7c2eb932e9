#include "portfolio/vender.h"

#include "core/format.h"
#include "core/numbers.h"
#include "portfolio/apunte.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

const QString Vender::NotaFilas =
    QStringLiteral("Si precisa más filas, pongase en contacto con los autores del programa");

Vender::Vender(Session &s, EntornoCompraVenta entorno) : VentanaDeApunte(s, std::move(entorno)) {}

void Vender::Form_Load()
{
    Fecha = Format(s_.Hoy(), "dd/mm/yy");
    Combo1_Lista.clear();
    Combo1.clear();
    s_.paso([&] {
        Query q(*s_.Base_Datos, QStringLiteral("Select Valor from cartera where usuario = ?"));
        q.bind(1, s_.Usuario_Numero);
        while (q.next())
            Combo1_Lista << Abreviatura11_De(s_, q.number(0));
    });
    // The value on show, held or not.
    valorDeLaPrincipal();
    cargarOperadores();
}

void Vender::Combo1_Evento(int evento)
{
    if (evento != 1)
        return;
    s_.paso([&] {
        Query q(*s_.Base_Datos,
                QStringLiteral("Select Cantidad from cartera where (valor = ?) and (usuario = ?)"));
        q.bind(1, Codigo_De(s_, Combo1, BuscarPor::Abreviatura11)).bind(2, s_.Usuario_Numero);
        if (q.next())
            setCantidad(textoNumero(q.number(0)));
    });
}

void Vender::Combo2_Evento(int evento)
{
    if (evento == 2)
        recalcularTotal();
}

void Vender::recalcularTotal()
{
    // The sell window's commission steps go on silently after a failure.
    operador = 0;
    try {
        operador = codigoOperador(s_, Combo2);
    } catch (const RuntimeError &) {
    }
    totalComision = Cargar_comisiones(s_, operador, precioTotal_, lineas, EstiloComision::venta());
    s_.paso([&] { setTotal(textoNumero(CDbl(precioTotal_) - totalComision)); });
}

void Vender::setTotal(const QString &texto)
{
    if (texto == total_)
        return;
    total_ = texto;
    recalcularPanel();
}

void Vender::recalcularPanel()
{
    try {
        Recalcular_Lotes(s_, Codigo_De(s_, Combo1, BuscarPor::Abreviatura11),
                         {Fecha, cantidad_, precio_, total_}, panel);
    } catch (const RuntimeError &e) {
        s_.Registrar_Error(e);
    } catch (const std::exception &e) {
        s_.Registrar_Error(e);
    }
}

void Vender::Mostrar_Click()
{
    PanelVisible = true;
    recalcularPanel();
}

void Vender::Label18_Click()
{
    s_.ui.MsgBox(NotaFilas, mb::Information);
}

void Vender::Aceptar_Click()
{
    if (apuntarVenta(s_, {Combo1, cantidad_, precio_, Fecha, total_, operador},
                     ReglasApunte::ventaVentana()) == ResultadoVenta::Apuntada)
        Cerrada = true;
}

} // namespace tesorel
