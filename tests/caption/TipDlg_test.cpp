// The notice for the time of some work.

#include "Tip.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

#include <memory>

using namespace bar;
using support::CImportPatch;
using vantor::CTipDlg;

namespace
{
constexpr UINT Measured = 0x411;   // DT_CALCRECT, DT_WORDBREAK and DT_CENTER
constexpr UINT Centred = 0x11;
constexpr UINT CentredWithEllipsis = 0x8011;

struct CDrawing
{
    std::wstring text;
    UINT format;
    RECT place;
    int result;
    HGDIOBJ font;
};

std::vector<CDrawing> g_drawings;

int WINAPI RecordingDrawText(HDC hdc, LPCWSTR text, int count, LPRECT place, UINT format)
{
    CDrawing drawing = {text, format, *place, 0, ::GetCurrentObject(hdc, OBJ_FONT)};
    drawing.result = ::DrawTextW(hdc, text, count, place, format);
    g_drawings.push_back(drawing);
    return drawing.result;
}

int g_paints = 0;

HDC WINAPI CountingBeginPaint(HWND hWnd, PAINTSTRUCT* paint)
{
    ++g_paints;
    return ::BeginPaint(hWnd, paint);
}

HGDIOBJ g_fontAtTheEnd = nullptr;

BOOL WINAPI RecordingEndPaint(HWND hWnd, const PAINTSTRUCT* paint)
{
    g_fontAtTheEnd = ::GetCurrentObject(paint->hdc, OBJ_FONT);
    return ::EndPaint(hWnd, paint);
}

std::vector<HWND> g_updated;

BOOL WINAPI RecordingUpdateWindow(HWND hWnd)
{
    g_updated.push_back(hWnd);
    return ::UpdateWindow(hWnd);
}

int g_created = 0;

HWND WINAPI CountingCreateDialog(HINSTANCE instance, const DLGTEMPLATE* dialog, HWND parent, DLGPROC procedure,
                                 LPARAM parameter)
{
    ++g_created;
    return ::CreateDialogIndirectParamW(instance, dialog, parent, procedure, parameter);
}

HWND WINAPI FailingCreateDialog(HINSTANCE, const DLGTEMPLATE*, HWND, DLGPROC, LPARAM)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

CTipDlg* g_modal = nullptr;

void CALLBACK CloseModal(HWND, UINT, UINT_PTR timer, DWORD)
{
    if (!g_modal->m_hWnd)
        return;
    ::KillTimer(nullptr, timer);
    ::PostMessageW(g_modal->m_hWnd, WM_CLOSE, 0, 0);
}

class TipDlg : public testing::Test
{
protected:
    TipDlg()
    {
        support::UseOwnDesktop();
        g_drawings.clear();
        g_updated.clear();
        g_paints = 0;
        g_created = 0;
    }
};

// What the tip asked DrawTextW for.
std::vector<CDrawing> Drawings(const wchar_t* text)
{
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    const CTipDlg tip(nullptr, text, false);
    return g_drawings;
}
}   // namespace

TEST_F(TipDlg, Shown_HasAWindow)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_TRUE(::IsWindow(tip.m_hWnd));
}

TEST_F(TipDlg, Shown_IsVisible)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_TRUE(::IsWindowVisible(tip.m_hWnd));
}

TEST_F(TipDlg, Shown_IsFoundByItsHandle)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_EQ(&tip, vantor::CWnd::FindInstance(tip.m_hWnd));
}

TEST_F(TipDlg, Shown_BelongsToTheParent)
{
    const CParent parent;
    const CTipDlg tip(parent.Window(), L"Please wait", false);
    EXPECT_EQ(parent.Window(), ::GetWindow(tip.m_hWnd, GW_OWNER));
}

TEST_F(TipDlg, Shown_LeavesTheParentEnabled)
{
    const CParent parent;
    const CTipDlg tip(parent.Window(), L"Please wait", false);
    EXPECT_TRUE(::IsWindowEnabled(parent.Window()));
}

TEST_F(TipDlg, Shown_IsInTheMiddleOfTheScreen)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    RECT place = {};
    ::GetWindowRect(tip.m_hWnd, &place);
    EXPECT_EQ((::GetSystemMetrics(SM_CXSCREEN) - (place.right - place.left)) / 2, place.left);
    EXPECT_EQ((::GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top)) / 2, place.top);
}

