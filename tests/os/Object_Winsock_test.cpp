// CWSAEvent and CWSAOverlapped.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <vantor/Object.h>

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <vector>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;

namespace
{
constexpr DWORD SystemsError = 0xDEADBEEF;   // what GetLastError would say where Winsock is to be asked

int g_winsockCloses;
std::vector<HANDLE> g_closed;

WSAEVENT WSAAPI FailingWSACreateEvent()
{
    ::SetLastError(SystemsError);
    return nullptr;
}

BOOL WSAAPI FailingWSACloseEvent(WSAEVENT)
{
    ::SetLastError(SystemsError);
    return FALSE;
}

BOOL WSAAPI CountingWSACloseEvent(WSAEVENT event)
{
    ++g_winsockCloses;
    return ::WSACloseEvent(event);
}

int WSAAPI WinsocksLastError()
{
    return WSAENOBUFS;
}

BOOL WINAPI RecordingCloseHandle(HANDLE h)
{
    g_closed.push_back(h);
    return ::CloseHandle(h);
}

BOOL WINAPI FailingCloseHandle(HANDLE h)
{
    g_closed.push_back(h);
    ::SetLastError(SystemsError);
    return FALSE;
}

BOOL WINAPI FailingEventCall(HANDLE)
{
    ::SetLastError(SystemsError);
    return FALSE;
}

class WinsockEvent : public ::testing::Test
{
protected:
    void SetUp() override
    {
        WSADATA data;
        ASSERT_EQ(::WSAStartup(MAKEWORD(2, 2), &data), 0);
        g_winsockCloses = 0;
        g_closed.clear();
    }
    void TearDown() override { ::WSACleanup(); }
};
using WinsockOverlapped = WinsockEvent;
}   // namespace

// Winsock's event calls need no start-up on some systems (Wine among them) and fail with WSANOTINITIALISED on others.
TEST(WinsockEventBeforeStartup, Construction_WorksOrSaysWhyNot)
{
    try
    {
        const CWSAEvent event;
        EXPECT_TRUE(IsOpen(event));
    }
    catch (const CWinException& e)
    {
        EXPECT_EQ(e.GetLine(), 221u);
        EXPECT_EQ(e.GetErrorCode(), static_cast<unsigned long>(WSANOTINITIALISED));
    }
}

