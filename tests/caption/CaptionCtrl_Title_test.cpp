// The title in the bar.

#include "BarPaint.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;

namespace
{
constexpr unsigned int NoSuchIcon = 9999;

struct CText
{
    std::wstring text;
    int count;
    RECT place;
    UINT format;
    LOGFONTW font;
};

std::vector<CText> g_texts;

LOGFONTW FontOf(HDC hdc)
{
    LOGFONTW font = {};
    ::GetObjectW(::GetCurrentObject(hdc, OBJ_FONT), sizeof font, &font);
    return font;
}

int WINAPI RecordingDrawText(HDC hdc, LPCWSTR text, int count, LPRECT place, UINT format)
{
    g_texts.push_back({text, count, *place, format, FontOf(hdc)});
    return ::DrawTextW(hdc, text, count, place, format);
}

HWND WINAPI ButtonlessCreateWindow(DWORD exStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    if (std::wstring(windowClass) == L"BUTTON")
        return nullptr;
    return ::CreateWindowExW(exStyle, windowClass, text, style, x, y, width, height, parent, menu, instance, parameter);
}

HGDIOBJ WINAPI NoCurrentObject(HDC, UINT)
{
    return nullptr;
}

int WINAPI FailingGetObject(HANDLE, int, LPVOID)
{
    return 0;
}

HGDIOBJ g_fontAtTheEnd = nullptr;

BOOL WINAPI RecordingEndPaint(HWND hWnd, const PAINTSTRUCT* paint)
{
    g_fontAtTheEnd = ::GetCurrentObject(paint->hdc, OBJ_FONT);
    return ::EndPaint(hWnd, paint);
}

class CaptionCtrlTitle : public CPaintTest
{
protected:
    CaptionCtrlTitle() { g_texts.clear(); }

