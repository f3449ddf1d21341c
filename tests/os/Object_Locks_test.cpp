// CMutex and CCriticalSection.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <vantor/Object.h>

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <utility>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;
using support::CResources;

namespace
{
DWORD WINAPI CallFunction(void* function)
{
    (*static_cast<std::function<void()>*>(function))();
    return 0;
}

// A thread of the system that has surely ended when Join returns.
class CTestThread
{
public:
    explicit CTestThread(std::function<void()> function)
        : m_function(std::move(function)), m_h(::CreateThread(nullptr, 0, &CallFunction, &m_function, 0, nullptr))
    {
    }
    CTestThread(const CTestThread&) = delete;
    CTestThread& operator=(const CTestThread&) = delete;
    ~CTestThread()
    {
        Join();
        ::CloseHandle(m_h);
    }
    void Join() { ::WaitForSingleObject(m_h, INFINITE); }

private:
    std::function<void()> m_function;
    HANDLE m_h;
};

void OnAnotherThread(std::function<void()> function)
{
    CTestThread(std::move(function)).Join();
}

struct CMutexArguments
{
    SECURITY_ATTRIBUTES* sa;
    int initialOwner;
    const wchar_t* name;
};
CMutexArguments g_mutex;

HANDLE WINAPI RecordingCreateMutex(SECURITY_ATTRIBUTES* sa, BOOL initialOwner, const wchar_t* name)
{
    g_mutex = {sa, initialOwner, name};
    return ::CreateMutexW(nullptr, FALSE, nullptr);
}

struct CWaitArguments
{
    HANDLE h;
    DWORD timeout;
};
CWaitArguments g_wait;
DWORD g_waitResult;

DWORD WINAPI RecordingWait(HANDLE h, DWORD timeout)
{
    g_wait = {h, timeout};
    ::SetLastError(0xDEADBEEF);
    return g_waitResult;
}

const void* g_deleted;

void WINAPI RecordingDeleteCriticalSection(CRITICAL_SECTION* section)
{
    g_deleted = section;
    ::DeleteCriticalSection(section);
}
}   // namespace

TEST(Mutex, Construction_PassesItsArgumentsOn)
{
    const CImportPatch patch(&::CreateMutexW, &RecordingCreateMutex);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, FALSE};
    const wchar_t* const name = L"name";

    const CMutex mutex(&sa, 5, name);

    EXPECT_EQ(g_mutex.sa, &sa);
    EXPECT_EQ(g_mutex.initialOwner, 5);
    EXPECT_EQ(g_mutex.name, name);
}

TEST(Mutex, Construction_HoldsAHandle)
{
    const CMutex mutex(nullptr, FALSE, nullptr);

    EXPECT_TRUE(mutex.IsCreated());
}

TEST(Mutex, Construction_AsInitialOwner_LocksOutOtherThreads)
{
    CMutex mutex(nullptr, TRUE, nullptr);
    bool locked = true;

    OnAnotherThread([&] { locked = mutex.Lock(0); });

    EXPECT_FALSE(locked);
    mutex.Unlock();
}

TEST(Mutex, Construction_OnANameOfAnotherKind_Throws)
{
    const ustring name = UniqueName(L"event");
    const CEvent event(nullptr, FALSE, FALSE, name.c_str());

    EXPECT_FAILURE(148, L".\\Object", L"CreateMutexW", ERROR_INVALID_HANDLE,
                   const CMutex mutex(nullptr, FALSE, name.c_str()));
}

TEST(Mutex, Construction_OnFailure_LeavesNothingOpen)
{
    const ustring name = UniqueName(L"event");
    const CEvent event(nullptr, FALSE, FALSE, name.c_str());
    EXPECT_THROW(CMutex(nullptr, FALSE, name.c_str()), CWinException);
    (void)CResources();   // the first count allocates, too
    const CResources before;

    EXPECT_THROW(CMutex(nullptr, FALSE, name.c_str()), CWinException);

    EXPECT_EQ(before, CResources());
}

TEST(Mutex, EmptyValue_IsNull)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    mutex.Close();

    EXPECT_EQ(mutex.Detach(), nullptr);
}

TEST(Mutex, Lock_OfAFreeMutex_ReturnsTrue)
{
    CMutex mutex(nullptr, FALSE, nullptr);

    EXPECT_TRUE(mutex.Lock(INFINITE));
    mutex.Unlock();
}

TEST(Mutex, Lock_LocksOutOtherThreads)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    mutex.Lock(INFINITE);
    bool locked = true;

    OnAnotherThread([&] { locked = mutex.Lock(0); });

    EXPECT_FALSE(locked);
    mutex.Unlock();
}

TEST(Mutex, Lock_WaitsForTheOwner)
{
    CMutex mutex(nullptr, TRUE, nullptr);
    CEvent started;
    bool locked = false;
    CTestThread thread(
        [&]
        {
            started.Set();
            locked = mutex.Lock(INFINITE);
            mutex.Unlock();
        });
    ::WaitForSingleObject(started, INFINITE);

    mutex.Unlock();
    thread.Join();

    EXPECT_TRUE(locked);
}

TEST(Mutex, Lock_OfAnAbandonedMutex_ReturnsTrue)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    OnAnotherThread([&] { mutex.Lock(INFINITE); });

    EXPECT_TRUE(mutex.Lock(0));
    mutex.Unlock();
}

TEST(Mutex, Lock_OfAnAbandonedMutex_OwnsIt)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    OnAnotherThread([&] { mutex.Lock(INFINITE); });
    mutex.Lock(0);
    bool locked = true;

    OnAnotherThread([&] { locked = mutex.Lock(0); });

    EXPECT_FALSE(locked);
    mutex.Unlock();
}

