// Making the bar.

#include "Bar.h"
#include "support/MessagePump.h"

#include "support/ImportPatch.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;

namespace
{
constexpr unsigned int BarId = 4711;

HINSTANCE Library()
{
    return ::GetModuleHandleW(L"vantor.dll");
}

struct CCreation
{
    std::wstring windowClass;
    std::wstring text;
    DWORD exStyle;
    DWORD style;
    RECT place;   // left, top, width, height
    HWND parent;
    UINT_PTR id;
    HINSTANCE instance;
    void* parameter;
};

std::vector<CCreation> g_creations;
std::vector<WNDCLASSW> g_classes;
std::vector<std::wstring> g_classNames;

HWND WINAPI RecordingCreateWindow(DWORD exStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                                  int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    g_creations.push_back({windowClass,
                           text,
                           exStyle,
                           style,
                           {x, y, width, height},
                           parent,
                           reinterpret_cast<UINT_PTR>(menu),
                           instance,
                           parameter});
    return ::CreateWindowExW(exStyle, windowClass, text, style, x, y, width, height, parent, menu, instance, parameter);
}

HWND WINAPI FailingCreateWindow(DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, void*)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

HWND WINAPI ButtonlessCreateWindow(DWORD exStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter)
{
    if (std::wstring(windowClass) == L"BUTTON")
        return nullptr;
    return ::CreateWindowExW(exStyle, windowClass, text, style, x, y, width, height, parent, menu, instance, parameter);
}

ATOM WINAPI RecordingRegisterClass(const WNDCLASSW* wc)
{
    g_classes.push_back(*wc);
    g_classNames.push_back(wc->lpszClassName);
    return ::RegisterClassW(wc);
}

int WINAPI FailingLoadString(HINSTANCE, UINT, LPWSTR, int)
{
    return 0;
}

class CaptionCtrl : public testing::Test
{
protected:
    CaptionCtrl()
    {
        support::UseOwnDesktop();
        g_creations.clear();
        g_classes.clear();
        g_classNames.clear();
    }

    static int Create(CCaptionCtrl& bar, const CParent& parent, unsigned long buttons = AllButtons, int height = 26)
    {
        return bar.Create(parent.Window(), BarId, 0, Library(), buttons, height);
    }
};

// What Create asks the system for: the bar, then its buttons.
class CaptionCtrlCreation : public CaptionCtrl
{
protected:
    explicit CaptionCtrlCreation(const wchar_t* title = L"Report") : m_parent(240, title)
    {
        const CImportPatch patch(&::CreateWindowExW, &RecordingCreateWindow);
        m_result = Create(m_bar, m_parent);
    }

    CParent m_parent;
    CCaptionCtrl m_bar;
    int m_result = 0;
};

class CaptionCtrlLongTitle : public CaptionCtrlCreation
{
protected:
    CaptionCtrlLongTitle() : CaptionCtrlCreation(std::wstring(300, L'x').c_str()) {}
};
}   // namespace

TEST_F(CaptionCtrl, New_HasNoWindow)
{
    const CCaptionCtrl bar;
    EXPECT_EQ(nullptr, bar.GetHwnd());
}

TEST_F(CaptionCtrl, New_HasNoParent)
{
    const CCaptionCtrl bar;
    EXPECT_EQ(nullptr, bar.GetParent());
}

TEST_F(CaptionCtrl, New_HasNoHeight)
{
    const CCaptionCtrl bar;
    EXPECT_EQ(0, bar.GetHeight());
}

TEST_F(CaptionCtrl, New_LooksActive)
{
    const CCaptionCtrl bar;
    EXPECT_TRUE(bar.IsCaptionEnabled());
}

TEST_F(CaptionCtrl, Create_WithoutAParent_Is0)
{
    CCaptionCtrl bar;
    EXPECT_EQ(0, bar.Create(nullptr, BarId, 0, nullptr, AllButtons, 26));
}

TEST_F(CaptionCtrl, Create_WithoutAParent_KeepsAnEarlierBar)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    bar.Create(nullptr, BarId, 0, nullptr, AllButtons, 26);
    EXPECT_TRUE(::IsWindow(bar.GetHwnd()));
}

TEST_F(CaptionCtrl, Create_InAParentThatIsGone_Is0)
{
    CParent parent;
    const HWND gone = parent.Window();
    parent.Destroy();
    CCaptionCtrl bar;
    EXPECT_EQ(0, bar.Create(gone, BarId, 0, nullptr, AllButtons, 26));
}

TEST_F(CaptionCtrl, Create_OnFailure_Is0)
{
    const CParent parent;
    CCaptionCtrl bar;
    const CImportPatch patch(&::CreateWindowExW, &FailingCreateWindow);
    EXPECT_EQ(0, Create(bar, parent));
}

TEST_F(CaptionCtrl, Create_OnFailure_LeavesNoWindow)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    {
        const CImportPatch patch(&::CreateWindowExW, &FailingCreateWindow);
        Create(bar, parent);
    }
    EXPECT_EQ(nullptr, bar.GetHwnd());
}

