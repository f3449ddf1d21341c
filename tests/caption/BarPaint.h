// Bars whose pixels can be told from everything else on the screen.

#ifndef VANTOR_TEST_BARPAINT_H
#define VANTOR_TEST_BARPAINT_H

#include "Bar.h"
#include "support/MessagePump.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace bar
{
constexpr unsigned int IconId = 107;
constexpr int Width = 240;
constexpr int Height = 26;

// Colours that no other part of the screen has.
constexpr COLORREF Active = RGB(200, 0, 40);
constexpr COLORREF ActiveEnd = RGB(0, 100, 240);
constexpr COLORREF ActiveText = RGB(250, 255, 1);
constexpr COLORREF Inactive = RGB(60, 90, 0);
constexpr COLORREF InactiveEnd = RGB(160, 10, 80);
constexpr COLORREF InactiveText = RGB(1, 255, 254);

inline DWORD WINAPI Colours(int index)
{
    switch (index)
    {
    case COLOR_ACTIVECAPTION:
        return Active;
    case COLOR_GRADIENTACTIVECAPTION:
        return ActiveEnd;
    case COLOR_CAPTIONTEXT:
        return ActiveText;
    case COLOR_INACTIVECAPTION:
        return Inactive;
    case COLOR_GRADIENTINACTIVECAPTION:
        return InactiveEnd;
    case COLOR_INACTIVECAPTIONTEXT:
        return InactiveText;
    default:
        return RGB(255, 255, 255);
    }
}

inline HINSTANCE Library()
{
    return ::GetModuleHandleW(L"vantor.dll");
}

// The largest difference of a channel.
inline int Distance(COLORREF left, COLORREF right)
{
    return std::max({std::abs(GetRValue(left) - GetRValue(right)), std::abs(GetGValue(left) - GetGValue(right)),
                     std::abs(GetBValue(left) - GetBValue(right))});
}

// Between the ends' colours at the middle of a pixel.
inline COLORREF Between(COLORREF from, COLORREF to, int x, int width)
{
    const auto channel = [&](int first, int last) { return first + (last - first) * x / width; };
    return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
               channel(GetBValue(from), GetBValue(to)));
}

// Bars whose colours are known.
class CPaintTest : public testing::Test
{
protected:
    CPaintTest()
    {
        support::UseOwnDesktop();
        m_parent = std::make_unique<CParent>(Width, L"");
    }

    // Makes a bar and paints it.
    void Show(const wchar_t* title, unsigned int iconId = 0, unsigned long buttons = 0, int height = Height)
    {
        ::SetWindowTextW(m_parent->Window(), title);
        m_bar.Create(m_parent->Window(), 100, iconId, Library(), buttons, height);
        m_bar.EnableCaption(m_active);
        Paint(m_bar.GetHwnd());
    }

    CPicture Seen() const { return CPicture(m_bar.GetHwnd()); }

    std::unique_ptr<CParent> m_parent;
    vantor::CCaptionCtrl m_bar;
    bool m_active = true;
    support::CImportPatch m_colours{&::GetSysColor, &Colours};
};
}   // namespace bar

#endif
