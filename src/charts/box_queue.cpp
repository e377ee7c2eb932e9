#include "charts/box_queue.h"

#include <algorithm>

namespace tesorel
{

void BoxQueue::setSize(int width, int height)
{
    drop();
    columns_.assign(std::size_t(std::max(width, 0)), {});
    w_ = width;
    h_ = height;
}

void BoxQueue::add(int x, int y0, int y1, QRgb colour)
{
    if (x < 0 || x >= w_)
        return;
    y0 = std::max(y0, 0);
    y1 = std::min(y1, h_ - 1);
    if (y0 > y1)
        return;
    std::vector<Span> &column = columns_[std::size_t(x)];
    if (column.empty())
        used_.push_back(x);
    std::size_t kept = 0;
    for (Span s : column) {
        if (s.y0 >= y0 && s.y1 <= y1)
            continue; // wholly painted over
        if (s.y0 >= y0 && s.y0 <= y1)
            s.y0 = y1 + 1;
        else if (s.y1 >= y0 && s.y1 <= y1)
            s.y1 = y0 - 1;
        column[kept++] = s;
    }
    column.resize(kept);
    column.push_back(Span{y0, y1, colour});
}

void BoxQueue::fill(int l, int t, int r, int b, QRgb colour)
{
    for (int x = std::max(l, 0); x <= std::min(r, w_ - 1); ++x)
        add(x, t, b, colour);
}

void BoxQueue::outline(int l, int t, int r, int b, QRgb colour)
{
    add(l, t, b, colour);
    for (int x = std::max(l + 1, 0); x <= std::min(r - 1, w_ - 1); ++x) {
        add(x, t, t, colour);
        add(x, b, b, colour);
    }
    if (r != l)
        add(r, t, b, colour);
}

void BoxQueue::paint(PixelRaster raster)
{
    for (int x : used_) {
        std::vector<Span> &column = columns_[std::size_t(x)];
        for (const Span &s : column)
            raster.fill(x, s.y0, x, s.y1, s.colour);
        column.clear();
    }
    used_.clear();
}

void BoxQueue::drop()
{
    for (int x : used_)
        columns_[std::size_t(x)].clear();
    used_.clear();
}

} // namespace tesorel
