// CHandle, and what every class that owns a handle has from it.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <vantor/File.h>
#include <vantor/Object.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;

namespace
{
HANDLE NewEvent()
{
    return ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
}

std::vector<HANDLE> g_closed;

BOOL WINAPI RecordingCloseHandle(HANDLE h)
{
    g_closed.push_back(h);
    return ::CloseHandle(h);
}

BOOL WINAPI FailingCloseHandle(HANDLE h)
{
    g_closed.push_back(h);
    ::SetLastError(0xDEADBEEF);
    return FALSE;
}

// Counts the calls of its own Close.
class CCountingHandle : public CHandle
{
public:
    explicit CCountingHandle(int& closes) : CHandle(nullptr), m_closes(closes) {}
    void Close() override
    {
        ++m_closes;
        CHandle::Close();
    }

private:
    int& m_closes;
};

// An owner with members that close in their destructors.
struct COwner
{
    CEvent event;
};

class Handle : public ::testing::Test
{
protected:
    void SetUp() override { g_closed.clear(); }
};
}   // namespace

TEST_F(Handle, Construction_HoldsTheInvalidValue)
{
    int marker;
    const CHandle handle(&marker);

    EXPECT_FALSE(handle.IsCreated());
    EXPECT_EQ(static_cast<void*>(handle), &marker);
}

TEST_F(Handle, Attach_OnAnEmptyObject_TakesTheHandle)
{
    const HANDLE h = NewEvent();
    CHandle handle(nullptr);

    EXPECT_TRUE(handle.Attach(h));
    EXPECT_TRUE(handle.IsCreated());
    EXPECT_EQ(static_cast<void*>(handle), h);
}

TEST_F(Handle, Attach_OnAHoldingObject_ReturnsFalseAndKeepsTheOldHandle)
{
    const HANDLE first = NewEvent();
    CHandle handle(nullptr);
    handle.Attach(first);
    int other;

    EXPECT_FALSE(handle.Attach(&other));
    EXPECT_EQ(static_cast<void*>(handle), first);
}

TEST_F(Handle, Attach_AfterDetach_Succeeds)
{
    const HANDLE first = NewEvent();
    const HANDLE second = NewEvent();
    CHandle handle(nullptr);
    handle.Attach(first);
    ::CloseHandle(handle.Detach());

    EXPECT_TRUE(handle.Attach(second));
    EXPECT_EQ(static_cast<void*>(handle), second);
}

TEST_F(Handle, Attach_OfTheInvalidValue_SucceedsAndLeavesTheObjectEmpty)
{
    CHandle handle(INVALID_HANDLE_VALUE);

    EXPECT_TRUE(handle.Attach(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(handle.IsCreated());
}

TEST_F(Handle, Attach_OfNullWhereNullIsNotTheInvalidValue_CountsAsHeld)
{
    CHandle handle(INVALID_HANDLE_VALUE);
    handle.Attach(nullptr);

    EXPECT_TRUE(handle.IsCreated());
    handle.Detach();
}

TEST_F(Handle, Detach_GivesTheHandleAwayWithoutClosingIt)
{
    const HANDLE h = NewEvent();
    CHandle handle(nullptr);
    handle.Attach(h);

    EXPECT_EQ(handle.Detach(), h);
    EXPECT_FALSE(handle.IsCreated());
    EXPECT_TRUE(IsOpen(h));
    ::CloseHandle(h);
}

TEST_F(Handle, Detach_OfAnEmptyObject_ReturnsTheInvalidValue)
{
    CHandle handle(INVALID_HANDLE_VALUE);

    EXPECT_EQ(handle.Detach(), INVALID_HANDLE_VALUE);
}

TEST_F(Handle, Close_ClosesTheHandleAndEmptiesTheObject)
{
    const HANDLE h = NewEvent();
    CHandle handle(INVALID_HANDLE_VALUE);
    handle.Attach(h);

    handle.Close();

    EXPECT_FALSE(IsOpen(h));
    EXPECT_EQ(static_cast<void*>(handle), INVALID_HANDLE_VALUE);
}

TEST_F(Handle, Close_OfAnEmptyObject_DoesNothing)
{
    CHandle handle(INVALID_HANDLE_VALUE);
    const CImportPatch patch(&::CloseHandle, &RecordingCloseHandle);

    handle.Close();

    EXPECT_TRUE(g_closed.empty());
}

TEST_F(Handle, Close_Twice_ClosesOnce)
{
    CHandle handle(nullptr);
    handle.Attach(NewEvent());
    const CImportPatch patch(&::CloseHandle, &RecordingCloseHandle);

    handle.Close();
    handle.Close();

    EXPECT_EQ(g_closed.size(), 1u);
}

TEST_F(Handle, Close_OfAHandleThatCannotBeClosed_Throws)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);
    CHandle handle(nullptr);
    handle.Attach(h);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, handle.Close());
}

TEST_F(Handle, Close_OnFailure_LeavesTheObjectEmpty)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);
    CHandle handle(nullptr);
    handle.Attach(h);

    EXPECT_THROW(handle.Close(), CWinException);

    EXPECT_FALSE(handle.IsCreated());
}

TEST_F(Handle, Close_AfterAFailedClose_DoesNothing)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);
    CHandle handle(nullptr);
    handle.Attach(h);
    EXPECT_THROW(handle.Close(), CWinException);

    EXPECT_NO_THROW(handle.Close());
}

