#pragma once
#include <QWidget>
#include <functional>

namespace tesorel
{

class InteraccionGrafica;
class OperacionesGrafica;
class PainterSurface;

// A picture box of the main window: shows the image a chart drew on its
// PainterSurface, paints the controls that stand on the chart (operation
// poles and labels, the measuring line, circles and prices) and hands the
// mouse to the interaction model in the chart's own units.
class ChartView : public QWidget
{
    Q_OBJECT
  public:
    explicit ChartView(PainterSurface &surface, QWidget *parent = nullptr);

    // Either may be absent (the volume and indicator pictures have neither).
    void setModelos(OperacionesGrafica *operaciones, InteraccionGrafica *interaccion);
    // Runs every mouse step; the window hands in its error guard.
    void setGuardia(std::function<void(const std::function<void()> &)> guardia)
    {
        guardia_ = std::move(guardia);
    }

  protected:
    void paintEvent(QPaintEvent *) override;
    void mousePressEvent(QMouseEvent *e) override;
    void mouseMoveEvent(QMouseEvent *e) override;
    void mouseReleaseEvent(QMouseEvent *e) override;
    bool event(QEvent *e) override;

  private:
    // The label of an operation under a point, as its element number; 0 for none.
    int etiquetaEn(const QPointF &p) const;

    void guardar(const std::function<void()> &paso);

    PainterSurface &surface_;
    std::function<void(const std::function<void()> &)> guardia_;
    OperacionesGrafica *operaciones_ = nullptr;
    InteraccionGrafica *interaccion_ = nullptr;
};

} // namespace tesorel
