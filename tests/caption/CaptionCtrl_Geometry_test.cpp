// Where the bar's buttons stand, after its creation and after a change of its width.

#include "Bar.h"
#include "support/MessagePump.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;

namespace
{
std::map<unsigned int, RECT> g_created;   // of the buttons: left, top, width, height

HWND WINAPI RecordingCreateWindow(DWORD exStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                                  int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    if (std::wstring(windowClass) == L"BUTTON")
        g_created[static_cast<unsigned int>(reinterpret_cast<UINT_PTR>(menu))] = {x, y, width, height};
    return ::CreateWindowExW(exStyle, windowClass, text, style, x, y, width, height, parent, menu, instance, parameter);
}

// Left, top, width, height of every button that the bits ask for.
std::map<unsigned int, RECT> Expected(int height, int width, unsigned long buttons)
{
    const int slot = 3 * height / 2;
    const int margin = height / 8;
    const bool close = (buttons & 4) != 0;
    const bool ok = (buttons & 2) != 0;
    const auto at = [&](int x) { return RECT{x, margin, slot - 2 * margin, height - 2 * margin}; };

    std::map<unsigned int, RECT> places;
    if (close)
        places[CloseId] = at(width - slot + margin);
    if (ok)
        places[OkId] = at(width - slot + margin - (close ? slot : 0));
    if (buttons & 1)
        places[HelpId] = at(width - slot + margin - (ok ? slot : 0) - (close ? slot : 0));
    return places;
}

std::map<unsigned int, RECT> Shown(const CCaptionCtrl& bar)
{
    std::map<unsigned int, RECT> places;
    for (const unsigned int id : {HelpId, OkId, CloseId})
    {
        if (const HWND button = Button(bar, id))
        {
            const RECT place = PlaceInParent(button);
            places[id] = {place.left, place.top, place.right - place.left, place.bottom - place.top};
        }
    }
    return places;
}

std::string Describe(const std::map<unsigned int, RECT>& places)
{
    std::string text;
    for (const auto& [id, place] : places)
    {
        text += "button " + std::to_string(id) + " at " + std::to_string(place.left) + "," + std::to_string(place.top) +
                ", " + std::to_string(place.right) + " by " + std::to_string(place.bottom) + "; ";
    }
    return text;
}

std::vector<int> SomeWidths()
{
    std::vector<int> widths = {1, 2, 3, 4, 5, 7, 8, 39, 40, 239, 240, 241, 320, 480, 640, 800, 998, 999, 1000};
    for (int width = 11; width < 1000; width += 53)
        widths.push_back(width);
    return widths;
}

class CaptionCtrlGeometry : public testing::Test
{
protected:
    CaptionCtrlGeometry()
    {
        support::UseOwnDesktop();
        m_parent = std::make_unique<CParent>();
        ::ShowWindow(m_parent->Window(), SW_HIDE);   // painting is not asked for
    }

    void Create(int height, int width, unsigned long buttons)
    {
        m_parent->Resize(width, 200);
        m_bar.Create(m_parent->Window(), 100, 0, nullptr, buttons, height);
    }

    void ExpectPlaces(int height, int width, unsigned long buttons)
    {
        EXPECT_EQ(Describe(Expected(height, width, buttons)), Describe(Shown(m_bar)))
            << "height " << height << ", width " << width << ", buttons " << buttons;
    }

    std::unique_ptr<CParent> m_parent;
    CCaptionCtrl m_bar;
};
}   // namespace

TEST_F(CaptionCtrlGeometry, Height26OnABarOf240_ClosesAtTheRight)
{
    Create(26, 240, AllButtons);
    const RECT expected = {204, 3, 204 + 33, 3 + 20};
    const RECT place = PlaceInParent(Button(m_bar, CloseId));
    EXPECT_TRUE(::EqualRect(&expected, &place));
}