TEST_F(WinsockEvent, Construction_MakesAnEventThatIsNotSignalled)
{
    const CWSAEvent event;

    EXPECT_TRUE(event.IsCreated());
    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(WinsockEvent, Construction_OnFailure_ThrowsWinsocksCode)
{
    const CImportPatch create(&::WSACreateEvent, &FailingWSACreateEvent);
    const CImportPatch lastError(&::WSAGetLastError, &WinsocksLastError);

    EXPECT_FAILURE(221, L".\\Object", L"WSACreateEvent", WSAENOBUFS, const CWSAEvent event);
}

TEST_F(WinsockEvent, EmptyValue_IsNull)
{
    CWSAEvent event;
    event.Close();

    EXPECT_EQ(event.Detach(), nullptr);
}

TEST_F(WinsockEvent, SetAndReset_ChangeTheSignal)
{
    CWSAEvent event;

    event.Set();
    EXPECT_TRUE(IsSignalled(event));

    event.Reset();
    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(WinsockEvent, Set_OfAnEmptyObject_Throws)
{
    CWSAEvent event;
    event.Close();

    EXPECT_FAILURE(243, L".\\Object", L"SetEvent", ERROR_INVALID_HANDLE, event.Set());
}

TEST_F(WinsockEvent, Set_UsesTheOrdinaryCallAndItsCode)
{
    CWSAEvent event;
    const CImportPatch set(&::SetEvent, &FailingEventCall);
    const CImportPatch lastError(&::WSAGetLastError, &WinsocksLastError);

    EXPECT_FAILURE(243, L".\\Object", L"SetEvent", SystemsError, event.Set());
    EXPECT_TRUE(event.IsCreated());
}

TEST_F(WinsockEvent, Reset_OfAnEmptyObject_Throws)
{
    CWSAEvent event;
    event.Close();

    EXPECT_FAILURE(250, L".\\Object", L"ResetEvent", ERROR_INVALID_HANDLE, event.Reset());
}

TEST_F(WinsockEvent, Reset_UsesTheOrdinaryCallAndItsCode)
{
    CWSAEvent event;
    const CImportPatch reset(&::ResetEvent, &FailingEventCall);
    const CImportPatch lastError(&::WSAGetLastError, &WinsocksLastError);

    EXPECT_FAILURE(250, L".\\Object", L"ResetEvent", SystemsError, event.Reset());
    EXPECT_TRUE(event.IsCreated());
}

TEST_F(WinsockEvent, Close_ClosesTheEventByWinsock)
{
    CWSAEvent event;
    const HANDLE h = event;
    const CImportPatch close(&::WSACloseEvent, &CountingWSACloseEvent);

    event.Close();

    EXPECT_FALSE(IsOpen(h));
    EXPECT_FALSE(event.IsCreated());
    EXPECT_EQ(g_winsockCloses, 1);
}

TEST_F(WinsockEvent, Close_ThroughTheBase_ClosesTheEventByWinsock)
{
    CWSAEvent event;
    CHandle& handle = event;
    const CImportPatch close(&::WSACloseEvent, &CountingWSACloseEvent);

    handle.Close();

    EXPECT_EQ(g_winsockCloses, 1);
}

TEST_F(WinsockEvent, Close_Twice_ClosesOnce)
{
    CWSAEvent event;
    const CImportPatch close(&::WSACloseEvent, &CountingWSACloseEvent);

    event.Close();
    event.Close();

    EXPECT_EQ(g_winsockCloses, 1);
}

TEST_F(WinsockEvent, Close_OfAHandleThatCannotBeClosed_Throws)
{
    CWSAEvent event;
    const CProtectedHandle guard(event);

    EXPECT_FAILURE(234, L".\\Object", L"WSACloseEvent", ERROR_INVALID_HANDLE, event.Close());

    event.Detach();
}

TEST_F(WinsockEvent, Close_OnFailure_ThrowsWinsocksCode)
{
    CWSAEvent event;
    const CImportPatch close(&::WSACloseEvent, &FailingWSACloseEvent);
    const CImportPatch lastError(&::WSAGetLastError, &WinsocksLastError);

    EXPECT_FAILURE(234, L".\\Object", L"WSACloseEvent", WSAENOBUFS, event.Close());
}

TEST_F(WinsockEvent, Close_OnFailure_KeepsTheEvent)
{
    CWSAEvent event;
    const HANDLE h = event;
    const CImportPatch close(&::WSACloseEvent, &FailingWSACloseEvent);

    EXPECT_THROW(event.Close(), CWinException);

    EXPECT_TRUE(event.IsCreated());
    EXPECT_EQ(static_cast<void*>(event), h);
}

TEST_F(WinsockEvent, Close_AfterAFailedClose_TriesAgain)
{
    CWSAEvent event;
    const HANDLE h = event;
    {
        const CImportPatch close(&::WSACloseEvent, &FailingWSACloseEvent);
        EXPECT_THROW(event.Close(), CWinException);
    }

    event.Close();

    EXPECT_FALSE(IsOpen(h));
    EXPECT_FALSE(event.IsCreated());
}

TEST_F(WinsockEvent, Destructor_AfterAFailedClose_TriesAgain)
{
    HANDLE h;
    {
        CWSAEvent event;
        h = event;
        const CImportPatch close(&::WSACloseEvent, &FailingWSACloseEvent);
        EXPECT_THROW(event.Close(), CWinException);
    }

    EXPECT_FALSE(IsOpen(h));
}

TEST_F(WinsockEvent, Destructor_ClosesByCloseHandleAndNotByWinsock)
{
    const CImportPatch winsock(&::WSACloseEvent, &CountingWSACloseEvent);
    const CImportPatch system(&::CloseHandle, &RecordingCloseHandle);
    HANDLE h;
    {
        const CWSAEvent event;
        h = event;
    }

    EXPECT_EQ(g_closed, std::vector<HANDLE>{h});
    EXPECT_EQ(g_winsockCloses, 0);
}

TEST_F(WinsockEvent, Destructor_OnFailure_ThrowsAsCloseHandleDoes)
{
    const CImportPatch patch(&::CloseHandle, &FailingCloseHandle);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", SystemsError, const CWSAEvent event);

    ASSERT_EQ(g_closed.size(), 1u);
    ::CloseHandle(g_closed[0]);
}

TEST_F(WinsockOverlapped, Construction_HasAnEventThatIsNotSignalled)
{
    const CWSAOverlapped overlapped;

    EXPECT_TRUE(IsOpen(overlapped.hEvent));
    EXPECT_FALSE(IsSignalled(overlapped.hEvent));
}

TEST_F(WinsockOverlapped, Construction_ZeroesTheOtherFields)
{
    alignas(CWSAOverlapped) unsigned char memory[sizeof(CWSAOverlapped)];
    std::memset(memory, 0xCC, sizeof memory);

    CWSAOverlapped* const overlapped = new (memory) CWSAOverlapped;

    EXPECT_EQ(overlapped->Internal, 0u);
    EXPECT_EQ(overlapped->InternalHigh, 0u);
    EXPECT_EQ(overlapped->Offset, 0u);
    EXPECT_EQ(overlapped->OffsetHigh, 0u);
    overlapped->~CWSAOverlapped();
}

TEST_F(WinsockOverlapped, Construction_OnFailure_ThrowsAsTheEventDoes)
{
    const CImportPatch create(&::WSACreateEvent, &FailingWSACreateEvent);
    const CImportPatch lastError(&::WSAGetLastError, &WinsocksLastError);

    EXPECT_FAILURE(221, L".\\Object", L"WSACreateEvent", WSAENOBUFS, const CWSAOverlapped overlapped);
}

TEST_F(WinsockOverlapped, SetAndResetEvent_ChangeTheSignal)
{
    CWSAOverlapped overlapped;

    overlapped.SetEvent();
    EXPECT_TRUE(IsSignalled(overlapped.hEvent));

    overlapped.ResetEvent();
    EXPECT_FALSE(IsSignalled(overlapped.hEvent));
}

TEST_F(WinsockOverlapped, Destructor_ClosesTheEventByCloseHandle)
{
    const CImportPatch winsock(&::WSACloseEvent, &CountingWSACloseEvent);
    const CImportPatch system(&::CloseHandle, &RecordingCloseHandle);
    HANDLE h;
    {
        const CWSAOverlapped overlapped;
        h = overlapped.hEvent;
    }

    EXPECT_EQ(g_closed, std::vector<HANDLE>{h});
    EXPECT_EQ(g_winsockCloses, 0);
}

TEST_F(WinsockOverlapped, Destructor_OnFailure_Throws)
{
    const CImportPatch patch(&::CloseHandle, &FailingCloseHandle);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", SystemsError, const CWSAOverlapped overlapped);

    ASSERT_EQ(g_closed.size(), 1u);
    ::CloseHandle(g_closed[0]);
}

TEST_F(WinsockOverlapped, Record_StandsDirectlyBehindTheVirtualTable)
{
    CWSAOverlapped overlapped;
    const OVERLAPPED* const record = &overlapped;

    EXPECT_EQ(reinterpret_cast<const char*>(record) - reinterpret_cast<const char*>(&overlapped),
              static_cast<std::ptrdiff_t>(sizeof(void*)));
}
