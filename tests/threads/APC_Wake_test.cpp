// What wakes CAPC::Invoke while its worker runs. The worker acts, and ends when the window has seen it.

#include "TestWindow.h"
#include "support/ImportPatch.h"

#include <gtest/gtest.h>

using namespace vantor;
using namespace threads_test;
using support::CImportPatch;

namespace
{
constexpr unsigned long Seen = 1;   // the worker's result

struct CRecord
{
    int waits = 0;
    int peeks = 0;
    DWORD secondAnswer = 0;
    std::function<void()> beforeSecond;
    CSignal release;
};
CRecord* g_record;

DWORD WINAPI CountingWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    ++g_record->waits;
    return ::MsgWaitForMultipleObjectsEx(count, handles, milliseconds, wakeMask, flags);
}

// The second wait is first asked whether it would end at once; after that the worker may end.
DWORD WINAPI ProbingWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    if (++g_record->waits == 2)
    {
        g_record->secondAnswer = ::MsgWaitForMultipleObjectsEx(count, handles, 0, wakeMask, flags);
        g_record->release.Set();
    }
    return ::MsgWaitForMultipleObjectsEx(count, handles, milliseconds, wakeMask, flags);
}

BOOL WINAPI CountingPeek(MSG* message, HWND window, UINT first, UINT last, UINT flags)
{
    ++g_record->peeks;
    return ::PeekMessageW(message, window, first, last, flags);
}

class ApcWake : public ::testing::Test
{
protected:
    ApcWake()
    {
        support::UseOwnDesktop();
        g_record = &m_record;
    }

    // Whether the window gets the message that the worker's action causes, while the worker waits for that.
    static bool IsDelivered(CTestWindow& window, unsigned long mask, UINT message, const std::function<void()>& action)
    {
        CSignal seen;
        window.onMessage = [&seen, message](const MSG& delivered)
        {
            if (delivered.message == message)
                seen.Set();
        };
        CWork call(mask,
                   [&seen, &action]
                   {
                       action();
                       return seen.Wait() ? Seen : 0;
                   });
        const bool delivered = call.Invoke() == Seen;
        window.onMessage = nullptr;
        return delivered;
    }

    // As if by the user, on this thread's desktop; the worker is on another.
    static void Key(WORD key)
    {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        ::SendInput(1, &input, sizeof input);
    }
    static void PressMouse()
    {
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
        ::SendInput(1, &input, sizeof input);
    }

    CRecord m_record;
};
}   // namespace

TEST_F(ApcWake, APostedMessage_Wakes)
{
    CTestWindow window;

    EXPECT_TRUE(IsDelivered(window, QS_POSTMESSAGE, WM_USER, [&window] { window.Post(WM_USER); }));
}

TEST_F(ApcWake, ARepaint_Wakes)
{
    CTestWindow window;

    EXPECT_TRUE(IsDelivered(window, QS_PAINT, WM_PAINT, [&window] { window.Invalidate(); }));
}

TEST_F(ApcWake, ATimer_Wakes)
{
    CTestWindow window;
    ::SetTimer(window, 1, 10, nullptr);

    EXPECT_TRUE(IsDelivered(window, QS_TIMER, WM_TIMER, [] {}));
    ::KillTimer(window, 1);
}

TEST_F(ApcWake, AKey_Wakes)
{
    CTestWindow window;
    const HDESK desktop = ::GetThreadDesktop(::GetCurrentThreadId());

    EXPECT_TRUE(IsDelivered(window, QS_KEY, WM_KEYDOWN,
                            [desktop]
                            {
                                ::SetThreadDesktop(desktop);
                                Key('A');
                            }));
}

TEST_F(ApcWake, AMouseMove_Wakes)
{
    CTestWindow window;
    const HDESK desktop = ::GetThreadDesktop(::GetCurrentThreadId());

    EXPECT_TRUE(IsDelivered(window, QS_MOUSEMOVE, WM_MOUSEMOVE,
                            [desktop]
                            {
                                ::SetThreadDesktop(desktop);
                                ::SetCursorPos(50, 50);
                            }));
}

TEST_F(ApcWake, AMouseButton_Wakes)
{
    CTestWindow window;
    const HDESK desktop = ::GetThreadDesktop(::GetCurrentThreadId());

    EXPECT_TRUE(IsDelivered(window, QS_MOUSEBUTTON, WM_LBUTTONDOWN,
                            [desktop]
                            {
                                ::SetThreadDesktop(desktop);
                                PressMouse();
                            }));
}

TEST_F(ApcWake, EveryRepaint_WhileTheWorkerRuns_IsPerformed)
{
    constexpr int rounds = 100;
    CTestWindow window;
    CEvent painted;
    window.onMessage = [&painted](const MSG&) { painted.Set(); };
    CWork call(QS_PAINT,
               [&window, &painted]
               {
                   for (int i = 0; i < rounds; ++i)
                   {
                       window.Invalidate();
                       if (::WaitForSingleObject(painted, Patience) != WAIT_OBJECT_0)
                           return 0ul;
                   }
                   return Seen;
               });

    EXPECT_EQ(call.Invoke(), Seen);
    EXPECT_EQ(window.Count(WM_PAINT), rounds);
}

TEST_F(ApcWake, WithAForbiddenRepaintDue_TheWaitWaits)
{
    CTestWindow window;
    window.Invalidate();
    window.Post(WM_APP);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ProbingWait);
    const CImportPatch peeking(&::PeekMessageW, &CountingPeek);
    CWork call(QS_POSTMESSAGE, [this] { return m_record.release.Wait() ? Seen : 0; });

    EXPECT_EQ(call.Invoke(), Seen);

    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_APP});
    EXPECT_EQ(m_record.secondAnswer, static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(m_record.waits, 2);
    EXPECT_LE(m_record.peeks, 10);
    EXPECT_TRUE(window.IsRepaintDue());
}

TEST_F(ApcWake, WithAForbiddenRepaintDue_LaterMessagesWakeAllTheSame)
{
    CTestWindow window;
    window.Invalidate();
    window.Post(WM_APP);   // makes Invoke meet the repaint
    CEvent next;
    window.onMessage = [&next](const MSG&) { next.Set(); };
    CWork call(QS_POSTMESSAGE,
               [&window, &next]
               {
                   for (int i = 0; i < 20; ++i)
                   {
                       if (::WaitForSingleObject(next, Patience) != WAIT_OBJECT_0)
                           return 0ul;
                       window.Post(WM_APP);
                   }
                   return ::WaitForSingleObject(next, Patience) == WAIT_OBJECT_0 ? Seen : 0ul;
               });

    EXPECT_EQ(call.Invoke(), Seen);
    EXPECT_EQ(window.Count(WM_APP), 21);
    EXPECT_EQ(window.Count(WM_PAINT), 0);
}

TEST_F(ApcWake, Mask0_WaitsForTheEndAndDispatchesNothing)
{
    CTestWindow window;
    window.Invalidate();
    window.Post(WM_KEYDOWN, 'A');
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &CountingWait);
    const CImportPatch peeking(&::PeekMessageW, &CountingPeek);
    CWork call(0,
               [&window]
               {
                   window.Post(WM_APP);
                   window.Post(WM_LBUTTONDOWN);
                   return Seen;
               });

    EXPECT_EQ(call.Invoke(), Seen);

    EXPECT_TRUE(window.Delivered().empty());
    EXPECT_EQ(m_record.waits, 1);
    EXPECT_EQ(m_record.peeks, 0);
}
