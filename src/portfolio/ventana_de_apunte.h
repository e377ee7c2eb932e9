#pragma once
#include "portfolio/comisiones.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace tesorel
{

class Session;

// What the buy and sell windows need from outside: the value the main
// window shows (its name) and a way to open the brokers' editor.
struct EntornoCompraVenta {
    std::function<QString()> valorPrincipal;
    std::function<void()> abrirOperadores;
};

// What the buy and sell windows share: their controls' contents and the
// first links of the live chain. Price and quantity give the gross amount,
// read by the rule of the event (Val for a new quantity, CDbl for a new
// price); a new gross amount recalculates the commission and the total,
// which each window does its own way.
class VentanaDeApunte
{
  public:
    virtual ~VentanaDeApunte() = default;

    QStringList Combo1_Lista, Combo2_Lista;
    QString Combo1, Combo2;
    const QString &Precio() const { return precio_; }
    const QString &Cantidad() const { return cantidad_; }
    const QString &Precio_total() const { return precioTotal_; }
    const QString &Total() const { return total_; }
    QString Fecha;
    LineasComision lineas;
    double totalComision = 0;
    double operador = 0; // the broker picked in Combo2; 0 when none
    bool Cerrada = false;

    void setPrecio(const QString &texto);
    void setCantidad(const QString &texto);
    void setPrecio_total(const QString &texto);
    void Cancelar_Click() { Cerrada = true; }
    void EditarOperadores_Click();

  protected:
    VentanaDeApunte(Session &s, EntornoCompraVenta entorno);
    virtual void recalcularTotal() = 0;
    // Combo1 on the value the main window shows (or nothing).
    void valorDeLaPrincipal();
    // The brokers' names in Combo2, the first one chosen.
    void cargarOperadores();

    Session &s_;
    EntornoCompraVenta entorno_;
    QString precio_, cantidad_, precioTotal_, total_;
};

// The number texts the windows put in their fields: the double as it is,
// with a decimal comma.
QString textoNumero(double valor);

} // namespace tesorel