TEST_F(TipDlg, Shown_WhenTheDialogCannotBeMade_HasNoWindow)
{
    const CImportPatch patch(&::CreateDialogIndirectParamW, &FailingCreateDialog);
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_EQ(nullptr, tip.m_hWnd);
}

TEST_F(TipDlg, Shown_UpdatesTheParentItsAncestorsAndThenItself)
{
    const CParent grandparent;
    const CParent parent(100, L"", grandparent.Window());
    const CImportPatch patch(&::UpdateWindow, &RecordingUpdateWindow);
    const CTipDlg tip(parent.Window(), L"Please wait", false);
    EXPECT_EQ((std::vector<HWND>{parent.Window(), grandparent.Window(), tip.m_hWnd}), g_updated);
}

TEST_F(TipDlg, Shown_LeavesNothingToPaintInTheWindowsBehind)
{
    const CParent grandparent;
    const CParent parent(100, L"", grandparent.Window());
    ::InvalidateRect(grandparent.Window(), nullptr, TRUE);
    ::InvalidateRect(parent.Window(), nullptr, TRUE);
    const CTipDlg tip(parent.Window(), L"Please wait", false);
    EXPECT_FALSE(IsInvalid(grandparent.Window()));
    EXPECT_FALSE(IsInvalid(parent.Window()));
}

TEST_F(TipDlg, Shown_LeavesNothingToPaintInItself)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_FALSE(IsInvalid(tip.m_hWnd));
    EXPECT_FALSE(IsInvalid(TextControl(tip)));
}

TEST_F(TipDlg, Destructor_DestroysTheWindow)
{
    auto tip = std::make_unique<CTipDlg>(nullptr, L"Please wait", false);
    const HWND window = tip->m_hWnd;
    tip.reset();
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(TipDlg, Destructor_RemovesTheRegistration)
{
    auto tip = std::make_unique<CTipDlg>(nullptr, L"Please wait", false);
    const HWND window = tip->m_hWnd;
    tip.reset();
    EXPECT_EQ(nullptr, vantor::CWnd::FindInstance(window));
}

TEST_F(TipDlg, Deferred_MakesNoWindow)
{
    const CImportPatch patch(&::CreateDialogIndirectParamW, &CountingCreateDialog);
    const CTipDlg tip(nullptr, L"Please wait", true);
    EXPECT_EQ(nullptr, tip.m_hWnd);
    EXPECT_EQ(0, g_created);
}

TEST_F(TipDlg, Deferred_UpdatesNothing)
{
    const CParent parent;
    const CImportPatch patch(&::UpdateWindow, &RecordingUpdateWindow);
    const CTipDlg tip(parent.Window(), L"Please wait", true);
    EXPECT_TRUE(g_updated.empty());
}

TEST_F(TipDlg, Deferred_KeepsTheParent)
{
    const CParent parent;
    const CTipDlg tip(parent.Window(), L"Please wait", true);
    EXPECT_EQ(parent.Window(), tip.m_hWndParent);
}

TEST_F(TipDlg, Deferred_CreateMakesTheWindow)
{
    CTipDlg tip(nullptr, L"Please wait", true);
    EXPECT_TRUE(tip.Create());
    EXPECT_TRUE(::IsWindow(tip.m_hWnd));
}

TEST_F(TipDlg, Deferred_RunsAsAModalDialog)
{
    CTipDlg tip(nullptr, L"Please wait", true);
    g_modal = &tip;
    ::SetTimer(nullptr, 0, 10, &CloseModal);
    EXPECT_EQ(IDCANCEL, tip.DoModal());
}

TEST_F(TipDlg, Text_IsTheGivenOne)
{
    EXPECT_EQ(L"Please wait", Drawings(L"Please wait").at(0).text);
}

TEST_F(TipDlg, Text_Null_IsEmpty)
{
    EXPECT_EQ(L"", Drawings(nullptr).at(0).text);
}

TEST_F(TipDlg, Text_IsCopied)
{
    std::wstring text = L"before";
    CTipDlg tip(nullptr, text.c_str(), true);
    text = L"after!";
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    tip.Create();
    ::ShowWindow(tip.m_hWnd, SW_SHOW);
    ::UpdateWindow(tip.m_hWnd);
    EXPECT_EQ(L"before", g_drawings.at(0).text);
}

TEST_F(TipDlg, Text_ThatFits_IsMeasuredAndDrawnCentred)
{
    const std::vector<CDrawing> drawings = Drawings(L"Please wait");
    ASSERT_EQ(2u, drawings.size());
    EXPECT_EQ(Measured, drawings[0].format);
    EXPECT_EQ(Centred, drawings[1].format);
}

TEST_F(TipDlg, Text_IsMeasuredInTheWholeControl)
{
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    const CTipDlg tip(nullptr, L"Please wait", false);
    RECT control = {};
    ::GetWindowRect(TextControl(tip), &control);
    ::OffsetRect(&control, -control.left, -control.top);
    EXPECT_TRUE(::EqualRect(&control, &g_drawings.at(0).place));
}

TEST_F(TipDlg, Text_ThatFits_StandsInTheMiddleOfTheHeight)
{
    const std::vector<CDrawing> drawings = Drawings(L"one\ntwo");
    ASSERT_EQ(2u, drawings.size());
    const int height = drawings[0].place.bottom;
    const int needed = drawings[0].result;
    EXPECT_EQ((height - needed) / 2, drawings[1].place.top);
    EXPECT_EQ(height - (height - needed) / 2, drawings[1].place.bottom);
}

TEST_F(TipDlg, Text_TooLong_IsDrawnWithAnEllipsis)
{
    const std::vector<CDrawing> drawings = Drawings(LongText().c_str());
    ASSERT_EQ(2u, drawings.size());
    EXPECT_EQ(Measured, drawings[0].format);
    EXPECT_EQ(CentredWithEllipsis, drawings[1].format);
}

TEST_F(TipDlg, Text_TooLong_IsDrawnFromTheTop)
{
    EXPECT_EQ(0, Drawings(LongText().c_str()).at(1).place.top);
}

TEST_F(TipDlg, Text_HasTheControlsFont)
{
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    const CTipDlg tip(nullptr, L"Please wait", false);
    const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(TextControl(tip), WM_GETFONT, 0, 0));
    ASSERT_NE(nullptr, font);
    EXPECT_EQ(font, g_drawings.at(0).font);
    EXPECT_EQ(font, g_drawings.at(1).font);
}

