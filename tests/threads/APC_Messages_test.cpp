// What the windows get while CAPC::Invoke waits. The wait is told once that there is input; its second call lets the
// worker end. Which kind of input wakes the real wait is in APC_Wake_test.cpp.

#include "TestWindow.h"
#include "support/ImportPatch.h"

#include <gtest/gtest.h>

#include <set>

using namespace vantor;
using namespace threads_test;
using support::CImportPatch;

namespace
{
// Everything that can be posted and is of interest: all of the table's messages, and their neighbours.
const std::vector<UINT> Posted = {0x0FF, 0x100, 0x101, 0x102, 0x103, 0x104,  0x105,  0x106,  0x107,
                                  0x111, 0x112, 0x113, 0x114, 0x200, 0x201,  0x202,  0x203,  0x204,
                                  0x205, 0x206, 0x207, 0x208, 0x209, 0x20A,  0x20B,  0x20C,  0x20D,
                                  0x3FF, 0x400, 0x401, 0x7FF, 0x800, 0x8000, 0xBFFF, 0xC000, 0xFFFF};

bool IsAllowed(UINT message, unsigned long mask)
{
    const auto has = [mask](unsigned long bit) { return (mask & bit) != 0; };
    if (message == 0x100 || message == 0x101 || message == 0x104 || message == 0x105)
        return has(0x01);
    if (message == 0x200)
        return has(0x02);
    if (message >= 0x201 && message <= 0x209)
        return has(0x04);
    if (message == 0x113)
        return has(0x10);
    return message >= 0x400 && has(0x08);
}

struct CPeekCall
{
    HWND window;
    UINT first;
    UINT last;
    UINT flags;
};

struct CScript
{
    int waits = 0;
    bool endsBeforeInput = false;   // the worker, before the wait says that there is input
    CSignal release;                // the worker waits for it
    std::vector<CPeekCall> peeks;
    std::vector<UINT> translated;
    std::function<void()> onForbiddenPaint;
    int exitCodeFailures = 0;
};
CScript* g_script;

DWORD WINAPI ScriptedWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD, DWORD)
{
    if (++g_script->waits == 1)
    {
        if (g_script->endsBeforeInput)
        {
            g_script->release.Set();
            ::WaitForSingleObject(handles[0], Patience);
        }
        return WAIT_OBJECT_0 + 1;
    }
    g_script->release.Set();
    return ::WaitForMultipleObjects(count, handles, FALSE, milliseconds);
}

BOOL WINAPI RecordingPeek(MSG* message, HWND window, UINT first, UINT last, UINT flags)
{
    g_script->peeks.push_back({window, first, last, flags});
    const BOOL found = ::PeekMessageW(message, window, first, last, flags);
    if (found && message->message == WM_PAINT && g_script->onForbiddenPaint)
    {
        const std::function<void()> once = g_script->onForbiddenPaint;
        g_script->onForbiddenPaint = nullptr;
        once();
    }
    return found;
}

BOOL WINAPI RecordingTranslate(const MSG* message)
{
    g_script->translated.push_back(message->message);
    return ::TranslateMessage(message);
}

BOOL WINAPI FailingOnceGetExitCode(HANDLE thread, DWORD* code)
{
    if (++g_script->exitCodeFailures == 1)
    {
        *code = 0;
        return FALSE;
    }
    return ::GetExitCodeThread(thread, code);
}

class ApcMessages : public ::testing::Test
{
protected:
    ApcMessages()
    {
        support::UseOwnDesktop();
        g_script = &m_script;
    }

    // One round: the queue is handled once.
    unsigned long Invoke(unsigned long mask, unsigned long result = 0)
    {
        m_script.waits = 0;
        m_script.release.Reset();
        CWork call(mask, [this, result] { return m_script.release.Wait() ? result : ~0ul; });
        const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
        const CImportPatch peeking(&::PeekMessageW, &RecordingPeek);
        const CImportPatch translating(&::TranslateMessage, &RecordingTranslate);
        return call.Invoke();
    }

    CScript m_script;
};

// A timer that has run out; its message waits to be asked for.
class CDueTimer
{
public:
    explicit CDueTimer(HWND window) : m_window(window)
    {
        ::SetTimer(window, 1, 10, nullptr);
        EXPECT_EQ(::MsgWaitForMultipleObjectsEx(0, nullptr, Patience, QS_TIMER, MWMO_INPUTAVAILABLE),
                  static_cast<DWORD>(WAIT_OBJECT_0));
    }
    CDueTimer(const CDueTimer&) = delete;
    CDueTimer& operator=(const CDueTimer&) = delete;
    ~CDueTimer() { ::KillTimer(m_window, 1); }

private:
    HWND m_window;
};
}   // namespace

