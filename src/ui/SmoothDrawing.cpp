#include <vantor/Drawing.h>

#include <algorithm>
#include <cmath>

namespace vantor
{
namespace
{
// Pixels `first` to `last` of a line of `size` pixels; empty if first > last.
struct CRun
{
    int first, last;
};

CRun Clipped(double first, double last, long size)
{
    if (!(first < size && last >= 0))   // NaN, too
        return {0, -1};
    return {static_cast<int>(std::max(first, 0.0)), static_cast<int>(std::min(last, size - 1.0))};
}

// A run of pixels centred on a fractional place of a line of `size` pixels, by the share of each pixel that it covers.
// set(place) sets a pixel to the colour, mix(place, ratio) gives it its share; only places on the line are asked for.
template <class Set, class Mix>
void CoverRun(double centre, int halfWidth, long size, Set set, Mix mix)
{
    if (!(centre > -halfWidth - 2.0 && centre < size + halfWidth + 2.0))   // also far outside, where no int reaches
        return;
    const bool isWhole = centre == static_cast<int>(centre);
    const double left = centre - halfWidth;
    const double right = centre + halfWidth;
    const CRun full = Clipped(std::ceil(left), std::floor(right), size);
    for (int place = full.first; place <= full.last; ++place)
        set(place);
    if (isWhole)
        return;
    const double first = std::floor(left);
    const double last = std::ceil(right);
    if (first >= 0 && first < size)
        mix(static_cast<int>(first), last - right);
    if (last >= 0 && last < size)
        mix(static_cast<int>(last), left - first);
}
}   // namespace

COLORREF CDCEx::MixColors(COLORREF c1, COLORREF c2, double ratio)
{
    const double share = ratio > 1.0 ? 1.0 : ratio > 0.0 ? ratio : 0.0;
    const auto channel = [c1, c2, share](int shift)
    {
        const double mixed = (c2 >> shift & 0xFF) * (1 - share) + (c1 >> shift & 0xFF) * share;
        return (static_cast<unsigned int>(mixed) & 0xFF) << shift;
    };
    return channel(16) | channel(8) | channel(0);
}

void CDCEx::SetHPixel(double x, int y, COLORREF c, unsigned char halfWidth)
{
    if (!m_dc.Has(0, y))
        return;
    CoverRun(
        x, halfWidth, m_dc.m_size.cx, [this, y, c](int place) { m_dc.SetPixel(place, y, c); },
        [this, y, c](int place, double ratio)
        { m_dc.SetPixel(place, y, MixColors(c, m_dc.GetPixel(place, y), ratio)); });
}

void CDCEx::SetVPixel(int x, double y, COLORREF c, unsigned char halfWidth)
{
    if (!m_dc.Has(x, 0))
        return;
    CoverRun(
        y, halfWidth, m_dc.m_size.cy, [this, x, c](int place) { m_dc.SetPixel(x, place, c); },
        [this, x, c](int place, double ratio)
        { m_dc.SetPixel(x, place, MixColors(c, m_dc.GetPixel(x, place), ratio)); });
}

void CDCEx::DrawSmoothLine(POINT p1, POINT p2, COLORREF c, unsigned char halfWidth)
{
    const double x1 = p1.x;
    const double y1 = p1.y;
    const double dx = x1 - p2.x;
    const double dy = y1 - p2.y;
    // Each step along the longer axis stands for itself, so those outside of the picture can be left out.
    const CRun xs = Clipped(std::min(p1.x, p2.x), std::max(p1.x, p2.x), m_dc.m_size.cx);
    const CRun ys = Clipped(std::min(p1.y, p2.y), std::max(p1.y, p2.y), m_dc.m_size.cy);
    if (dx == 0)
    {
        for (int y = ys.first; y <= ys.last; ++y)
            SetHPixel(x1, y, c, halfWidth);
        return;
    }
    if (dy == 0)
    {
        for (int x = xs.first; x <= xs.last; ++x)
            SetVPixel(x, y1, c, halfWidth);
        return;
    }
    const double slope = dy / dx;
    const double offset = y1 - x1 * slope;
    if (std::fabs(dx) < std::fabs(dy))
    {
        const double inverse = 1 / slope;
        for (int y = ys.first; y <= ys.last; ++y)
            SetHPixel((y - offset) * inverse, y, c, halfWidth);
    }
    else
    {
        for (int x = xs.first; x <= xs.last; ++x)
            SetVPixel(x, x * slope + offset, c, halfWidth);
    }
}

void CDCEx::DrawSmoothCircle(POINT centre, unsigned int radius, COLORREF c)
{
    const double cx = centre.x;
    const double cy = centre.y;
    const double squared = radius * radius;
    const double diagonal = std::sqrt(squared * 0.5);   // how far the point at 45 degrees is from both axes
    // At a distance from one axis, the circle's from the other; NaN, which draws nothing, behind its end.
    const auto reach = [squared](double distance) { return std::sqrt(squared - distance * distance); };

    const CRun xs = Clipped(std::floor(cx - diagonal), std::trunc(cx + diagonal), m_dc.m_size.cx);
    for (int x = xs.first; x <= xs.last; ++x)
    {
        const double height = reach(x - cx);
        SetVPixel(x, cy + height, c, 0);
        SetVPixel(x, cy - height, c, 0);
    }
    const CRun ys = Clipped(std::floor(cy - diagonal), std::trunc(cy + diagonal), m_dc.m_size.cy);
    for (int y = ys.first; y <= ys.last; ++y)
    {
        const double width = reach(y - cy);
        SetHPixel(cx + width, y, c, 0);
        SetHPixel(cx - width, y, c, 0);
    }
}
}   // namespace vantor