TEST_F(CaptionCtrlGeometry, Height26OnABarOf240_HasOkLeftOfClose)
{
    Create(26, 240, AllButtons);
    const RECT expected = {165, 3, 165 + 33, 3 + 20};
    const RECT place = PlaceInParent(Button(m_bar, OkId));
    EXPECT_TRUE(::EqualRect(&expected, &place));
}

TEST_F(CaptionCtrlGeometry, Height26OnABarOf240_HasHelpLeftOfOk)
{
    Create(26, 240, AllButtons);
    const RECT expected = {126, 3, 126 + 33, 3 + 20};
    const RECT place = PlaceInParent(Button(m_bar, HelpId));
    EXPECT_TRUE(::EqualRect(&expected, &place));
}

TEST_F(CaptionCtrlGeometry, Height7_HasNoMargin)
{
    Create(7, 100, CCaptionCtrl::ButtonClose);
    const RECT expected = {90, 0, 100, 7};
    const RECT place = PlaceInParent(Button(m_bar, CloseId));
    EXPECT_TRUE(::EqualRect(&expected, &place));
}

TEST_F(CaptionCtrlGeometry, Creation_ForEveryHeightAndSetOfButtons)
{
    const CImportPatch patch(&::CreateWindowExW, &RecordingCreateWindow);
    for (int height = 1; height <= 64 && !HasFailure(); ++height)
    {
        for (unsigned long buttons = 0; buttons <= AllButtons; ++buttons)
        {
            for (const int width : {1, 2, 240, 999, 1000})
            {
                g_created.clear();
                Create(height, width, buttons);
                EXPECT_EQ(Describe(Expected(height, width, buttons)), Describe(g_created))
                    << "height " << height << ", width " << width << ", buttons " << buttons;
            }
        }
    }
}

TEST_F(CaptionCtrlGeometry, Creation_ForEveryWidth)
{
    for (int width = 1; width <= 1000 && !HasFailure(); ++width)
    {
        Create(26, width, AllButtons);
        ExpectPlaces(26, width, AllButtons);
    }
}

TEST_F(CaptionCtrlGeometry, Size_ForEveryHeightAndSetOfButtons)
{
    const std::vector<int> widths = SomeWidths();
    for (int height = 1; height <= 64 && !HasFailure(); ++height)
    {
        for (unsigned long buttons = 0; buttons <= AllButtons; ++buttons)
        {
            Create(height, 500, buttons);
            for (const int width : widths)
            {
                ::SendMessageW(m_bar.GetHwnd(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(width, height));
                ExpectPlaces(height, width, buttons);
            }
        }
    }
}

TEST_F(CaptionCtrlGeometry, Size_ForEveryWidth)
{
    for (const int height : {1, 7, 26, 64})
    {
        Create(height, 500, AllButtons);
        for (int width = 1; width <= 1000 && !HasFailure(); ++width)
        {
            ::SendMessageW(m_bar.GetHwnd(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(width, height));
            ExpectPlaces(height, width, AllButtons);
        }
    }
}

TEST_F(CaptionCtrlGeometry, Size_IsSigned)
{
    Create(26, 240, AllButtons);
    ::SendMessageW(m_bar.GetHwnd(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(0xFFFF, 26));
    ExpectPlaces(26, -1, AllButtons);
}

TEST_F(CaptionCtrlGeometry, Size_OfTheWindowMovesTheButtons)
{
    Create(26, 240, AllButtons);
    ::MoveWindow(m_bar.GetHwnd(), 0, 0, 320, 26, TRUE);
    ExpectPlaces(26, 320, AllButtons);
}

TEST_F(CaptionCtrlGeometry, Size_RepaintsTheButtonsThatMove)
{
    Create(26, 240, AllButtons);
    ::ShowWindow(m_parent->Window(), SW_SHOW);
    ::RedrawWindow(m_parent->Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    ::SendMessageW(m_bar.GetHwnd(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(150, 26));
    EXPECT_TRUE(IsInvalid(m_bar.GetHwnd())) << "where the buttons were";
}
