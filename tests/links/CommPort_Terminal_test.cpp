// A port that answers. serial_test.py starts this program with the name of a pseudo-terminal in VANTOR_TEST_PORT, whose
// other end sends back what it gets. The suite ModemLines wants one that has modem lines, HeldPort one that is a file.

#include "support/Failure.h"

#include <vantor/CommPort.h>
#include <vantor/Exceptions.h>
#include <vantor/Object.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

using namespace vantor;

namespace
{
constexpr DWORD Patience = 10000;   // milliseconds after which a test fails instead of hanging

std::wstring PortName()
{
    wchar_t name[MAX_PATH] = {};
    EXPECT_NE(0u, ::GetEnvironmentVariableW(L"VANTOR_TEST_PORT", name, MAX_PATH));
    return name;
}

unsigned int Queued(CCommPort& port)
{
    unsigned long errors = 0;
    COMSTAT stat = {};
    port.ClearCommError(errors, stat);
    return stat.cbInQue;
}

bool Until(const std::function<bool()>& condition)
{
    const DWORD start = ::GetTickCount();
    while (!condition())
    {
        if (::GetTickCount() - start > Patience)
            return false;
        ::Sleep(1);
    }
    return true;
}

// Opens the port, reads for at most the given time, and forgets what the test before has left.
class CPort
{
public:
    explicit CPort(DWORD flags, DWORD readTimeout = Patience) : port(PortName().c_str(), flags)
    {
        port.PurgeComm(PURGE_RXCLEAR | PURGE_TXCLEAR | PURGE_RXABORT | PURGE_TXABORT);
        port.SetCommTimeouts({0, 0, readTimeout, 0, Patience});
    }

    CCommPort port;
};

// Waits for the end of an operation that is under way.
unsigned int Finish(CCommPort& port, COverlapped& ov)
{
    DWORD transferred = 0;
    ::GetOverlappedResult(port, &ov, &transferred, TRUE);
    return transferred;
}

// ov is null for a port that is not overlapped.
unsigned int Write(CCommPort& port, const char* data, unsigned int size, COverlapped* ov)
{
    unsigned int count = 0;
    return port.Write(data, size, count, ov) ? count : Finish(port, *ov);
}

unsigned int Read(CCommPort& port, char* data, unsigned int size, COverlapped* ov)
{
    unsigned int count = 0;
    return port.Read(data, size, count, ov) ? count : Finish(port, *ov);
}

// So many bytes there and back through buffers of each size from 1 to 70. What is on its way at any time fits the
// terminal.
void Exchange(CCommPort& port, unsigned int total, COverlapped* ov)
{
    constexpr unsigned int largest = 70;
    constexpr unsigned int window = 2048;
    unsigned int random = 1;
    for (unsigned int size = 1; size <= largest; ++size)
    {
        for (unsigned int done = 0; done < total / largest; done += window)
        {
            std::string sent(window, '\0');
            for (char& c : sent)
            {
                random = random * 1664525 + 1013904223;
                c = static_cast<char>(random >> 24);
            }
            for (unsigned int at = 0; at < window;)
            {
                const unsigned int piece = std::min(size, window - at);
                ASSERT_EQ(piece, Write(port, &sent[at], piece, ov)) << "buffer of " << size;
                at += piece;
            }
            std::string received(window, '\0');
            for (unsigned int at = 0; at < window;)
            {
                const unsigned int count = Read(port, &received[at], std::min(size, window - at), ov);
                ASSERT_NE(0u, count) << "buffer of " << size;
                at += count;
            }
            ASSERT_TRUE(sent == received) << "buffer of " << size;
        }
    }
}
}   // namespace

TEST(Terminal, WriteAndRead_AMegabyteThroughBuffersOfEverySize)
{
    CPort held(0);

    Exchange(held.port, 1 << 20, nullptr);
}

// Less than a megabyte: under Wine an overlapped operation costs many times a plain one.
TEST(Terminal, WriteAndRead_OverlappedThroughBuffersOfEverySize)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    COverlapped ov;

    Exchange(held.port, 1 << 17, &ov);
}

TEST(Terminal, Open_OverlappedPort_ReadIsPendingUntilSomethingComes)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    COverlapped io;
    COverlapped ov;
    char buffer[1] = {};
    unsigned int count = 99;

    EXPECT_FALSE(held.port.Read(buffer, 1, count, &ov));

    EXPECT_EQ(0u, count);
    Write(held.port, "x", 1, &io);
    EXPECT_EQ(1u, Finish(held.port, ov));
    EXPECT_EQ('x', buffer[0]);
}

