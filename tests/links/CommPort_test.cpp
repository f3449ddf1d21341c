// What CCommPort asks of the system, against fakes of its calls: the arguments, and the failures of a port that is not
// open, which are real. Ports that answer are in CommPort_Terminal_test.cpp.

#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/TempFolder.h"

#include <vantor/CommPort.h>
#include <vantor/Object.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;

namespace
{
struct CCall
{
    HANDLE port;
    DWORD numbers[2];
    const void* pointers[2];
    char character;
};
CCall g_call;
DCB g_dcb;
COMMTIMEOUTS g_timeouts;

struct COpening
{
    std::wstring name;
    DWORD access;
    DWORD share;
    SECURITY_ATTRIBUTES* sa;
    DWORD disposition;
    DWORD flags;
    HANDLE hTemplate;
};
COpening g_opening;

HANDLE WINAPI RecordingOpen(LPCWSTR name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* sa, DWORD disposition,
                            DWORD flags, HANDLE hTemplate)
{
    g_opening = {name, access, share, sa, disposition, flags, hTemplate};
    return ::CreateEventW(nullptr, FALSE, FALSE, nullptr);   // any handle
}

BOOL Record(HANDLE port, DWORD first, DWORD second, const void* pointer = nullptr, const void* other = nullptr)
{
    g_call = {port, {first, second}, {pointer, other}, 0};
    return TRUE;
}

BOOL WINAPI FakeSetup(HANDLE port, DWORD in, DWORD out)
{
    return Record(port, in, out);
}

BOOL WINAPI FakePurge(HANDLE port, DWORD flags)
{
    return Record(port, flags, 0);
}

BOOL WINAPI FakeEscape(HANDLE port, DWORD function)
{
    return Record(port, function, 0);
}

BOOL WINAPI FakeClearError(HANDLE port, DWORD* errors, COMSTAT* stat)
{
    *errors = CE_FRAME;
    stat->cbInQue = 17;
    return Record(port, 0, 0);
}

BOOL WINAPI FakeClearBreak(HANDLE port)
{
    return Record(port, 0, 0);
}

BOOL WINAPI FakeModemStatus(HANDLE port, DWORD* status)
{
    *status = MS_CTS_ON | MS_RING_ON;
    return Record(port, 0, 0);
}

BOOL WINAPI FakeProperties(HANDLE port, COMMPROP* prop)
{
    prop->dwMaxBaud = BAUD_57600;
    return Record(port, 0, 0, prop);
}

BOOL WINAPI FakeGetState(HANDLE port, DCB* dcb)
{
    Record(port, dcb->DCBlength, 0, dcb);
    dcb->BaudRate = CBR_4800;
    return TRUE;
}

BOOL WINAPI FakeSetState(HANDLE port, DCB* dcb)
{
    Record(port, 0, 0, dcb);
    g_dcb = *dcb;
    std::memset(static_cast<void*>(dcb), 0xCC, sizeof *dcb);   // the system may write to it
    return TRUE;
}

BOOL WINAPI FakeGetMask(HANDLE port, DWORD* mask)
{
    *mask = EV_RXCHAR | EV_RING;
    return Record(port, 0, 0);
}

BOOL WINAPI FakeSetMask(HANDLE port, DWORD mask)
{
    return Record(port, mask, 0);
}

BOOL WINAPI FakeSetTimeouts(HANDLE port, COMMTIMEOUTS* timeouts)
{
    Record(port, 0, 0, timeouts);
    g_timeouts = *timeouts;
    std::memset(static_cast<void*>(timeouts), 0xCC, sizeof *timeouts);
    return TRUE;
}

BOOL WINAPI FakeGetTimeouts(HANDLE port, COMMTIMEOUTS* timeouts)
{
    *timeouts = {1, 2, 3, 4, 5};
    return Record(port, 0, 0);
}

BOOL WINAPI FakeTransmit(HANDLE port, char c)
{
    Record(port, 0, 0);
    g_call.character = c;
    return TRUE;
}

BOOL WINAPI FakeWait(HANDLE port, DWORD* mask, OVERLAPPED* ov)
{
    *mask = EV_RXCHAR;
    return Record(port, 0, 0, mask, ov);
}

BOOL WINAPI PendingWait(HANDLE, DWORD*, OVERLAPPED*)
{
    ::SetLastError(ERROR_IO_PENDING);
    return FALSE;
}

BOOL WINAPI IncompleteWait(HANDLE, DWORD*, OVERLAPPED*)
{
    ::SetLastError(ERROR_IO_INCOMPLETE);
    return FALSE;
}

BOOL WINAPI RecordingClose(HANDLE port)
{
    Record(port, 0, 0);
    return ::CloseHandle(port);
}

// A port that holds a handle of no port: what it is asked reaches only the fakes.
class CommPort : public ::testing::Test
{
protected:
    CommPort() : m_port(*new CCommPort), m_handle(::CreateEventW(nullptr, FALSE, FALSE, nullptr))
    {
        m_port.Attach(m_handle);
        g_call = {};
    }
    ~CommPort() override { delete &m_port; }

