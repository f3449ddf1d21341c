// Toolbars and command bars: the platform's own control, and a stand-in that records what it is asked.

#include "support/MessagePump.h"
#include "support/Print.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>
#include <vector>

using namespace vantor;

namespace
{
constexpr auto NoMode = static_cast<CTranslator::EMode>(2);

TBBUTTON Button(int command, const wchar_t* text)
{
    TBBUTTON button = {};
    button.idCommand = command;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON;
    button.iString = reinterpret_cast<INT_PTR>(text);
    return button;
}

// A window that answers toolbar messages from a list of buttons, and writes down those that change it.
struct CStandIn
{
    std::vector<TBBUTTON> buttons;
    std::vector<std::wstring> changes;
    bool refuseInsert = false;

    LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message)
        {
        case WM_USER + 23:
            if (wParam >= buttons.size())
                return FALSE;
            *reinterpret_cast<TBBUTTON*>(lParam) = buttons[wParam];
            return TRUE;
        case WM_USER + 67:
        {
            const TBBUTTON& button = *reinterpret_cast<const TBBUTTON*>(lParam);
            changes.push_back(L"insert " + std::to_wstring(wParam) + L" " +
                              reinterpret_cast<const wchar_t*>(button.iString));
            if (refuseInsert)
                return FALSE;
            buttons.insert(buttons.begin() + static_cast<std::ptrdiff_t>(wParam), button);
            return TRUE;
        }
        case WM_USER + 22:
            changes.push_back(L"delete " + std::to_wstring(wParam));
            buttons.erase(buttons.begin() + static_cast<std::ptrdiff_t>(wParam));
            return TRUE;
        }
        return FALSE;
    }
};
CStandIn* g_standIn;

LRESULT CALLBACK StandInProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (g_standIn && message >= WM_USER)
        return g_standIn->Answer(message, wParam, lParam);
    return ::DefWindowProcW(hwnd, message, wParam, lParam);
}

class TranslatorToolbar : public ::testing::Test
{
protected:
    TranslatorToolbar()
    {
        support::UseOwnDesktop();
        const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES};
        ::InitCommonControlsEx(&controls);
        m_translator.m_langFile[L"Open"] = L"\u00d6ffnen";
        m_owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 100, nullptr, nullptr, nullptr, nullptr);
    }
    ~TranslatorToolbar() override
    {
        ::DestroyWindow(m_owner);
        g_standIn = nullptr;
        ::DestroyMenu(m_menu);
    }

    HWND Toolbar(const std::vector<TBBUTTON>& buttons)
    {
        m_toolbar =
            ::CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", WS_CHILD, 0, 0, 300, 50, m_owner, nullptr, nullptr, nullptr);
        EXPECT_NE(nullptr, m_toolbar);
        ::SendMessageW(m_toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        ::SendMessageW(m_toolbar, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
        return m_toolbar;
    }

    HWND StandIn(const std::vector<TBBUTTON>& buttons)
    {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = StandInProc;
        windowClass.lpszClassName = L"VantorStandIn";
        ::RegisterClassW(&windowClass);
        m_standIn.buttons = buttons;
        g_standIn = &m_standIn;
        return ::CreateWindowExW(0, windowClass.lpszClassName, L"", WS_CHILD, 0, 0, 9, 9, m_owner, nullptr, nullptr,
                                 nullptr);
    }

    TBBUTTON At(std::size_t index) const
    {
        TBBUTTON button = {};
        EXPECT_TRUE(::SendMessageW(m_toolbar, TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button)));
        return button;
    }
    ustring TextAt(std::size_t index) const { return reinterpret_cast<const wchar_t*>(At(index).iString); }
    LRESULT Count() const { return ::SendMessageW(m_toolbar, TB_BUTTONCOUNT, 0, 0); }

    DWORD_PTR MenuWith(const wchar_t* text)
    {
        m_menu = ::CreatePopupMenu();
        ::AppendMenuW(m_menu, MF_STRING, 7, text);
        return reinterpret_cast<DWORD_PTR>(m_menu);
    }
    ustring MenuText() const
    {
        wchar_t text[50] = {};
        ::GetMenuStringW(m_menu, 0, text, static_cast<int>(std::size(text)), MF_BYPOSITION);
        return text;
    }

    CTranslator m_translator;
    HWND m_owner;
    HWND m_toolbar = nullptr;
    HMENU m_menu = nullptr;
    CStandIn m_standIn;
};
}   // namespace