TEST(Terminal, Read_WhenTheTimeIsUp_EndsWithNothing)
{
    CPort held(0, 20);
    char buffer[1];
    unsigned int count = 99;

    EXPECT_TRUE(held.port.Read(buffer, 1, count, nullptr));

    EXPECT_EQ(0u, count);
}

TEST(Terminal, Read_OverlappedWhenTheTimeIsUp_EndsWithNothing)
{
    CPort held(FILE_FLAG_OVERLAPPED, 20);
    COverlapped ov;
    char buffer[1];
    unsigned int count = 99;

    EXPECT_FALSE(held.port.Read(buffer, 1, count, &ov));

    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(ov.hEvent, Patience));
    EXPECT_EQ(0u, Finish(held.port, ov));
}

TEST(Terminal, Read_WhenTheTimeIsUp_HandsOutWhatHasCome)
{
    CPort held(0, 200);
    char buffer[100];
    unsigned int count = 99;
    Write(held.port, "part", 4, nullptr);
    ASSERT_TRUE(Until([&] { return Queued(held.port) == 4; }));

    held.port.Read(buffer, sizeof buffer, count, nullptr);

    EXPECT_EQ("part", std::string(buffer, count));
}

TEST(Terminal, PurgeComm_DropsWhatHasCome)
{
    CPort held(0);
    Write(held.port, "dropped", 7, nullptr);
    ASSERT_TRUE(Until([&] { return Queued(held.port) == 7; }));

    held.port.PurgeComm(PURGE_RXCLEAR);

    EXPECT_EQ(0u, Queued(held.port));
}

TEST(Terminal, Read_ThatIsCancelled_EndsWithNothing)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    COverlapped ov;
    char buffer[1];
    unsigned int count = 99;
    EXPECT_FALSE(held.port.Read(buffer, 1, count, &ov));

    EXPECT_TRUE(::CancelIo(held.port));

    DWORD transferred = 99;
    EXPECT_FALSE(::GetOverlappedResult(held.port, &ov, &transferred, TRUE));
    EXPECT_EQ(static_cast<DWORD>(ERROR_OPERATION_ABORTED), ::GetLastError());
    EXPECT_EQ(0u, transferred);
}

TEST(Terminal, Close_EndsAPendingRead)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    COverlapped ov;
    char buffer[1];
    unsigned int count = 99;
    EXPECT_FALSE(held.port.Read(buffer, 1, count, &ov));

    held.port.Close();

    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(ov.hEvent, Patience));
}

TEST(Terminal, GetCommState_FillsARecordWithoutALength)
{
    CPort held(0);
    DCB dcb = {};

    held.port.GetCommState(dcb);

    EXPECT_EQ(28u, dcb.DCBlength);
    EXPECT_EQ(8, dcb.ByteSize);
}

TEST(Terminal, SetCommState_ChangesTheRate)
{
    CPort held(0);
    DCB dcb = {};
    for (const DWORD rate : {DWORD{CBR_9600}, DWORD{CBR_115200}})
    {
        held.port.GetCommState(dcb);
        dcb.BaudRate = rate;
        held.port.SetCommState(dcb);

        dcb = {};
        held.port.GetCommState(dcb);
        EXPECT_EQ(rate, dcb.BaudRate);
    }
}

TEST(Terminal, SetCommState_ChangesStopBitsAndFlowControl)
{
    CPort held(0);
    DCB dcb = {};
    held.port.GetCommState(dcb);
    dcb.StopBits = TWOSTOPBITS;
    dcb.fOutX = 1;
    dcb.fInX = 1;

    held.port.SetCommState(dcb);

    dcb = {};
    held.port.GetCommState(dcb);
    EXPECT_EQ(TWOSTOPBITS, dcb.StopBits);
    EXPECT_TRUE(dcb.fOutX && dcb.fInX);
    dcb.StopBits = ONESTOPBIT;
    dcb.fOutX = 0;
    dcb.fInX = 0;
    held.port.SetCommState(dcb);
}

TEST(Terminal, SetCommTimeouts_AreReadBack)
{
    CPort held(0);

    held.port.SetCommTimeouts({11, 12, 13, 14, 15});

    COMMTIMEOUTS timeouts = {};
    held.port.GetCommTimeouts(timeouts);
    EXPECT_EQ(11u, timeouts.ReadIntervalTimeout);
    EXPECT_EQ(12u, timeouts.ReadTotalTimeoutMultiplier);
    EXPECT_EQ(13u, timeouts.ReadTotalTimeoutConstant);
    EXPECT_EQ(14u, timeouts.WriteTotalTimeoutMultiplier);
    EXPECT_EQ(15u, timeouts.WriteTotalTimeoutConstant);
}

