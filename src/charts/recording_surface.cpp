#include "charts/recording_surface.h"

namespace tesorel
{

void RecordingSurface::record(Kind kind, float x1, float y1, float x2, float y2, int colour)
{
    calls_.push_back(Call{kind, x1, y1, x2, y2, colour, drawWidth_, QString()});
}

void RecordingSurface::setScaleLeft(float v)
{
    scaleLeft_ = v;
    record(Kind::ScaleLeft, v);
}

void RecordingSurface::setScaleTop(float v)
{
    scaleTop_ = v;
    record(Kind::ScaleTop, v);
}

void RecordingSurface::setScaleWidth(float v)
{
    scaleWidth_ = v;
    record(Kind::ScaleWidth, v);
}

void RecordingSurface::setScaleHeight(float v)
{
    scaleHeight_ = v;
    record(Kind::ScaleHeight, v);
}

void RecordingSurface::clear()
{
    // Clearing also puts the cursor at 0, 0, as a picture box does.
    currentX_ = 0;
    currentY_ = 0;
    record(Kind::Clear, 0);
}

void RecordingSurface::line(float x1, float y1, float x2, float y2, int colour)
{
    record(Kind::Line, x1, y1, x2, y2, colour);
}

void RecordingSurface::box(float x1, float y1, float x2, float y2, int colour)
{
    record(Kind::Box, x1, y1, x2, y2, colour);
}

void RecordingSurface::filledBox(float x1, float y1, float x2, float y2, int colour)
{
    record(Kind::FilledBox, x1, y1, x2, y2, colour);
}

void RecordingSurface::setDrawWidth(int pixels)
{
    drawWidth_ = pixels;
    record(Kind::DrawWidth, 0, 0, 0, 0, pixels);
}

void RecordingSurface::setForeColor(int colour)
{
    foreColor_ = colour;
    record(Kind::ForeColor, 0, 0, 0, 0, colour);
}

void RecordingSurface::setBackColor(int colour)
{
    record(Kind::BackColor, 0, 0, 0, 0, colour);
}

void RecordingSurface::setCurrentX(float x)
{
    currentX_ = x;
    record(Kind::CurrentX, x);
}

void RecordingSurface::setCurrentY(float y)
{
    currentY_ = y;
    record(Kind::CurrentY, y);
}

void RecordingSurface::print(const QString &text)
{
    Call c{Kind::Print, currentX_, currentY_, 0, 0, foreColor_, drawWidth_, text};
    calls_.push_back(c);
    currentX_ = scaleLeft_;
    currentY_ += textHeight(text);
}

std::vector<RecordingSurface::Call> RecordingSurface::callsOf(Kind kind) const
{
    std::vector<Call> out;
    for (const Call &c : calls_)
        if (c.kind == kind)
            out.push_back(c);
    return out;
}

} // namespace tesorel
