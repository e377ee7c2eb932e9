#include "charts/painter_surface.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>
#include <cmath>

namespace tesorel
{

namespace
{
// Beyond this many pixels off the image a coordinate only risks the
// rasterizer's fixed point; segments are clipped to this frame first.
constexpr double kFrame = 100000;

bool clipToFrame(QPointF &a, QPointF &b)
{
    // Liang-Barsky against the square frame.
    double t0 = 0, t1 = 1;
    const double dx = b.x() - a.x(), dy = b.y() - a.y();
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x() + kFrame, kFrame - a.x(), a.y() + kFrame, kFrame - a.y()};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0)
                return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1)
            return false;
    }
    const QPointF a0 = a;
    a = QPointF(a0.x() + t0 * dx, a0.y() + t0 * dy);
    b = QPointF(a0.x() + t1 * dx, a0.y() + t1 * dy);
    return true;
}

bool finitePoint(const QPointF &p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y());
}
} // namespace

PainterSurface::PainterSurface(int pixelWidth, int pixelHeight)
    : image_(std::max(1, pixelWidth), std::max(1, pixelHeight), QImage::Format_RGB32),
      font_(QStringLiteral("DejaVu Sans"), 8), metrics_(font_, &image_), scaleWidth_(float(image_.width())),
      scaleHeight_(float(image_.height()))
{
    image_.fill(Qt::white);
    ascent_ = metrics_.ascent();
    lineHeight_ = metrics_.height();
}

PainterSurface::~PainterSurface() = default;

QColor PainterSurface::toQColor(int colour)
{
    return QColor(colourRed(colour), colourGreen(colour), colourBlue(colour));
}

QPainter &PainterSurface::painter()
{
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing, false);
        painter_->setFont(font_);
        penColour_ = penWidth_ = -1;
    }
    return *painter_;
}

QPointF PainterSurface::toPixels(float x, float y) const
{
    return QPointF((double(x) - scaleLeft_) * image_.width() / scaleWidth_,
                   (double(y) - scaleTop_) * image_.height() / scaleHeight_);
}

QRect PainterSurface::pixelRect(float x1, float y1, float x2, float y2) const
{
    // Both corners are inside the box, as the picture box fills them.
    QPointF a = toPixels(x1, y1), b = toPixels(x2, y2);
    auto clampPx = [](double v) { return int(std::lround(std::clamp(v, -kFrame, kFrame))); };
    const int l = clampPx(std::min(a.x(), b.x())), r = clampPx(std::max(a.x(), b.x()));
    const int t = clampPx(std::min(a.y(), b.y())), bo = clampPx(std::max(a.y(), b.y()));
    return QRect(QPoint(l, t), QPoint(r, bo));
}

void PainterSurface::usePen(int colour, int width)
{
    if (colour == penColour_ && width == penWidth_)
        return;
    QPen pen(toQColor(colour));
    // Width 1 is the cosmetic pen, the rasterizer's fast path; flat caps
    // and bevel joins keep wide pens off the trigonometry of round ones.
    pen.setWidth(width <= 1 ? 0 : width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::BevelJoin);
    painter().setPen(pen);
    penColour_ = colour;
    penWidth_ = width;
}

void PainterSurface::paintRun(Run &run)
{
    if (run.points.size() < 2) {
        run.points.clear();
        return;
    }
    usePen(run.colour, run.width);
    painter().drawPolyline(run.points.data(), int(run.points.size()));
    run.points.clear();
}

void PainterSurface::flush()
{
    for (Run &r : runs_)
        paintRun(r);
    runs_.clear();
}

void PainterSurface::clear()
{
    runs_.clear();
    painter().fillRect(image_.rect(), toQColor(backColor_));
    currentX_ = 0;
    currentY_ = 0;
}

void PainterSurface::line(float x1, float y1, float x2, float y2, int colour)
{
    QPointF a = toPixels(x1, y1), b = toPixels(x2, y2);
    if (!finitePoint(a) || !finitePoint(b))
        return;
    const bool clipped = std::fabs(a.x()) > kFrame || std::fabs(a.y()) > kFrame ||
                         std::fabs(b.x()) > kFrame || std::fabs(b.y()) > kFrame;
    if (clipped && !clipToFrame(a, b))
        return;
    const int width = std::max(1, drawWidth_);
    auto it = std::find_if(runs_.begin(), runs_.end(),
                           [&](const Run &r) { return r.colour == colour && r.width == width; });
    if (it == runs_.end()) {
        runs_.push_back(Run{colour, width, {}});
        it = runs_.end() - 1;
    }
    if (clipped || it->points.empty() || it->points.back() != a) {
        paintRun(*it);
        it->points.push_back(a);
    }
    it->points.push_back(b);
    if (clipped)
        paintRun(*it);
}

void PainterSurface::box(float x1, float y1, float x2, float y2, int colour)
{
    flush();
    usePen(colour, std::max(1, drawWidth_));
    painter().drawRect(pixelRect(x1, y1, x2, y2));
}

void PainterSurface::filledBox(float x1, float y1, float x2, float y2, int colour)
{
    flush();
    const QRect r = pixelRect(x1, y1, x2, y2);
    painter().fillRect(r.adjusted(0, 0, 1, 1).intersected(image_.rect()), toQColor(colour));
}

void PainterSurface::print(const QString &text)
{
    flush();
    const QPointF at = toPixels(currentX_, currentY_);
    if (finitePoint(at) && std::fabs(at.x()) < kFrame && std::fabs(at.y()) < kFrame) {
        QPainter &p = painter();
        usePen(foreColor_, 1);
        p.drawText(QPointF(at.x(), at.y() + ascent_), text);
    }
    currentX_ = scaleLeft_;
    currentY_ += textHeight(text);
}

float PainterSurface::textWidth(const QString &text) const
{
    return float(metrics_.horizontalAdvance(text) * scaleWidth_ / image_.width());
}

float PainterSurface::textHeight(const QString &) const
{
    return float(lineHeight_ * scaleHeight_ / image_.height());
}

const QImage &PainterSurface::image()
{
    flush();
    painter_.reset();
    return image_;
}

bool PainterSurface::savePng(const QString &path)
{
    return image().save(path, "PNG");
}

} // namespace tesorel
