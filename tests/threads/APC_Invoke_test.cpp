// CAPC::Invoke: the worker, its result, the wait, and what the system may answer.

#include "Workers.h"
#include "os/Handles.h"
#include "support/ChildProcess.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <gtest/gtest.h>

using namespace vantor;
using namespace threads_test;
using os_test::IsOpen;
using support::CImportPatch;
using support::CResources;

namespace
{
struct CRecord
{
    int waits = 0;
    DWORD count = 0;
    HANDLE h = nullptr;
    DWORD milliseconds = 0;
    DWORD wakeMask = 0xDEADBEEF;
    DWORD flags = 0xDEADBEEF;
    DWORD waitedFor = 0;   // the identifier of the thread

    HANDLE thread = nullptr;   // by CreateThread
    SECURITY_ATTRIBUTES* sa = reinterpret_cast<SECURITY_ATTRIBUTES*>(1);
    SIZE_T stackSize = 1;
    LPTHREAD_START_ROUTINE proc = nullptr;
    void* param = nullptr;
    DWORD creationFlags = 1;
};
CRecord g_record;
DWORD g_answer;        // of the next wait
HANDLE g_workerCopy;   // outlives the library's own

void Note(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    ++g_record.waits;
    g_record.count = count;
    g_record.h = handles[0];
    g_record.milliseconds = milliseconds;
    g_record.wakeMask = wakeMask;
    g_record.flags = flags;
    g_record.waitedFor = ::GetThreadId(handles[0]);
}

DWORD WINAPI RecordingWait(DWORD count, const HANDLE* handles, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    Note(count, handles, milliseconds, wakeMask, flags);
    return ::MsgWaitForMultipleObjectsEx(count, handles, milliseconds, wakeMask, flags);
}

DWORD WINAPI AnsweringWait(DWORD, const HANDLE* handles, DWORD, DWORD, DWORD)
{
    ++g_record.waits;
    g_workerCopy = WithRights(handles[0], THREAD_ALL_ACCESS);
    ::SetLastError(0xDEADBEEF);
    return g_answer;
}

HANDLE WINAPI RecordingCreateThread(SECURITY_ATTRIBUTES* sa, SIZE_T stackSize, LPTHREAD_START_ROUTINE proc, void* param,
                                    DWORD flags, DWORD* id)
{
    g_record.sa = sa;
    g_record.stackSize = stackSize;
    g_record.proc = proc;
    g_record.param = param;
    g_record.creationFlags = flags;
    g_record.thread = ::CreateThread(sa, stackSize, proc, param, flags, id);
    return g_record.thread;
}

HANDLE WINAPI FailingCreateThread(SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE, void*, DWORD, DWORD*)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

// The worker has done its work before anybody waits for it.
HANDLE WINAPI CreateThreadThatHasEnded(SECURITY_ATTRIBUTES* sa, SIZE_T stackSize, LPTHREAD_START_ROUTINE proc,
                                       void* param, DWORD flags, DWORD* id)
{
    const HANDLE h = ::CreateThread(sa, stackSize, proc, param, flags, id);
    ::WaitForSingleObject(h, Patience);
    return h;
}

// A handle that can be asked for the exit code, but not be waited for.
HANDLE WINAPI CreateThreadNotToWaitFor(SECURITY_ATTRIBUTES* sa, SIZE_T stackSize, LPTHREAD_START_ROUTINE proc,
                                       void* param, DWORD flags, DWORD* id)
{
    g_workerCopy = ::CreateThread(sa, stackSize, proc, param, flags, id);
    return WithRights(g_workerCopy, THREAD_QUERY_INFORMATION);
}

// A handle that can be waited for, but not be asked for the exit code.
HANDLE WINAPI CreateThreadNotToAsk(SECURITY_ATTRIBUTES* sa, SIZE_T stackSize, LPTHREAD_START_ROUTINE proc, void* param,
                                   DWORD flags, DWORD* id)
{
    const HANDLE h = ::CreateThread(sa, stackSize, proc, param, flags, id);
    const HANDLE other = WithRights(h, SYNCHRONIZE);
    ::CloseHandle(h);
    return other;
}

HANDLE WINAPI CreateAbandonedMutex(SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE, void*, DWORD, DWORD*)
{
    return AbandonedMutex();
}

class ApcInvoke : public ::testing::Test
{
protected:
    ApcInvoke()
    {
        g_record = CRecord();
        g_workerCopy = nullptr;
    }

