// Windows and controls.

#include "support/ImportPatch.h"
#include "support/MessagePump.h"
#include "support/Print.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vantor;
using support::CImportPatch;

namespace
{
constexpr auto NoMode = static_cast<CTranslator::EMode>(2);

std::vector<std::wstring> g_texts;   // of every WM_SETTEXT, in the order in which they come

LRESULT CALLBACK RecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETTEXT)
        g_texts.push_back(reinterpret_cast<const wchar_t*>(lParam));
    return ::DefWindowProcW(hwnd, message, wParam, lParam);
}

// Says that its text is much longer than it is.
LRESULT CALLBACK BoastingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_GETTEXTLENGTH)
        return 1000;
    return ::DefWindowProcW(hwnd, message, wParam, lParam);
}

const wchar_t* RegisterWindowClass(const wchar_t* name, WNDPROC proc)
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = proc;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name;
    ::RegisterClassW(&windowClass);
    return name;
}

HWND Create(const wchar_t* windowClass, const wchar_t* text, HWND parent = nullptr)
{
    const DWORD style = parent ? WS_CHILD | WS_VISIBLE : WS_OVERLAPPEDWINDOW;
    const HWND window = ::CreateWindowExW(0, windowClass, text, style, 0, 0, 100, 50, parent, nullptr,
                                          ::GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(nullptr, window);
    return window;
}

ustring TextOf(HWND window)
{
    wchar_t text[2000] = {};
    ::GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return text;
}

BOOL WINAPI FailingSetWindowText(HWND, LPCWSTR)
{
    ::SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
}

class TranslatorWindow : public ::testing::Test
{
protected:
    TranslatorWindow()
    {
        support::UseOwnDesktop();
        g_texts.clear();
        m_class = RegisterWindowClass(L"VantorRecorder", RecordingProc);
        m_translator.m_langFile[L"Open"] = L"\u00d6ffnen";
    }
    ~TranslatorWindow() override { ::DestroyWindow(m_window); }

    HWND Top(const wchar_t* text) { return m_window = Create(m_class, text); }

    const wchar_t* m_class;
    HWND m_window = nullptr;
    CTranslator m_translator;
};
}   // namespace

TEST_F(TranslatorWindow, KnownCaption_IsReplaced)
{
    m_translator.XlateWnd(Top(L"Open"));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextOf(m_window));
}

TEST_F(TranslatorWindow, UnknownCaption_IsLeftAlone)
{
    m_translator.XlateWnd(Top(L"Close"));
    EXPECT_TRUE(g_texts.empty());
    EXPECT_EQ(ustring(L"Close"), TextOf(m_window));
}

TEST_F(TranslatorWindow, Controls_AreTranslated)
{
    Top(L"x");
    const HWND controls[] = {Create(L"STATIC", L"Open", m_window), Create(L"EDIT", L"Open", m_window),
                             Create(L"BUTTON", L"Open", m_window)};
    m_translator.XlateWnd(m_window);
    for (const HWND control : controls)
        EXPECT_EQ(ustring(L"\u00d6ffnen"), TextOf(control));
}

TEST_F(TranslatorWindow, Descendants_AreTranslatedDepthFirstTheParentBeforeThem)
{
    for (const wchar_t* name : {L"top", L"first", L"inner", L"last"})
        m_translator.m_langFile[name] = name;
    Top(L"top");
    const HWND first = Create(m_class, L"first", m_window);
    Create(m_class, L"inner", first);
    ::SetWindowPos(Create(m_class, L"last", m_window), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);

    m_translator.XlateWnd(m_window);
    EXPECT_EQ((std::vector<std::wstring>{L"top", L"first", L"inner", L"last"}), g_texts);
}

TEST_F(TranslatorWindow, ChildrenOfAnUnknownCaption_AreTranslated)
{
    Top(L"unknown");
    const HWND group = Create(L"BUTTON", L"unknown too", m_window);
    const HWND control = Create(L"STATIC", L"Open", group);
    m_translator.XlateWnd(m_window);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextOf(control));
}

TEST_F(TranslatorWindow, Siblings_AreNotTouched)
{
    Top(L"x");
    const HWND one = Create(m_class, L"Open", m_window);
    const HWND other = Create(m_class, L"Open", m_window);
    m_translator.XlateWnd(one);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextOf(one));
    EXPECT_EQ(ustring(L"Open"), TextOf(other));
}

TEST_F(TranslatorWindow, LongCaption_IsLookedUpWhole)
{
    const std::wstring text(1500, L'x');
    m_translator.m_langFile[text] = L"long";
    m_translator.XlateWnd(Top(text.c_str()));
    EXPECT_EQ(ustring(L"long"), TextOf(m_window));
}

TEST_F(TranslatorWindow, LongTranslation_IsSetWhole)
{
    const std::wstring text(1500, L'x');
    m_translator.m_langFile[L"Open"] = text;
    m_translator.XlateWnd(Top(L"Open"));
    EXPECT_EQ(ustring(text), TextOf(m_window));
}

TEST_F(TranslatorWindow, EmptyCaption_IsLookedUpLikeAnyOther)
{
    m_translator.m_langFile[L""] = L"not empty";
    m_translator.XlateWnd(Top(L""));
    EXPECT_EQ(ustring(L"not empty"), TextOf(m_window));
}

TEST_F(TranslatorWindow, TextShorterThanItsReportedLength_IsLookedUpWithoutTheRest)
{
    m_window = Create(RegisterWindowClass(L"VantorBoaster", BoastingProc), L"Open");
    m_translator.XlateWnd(m_window);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), TextOf(m_window));
}

TEST_F(TranslatorWindow, Gathering_CollectsCaptionsOfAllDescendants)
{
    Top(L"top");
    Create(L"STATIC", L"inner", Create(L"BUTTON", L"group", m_window));
    m_translator.SetMode(CTranslator::eGather);
    m_translator.m_langFile.clear();
    m_translator.XlateWnd(m_window);

    CLanguageFile expected;
    for (const wchar_t* text : {L"top", L"group", L"inner"})
        expected[text] = text;
    EXPECT_EQ(expected, m_translator.m_langFile);
}

TEST_F(TranslatorWindow, Gathering_SetsNoText)
{
    Top(L"Open");
    Create(m_class, L"Open", m_window);
    m_translator.SetMode(CTranslator::eGather);
    m_translator.XlateWnd(m_window);
    EXPECT_TRUE(g_texts.empty());
}

TEST_F(TranslatorWindow, AnotherMode_SetsNoText)
{
    Top(L"Open");
    m_translator.SetMode(NoMode);
    m_translator.XlateWnd(m_window);
    EXPECT_TRUE(g_texts.empty());
}

TEST_F(TranslatorWindow, FailingCall_LeavesTheWindowAndGoesOn)
{
    Top(L"Open");
    const HWND child = Create(m_class, L"child", m_window);
    {
        const CImportPatch patch(&::SetWindowTextW, &FailingSetWindowText);
        m_translator.XlateWnd(m_window);
    }
    EXPECT_EQ(ustring(L"Open"), TextOf(m_window));
    EXPECT_EQ(ustring(L"child"), TextOf(child));
}

TEST_F(TranslatorWindow, NoWindow_IsIgnored)
{
    Top(L"Open");
    m_translator.XlateWnd(nullptr);
    EXPECT_EQ(ustring(L"Open"), TextOf(m_window));
}