TEST_F(TipDlg, Font_IsTheOldOneAtTheEnd)
{
    const CImportPatch patch(&::EndPaint, &RecordingEndPaint);
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_EQ(::GetStockObject(SYSTEM_FONT), g_fontAtTheEnd);
}

TEST_F(TipDlg, Paint_TakesTheDefaultPath)
{
    CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_FALSE(tip.OnDialogProc(tip.m_hWnd, WM_PAINT, 0, 0));
}

TEST_F(TipDlg, OtherMessages_TakeTheDefaultPath)
{
    CTipDlg tip(nullptr, L"Please wait", false);
    for (UINT msg = 0; msg < WM_USER; ++msg)
        EXPECT_FALSE(tip.OnDialogProc(tip.m_hWnd, msg, 0, 0)) << "message " << msg;
}

TEST_F(TipDlg, OtherMessages_PaintNothing)
{
    CTipDlg tip(nullptr, L"Please wait", false);
    const CImportPatch patch(&::BeginPaint, &CountingBeginPaint);
    for (UINT msg = 0; msg < WM_USER; ++msg)
    {
        if (msg != WM_PAINT)
            tip.OnDialogProc(tip.m_hWnd, msg, 0, 0);
    }
    EXPECT_EQ(0, g_paints);
}

TEST_F(TipDlg, PaintOfAnotherWindow_PaintsNothing)
{
    const CParent other;
    CTipDlg tip(nullptr, L"Please wait", false);
    const CImportPatch patch(&::BeginPaint, &CountingBeginPaint);
    tip.OnDialogProc(other.Window(), WM_PAINT, 0, 0);
    EXPECT_EQ(0, g_paints);
}

TEST_F(TipDlg, ThousandTips_LeaveNothingBehind)
{
    const auto run = [](int count)
    {
        for (int i = 0; i < count; ++i)
            const CTipDlg tip(nullptr, i % 2 == 0 ? L"Please wait" : L"", false);
        support::PumpMessages();
    };
    run(20);
    const support::CResources before;
    run(1000);
    EXPECT_EQ(before, support::CResources());
}
