#pragma once
#include "portfolio/panel_lotes.h"
#include "portfolio/ventana_de_apunte.h"

namespace tesorel
{

class Session;

// The sell window. As in the buy window each text setter is the change
// event of its control; a new Total recalculates the lots panel.
class Vender : public VentanaDeApunte
{
  public:
    Vender(Session &s, EntornoCompraVenta entorno);

    static const QString NotaFilas; // what Label18 tells

    PanelLotes panel;
    bool PanelVisible = false;

    void Form_Load();
    // The value combo's events: 1 offers the whole position held.
    void Combo1_Evento(int evento);
    void Combo2_Evento(int evento);
    void setTotal(const QString &texto);
    void Mostrar_Click();
    void Label18_Click();
    void Aceptar_Click(); // Label3 and Label11

    // The panel for the texts on show. A failure (16-bit overflow, a
    // 1001st lot) ends the calculation and is reported, never thrown.
    void recalcularPanel();

  private:
    void recalcularTotal() override;
};

} // namespace tesorel
