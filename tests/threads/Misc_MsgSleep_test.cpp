// MsgSleep: time, cancellation, failures. What the windows get meanwhile is in Misc_MsgSleep_Messages_test.cpp.

#include "Workers.h"
#include "os/Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

using namespace vantor;
using namespace threads_test;
using support::CImportPatch;
using support::CResources;

namespace
{
struct CWaitCall
{
    DWORD count;
    HANDLE h;
    DWORD milliseconds;
    DWORD wakeMask;
    DWORD flags;
};

struct CEventCall
{
    SECURITY_ATTRIBUTES* sa;
    BOOL manualReset;
    BOOL initialState;
    const wchar_t* name;
    HANDLE h;
};

struct CRecord
{
    std::vector<DWORD> ticks;     // the answers of GetTickCount; the last one stays
    std::vector<DWORD> answers;   // of the waits; the last one stays
    std::size_t ticksRead = 0;
    std::vector<CWaitCall> waits;
    std::vector<CEventCall> events;
    CSignal waiting;
};
CRecord* g_record;
std::atomic<int> g_calls;   // of the system, by a thread that spins

template <class Value>
Value At(const std::vector<Value>& values, std::size_t index)
{
    return index < values.size() ? values[index] : values.back();
}

DWORD WINAPI ScriptedTicks()
{
    return At(g_record->ticks, g_record->ticksRead++);
}

DWORD WINAPI ScriptedWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    g_record->waits.push_back({count, handles[0], milliseconds, wakeMask, flags});
    ::SetLastError(0xDEADBEEF);
    return At(g_record->answers, g_record->waits.size() - 1);
}

DWORD WINAPI AnnouncingWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    g_record->waiting.Set();
    return ::MsgWaitForMultipleObjectsEx(count, handles, milliseconds, wakeMask, flags);
}

HANDLE WINAPI RecordingCreateEvent(SECURITY_ATTRIBUTES* sa, BOOL manualReset, BOOL initialState, const wchar_t* name)
{
    const HANDLE h = ::CreateEventW(sa, manualReset, initialState, name);
    g_record->events.push_back({sa, manualReset, initialState, name, h});
    return h;
}

HANDLE WINAPI FailingCreateEvent(SECURITY_ATTRIBUTES*, BOOL, BOOL, const wchar_t*)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

DWORD WINAPI CountingTicks()
{
    ++g_calls;
    return ::GetTickCount();
}

DWORD WINAPI CountingWait(DWORD, const HANDLE*, DWORD, DWORD, DWORD)
{
    ++g_calls;
    return WAIT_TIMEOUT;
}

BOOL WINAPI CountingPeek(MSG*, HWND, UINT, UINT, UINT)
{
    ++g_calls;
    return FALSE;
}

struct CSleeper
{
    CSignal started;
    CEvent cancel;
};

unsigned long WINAPI SleepForEver(void* sleeper) noexcept
{
    CSleeper& self = *static_cast<CSleeper*>(sleeper);
    self.started.Set();
    MsgSleep(INFINITE, self.cancel);
    return 0;
}

unsigned long WINAPI SleepForEverAlone(void* sleeper) noexcept
{
    static_cast<CSleeper*>(sleeper)->started.Set();
    MsgSleep(INFINITE);
    return 0;
}

class MsgSleepTime : public ::testing::Test
{
protected:
    MsgSleepTime()
    {
        g_record = &m_record;
        g_calls = 0;
    }

    // The time-outs of the waits, with these answers of the clock; all waits but the last end by input.
    std::vector<DWORD> TimeOuts(DWORD ms, std::vector<DWORD> ticks)
    {
        m_record.ticks = std::move(ticks);
        m_record.answers = {WAIT_OBJECT_0 + 1};
        {
            const CImportPatch clock(&::GetTickCount, &ScriptedTicks);
            const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
            CEvent cancel;
            MsgSleep(ms, cancel);
        }
        std::vector<DWORD> timeOuts;
        for (const CWaitCall& wait : m_record.waits)
            timeOuts.push_back(wait.milliseconds);
        return timeOuts;
    }

    // The thread neither ends nor calls the system, for as long as it is watched; then it is stopped.
    static void ExpectSpinning(unsigned long(WINAPI* sleep)(void*), CSleeper& sleeper)
    {
        const CImportPatch clock(&::GetTickCount, &CountingTicks);
        const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &CountingWait);
        const CImportPatch peeking(&::PeekMessageW, &CountingPeek);
        CThread thread;
        thread.Create(sleep, &sleeper);
        ASSERT_TRUE(sleeper.started.Wait());

        EXPECT_EQ(::WaitForSingleObject(thread, 200), static_cast<DWORD>(WAIT_TIMEOUT));
        EXPECT_LE(g_calls, 1);   // the start's time
        thread.Terminate(0);
        EXPECT_EQ(::WaitForSingleObject(thread, Patience), static_cast<DWORD>(WAIT_OBJECT_0));
    }

    CRecord m_record;
};
}   // namespace

