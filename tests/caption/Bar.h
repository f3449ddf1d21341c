// Parents for caption bars, and what a window shows as pixels.

#ifndef VANTOR_TEST_BAR_H
#define VANTOR_TEST_BAR_H

#include <vantor/CaptionCtrl.h>

#include <string>
#include <vector>

namespace bar
{
constexpr unsigned int HelpId = 9;
constexpr unsigned int OkId = 1;
constexpr unsigned int CloseId = 2;
constexpr unsigned long AllButtons =
    vantor::CCaptionCtrl::ButtonHelp | vantor::CCaptionCtrl::ButtonOk | vantor::CCaptionCtrl::ButtonClose;

struct CMessage
{
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

bool operator==(const CMessage& left, const CMessage& right);
std::ostream& operator<<(std::ostream& out, const CMessage& message);

// A visible window without a frame whose client area is as wide as asked. Keeps the WM_HELP and WM_COMMAND that it
// gets.
class CParent
{
public:
    explicit CParent(int width = 240, const wchar_t* title = L"Report", HWND hWndParent = nullptr);
    CParent(const CParent&) = delete;
    CParent& operator=(const CParent&) = delete;
    virtual ~CParent();

    HWND Window() const { return m_hWnd; }
    void Destroy();
    void Resize(int width, int height) const;
    const std::vector<CMessage>& Messages() const { return m_messages; }

    bool m_diesOnClose = false;   // destroys the window when it is told to close

protected:
    virtual void OnMessage(HWND, UINT, WPARAM, LPARAM) {}   // every message, before anything else is done

private:
    static LRESULT CALLBACK WndProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam);

    HWND m_hWnd = nullptr;
    std::vector<CMessage> m_messages;
};

// The pixels of a window's client area, children included, or of a picture that a test draws to compare with.
class CPicture
{
public:
    explicit CPicture(HWND hWnd);
    CPicture(int width, int height);
    CPicture(const CPicture&) = delete;
    CPicture& operator=(const CPicture&) = delete;
    ~CPicture();

    HDC Dc() const { return m_dc; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    COLORREF At(int x, int y) const;
    bool Has(COLORREF colour) const;
    // The smallest rectangle with all pixels of the colour, or with all of others; empty if there is none.
    RECT Bounds(COLORREF colour) const;
    RECT BoundsOfOthers(COLORREF colour) const;
    bool operator==(const CPicture& other) const;
    bool operator!=(const CPicture& other) const { return !(*this == other); }

private:
    RECT BoundsWhere(COLORREF colour, bool equal) const;

    int m_width;
    int m_height;
    HDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    const DWORD* m_pixels = nullptr;
};

HWND Button(const vantor::CCaptionCtrl& caption, unsigned int id);
void Press(HWND button);   // as a tap does
std::wstring Text(HWND hWnd);
RECT PlaceInParent(HWND hWnd);   // in the parent's client coordinates
bool IsInvalid(HWND hWnd);       // has something to paint
void Paint(HWND hWnd);           // the whole window, at once
}   // namespace bar

#endif
