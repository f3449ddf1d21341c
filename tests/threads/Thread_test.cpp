// CThread: making, closing, suspending and ending threads.

#include "Workers.h"
#include "os/Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

using namespace vantor;
using namespace threads_test;
using os_test::CProtectedHandle;
using os_test::IsOpen;
using support::CImportPatch;
using support::CResources;

namespace
{
struct CCreation
{
    SECURITY_ATTRIBUTES* sa = reinterpret_cast<SECURITY_ATTRIBUTES*>(1);
    SIZE_T stackSize = 1;
    LPTHREAD_START_ROUTINE proc = nullptr;
    void* param = nullptr;
    DWORD flags = 1;
};
CCreation g_creation;
std::string g_calls;

HANDLE WINAPI RecordingCreateThread(SECURITY_ATTRIBUTES* sa, SIZE_T stackSize, LPTHREAD_START_ROUTINE proc, void* param,
                                    DWORD flags, DWORD* id)
{
    g_calls += "create ";
    g_creation.sa = sa;
    g_creation.stackSize = stackSize;
    g_creation.proc = proc;
    g_creation.param = param;
    g_creation.flags = flags;
    *id = 4711;
    return ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

BOOL WINAPI RecordingCloseHandle(HANDLE h)
{
    g_calls += "close ";
    return ::CloseHandle(h);
}

class CSpy : public CThread
{
public:
    void Close() override
    {
        ++closings;
        CThread::Close();
    }

    int closings = 0;
};

// The platform's own type of procedure, calling convention included, is what Create takes.
template <class Object, class Procedure, class = void>
struct Takes : std::false_type
{
};
template <class Object, class Procedure>
struct Takes<Object, Procedure,
             std::void_t<decltype(std::declval<Object&>().Create(std::declval<Procedure>(), nullptr))>> : std::true_type
{
};

class Thread : public ::testing::Test
{
protected:
    // The gate outlives all that use it.
    ~Thread() override
    {
        m_gate.open.Set();
        for (const HANDLE thread : m_started)
        {
            ::WaitForSingleObject(thread, Patience);
            ::CloseHandle(thread);
        }
    }

    void SetUp() override
    {
        g_creation = CCreation();
        g_calls.clear();
    }

    // Runs until the gate is opened.
    void Start(CThread& thread, DWORD flags = 0)
    {
        thread.Create(nullptr, 0, &CGate::Pass, &m_gate, flags);
        m_started.push_back(WithRights(thread, SYNCHRONIZE));
    }
    static bool HasEnded(HANDLE thread) { return ::WaitForSingleObject(thread, Patience) == WAIT_OBJECT_0; }

    CGate m_gate;

private:
    std::vector<HANDLE> m_started;
};
}   // namespace

TEST_F(Thread, Construction_HoldsNoThread)
{
    const CThread thread;

    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(static_cast<void*>(thread), nullptr);
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(Thread, Layout_IsTheHandleAndTheIdentifier)
{
    struct CExpected
    {
        void* table;
        void* invalid;
        void* h;
        DWORD id;
    };

    EXPECT_EQ(sizeof(CThread), sizeof(CExpected));
}

TEST_F(Thread, Procedures_HaveThePlatformsCallingConvention)
{
    EXPECT_TRUE((Takes<CThread, LPTHREAD_START_ROUTINE>::value));
    EXPECT_TRUE((std::is_convertible_v<decltype(&CAPC::ThreadProc), LPTHREAD_START_ROUTINE>));
}

TEST_F(Thread, Create_PassesItsArgumentsOn)
{
    const CImportPatch patch(&::CreateThread, &RecordingCreateThread);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, FALSE};
    CThread thread;

    thread.Create(&sa, 0xF0000000, &CGate::Pass, &sa, CREATE_SUSPENDED);

    EXPECT_EQ(g_creation.sa, &sa);
    EXPECT_EQ(g_creation.stackSize, 0xF0000000);
    EXPECT_EQ(g_creation.proc, static_cast<LPTHREAD_START_ROUTINE>(&CGate::Pass));
    EXPECT_EQ(g_creation.param, &sa);
    EXPECT_EQ(g_creation.flags, static_cast<DWORD>(CREATE_SUSPENDED));
    EXPECT_EQ(thread.GetId(), 4711u);
}

TEST_F(Thread, Create_WithAProcedureAlone_PassesZeros)
{
    const CImportPatch patch(&::CreateThread, &RecordingCreateThread);
    CThread thread;
    int param = 0;

    thread.Create(&CGate::Pass, &param);

    EXPECT_EQ(g_creation.sa, nullptr);
    EXPECT_EQ(g_creation.stackSize, 0u);
    EXPECT_EQ(g_creation.proc, static_cast<LPTHREAD_START_ROUTINE>(&CGate::Pass));
    EXPECT_EQ(g_creation.param, &param);
    EXPECT_EQ(g_creation.flags, 0u);
}

TEST_F(Thread, Create_RunsTheProcedure)
{
    CThread thread;

    thread.Create(&CGate::Pass, &m_gate);

    EXPECT_TRUE(thread.IsCreated());
    EXPECT_TRUE(m_gate.running.Wait());
    m_gate.open.Set();
    EXPECT_TRUE(HasEnded(thread));
}

TEST_F(Thread, GetId_IsThePlatforms)
{
    CThread thread;
    Start(thread);
    ASSERT_TRUE(m_gate.running.Wait());

    EXPECT_EQ(thread.GetId(), m_gate.id);
    EXPECT_EQ(thread.GetId(), ::GetThreadId(thread));
}

TEST_F(Thread, Create_ClosesTheOldThreadFirst)
{
    CThread thread;
    Start(thread);
    const CImportPatch closing(&::CloseHandle, &RecordingCloseHandle);
    const CImportPatch creating(&::CreateThread, &RecordingCreateThread);

    thread.Create(&CGate::Pass, nullptr);

    EXPECT_EQ(g_calls, "close create ");
}

TEST_F(Thread, Create_LeavesTheOldThreadRunning)
{
    CThread thread;
    Start(thread);
    const HANDLE old = WithRights(thread, THREAD_ALL_ACCESS);
    CGate other;
    other.open.Set();

    thread.Create(&CGate::Pass, &other);

    EXPECT_TRUE(HasEnded(thread));
    EXPECT_EQ(::WaitForSingleObject(old, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    m_gate.open.Set();
    EXPECT_TRUE(HasEnded(old));
    ::CloseHandle(old);
}

TEST_F(Thread, Create_ClosesByTheVirtualOperation)
{
    CSpy thread;
    m_gate.open.Set();

    thread.Create(nullptr, 0, &CGate::Pass, &m_gate, 0);
    EXPECT_EQ(thread.closings, 1);
    EXPECT_TRUE(HasEnded(thread));
    thread.Create(&CGate::Pass, &m_gate);
    EXPECT_EQ(thread.closings, 2);

    EXPECT_TRUE(HasEnded(thread));
}

TEST_F(Thread, Create_WhenTheOldOneCannotBeClosed_MakesNoThread)
{
    CThread thread;
    Start(thread);
    const CProtectedHandle guard(thread);
    const CImportPatch patch(&::CreateThread, &RecordingCreateThread);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, thread.Create(&CGate::Pass, nullptr));
    EXPECT_EQ(g_calls, "");
    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(Thread, Create_Suspended_WaitsForResume)
{
    CThread thread;
    Start(thread, CREATE_SUSPENDED);
    EXPECT_FALSE(m_gate.running.IsSet());

    EXPECT_EQ(thread.Resume(), 1u);

    EXPECT_TRUE(m_gate.running.Wait());
}

TEST_F(Thread, Suspend_OfAFreshThread_Returns0_AndResumeThen1)
{
    CThread thread;
    Start(thread);

    EXPECT_EQ(thread.Suspend(), 0u);
    EXPECT_EQ(thread.Resume(), 1u);
}

TEST_F(Thread, Suspend_Counts)
{
    CThread thread;
    Start(thread, CREATE_SUSPENDED);

    EXPECT_EQ(thread.Suspend(), 1u);
    EXPECT_EQ(thread.Suspend(), 2u);
    EXPECT_EQ(thread.Resume(), 3u);
    EXPECT_EQ(thread.Resume(), 2u);
    EXPECT_FALSE(m_gate.running.IsSet());
    EXPECT_EQ(thread.Resume(), 1u);
    EXPECT_TRUE(m_gate.running.Wait());
}

TEST_F(Thread, Resume_OfARunningThread_Returns0)
{
    CThread thread;
    Start(thread);

    EXPECT_EQ(thread.Resume(), 0u);
}

TEST_F(Thread, Close_LeavesTheThreadRunning)
{
    CThread thread;
    Start(thread);
    ASSERT_TRUE(m_gate.running.Wait());
    const HANDLE other = WithRights(thread, THREAD_ALL_ACCESS);

    thread.Close();

    EXPECT_EQ(::WaitForSingleObject(other, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    m_gate.result = 12;
    m_gate.open.Set();
    EXPECT_TRUE(HasEnded(other));
    DWORD code = 0;
    EXPECT_TRUE(::GetExitCodeThread(other, &code));
    EXPECT_EQ(code, 12u);
    ::CloseHandle(other);
}

TEST_F(Thread, Close_LeavesTheObjectEmpty)
{
    CThread thread;
    Start(thread);
    const HANDLE h = thread;

    thread.Close();

    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
    EXPECT_FALSE(IsOpen(h));
}

TEST_F(Thread, Close_OfAnEmptyObject_DoesNothing)
{
    const CImportPatch patch(&::CloseHandle, &RecordingCloseHandle);
    CThread thread;

    thread.Close();

    EXPECT_EQ(g_calls, "");
}

TEST_F(Thread, Close_OnFailure_LeavesTheObjectEmpty)
{
    CThread thread;
    Start(thread);
    const CProtectedHandle guard(thread);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, thread.Close());
    EXPECT_FALSE(thread.IsCreated());
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(Thread, Destructor_ClosesTheHandle)
{
    HANDLE h;
    {
        CThread thread;
        Start(thread);
        h = thread;
    }

    EXPECT_FALSE(IsOpen(h));
}

TEST_F(Thread, Destructor_NeitherWaitsNorStops)
{
    HANDLE other;
    {
        CThread thread;
        Start(thread);
        other = WithRights(thread, THREAD_ALL_ACCESS);
    }

    EXPECT_EQ(::WaitForSingleObject(other, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    m_gate.open.Set();
    EXPECT_TRUE(HasEnded(other));
    DWORD code = 1;
    EXPECT_TRUE(::GetExitCodeThread(other, &code));
    EXPECT_EQ(code, 0u);
    ::CloseHandle(other);
}

TEST_F(Thread, Destructor_WhenTheCloseFails_Throws)
{
    auto* const thread = new CThread;
    Start(*thread);
    const CProtectedHandle guard(*thread);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, delete thread);
}

TEST_F(Thread, Terminate_EndsTheThreadWithThisCode)
{
    CThread thread;
    Start(thread);
    ASSERT_TRUE(m_gate.running.Wait());

    thread.Terminate(77);

    EXPECT_TRUE(HasEnded(thread));
    EXPECT_EQ(thread.GetExitCode(), 77u);
}

TEST_F(Thread, Terminate_KeepsTheHandleAndDropsTheIdentifier)
{
    CThread thread;
    Start(thread);
    ASSERT_TRUE(m_gate.running.Wait());
    const HANDLE h = thread;

    thread.Terminate(0);

    EXPECT_TRUE(thread.IsCreated());
    EXPECT_EQ(static_cast<void*>(thread), h);
    EXPECT_TRUE(IsOpen(h));
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(Thread, GetExitCode_WhileItRuns_Is259)
{
    CThread thread;
    Start(thread);

    EXPECT_EQ(thread.GetExitCode(), 259u);
}

TEST_F(Thread, GetExitCode_AfterTheEnd_IsTheProceduresResult)
{
    m_gate.open.Set();
    for (const unsigned long result : {0ul, 1ul, 259ul, 0x7FFFFFFFul, 0x80000000ul, 0xFFFFFFFFul})
    {
        m_gate.result = result;
        CThread thread;
        Start(thread);
        ASSERT_TRUE(HasEnded(thread));

        EXPECT_EQ(thread.GetExitCode(), result);
    }
}

TEST_F(Thread, GetPriority_OfAFreshThread_IsNormal)
{
    CThread thread;
    Start(thread);

    EXPECT_EQ(thread.GetPriority(), THREAD_PRIORITY_NORMAL);
}

TEST_F(Thread, SetThreadPriority_ReachesTheThread)
{
    CThread thread;
    Start(thread);
    for (const int priority :
         {THREAD_PRIORITY_IDLE, THREAD_PRIORITY_LOWEST, THREAD_PRIORITY_BELOW_NORMAL, THREAD_PRIORITY_ABOVE_NORMAL,
          THREAD_PRIORITY_HIGHEST, THREAD_PRIORITY_TIME_CRITICAL, THREAD_PRIORITY_NORMAL})
    {
        thread.SetThreadPriority(priority);

        EXPECT_EQ(thread.GetPriority(), priority);
        EXPECT_EQ(::GetThreadPriority(thread), priority);
    }
}

TEST_F(Thread, Attach_OfAForeignHandle_ServesAllButTheIdentifier)
{
    m_gate.open.Set();
    m_gate.result = 5;
    CThread thread;

    ASSERT_TRUE(thread.Attach(::CreateThread(nullptr, 0, &CGate::Pass, &m_gate, 0, nullptr)));

    EXPECT_TRUE(HasEnded(thread));
    EXPECT_EQ(thread.GetExitCode(), 5u);
    EXPECT_EQ(thread.GetId(), 0u);
}

TEST_F(Thread, TwentyThreads_LeaveNothingBehind)
{
    m_gate.open.Set();
    CThread thread;
    const auto run = [this, &thread]
    {
        thread.Create(&CGate::Pass, &m_gate);
        ASSERT_TRUE(HasEnded(thread));
        thread.Close();
    };
    run();
    (void)CResources();   // the first count allocates, too
    const std::size_t before = CResources().handles;

    for (int i = 0; i < 20; ++i)
        run();

    EXPECT_EQ(before, CResources().handles);
}