TEST_F(MsgSleepTime, Zero_ReturnsWithoutWaiting)
{
    const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    CEvent cancel;

    MsgSleep(0);
    MsgSleep(0, cancel);

    EXPECT_TRUE(m_record.waits.empty());
}

TEST_F(MsgSleepTime, Zero_DoesNotLookAtTheEvent)
{
    CEvent cancel;
    cancel.Set();

    EXPECT_NO_THROW(MsgSleep(0, cancel));

    EXPECT_TRUE(os_test::IsSignalled(cancel));
}

TEST_F(MsgSleepTime, ReturnsWhenTheTimeHasPassed)
{
    CEvent cancel;

    EXPECT_NO_THROW(MsgSleep(30, cancel));
    EXPECT_NO_THROW(MsgSleep(30));
}

TEST_F(MsgSleepTime, WaitsForTheEventAndAnyInput)
{
    const CImportPatch clock(&::GetTickCount, &ScriptedTicks);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    m_record.ticks = {1000};
    m_record.answers = {WAIT_TIMEOUT};
    CEvent cancel;

    MsgSleep(500, cancel);

    ASSERT_EQ(m_record.waits.size(), 1u);
    EXPECT_EQ(m_record.waits[0].count, 1u);
    EXPECT_EQ(m_record.waits[0].h, static_cast<HANDLE>(cancel));
    EXPECT_EQ(m_record.waits[0].milliseconds, 500u);
    EXPECT_EQ(m_record.waits[0].wakeMask, 0x3Fu);
    EXPECT_EQ(m_record.waits[0].flags, 0u);
}

TEST_F(MsgSleepTime, AWaitThatTimesOut_EndsIt_WhateverTheClockSays)
{
    const CImportPatch clock(&::GetTickCount, &ScriptedTicks);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    m_record.ticks = {1000};
    m_record.answers = {WAIT_OBJECT_0 + 1, WAIT_TIMEOUT};
    CEvent cancel;

    MsgSleep(500, cancel);

    EXPECT_EQ(m_record.waits.size(), 2u);
}

TEST_F(MsgSleepTime, AfterInput_TheRemainingTimeIsWaited)
{
    EXPECT_EQ(TimeOuts(100, {5000, 5000, 5030, 5099, 5100}), (std::vector<DWORD>{100, 70, 1}));
}

TEST_F(MsgSleepTime, TimeThatPassedBeforeTheFirstWait_Counts)
{
    EXPECT_EQ(TimeOuts(100, {5000, 5016, 5100}), (std::vector<DWORD>{84}));
}

TEST_F(MsgSleepTime, TimeThatPassedAltogetherBeforeTheFirstWait_LeavesNoWait)
{
    EXPECT_EQ(TimeOuts(100, {5000, 5100}), std::vector<DWORD>());
}

TEST_F(MsgSleepTime, MoreTimeThanAsked_EndsIt)
{
    EXPECT_EQ(TimeOuts(100, {5000, 5050, 6000}), (std::vector<DWORD>{50}));
}

TEST_F(MsgSleepTime, AClockThatWraps_IsHarmless)
{
    EXPECT_EQ(TimeOuts(100, {0xFFFFFFF0, 0xFFFFFFF0, 0xFFFFFFFF, 0, 0x10, 0x53, 0x54}),
              (std::vector<DWORD>{100, 85, 84, 68, 1}));
}

TEST_F(MsgSleepTime, AClockThatStandsAtItsEnd_IsHarmless)
{
    EXPECT_EQ(TimeOuts(1, {0xFFFFFFFF, 0xFFFFFFFF, 0}), (std::vector<DWORD>{1}));
}

TEST_F(MsgSleepTime, TheLongestFiniteTime_IsWaited)
{
    EXPECT_EQ(TimeOuts(0xFFFFFFFE, {10, 10, 15, 8}), (std::vector<DWORD>{0xFFFFFFFE, 0xFFFFFFF9}));
}

TEST_F(MsgSleepTime, CancelledBefore_Throws)
{
    CEvent cancel;
    cancel.Set();

    EXPECT_FAILURE(68, L".\\Misc", L"vantor::MsgSleep", ERROR_CANCELLED, MsgSleep(0xFFFFFFFE, cancel));
}

TEST_F(MsgSleepTime, CancelledDuring_Throws)
{
    const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &AnnouncingWait);
    CEvent cancel;
    const CHelperThread canceller(
        [this, &cancel]
        {
            m_record.waiting.Wait();
            cancel.Set();
        });

    EXPECT_FAILURE(68, L".\\Misc", L"vantor::MsgSleep", ERROR_CANCELLED, MsgSleep(0xFFFFFFFE, cancel));
}

TEST_F(MsgSleepTime, CancelledAfterwards_AffectsTheNextOne)
{
    CEvent cancel;
    MsgSleep(1, cancel);
    cancel.Set();

    EXPECT_FAILURE(68, L".\\Misc", L"vantor::MsgSleep", ERROR_CANCELLED, MsgSleep(0xFFFFFFFE, cancel));
}

