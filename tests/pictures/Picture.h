// Surfaces whose memory can be looked at, and pictures of plain arrays that are drawn on slowly, step by step: no
// clipping but pixel by pixel, no shortcuts.

#ifndef VANTOR_TEST_PICTURE_H
#define VANTOR_TEST_PICTURE_H

#include <vantor/Drawing.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace pictures
{
// A memory device context as the pattern of others.
HDC Screen();

// A created surface.
class CSurface : public vantor::CCompatibleDC
{
public:
    CSurface(int width, int height);

    uint32_t* Words() const;   // its pixels, by the system's word
};

class CSlowPicture
{
public:
    CSlowPicture(int width, int height);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    const std::vector<uint32_t>& Words() const { return m_words; }
    uint32_t& Word(int x, int y);

    void Fill(std::mt19937& random);
    void CopyTo(const CSurface& surface) const;

    COLORREF GetPixel(int x, int y) const;
    void SetPixel(int x, int y, COLORREF c);
    void SetHPixel(double x, int y, COLORREF c, int halfWidth);
    void SetVPixel(int x, double y, COLORREF c, int halfWidth);
    void DrawSmoothLine(POINT p1, POINT p2, COLORREF c, int halfWidth);
    void DrawSmoothCircle(POINT centre, unsigned int radius, COLORREF c);

private:
    bool Has(int x, int y) const { return x >= 0 && x < m_width && y >= 0 && y < m_height; }

    int m_width;
    int m_height;
    std::vector<uint32_t> m_words;
};

COLORREF SlowMix(COLORREF c1, COLORREF c2, double ratio);

// Pixel for pixel, or the first that differs.
testing::AssertionResult Same(const CSlowPicture& wanted, const CSurface& found);
}   // namespace pictures

// For messages.
inline bool operator==(const POINT& a, const POINT& b)
{
    return a.x == b.x && a.y == b.y;
}

inline std::ostream& operator<<(std::ostream& out, const POINT& point)
{
    return out << '(' << point.x << ", " << point.y << ')';
}

#endif
