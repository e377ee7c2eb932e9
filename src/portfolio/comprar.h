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

// The buy window. Each text setter is the control's change event: a new
// text recalculates the next field of the chain, the same text does
// nothing. Gross and total are the doubles as they come, never rounded.
class Comprar
{
  public:
    Comprar(Session &s, EntornoCompraVenta entorno);

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

    void Form_Load();
    void setPrecio(const QString &texto);
    void setCantidad(const QString &texto);
    void setPrecio_total(const QString &texto);
    void setTotal(const QString &texto) { total_ = texto; }
    // The combo's events: 2 means a broker has been chosen.
    void Combo2_Evento(int evento);
    void Aceptar_Click();
    void Label11_Click() { Aceptar_Click(); }
    void Cancelar_Click() { Cerrada = true; }
    void EditarOperadores_Click();

  private:
    void recalcularTotal();

    Session &s_;
    EntornoCompraVenta entorno_;
    QString precio_, cantidad_, precioTotal_, total_;
};

// The number texts the windows put in their fields: the double as it is,
// with a decimal comma.
QString textoNumero(double valor);

} // namespace tesorel
