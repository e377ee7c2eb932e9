#pragma once
#include "charts/box_queue.h"
#include "charts/pixel_raster.h"
#include "charts/surface.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPointF>
#include <QRect>
#include <QString>
#include <vector>

namespace tesorel
{

// A picture box drawn into an image of a fixed pixel size. The user scale
// is mapped onto the whole image; pen widths are pixels; text is DejaVu
// Sans 8 pt, measured and converted into user units.
//
// Lines and boxes go straight into the pixels (see PixelRaster), which is
// what makes a 3,000-point chart cheap. Consecutive line() calls are
// gathered into one polyline per pen and painted when any other kind of
// call comes: lines of different pens drawn in the same run stack pen by
// pen rather than segment by segment, as the charts have always looked.
// Text needs QPainter, so printed
// texts wait and are painted together when the image is read, or earlier
// when a line or box is about to touch the area they will cover: the
// picture is the same as if every call had been painted in its turn.
class PainterSurface : public Surface
{
  public:
    PainterSurface(int pixelWidth, int pixelHeight);
    ~PainterSurface() override;

    void setScaleLeft(float v) override
    {
        paintWaitingLines();
        scaleLeft_ = v;
    }
    void setScaleTop(float v) override
    {
        paintWaitingLines();
        scaleTop_ = v;
    }
    void setScaleWidth(float v) override
    {
        paintWaitingLines();
        scaleWidth_ = v;
        pixelsPerUnitX_ = pixelWidth_ / scaleWidth_;
    }
    void setScaleHeight(float v) override
    {
        paintWaitingLines();
        scaleHeight_ = v;
        pixelsPerUnitY_ = pixelHeight_ / scaleHeight_;
    }
    float scaleLeft() const override { return scaleLeft_; }
    float scaleTop() const override { return scaleTop_; }
    float scaleWidth() const override { return scaleWidth_; }
    float scaleHeight() const override { return scaleHeight_; }

    void clear() override;
    void line(float x1, float y1, float x2, float y2, int colour) override;
    void box(float x1, float y1, float x2, float y2, int colour) override;
    void filledBox(float x1, float y1, float x2, float y2, int colour) override;

    void setDrawWidth(int pixels) override { drawWidth_ = pixels; }
    int drawWidth() const override { return drawWidth_; }
    void setForeColor(int colour) override { foreColor_ = colour; }
    int foreColor() const override { return foreColor_; }
    void setBackColor(int colour) override { backColor_ = colour; }

    void setCurrentX(float x) override { currentX_ = x; }
    void setCurrentY(float y) override { currentY_ = y; }
    float currentX() const override { return currentX_; }
    float currentY() const override { return currentY_; }

    void print(const QString &text) override;
    float textWidth(const QString &text) const override;
    float textHeight(const QString &text) const override;

    // The picture so far (waiting texts painted first).
    const QImage &image();
    bool savePng(const QString &path);

    static QColor toQColor(int colour);

  private:
    struct Text {
        QPointF baseline;
        QRgb colour;
        QString text;
    };
    struct Run {
        int colour;
        int width;
        std::vector<QPointF> points;
        float lastX, lastY; // the last point as given, in user units
    };
    Run *findRun(int colour, int width);
    static QRect runArea(const Run &run);
    void paintRun(Run &run);
    void paintWaitingLines();
    PixelRaster raster();
    void paintWaitingBoxes();
    void paintTexts();
    // Paints the waiting texts first if the pixels about to be drawn may
    // touch them.
    void beforePixels(const QRect &area);
    // One factor an axis, as a transform has: no division a point.
    QPointF toPixels(float x, float y) const
    {
        return QPointF((double(x) - scaleLeft_) * pixelsPerUnitX_, (double(y) - scaleTop_) * pixelsPerUnitY_);
    }
    QRect pixelRect(float x1, float y1, float x2, float y2) const;

    QImage image_;
    uchar *bits_ = nullptr; // image_'s pixels, detached, while no one has read it
    double pixelWidth_ = 1, pixelHeight_ = 1;
    double pixelsPerUnitX_ = 1, pixelsPerUnitY_ = 1;
    qsizetype stride_ = 0;
    QFont font_;
    QFontMetricsF metrics_;
    double ascent_ = 0, lineHeight_ = 0;
    std::vector<Text> texts_;
    QRect textArea_;        // what the waiting texts may cover
    BoxQueue boxes_;        // boxes wait until a line, a text or a read
    std::vector<Run> runs_; // lines wait, one polyline a pen, until anything else
    std::vector<std::vector<QPointF>> spareRuns_;
    std::size_t lastRun_ = 0; // where the search for the next run starts
    float scaleLeft_ = 0, scaleTop_ = 0, scaleWidth_, scaleHeight_;
    float currentX_ = 0, currentY_ = 0;
    int drawWidth_ = 1, foreColor_ = 0, backColor_ = 0xFFFFFF;
};

} // namespace tesorel
