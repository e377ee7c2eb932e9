#include "store/form_scaling.h"

namespace tesorel
{

void Escalar_Formulario(TamanoEscalado &par, double anchoFormulario, double altoFormulario,
                        std::vector<GeometriaControl> &controles, double tamano)
{
    if (tamano == 0)
        par = TamanoEscalado{};
    const double fx = anchoFormulario / par.ancho;
    const double fy = altoFormulario / par.alto;
    par.ancho = anchoFormulario;
    par.alto = altoFormulario;

    for (GeometriaControl &c : controles) {
        if (!c.tieneGeometria)
            continue;
        c.Top *= fy;
        c.Left *= fx;
        if (c.esEtiqueta) {
            c.Width *= fx;
            if (c.BorderStyle == 1)
                c.Height *= fy;
            else if (c.BorderStyle == 0)
                c.AutoSize = true;
        } else {
            c.Width *= fx;
            c.Height *= fy;
        }
    }
}

Posicion Centrar_Formulario(double anchoPantalla, double altoPantalla, double anchoFormulario,
                            double altoFormulario)
{
    return {(anchoPantalla - anchoFormulario) / 2, (altoPantalla - altoFormulario) / 2};
}

} // namespace tesorel