TEST_F(TranslatorToolbar, KnownTexts_AreReplaced)
{
    m_translator.m_langFile[L"Save"] = L"Sichern";
    m_translator.XlateToolbar(Toolbar({Button(1, L"Open"), Button(2, L"Save")}));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextAt(0));
    EXPECT_EQ(ustring(L"Sichern"), TextAt(1));
}

TEST_F(TranslatorToolbar, ReplacedButton_KeepsItsPlaceAndEverythingElse)
{
    TBBUTTON open = Button(42, L"Open");
    open.iBitmap = 3;
    open.fsState = TBSTATE_ENABLED | TBSTATE_CHECKED;
    open.fsStyle = BTNS_CHECK;
    open.dwData = 0x1234567;
    m_translator.XlateToolbar(Toolbar({Button(1, L"a"), open, Button(2, L"b")}));

    ASSERT_EQ(3, Count());
    const TBBUTTON now = At(1);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextAt(1));
    EXPECT_EQ(42, now.idCommand);
    EXPECT_EQ(3, now.iBitmap);
    EXPECT_EQ(open.fsState, now.fsState);
    EXPECT_EQ(open.fsStyle, now.fsStyle);
    EXPECT_EQ(open.dwData, now.dwData);
}

TEST_F(TranslatorToolbar, OtherButtons_StayAsTheyAre)
{
    TBBUTTON other = Button(43, L"other");
    other.fsState = TBSTATE_INDETERMINATE;
    other.fsStyle = BTNS_CHECKGROUP;
    m_translator.XlateToolbar(Toolbar({Button(1, L"Open"), other}));
    const TBBUTTON now = At(1);
    EXPECT_EQ(ustring(L"other"), TextAt(1));
    EXPECT_EQ(43, now.idCommand);
    EXPECT_EQ(other.fsState, now.fsState);
    EXPECT_EQ(other.fsStyle, now.fsStyle);
}

TEST_F(TranslatorToolbar, IndexIntoTheToolbarsOwnStrings_IsLeftAlone)
{
    TBBUTTON indexed = Button(1, nullptr);
    indexed.iString = 1;
    const HWND toolbar = Toolbar({});
    ::SendMessageW(toolbar, TB_ADDSTRINGW, 0, reinterpret_cast<LPARAM>(L"Save\0Open\0"));
    ::SendMessageW(toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&indexed));
    m_translator.XlateToolbar(toolbar);
    EXPECT_EQ(1, Count());
    EXPECT_EQ(1, At(0).iString);
}

TEST_F(TranslatorToolbar, LargestIndex_IsLeftAlone)
{
    TBBUTTON indexed = Button(1, nullptr);
    indexed.iString = 0xFFFF;
    m_translator.XlateToolbar(StandIn({indexed}));
    EXPECT_TRUE(m_standIn.changes.empty());
}

TEST_F(TranslatorToolbar, ButtonWithoutText_IsLeftAlone)
{
    m_translator.m_langFile[L""] = L"not empty";
    m_translator.XlateToolbar(StandIn({Button(1, nullptr)}));
    EXPECT_TRUE(m_standIn.changes.empty());
}

TEST_F(TranslatorToolbar, ButtonMarkedAsTextless_IsLeftAlone)
{
    TBBUTTON textless = Button(1, nullptr);
    textless.iString = -1;
    m_translator.XlateToolbar(StandIn({textless}));
    EXPECT_TRUE(m_standIn.changes.empty());
}

TEST_F(TranslatorToolbar, Replacing_InsertsAtThePlaceAndDeletesTheOldOneBehind)
{
    m_translator.XlateToolbar(StandIn({Button(1, L"a"), Button(2, L"Open"), Button(3, L"b"), Button(4, L"Open")}));
    EXPECT_EQ((std::vector<std::wstring>{L"insert 1 \u00d6ffnen", L"delete 2", L"insert 3 \u00d6ffnen", L"delete 4"}),
              m_standIn.changes);
}

