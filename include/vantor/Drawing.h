// Off-screen pictures with direct access to their pixels, anti-aliased lines and circles.
//
//     CCompatibleDC surface;
//     surface.Create(hdc, {480, 640});                          // twice the window's size, content not initialised
//     ::FillRect(surface, &area, background);                   // GDI draws into it as into any device context
//     CDCEx(surface).DrawSmoothLine({0, 0}, {479, 200}, RGB(255, 0, 0), 1);
//     surface.ResampleDown(2);                                  // into its top left quarter
//     surface.Commit(hdc, {240, 320}, {240, 320});

#ifndef VANTOR_DRAWING_H
#define VANTOR_DRAWING_H

#include <vantor/Platform.h>

#include <cstdint>

namespace vantor
{
// An icon of a module's resources in the size asked for, in pixels; null if there is none. flags: those of LoadImageW.
// The caller destroys it, unless LR_SHARED is among them.
VANTOR_API HICON LoadIconW(HINSTANCE hInst, unsigned int id, int cx, int cy, unsigned int flags);

VANTOR_API bool IsHighDPI();      // icons of 64 pixels or more
VANTOR_API bool IsWideScreen();   // wider than high

// Owns a memory device context with a 32-bit bitmap: rows from the top down without gaps, a pixel is 0x00RRGGBB.
// Nothing throws. One thread at a time. Where GDI and direct access take turns, GdiFlush comes between them.
class VANTOR_API CCompatibleDC
{
public:
    CCompatibleDC() noexcept;
    CCompatibleDC(const CCompatibleDC&) = delete;
    CCompatibleDC& operator=(const CCompatibleDC&) = delete;
    ~CCompatibleDC();

    // Compatible with hdc, size in pixels. Destroys what there was first, also when it fails.
    bool Create(HDC hdc, const SIZE& size);
    void Destroy();

    operator HDC() const noexcept { return m_hDC; }
    HDC GetDC() const noexcept { return m_hDC; }
    SIZE GetBitmapSize() const noexcept { return m_size; }
    RECT GetBitmapRect() const noexcept { return {0, 0, m_size.cx, m_size.cy}; }

    // Copies the top left part of this size to hdc at (0, 0), stretched smoothly to the size dst if that is another
    // one.
    bool Commit(HDC hdc, const SIZE& dst, const SIZE& src);
    // Shrinks the picture by a whole factor, in place: each pixel is the average of a square, rounded down. The result
    // is in the top left corner, and the size stays as it was. Without room for a single column nothing changes.
    bool ResampleDown(unsigned int factor);

    // Outside of the picture: 0, and nothing happens.
    COLORREF GetPixel(int x, int y) const;
    void SetPixel(int x, int y, COLORREF c);

private:
    friend class CDCEx;

    bool Has(int x, int y) const noexcept { return m_pBits && x >= 0 && x < m_size.cx && y >= 0 && y < m_size.cy; }
    uint32_t& At(int x, int y) const noexcept;   // of a pixel that it has

    HDC m_hDC;
    HGDIOBJ m_hOldBitmap;
    HBITMAP m_hBitmap;
    uint32_t* m_pBits;
    SIZE m_size;
};

// Draws into a surface, with fractional coordinates: a pixel that is covered partly gets its share of the colour. What
// lies outside is left out. Must not outlive the surface.
class VANTOR_API CDCEx
{
public:
    CDCEx(CCompatibleDC& dc) noexcept : m_dc(dc) {}

    // A run of 2 * halfWidth + 1 pixels, centred on x or y.
    void SetHPixel(double x, int y, COLORREF c, unsigned char halfWidth);
    void SetVPixel(int x, double y, COLORREF c, unsigned char halfWidth);

    // Both ends included. The width is measured along the axis that the line crosses.
    void DrawSmoothLine(POINT p1, POINT p2, COLORREF c, unsigned char halfWidth);
    // Radius in pixels, below 65536.
    void DrawSmoothCircle(POINT centre, unsigned int radius, COLORREF c);

    // c1 with ratio 1, c2 with ratio 0; channels are rounded down.
    static COLORREF MixColors(COLORREF c1, COLORREF c2, double ratio);

private:
    CCompatibleDC& m_dc;
};
}   // namespace vantor

#endif
