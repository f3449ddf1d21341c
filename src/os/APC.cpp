#include "Thrower.h"

#include <vantor/Thread.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\APC"};
constexpr wchar_t Function[] = L"MsgWaitForMultipleObjects";

bool HasEnded(HANDLE thread)
{
    DWORD code = STILL_ACTIVE;
    return ::GetExitCodeThread(thread, &code) && code != STILL_ACTIVE;
}

// Empties the queue. A repaint cannot be removed: the system asks for it until the window is painted. Where the mask
// does not allow it, what lies behind it is removed around it.
void DispatchQueued(const CAPC& call)
{
    MSG message;
    const auto next = [&message](UINT first, UINT last)
    { return ::PeekMessageW(&message, nullptr, first, last, PM_REMOVE) != FALSE; };
    const auto dispatch = [&call, &message]
    {
        if (!call.TestMessage(message.message))
            return;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    };

    while (next(0, 0))
    {
        if (message.message == WM_PAINT && !call.TestMessage(WM_PAINT))
        {
            while (next(0, WM_PAINT - 1) || next(WM_PAINT + 1, 0xFFFFFFFF))
                dispatch();
            return;
        }
        dispatch();
    }
}
}   // namespace

unsigned long CAPC::Invoke()
{
    CThread worker;
    worker.Create(&ThreadProc, this);
    const HANDLE thread = worker;
    for (;;)
    {
        switch (::MsgWaitForMultipleObjectsEx(1, &thread, INFINITE, m_dwWakeMask, 0))
        {
        case WAIT_OBJECT_0:
            return worker.GetExitCode();
        case WAIT_OBJECT_0 + 1:
            if (HasEnded(thread))
                return worker.GetExitCode();
            DispatchQueued(*this);
            break;
        case WAIT_FAILED:
            Fail(56, Function);
        default:
            Fail(58, Function, ERROR_INTERNAL_ERROR);
        }
    }
}

bool CAPC::TestMessage(unsigned int message) const noexcept
{
    switch (message)
    {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
        return (m_dwWakeMask & QS_KEY) != 0;
    case WM_MOUSEMOVE:
        return (m_dwWakeMask & QS_MOUSEMOVE) != 0;
    case WM_TIMER:
        return (m_dwWakeMask & QS_TIMER) != 0;
    case WM_PAINT:
        return (m_dwWakeMask & QS_PAINT) != 0;
    default:
        if (message >= WM_LBUTTONDOWN && message <= WM_MBUTTONDBLCLK)
            return (m_dwWakeMask & QS_MOUSEBUTTON) != 0;
        return message >= WM_USER && (m_dwWakeMask & QS_POSTMESSAGE) != 0;
    }
}

unsigned long WINAPI CAPC::ThreadProc(void* param) noexcept
{
    return static_cast<CAPC*>(param)->Run();
}
}   // namespace vantor
