#include <vantor/Drawing.h>

namespace vantor
{
namespace
{
// Between a pixel of the picture and a COLORREF, both ways: red and blue change places, the top byte is 0.
constexpr uint32_t SwapRedBlue(uint32_t colour)
{
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

// Averages a square of the picture. Sum holds 255 times its pixels.
template <class Sum>
uint32_t Average(const uint32_t* corner, std::size_t stride, unsigned int factor)
{
    Sum red = 0;
    Sum green = 0;
    Sum blue = 0;
    for (unsigned int y = 0; y < factor; ++y, corner += stride)
    {
        for (unsigned int x = 0; x < factor; ++x)
        {
            red += corner[x] >> 16 & 0xFF;
            green += corner[x] >> 8 & 0xFF;
            blue += corner[x] & 0xFF;
        }
    }
    const Sum count = static_cast<Sum>(factor) * factor;
    return static_cast<uint32_t>(red / count << 16 | green / count << 8 | blue / count);
}
}   // namespace

HICON LoadIconW(HINSTANCE hInst, unsigned int id, int cx, int cy, unsigned int flags)
{
    return static_cast<HICON>(::LoadImageW(hInst, MAKEINTRESOURCEW(id & 0xFFFF), IMAGE_ICON, cx, cy, flags));
}

bool IsHighDPI()
{
    return ::GetSystemMetrics(SM_CXICON) >= 64;
}

bool IsWideScreen()
{
    return ::GetSystemMetrics(SM_CXSCREEN) > ::GetSystemMetrics(SM_CYSCREEN);
}

CCompatibleDC::CCompatibleDC() noexcept
    : m_hDC(nullptr), m_hOldBitmap(nullptr), m_hBitmap(nullptr), m_pBits(nullptr), m_size()
{
}

CCompatibleDC::~CCompatibleDC()
{
    Destroy();
}

bool CCompatibleDC::Create(HDC hdc, const SIZE& size)
{
    Destroy();
    if (!hdc || size.cx < 1 || size.cy < 1)
        return false;
    m_hDC = ::CreateCompatibleDC(hdc);
    if (!m_hDC)
        return false;

    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;   // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    m_hBitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!m_hBitmap)
    {
        ::DeleteDC(m_hDC);
        m_hDC = nullptr;
        return false;
    }
    m_pBits = static_cast<uint32_t*>(bits);
    m_hOldBitmap = ::SelectObject(m_hDC, m_hBitmap);
    m_size = size;
    return true;
}

void CCompatibleDC::Destroy()
{
    if (m_hDC)
    {
        ::SelectObject(m_hDC, m_hOldBitmap);
        ::DeleteDC(m_hDC);
    }
    if (m_hBitmap)
        ::DeleteObject(m_hBitmap);
    m_hDC = nullptr;
    m_hOldBitmap = nullptr;
    m_hBitmap = nullptr;
    m_pBits = nullptr;
    m_size = {};
}

bool CCompatibleDC::Commit(HDC hdc, const SIZE& dst, const SIZE& src)
{
    constexpr int smooth = 5;   // the device's mode that interpolates; others refuse it and stretch all the same

    if (!hdc || !m_hDC)
        return false;
    if (dst.cx == src.cx && dst.cy == src.cy)
        return ::BitBlt(hdc, 0, 0, dst.cx, dst.cy, m_hDC, 0, 0, SRCCOPY) != FALSE;
    ::SetStretchBltMode(hdc, smooth);
    return ::StretchBlt(hdc, 0, 0, dst.cx, dst.cy, m_hDC, 0, 0, src.cx, src.cy, SRCCOPY) != FALSE;
}

bool CCompatibleDC::ResampleDown(unsigned int factor)
{
    constexpr unsigned int largestShort = 4096;   // 255 times its square fits 32 bits

    if (!m_pBits || factor == 0)
        return false;
    if (factor == 1)
        return true;
    const auto stride = static_cast<std::size_t>(m_size.cx);
    const unsigned int width = static_cast<unsigned int>(m_size.cx) / factor;
    const unsigned int height = static_cast<unsigned int>(m_size.cy) / factor;
    if (width < 1)
        return true;

    // Row by row, as memory lies: what is written stands at or before the first pixel of every square still to be read.
    const auto average = factor <= largestShort ? &Average<uint32_t> : &Average<uint64_t>;
    for (unsigned int y = 0; y < height; ++y)
    {
        const uint32_t* const squares = m_pBits + stride * y * factor;
        uint32_t* const row = m_pBits + stride * y;
        for (unsigned int x = 0; x < width; ++x)
            row[x] = average(squares + std::size_t{x} * factor, stride, factor);
    }
    return true;
}

uint32_t& CCompatibleDC::At(int x, int y) const noexcept
{
    return m_pBits[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.cx) + static_cast<std::size_t>(x)];
}

COLORREF CCompatibleDC::GetPixel(int x, int y) const
{
    return Has(x, y) ? SwapRedBlue(At(x, y)) : 0;
}

void CCompatibleDC::SetPixel(int x, int y, COLORREF c)
{
    if (Has(x, y))
        At(x, y) = SwapRedBlue(c);
}
}   // namespace vantor
