#pragma once
#include "portfolio/ventana_de_apunte.h"

namespace tesorel
{

// The buy window. Each text setter is the control's change event: a new
// text recalculates the next field of the chain, the same text does
// nothing. Gross and total are the doubles as they come, never rounded.
class Comprar : public VentanaDeApunte
{
  public:
    Comprar(Session &s, EntornoCompraVenta entorno);

    void Form_Load();
    void setTotal(const QString &texto) { total_ = texto; }
    // The combo's events: 2 means a broker has been chosen.
    void Combo2_Evento(int evento);
    void Aceptar_Click();
    void Label11_Click() { Aceptar_Click(); }

  private:
    void recalcularTotal() override;
};

} // namespace tesorel
