#include "Picture.h"

#include <cmath>
#include <cstring>

namespace charts
{
using namespace vantor;

namespace
{
constexpr int LabelHeight = 16;   // pixels, above each drawing

[[noreturn]] void Fail(unsigned int line, const wchar_t* function)
{
    throw CWinException(line, L".\\Picture", function, ::GetLastError());
}

void Fill(CCompatibleDC& surface)
{
    const RECT all = surface.GetBitmapRect();
    const HBRUSH brush = ::CreateSolidBrush(Paper);
    ::FillRect(surface, &all, brush);
    ::DeleteObject(brush);
    ::GdiFlush();   // before the pixels are used directly
}

void Create(CCompatibleDC& surface, const SIZE& size)
{
    const HDC screen = ::GetDC(nullptr);
    const bool created = surface.Create(screen, size);
    ::ReleaseDC(nullptr, screen);
    if (!created)
        Fail(36, L"CreateDIBSection");
    Fill(surface);
}

void Label(CCompatibleDC& surface, int x, const wchar_t* text)
{
    RECT place = {x, 0, x + 200, LabelHeight};
    const HGDIOBJ font = ::SelectObject(surface, ::GetStockObject(DEFAULT_GUI_FONT));
    ::SetBkMode(surface, TRANSPARENT);
    ::DrawTextW(surface, text, -1, &place, DT_SINGLELINE | DT_NOPREFIX | DT_VCENTER);
    ::SelectObject(surface, font);
    ::GdiFlush();
}

void WriteBitmap(const ustring& path, const CCompatibleDC& picture)
{
    const SIZE size = picture.GetBitmapSize();
    const auto stride = static_cast<std::size_t>((size.cx * 3 + 3) & ~3);
    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = size.cx;
    info.biHeight = size.cy;   // from the bottom up: what every reader understands
    info.biPlanes = 1;
    info.biBitCount = 24;
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info;
    std::string bytes(header.bfOffBits + stride * static_cast<std::size_t>(size.cy), '\0');
    header.bfSize = static_cast<DWORD>(bytes.size());
    std::memcpy(bytes.data(), &header, sizeof header);
    std::memcpy(bytes.data() + sizeof header, &info, sizeof info);
    for (int y = 0; y < size.cy; ++y)
    {
        char* pixel = bytes.data() + header.bfOffBits + stride * static_cast<std::size_t>(size.cy - 1 - y);
        for (int x = 0; x < size.cx; ++x)
        {
            const COLORREF colour = picture.GetPixel(x, y);
            *pixel++ = static_cast<char>(GetBValue(colour));
            *pixel++ = static_cast<char>(GetGValue(colour));
            *pixel++ = static_cast<char>(GetRValue(colour));
        }
    }
    CFile file(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    unsigned int done = 0;
    file.Write(bytes.data(), static_cast<unsigned int>(bytes.size()), done, nullptr);
}
}   // namespace

POINT CPen::At(double x, double y) const
{
    return {static_cast<LONG>(std::lround(x * m_scale)), static_cast<LONG>(std::lround(y * m_scale))};
}

void CPen::Line(double x1, double y1, double x2, double y2, COLORREF colour)
{
    // Twice and four times as large, a line is three and five pixels wide: about one again in the end.
    m_dc.DrawSmoothLine(At(x1, y1), At(x2, y2), colour, static_cast<unsigned char>(m_scale / 2));
}

void CPen::Circle(double x, double y, double radius, COLORREF colour)
{
    for (int ring = -m_scale / 2; ring <= m_scale / 2; ++ring)
        m_dc.DrawSmoothCircle(At(x, y), static_cast<unsigned int>(std::lround(radius * m_scale) + ring), colour);
}

void WriteComparison(const ustring& folder, const wchar_t* name, const SIZE& size,
                     const std::function<void(CPen&)>& draw)
{
    CCompatibleDC whole;
    Create(whole, {3 * size.cx, size.cy + LabelHeight});
    int x = 0;
    for (const int scale : {1, 2, 4})
    {
        CCompatibleDC surface;
        Create(surface, {size.cx * scale, size.cy * scale});
        CPen pen(surface, scale);
        draw(pen);
        surface.ResampleDown(static_cast<unsigned int>(scale));
        ::BitBlt(whole, x, LabelHeight, size.cx, size.cy, surface, 0, 0, SRCCOPY);
        ustring label;
        label.sprintf(L"  %s, %dx", name, scale);
        Label(whole, x, label.c_str());
        x += size.cx;
    }
    ustring path;
    CFile::MakePath(path, nullptr, folder.c_str(), name, L"bmp");
    WriteBitmap(path, whole);
}
}   // namespace charts
