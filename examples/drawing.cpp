// Drawing: a line with fractional ends of its pixels, large and shrunk, as characters.

#include <vantor/Drawing.h>

#include <cstdio>
#include <initializer_list>

namespace
{
using namespace vantor;

constexpr int Width = 24;
constexpr int Height = 8;

// The darker the pixel, the denser the character.
void Print(const CCompatibleDC& surface)
{
    constexpr char shades[] = "#%*+=-. ";
    for (int y = 0; y < Height; ++y)
    {
        for (int x = 0; x < Width; ++x)
            std::putchar(shades[GetGValue(surface.GetPixel(x, y)) / 32]);
        std::puts("|");
    }
}

void Draw(CCompatibleDC& surface, HDC screen, int scale)
{
    surface.Create(screen, {Width * scale, Height * scale});
    const RECT all = surface.GetBitmapRect();
    ::FillRect(surface, &all, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
    ::GdiFlush();   // GDI's work is done before the pixels are used directly

    CDCEx pen(surface);
    pen.DrawSmoothLine({0, 7 * scale}, {15 * scale, 1 * scale}, RGB(0, 0, 0), static_cast<unsigned char>(scale / 2));
    for (int ring = -scale / 2; ring <= scale / 2; ++ring)   // a circle is one pixel wide
        pen.DrawSmoothCircle({19 * scale, 4 * scale}, static_cast<unsigned int>(3 * scale + ring), RGB(0, 0, 0));
    surface.ResampleDown(static_cast<unsigned int>(scale));
}
}   // namespace

int main()
{
    const HDC screen = ::GetDC(nullptr);
    CCompatibleDC surface;
    for (const int scale : {1, 4})
    {
        std::printf("%d times as large\n", scale);
        Draw(surface, screen, scale);
        Print(surface);
    }
    ::ReleaseDC(nullptr, screen);
}
