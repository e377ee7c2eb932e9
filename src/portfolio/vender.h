#pragma once
#include "portfolio/comisiones.h"
#include "portfolio/comprar.h"
#include "portfolio/panel_lotes.h"

#include <QString>
#include <QStringList>

namespace tesorel
{

class Session;

// The sell window. As in the buy window each text setter is the change
// event of its control; a new Total recalculates the lots panel.
class Vender
{
  public:
    Vender(Session &s, EntornoCompraVenta entorno);

    static const QString NotaFilas; // what Label18 tells

    QStringList Combo1_Lista, Combo2_Lista;
    QString Combo1, Combo2;
    const QString &Precio() const { return precio_; }
    const QString &Cantidad() const { return cantidad_; }
    const QString &Precio_total() const { return precioTotal_; }
    const QString &Total() const { return total_; }
    QString Fecha;
    LineasComision lineas;
    PanelLotes panel;
    bool PanelVisible = false;
    double totalComision = 0;
    double operador = 0;
    bool Cerrada = false;

    void Form_Load();
    // The value combo's events: 1 offers the whole position held.
    void Combo1_Evento(int evento);
    void Combo2_Evento(int evento);
    void setPrecio(const QString &texto);
    void setCantidad(const QString &texto);
    void setPrecio_total(const QString &texto);
    void setTotal(const QString &texto);
    void Mostrar_Click();
    void Label18_Click();
    void Aceptar_Click(); // Label3 and Label11
    void Cancelar_Click() { Cerrada = true; }
    void EditarOperadores_Click();

    // The panel for the texts on show. A failure (16-bit overflow, a
    // 1001st lot) ends the calculation and is reported, never thrown.
    void recalcularPanel();

  private:
    void recalcularTotal();

    Session &s_;
    EntornoCompraVenta entorno_;
    QString precio_, cantidad_, precioTotal_, total_;
};

} // namespace tesorel
