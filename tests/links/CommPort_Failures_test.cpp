// A port that is not open refuses everything: the system gets INVALID_HANDLE_VALUE and says 6. And a port that is open
// keeps its handle when a call fails.

#include "support/Failure.h"
#include "support/Slots.h"
#include "support/TempFolder.h"

#include <vantor/CommPort.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace vantor;
using support::CTempFolder;

namespace
{
struct CAppending : CCommPort
{
    virtual void Appended() {}
};
}   // namespace

TEST(UnopenedCommPort, SetupComm_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(33, L".\\CommPort", L"SetupComm", ERROR_INVALID_HANDLE, port.SetupComm(64, 64));
}

TEST(UnopenedCommPort, PurgeComm_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(40, L".\\CommPort", L"PurgeComm", ERROR_INVALID_HANDLE, port.PurgeComm(PURGE_RXCLEAR));
}

TEST(UnopenedCommPort, EscapeCommFunction_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(47, L".\\CommPort", L"EscapeCommFunction", ERROR_INVALID_HANDLE, port.EscapeCommFunction(SETDTR));
}

TEST(UnopenedCommPort, ClearCommError_Throws)
{
    CCommPort port;
    unsigned long errors = 0;
    COMSTAT stat = {};

    EXPECT_FAILURE(54, L".\\CommPort", L"ClearCommError", ERROR_INVALID_HANDLE, port.ClearCommError(errors, stat));
}

TEST(UnopenedCommPort, ClearCommBreak_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(61, L".\\CommPort", L"ClearCommBreak", ERROR_INVALID_HANDLE, port.ClearCommBreak());
}

TEST(UnopenedCommPort, GetCommModemStatus_Throws)
{
    CCommPort port;
    unsigned long status = 0;

    EXPECT_FAILURE(68, L".\\CommPort", L"GetCommModemStatus", ERROR_INVALID_HANDLE, port.GetCommModemStatus(status));
}

TEST(UnopenedCommPort, GetCommProperties_Throws)
{
    CCommPort port;
    COMMPROP prop = {};

    EXPECT_FAILURE(75, L".\\CommPort", L"GetCommProperties", ERROR_INVALID_HANDLE, port.GetCommProperties(prop));
}

TEST(UnopenedCommPort, GetCommState_Throws)
{
    CCommPort port;
    DCB dcb = {};

    EXPECT_FAILURE(83, L".\\CommPort", L"GetCommState", ERROR_INVALID_HANDLE, port.GetCommState(dcb));
}

TEST(UnopenedCommPort, SetCommState_Throws)
{
    CCommPort port;
    DCB dcb = {};
    dcb.DCBlength = sizeof dcb;
    dcb.BaudRate = CBR_9600;
    dcb.ByteSize = 8;

    EXPECT_FAILURE(91, L".\\CommPort", L"SetCommState", ERROR_INVALID_HANDLE, port.SetCommState(dcb));
}

TEST(UnopenedCommPort, GetCommMask_Throws)
{
    CCommPort port;
    unsigned long mask = 0;

    EXPECT_FAILURE(98, L".\\CommPort", L"GetCommMask", ERROR_INVALID_HANDLE, port.GetCommMask(mask));
}

TEST(UnopenedCommPort, SetCommMask_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(105, L".\\CommPort", L"SetCommMask", ERROR_INVALID_HANDLE, port.SetCommMask(EV_RXCHAR));
}

TEST(UnopenedCommPort, SetCommTimeouts_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(114, L".\\CommPort", L"SetCommTimeouts", ERROR_INVALID_HANDLE,
                   port.SetCommTimeouts({0, 0, 500, 0, 500}));
}

TEST(UnopenedCommPort, GetCommTimeouts_Throws)
{
    CCommPort port;
    COMMTIMEOUTS timeouts = {};

    EXPECT_FAILURE(121, L".\\CommPort", L"GetCommTimeouts", ERROR_INVALID_HANDLE, port.GetCommTimeouts(timeouts));
}

TEST(UnopenedCommPort, TransmitCommChar_Throws)
{
    CCommPort port;

    EXPECT_FAILURE(128, L".\\CommPort", L"TransmitCommChar", ERROR_INVALID_HANDLE, port.TransmitCommChar('x'));
}

TEST(UnopenedCommPort, WaitCommEvent_Throws)
{
    CCommPort port;
    unsigned long mask = 0;

    EXPECT_FAILURE(136, L".\\CommPort", L"WaitCommEvent", ERROR_INVALID_HANDLE, port.WaitCommEvent(mask, nullptr));
}

TEST(UnopenedCommPort, Read_ThrowsAsAFileDoes)
{
    CCommPort port;
    char buffer[1];
    unsigned int done = 99;

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", ERROR_INVALID_HANDLE, port.Read(buffer, 1, done, nullptr));
}

TEST(CommPortThatIsNone, Calls_ThrowAndKeepTheHandle)
{
    const CTempFolder folder;
    CCommPort port(folder.Write(L"no port", "").c_str(), 0);

    EXPECT_THROW(port.SetCommMask(EV_RXCHAR), CWinException);

    EXPECT_TRUE(port.IsCreated());
}

TEST(CommPortSlots, AreThoseOfAFileAndOpen)
{
    using support::Unnamed;
    support::ExpectSlots("_ZTVN6vantor9CCommPortE",
                         {Unnamed, Unnamed, "_ZNK6vantor7CHandle9IsCreatedEv", "_ZN6vantor7CHandle5CloseEv",
                          "_ZN6vantor5CFile4OpenEPKwmmP20_SECURITY_ATTRIBUTESmmPv",
                          "_ZN6vantor5CFile4ReadEPvjRjP11_OVERLAPPED", "_ZN6vantor5CFile5WriteEPKvjRjP11_OVERLAPPED",
                          "_ZN6vantor5CFile5FlushEv", "_ZNK6vantor5CFile11GetPositionEv", "_ZN6vantor5CFile4SeekExm",
                          "_ZNK6vantor5CFile9GetLengthEv", "_ZN6vantor5CFile9SetLengthEy",
                          "_ZN6vantor9CCommPort4OpenEPKwm"});
}

// A pointer to a virtual member holds the slot's offset, plus one. The destructor has two slots.
TEST(CommPortSlots, EndWithOpen)
{
    void (CAppending::*const appended)() = &CAppending::Appended;
    std::size_t slot = 0;
    std::memcpy(&slot, &appended, sizeof slot);

    EXPECT_EQ(13 * sizeof(void*) + 1, slot);
}

TEST(CommPortLayout, AddsNoField)
{
    EXPECT_EQ(sizeof(CFile), sizeof(CCommPort));
}