    CCommPort& m_port;   // by reference: the port's destructor may throw, a test's may not
    HANDLE m_handle;
};

class CCountingPort : public CCommPort
{
public:
    void Close() override
    {
        ++closes;
        CCommPort::Close();
    }
    int closes = 0;
};

DCB SomeState()
{
    DCB dcb = {};
    dcb.DCBlength = 7;   // not what the system wants: nobody corrects it
    dcb.BaudRate = CBR_9600;
    dcb.ByteSize = 7;
    dcb.Parity = EVENPARITY;
    dcb.StopBits = TWOSTOPBITS;
    dcb.fParity = 1;
    dcb.fOutxCtsFlow = 1;
    dcb.XonChar = 17;
    return dcb;
}
}   // namespace

TEST_F(CommPort, Construction_IsEmpty)
{
    CCommPort port;

    EXPECT_FALSE(port.IsCreated());
    EXPECT_EQ(INVALID_HANDLE_VALUE, port.Detach());
}

TEST_F(CommPort, OpeningConstructor_PassesItsArguments)
{
    const CImportPatch patch(&::CreateFileW, &RecordingOpen);

    const CCommPort port(L"COM3:", 0x12345678);

    EXPECT_EQ(L"COM3:", g_opening.name);
    EXPECT_EQ(0xC0000000u, g_opening.access);
    EXPECT_EQ(0u, g_opening.share);
    EXPECT_EQ(nullptr, g_opening.sa);
    EXPECT_EQ(3u, g_opening.disposition);
    EXPECT_EQ(0x12345678u, g_opening.flags);
    EXPECT_EQ(nullptr, g_opening.hTemplate);
}

TEST_F(CommPort, Open_PassesItsArguments)
{
    CCommPort port;
    const CImportPatch patch(&::CreateFileW, &RecordingOpen);

    port.Open(L"\\\\.\\COM12", FILE_FLAG_OVERLAPPED);

    EXPECT_EQ(L"\\\\.\\COM12", g_opening.name);
    EXPECT_EQ(0xC0000000u, g_opening.access);
    EXPECT_EQ(0u, g_opening.share);
    EXPECT_EQ(nullptr, g_opening.sa);
    EXPECT_EQ(3u, g_opening.disposition);
    EXPECT_EQ(static_cast<DWORD>(FILE_FLAG_OVERLAPPED), g_opening.flags);
    EXPECT_EQ(nullptr, g_opening.hTemplate);
    EXPECT_TRUE(port.IsCreated());
}

TEST_F(CommPort, Open_ChangesNoSettingOfThePort)
{
    CCommPort port;
    const CImportPatch open(&::CreateFileW, &RecordingOpen);
    const CImportPatch state(&::SetCommState, &FakeSetState);
    const CImportPatch timeouts(&::SetCommTimeouts, &FakeSetTimeouts);
    const CImportPatch mask(&::SetCommMask, &FakeSetMask);
    const CImportPatch setup(&::SetupComm, &FakeSetup);

    port.Open(L"COM3:", 0);

    EXPECT_EQ(nullptr, g_call.port);
}

TEST_F(CommPort, Open_ClosesWhatIsOpenByTheVirtualClose)
{
    CCountingPort port;
    const CImportPatch patch(&::CreateFileW, &RecordingOpen);
    port.Open(L"COM3:", 0);
    port.closes = 0;

    port.Open(L"COM4:", 0);

    EXPECT_EQ(1, port.closes);
}

TEST_F(CommPort, Open_OfAPortThatIsMissing_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND, port.Open(L"\\\\.\\COM254", 0));

    EXPECT_FALSE(port.IsCreated());
}