TEST_F(ApcMessages, EveryMaskWithEveryMessage_DeliversWhatTheTableAllows)
{
    CTestWindow window;
    for (unsigned long mask = 0; mask < 64; ++mask)
    {
        SCOPED_TRACE(mask);
        for (const UINT message : Posted)
            window.Post(message);
        std::vector<UINT> expected;
        std::copy_if(Posted.begin(), Posted.end(), std::back_inserter(expected),
                     [mask](UINT message) { return IsAllowed(message, mask); });

        Invoke(mask);

        EXPECT_EQ(window.Delivered(), expected);
        window.Forget();
    }
}

TEST_F(ApcMessages, WhatIsNotAllowed_IsNotDeliveredLaterEither)
{
    const CTestWindow window;
    for (const UINT message : Posted)
        window.Post(message);

    Invoke(QS_PAINT);

    EXPECT_TRUE(IsQueueEmpty());
    support::PumpMessages();
    EXPECT_TRUE(window.Delivered().empty());
}

TEST_F(ApcMessages, Delivered_WithTheirParameters)
{
    CTestWindow window;
    MSG seen = {};
    window.onMessage = [&seen](const MSG& message) { seen = message; };
    window.Post(WM_APP + 5, 0x12345678, -9);

    Invoke(QS_POSTMESSAGE);

    EXPECT_EQ(seen.message, static_cast<UINT>(WM_APP + 5));
    EXPECT_EQ(seen.wParam, 0x12345678u);
    EXPECT_EQ(seen.lParam, -9);
}

TEST_F(ApcMessages, Peeks_AnyWindowAndAllMessagesAndRemoves)
{
    const CTestWindow window;
    window.Post(WM_APP);

    Invoke(QS_POSTMESSAGE);

    ASSERT_EQ(m_script.peeks.size(), 2u);   // one message, and none any more
    for (const CPeekCall& call : m_script.peeks)
    {
        EXPECT_EQ(call.window, nullptr);
        EXPECT_EQ(call.first, 0u);
        EXPECT_EQ(call.last, 0u);
        EXPECT_EQ(call.flags, static_cast<UINT>(PM_REMOVE));
    }
}

TEST_F(ApcMessages, OnlyWhatIsAllowed_IsTranslated)
{
    const CTestWindow window;
    window.Post(WM_APP);
    window.Post(WM_LBUTTONDOWN);
    window.Post(WM_KEYUP, VK_SHIFT);

    Invoke(QS_KEY | QS_POSTMESSAGE);

    EXPECT_EQ(m_script.translated, (std::vector<UINT>{WM_APP, WM_KEYUP}));
}

TEST_F(ApcMessages, CharactersOfAnAllowedKey_AreDiscarded)
{
    const CTestWindow window;
    window.Post(WM_KEYDOWN, 'A', 0x001E0001);

    Invoke(QS_KEY);

    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_KEYDOWN});
    support::PumpMessages();
    EXPECT_EQ(window.Count(WM_CHAR), 0);
}

TEST_F(ApcMessages, SeveralWindows_AreAllServed)
{
    const CTestWindow first;
    const CTestWindow second;
    first.Post(WM_APP);
    second.Post(WM_APP);

    Invoke(QS_POSTMESSAGE);

    EXPECT_EQ(first.Count(WM_APP), 1);
    EXPECT_EQ(second.Count(WM_APP), 1);
}

TEST_F(ApcMessages, WhatAHandlerPosts_IsHandledToo)
{
    CTestWindow window;
    window.onMessage = [&window](const MSG& message)
    {
        if (message.message == WM_APP)
        {
            window.Post(WM_APP + 1);
            window.Post(WM_KEYDOWN);
        }
    };
    window.Post(WM_APP);

    Invoke(QS_POSTMESSAGE);

    EXPECT_EQ(window.Delivered(), (std::vector<UINT>{WM_APP, WM_APP + 1}));
    EXPECT_TRUE(IsQueueEmpty());
}

TEST_F(ApcMessages, MessagesOfTheThread_AreRemoved)
{
    const CTestWindow window;
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_APP, 0, 0);

    Invoke(QS_PAINT);

    EXPECT_TRUE(IsQueueEmpty());
}

TEST_F(ApcMessages, Quit_IsDiscarded)
{
    const CTestWindow window;
    ::PostQuitMessage(3);

    EXPECT_EQ(Invoke(QS_PAINT | QS_POSTMESSAGE, 7), 7u);

    EXPECT_TRUE(IsQueueEmpty());
}

TEST_F(ApcMessages, ATimer_IsDeliveredIfAllowed)
{
    const CTestWindow window;
    const CDueTimer timer(window);

    Invoke(QS_TIMER);

    EXPECT_GE(window.Count(WM_TIMER), 1);
}

TEST_F(ApcMessages, ATimer_IsDiscardedIfNot)
{
    const CTestWindow window;
    const CDueTimer timer(window);

    Invoke(0x3F & ~QS_TIMER);

    EXPECT_EQ(window.Count(WM_TIMER), 0);
}