    // The worker that a failed Invoke left behind.
    static bool IsWorkerRunning() { return ::WaitForSingleObject(g_workerCopy, 0) == WAIT_TIMEOUT; }
    static DWORD WorkersEnd()
    {
        DWORD code = 0;
        EXPECT_EQ(::WaitForSingleObject(g_workerCopy, Patience), static_cast<DWORD>(WAIT_OBJECT_0));
        EXPECT_TRUE(::GetExitCodeThread(g_workerCopy, &code));
        ::CloseHandle(g_workerCopy);
        return code;
    }

    // Row 58: what the wait must not answer. The worker waits for Invoke's end.
    static void ExpectInternalError(DWORD answer)
    {
        SCOPED_TRACE(answer);
        g_answer = answer;
        CSignal release;
        CWork call(QS_PAINT, [&release] { return release.Wait() ? 12ul : 0ul; });
        {
            const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &AnsweringWait);
            EXPECT_FAILURE(58, L".\\APC", L"MsgWaitForMultipleObjects", ERROR_INTERNAL_ERROR, call.Invoke());
        }
        EXPECT_TRUE(IsWorkerRunning());
        release.Set();
        EXPECT_EQ(WorkersEnd(), 12u);
    }
};
}   // namespace

TEST_F(ApcInvoke, ReturnsTheWorkersResult)
{
    for (const unsigned long result : {0ul, 1ul, 259ul, 0x80000000ul, 0xFFFFFFFFul})
        EXPECT_EQ(CWork(QS_PAINT, [result] { return result; }).Invoke(), result);
}

TEST_F(ApcInvoke, RunsOnAThreadOfItsOwn)
{
    DWORD id = 0;
    CWork call(QS_PAINT,
               [&id]
               {
                   id = ::GetCurrentThreadId();
                   return 0ul;
               });

    call.Invoke();

    EXPECT_NE(id, 0u);
    EXPECT_NE(id, ::GetCurrentThreadId());
}

TEST_F(ApcInvoke, RunsOnceACall)
{
    unsigned long runs = 0;
    CWork call(QS_PAINT, [&runs] { return ++runs; });

    EXPECT_EQ(call.Invoke(), 1u);
    EXPECT_EQ(call.Invoke(), 2u);
    EXPECT_EQ(runs, 2u);
}

TEST_F(ApcInvoke, CreatesAnOrdinaryThread)
{
    const CImportPatch patch(&::CreateThread, &RecordingCreateThread);
    CWork call(QS_PAINT, [] { return 0ul; });

    call.Invoke();

    EXPECT_EQ(g_record.sa, nullptr);
    EXPECT_EQ(g_record.stackSize, 0u);
    EXPECT_EQ(g_record.proc, static_cast<LPTHREAD_START_ROUTINE>(&CAPC::ThreadProc));
    EXPECT_EQ(g_record.param, static_cast<CAPC*>(&call));
    EXPECT_EQ(g_record.creationFlags, 0u);
}

TEST_F(ApcInvoke, ThreadProc_RunsTheObjectThatItIsGiven)
{
    CWork call(0, [] { return 5ul; });

    EXPECT_EQ(CAPC::ThreadProc(static_cast<CAPC*>(&call)), 5u);
}

TEST_F(ApcInvoke, ClosesTheWorkersHandle)
{
    const CImportPatch patch(&::CreateThread, &RecordingCreateThread);

    CWork(QS_PAINT, [] { return 0ul; }).Invoke();

    EXPECT_FALSE(IsOpen(g_record.thread));
}

TEST_F(ApcInvoke, WaitsForTheWorkerWithItsMaskForEver)
{
    for (const unsigned long mask : {0ul, 0x01ul, 0x20ul, 0x3Ful})
    {
        const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &RecordingWait);
        DWORD id = 0;
        CWork call(mask,
                   [&id]
                   {
                       id = ::GetCurrentThreadId();
                       return 0ul;
                   });

        call.Invoke();

        EXPECT_EQ(g_record.count, 1u);
        EXPECT_EQ(g_record.waitedFor, id);
        EXPECT_EQ(g_record.milliseconds, INFINITE);
        EXPECT_EQ(g_record.wakeMask, mask);
        EXPECT_EQ(g_record.flags, 0u);
    }
}

TEST_F(ApcInvoke, AWorkerThatEndsBeforeTheWait_IsSeen)
{
    const CImportPatch creating(&::CreateThread, &CreateThreadThatHasEnded);
    const CImportPatch waiting(&::MsgWaitForMultipleObjectsEx, &RecordingWait);

    EXPECT_EQ(CWork(QS_PAINT, [] { return 17ul; }).Invoke(), 17u);
    EXPECT_EQ(g_record.waits, 1);
}