TEST_F(CommPort, Open_OnFailure_HasClosedTheOldPort)
{
    const CImportPatch patch(&::CloseHandle, &RecordingClose);

    EXPECT_THROW(m_port.Open(L"\\\\.\\COM254", 0), CWinException);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_FALSE(m_port.IsCreated());
}

TEST_F(CommPort, OpeningConstructor_OfAPortThatIsMissing_Throws)
{
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND, const CCommPort port(L"\\\\.\\COM254", 0));
}

TEST_F(CommPort, Open_OfAPortThatIsHeld_Throws)
{
    const CTempFolder folder;
    const ustring stand_in = folder.Write(L"port", "");
    const CCommPort holder(stand_in.c_str(), 0);
    CCommPort port;

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION, port.Open(stand_in.c_str(), 0));

    EXPECT_FALSE(port.IsCreated());
}

TEST_F(CommPort, Open_OfAFile_IsStillThere)
{
    const CTempFolder folder;
    const ustring name = folder.Write(L"file", "12345");
    CCommPort port;

    port.Open(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);

    EXPECT_EQ(5u, port.GetLength());
}

TEST_F(CommPort, SetupComm_PassesItsArguments)
{
    const CImportPatch patch(&::SetupComm, &FakeSetup);

    m_port.SetupComm(1024, 2048);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(1024u, g_call.numbers[0]);
    EXPECT_EQ(2048u, g_call.numbers[1]);
}

TEST_F(CommPort, PurgeComm_PassesItsArguments)
{
    const CImportPatch patch(&::PurgeComm, &FakePurge);

    m_port.PurgeComm(PURGE_RXCLEAR | PURGE_TXABORT);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(static_cast<DWORD>(PURGE_RXCLEAR | PURGE_TXABORT), g_call.numbers[0]);
}

TEST_F(CommPort, EscapeCommFunction_PassesItsArguments)
{
    const CImportPatch patch(&::EscapeCommFunction, &FakeEscape);

    m_port.EscapeCommFunction(SETBREAK);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(static_cast<DWORD>(SETBREAK), g_call.numbers[0]);
}

TEST_F(CommPort, ClearCommError_HandsOutErrorsAndCounts)
{
    const CImportPatch patch(&::ClearCommError, &FakeClearError);
    unsigned long errors = 0;
    COMSTAT stat = {};

    m_port.ClearCommError(errors, stat);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(static_cast<unsigned long>(CE_FRAME), errors);
    EXPECT_EQ(17u, stat.cbInQue);
}

TEST_F(CommPort, ClearCommBreak_PassesThePort)
{
    const CImportPatch patch(&::ClearCommBreak, &FakeClearBreak);

    m_port.ClearCommBreak();

    EXPECT_EQ(m_handle, g_call.port);
}

TEST_F(CommPort, GetCommModemStatus_HandsOutTheLines)
{
    const CImportPatch patch(&::GetCommModemStatus, &FakeModemStatus);
    unsigned long status = 0;

    m_port.GetCommModemStatus(status);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(static_cast<unsigned long>(MS_CTS_ON | MS_RING_ON), status);
}

TEST_F(CommPort, GetCommProperties_HandsOutTheRecord)
{
    const CImportPatch patch(&::GetCommProperties, &FakeProperties);
    COMMPROP prop = {};

    m_port.GetCommProperties(prop);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(&prop, g_call.pointers[0]);
    EXPECT_EQ(static_cast<DWORD>(BAUD_57600), prop.dwMaxBaud);
}

TEST_F(CommPort, GetCommState_FillsInTheLengthBeforehand)
{
    const CImportPatch patch(&::GetCommState, &FakeGetState);
    DCB dcb = {};

    m_port.GetCommState(dcb);

    EXPECT_EQ(28u, g_call.numbers[0]);
}

TEST_F(CommPort, GetCommState_HandsOutTheRecord)
{
    const CImportPatch patch(&::GetCommState, &FakeGetState);
    DCB dcb = {};

    m_port.GetCommState(dcb);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(&dcb, g_call.pointers[0]);
    EXPECT_EQ(static_cast<DWORD>(CBR_4800), dcb.BaudRate);
}

TEST_F(CommPort, SetCommState_PassesTheRecordAsItStands)
{
    const CImportPatch patch(&::SetCommState, &FakeSetState);
    const DCB dcb = SomeState();

    m_port.SetCommState(dcb);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(0, std::memcmp(&dcb, &g_dcb, sizeof dcb));
}

