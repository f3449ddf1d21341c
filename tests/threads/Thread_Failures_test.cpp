// CThread when the system refuses: for real with no handle, with a handle that lacks the right, or past a limit.

#include "Workers.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <gtest/gtest.h>

using namespace vantor;
using namespace threads_test;
using support::CImportPatch;

namespace
{
HANDLE WINAPI FailingCreateThread(SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE, void*, DWORD, DWORD*)
{
    ::SetLastError(0xDEADBEEF);
    return nullptr;
}

class ThreadFailure : public ::testing::Test
{
protected:
    ThreadFailure() : m_thread(::CreateThread(nullptr, 0, &CGate::Pass, &m_gate, 0, nullptr)) {}
    ~ThreadFailure() override
    {
        m_gate.open.Set();
        ::WaitForSingleObject(m_thread, Patience);
        ::CloseHandle(m_thread);
    }

    // Lets the object hold the running thread, but not do this to it.
    void Hold(CThread& object, DWORD rights = SYNCHRONIZE) { ASSERT_TRUE(object.Attach(WithRights(m_thread, rights))); }
    bool IsRunning() const { return ::WaitForSingleObject(m_thread, 0) == WAIT_TIMEOUT; }

    CGate m_gate;
    HANDLE m_thread;
};

// A descriptor of a kind that no system knows.
struct CUnknownSecurity
{
    CUnknownSecurity()
    {
        descriptor.Revision = 99;
        attributes.lpSecurityDescriptor = &descriptor;
    }

