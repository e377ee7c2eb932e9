#include "charts/pixel_raster.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace tesorel
{

namespace
{
// std::floor without the library call; the frame keeps every value here
// far inside the range of the integer type, where the result is the same.
inline int floorInt(double v)
{
    const int i = static_cast<int>(v);
    return i - (v < i);
}
inline std::int64_t floorInt64(double v)
{
    const auto i = static_cast<std::int64_t>(v);
    return i - (v < static_cast<double>(i));
}
} // namespace

void PixelRaster::fill(int l, int t, int r, int b, QRgb colour)
{
    l = std::max(l, 0);
    r = std::min(r, w_ - 1);
    t = std::max(t, 0);
    b = std::min(b, h_ - 1);
    if (l > r || t > b)
        return;
    uchar *row = bits_ + t * stride_;
    if (l == r) { // one column: the boxes' spans, four rows a turn
        QRgb *p = reinterpret_cast<QRgb *>(row) + l;
        const qsizetype step = stride_ / qsizetype(sizeof(QRgb));
        int n = b - t + 1;
        for (; n >= 4; n -= 4, p += 4 * step) {
            p[0] = colour;
            p[step] = colour;
            p[2 * step] = colour;
            p[3 * step] = colour;
        }
        for (; n > 0; --n, p += step)
            *p = colour;
        return;
    }
    const bool sameBytes = ((colour >> 8) & 0xFFFFFF) == (colour & 0xFFFFFF);
    if (sameBytes && l == 0 && r == w_ - 1 && stride_ == qsizetype(w_) * qsizetype(sizeof(QRgb))) {
        // Whole rows of one byte, as a white clear is: the library's fill of
        // one block is the quickest way through a picture of megabytes.
        std::memset(row, int(colour & 0xFF), std::size_t(b - t + 1) * std::size_t(stride_));
        return;
    }
    for (int y = t; y <= b; ++y, row += stride_) {
        QRgb *p = reinterpret_cast<QRgb *>(row);
        for (int x = l; x <= r; ++x)
            p[x] = colour;
    }
}

void PixelRaster::line(double x1, double y1, double x2, double y2, int width, QRgb colour)
{
    // Walk the long axis; the short one is sampled at each pixel's centre.
    const bool alongX = std::fabs(x2 - x1) >= std::fabs(y2 - y1);
    double a1 = alongX ? x1 : y1, a2 = alongX ? x2 : y2;
    double c1 = alongX ? y1 : x1, c2 = alongX ? y2 : x2;
    if (a1 > a2) {
        std::swap(a1, a2);
        std::swap(c1, c2);
    }
    const int majorLimit = alongX ? w_ : h_, minorLimit = alongX ? h_ : w_;
    const int first = std::max(floorInt(a1 + 0.5), 0);
    const int last = std::min(floorInt(a2 + 0.5), majorLimit); // not included
    if (first >= last)
        return;
    width = std::max(width, 1);
    const double slope = (c2 - c1) / (a2 - a1);
    // A wide pen starts half its width before the line's centre.
    const double start = c1 + (first + 0.5 - a1) * slope + (1 - width) / 2.0;
    // The short axis in 32.32 fixed point: |slope| <= 1 and the frame
    // keeps coordinates far below 2^31.
    constexpr double kOne = 4294967296.0;
    std::int64_t minor = floorInt64(start * kOne);
    const std::int64_t step = floorInt64(slope * kOne);
    const qsizetype minorStep = alongX ? stride_ : 4, majorStep = alongX ? 4 : stride_;
    uchar *at = bits_ + qsizetype(first) * majorStep;
    if (width == 1) {
        for (int i = first; i < last; ++i, at += majorStep, minor += step) {
            const int m = int(minor >> 32);
            if (unsigned(m) < unsigned(minorLimit))
                *reinterpret_cast<QRgb *>(at + m * minorStep) = colour;
        }
        return;
    }
    for (int i = first; i < last; ++i, at += majorStep, minor += step) {
        const int m0 = int(minor >> 32);
        const int from = std::max(m0, 0), to = std::min(m0 + width, minorLimit);
        for (int m = from; m < to; ++m)
            *reinterpret_cast<QRgb *>(at + m * minorStep) = colour;
    }
}

} // namespace tesorel