TEST_F(TranslatorToolbar, FailingInsert_LeavesTheButton)
{
    const HWND toolbar = StandIn({Button(1, L"Open"), Button(2, L"b")});
    m_standIn.refuseInsert = true;
    m_translator.XlateToolbar(toolbar);
    ASSERT_EQ(2u, m_standIn.buttons.size());
    EXPECT_STREQ(L"Open", reinterpret_cast<const wchar_t*>(m_standIn.buttons[0].iString));
}

TEST_F(TranslatorToolbar, FailingInsert_DoesNotKeepTheOtherButtonsFromTheirs)
{
    const HWND toolbar = StandIn({Button(1, L"Open"), Button(2, L"Open")});
    m_standIn.refuseInsert = true;
    m_translator.XlateToolbar(toolbar);
    EXPECT_EQ((std::vector<std::wstring>{L"insert 0 \u00d6ffnen", L"insert 1 \u00d6ffnen"}), m_standIn.changes);
}

TEST_F(TranslatorToolbar, MenuOfAButton_IsTranslated)
{
    TBBUTTON dropDown = Button(1, L"File");
    dropDown.dwData = MenuWith(L"Open");
    m_translator.XlateToolbar(Toolbar({dropDown}));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), MenuText());
}

TEST_F(TranslatorToolbar, MenuOfAReplacedButton_IsTranslatedAndKept)
{
    TBBUTTON dropDown = Button(1, L"Open");
    dropDown.dwData = MenuWith(L"Open");
    m_translator.XlateToolbar(Toolbar({dropDown}));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextAt(0));
    EXPECT_EQ(dropDown.dwData, At(0).dwData);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), MenuText());
}

TEST_F(TranslatorToolbar, MenuOfAButtonWithoutText_IsTranslated)
{
    TBBUTTON dropDown = Button(1, nullptr);
    dropDown.dwData = MenuWith(L"Open");
    m_translator.XlateToolbar(Toolbar({dropDown}));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), MenuText());
}

TEST_F(TranslatorToolbar, DataThatIsNoMenu_IsHarmless)
{
    TBBUTTON button = Button(1, L"Open");
    button.dwData = 0x12345;
    m_translator.XlateToolbar(Toolbar({button}));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextAt(0));
}

TEST_F(TranslatorToolbar, Gathering_CollectsButtonsAndMenus)
{
    TBBUTTON dropDown = Button(2, L"File");
    dropDown.dwData = MenuWith(L"in the menu");
    const HWND toolbar = Toolbar({Button(1, L"on the button"), dropDown});
    m_translator.m_langFile.clear();
    m_translator.SetMode(CTranslator::eGather);
    m_translator.XlateToolbar(toolbar);

    CLanguageFile expected;
    for (const wchar_t* text : {L"on the button", L"File", L"in the menu"})
        expected[text] = text;
    EXPECT_EQ(expected, m_translator.m_langFile);
}

TEST_F(TranslatorToolbar, Gathering_ChangesNoButton)
{
    const HWND toolbar = StandIn({Button(1, L"Open")});
    m_translator.SetMode(CTranslator::eGather);
    m_translator.XlateToolbar(toolbar);
    EXPECT_TRUE(m_standIn.changes.empty());
}

TEST_F(TranslatorToolbar, AnotherMode_ChangesNoButton)
{
    const HWND toolbar = StandIn({Button(1, L"Open")});
    m_translator.SetMode(NoMode);
    m_translator.XlateToolbar(toolbar);
    EXPECT_TRUE(m_standIn.changes.empty());
}

TEST_F(TranslatorToolbar, WindowThatIsNoToolbar_IsLeftAlone)
{
    ::SetWindowTextW(m_owner, L"Open");
    m_translator.XlateToolbar(m_owner);
    wchar_t text[20] = {};
    ::GetWindowTextW(m_owner, text, static_cast<int>(std::size(text)));
    EXPECT_STREQ(L"Open", text);
}
