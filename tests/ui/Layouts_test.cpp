// Where the fields of windows stand: applications and the library must agree on it, whichever of them was built last.

#include "Dialogs.h"
#include "Templates.h"

#include "support/MessagePump.h"

#include <vantor/CaptionCtrl.h>
#include <vantor/TipDlg.h>

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using namespace vantor;

namespace
{
constexpr std::size_t Pointer = sizeof(void*);   // behind the pointer to the virtual table come the fields

template <class T>
T At(const void* object, std::size_t offset)
{
    T value;
    std::memcpy(&value, static_cast<const unsigned char*>(object) + offset, sizeof value);
    return value;
}

constexpr std::size_t RoundedUp(std::size_t size)
{
    return (size + Pointer - 1) / Pointer * Pointer;
}

// Can be made, which its base cannot.
class CBarOwner : public CCaptionEnabledWindow
{
};

class CaptionCtrlLayout : public ::testing::Test
{
protected:
    CaptionCtrlLayout()
    {
        support::UseOwnDesktop();
        m_parent =
            ::CreateWindowExW(0, L"STATIC", L"title", WS_POPUP, 30, 40, 200, 100, nullptr, nullptr, nullptr, nullptr);
        m_bar.Create(m_parent, 77, 88, Module(), 7, 26);
        m_bar.EnableCaption(false);
    }
    ~CaptionCtrlLayout() override { ::DestroyWindow(m_parent); }

    HWND m_parent;
    CCaptionCtrl m_bar;
};

constexpr std::size_t IconId = 6 * Pointer;
constexpr std::size_t Instance = IconId + Pointer;
constexpr std::size_t Buttons = Instance + Pointer;
constexpr std::size_t Height = Buttons + 4;
constexpr std::size_t Enabled = Height + 4;
constexpr std::size_t Origin = Enabled + 4;
}   // namespace

TEST(WndLayout, HasTheWindowFirst)
{
    CWnd wnd;
    wnd.m_hWnd = reinterpret_cast<HWND>(0x11);
    EXPECT_EQ(reinterpret_cast<HWND>(0x11), At<HWND>(&wnd, Pointer));
    wnd.m_hWnd = nullptr;
}

TEST(WndLayout, HasTheParentSecond)
{
    const CWnd wnd(reinterpret_cast<HWND>(0x22));
    EXPECT_EQ(reinterpret_cast<HWND>(0x22), At<HWND>(&wnd, 2 * Pointer));
}

TEST(WndLayout, HasNothingElse)
{
    EXPECT_EQ(3 * Pointer, sizeof(CWnd));
}

TEST(DialogLayout, HasTheModuleFirst)
{
    const CDialog dialog(reinterpret_cast<HINSTANCE>(0x33), 44, nullptr);
    EXPECT_EQ(reinterpret_cast<HINSTANCE>(0x33), At<HINSTANCE>(&dialog, 3 * Pointer));
}

TEST(DialogLayout, HasTheIdentifierSecond)
{
    const CDialog dialog(nullptr, 44, nullptr);
    EXPECT_EQ(44u, At<unsigned int>(&dialog, 4 * Pointer));
}

TEST(DialogLayout, HasTheTemplateThird)
{
    CFormDialog dialog;
    const CTemplate memory(L"memory");
    dialog.InitModalIndirect(nullptr, memory.Block(), nullptr);
    EXPECT_EQ(dialog.Template(), At<void*>(static_cast<CDialog*>(&dialog), 5 * Pointer));
}

TEST(DialogLayout, HasNothingElse)
{
    EXPECT_EQ(6 * Pointer, sizeof(CDialog));
}

TEST(TipDlgLayout, HasTheTextBehindTheDialog)
{
    const CTipDlg tip(nullptr, L"text", true);
    const auto* const text =
        reinterpret_cast<const std::wstring*>(reinterpret_cast<const unsigned char*>(&tip) + sizeof(CDialog));
    EXPECT_TRUE(*text == L"text");
    EXPECT_EQ(sizeof(CDialog) + sizeof(std::wstring), sizeof(CTipDlg));
}