    // What DrawTextW was asked for in the one paint.
    CText ShownText(const wchar_t* title, unsigned int iconId = 0, unsigned long buttons = 0, int height = Height)
    {
        const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
        g_texts.clear();
        Show(title, iconId, buttons, height);
        EXPECT_EQ(1u, g_texts.size());
        return g_texts.empty() ? CText{} : g_texts.back();
    }
};

// The same picture drawn by hand.
void DrawBackground(const CPicture& picture, COLORREF from, COLORREF to)
{
    const auto channel = [](BYTE value) { return static_cast<COLOR16>(value * 256); };
    TRIVERTEX ends[] = {
        {0, 0, channel(GetRValue(from)), channel(GetGValue(from)), channel(GetBValue(from)), 0},
        {picture.Width(), picture.Height(), channel(GetRValue(to)), channel(GetGValue(to)), channel(GetBValue(to)), 0}};
    GRADIENT_RECT whole = {0, 1};
    ::GradientFill(picture.Dc(), ends, 2, &whole, 1, GRADIENT_FILL_RECT_H);
}

void DrawTitle(const CPicture& picture, const wchar_t* title, RECT place, COLORREF colour)
{
    LOGFONTW font = FontOf(picture.Dc());
    font.lfWeight = 600;
    const HFONT semiBold = ::CreateFontIndirectW(&font);
    const HGDIOBJ previous = ::SelectObject(picture.Dc(), semiBold);
    ::SetBkMode(picture.Dc(), TRANSPARENT);
    ::SetTextColor(picture.Dc(), colour);
    ::DrawTextW(picture.Dc(), title, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    ::SelectObject(picture.Dc(), previous);
    ::DeleteObject(semiBold);
}
}   // namespace

TEST_F(CaptionCtrlTitle, OfAnActiveBar_HasTheCaptionsTextColour)
{
    Show(L"Report");
    EXPECT_TRUE(Seen().Has(ActiveText));
}

TEST_F(CaptionCtrlTitle, OfAnInactiveBar_HasTheInactiveTextColour)
{
    m_active = false;
    Show(L"Report");
    EXPECT_TRUE(Seen().Has(InactiveText));
}

TEST_F(CaptionCtrlTitle, LooksAsDrawnByHand)
{
    Show(L"Report");
    const CPicture expected(Width, Height);
    DrawBackground(expected, Active, ActiveEnd);
    DrawTitle(expected, L"Report", {Height / 4, 0, Width, Height}, ActiveText);
    EXPECT_TRUE(expected == Seen());
}

TEST_F(CaptionCtrlTitle, BesideAnIcon_LooksAsDrawnByHand)
{
    Show(L"Report", IconId);
    const int cx = std::min(Height, ::GetSystemMetrics(SM_CXSMICON));
    const int cy = std::min(Height, ::GetSystemMetrics(SM_CYSMICON));
    const auto icon = static_cast<HICON>(::LoadImageW(Library(), MAKEINTRESOURCEW(IconId), IMAGE_ICON, cx, cy, 0));
    const CPicture expected(Width, Height);
    DrawBackground(expected, Active, ActiveEnd);
    ::DrawIconEx(expected.Dc(), (Height - cx) / 2, (Height - cy) / 2, icon, cx, cy, 0, nullptr, DI_NORMAL);
    ::DestroyIcon(icon);
    DrawTitle(expected, L"Report", {Height / 4 + Height, 0, Width, Height}, ActiveText);
    EXPECT_TRUE(expected == Seen());
}

TEST_F(CaptionCtrlTitle, LetsTheGradientThrough)
{
    Show(L". . . .");
    const CPicture seen(m_bar.GetHwnd());
    const RECT dots = seen.Bounds(ActiveText);
    const int above = dots.top - 4;   // inside the line, which an opaque text would fill
    for (int x = dots.left; x < dots.right; ++x)
        ASSERT_LE(Distance(Between(Active, ActiveEnd, x, Width), seen.At(x, above)), 2) << "at " << x;
}

TEST_F(CaptionCtrlTitle, BeginsAtAQuarterOfTheHeight)
{
    EXPECT_EQ(6, ShownText(L"Report").place.left);
}

TEST_F(CaptionCtrlTitle, WithoutButtons_MayTakeTheWholeWidth)
{
    EXPECT_EQ(Width, ShownText(L"Report").place.right);
}

TEST_F(CaptionCtrlTitle, LeavesThePlaceOfThreeButtons)
{
    EXPECT_EQ(123, ShownText(L"Report", 0, AllButtons).place.right);
}

TEST_F(CaptionCtrlTitle, LeavesThePlaceOfTheButtonsThatThereAre)
{
    EXPECT_EQ(Width - 39, ShownText(L"Report", 0, CCaptionCtrl::ButtonHelp).place.right);
}

TEST_F(CaptionCtrlTitle, BesideButtonsThatCouldNotBeMade_MayTakeTheWholeWidth)
{
    const CImportPatch patch(&::CreateWindowExW, &ButtonlessCreateWindow);
    EXPECT_EQ(Width, ShownText(L"Report", 0, AllButtons).place.right);
}

TEST_F(CaptionCtrlTitle, LeavesThePlaceOfTheButtons_AtEveryHeight)
{
    for (int height = 1; height <= 64 && !HasFailure(); ++height)
    {
        for (unsigned long buttons = 0; buttons <= AllButtons; ++buttons)
        {
            const int count = static_cast<int>((buttons & 1) + (buttons >> 1 & 1) + (buttons >> 2 & 1));
            const RECT expected = {height / 4, 0, Width - 3 * height / 2 * count, height};
            const RECT place = ShownText(L"Report", 0, buttons, height).place;
            EXPECT_TRUE(::EqualRect(&expected, &place)) << "height " << height << ", buttons " << buttons;
        }
    }
}

TEST_F(CaptionCtrlTitle, BesideAnIcon_BeginsBehindItsSquareAtEveryHeight)
{
    for (int height = 1; height <= 64 && !HasFailure(); ++height)
        EXPECT_EQ(height / 4 + height, ShownText(L"Report", IconId, 0, height).place.left) << "height " << height;
}

TEST_F(CaptionCtrlTitle, TakesTheBarsHeight)
{
    const CText text = ShownText(L"Report", IconId, AllButtons);
    EXPECT_EQ(0, text.place.top);
    EXPECT_EQ(Height, text.place.bottom);
}

TEST_F(CaptionCtrlTitle, BesideAnIcon_BeginsBehindItsSquare)
{
    EXPECT_EQ(6 + Height, ShownText(L"Report", IconId).place.left);
}

TEST_F(CaptionCtrlTitle, BesideAnIconThatCannotBeLoaded_BeginsFurtherLeft)
{
    EXPECT_EQ(6, ShownText(L"Report", NoSuchIcon).place.left);
}

TEST_F(CaptionCtrlTitle, IsOneCentredLineThatEndsWithAnEllipsis)
{
    const CText text = ShownText(L"Report");
    EXPECT_EQ(0x8024u, text.format);
    EXPECT_EQ(-1, text.count);
}

TEST_F(CaptionCtrlTitle, IsSemiBold)
{
    EXPECT_EQ(600, ShownText(L"Report").font.lfWeight);
}

TEST_F(CaptionCtrlTitle, HasTheDeviceContextsFontOtherwise)
{
    const LOGFONTW shown = ShownText(L"Report").font;
    const HDC hdc = ::GetDC(m_bar.GetHwnd());
    const LOGFONTW own = FontOf(hdc);
    ::ReleaseDC(m_bar.GetHwnd(), hdc);
    EXPECT_EQ(own.lfHeight, shown.lfHeight);
    EXPECT_STREQ(own.lfFaceName, shown.lfFaceName);
}

TEST_F(CaptionCtrlTitle, WithoutAFontToCopy_IsDrawnAllTheSame)
{
    const CImportPatch patch(&::GetCurrentObject, &NoCurrentObject);
    Show(L"Report");
    EXPECT_TRUE(Seen().Has(ActiveText));
}

TEST_F(CaptionCtrlTitle, WhoseFontCannotBeRead_IsDrawnAllTheSame)
{
    const CImportPatch patch(&::GetObjectW, &FailingGetObject);
    Show(L"Report");
    EXPECT_TRUE(Seen().Has(ActiveText));
}

TEST_F(CaptionCtrlTitle, Font_IsTheOldOneAtTheEnd)
{
    const CImportPatch patch(&::EndPaint, &RecordingEndPaint);
    Show(L"Report");
    EXPECT_EQ(::GetStockObject(SYSTEM_FONT), g_fontAtTheEnd);
}

TEST_F(CaptionCtrlTitle, TooLong_StaysOutOfTheButtonsPlace)
{
    Show(std::wstring(100, L'M').c_str(), 0, AllButtons);
    EXPECT_LE(Seen().Bounds(ActiveText).right, 123);
}

TEST_F(CaptionCtrlTitle, TooLong_EndsWithDotsOnTheBaseLine)
{
    Show(std::wstring(100, L'M').c_str(), 0, AllButtons);
    const CPicture seen(m_bar.GetHwnd());
    const RECT text = seen.Bounds(ActiveText);
    for (int y = text.top; y < text.bottom - 3; ++y)
    {
        for (int x = text.right - 6; x < text.right; ++x)
            ASSERT_NE(ActiveText, seen.At(x, y)) << "at " << x << "," << y << ", above the last dots";
    }
}

TEST_F(CaptionCtrlTitle, ThatFits_HasNoEllipsis)
{
    Show(L"MM", 0, AllButtons);
    const CPicture seen(m_bar.GetHwnd());
    const RECT text = seen.Bounds(ActiveText);
    EXPECT_EQ(ActiveText, seen.At(text.right - 1, (text.top + text.bottom) / 2)) << "the right stem of the last letter";
}

TEST_F(CaptionCtrlTitle, IsCutTo255Characters)
{
    EXPECT_EQ(std::wstring(255, L'x'), ShownText(std::wstring(300, L'x').c_str()).text);
}

TEST_F(CaptionCtrlTitle, IsTheParentsCurrentOne)
{
    Show(L"Before");
    ::SetWindowTextW(m_parent->Window(), L"After");
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    Paint(m_bar.GetHwnd());
    EXPECT_EQ(L"After", g_texts.at(0).text);
}

TEST_F(CaptionCtrlTitle, IsNotTheBarsOwnText)
{
    Show(L"Parent");
    ::SetWindowTextW(m_bar.GetHwnd(), L"Bar");
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    Paint(m_bar.GetHwnd());
    EXPECT_EQ(L"Parent", g_texts.at(0).text);
}

TEST_F(CaptionCtrlTitle, OfABarWithoutAParent_IsTheBarsOwn)
{
    Show(L"");   // registers the class
    CCaptionCtrl stray;
    const HWND window = ::CreateWindowExW(0, L"CaptionCtrl32", L"Stray", WS_POPUP | WS_VISIBLE, 0, 0, Width, Height,
                                          nullptr, nullptr, Library(), &stray);
    {
        const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
        Paint(window);
    }
    ::DestroyWindow(window);
    EXPECT_EQ(L"Stray", g_texts.at(0).text);
}
