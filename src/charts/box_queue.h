#pragma once
#include "charts/pixel_raster.h"

#include <QRgb>
#include <vector>

namespace tesorel
{

// Boxes waiting to be painted, kept as vertical spans of pixel columns.
// A span later in the same column removes or trims what it covers of the
// ones before, so a run of overlapping thin bars writes each pixel about
// once instead of once per bar; the picture is the same as painting the
// boxes one after another.
class BoxQueue
{
  public:
    void setSize(int width, int height);
    // A filled box and a one-pixel outline, pixels l..r and t..b included.
    void fill(int l, int t, int r, int b, QRgb colour);
    void outline(int l, int t, int r, int b, QRgb colour);
    bool empty() const { return used_.empty(); }
    void paint(PixelRaster raster);
    void drop();

  private:
    struct Span {
        int y0, y1;
        QRgb colour;
    };
    void add(int x, int y0, int y1, QRgb colour);

    std::vector<std::vector<Span>> columns_;
    std::vector<int> used_; // columns that hold spans, in no order
    int w_ = 0, h_ = 0;
};

} // namespace tesorel