TEST_F(CaptionCtrl, Create_WhenButtonsFail_StillMakesTheBar)
{
    const CParent parent;
    CCaptionCtrl bar;
    const CImportPatch patch(&::CreateWindowExW, &ButtonlessCreateWindow);
    EXPECT_NE(0, Create(bar, parent));
}

TEST_F(CaptionCtrl, Create_WhenButtonsFail_HasNone)
{
    const CParent parent;
    CCaptionCtrl bar;
    const CImportPatch patch(&::CreateWindowExW, &ButtonlessCreateWindow);
    Create(bar, parent);
    EXPECT_EQ(nullptr, ::GetWindow(bar.GetHwnd(), GW_CHILD));
}

TEST_F(CaptionCtrl, Create_WhenTheCaptionOfOkIsMissing_LeavesItEmpty)
{
    const CParent parent;
    CCaptionCtrl bar;
    const CImportPatch patch(&::LoadStringW, &FailingLoadString);
    Create(bar, parent);
    EXPECT_EQ(L"", Text(Button(bar, OkId)));
}

TEST_F(CaptionCtrl, Create_WithHeight0_TakesThatOfTheSystemsCaptions)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent, AllButtons, 0);
    EXPECT_EQ(::GetSystemMetrics(SM_CYCAPTION), bar.GetHeight());
}

TEST_F(CaptionCtrl, Create_WithHeight0_MakesTheWindowThatHigh)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent, AllButtons, 0);
    EXPECT_EQ(::GetSystemMetrics(SM_CYCAPTION), PlaceInParent(bar.GetHwnd()).bottom);
}

TEST_F(CaptionCtrl, Create_KeepsTheGivenHeight)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent, AllButtons, 31);
    EXPECT_EQ(31, bar.GetHeight());
}

TEST_F(CaptionCtrl, Create_KeepsTheParent)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    EXPECT_EQ(parent.Window(), bar.GetParent());
}

TEST_F(CaptionCtrl, Create_LaysTheBarAcrossTheTop)
{
    const CParent parent(177);
    CCaptionCtrl bar;
    Create(bar, parent, 0, 26);
    const RECT expected = {0, 0, 177, 26};
    const RECT place = PlaceInParent(bar.GetHwnd());
    EXPECT_TRUE(::EqualRect(&expected, &place));
}

TEST_F(CaptionCtrl, Create_Again_DestroysTheFirstBar)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    const HWND first = bar.GetHwnd();
    Create(bar, parent);
    EXPECT_FALSE(::IsWindow(first));
}

TEST_F(CaptionCtrl, Create_Again_MakesAnotherBar)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    EXPECT_NE(0, Create(bar, parent));
}

TEST_F(CaptionCtrl, Create_AgainInAnotherParent_MovesThere)
{
    const CParent first;
    const CParent second;
    CCaptionCtrl bar;
    Create(bar, first);
    Create(bar, second);
    EXPECT_EQ(second.Window(), bar.GetParent());
}

TEST_F(CaptionCtrl, Create_AgainWithFewerButtons_HasThoseAlone)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    Create(bar, parent, CCaptionCtrl::ButtonOk);
    EXPECT_EQ(nullptr, Button(bar, CloseId));
}

TEST_F(CaptionCtrl, Create_RegistersTheClassOnceInTheProcess)
{
    const CParent parent;
    CCaptionCtrl first;
    CCaptionCtrl second;
    const CImportPatch patch(&::RegisterClassW, &RecordingRegisterClass);
    Create(first, parent);
    Create(first, parent);
    Create(second, parent);
    EXPECT_EQ(std::vector<std::wstring>{L"CaptionCtrl32"}, g_classNames);
}

TEST_F(CaptionCtrl, Create_RegistersNothingWithoutAParent)
{
    CCaptionCtrl bar;
    const CImportPatch patch(&::RegisterClassW, &RecordingRegisterClass);
    bar.Create(nullptr, BarId, 0, nullptr, AllButtons, 26);
    EXPECT_TRUE(g_classes.empty());
}

TEST_F(CaptionCtrl, Class_HasTheBarsProcedureAndNothingToDrawWith)
{
    const CParent parent;
    CCaptionCtrl bar;
    const CImportPatch patch(&::RegisterClassW, &RecordingRegisterClass);
    Create(bar, parent);
    ASSERT_EQ(1u, g_classes.size());
    const WNDCLASSW& wc = g_classes[0];
    EXPECT_EQ(UINT{CS_HREDRAW | CS_VREDRAW}, wc.style);
    EXPECT_EQ(&CCaptionCtrl::WndProc, wc.lpfnWndProc);
    EXPECT_EQ(0, wc.cbClsExtra);
    EXPECT_EQ(0, wc.cbWndExtra);
    EXPECT_EQ(Library(), wc.hInstance);
    EXPECT_EQ(nullptr, wc.hIcon);
    EXPECT_EQ(nullptr, wc.hCursor);
    EXPECT_EQ(nullptr, wc.hbrBackground);
    EXPECT_EQ(nullptr, wc.lpszMenuName);
}