TEST_F(ApcMessages, ARepaint_IsPerformedIfAllowed)
{
    const CTestWindow window;
    window.Invalidate();

    Invoke(QS_PAINT);

    EXPECT_EQ(window.Delivered(), std::vector<UINT>{WM_PAINT});
    EXPECT_FALSE(window.IsRepaintDue());
}

TEST_F(ApcMessages, AForbiddenRepaint_StaysDueUntilAfterwards)
{
    const CTestWindow window;
    window.Invalidate();

    Invoke(0x3F & ~QS_PAINT);

    EXPECT_EQ(window.Count(WM_PAINT), 0);
    EXPECT_TRUE(window.IsRepaintDue());
    support::PumpMessages();
    EXPECT_EQ(window.Count(WM_PAINT), 1);
}

TEST_F(ApcMessages, AForbiddenRepaint_DoesNotSpin)
{
    const CTestWindow first;
    const CTestWindow second;
    first.Invalidate();
    second.Invalidate();

    Invoke(QS_POSTMESSAGE);

    EXPECT_EQ(m_script.waits, 2);
    EXPECT_LE(m_script.peeks.size(), 10u);
}

TEST_F(ApcMessages, BehindAForbiddenRepaint_TheQueueIsEmptiedByTheSameRules)
{
    const CTestWindow window;
    window.Invalidate();
    m_script.onForbiddenPaint = [&window]
    {
        window.Post(WM_KEYDOWN, 'A');
        window.Post(WM_APP);
        window.Post(WM_NULL);
        ::PostQuitMessage(0);
        window.Post(WM_APP + 1);
    };

    Invoke(QS_POSTMESSAGE);

    EXPECT_EQ(window.Delivered(), (std::vector<UINT>{WM_APP, WM_APP + 1}));
    ::ValidateRect(window, nullptr);
    EXPECT_TRUE(IsQueueEmpty());
}

TEST_F(ApcMessages, BehindAForbiddenRepaint_EveryOtherMessageIsAskedFor)
{
    const CTestWindow window;
    window.Invalidate();

    Invoke(QS_POSTMESSAGE);

    ASSERT_EQ(m_script.peeks.size(), 3u);
    EXPECT_EQ(m_script.peeks[1].first, 0u);
    EXPECT_EQ(m_script.peeks[1].last, static_cast<UINT>(WM_PAINT - 1));
    EXPECT_EQ(m_script.peeks[2].first, static_cast<UINT>(WM_PAINT + 1));
    EXPECT_EQ(m_script.peeks[2].last, 0xFFFFFFFFu);
    for (const CPeekCall& call : m_script.peeks)
        EXPECT_EQ(call.flags, static_cast<UINT>(PM_REMOVE));
}

TEST_F(ApcMessages, BehindAForbiddenRepaint_TimersAreHandledByTheSameRules)
{
    const CTestWindow window;
    const CDueTimer timer(window);
    window.Invalidate();

    Invoke(QS_POSTMESSAGE);
    EXPECT_EQ(window.Count(WM_TIMER), 0);

    const CDueTimer again(window);
    Invoke(QS_TIMER);
    EXPECT_GE(window.Count(WM_TIMER), 1);
    EXPECT_EQ(window.Count(WM_PAINT), 0);
}

TEST_F(ApcMessages, InputWhenTheWorkerHasEnded_IsLeftInTheQueue)
{
    CTestWindow window;
    window.Post(WM_APP);
    m_script.endsBeforeInput = true;

    EXPECT_EQ(Invoke(QS_POSTMESSAGE, 8), 8u);

    EXPECT_EQ(m_script.waits, 1);
    EXPECT_TRUE(m_script.peeks.empty());
    support::PumpMessages();
    EXPECT_EQ(window.Count(WM_APP), 1);
}

TEST_F(ApcMessages, InputWhenTheWorkerHasEndedWith259_IsHandled)
{
    const CTestWindow window;
    window.Post(WM_APP);
    m_script.endsBeforeInput = true;

    EXPECT_EQ(Invoke(QS_POSTMESSAGE, 259), 259u);

    EXPECT_EQ(m_script.waits, 2);
    EXPECT_EQ(window.Count(WM_APP), 1);
}

TEST_F(ApcMessages, InputWhenTheExitCodeCannotBeRead_IsHandled)
{
    const CTestWindow window;
    window.Post(WM_APP);
    m_script.endsBeforeInput = true;
    const CImportPatch patch(&::GetExitCodeThread, &FailingOnceGetExitCode);

    EXPECT_EQ(Invoke(QS_POSTMESSAGE, 4), 4u);

    EXPECT_EQ(m_script.waits, 2);
    EXPECT_EQ(window.Count(WM_APP), 1);
}
