// What the thread's windows get during MsgSleep: repaints, and nothing else. The handlers cancel the sleep, so none of
// these depends on the clock.

#include "TestWindow.h"
#include "support/ImportPatch.h"

#include <gtest/gtest.h>

using namespace vantor;
using namespace threads_test;
using support::CImportPatch;

namespace
{
constexpr DWORD Long = 0xFFFFFFFE;

struct CRecord
{
    std::vector<UINT> translated;
    std::vector<UINT> filters;   // first and last of each PeekMessageW
    std::vector<UINT> flags;
    std::vector<HWND> windows;
    int waits = 0;
    CEvent* cancel = nullptr;
};
CRecord* g_record;

BOOL WINAPI RecordingPeek(MSG* message, HWND window, UINT first, UINT last, UINT flags)
{
    g_record->windows.push_back(window);
    g_record->filters.push_back(first);
    g_record->filters.push_back(last);
    g_record->flags.push_back(flags);
    return ::PeekMessageW(message, window, first, last, flags);
}

BOOL WINAPI RecordingTranslate(const MSG* message)
{
    g_record->translated.push_back(message->message);
    return ::TranslateMessage(message);
}

// The first wait is the system's; the second one ends the sleep.
DWORD WINAPI CancellingWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    if (++g_record->waits == 2)
        g_record->cancel->Set();
    return ::MsgWaitForMultipleObjectsEx(count, handles, milliseconds, wakeMask, flags);
}

class MsgSleepMessages : public ::testing::Test
{
protected:
    MsgSleepMessages()
    {
        support::UseOwnDesktop();
        g_record = &m_record;
    }

    // Sleeps until the queue has been handled once.
    void SleepOnce()
    {
        CEvent cancel;
        m_record.waits = 0;
        m_record.cancel = &cancel;
        const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &CancellingWait);
        const CImportPatch peeking(&::PeekMessageW, &RecordingPeek);
        const CImportPatch translating(&::TranslateMessage, &RecordingTranslate);
        EXPECT_THROW(MsgSleep(Long, cancel), CWinException);
        EXPECT_EQ(m_record.waits, 2);
    }

    CRecord m_record;
};
}   // namespace

TEST_F(MsgSleepMessages, ARepaint_IsPerformed)
{
    const CTestWindow window;
    window.Invalidate();

    SleepOnce();

    EXPECT_EQ(window.Count(WM_PAINT), 1);
    EXPECT_FALSE(window.IsRepaintDue());
}

TEST_F(MsgSleepMessages, ARepaintOfEachWindow_IsPerformed)
{
    const CTestWindow first;
    const CTestWindow second;
    first.Invalidate();
    second.Invalidate();

    SleepOnce();

    EXPECT_EQ(first.Count(WM_PAINT), 1);
    EXPECT_EQ(second.Count(WM_PAINT), 1);
}

TEST_F(MsgSleepMessages, ARepaintFromAnotherThread_Wakes)
{
    CTestWindow window;
    CEvent cancel;
    window.onMessage = [&cancel](const MSG&) { cancel.Set(); };
    const CHelperThread painter([&window] { window.Invalidate(); });

    EXPECT_THROW(MsgSleep(Long, cancel), CWinException);

    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_PAINT});
}

TEST_F(MsgSleepMessages, WithoutAnEvent_RepaintsArePerformedToo)
{
    CTestWindow window;
    window.Invalidate();

    MsgSleep(500);   // far more than the queue takes

    EXPECT_EQ(window.Count(WM_PAINT), 1);
}

TEST_F(MsgSleepMessages, KeysAndOtherMessages_AreDiscardedForGood)
{
    const CTestWindow window;
    for (const UINT message : {WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_CHAR, WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP,
                               WM_COMMAND, WM_TIMER, WM_USER, WM_APP, 0xC000})
        window.Post(message);
    window.Invalidate();

    SleepOnce();

    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_PAINT});
    EXPECT_TRUE(IsQueueEmpty());
    support::PumpMessages();
    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_PAINT});
}

TEST_F(MsgSleepMessages, AKeyPressedDuringTheSleep_IsNeverDelivered)
{
    const CTestWindow window;
    INPUT key = {};
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = 'A';
    ASSERT_EQ(::SendInput(1, &key, sizeof key), 1u);

    SleepOnce();

    support::PumpMessages();
    EXPECT_EQ(window.Count(WM_KEYDOWN), 0);
    EXPECT_EQ(window.Count(WM_CHAR), 0);
}

TEST_F(MsgSleepMessages, Timers_AreDiscarded)
{
    const CTestWindow window;
    ::SetTimer(window, 1, 10, nullptr);

    SleepOnce();

    EXPECT_EQ(window.Count(WM_TIMER), 0);
    ::KillTimer(window, 1);
}

TEST_F(MsgSleepMessages, Quit_IsDiscarded)
{
    const CTestWindow window;
    ::PostQuitMessage(0);

    SleepOnce();

    EXPECT_TRUE(IsQueueEmpty());
}

TEST_F(MsgSleepMessages, MessagesOfTheThread_AreDiscarded)
{
    const CTestWindow window;
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_APP, 0, 0);

    SleepOnce();

    EXPECT_TRUE(IsQueueEmpty());
}

TEST_F(MsgSleepMessages, OnlyRepaints_AreTranslated)
{
    const CTestWindow window;
    window.Post(WM_KEYDOWN, 'A');
    window.Post(WM_APP);
    window.Invalidate();

    SleepOnce();

    EXPECT_EQ(m_record.translated, std::vector<UINT>{WM_PAINT});
}

TEST_F(MsgSleepMessages, Peeks_AnyWindowAndAllMessagesAndRemoves)
{
    const CTestWindow window;
    window.Post(WM_APP);

    SleepOnce();

    EXPECT_EQ(m_record.windows, (std::vector<HWND>{nullptr, nullptr}));   // one message, and none any more
    EXPECT_EQ(m_record.filters, (std::vector<UINT>{0, 0, 0, 0}));
    EXPECT_EQ(m_record.flags, (std::vector<UINT>{PM_REMOVE, PM_REMOVE}));
}

TEST_F(MsgSleepMessages, EveryRepaint_DuringTheSleep_IsPerformed)
{
    constexpr int rounds = 100;
    CTestWindow window;
    CEvent painted;
    CEvent cancel;
    window.onMessage = [&painted](const MSG&) { painted.Set(); };
    int seen = 0;
    {
        const CHelperThread painter(
            [&]
            {
                for (; seen < rounds; ++seen)
                {
                    window.Invalidate();
                    if (::WaitForSingleObject(painted, Patience) != WAIT_OBJECT_0)
                        break;
                }
                cancel.Set();
            });
        EXPECT_THROW(MsgSleep(Long, cancel), CWinException);
    }

    EXPECT_EQ(seen, rounds);
    EXPECT_EQ(window.Count(WM_PAINT), rounds);
}

TEST_F(MsgSleepMessages, CancelledBefore_TheQueueIsLeftAlone)
{
    const CTestWindow window;
    window.Post(WM_APP);
    window.Invalidate();
    CEvent cancel;
    cancel.Set();

    EXPECT_THROW(MsgSleep(Long, cancel), CWinException);

    EXPECT_TRUE(window.Delivered().empty());
    support::PumpMessages();
    EXPECT_EQ(window.Delivered(), (std::vector<UINT>{WM_APP, WM_PAINT}));
}

TEST_F(MsgSleepMessages, Zero_LeavesTheQueueAlone)
{
    const CTestWindow window;
    window.Post(WM_APP);

    MsgSleep(0);

    support::PumpMessages();
    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_APP});
}