TEST(WaitCursorLayout, HasThePreviousCursor)
{
    support::UseOwnDesktop();
    const HCURSOR arrow = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));   // IDC_ARROW
    ::SetCursor(arrow);
    const CWaitCursor cursor;
    EXPECT_EQ(arrow, At<HCURSOR>(&cursor, Pointer));
    EXPECT_EQ(2 * Pointer, sizeof(CWaitCursor));
}

TEST_F(CaptionCtrlLayout, HasTheWindowsFirst)
{
    EXPECT_EQ(m_bar.GetHwnd(), At<HWND>(&m_bar, Pointer));
    EXPECT_EQ(m_parent, At<HWND>(&m_bar, 2 * Pointer));
}

TEST_F(CaptionCtrlLayout, HasTheButtonsInTheOrderHelpOkClose)
{
    EXPECT_EQ(::GetDlgItem(m_bar.GetHwnd(), 9), At<HWND>(&m_bar, 3 * Pointer));
    EXPECT_EQ(::GetDlgItem(m_bar.GetHwnd(), 1), At<HWND>(&m_bar, 4 * Pointer));
    EXPECT_EQ(::GetDlgItem(m_bar.GetHwnd(), 2), At<HWND>(&m_bar, 5 * Pointer));
}

TEST_F(CaptionCtrlLayout, HasTheIconAndItsModule)
{
    EXPECT_EQ(88u, At<unsigned int>(&m_bar, IconId));
    EXPECT_EQ(Module(), At<HINSTANCE>(&m_bar, Instance));
}

TEST_F(CaptionCtrlLayout, HasTheButtonsBitsTheHeightAndTheLook)
{
    EXPECT_EQ(7ul, At<unsigned long>(&m_bar, Buttons));
    EXPECT_EQ(26, At<int>(&m_bar, Height));
    EXPECT_EQ(0, At<unsigned char>(&m_bar, Enabled));
    m_bar.EnableCaption(true);
    EXPECT_EQ(1, At<unsigned char>(&m_bar, Enabled));
}

// In the parent's client coordinates. Create always makes the bar at their origin, applications may not.
TEST_F(CaptionCtrlLayout, HasTheOriginLast)
{
    CCaptionCtrl bar;
    const HWND window = ::CreateWindowExW(0, L"CaptionCtrl32", L"", WS_CHILD, 7, 9, 100, 20, m_parent, nullptr,
                                          ::GetModuleHandleW(L"vantor.dll"), &bar);
    EXPECT_NE(nullptr, window);
    const POINT origin = At<POINT>(&bar, Origin);
    EXPECT_EQ(7, origin.x);
    EXPECT_EQ(9, origin.y);
    EXPECT_EQ(RoundedUp(Origin + sizeof origin), sizeof(CCaptionCtrl));
    ::DestroyWindow(window);
}

TEST(MyCaptionCtrlLayout, HasItsOwnerBehindTheBar)
{
    const CBarOwner owner;
    const CCaptionCtrl& bar = owner.GetCaptionCtrl();
    const auto* const expected = static_cast<const CCaptionEnabledWindow*>(&owner);
    EXPECT_EQ(expected, At<const CCaptionEnabledWindow*>(&bar, sizeof(CCaptionCtrl)));
    EXPECT_EQ(sizeof(CCaptionCtrl) + Pointer, sizeof(CCaptionEnabledWindow::CMyCaptionCtrl));
}

TEST(CaptionEnabledWindowLayout, HasTheBarAlone)
{
    const CBarOwner owner;
    const void* const bar = &owner.GetCaptionCtrl();
    EXPECT_EQ(reinterpret_cast<const unsigned char*>(static_cast<const CCaptionEnabledWindow*>(&owner)) + Pointer, bar);
    EXPECT_EQ(Pointer + sizeof(CCaptionEnabledWindow::CMyCaptionCtrl), sizeof(CCaptionEnabledWindow));
}

TEST(CaptionEnabledWindowLayout, HasAProtectedDestructorThatIsNotVirtual)
{
    EXPECT_FALSE(std::has_virtual_destructor_v<CCaptionEnabledWindow>);
    EXPECT_FALSE(std::is_destructible_v<CCaptionEnabledWindow>);
    EXPECT_FALSE(std::is_default_constructible_v<CCaptionEnabledWindow>);
}