    SECURITY_DESCRIPTOR descriptor = {};
    SECURITY_ATTRIBUTES attributes = {sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
};
}   // namespace

TEST_F(ThreadFailure, Create_WithUnknownSecurity_Throws)
{
    CUnknownSecurity security;
    CThread thread;

    EXPECT_FAILURE(41, L".\\Thread", L"CreateThread", ERROR_UNKNOWN_REVISION,
                   thread.Create(&security.attributes, 0, &CGate::Pass, nullptr, 0));
    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
}

#ifndef _WIN64   // a stack that does not fit takes more digits than the argument has in 64 bit
TEST_F(ThreadFailure, Create_WithAStackThatDoesNotFit_Throws)
{
    CThread thread;

    EXPECT_FAILURE(41, L".\\Thread", L"CreateThread", ERROR_NOT_ENOUGH_MEMORY,
                   thread.Create(nullptr, 0x80000000, &CGate::Pass, nullptr, STACK_SIZE_PARAM_IS_A_RESERVATION));
    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
}
#endif

TEST_F(ThreadFailure, Create_WithAProcedureAlone_Throws)
{
    const CImportPatch patch(&::CreateThread, &FailingCreateThread);
    CThread thread;

    EXPECT_FAILURE(41, L".\\Thread", L"CreateThread", 0xDEADBEEF, thread.Create(&CGate::Pass, nullptr));
    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(ThreadFailure, Create_OverAnOldThread_LeavesTheObjectEmpty)
{
    CUnknownSecurity security;
    CGate gate;
    gate.open.Set();
    CThread thread;
    thread.Create(&CGate::Pass, &gate);
    ASSERT_EQ(::WaitForSingleObject(thread, Patience), static_cast<DWORD>(WAIT_OBJECT_0));

    EXPECT_FAILURE(41, L".\\Thread", L"CreateThread", ERROR_UNKNOWN_REVISION,
                   thread.Create(&security.attributes, 0, &CGate::Pass, nullptr, 0));
    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(ThreadFailure, Create_AfterAFailure_Succeeds)
{
    CUnknownSecurity security;
    CGate gate;
    gate.open.Set();
    CThread thread;
    EXPECT_THROW(thread.Create(&security.attributes, 0, &CGate::Pass, nullptr, 0), CWinException);

    thread.Create(&CGate::Pass, &gate);

    EXPECT_EQ(::WaitForSingleObject(thread, Patience), static_cast<DWORD>(WAIT_OBJECT_0));
}

TEST_F(ThreadFailure, Terminate_OfNoThread_Throws)
{
    CThread thread;

    EXPECT_FAILURE(52, L".\\Thread", L"TerminateThread", ERROR_INVALID_HANDLE, thread.Terminate(1));
}

TEST_F(ThreadFailure, Terminate_WithoutTheRight_KeepsTheHandleAndTheThread)
{
    CThread thread;
    Hold(thread);

    EXPECT_FAILURE(52, L".\\Thread", L"TerminateThread", ERROR_ACCESS_DENIED, thread.Terminate(1));
    EXPECT_TRUE(thread.IsCreated());
    EXPECT_TRUE(IsRunning());
}

TEST_F(ThreadFailure, Terminate_OnFailure_DropsTheIdentifierAllTheSame)
{
    CGate gate;
    gate.open.Set();
    CThread thread;
    thread.Create(&CGate::Pass, &gate);
    ASSERT_EQ(::WaitForSingleObject(thread, Patience), static_cast<DWORD>(WAIT_OBJECT_0));
    ASSERT_NE(thread.GetId(), 0u);
    const HANDLE h = thread.Detach();

    EXPECT_FAILURE(52, L".\\Thread", L"TerminateThread", ERROR_INVALID_HANDLE, thread.Terminate(1));
    EXPECT_EQ(thread.GetId(), 0u);
    ::CloseHandle(h);
}

TEST_F(ThreadFailure, GetPriority_OfNoThread_Throws)
{
    const CThread thread;

    EXPECT_FAILURE(67, L".\\Thread", L"GetThreadPriority", ERROR_INVALID_HANDLE, thread.GetPriority());
}

TEST_F(ThreadFailure, GetPriority_WithoutTheRight_Throws)
{
    CThread thread;
    Hold(thread);

    EXPECT_FAILURE(67, L".\\Thread", L"GetThreadPriority", ERROR_ACCESS_DENIED, thread.GetPriority());
    EXPECT_TRUE(thread.IsCreated());
}

TEST_F(ThreadFailure, SetThreadPriority_OfNoThread_Throws)
{
    CThread thread;

    EXPECT_FAILURE(75, L".\\Thread", L"SetThreadPriority", ERROR_INVALID_HANDLE,
                   thread.SetThreadPriority(THREAD_PRIORITY_HIGHEST));
}

TEST_F(ThreadFailure, SetThreadPriority_WithoutTheRight_ThrowsAndKeepsThePriority)
{
    CThread thread;
    Hold(thread);

    EXPECT_FAILURE(75, L".\\Thread", L"SetThreadPriority", ERROR_ACCESS_DENIED,
                   thread.SetThreadPriority(THREAD_PRIORITY_HIGHEST));
    EXPECT_TRUE(thread.IsCreated());
    EXPECT_EQ(::GetThreadPriority(m_thread), THREAD_PRIORITY_NORMAL);
}

TEST_F(ThreadFailure, SetThreadPriority_OutOfRange_Throws)
{
    CThread thread;
    Hold(thread, THREAD_ALL_ACCESS);

    EXPECT_FAILURE(75, L".\\Thread", L"SetThreadPriority", ERROR_INVALID_PARAMETER, thread.SetThreadPriority(99));
}

TEST_F(ThreadFailure, Suspend_OfNoThread_Throws)
{
    CThread thread;

    EXPECT_FAILURE(82, L".\\Thread", L"SuspendThread", ERROR_INVALID_HANDLE, thread.Suspend());
}

TEST_F(ThreadFailure, Suspend_WithoutTheRight_ThrowsAndKeepsTheHandle)
{
    CThread thread;
    Hold(thread);

    EXPECT_FAILURE(82, L".\\Thread", L"SuspendThread", ERROR_ACCESS_DENIED, thread.Suspend());
    EXPECT_TRUE(thread.IsCreated());
}

TEST_F(ThreadFailure, Suspend_BeyondTheSystemsLimit_ThrowsAndChangesNothing)
{
    CThread thread;
    Hold(thread, THREAD_ALL_ACCESS);
    for (unsigned long count = 0; count < MAXIMUM_SUSPEND_COUNT; ++count)
        ASSERT_EQ(thread.Suspend(), count);

    EXPECT_FAILURE(82, L".\\Thread", L"SuspendThread", ERROR_SIGNAL_REFUSED, thread.Suspend());
    for (unsigned long count = MAXIMUM_SUSPEND_COUNT; count > 0; --count)
        ASSERT_EQ(thread.Resume(), count);
}

TEST_F(ThreadFailure, Resume_OfNoThread_Throws)
{
    CThread thread;

    EXPECT_FAILURE(90, L".\\Thread", L"ResumeThread", ERROR_INVALID_HANDLE, thread.Resume());
}

TEST_F(ThreadFailure, Resume_WithoutTheRight_ThrowsAndKeepsTheHandle)
{
    CThread thread;
    Hold(thread);

    EXPECT_FAILURE(90, L".\\Thread", L"ResumeThread", ERROR_ACCESS_DENIED, thread.Resume());
    EXPECT_TRUE(thread.IsCreated());
}

TEST_F(ThreadFailure, GetExitCode_OfNoThread_Throws)
{
    CThread thread;

    EXPECT_FAILURE(99, L".\\Thread", L"GetExitCodeThread", ERROR_INVALID_HANDLE, thread.GetExitCode());
}

TEST_F(ThreadFailure, GetExitCode_WithoutTheRight_ThrowsAndKeepsTheHandle)
{
    CThread thread;
    Hold(thread);

    EXPECT_FAILURE(99, L".\\Thread", L"GetExitCodeThread", ERROR_ACCESS_DENIED, thread.GetExitCode());
    EXPECT_TRUE(thread.IsCreated());
}
