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
// Of a button.
struct CPlace
{
    int x;
    int y;
    int width;
    int height;

    bool operator==(const CPlace& other) const
    {
        return x == other.x && y == other.y && width == other.width && height == other.height;
    }
};

using CPlaces = std::map<unsigned int, CPlace>;   // by the buttons' identifiers

CPlaces g_created;

HWND WINAPI RecordingCreateWindow(DWORD exStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                                  int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    if (std::wstring(windowClass) == L"BUTTON")
        g_created[static_cast<unsigned int>(reinterpret_cast<UINT_PTR>(menu))] = {x, y, width, height};
    return ::CreateWindowExW(exStyle, windowClass, text, style, x, y, width, height, parent, menu, instance, parameter);
}

HWND g_bar = nullptr;   // stands for every bar, as no window is made

// As the system does it, for the bar's procedure.
HWND WINAPI ImaginedCreateWindow(DWORD exStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y, int width,
                                 int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    if (!parameter)   // a button
    {
        g_created[static_cast<unsigned int>(reinterpret_cast<UINT_PTR>(menu))] = {x, y, width, height};
        return nullptr;
    }
    CREATESTRUCTW cs = {parameter, instance,    menu,   parent, height, width, y, x, static_cast<LONG>(style),
                        text,      windowClass, exStyle};
    CCaptionCtrl::WndProc(g_bar, WM_CREATE, 0, reinterpret_cast<LPARAM>(&cs));
    return g_bar;
}

BOOL WINAPI ImaginedDestroyWindow(HWND window)
{
    CCaptionCtrl::WndProc(window, WM_DESTROY, 0, 0);
    return TRUE;
}

std::map<HWND, unsigned int> g_buttons;
CPlaces g_moved;
int g_moves = 0;

BOOL WINAPI RecordingMoveWindow(HWND window, int x, int y, int width, int height, BOOL)
{
    ++g_moves;
    g_moved[g_buttons[window]] = {x, y, width, height};
    return TRUE;
}

// The place of every button that the bits ask for.
CPlaces Expected(int height, int width, unsigned long buttons)
{
    const int slot = 3 * height / 2;
    const int margin = height / 8;
    const bool close = (buttons & 4) != 0;
    const bool ok = (buttons & 2) != 0;
    const auto at = [&](int x) { return CPlace{x, margin, slot - 2 * margin, height - 2 * margin}; };

    CPlaces places;
    if (close)
        places[CloseId] = at(width - slot + margin);
    if (ok)
        places[OkId] = at(width - slot + margin - (close ? slot : 0));
    if (buttons & 1)
        places[HelpId] = at(width - slot + margin - (ok ? slot : 0) - (close ? slot : 0));
    return places;
}

std::string Describe(const CPlaces& places)
{
    std::string text;
    for (const auto& [id, place] : places)
    {
        text += "button " + std::to_string(id) + " at " + std::to_string(place.x) + "," + std::to_string(place.y) +
                ", " + std::to_string(place.width) + " by " + std::to_string(place.height) + "; ";
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
        g_buttons.clear();   // to look them up again costs more than all else
        for (const unsigned int id : {HelpId, OkId, CloseId})
        {
            if (const HWND button = Button(m_bar, id))
                g_buttons[button] = id;
        }
    }

    static CPlaces Shown()
    {
        CPlaces places;
        for (const auto& [button, id] : g_buttons)
        {
            const RECT place = PlaceInParent(button);
            places[id] = {place.left, place.top, place.right - place.left, place.bottom - place.top};
        }
        return places;
    }

    static void ExpectPlaces(int height, int width, unsigned long buttons, const CPlaces& places = Shown())
    {
        const CPlaces expected = Expected(height, width, buttons);
        EXPECT_TRUE(expected == places) << "height " << height << ", width " << width << ", buttons " << buttons
                                        << "\nexpected " << Describe(expected) << "\nfound    " << Describe(places);
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
            for (const int width : {1, 240, 1000})
            {
                g_created.clear();
                Create(height, width, buttons);
                ExpectPlaces(height, width, buttons, g_created);
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

// What the bar asks the system for, but no window is made: half a million take many minutes. The tests above make some.
TEST_F(CaptionCtrlGeometry, Creation_ForEveryHeightWidthAndSetOfButtons_AsksForThePlaces)
{
    g_bar = m_parent->Window();
    const CImportPatch create(&::CreateWindowExW, &ImaginedCreateWindow);
    const CImportPatch destroy(&::DestroyWindow, &ImaginedDestroyWindow);
    for (int width = 1; width <= 1000 && !HasFailure(); ++width)
    {
        m_parent->Resize(width, 200);
        for (int height = 1; height <= 64; ++height)
        {
            for (unsigned long buttons = 0; buttons <= AllButtons; ++buttons)
            {
                g_created.clear();
                m_bar.Create(g_bar, 100, 0, nullptr, buttons, height);
                ExpectPlaces(height, width, buttons, g_created);
            }
        }
    }
    m_bar.Destroy();
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

// What the bar asks the system for. Moving as many buttons takes the better part of a minute; the tests above move them
// at some of the widths.
TEST_F(CaptionCtrlGeometry, Size_ForEveryHeightWidthAndSetOfButtons_AsksForThePlaces)
{
    const CImportPatch patch(&::MoveWindow, &RecordingMoveWindow);
    for (unsigned long buttons = 0; buttons <= AllButtons; ++buttons)
    {
        for (int height = 1; height <= 64 && !HasFailure(); ++height)
        {
            Create(height, 500, buttons);
            const int before = g_moves;
            for (int width = 1; width <= 1000; ++width)
            {
                g_moved.clear();
                ::SendMessageW(m_bar.GetHwnd(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(width, height));
                ExpectPlaces(height, width, buttons, g_moved);
            }
            EXPECT_EQ(1000 * g_buttons.size(), static_cast<std::size_t>(g_moves - before)) << "each button once";
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