TEST_F(CommPort, SetCommState_GivesTheSystemACopy)
{
    const CImportPatch patch(&::SetCommState, &FakeSetState);
    const DCB dcb = SomeState();

    m_port.SetCommState(dcb);

    EXPECT_NE(&dcb, g_call.pointers[0]);
    EXPECT_EQ(static_cast<DWORD>(CBR_9600), dcb.BaudRate);
}

TEST_F(CommPort, GetCommMask_HandsOutTheMask)
{
    const CImportPatch patch(&::GetCommMask, &FakeGetMask);
    unsigned long mask = 0;

    m_port.GetCommMask(mask);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(static_cast<unsigned long>(EV_RXCHAR | EV_RING), mask);
}

TEST_F(CommPort, SetCommMask_PassesItsArguments)
{
    const CImportPatch patch(&::SetCommMask, &FakeSetMask);

    m_port.SetCommMask(EV_BREAK);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(static_cast<DWORD>(EV_BREAK), g_call.numbers[0]);
}

TEST_F(CommPort, SetCommTimeouts_PassesTheRecord)
{
    const CImportPatch patch(&::SetCommTimeouts, &FakeSetTimeouts);
    const COMMTIMEOUTS timeouts = {1, 2, 3, 4, 5};

    m_port.SetCommTimeouts(timeouts);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(0, std::memcmp(&timeouts, &g_timeouts, sizeof timeouts));
}

TEST_F(CommPort, SetCommTimeouts_GivesTheSystemACopy)
{
    const CImportPatch patch(&::SetCommTimeouts, &FakeSetTimeouts);
    const COMMTIMEOUTS timeouts = {1, 2, 3, 4, 5};

    m_port.SetCommTimeouts(timeouts);

    EXPECT_NE(&timeouts, g_call.pointers[0]);
    EXPECT_EQ(1u, timeouts.ReadIntervalTimeout);
}

TEST_F(CommPort, GetCommTimeouts_HandsOutTheRecord)
{
    const CImportPatch patch(&::GetCommTimeouts, &FakeGetTimeouts);
    COMMTIMEOUTS timeouts = {};

    m_port.GetCommTimeouts(timeouts);

    const COMMTIMEOUTS expected = {1, 2, 3, 4, 5};
    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(0, std::memcmp(&expected, &timeouts, sizeof timeouts));
}

TEST_F(CommPort, TransmitCommChar_PassesItsArguments)
{
    const CImportPatch patch(&::TransmitCommChar, &FakeTransmit);

    m_port.TransmitCommChar('\x03');

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ('\x03', g_call.character);
}

// The mask may be written after the call has returned, so it has to be the caller's own.
TEST_F(CommPort, WaitCommEvent_GivesTheCallersMaskAndOverlappedRecord)
{
    const CImportPatch patch(&::WaitCommEvent, &FakeWait);
    unsigned long mask = 0;
    OVERLAPPED ov = {};

    m_port.WaitCommEvent(mask, &ov);

    EXPECT_EQ(m_handle, g_call.port);
    EXPECT_EQ(&mask, g_call.pointers[0]);
    EXPECT_EQ(&ov, g_call.pointers[1]);
}

TEST_F(CommPort, WaitCommEvent_WhenAnEventIsThere_IsTrue)
{
    const CImportPatch patch(&::WaitCommEvent, &FakeWait);
    unsigned long mask = 0;

    EXPECT_TRUE(m_port.WaitCommEvent(mask, nullptr));

    EXPECT_EQ(static_cast<unsigned long>(EV_RXCHAR), mask);
}

TEST_F(CommPort, WaitCommEvent_WhilePending_IsFalse)
{
    const CImportPatch patch(&::WaitCommEvent, &PendingWait);
    unsigned long mask = 0;
    OVERLAPPED ov = {};

    EXPECT_FALSE(m_port.WaitCommEvent(mask, &ov));
}

TEST_F(CommPort, WaitCommEvent_TakesIncompleteForAFailure)
{
    const CImportPatch patch(&::WaitCommEvent, &IncompleteWait);
    unsigned long mask = 0;

    EXPECT_FAILURE(136, L".\\CommPort", L"WaitCommEvent", ERROR_IO_INCOMPLETE, m_port.WaitCommEvent(mask, nullptr));

    EXPECT_TRUE(m_port.IsCreated());
}
