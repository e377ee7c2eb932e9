#include "charts/painter_surface.h"

#include "charts/pixel_raster.h"

#include <QFontMetricsF>
#include <QPainter>
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
    pixelWidth_ = image_.width();
    pixelHeight_ = image_.height();
    pixelsPerUnitX_ = pixelWidth_ / double(scaleWidth_);
    pixelsPerUnitY_ = pixelHeight_ / double(scaleHeight_);
    stride_ = image_.bytesPerLine();
    boxes_.setSize(image_.width(), image_.height());
    ascent_ = metrics_.ascent();
    lineHeight_ = metrics_.height();
}

PainterSurface::~PainterSurface() = default;

QColor PainterSurface::toQColor(int colour)
{
    return QColor(colourRed(colour), colourGreen(colour), colourBlue(colour));
}

namespace
{
QRgb toRgb(int colour)
{
    return qRgb(colourRed(colour), colourGreen(colour), colourBlue(colour));
}
} // namespace

QRect PainterSurface::pixelRect(float x1, float y1, float x2, float y2) const
{
    // Both corners are inside the box, as the picture box fills them.
    QPointF a = toPixels(x1, y1), b = toPixels(x2, y2);
    // Rounds half away from zero as lround does, without the library call:
    // v - i is exact for a clamped v.
    auto clampPx = [](double v) {
        if (std::isnan(v))
            return int(std::lround(v));
        v = std::clamp(v, -kFrame, kFrame);
        const int i = static_cast<int>(v);
        const double f = v - i;
        // Added, not branched on: a bar's edges fall anywhere in a pixel.
        return i + int(f >= 0.5) - int(f <= -0.5);
    };
    const int l = clampPx(std::min(a.x(), b.x())), r = clampPx(std::max(a.x(), b.x()));
    const int t = clampPx(std::min(a.y(), b.y())), bo = clampPx(std::max(a.y(), b.y()));
    return QRect(QPoint(l, t), QPoint(r, bo));
}

PixelRaster PainterSurface::raster()
{
    // Once after every read of the image: a copy the reader kept must not
    // see later drawing.
    if (!bits_)
        bits_ = image_.bits();
    return PixelRaster(bits_, stride_, int(pixelWidth_), int(pixelHeight_));
}

void PainterSurface::paintTexts()
{
    if (texts_.empty())
        return;
    {
        QPainter p(&image_);
        p.setRenderHint(QPainter::Antialiasing, false);
        p.setFont(font_);
        for (const Text &t : texts_) {
            p.setPen(QColor(t.colour));
            p.drawText(t.baseline, t.text);
        }
    }
    texts_.clear();
    textArea_ = QRect();
    bits_ = nullptr; // QPainter may have detached the image
}

void PainterSurface::beforePixels(const QRect &area)
{
    if (!texts_.empty() && area.left() <= textArea_.right() && textArea_.left() <= area.right() &&
        area.top() <= textArea_.bottom() && textArea_.top() <= area.bottom())
        paintTexts();
}

void PainterSurface::clear()
{
    // Whatever was waiting would be painted over.
    boxes_.drop();
    for (Run &r : runs_) {
        r.points.clear();
        spareRuns_.push_back(std::move(r.points));
    }
    runs_.clear();
    lastRun_ = 0;
    texts_.clear();
    textArea_ = QRect();
    raster().fill(0, 0, image_.width() - 1, image_.height() - 1, toRgb(backColor_));
    currentX_ = 0;
    currentY_ = 0;
}

PainterSurface::Run *PainterSurface::findRun(int colour, int width)
{
    // The sets of a chart come round in the same order at every point:
    // the run after the last one used is nearly always the one wanted.
    const std::size_t n = runs_.size();
    for (std::size_t k = 0; k < n; ++k) {
        const std::size_t i = lastRun_ + k < n ? lastRun_ + k : lastRun_ + k - n;
        if (runs_[i].colour == colour && runs_[i].width == width) {
            lastRun_ = i + 1 < n ? i + 1 : 0;
            return &runs_[i];
        }
    }
    return nullptr;
}