TEST_F(CaptionCtrl, Class_OutlivesTheBars)
{
    const CParent parent;
    {
        CCaptionCtrl bar;
        Create(bar, parent);
    }
    WNDCLASSW wc = {};
    EXPECT_TRUE(::GetClassInfoW(Library(), L"CaptionCtrl32", &wc));
}

TEST_F(CaptionCtrl, Class_WindowWithoutAnObject_BehavesAsAnyWindow)
{
    const CParent parent;
    {
        CCaptionCtrl bar;
        Create(bar, parent);
    }
    const HWND window = ::CreateWindowExW(0, L"CaptionCtrl32", L"stray", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20,
                                          parent.Window(), nullptr, Library(), nullptr);
    Paint(window);
    ::SendMessageW(window, WM_COMMAND, CloseId, 0);
    EXPECT_EQ(L"stray", Text(window));
    EXPECT_TRUE(parent.Messages().empty());
}

TEST_F(CaptionCtrlCreation, Succeeds)
{
    EXPECT_NE(0, m_result);
}

TEST_F(CaptionCtrlCreation, MakesTheBarThenHelpOkAndClose)
{
    ASSERT_EQ(4u, g_creations.size());
    EXPECT_EQ(L"CaptionCtrl32", g_creations[0].windowClass);
    EXPECT_EQ(HelpId, g_creations[1].id);
    EXPECT_EQ(OkId, g_creations[2].id);
    EXPECT_EQ(CloseId, g_creations[3].id);
}

TEST_F(CaptionCtrlCreation, Bar_IsAVisibleChildThatStartsAGroup)
{
    EXPECT_EQ(0x50020000u, g_creations.at(0).style);
    EXPECT_EQ(0u, g_creations.at(0).exStyle);
}

TEST_F(CaptionCtrlCreation, Bar_IsAsWideAsTheParentsClientArea)
{
    const RECT expected = {0, 0, 240, 26};
    EXPECT_TRUE(::EqualRect(&expected, &g_creations.at(0).place));
}

TEST_F(CaptionCtrlCreation, Bar_HasTheParentsTitle)
{
    EXPECT_EQ(L"Report", g_creations.at(0).text);
}

TEST_F(CaptionCtrlLongTitle, IsCutTo255Characters)
{
    EXPECT_EQ(std::wstring(255, L'x'), g_creations.at(0).text);
}

TEST_F(CaptionCtrlCreation, Bar_HasTheGivenIdentifier)
{
    EXPECT_EQ(BarId, g_creations.at(0).id);
}

TEST_F(CaptionCtrlCreation, Bar_IsOfTheLibrary)
{
    EXPECT_EQ(m_parent.Window(), g_creations.at(0).parent);
    EXPECT_EQ(Library(), g_creations.at(0).instance);
    EXPECT_EQ(&m_bar, g_creations.at(0).parameter);
}

TEST_F(CaptionCtrlCreation, Buttons_AreCentredVerticallyInTheirPlace)
{
    for (std::size_t button = 1; button < 4; ++button)
    {
        EXPECT_EQ(0x50000C00u, g_creations.at(button).style);
        EXPECT_EQ(0u, g_creations.at(button).exStyle);
        EXPECT_EQ(L"BUTTON", g_creations.at(button).windowClass);
    }
}

TEST_F(CaptionCtrlCreation, Buttons_AreTheBarsWithoutInstanceAndParameter)
{
    for (std::size_t button = 1; button < 4; ++button)
    {
        EXPECT_EQ(m_bar.GetHwnd(), g_creations.at(button).parent);
        EXPECT_EQ(nullptr, g_creations.at(button).instance);
        EXPECT_EQ(nullptr, g_creations.at(button).parameter);
    }
}

TEST_F(CaptionCtrlCreation, Help_IsAQuestionMark)
{
    EXPECT_EQ(L"?", Text(Button(m_bar, HelpId)));
}

TEST_F(CaptionCtrlCreation, Ok_IsCalledOk)
{
    EXPECT_EQ(L"OK", Text(Button(m_bar, OkId)));
}

TEST_F(CaptionCtrlCreation, Close_IsAnX)
{
    EXPECT_EQ(L"x", Text(Button(m_bar, CloseId)));
}

TEST_F(CaptionCtrl, Create_TranslatesOk)
{
    vantor::CTranslatorInstance::Ref().m_langFile[L"OK"] = L"Gut";
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    EXPECT_EQ(L"Gut", Text(Button(bar, OkId)));
}

TEST_F(CaptionCtrl, Create_DoesNotTranslateTheSignsOfHelpAndClose)
{
    vantor::CTranslatorInstance::Ref().m_langFile[L"?"] = L"help";
    vantor::CTranslatorInstance::Ref().m_langFile[L"x"] = L"close";
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    EXPECT_EQ(L"?", Text(Button(bar, HelpId)));
    EXPECT_EQ(L"x", Text(Button(bar, CloseId)));
}
