// CEvent and COverlapped.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <vantor/Object.h>

#include <gtest/gtest.h>

#include <cstring>
#include <new>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;
using support::CResources;

namespace
{
struct CEventArguments
{
    SECURITY_ATTRIBUTES* sa = reinterpret_cast<SECURITY_ATTRIBUTES*>(1);
    int manualReset = -1;
    int initialState = -1;
    DWORD access = 0;
    int inherit = -1;
    const wchar_t* name = L"not called";
};
CEventArguments g_arguments;

HANDLE WINAPI RecordingCreateEvent(SECURITY_ATTRIBUTES* sa, BOOL manualReset, BOOL initialState, const wchar_t* name)
{
    g_arguments.sa = sa;
    g_arguments.manualReset = manualReset;
    g_arguments.initialState = initialState;
    g_arguments.name = name;
    return ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

HANDLE WINAPI RecordingOpenEvent(DWORD access, BOOL inherit, const wchar_t* name)
{
    g_arguments.access = access;
    g_arguments.inherit = inherit;
    g_arguments.name = name;
    return ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

HANDLE WINAPI FailingCreateEvent(SECURITY_ATTRIBUTES*, BOOL, BOOL, const wchar_t*)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

class Event : public ::testing::Test
{
protected:
    void SetUp() override { g_arguments = CEventArguments(); }
};
using Overlapped = Event;
}   // namespace

TEST_F(Event, DefaultConstruction_PassesFourZeros)
{
    const CImportPatch patch(&::CreateEventW, &RecordingCreateEvent);

    const CEvent event;

    EXPECT_EQ(g_arguments.sa, nullptr);
    EXPECT_EQ(g_arguments.manualReset, 0);
    EXPECT_EQ(g_arguments.initialState, 0);
    EXPECT_EQ(g_arguments.name, nullptr);
}

TEST_F(Event, Construction_PassesItsArgumentsOn)
{
    const CImportPatch patch(&::CreateEventW, &RecordingCreateEvent);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, FALSE};
    const wchar_t* const name = L"name";

    const CEvent event(&sa, 5, 6, name);

    EXPECT_EQ(g_arguments.sa, &sa);
    EXPECT_EQ(g_arguments.manualReset, 5);
    EXPECT_EQ(g_arguments.initialState, 6);
    EXPECT_EQ(g_arguments.name, name);
}

TEST_F(Event, DefaultConstruction_MakesAnEventThatIsNotSignalled)
{
    const CEvent event;

    EXPECT_TRUE(event.IsCreated());
    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(Event, DefaultConstruction_MakesAnEventThatResetsItself)
{
    CEvent event;
    event.Set();

    EXPECT_TRUE(IsSignalled(event));
    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(Event, ManualReset_StaysSignalledUntilReset)
{
    CEvent event(nullptr, TRUE, FALSE, nullptr);
    event.Set();
    EXPECT_TRUE(IsSignalled(event));
    EXPECT_TRUE(IsSignalled(event));

    event.Reset();

    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(Event, InitialState_IsSignalledIfAskedFor)
{
    const CEvent event(nullptr, TRUE, TRUE, nullptr);

    EXPECT_TRUE(IsSignalled(event));
}

TEST_F(Event, EmptyValue_IsNull)
{
    CEvent event;
    event.Close();

    EXPECT_EQ(event.Detach(), nullptr);
}

TEST_F(Event, Construction_OnANameOfAnotherKind_Throws)
{
    const ustring name = UniqueName(L"mutex");
    const CMutex mutex(nullptr, FALSE, name.c_str());

    EXPECT_FAILURE(74, L".\\Object", L"CreateEventW", ERROR_INVALID_HANDLE,
                   const CEvent event(nullptr, FALSE, FALSE, name.c_str()));
}

TEST_F(Event, Construction_OnFailure_LeavesNothingOpen)
{
    const ustring name = UniqueName(L"mutex");
    const CMutex mutex(nullptr, FALSE, name.c_str());
    EXPECT_THROW(CEvent(nullptr, FALSE, FALSE, name.c_str()), CWinException);
    (void)CResources();   // the first count allocates, too
    const CResources before;

    EXPECT_THROW(CEvent(nullptr, FALSE, FALSE, name.c_str()), CWinException);

    EXPECT_EQ(before, CResources());
}

TEST_F(Event, Construction_WithoutMemory_ReportsTheSystemsCode)
{
    const CImportPatch patch(&::CreateEventW, &FailingCreateEvent);

    EXPECT_FAILURE(74, L".\\Object", L"CreateEventW", ERROR_NOT_ENOUGH_MEMORY, const CEvent event);
}

TEST_F(Event, Opening_PassesItsArgumentsOn)
{
    const CImportPatch patch(&::OpenEventW, &RecordingOpenEvent);
    const wchar_t* const name = L"name";

    const CEvent event(EVENT_MODIFY_STATE, 7, name);

    EXPECT_EQ(g_arguments.access, static_cast<DWORD>(EVENT_MODIFY_STATE));
    EXPECT_EQ(g_arguments.inherit, 7);
    EXPECT_EQ(g_arguments.name, name);
}

TEST_F(Event, Opening_ReachesTheEventOfThatName)
{
    const ustring name = UniqueName(L"event");
    const CEvent created(nullptr, FALSE, FALSE, name.c_str());
    CEvent opened(EVENT_ALL_ACCESS, FALSE, name.c_str());

    opened.Set();

    EXPECT_TRUE(IsSignalled(created));
}

TEST_F(Event, Opening_OfAMissingEvent_Throws)
{
    const ustring name = UniqueName(L"missing");

    EXPECT_FAILURE(81, L".\\Object", L"OpenEventW", ERROR_FILE_NOT_FOUND,
                   const CEvent event(EVENT_ALL_ACCESS, FALSE, name.c_str()));
}

TEST_F(Event, Opening_WithoutAName_Throws)
{
    const wchar_t* const name = nullptr;

    EXPECT_FAILURE(81, L".\\Object", L"OpenEventW", ERROR_INVALID_PARAMETER,
                   const CEvent event(EVENT_ALL_ACCESS, FALSE, name));
}

TEST_F(Event, Opening_OnFailure_LeavesNothingOpen)
{
    const ustring name = UniqueName(L"missing");
    EXPECT_THROW(CEvent(EVENT_ALL_ACCESS, FALSE, name.c_str()), CWinException);
    (void)CResources();   // the first count allocates, too
    const CResources before;

    EXPECT_THROW(CEvent(EVENT_ALL_ACCESS, FALSE, name.c_str()), CWinException);

    EXPECT_EQ(before, CResources());
}

TEST_F(Event, Set_OfAnEmptyObject_Throws)
{
    CEvent event;
    event.Close();

    EXPECT_FAILURE(93, L".\\Object", L"SetEvent", ERROR_INVALID_HANDLE, event.Set());
}

TEST_F(Event, Set_WithoutTheRight_ThrowsAndKeepsTheEvent)
{
    const ustring name = UniqueName(L"event");
    const CEvent created(nullptr, TRUE, FALSE, name.c_str());
    CEvent opened(SYNCHRONIZE, FALSE, name.c_str());

    EXPECT_FAILURE(93, L".\\Object", L"SetEvent", ERROR_ACCESS_DENIED, opened.Set());
    EXPECT_TRUE(opened.IsCreated());
    EXPECT_FALSE(IsSignalled(created));
}

TEST_F(Event, Reset_OfAnEmptyObject_Throws)
{
    CEvent event;
    event.Close();

    EXPECT_FAILURE(100, L".\\Object", L"ResetEvent", ERROR_INVALID_HANDLE, event.Reset());
}

TEST_F(Event, Reset_WithoutTheRight_ThrowsAndKeepsTheEvent)
{
    const ustring name = UniqueName(L"event");
    const CEvent created(nullptr, TRUE, TRUE, name.c_str());
    CEvent opened(SYNCHRONIZE, FALSE, name.c_str());

    EXPECT_FAILURE(100, L".\\Object", L"ResetEvent", ERROR_ACCESS_DENIED, opened.Reset());
    EXPECT_TRUE(opened.IsCreated());
    EXPECT_TRUE(IsSignalled(created));
}

TEST_F(Overlapped, DefaultConstruction_HasAnEventThatIsNotSignalled)
{
    const COverlapped overlapped;

    EXPECT_TRUE(IsOpen(overlapped.hEvent));
    EXPECT_FALSE(IsSignalled(overlapped.hEvent));
}

TEST_F(Overlapped, DefaultConstruction_HasAnEventThatResetsItself)
{
    COverlapped overlapped;
    overlapped.SetEvent();

    EXPECT_TRUE(IsSignalled(overlapped.hEvent));
    EXPECT_FALSE(IsSignalled(overlapped.hEvent));
}

TEST_F(Overlapped, Construction_ZeroesTheOtherFields)
{
    alignas(COverlapped) unsigned char memory[sizeof(COverlapped)];
    std::memset(memory, 0xCC, sizeof memory);

    COverlapped* const overlapped = new (memory) COverlapped;

    EXPECT_EQ(overlapped->Internal, 0u);
    EXPECT_EQ(overlapped->InternalHigh, 0u);
    EXPECT_EQ(overlapped->Offset, 0u);
    EXPECT_EQ(overlapped->OffsetHigh, 0u);
    overlapped->~COverlapped();
}

TEST_F(Overlapped, DefaultConstruction_PassesFourZeros)
{
    const CImportPatch patch(&::CreateEventW, &RecordingCreateEvent);

    const COverlapped overlapped;

    EXPECT_EQ(g_arguments.sa, nullptr);
    EXPECT_EQ(g_arguments.manualReset, 0);
    EXPECT_EQ(g_arguments.initialState, 0);
    EXPECT_EQ(g_arguments.name, nullptr);
}

TEST_F(Overlapped, Construction_PassesItsArgumentsToTheEvent)
{
    const CImportPatch patch(&::CreateEventW, &RecordingCreateEvent);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, FALSE};
    const wchar_t* const name = L"name";

    const COverlapped overlapped(&sa, 5, 6, name);

    EXPECT_EQ(g_arguments.sa, &sa);
    EXPECT_EQ(g_arguments.manualReset, 5);
    EXPECT_EQ(g_arguments.initialState, 6);
    EXPECT_EQ(g_arguments.name, name);
}

TEST_F(Overlapped, Construction_OnFailure_ThrowsAsTheEventDoes)
{
    const ustring name = UniqueName(L"mutex");
    const CMutex mutex(nullptr, FALSE, name.c_str());

    EXPECT_FAILURE(74, L".\\Object", L"CreateEventW", ERROR_INVALID_HANDLE,
                   const COverlapped overlapped(nullptr, FALSE, FALSE, name.c_str()));
}

TEST_F(Overlapped, ResetEvent_TakesTheSignalBack)
{
    COverlapped overlapped(nullptr, TRUE, TRUE, nullptr);

    overlapped.ResetEvent();

    EXPECT_FALSE(IsSignalled(overlapped.hEvent));
}

TEST_F(Overlapped, Destructor_ClosesTheEvent)
{
    HANDLE h;
    {
        const COverlapped overlapped;
        h = overlapped.hEvent;
    }

    EXPECT_FALSE(IsOpen(h));
}

TEST_F(Overlapped, Record_StandsDirectlyBehindTheVirtualTable)
{
    COverlapped overlapped;
    const OVERLAPPED* const record = &overlapped;

    EXPECT_EQ(reinterpret_cast<const char*>(record) - reinterpret_cast<const char*>(&overlapped),
              static_cast<std::ptrdiff_t>(sizeof(void*)));
}
