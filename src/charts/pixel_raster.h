#pragma once
#include <QImage>
#include <QRgb>

namespace tesorel
{

// Lines and boxes written straight into the scanlines of an RGB32 image,
// with the pixels a non-antialiased QPainter lights for the same shapes:
// a line covers the pixels of its long axis from round(start) up to but
// not including round(end), each at the floor of the line's position at
// the pixel's centre (a flat-capped cosmetic pen). Everything is clipped
// to the image.
class PixelRaster
{
  public:
    // The image must not be shared: the caller detaches it first.
    PixelRaster(uchar *bits, qsizetype stride, int width, int height)
        : bits_(bits), stride_(stride), w_(width), h_(height)
    {
    }

    // A pen of width w is w such lines side by side across the short axis,
    // centred as QPainter centres a wide pen.
    void line(double x1, double y1, double x2, double y2, int width, QRgb colour);
    // Pixels l..r and t..b, both ends included.
    void fill(int l, int t, int r, int b, QRgb colour);

  private:
    uchar *bits_;
    qsizetype stride_;
    int w_, h_;
};

} // namespace tesorel
