// What the tests of this room share: threads that say when they run and end when they are let go.

#ifndef VANTOR_TEST_THREADS_WORKERS_H
#define VANTOR_TEST_THREADS_WORKERS_H

#include <vantor/Thread.h>

#include <functional>
#include <utility>

namespace threads_test
{
// Long enough for any machine; a wait that takes it has failed.
constexpr DWORD Patience = 30000;

// An event that stays set, for waits of several threads.
class CSignal : public vantor::CEvent
{
public:
    CSignal() : CEvent(nullptr, TRUE, FALSE, nullptr) {}
    ~CSignal() noexcept override {}   // GoogleTest's fixtures hold some

    bool Wait() const { return ::WaitForSingleObject(m_h, Patience) == WAIT_OBJECT_0; }
    bool IsSet() const { return ::WaitForSingleObject(m_h, 0) == WAIT_OBJECT_0; }
};

// What a thread does that waits at a gate: give its address to Pass.
struct CGate
{
    CSignal running;
    CSignal open;
    unsigned long result = 0;
    DWORD id = 0;

    static unsigned long WINAPI Pass(void* gate) noexcept
    {
        CGate& self = *static_cast<CGate*>(gate);
        self.id = ::GetCurrentThreadId();
        self.running.Set();
        self.open.Wait();
        return self.result;
    }
};

// A thread of the test's own, not by the library.
class CHelperThread
{
public:
    explicit CHelperThread(std::function<void()> work)
        : m_work(std::move(work)), m_h(::CreateThread(nullptr, 0, &Run, this, 0, nullptr))
    {
    }
    CHelperThread(const CHelperThread&) = delete;
    CHelperThread& operator=(const CHelperThread&) = delete;
    ~CHelperThread()
    {
        ::WaitForSingleObject(m_h, Patience);
        ::CloseHandle(m_h);
    }

private:
    static DWORD WINAPI Run(void* self) noexcept
    {
        static_cast<CHelperThread*>(self)->m_work();
        return 0;
    }

    std::function<void()> m_work;
    HANDLE m_h;
};

// A call whose work is a function.
class CWork : public vantor::CAPC
{
public:
    CWork(unsigned long wakeMask, std::function<unsigned long()> work) : CAPC(wakeMask), m_work(std::move(work)) {}

    unsigned long Run() override { return m_work(); }

private:
    std::function<unsigned long()> m_work;
};

// A mutex that its owner has left without a release: whoever waits for it is told that it is abandoned.
inline HANDLE AbandonedMutex()
{
    const HANDLE mutex = ::CreateMutexW(nullptr, FALSE, nullptr);
    const CHelperThread owner([mutex] { ::WaitForSingleObject(mutex, 0); });
    return mutex;
}

// Another handle of the same object, with these rights only.
inline HANDLE WithRights(HANDLE h, DWORD rights)
{
    HANDLE other = nullptr;
    ::DuplicateHandle(::GetCurrentProcess(), h, ::GetCurrentProcess(), &other, rights, FALSE, 0);
    return other;
}
}   // namespace threads_test

#endif
