#pragma once
#include "charts/surface.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QString>
#include <memory>
#include <vector>

namespace tesorel
{

// A picture box drawn with QPainter into an image of a fixed pixel size.
// The user scale is mapped onto the whole image; pen widths are pixels;
// text is DejaVu Sans 8 pt, measured and converted into user units.
//
// Consecutive line() calls are gathered into one polyline per pen and
// painted when any other kind of call comes (or the image is read). Lines
// of different pens drawn in the same run thus stack pen by pen rather
// than segment by segment; a chart's lines never depend on that order.
class PainterSurface : public Surface
{
  public:
    PainterSurface(int pixelWidth, int pixelHeight);
    ~PainterSurface() override;

    void setScaleLeft(float v) override
    {
        flush();
        scaleLeft_ = v;
    }
    void setScaleTop(float v) override
    {
        flush();
        scaleTop_ = v;
    }
    void setScaleWidth(float v) override
    {
        flush();
        scaleWidth_ = v;
    }
    void setScaleHeight(float v) override
    {
        flush();
        scaleHeight_ = v;
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

    // The picture so far (pending lines painted first).
    const QImage &image();
    bool savePng(const QString &path);

    static QColor toQColor(int colour);

  private:
    struct Run {
        int colour;
        int width;
        std::vector<QPointF> points;
    };
    QPainter &painter();
    void flush();
    void paintRun(Run &run);
    QPointF toPixels(float x, float y) const;
    QRect pixelRect(float x1, float y1, float x2, float y2) const;
    void usePen(int colour, int width);

    QImage image_;
    std::unique_ptr<QPainter> painter_;
    QFont font_;
    QFontMetricsF metrics_;
    double ascent_ = 0, lineHeight_ = 0;
    std::vector<Run> runs_;
    float scaleLeft_ = 0, scaleTop_ = 0, scaleWidth_, scaleHeight_;
    float currentX_ = 0, currentY_ = 0;
    int drawWidth_ = 1, foreColor_ = 0, backColor_ = 0xFFFFFF;
    int penColour_ = -1, penWidth_ = -1;
};

} // namespace tesorel