TEST(Mutex, Lock_OfANamedMutex_LocksItsNamesakes)
{
    const ustring name = UniqueName(L"mutex");
    CMutex first(nullptr, FALSE, name.c_str());
    CMutex second(nullptr, FALSE, name.c_str());
    first.Lock(INFINITE);
    bool locked = true;

    OnAnotherThread([&] { locked = second.Lock(0); });

    EXPECT_FALSE(locked);
    first.Unlock();
}

TEST(Mutex, Lock_PassesHandleAndTimeoutOn)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    g_waitResult = WAIT_TIMEOUT;
    const CImportPatch patch(&::WaitForSingleObject, &RecordingWait);

    EXPECT_FALSE(mutex.Lock(1234));

    EXPECT_EQ(g_wait.h, static_cast<void*>(mutex));
    EXPECT_EQ(g_wait.timeout, 1234u);
}

TEST(Mutex, Lock_WithAnUnexpectedResult_Throws)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    g_waitResult = WAIT_OBJECT_0 + 1;
    const CImportPatch patch(&::WaitForSingleObject, &RecordingWait);

    EXPECT_FAILURE(167, L".\\Object", L"WaitForSingleObject", 0xDEADBEEF, mutex.Lock(0));
    EXPECT_TRUE(mutex.IsCreated());
}

TEST(Mutex, Lock_OfAnEmptyObject_Throws)
{
    CMutex mutex(nullptr, FALSE, nullptr);
    mutex.Close();

    EXPECT_FAILURE(167, L".\\Object", L"WaitForSingleObject", ERROR_INVALID_HANDLE, mutex.Lock(0));
}

TEST(Mutex, Unlock_ReleasesTheMutex)
{
    CMutex mutex(nullptr, TRUE, nullptr);
    bool locked = false;

    mutex.Unlock();

    OnAnotherThread(
        [&]
        {
            locked = mutex.Lock(0);
            mutex.Unlock();
        });
    EXPECT_TRUE(locked);
}

TEST(Mutex, Unlock_OfAMutexThatIsNotOwned_ThrowsAndKeepsIt)
{
    CMutex mutex(nullptr, FALSE, nullptr);

    EXPECT_FAILURE(175, L".\\Object", L"ReleaseMutex", ERROR_NOT_OWNER, mutex.Unlock());
    EXPECT_TRUE(mutex.IsCreated());
}

TEST(CriticalSection, IsCreated_IsFalse)
{
    const CCriticalSection section;

    EXPECT_FALSE(section.IsCreated());
}

TEST(CriticalSection, IsCreated_InsideTheSection_IsFalse)
{
    CCriticalSection section;
    section.Lock(true);

    EXPECT_FALSE(section.IsCreated());
    section.Unlock();
}

TEST(CriticalSection, Handle_IsNull)
{
    CCriticalSection section;

    EXPECT_EQ(section.Detach(), nullptr);
}

TEST(CriticalSection, Close_DoesNothing)
{
    CCriticalSection section;
    section.Lock(true);

    section.Close();

    bool entered = true;
    OnAnotherThread([&] { entered = section.Lock(false); });
    EXPECT_FALSE(entered);
    section.Unlock();
}

TEST(CriticalSection, LockWithWait_ReturnsTrue)
{
    CCriticalSection section;

    EXPECT_TRUE(section.Lock(true));
    section.Unlock();
}

TEST(CriticalSection, LockWithoutWait_OfAFreeSection_EntersIt)
{
    CCriticalSection section;
    EXPECT_TRUE(section.Lock(false));
    bool entered = true;

    OnAnotherThread([&] { entered = section.Lock(false); });

    EXPECT_FALSE(entered);
    section.Unlock();
}

TEST(CriticalSection, LockWithoutWait_WhileAnotherThreadIsInside_ReturnsFalse)
{
    CCriticalSection section;
    section.Lock(true);
    bool entered = true;

    OnAnotherThread([&] { entered = section.Lock(false); });

    EXPECT_FALSE(entered);
    section.Unlock();
}

TEST(CriticalSection, LockWithoutWait_OnTheThreadInside_EntersAgain)
{
    CCriticalSection section;
    section.Lock(true);

    EXPECT_TRUE(section.Lock(false));
    section.Unlock();
    section.Unlock();
}

TEST(CriticalSection, Unlock_LetsOtherThreadsIn)
{
    CCriticalSection section;
    section.Lock(true);
    bool entered = false;

    section.Unlock();

    OnAnotherThread(
        [&]
        {
            entered = section.Lock(false);
            section.Unlock();
        });
    EXPECT_TRUE(entered);
}

TEST(CriticalSection, LockWithWait_LetsOneThreadInAtATime)
{
    CCriticalSection section;
    int count = 0;
    const auto work = [&]
    {
        for (int i = 0; i < 20000; ++i)
        {
            section.Lock(true);
            ++count;
            section.Unlock();
        }
    };
    {
        const CTestThread first(work);
        const CTestThread second(work);
    }

    EXPECT_EQ(count, 40000);
}

TEST(CriticalSection, Destructor_GivesTheSectionBack)
{
    const CImportPatch patch(&::DeleteCriticalSection, &RecordingDeleteCriticalSection);
    alignas(CCriticalSection) unsigned char memory[sizeof(CCriticalSection)];
    CCriticalSection* const section = new (memory) CCriticalSection;
    g_deleted = nullptr;

    section->~CCriticalSection();

    const unsigned char* const deleted = static_cast<const unsigned char*>(g_deleted);
    EXPECT_GE(deleted, memory);
    EXPECT_LE(deleted, memory + sizeof memory - sizeof(CRITICAL_SECTION));
}
