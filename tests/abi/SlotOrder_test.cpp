// The order of virtual operations of the classes without windows; tests/ui has the others.

#include "support/Slots.h"

namespace
{
using support::ExpectSlots;
using support::Unnamed;

constexpr char IsCreated[] = "_ZNK6vantor7CHandle9IsCreatedEv";
constexpr char Close[] = "_ZN6vantor7CHandle5CloseEv";
constexpr char GetErrorMessageUI[] = "_ZNK6vantor13CStdException17GetErrorMessageUIERNS_7ustringE";
constexpr char ReportError[] = "_ZNK6vantor13CStdException11ReportErrorEP6HWND__jPKwj";
}   // namespace

TEST(SlotOrder, Handle)
{
    ExpectSlots("_ZTVN6vantor7CHandleE", {"_ZN6vantor7CHandleD1Ev", "_ZN6vantor7CHandleD0Ev", IsCreated, Close});
}

TEST(SlotOrder, Event_IsThatOfHandle)
{
    ExpectSlots("_ZTVN6vantor6CEventE", {Unnamed, Unnamed, IsCreated, Close});
}

TEST(SlotOrder, Mutex_IsThatOfHandle)
{
    ExpectSlots("_ZTVN6vantor6CMutexE", {Unnamed, Unnamed, IsCreated, Close});
}

TEST(SlotOrder, CriticalSection_ReplacesTheDestructorAlone)
{
    ExpectSlots("_ZTVN6vantor16CCriticalSectionE",
                {"_ZN6vantor16CCriticalSectionD1Ev", "_ZN6vantor16CCriticalSectionD0Ev", IsCreated, Close});
}

TEST(SlotOrder, WSAEvent_ReplacesClose)
{
    ExpectSlots("_ZTVN6vantor9CWSAEventE", {Unnamed, Unnamed, IsCreated, "_ZN6vantor9CWSAEvent5CloseEv"});
}

TEST(SlotOrder, Overlapped_HasADestructor)
{
    ExpectSlots("_ZTVN6vantor11COverlappedE", {"_ZN6vantor11COverlappedD1Ev", "_ZN6vantor11COverlappedD0Ev"});
}

TEST(SlotOrder, WSAOverlapped_HasADestructor)
{
    ExpectSlots("_ZTVN6vantor14CWSAOverlappedE", {"_ZN6vantor14CWSAOverlappedD1Ev", "_ZN6vantor14CWSAOverlappedD0Ev"});
}

TEST(SlotOrder, File_AppendsItsOperationsToThoseOfHandle)
{
    ExpectSlots("_ZTVN6vantor5CFileE",
                {Unnamed, Unnamed, IsCreated, Close, "_ZN6vantor5CFile4OpenEPKwmmP20_SECURITY_ATTRIBUTESmmPv",
                 "_ZN6vantor5CFile4ReadEPvjRjP11_OVERLAPPED", "_ZN6vantor5CFile5WriteEPKvjRjP11_OVERLAPPED",
                 "_ZN6vantor5CFile5FlushEv", "_ZNK6vantor5CFile11GetPositionEv", "_ZN6vantor5CFile4SeekExm",
                 "_ZNK6vantor5CFile9GetLengthEv", "_ZN6vantor5CFile9SetLengthEy"});
}

TEST(SlotOrder, StdException)
{
    // Clone, Throw, GetSource and GetErrorMessage are pure.
    ExpectSlots("_ZTVN6vantor13CStdExceptionE",
                {Unnamed, Unnamed, Unnamed, Unnamed, Unnamed, Unnamed, GetErrorMessageUI, ReportError});
}

TEST(SlotOrder, WinException)
{
    ExpectSlots("_ZTVN6vantor13CWinExceptionE",
                {Unnamed, Unnamed, "_ZN6vantor13CWinException5CloneEv", "_ZNK6vantor13CWinException5ThrowEv",
                 "_ZNK6vantor13CWinException9GetSourceERNS_7ustringE",
                 "_ZNK6vantor13CWinException15GetErrorMessageERNS_7ustringE", GetErrorMessageUI, ReportError});
}

TEST(SlotOrder, CommException_ReplacesGetErrorMessageUI)
{
    ExpectSlots("_ZTVN6vantor14CCommExceptionE",
                {Unnamed, Unnamed, "_ZN6vantor14CCommException5CloneEv", "_ZNK6vantor14CCommException5ThrowEv",
                 "_ZNK6vantor14CCommException9GetSourceERNS_7ustringE",
                 "_ZNK6vantor14CCommException15GetErrorMessageERNS_7ustringE",
                 "_ZNK6vantor14CCommException17GetErrorMessageUIERNS_7ustringE", ReportError});
}

TEST(SlotOrder, MatrixException)
{
    ExpectSlots("_ZTVN6vantor16CMatrixExceptionE",
                {Unnamed, Unnamed, "_ZN6vantor16CMatrixException5CloneEv", "_ZNK6vantor16CMatrixException5ThrowEv",
                 "_ZNK6vantor16CMatrixException9GetSourceERNS_7ustringE",
                 "_ZNK6vantor16CMatrixException15GetErrorMessageERNS_7ustringE", GetErrorMessageUI, ReportError});
}

TEST(SlotOrder, Translator_HasADestructor)
{
    ExpectSlots("_ZTVN6vantor11CTranslatorE", {"_ZN6vantor11CTranslatorD1Ev", "_ZN6vantor11CTranslatorD0Ev"});
}
