#include "charts/overlay_painter.h"

#include "charts/chart_interaction.h"
#include "charts/chart_operations.h"
#include "charts/painter_surface.h"
#include "charts/surface.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tesorel
{

EscalaPixeles EscalaPixeles::de(const Surface &box, double pixelWidth, double pixelHeight)
{
    EscalaPixeles e;
    e.left = box.scaleLeft();
    e.top = box.scaleTop();
    e.width = box.scaleWidth() != 0 ? box.scaleWidth() : 1;
    e.height = box.scaleHeight() != 0 ? box.scaleHeight() : 1;
    e.pixelWidth = pixelWidth;
    e.pixelHeight = pixelHeight;
    return e;
}

QRectF EscalaPixeles::caja(double l, double t, double w, double h) const
{
    const double x1 = x(l), x2 = x(l + w);
    // Down the screen from the top edge, whichever way the scale grows.
    const double y1 = y(t), alto = std::fabs(h * pixelHeight / height);
    return QRectF(std::min(x1, x2), y1, std::fabs(x2 - x1), alto);
}

namespace
{
void etiqueta(QPainter &p, const EscalaPixeles &e, const EtiquetaGrafica &et, const QColor &fondoPlantilla)
{
    if (!et.visible)
        return;
    QRectF r = e.caja(et.left, et.top, et.width, et.height);
    r.setWidth(std::max(r.width(), p.fontMetrics().horizontalAdvance(et.caption) + 2.0));
    p.fillRect(r, et.fondo >= 0 ? PainterSurface::toQColor(et.fondo) : fondoPlantilla);
    p.setPen(QPen(Qt::black, 0));
    p.drawRect(r);
    p.drawText(r, Qt::AlignCenter, et.caption);
}

void linea(QPainter &p, const EscalaPixeles &e, const LineaGrafica &l, const QColor &color, int ancho)
{
    if (!l.visible)
        return;
    p.setPen(QPen(color, ancho));
    p.drawLine(QPointF(e.x(l.x1), e.y(l.y1)), QPointF(e.x(l.x2), e.y(l.y2)));
}

void circulo(QPainter &p, const EscalaPixeles &e, const CirculoGrafica &c)
{
    if (!c.visible)
        return;
    p.setPen(QPen(Qt::blue, 1));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(e.caja(c.left, c.top, c.width, c.height));
}
} // namespace

void pintarMarcas(QPainter &p, const EscalaPixeles &e, const OperacionesGrafica *operaciones,
                  const InteraccionGrafica *interaccion)
{
    p.save();
    QFont f = p.font();
    f.setPointSize(7);
    p.setFont(f);
    if (operaciones) {
        for (const auto &[n, palo] : operaciones->PaloCompra)
            linea(p, e, palo, Qt::black, 1);
        std::vector<const EtiquetaGrafica *> orden;
        for (const auto &[n, et] : operaciones->Compra)
            orden.push_back(&et);
        std::sort(orden.begin(), orden.end(), [](auto *a, auto *b) { return a->orden < b->orden; });
        for (const EtiquetaGrafica *et : orden)
            etiqueta(p, e, *et, QColor(255, 255, 192));
    }
    if (interaccion) {
        for (const auto &[n, l] : interaccion->Linea)
            if (n != 0)
                linea(p, e, l, Qt::red, 1);
        circulo(p, e, interaccion->Circulo1);
        circulo(p, e, interaccion->Circulo2);
        etiqueta(p, e, interaccion->Inicio, QColor(255, 255, 255));
        etiqueta(p, e, interaccion->Fin, QColor(255, 255, 255));
    }
    p.restore();
}

} // namespace tesorel