TEST_F(ApcInvoke, Create_OnFailure_ThrowsAndRunsNothing)
{
    const CImportPatch patch(&::CreateThread, &FailingCreateThread);
    bool ran = false;
    CWork call(QS_PAINT,
               [&ran]
               {
                   ran = true;
                   return 0ul;
               });

    EXPECT_FAILURE(41, L".\\Thread", L"CreateThread", ERROR_NOT_ENOUGH_MEMORY, call.Invoke());
    EXPECT_FALSE(ran);
}

TEST_F(ApcInvoke, Wait_WithoutTheRight_ThrowsAndTheWorkerGoesOn)
{
    const CImportPatch patch(&::CreateThread, &CreateThreadNotToWaitFor);
    CSignal release;
    CWork call(QS_PAINT, [&release] { return release.Wait() ? 12ul : 0ul; });

    EXPECT_FAILURE(56, L".\\APC", L"MsgWaitForMultipleObjects", ERROR_ACCESS_DENIED, call.Invoke());
    EXPECT_TRUE(IsWorkerRunning());
    release.Set();
    EXPECT_EQ(WorkersEnd(), 12u);
}

TEST_F(ApcInvoke, Wait_OnFailure_ReportsTheSystemsCode)
{
    const CImportPatch patch(&::MsgWaitForMultipleObjectsEx, &AnsweringWait);
    g_answer = 0xFFFFFFFF;
    CSignal release;
    CWork call(QS_PAINT, [&release] { return release.Wait() ? 12ul : 0ul; });

    EXPECT_FAILURE(56, L".\\APC", L"MsgWaitForMultipleObjects", 0xDEADBEEF, call.Invoke());
    EXPECT_EQ(g_record.waits, 1);
    EXPECT_TRUE(IsWorkerRunning());
    release.Set();
    EXPECT_EQ(WorkersEnd(), 12u);
}

TEST_F(ApcInvoke, Wait_ForSomethingAbandoned_IsAnInternalError)
{
    const CImportPatch patch(&::CreateThread, &CreateAbandonedMutex);
    CWork call(QS_PAINT, [] { return 0ul; });

    EXPECT_FAILURE(58, L".\\APC", L"MsgWaitForMultipleObjects", ERROR_INTERNAL_ERROR, call.Invoke());
}

TEST_F(ApcInvoke, Wait_AnsweredAsTimedOut_IsAnInternalError)
{
    ExpectInternalError(WAIT_TIMEOUT);
}

TEST_F(ApcInvoke, Wait_AnsweredOutOfRange_IsAnInternalError)
{
    for (const DWORD answer : {2u, 0x80u, 0x81u, 0xC0u, 0x101u, 0xFFFFFFFEu})
        ExpectInternalError(answer);
}

TEST_F(ApcInvoke, Wait_OnFailure_LeavesNoHandle)
{
    const CImportPatch patch(&::CreateThread, &CreateAbandonedMutex);
    CWork call(QS_PAINT, [] { return 0ul; });
    EXPECT_THROW(call.Invoke(), CWinException);
    (void)CResources();   // the first count allocates, too
    const std::size_t before = CResources().handles;

    EXPECT_THROW(call.Invoke(), CWinException);

    EXPECT_EQ(before, CResources().handles);
}

TEST_F(ApcInvoke, ResultThatCannotBeRead_Throws)
{
    const CImportPatch patch(&::CreateThread, &CreateThreadNotToAsk);
    CWork call(QS_PAINT, [] { return 0ul; });

    EXPECT_FAILURE(99, L".\\Thread", L"GetExitCodeThread", ERROR_ACCESS_DENIED, call.Invoke());
}

TEST_F(ApcInvoke, AnExceptionThatLeavesRun_EndsTheProgram)
{
    const CChildProcess process(L"\"" + support::ModuleFolder() + L"\\threads_throwing.exe\"");

    EXPECT_EQ(process.exitCode, 3u);
    EXPECT_EQ(process.output.find("throwing"), 0u) << process.output;
    EXPECT_EQ(process.output.find("caught"), std::string::npos) << process.output;
    EXPECT_EQ(process.output.find("survived"), std::string::npos) << process.output;
}

TEST_F(ApcInvoke, TenThousandCalls_LeaveNothingBehind)
{
    unsigned long runs = 0;
    CWork call(QS_PAINT, [&runs] { return ++runs; });
    call.Invoke();
    (void)CResources();   // the first count allocates, too
    const CResources before;

    for (int i = 0; i < 10000; ++i)
        call.Invoke();

    EXPECT_EQ(before, CResources());
    EXPECT_EQ(runs, 10001u);
}
