#pragma once
#include "charts/surface.h"

#include <QString>
#include <vector>

namespace tesorel
{

// A surface that keeps a list of every call, for tests and fuzzing.
//
// Its text metrics are fixed so that label positions can be checked
// exactly: every character is 10 user units wide, whatever the scale,
// and a line of text is one twentieth of the scale height (so negative
// on a scale that grows upward). The empty text is 0 wide and still one
// line high, as a picture box measures it.
class RecordingSurface : public Surface
{
  public:
    enum class Kind {
        ScaleLeft,
        ScaleTop,
        ScaleWidth,
        ScaleHeight,
        Clear,
        Line,
        Box,
        FilledBox,
        DrawWidth,
        ForeColor,
        BackColor,
        CurrentX,
        CurrentY,
        Print
    };
    struct Call {
        Kind kind;
        float x1 = 0, y1 = 0, x2 = 0, y2 = 0; // coordinates, or the value set in x1
        int colour = 0;                       // colour, or the width of DrawWidth
        int width = 0;                        // pen width in force for a line or box
        QString text;                         // printed text
    };

    RecordingSurface(float scaleWidth = 1000, float scaleHeight = 1000)
        : scaleWidth_(scaleWidth), scaleHeight_(scaleHeight)
    {
    }

    void setScaleLeft(float v) override;
    void setScaleTop(float v) override;
    void setScaleWidth(float v) override;
    void setScaleHeight(float v) override;
    float scaleLeft() const override { return scaleLeft_; }
    float scaleTop() const override { return scaleTop_; }
    float scaleWidth() const override { return scaleWidth_; }
    float scaleHeight() const override { return scaleHeight_; }

    void clear() override;
    void line(float x1, float y1, float x2, float y2, int colour) override;
    void box(float x1, float y1, float x2, float y2, int colour) override;
    void filledBox(float x1, float y1, float x2, float y2, int colour) override;

    void setDrawWidth(int pixels) override;
    int drawWidth() const override { return drawWidth_; }
    void setForeColor(int colour) override;
    int foreColor() const override { return foreColor_; }
    void setBackColor(int colour) override;

    void setCurrentX(float x) override;
    void setCurrentY(float y) override;
    float currentX() const override { return currentX_; }
    float currentY() const override { return currentY_; }

    // The print is recorded with the cursor where the text stands (x1, y1)
    // and the fore colour it was printed in (colour).
    void print(const QString &text) override;
    float textWidth(const QString &text) const override { return 10.0f * float(text.size()); }
    float textHeight(const QString &) const override { return scaleHeight_ / 20.0f; }

    const std::vector<Call> &calls() const { return calls_; }
    std::vector<Call> callsOf(Kind kind) const;
    void forget() { calls_.clear(); }

  private:
    void record(Kind kind, float x1, float y1 = 0, float x2 = 0, float y2 = 0, int colour = 0);

    std::vector<Call> calls_;
    float scaleLeft_ = 0, scaleTop_ = 0, scaleWidth_, scaleHeight_;
    float currentX_ = 0, currentY_ = 0;
    int drawWidth_ = 1, foreColor_ = 0;
};

} // namespace tesorel