TEST_F(Handle, Close_OnFailure_ReportsTheSystemsCode)
{
    CHandle handle(nullptr);
    int notAHandle;
    handle.Attach(&notAHandle);
    const CImportPatch patch(&::CloseHandle, &FailingCloseHandle);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", 0xDEADBEEF, handle.Close());
}

TEST_F(Handle, Destructor_ClosesTheHandle)
{
    const HANDLE h = NewEvent();
    {
        CHandle handle(nullptr);
        handle.Attach(h);
    }

    EXPECT_FALSE(IsOpen(h));
}

TEST_F(Handle, Destructor_OfAnEmptyObject_ClosesNothing)
{
    const CImportPatch patch(&::CloseHandle, &RecordingCloseHandle);
    {
        const CHandle handle(INVALID_HANDLE_VALUE);
    }

    EXPECT_TRUE(g_closed.empty());
}

TEST_F(Handle, Destructor_UsesTheBasesClose)
{
    const HANDLE h = NewEvent();
    int closes = 0;
    {
        CCountingHandle handle(closes);
        handle.Attach(h);
    }

    EXPECT_FALSE(IsOpen(h));
    EXPECT_EQ(closes, 0);
}

TEST_F(Handle, Destructor_ThroughTheBase_ClosesTheHandle)
{
    CHandle* const handle = new CEvent;
    const HANDLE h = *handle;

    delete handle;

    EXPECT_FALSE(IsOpen(h));
}

TEST_F(Handle, Destructor_OnFailure_Throws)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, CHandle handle(nullptr); handle.Attach(h));
}

TEST_F(Handle, Destructor_OfAnEvent_OnFailure_Throws)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, CEvent event; event.Close();
                   event.Attach(h));
}

TEST_F(Handle, Destructor_OfAMutex_OnFailure_Throws)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, CMutex mutex(nullptr, FALSE, nullptr);
                   mutex.Close(); mutex.Attach(h));
}

TEST_F(Handle, Destructor_OfAFile_OnFailure_Throws)
{
    const HANDLE h = NewEvent();
    const CProtectedHandle guard(h);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, CFile file; file.Attach(h));
}

TEST_F(Handle, Destructor_OfAnOverlapped_OnFailure_Throws)
{
    const CImportPatch patch(&::CloseHandle, &FailingCloseHandle);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", 0xDEADBEEF, const COverlapped overlapped);

    ASSERT_EQ(g_closed.size(), 1u);
    ::CloseHandle(g_closed[0]);
}

TEST_F(Handle, Destructor_OfAContainingClass_OnFailure_Throws)
{
    const CImportPatch patch(&::CloseHandle, &FailingCloseHandle);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", 0xDEADBEEF, const COwner owner);

    ASSERT_EQ(g_closed.size(), 1u);
    ::CloseHandle(g_closed[0]);
}

TEST_F(Handle, Destructors_AreAllowedToThrow)
{
    EXPECT_FALSE(std::is_nothrow_destructible<CHandle>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<CEvent>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<CMutex>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<CCriticalSection>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<CWSAEvent>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<COverlapped>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<CWSAOverlapped>::value);
    EXPECT_FALSE(std::is_nothrow_destructible<CFile>::value);
}

TEST_F(Handle, OwningClasses_CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible<CHandle>::value || std::is_copy_assignable<CHandle>::value);
    EXPECT_FALSE(std::is_copy_constructible<CEvent>::value || std::is_copy_assignable<CEvent>::value);
    EXPECT_FALSE(std::is_copy_constructible<CMutex>::value || std::is_copy_assignable<CMutex>::value);
    EXPECT_FALSE(std::is_copy_constructible<CCriticalSection>::value ||
                 std::is_copy_assignable<CCriticalSection>::value);
    EXPECT_FALSE(std::is_copy_constructible<CWSAEvent>::value || std::is_copy_assignable<CWSAEvent>::value);
    EXPECT_FALSE(std::is_copy_constructible<COverlapped>::value || std::is_copy_assignable<COverlapped>::value);
    EXPECT_FALSE(std::is_copy_constructible<CWSAOverlapped>::value || std::is_copy_assignable<CWSAOverlapped>::value);
    EXPECT_FALSE(std::is_copy_constructible<CFile>::value || std::is_copy_assignable<CFile>::value);
}

TEST_F(Handle, EveryOwningClass_IsAHandle)
{
    EXPECT_TRUE((std::is_convertible<CEvent*, CHandle*>::value));
    EXPECT_TRUE((std::is_convertible<CMutex*, CHandle*>::value));
    EXPECT_TRUE((std::is_convertible<CCriticalSection*, CHandle*>::value));
    EXPECT_TRUE((std::is_convertible<CWSAEvent*, CHandle*>::value));
    EXPECT_TRUE((std::is_convertible<CFile*, CHandle*>::value));
}

TEST_F(Handle, Events_AddNoFieldToTheHandle)
{
    EXPECT_EQ(sizeof(CEvent), sizeof(CHandle));
    EXPECT_EQ(sizeof(CMutex), sizeof(CHandle));
    EXPECT_EQ(sizeof(CWSAEvent), sizeof(CHandle));
    EXPECT_EQ(sizeof(CFile), sizeof(CHandle));
}
