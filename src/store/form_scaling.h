#pragma once
#include <vector>

namespace tesorel
{

// The geometry of a control as the old forms kept it, in twips.
struct GeometriaControl {
    bool esEtiqueta = false;
    int BorderStyle = 0;        // labels: 1 framed, 0 plain
    bool tieneGeometria = true; // a control without size (a timer) fails the step
    double Left = 0, Top = 0, Width = 0, Height = 0;
    bool AutoSize = false;
};

// The size that the last scaling started from; it is what the next call
// scales from, as one pair shared by every form.
struct TamanoEscalado {
    double ancho = 12000, alto = 9750; // the design size in twips
};

// Scales every control by the form's size over the pair's, then keeps the
// form's size in the pair. A size of 0 first resets the pair to the design
// size. A plain label gets its width scaled and AutoSize; a framed one its
// height too; a control without geometry keeps what it has (its step fails
// and is skipped). Font sizes are left alone.
//
// The desktop forms of this version are laid out by Qt's layouts, which
// follow the screen by themselves; this keeps the old arithmetic for the
// forms and tools that place controls by coordinates.
void Escalar_Formulario(TamanoEscalado &par, double anchoFormulario, double altoFormulario,
                        std::vector<GeometriaControl> &controles, double tamano);

// Left and top that centre a form of the given size on the screen.
struct Posicion {
    double Left = 0, Top = 0;
};
Posicion Centrar_Formulario(double anchoPantalla, double altoPantalla, double anchoFormulario,
                            double altoFormulario);

} // namespace tesorel
