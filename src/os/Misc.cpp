#include "Thrower.h"

#include <vantor/Thread.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\Misc"};

constexpr DWORD AnyInput = QS_KEY | QS_MOUSEMOVE | QS_MOUSEBUTTON | QS_POSTMESSAGE | QS_TIMER | QS_PAINT;

// Empties the thread's queue. Only repaints are carried out.
void PaintQueued()
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
    {
        if (message.message != WM_PAINT)
            continue;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}
}   // namespace

void Sleep(unsigned long ms, CEvent& cancel)
{
    switch (::WaitForSingleObject(cancel, ms))
    {
    case WAIT_TIMEOUT:
        return;
    case WAIT_OBJECT_0:
        Fail(23, L"vantor::Sleep", ERROR_CANCELLED);
    case WAIT_FAILED:
        Fail(27, L"vantor::Sleep");
    default:
        Fail(29, L"WaitForSingleObject", ERROR_INTERNAL_ERROR);
    }
}

void MsgSleep(unsigned long ms, CEvent& cancel)
{
    const HANDLE event = cancel;
    const DWORD start = ::GetTickCount();
    for (;;)
    {
        // A sleep without end has never waited for anything here, and callers give finite ones.
        for (volatile bool forever = ms == INFINITE; forever;)
            ;

        const DWORD now = ::GetTickCount();
        if (now - start >= ms)   // as unsigned numbers: the counter may wrap
            return;
        switch (::MsgWaitForMultipleObjectsEx(1, &event, start - now + ms, AnyInput, 0))
        {
        case WAIT_OBJECT_0:
            Fail(68, L"vantor::MsgSleep", ERROR_CANCELLED);
        case WAIT_OBJECT_0 + 1:
            PaintQueued();
            break;
        case WAIT_TIMEOUT:
            return;
        case WAIT_FAILED:
            Fail(87, L"WaitForMultipleObjects");
        default:
            Fail(89, L"WaitForMultipleObjects", ERROR_INTERNAL_ERROR);
        }
    }
}

void MsgSleep(unsigned long ms)
{
    CEvent never;
    MsgSleep(ms, never);
}
}   // namespace vantor
