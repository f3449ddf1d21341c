// A cursor for the time of a scope.

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

#include <vantor/Window.h>

#include <gtest/gtest.h>

#include <thread>

using namespace vantor;
using support::CImportPatch;

namespace
{
HINSTANCE g_module = nullptr;
const wchar_t* g_name = nullptr;
HCURSOR g_loaded = nullptr;

HCURSOR WINAPI RecordingLoadCursor(HINSTANCE module, const wchar_t* name)
{
    g_module = module;
    g_name = name;
    return g_loaded;
}

class WaitCursor : public ::testing::Test
{
protected:
    WaitCursor()
    {
        support::UseOwnDesktop();
        m_arrow = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));   // IDC_ARROW
        m_cross = ::LoadCursorW(nullptr, CrossName);
        m_wait = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32514));   // IDC_WAIT
        ::SetCursor(m_arrow);
    }

    const wchar_t* const CrossName = MAKEINTRESOURCEW(32515);   // IDC_CROSS
    HCURSOR m_arrow;
    HCURSOR m_cross;
    HCURSOR m_wait;
};
}   // namespace

TEST_F(WaitCursor, Default_ShowsTheSystemsWaitCursor)
{
    const CWaitCursor cursor;
    EXPECT_EQ(m_wait, ::GetCursor());
}

TEST_F(WaitCursor, End_ShowsThePreviousCursor)
{
    {
        const CWaitCursor cursor;
    }
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, WithAName_ShowsThatCursor)
{
    const CWaitCursor cursor(nullptr, CrossName);
    EXPECT_EQ(m_cross, ::GetCursor());
}

TEST_F(WaitCursor, WithAModule_LoadsTheCursorFromIt)
{
    g_loaded = m_cross;
    const CImportPatch patch(&::LoadCursorW, &RecordingLoadCursor);
    const HINSTANCE module = ::GetModuleHandleW(nullptr);
    const CWaitCursor cursor(module, L"busy");
    EXPECT_EQ(module, g_module);
    EXPECT_STREQ(L"busy", g_name);
    EXPECT_EQ(m_cross, ::GetCursor());
}

TEST_F(WaitCursor, WithAModuleAndNoName_StillLoads)
{
    g_loaded = m_cross;
    const CImportPatch patch(&::LoadCursorW, &RecordingLoadCursor);
    const CWaitCursor cursor(::GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(nullptr, g_name);
    EXPECT_EQ(m_cross, ::GetCursor());
}

TEST_F(WaitCursor, TwoNulls_HideTheCursor)
{
    const CWaitCursor cursor(nullptr, nullptr);
    EXPECT_EQ(nullptr, ::GetCursor());
}

TEST_F(WaitCursor, TwoNulls_AtTheirEnd_ShowThePreviousCursor)
{
    {
        const CWaitCursor cursor(nullptr, nullptr);
    }
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, WithoutAPreviousCursor_HidesItAgain)
{
    ::SetCursor(nullptr);
    {
        const CWaitCursor cursor;
    }
    EXPECT_EQ(nullptr, ::GetCursor());
}

TEST_F(WaitCursor, Restore_ShowsThePreviousCursorEarly)
{
    CWaitCursor cursor;
    cursor.Restore();
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, Restore_ASecondTime_ShowsItAgain)
{
    CWaitCursor cursor;
    cursor.Restore();
    ::SetCursor(m_cross);
    cursor.Restore();
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, End_AfterRestore_RestoresOnceMore)
{
    {
        CWaitCursor cursor;
        cursor.Restore();
        ::SetCursor(m_cross);
    }
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, Nested_EachRestoresItsOwn)
{
    const CWaitCursor outer;
    {
        const CWaitCursor inner(nullptr, nullptr);
    }
    EXPECT_EQ(m_wait, ::GetCursor());
}

TEST_F(WaitCursor, Copy_ChangesNoCursor)
{
    const CWaitCursor cursor;
    ::SetCursor(m_cross);
    const CWaitCursor copy(cursor);
    EXPECT_EQ(m_cross, ::GetCursor());
}

TEST_F(WaitCursor, Copy_RestoresTheSameCursor)
{
    const CWaitCursor cursor;
    {
        const CWaitCursor copy(cursor);
    }
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, Assigned_RestoresTheSameCursor)
{
    const CWaitCursor cursor;   // over the arrow
    {
        CWaitCursor other(nullptr, nullptr);   // over the wait cursor
        other = cursor;
    }
    EXPECT_EQ(m_arrow, ::GetCursor());
}

TEST_F(WaitCursor, OnAnotherThread_LeavesThisThreadsCursor)
{
    HCURSOR there = nullptr;
    std::thread(
        [this, &there]
        {
            const CWaitCursor cursor;
            there = ::GetCursor();
        })
        .join();
    EXPECT_EQ(m_wait, there);
    EXPECT_EQ(m_arrow, ::GetCursor());
}
