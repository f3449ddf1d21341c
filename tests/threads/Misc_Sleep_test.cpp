// Sleep: a wait without messages that an event ends.

#include "TestWindow.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <gtest/gtest.h>

using namespace vantor;
using namespace threads_test;
using support::CImportPatch;

namespace
{
struct CRecord
{
    HANDLE event = nullptr;   // whose waits are meant
    DWORD answer = WAIT_TIMEOUT;
    int waits = 0;
    DWORD milliseconds = 0xDEADBEEF;
    CSignal waiting;
};
CRecord* g_record;

DWORD WINAPI AnsweringWait(HANDLE h, DWORD milliseconds)
{
    if (h != g_record->event)
        return ::WaitForSingleObject(h, milliseconds);
    ++g_record->waits;
    g_record->milliseconds = milliseconds;
    ::SetLastError(0xDEADBEEF);
    return g_record->answer;
}

// Says that it waits, then waits.
DWORD WINAPI AnnouncingWait(HANDLE h, DWORD milliseconds)
{
    if (h == g_record->event)
        g_record->waiting.Set();
    return ::WaitForSingleObject(h, milliseconds);
}

class Sleep : public ::testing::Test
{
protected:
    Sleep()
    {
        g_record = &m_record;
        m_record.event = m_cancel;
    }

    bool IsCancelSet() const { return ::WaitForSingleObject(m_cancel, 0) == WAIT_OBJECT_0; }

    CRecord m_record;
    CEvent& m_cancel = m_signal;

private:
    struct CAutoReset : CEvent
    {
        ~CAutoReset() noexcept override {}
    };
    CAutoReset m_signal;
};
}   // namespace

TEST_F(Sleep, Zero_WithoutTheEvent_Returns)
{
    EXPECT_NO_THROW(vantor::Sleep(0, m_cancel));
}

TEST_F(Sleep, Zero_WithTheEvent_IsCancelled)
{
    m_cancel.Set();

    EXPECT_FAILURE(23, L".\\Misc", L"vantor::Sleep", ERROR_CANCELLED, vantor::Sleep(0, m_cancel));
}

TEST_F(Sleep, ReturnsWhenTheTimeHasPassed)
{
    EXPECT_NO_THROW(vantor::Sleep(20, m_cancel));
}

TEST_F(Sleep, WaitsOnceForThisLong)
{
    const CImportPatch patch(&::WaitForSingleObject, &AnsweringWait);

    vantor::Sleep(12345, m_cancel);

    EXPECT_EQ(m_record.waits, 1);
    EXPECT_EQ(m_record.milliseconds, 12345u);
}

TEST_F(Sleep, Infinite_IsPassedOn)
{
    const CImportPatch patch(&::WaitForSingleObject, &AnsweringWait);

    vantor::Sleep(INFINITE, m_cancel);

    EXPECT_EQ(m_record.milliseconds, INFINITE);
}

TEST_F(Sleep, CancelledBefore_Throws)
{
    m_cancel.Set();

    EXPECT_FAILURE(23, L".\\Misc", L"vantor::Sleep", ERROR_CANCELLED, vantor::Sleep(INFINITE, m_cancel));
}

TEST_F(Sleep, CancelledDuring_Throws)
{
    const CImportPatch patch(&::WaitForSingleObject, &AnnouncingWait);
    const CHelperThread canceller(
        [this]
        {
            m_record.waiting.Wait();
            m_cancel.Set();
        });

    EXPECT_FAILURE(23, L".\\Misc", L"vantor::Sleep", ERROR_CANCELLED, vantor::Sleep(INFINITE, m_cancel));
}

TEST_F(Sleep, CancelledAfterwards_AffectsTheNextOne)
{
    vantor::Sleep(1, m_cancel);
    m_cancel.Set();

    EXPECT_FAILURE(23, L".\\Misc", L"vantor::Sleep", ERROR_CANCELLED, vantor::Sleep(1, m_cancel));
}

TEST_F(Sleep, AnAutoResetEvent_IsConsumed)
{
    m_cancel.Set();
    EXPECT_THROW(vantor::Sleep(0, m_cancel), CWinException);

    EXPECT_NO_THROW(vantor::Sleep(0, m_cancel));
}

TEST_F(Sleep, AManualResetEvent_StaysSet)
{
    CEvent cancel(nullptr, TRUE, TRUE, nullptr);
    EXPECT_THROW(vantor::Sleep(0, cancel), CWinException);

    EXPECT_FAILURE(23, L".\\Misc", L"vantor::Sleep", ERROR_CANCELLED, vantor::Sleep(0, cancel));
}

TEST_F(Sleep, HandlesNoMessages)
{
    support::UseOwnDesktop();
    const CTestWindow window;
    window.Post(WM_KEYDOWN, VK_SHIFT);
    window.Post(WM_APP);
    window.Invalidate();

    vantor::Sleep(20, m_cancel);

    EXPECT_TRUE(window.Delivered().empty());
    support::PumpMessages();
    EXPECT_EQ(window.Delivered(), (std::vector<UINT>{WM_KEYDOWN, WM_APP, WM_PAINT}));
}

TEST_F(Sleep, OnAClosedEvent_Throws)
{
    m_cancel.Close();

    EXPECT_FAILURE(27, L".\\Misc", L"vantor::Sleep", ERROR_INVALID_HANDLE, vantor::Sleep(1, m_cancel));
}

TEST_F(Sleep, OnFailure_ReportsTheSystemsCode)
{
    const CImportPatch patch(&::WaitForSingleObject, &AnsweringWait);
    m_record.answer = WAIT_FAILED;

    EXPECT_FAILURE(27, L".\\Misc", L"vantor::Sleep", 0xDEADBEEF, vantor::Sleep(1, m_cancel));
}

TEST_F(Sleep, OnSomethingAbandoned_IsAnInternalError)
{
    m_cancel.Close();
    m_cancel.Attach(AbandonedMutex());

    EXPECT_FAILURE(29, L".\\Misc", L"WaitForSingleObject", ERROR_INTERNAL_ERROR, vantor::Sleep(1, m_cancel));
    ::ReleaseMutex(m_cancel);
}

TEST_F(Sleep, AnsweredOutOfRange_IsAnInternalError)
{
    const CImportPatch patch(&::WaitForSingleObject, &AnsweringWait);
    for (const DWORD answer : {1u, 0x80u, 0xC0u, 0x103u, 0xFFFFFFFEu})
    {
        SCOPED_TRACE(answer);
        m_record.answer = answer;

        EXPECT_FAILURE(29, L".\\Misc", L"WaitForSingleObject", ERROR_INTERNAL_ERROR, vantor::Sleep(1, m_cancel));
    }
}