TEST_F(MsgSleepTime, AnAutoResetEvent_IsConsumed)
{
    CEvent cancel;
    cancel.Set();
    EXPECT_THROW(MsgSleep(0xFFFFFFFE, cancel), CWinException);

    EXPECT_FALSE(os_test::IsSignalled(cancel));
}

TEST_F(MsgSleepTime, AManualResetEvent_StaysSet)
{
    CEvent cancel(nullptr, TRUE, TRUE, nullptr);
    EXPECT_THROW(MsgSleep(0xFFFFFFFE, cancel), CWinException);

    EXPECT_TRUE(os_test::IsSignalled(cancel));
}

TEST_F(MsgSleepTime, OnAClosedEvent_Throws)
{
    CEvent cancel;
    cancel.Close();

    EXPECT_FAILURE(87, L".\\Misc", L"WaitForMultipleObjects", ERROR_INVALID_HANDLE, MsgSleep(0xFFFFFFFE, cancel));
}

TEST_F(MsgSleepTime, OnFailure_ReportsTheSystemsCode)
{
    const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    m_record.answers = {WAIT_FAILED};
    CEvent cancel;

    EXPECT_FAILURE(87, L".\\Misc", L"WaitForMultipleObjects", 0xDEADBEEF, MsgSleep(0xFFFFFFFE, cancel));
    EXPECT_EQ(m_record.waits.size(), 1u);
}

TEST_F(MsgSleepTime, OnSomethingAbandoned_IsAnInternalError)
{
    CEvent cancel;
    cancel.Close();
    cancel.Attach(AbandonedMutex());

    EXPECT_FAILURE(89, L".\\Misc", L"WaitForMultipleObjects", ERROR_INTERNAL_ERROR, MsgSleep(0xFFFFFFFE, cancel));
    ::ReleaseMutex(cancel);
}

TEST_F(MsgSleepTime, AnsweredOutOfRange_IsAnInternalError)
{
    const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    CEvent cancel;
    for (const DWORD answer : {2u, 0x80u, 0x81u, 0xC0u, 0x103u, 0xFFFFFFFEu})
    {
        SCOPED_TRACE(answer);
        m_record.answers = {answer};

        EXPECT_FAILURE(89, L".\\Misc", L"WaitForMultipleObjects", ERROR_INTERNAL_ERROR, MsgSleep(0xFFFFFFFE, cancel));
    }
}

TEST_F(MsgSleepTime, WithoutAnEvent_WaitsForOneOfItsOwn)
{
    const CImportPatch creating(&::CreateEventW, &RecordingCreateEvent);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    m_record.answers = {WAIT_TIMEOUT};

    MsgSleep(0xFFFFFFFE);

    ASSERT_EQ(m_record.waits.size(), 1u);
    ASSERT_FALSE(m_record.events.empty());
    const CEventCall& event = m_record.events[0];
    EXPECT_EQ(m_record.waits[0].h, event.h);
    EXPECT_EQ(event.sa, nullptr);
    EXPECT_FALSE(event.manualReset);
    EXPECT_FALSE(event.initialState);
    EXPECT_EQ(event.name, nullptr);
}

TEST_F(MsgSleepTime, WithoutAnEvent_ClosesItsOwn)
{
    MsgSleep(1);
    (void)CResources();   // the first count allocates, too
    const std::size_t before = CResources().handles;

    for (int i = 0; i < 20; ++i)
        MsgSleep(1);

    EXPECT_EQ(before, CResources().handles);
}

TEST_F(MsgSleepTime, WithoutAnEvent_OnFailureToMakeOne_Throws)
{
    const CImportPatch creating(&::CreateEventW, &FailingCreateEvent);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);

    EXPECT_FAILURE(74, L".\\Object", L"CreateEventW", ERROR_NOT_ENOUGH_MEMORY, MsgSleep(1));
    EXPECT_TRUE(m_record.waits.empty());
}

TEST_F(MsgSleepTime, WithoutAnEvent_OnFailure_ThrowsAndClosesItsOwn)
{
    const CImportPatch creating(&::CreateEventW, &RecordingCreateEvent);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &ScriptedWait);
    m_record.answers = {WAIT_FAILED};

    EXPECT_FAILURE(87, L".\\Misc", L"WaitForMultipleObjects", 0xDEADBEEF, MsgSleep(0xFFFFFFFE));
    ASSERT_FALSE(m_record.events.empty());
    EXPECT_FALSE(os_test::IsOpen(m_record.events[0].h));
}

TEST_F(MsgSleepTime, Infinite_SpinsAndIgnoresTheEvent)
{
    CSleeper sleeper;
    sleeper.cancel.Set();

    ExpectSpinning(&SleepForEver, sleeper);

    EXPECT_TRUE(os_test::IsSignalled(sleeper.cancel));
}

TEST_F(MsgSleepTime, Infinite_WithoutAnEvent_Spins)
{
    CSleeper sleeper;

    ExpectSpinning(&SleepForEverAlone, sleeper);
}
