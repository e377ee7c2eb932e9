#pragma once
#include "charts/chart_overlays.h"

#include <QRectF>
#include <vector>

class QPainter;

namespace tesorel
{

class InteraccionGrafica;
class OperacionesGrafica;
class Surface;

// Maps the chart's user scale onto a pixel area of the given size.
struct EscalaPixeles {
    double left = 0, top = 0, width = 1, height = 1; // the user scale
    double pixelWidth = 1, pixelHeight = 1;

    static EscalaPixeles de(const Surface &box, double pixelWidth, double pixelHeight);
    double x(double ux) const { return (ux - left) * pixelWidth / width; }
    double y(double uy) const { return (uy - top) * pixelHeight / height; }
    double ux(double px) const { return left + px * width / pixelWidth; }
    double uy(double py) const { return top + py * height / pixelHeight; }
    // An item's box: `top` is its upper edge, `h` a positive size in the scale.
    QRectF caja(double l, double t, double w, double h) const;
};

// Paints what stands on the price chart: the operation poles and labels
// (later loaded above earlier), the measuring line, circles and prices.
// Either model may be absent.
void pintarMarcas(QPainter &p, const EscalaPixeles &e, const OperacionesGrafica *operaciones,
                  const InteraccionGrafica *interaccion);

} // namespace tesorel
