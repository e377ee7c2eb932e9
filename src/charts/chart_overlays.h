#pragma once
#include <QString>

namespace tesorel
{

// Controls that stand on the price chart in its user scale. Heights are
// positive sizes in that scale; an item spans from its top downwards.

struct LineaGrafica {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    bool visible = false;
};

struct EtiquetaGrafica {
    QString caption;
    QString toolTip;
    double left = 0, top = 0, width = 0, height = 0;
    int fondo = -1; // background colour; -1 the template's
    bool visible = false;
    int orden = 0; // loaded later stands above: drawn in this order
};

struct CirculoGrafica {
    double left = 0, top = 0, width = 0, height = 0;
    bool visible = false;
};

} // namespace tesorel
