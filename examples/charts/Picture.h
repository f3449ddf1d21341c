// A picture that is drawn large and shrunk, and written as a bitmap file.

#ifndef VANTOR_EXAMPLES_PICTURE_H
#define VANTOR_EXAMPLES_PICTURE_H

#include <vantor/vantor.h>

#include <functional>

namespace charts
{
constexpr COLORREF Paper = RGB(255, 255, 255);
constexpr COLORREF Grid = RGB(200, 205, 210);
constexpr COLORREF Axis = RGB(110, 115, 120);
constexpr COLORREF Trace = RGB(0, 90, 180);
constexpr COLORREF Mark = RGB(200, 40, 30);

// Draws in the coordinates of the finished picture, onto a surface that is `scale` times as large.
class CPen
{
public:
    CPen(vantor::CCompatibleDC& surface, int scale) : m_dc(surface), m_scale(scale) {}

    void Line(double x1, double y1, double x2, double y2, COLORREF colour);
    void Circle(double x, double y, double radius, COLORREF colour);

private:
    POINT At(double x, double y) const;

    vantor::CDCEx m_dc;
    int m_scale;
};

// One drawing three times, side by side: as it is, and drawn two and four times as large and shrunk to the same size.
// Writes FOLDER\name.bmp. Throws CWinException.
void WriteComparison(const vantor::ustring& folder, const wchar_t* name, const SIZE& size,
                     const std::function<void(CPen&)>& draw);
}   // namespace charts

#endif
