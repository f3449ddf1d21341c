#include "Picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iomanip>

namespace pictures
{
HDC Screen()
{
    static const HDC dc = ::CreateCompatibleDC(nullptr);
    return dc;
}

CSurface::CSurface(int width, int height)
{
    EXPECT_TRUE(Create(Screen(), {width, height}));
}

uint32_t* CSurface::Words() const
{
    DIBSECTION section = {};
    EXPECT_NE(0, ::GetObjectW(::GetCurrentObject(GetDC(), OBJ_BITMAP), sizeof section, &section));
    return static_cast<uint32_t*>(section.dsBm.bmBits);
}

CSlowPicture::CSlowPicture(int width, int height)
    : m_width(width), m_height(height), m_words(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
}

uint32_t& CSlowPicture::Word(int x, int y)
{
    return m_words[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x)];
}

void CSlowPicture::Fill(std::mt19937& random)
{
    for (uint32_t& word : m_words)
        word = random() & 0xFFFFFF;
}

void CSlowPicture::CopyTo(const CSurface& surface) const
{
    std::copy(m_words.begin(), m_words.end(), surface.Words());
}

COLORREF CSlowPicture::GetPixel(int x, int y) const
{
    if (!Has(x, y))
        return 0;
    const uint32_t word = const_cast<CSlowPicture*>(this)->Word(x, y);
    return RGB(word >> 16 & 0xFF, word >> 8 & 0xFF, word & 0xFF);
}

void CSlowPicture::SetPixel(int x, int y, COLORREF c)
{
    if (Has(x, y))
        Word(x, y) =
            static_cast<uint32_t>(GetRValue(c)) << 16 | static_cast<uint32_t>(GetGValue(c)) << 8 | GetBValue(c);
}

COLORREF SlowMix(COLORREF c1, COLORREF c2, double ratio)
{
    if (ratio < 0)
        ratio = 0;
    if (ratio > 1)
        ratio = 1;
    const auto mix = [ratio](int one, int two) { return static_cast<int>(two * (1 - ratio) + one * ratio); };
    return RGB(mix(GetRValue(c1), GetRValue(c2)), mix(GetGValue(c1), GetGValue(c2)), mix(GetBValue(c1), GetBValue(c2)));
}

void CSlowPicture::SetHPixel(double x, int y, COLORREF c, int halfWidth)
{
    const int whole = static_cast<int>(x);
    if (x == whole)
    {
        for (int place = whole - halfWidth; place <= whole + halfWidth; place++)
            SetPixel(place, y, c);
        return;
    }
    const double left = x - halfWidth;
    const double right = x + halfWidth;
    for (int place = static_cast<int>(std::ceil(left)); place <= static_cast<int>(std::floor(right)); place++)
        SetPixel(place, y, c);
    const int first = static_cast<int>(std::floor(left));
    const int last = static_cast<int>(std::ceil(right));
    const COLORREF oldFirst = GetPixel(first, y);
    const COLORREF oldLast = GetPixel(last, y);
    SetPixel(first, y, SlowMix(c, oldFirst, last - right));
    SetPixel(last, y, SlowMix(c, oldLast, left - first));
}

void CSlowPicture::SetVPixel(int x, double y, COLORREF c, int halfWidth)
{
    const int whole = static_cast<int>(y);
    if (y == whole)
    {
        for (int place = whole - halfWidth; place <= whole + halfWidth; place++)
            SetPixel(x, place, c);
        return;
    }
    const double top = y - halfWidth;
    const double bottom = y + halfWidth;
    for (int place = static_cast<int>(std::ceil(top)); place <= static_cast<int>(std::floor(bottom)); place++)
        SetPixel(x, place, c);
    const int first = static_cast<int>(std::floor(top));
    const int last = static_cast<int>(std::ceil(bottom));
    const COLORREF oldFirst = GetPixel(x, first);
    const COLORREF oldLast = GetPixel(x, last);
    SetPixel(x, first, SlowMix(c, oldFirst, last - bottom));
    SetPixel(x, last, SlowMix(c, oldLast, top - first));
}

void CSlowPicture::DrawSmoothLine(POINT p1, POINT p2, COLORREF c, int halfWidth)
{
    const int x1 = p1.x;
    const int y1 = p1.y;
    const int x2 = p2.x;
    const int y2 = p2.y;
    if (x1 == x2)
    {
        for (int y = std::min(y1, y2); y <= std::max(y1, y2); y++)
            SetHPixel(x1, y, c, halfWidth);
        return;
    }
    if (y1 == y2)
    {
        for (int x = std::min(x1, x2); x <= std::max(x1, x2); x++)
            SetVPixel(x, y1, c, halfWidth);
        return;
    }
    const double k = static_cast<double>(y1 - y2) / (x1 - x2);
    const double b = y1 - x1 * k;
    if (std::abs(x2 - x1) < std::abs(y2 - y1))
    {
        for (int y = std::min(y1, y2); y <= std::max(y1, y2); y++)
            SetHPixel((y - b) * (1 / k), y, c, halfWidth);
    }
    else
    {
        for (int x = std::min(x1, x2); x <= std::max(x1, x2); x++)
            SetVPixel(x, x * k + b, c, halfWidth);
    }
}

void CSlowPicture::DrawSmoothCircle(POINT centre, unsigned int radius, COLORREF c)
{
    const int cx = centre.x;
    const int cy = centre.y;
    const unsigned int r2 = radius * radius;
    const double d = std::sqrt(r2 * 0.5);
    for (int x = static_cast<int>(std::floor(cx - d)); x <= static_cast<int>(cx + d); x++)
    {
        const double h = std::sqrt(r2 - static_cast<double>(x - cx) * (x - cx));
        SetVPixel(x, cy + h, c, 0);
        SetVPixel(x, cy - h, c, 0);
    }
    for (int y = static_cast<int>(std::floor(cy - d)); y <= static_cast<int>(cy + d); y++)
    {
        const double v = std::sqrt(r2 - static_cast<double>(y - cy) * (y - cy));
        SetHPixel(cx + v, y, c, 0);
        SetHPixel(cx - v, y, c, 0);
    }
}

testing::AssertionResult Same(const CSlowPicture& wanted, const CSurface& found)
{
    const uint32_t* const words = found.Words();
    if (std::memcmp(wanted.Words().data(), words, wanted.Words().size() * sizeof *words) == 0)
        return testing::AssertionSuccess();
    std::size_t place = 0;
    while (wanted.Words()[place] == words[place])
        ++place;
    const auto width = static_cast<std::size_t>(wanted.Width());
    return testing::AssertionFailure() << "at (" << place % width << ", " << place / width << ") wanted " << std::hex
                                       << wanted.Words()[place] << ", found " << words[place];
}
}   // namespace pictures
