#include "Thrower.h"

#include <vantor/Object.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\Object"};
}

CHandle::~CHandle() noexcept(false)
{
    CHandle::Close();
}

bool CHandle::IsCreated() const
{
    return m_h != m_hInvalid;
}

void CHandle::Close()
{
    if (m_h == m_hInvalid)
        return;
    const BOOL closed = ::CloseHandle(m_h);
    m_h = m_hInvalid;
    if (!closed)
        Fail(53, L"CloseHandle");
}

bool CHandle::Attach(void* h)
{
    if (m_h != m_hInvalid)
        return false;
    m_h = h;
    return true;
}

void* CHandle::Detach()
{
    void* const h = m_h;
    m_h = m_hInvalid;
    return h;
}

CEvent::CEvent(_SECURITY_ATTRIBUTES* sa, int bManualReset, int bInitialState, const wchar_t* name) : CHandle(nullptr)
{
    m_h = ::CreateEventW(sa, bManualReset, bInitialState, name);
    if (m_h == m_hInvalid)
        Fail(74, L"CreateEventW");
}

CEvent::CEvent(unsigned long access, int bInherit, const wchar_t* name) : CHandle(nullptr)
{
    m_h = ::OpenEventW(access, bInherit, name);
    if (m_h == m_hInvalid)
        Fail(81, L"OpenEventW");
}

void CEvent::Set()
{
    if (!::SetEvent(m_h))
        Fail(93, L"SetEvent");
}

void CEvent::Reset()
{
    if (!::ResetEvent(m_h))
        Fail(100, L"ResetEvent");
}

CMutex::CMutex(_SECURITY_ATTRIBUTES* sa, int bInitialOwner, const wchar_t* name) : CHandle(nullptr)
{
    m_h = ::CreateMutexW(sa, bInitialOwner, name);
    if (m_h == m_hInvalid)
        Fail(148, L"CreateMutexW");
}

bool CMutex::Lock(unsigned long timeout)
{
    switch (::WaitForSingleObject(m_h, timeout))
    {
    case WAIT_OBJECT_0:
    case WAIT_ABANDONED:   // acquired all the same: its owner ended without a release
        return true;
    case WAIT_TIMEOUT:
        return false;
    default:
        Fail(167, L"WaitForSingleObject");
    }
}

void CMutex::Unlock()
{
    if (!::ReleaseMutex(m_h))
        Fail(175, L"ReleaseMutex");
}

CCriticalSection::CCriticalSection() : CHandle(nullptr)
{
    ::InitializeCriticalSection(&m_section);
}

CCriticalSection::~CCriticalSection() noexcept(false)
{
    ::DeleteCriticalSection(&m_section);
}

bool CCriticalSection::Lock(bool wait)
{
    if (!wait)
        return ::TryEnterCriticalSection(&m_section) != FALSE;
    ::EnterCriticalSection(&m_section);
    return true;
}

void CCriticalSection::Unlock()
{
    ::LeaveCriticalSection(&m_section);
}

COverlapped::COverlapped(_SECURITY_ATTRIBUTES* sa, int bManualReset, int bInitialState, const wchar_t* name)
    : OVERLAPPED{}, m_event(sa, bManualReset, bInitialState, name)
{
    hEvent = m_event;
}

COverlapped::~COverlapped() noexcept(false) = default;

void COverlapped::SetEvent()
{
    m_event.Set();
}

void COverlapped::ResetEvent()
{
    m_event.Reset();
}

CWSAEvent::CWSAEvent() : CHandle(nullptr)
{
    m_h = ::WSACreateEvent();
    if (m_h == m_hInvalid)
        Fail(221, L"WSACreateEvent", static_cast<unsigned long>(::WSAGetLastError()));
}

void CWSAEvent::Close()
{
    if (m_h == m_hInvalid)
        return;
    if (!::WSACloseEvent(m_h))
        Fail(234, L"WSACloseEvent", static_cast<unsigned long>(::WSAGetLastError()));
    m_h = m_hInvalid;
}

void CWSAEvent::Set()
{
    if (!::SetEvent(m_h))
        Fail(243, L"SetEvent");
}

void CWSAEvent::Reset()
{
    if (!::ResetEvent(m_h))
        Fail(250, L"ResetEvent");
}

CWSAOverlapped::CWSAOverlapped() : OVERLAPPED{}
{
    hEvent = m_event;
}

CWSAOverlapped::~CWSAOverlapped() noexcept(false) = default;

void CWSAOverlapped::SetEvent()
{
    m_event.Set();
}

void CWSAOverlapped::ResetEvent()
{
    m_event.Reset();
}
}   // namespace vantor