void PainterSurface::line(float x1, float y1, float x2, float y2, int colour)
{
    const int width = std::max(1, drawWidth_);
    Run *run = findRun(colour, width);
    // A polyline's next segment starts where the last one ended: its start
    // is already in pixels and known to be inside the frame.
    const bool sigue = run && !run->points.empty() && run->lastX == x1 && run->lastY == y1;
    QPointF a = sigue ? run->points.back() : toPixels(x1, y1);
    QPointF b = toPixels(x2, y2);
    if (!finitePoint(a) || !finitePoint(b))
        return;
    const bool clipped = std::fabs(a.x()) > kFrame || std::fabs(a.y()) > kFrame ||
                         std::fabs(b.x()) > kFrame || std::fabs(b.y()) > kFrame;
    if (clipped && !clipToFrame(a, b))
        return;
    paintWaitingBoxes();
    if (!run) {
        runs_.push_back(Run{colour, width, {}, 0, 0});
        if (!spareRuns_.empty()) { // a frame's polylines reuse the last one's memory
            runs_.back().points = std::move(spareRuns_.back());
            spareRuns_.pop_back();
        }
        run = &runs_.back();
        lastRun_ = 0;
    }
    if (clipped || !(sigue || (!run->points.empty() && run->points.back() == a))) {
        paintRun(*run);
        run->points.push_back(a);
    }
    run->points.push_back(b);
    run->lastX = x2;
    run->lastY = y2;
    if (clipped)
        paintRun(*run);
}

QRect PainterSurface::runArea(const Run &run)
{
    // The pixels lie within the points' box and the pen.
    double left = run.points[0].x(), right = left, top = run.points[0].y(), bottom = top;
    for (const QPointF &p : run.points) {
        left = std::min(left, p.x());
        right = std::max(right, p.x());
        top = std::min(top, p.y());
        bottom = std::max(bottom, p.y());
    }
    const int w = run.width;
    return QRect(QPoint(int(std::floor(left)) - w, int(std::floor(top)) - w),
                 QPoint(int(std::ceil(right)) + w, int(std::ceil(bottom)) + w));
}

void PainterSurface::paintRun(Run &run)
{
    if (run.points.size() >= 2) {
        if (!texts_.empty())
            beforePixels(runArea(run));
        PixelRaster r = raster();
        const QRgb colour = toRgb(run.colour);
        for (std::size_t i = 1; i < run.points.size(); ++i)
            r.line(run.points[i - 1].x(), run.points[i - 1].y(), run.points[i].x(), run.points[i].y(),
                   run.width, colour);
    }
    run.points.clear();
}

void PainterSurface::paintWaitingLines()
{
    for (Run &r : runs_) {
        paintRun(r);
        spareRuns_.push_back(std::move(r.points));
    }
    runs_.clear();
    lastRun_ = 0;
}

// QPainter's outline and fill of a pixel rectangle both reach one pixel
// past its right and bottom corner.
void PainterSurface::box(float x1, float y1, float x2, float y2, int colour)
{
    paintWaitingLines();
    const QRect r = pixelRect(x1, y1, x2, y2).adjusted(0, 0, 1, 1);
    beforePixels(r);
    boxes_.outline(r.left(), r.top(), r.right(), r.bottom(), toRgb(colour));
}

void PainterSurface::filledBox(float x1, float y1, float x2, float y2, int colour)
{
    paintWaitingLines();
    const QRect r = pixelRect(x1, y1, x2, y2).adjusted(0, 0, 1, 1);
    beforePixels(r);
    boxes_.fill(r.left(), r.top(), r.right(), r.bottom(), toRgb(colour));
}

void PainterSurface::paintWaitingBoxes()
{
    if (!boxes_.empty())
        boxes_.paint(raster());
}

void PainterSurface::print(const QString &text)
{
    paintWaitingLines();
    paintWaitingBoxes();
    const QPointF at = toPixels(currentX_, currentY_);
    if (finitePoint(at) && std::fabs(at.x()) < kFrame && std::fabs(at.y()) < kFrame) {
        const QPointF baseline(at.x(), at.y() + ascent_);
        // Two pixels of slack for the rasterizer's rounding of glyphs.
        const QRect area =
            metrics_.boundingRect(text).translated(baseline).toAlignedRect().adjusted(-2, -2, 2, 2);
        texts_.push_back(Text{baseline, toRgb(foreColor_), text});
        textArea_ = textArea_.united(area);
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
    paintWaitingLines();
    paintWaitingBoxes();
    paintTexts();
    bits_ = nullptr;
    return image_;
}

bool PainterSurface::savePng(const QString &path)
{
    return image().save(path, "PNG");
}

} // namespace tesorel
