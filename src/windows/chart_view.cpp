#include "windows/chart_view.h"

#include "charts/chart_interaction.h"
#include "charts/chart_operations.h"
#include "charts/overlay_painter.h"
#include "charts/painter_surface.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace tesorel
{

namespace
{
int botones(Qt::MouseButtons b)
{
    int v = 0;
    if (b & Qt::LeftButton)
        v |= InteraccionGrafica::kIzquierdo;
    if (b & Qt::RightButton)
        v |= InteraccionGrafica::kDerecho;
    if (b & Qt::MiddleButton)
        v |= 4;
    return v;
}
int mayusculas(Qt::KeyboardModifiers m)
{
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}
} // namespace

ChartView::ChartView(PainterSurface &surface, QWidget *parent) : QWidget(parent), surface_(surface)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ChartView::guardar(const std::function<void()> &paso)
{
    // No failure of the chart's models may leave a mouse handler.
    if (guardia_) {
        guardia_(paso);
        return;
    }
    try {
        paso();
    } catch (...) {
    }
}

void ChartView::setModelos(OperacionesGrafica *operaciones, InteraccionGrafica *interaccion)
{
    operaciones_ = operaciones;
    interaccion_ = interaccion;
    update();
}

void ChartView::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    const QImage &img = surface_.image();
    p.drawImage(rect(), img);
    pintarMarcas(p, EscalaPixeles::de(surface_, width(), height()), operaciones_, interaccion_);
}

int ChartView::etiquetaEn(const QPointF &pt) const
{
    if (!operaciones_)
        return 0;
    const EscalaPixeles e = EscalaPixeles::de(surface_, width(), height());
    int mejor = 0, orden = -1;
    for (const auto &[n, et] : operaciones_->Compra)
        if (et.visible && e.caja(et.left, et.top, et.width, et.height).contains(pt) && et.orden > orden) {
            mejor = n;
            orden = et.orden;
        }
    return mejor;
}

void ChartView::mousePressEvent(QMouseEvent *ev)
{
    guardar([&] {
        if (ev->button() == Qt::LeftButton) {
            if (const int n = etiquetaEn(ev->position())) {
                operaciones_->Compra_Click(n);
                update();
                return;
            }
        }
        if (interaccion_) {
            const EscalaPixeles e = EscalaPixeles::de(surface_, width(), height());
            interaccion_->Picture1_MouseDown(botones(ev->button()), mayusculas(ev->modifiers()),
                                             e.ux(ev->position().x()), e.uy(ev->position().y()));
            update();
        }
    });
}

void ChartView::mouseMoveEvent(QMouseEvent *ev)
{
    guardar([&] {
        if (interaccion_ && ev->buttons() != Qt::NoButton) {
            const EscalaPixeles e = EscalaPixeles::de(surface_, width(), height());
            interaccion_->Picture1_MouseMove(botones(ev->buttons()), mayusculas(ev->modifiers()),
                                             e.ux(ev->position().x()), e.uy(ev->position().y()));
            update();
        }
    });
}

void ChartView::mouseReleaseEvent(QMouseEvent *ev)
{
    guardar([&] {
        if (interaccion_) {
            const EscalaPixeles e = EscalaPixeles::de(surface_, width(), height());
            interaccion_->Picture1_MouseUp(botones(ev->button()), mayusculas(ev->modifiers()),
                                           e.ux(ev->position().x()), e.uy(ev->position().y()));
            update();
        }
    });
}

bool ChartView::event(QEvent *ev)
{
    if (ev->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(ev);
        const int n = etiquetaEn(help->pos());
        if (n && !operaciones_->Compra.at(n).toolTip.isEmpty())
            QToolTip::showText(help->globalPos(), operaciones_->Compra.at(n).toolTip, this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(ev);
}

} // namespace tesorel
