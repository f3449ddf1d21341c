#include "Thrower.h"

#include <vantor/Thread.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\Thread"};

constexpr DWORD CountFailed = 0xFFFFFFFF;
}   // namespace

CThread::CThread() : CHandle(nullptr), m_dwThreadId(0) {}

void CThread::Close()
{
    m_dwThreadId = 0;
    CHandle::Close();
}

void CThread::Create(_SECURITY_ATTRIBUTES* sa, unsigned long stackSize, unsigned long(WINAPI* proc)(void*), void* param,
                     unsigned long flags)
{
    Close();
    m_h = ::CreateThread(sa, stackSize, proc, param, flags, &m_dwThreadId);
    if (m_h == m_hInvalid)
        Fail(41, L"CreateThread");
}

void CThread::Create(unsigned long(WINAPI* proc)(void*), void* param)
{
    Create(nullptr, 0, proc, param, 0);
}

void CThread::Terminate(unsigned long exitCode)
{
    m_dwThreadId = 0;
    if (!::TerminateThread(m_h, exitCode))
        Fail(52, L"TerminateThread");
}

int CThread::GetPriority() const
{
    const int priority = ::GetThreadPriority(m_h);
    if (priority == THREAD_PRIORITY_ERROR_RETURN)
        Fail(67, L"GetThreadPriority");
    return priority;
}

void CThread::SetThreadPriority(int priority)
{
    if (!::SetThreadPriority(m_h, priority))
        Fail(75, L"SetThreadPriority");
}

unsigned long CThread::Suspend()
{
    const DWORD count = ::SuspendThread(m_h);
    if (count == CountFailed)
        Fail(82, L"SuspendThread");
    return count;
}

unsigned long CThread::Resume()
{
    const DWORD count = ::ResumeThread(m_h);
    if (count == CountFailed)
        Fail(90, L"ResumeThread");
    return count;
}

unsigned long CThread::GetExitCode()
{
    DWORD code = 0;
    if (!::GetExitCodeThread(m_h, &code))
        Fail(99, L"GetExitCodeThread");
    return code;
}
}   // namespace vantor