TEST(Terminal, SetCommMask_IsReadBack)
{
    CPort held(0);

    held.port.SetCommMask(EV_RXCHAR | EV_TXEMPTY);

    unsigned long mask = 0;
    held.port.GetCommMask(mask);
    EXPECT_EQ(static_cast<unsigned long>(EV_RXCHAR | EV_TXEMPTY), mask);
}

TEST(Terminal, SetupComm_TakesQueueSizes)
{
    CPort held(0);

    EXPECT_NO_THROW(held.port.SetupComm(4096, 4096));
}

TEST(Terminal, GetCommProperties_KnowsASerialPort)
{
    CPort held(0);
    COMMPROP prop = {};

    held.port.GetCommProperties(prop);

    EXPECT_EQ(static_cast<DWORD>(SP_SERIALCOMM), prop.dwServiceMask);
}

TEST(Terminal, ClearCommError_CountsWhatHasCome)
{
    CPort held(0);
    Write(held.port, "12345", 5, nullptr);

    EXPECT_TRUE(Until([&] { return Queued(held.port) == 5; }));
}

TEST(Terminal, Break_IsSetAndCleared)
{
    CPort held(0);

    EXPECT_NO_THROW(held.port.EscapeCommFunction(SETBREAK));
    EXPECT_NO_THROW(held.port.ClearCommBreak());
}

TEST(Terminal, TransmitCommChar_SendsTheCharacter)
{
    CPort held(0);

    held.port.TransmitCommChar('!');

    char buffer[1] = {};
    EXPECT_EQ(1u, Read(held.port, buffer, 1, nullptr));
    EXPECT_EQ('!', buffer[0]);
}

TEST(Terminal, Open_AgainWithOtherFlags_WorksOn)
{
    CPort held(0);
    COverlapped io;

    held.port.Open(PortName().c_str(), FILE_FLAG_OVERLAPPED);

    held.port.SetCommTimeouts({0, 0, Patience, 0, Patience});
    char buffer[1] = {};
    Write(held.port, "y", 1, &io);
    EXPECT_EQ(1u, Read(held.port, buffer, 1, &io));
}

TEST(ModemLines, GetCommModemStatus_TellsTheInputs)
{
    CPort held(0);
    unsigned long status = 0;

    held.port.GetCommModemStatus(status);

    EXPECT_EQ(static_cast<unsigned long>(MS_CTS_ON | MS_DSR_ON | MS_RLSD_ON), status);
}

TEST(ModemLines, EscapeCommFunction_SetsAndClearsTheOutputs)
{
    CPort held(0);

    for (const unsigned long function : {SETDTR, CLRDTR, SETRTS, CLRRTS})
        EXPECT_NO_THROW(held.port.EscapeCommFunction(function)) << function;
}

TEST(ModemLines, WaitCommEvent_WhenNothingHappens_IsPending)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    COverlapped io;
    held.port.SetCommMask(EV_RXCHAR);
    COverlapped ov;
    unsigned long mask = 0;

    EXPECT_FALSE(held.port.WaitCommEvent(mask, &ov));

    EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), ::WaitForSingleObject(ov.hEvent, 0));
    Write(held.port, "x", 1, &io);
    ::WaitForSingleObject(ov.hEvent, Patience);
}

TEST(ModemLines, WaitCommEvent_WhenACharacterComes_Ends)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    COverlapped io;
    held.port.SetCommMask(EV_RXCHAR);
    COverlapped ov;
    unsigned long mask = 0;
    ASSERT_FALSE(held.port.WaitCommEvent(mask, &ov));

    Write(held.port, "x", 1, &io);

    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(ov.hEvent, Patience));
    EXPECT_EQ(static_cast<unsigned long>(EV_RXCHAR), mask);
}

TEST(ModemLines, WaitCommEvent_WhenTheMaskIsSet_Ends)
{
    CPort held(FILE_FLAG_OVERLAPPED);
    held.port.SetCommMask(EV_RXCHAR);
    COverlapped ov;
    unsigned long mask = 99;
    ASSERT_FALSE(held.port.WaitCommEvent(mask, &ov));

    held.port.SetCommMask(EV_RING);

    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(ov.hEvent, Patience));
    EXPECT_EQ(0u, mask);
}

TEST(HeldPort, Open_Throws)
{
    const CCommPort holder(PortName().c_str(), 0);
    CCommPort port;

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION, port.Open(PortName().c_str(), 0));

    EXPECT_FALSE(port.IsCreated());
}
