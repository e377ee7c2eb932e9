#pragma once
#include <QString>

namespace tesorel
{

// What a chart needs of a picture box. Coordinates, scale values and the
// text cursor are single precision, as the box keeps them. Colours are
// 24-bit integers with blue in the high byte (0x00BBGGRR).
//
// The box keeps its own state (scale, cursor, pen width, fore colour)
// between drawings: a chart that does not set one of them inherits what
// the previous drawing left.
class Surface
{
  public:
    virtual ~Surface() = default;

    // User scale. Setting any part switches the box to a user scale.
    virtual void setScaleLeft(float value) = 0;
    virtual void setScaleTop(float value) = 0;
    virtual void setScaleWidth(float value) = 0;
    virtual void setScaleHeight(float value) = 0;
    virtual float scaleLeft() const = 0;
    virtual float scaleTop() const = 0;
    virtual float scaleWidth() const = 0;
    virtual float scaleHeight() const = 0;

    // Fills the whole box with the back colour.
    virtual void clear() = 0;
    virtual void line(float x1, float y1, float x2, float y2, int colour) = 0;
    virtual void box(float x1, float y1, float x2, float y2, int colour) = 0;
    virtual void filledBox(float x1, float y1, float x2, float y2, int colour) = 0;

    virtual void setDrawWidth(int pixels) = 0;
    virtual int drawWidth() const = 0;
    virtual void setForeColor(int colour) = 0;
    virtual int foreColor() const = 0;
    virtual void setBackColor(int colour) = 0;

    virtual void setCurrentX(float x) = 0;
    virtual void setCurrentY(float y) = 0;
    virtual float currentX() const = 0;
    virtual float currentY() const = 0;

    // Prints with the text's top left at the cursor in the fore colour,
    // then moves the cursor to the start of the next line: x to the scale
    // left, y on by textHeight (which carries the sign of the scale height).
    virtual void print(const QString &text) = 0;
    // Text size in user units; the height is negative on a scale whose
    // height is negative, so adding it always moves down the box.
    virtual float textWidth(const QString &text) const = 0;
    virtual float textHeight(const QString &text) const = 0;

    // Geometry of the control that holds the box, in the units of its
    // container; the charts only pass these through.
    virtual double left() const { return left_; }
    virtual double top() const { return top_; }
    virtual double width() const { return width_; }
    virtual double height() const { return height_; }
    virtual bool visible() const { return visible_; }
    virtual void setLeft(double v) { left_ = v; }
    virtual void setTop(double v) { top_ = v; }
    virtual void setWidth(double v) { width_ = v; }
    virtual void setHeight(double v) { height_ = v; }
    virtual void setVisible(bool v) { visible_ = v; }

  private:
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    bool visible_ = true;
};

// The picture box's own colour of a 24-bit integer: red in the low byte.
inline int colourRed(int c)
{
    return c & 0xFF;
}
inline int colourGreen(int c)
{
    return (c >> 8) & 0xFF;
}
inline int colourBlue(int c)
{
    return (c >> 16) & 0xFF;
}

} // namespace tesorel
