#include "MessagePump.h"

#include <gtest/gtest.h>

#include <string>

namespace support
{
void PumpMessages()
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
    {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds)
{
    constexpr DWORD slice = 5;   // the condition may come true on another thread, which sends no message
    const DWORD start = ::GetTickCount();
    for (;;)
    {
        PumpMessages();
        if (condition())
            return true;
        if (::GetTickCount() - start >= milliseconds)
            return false;
        ::MsgWaitForMultipleObjectsEx(0, nullptr, slice, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

void UseOwnDesktop()
{
    thread_local bool done = false;
    if (done)
        return;
    done = true;
    const std::wstring name =
        L"vantor" + std::to_wstring(::GetCurrentProcessId()) + L"." + std::to_wstring(::GetCurrentThreadId());
    // Never closed: they are the program's until it ends. For a desktop of the user's own station Wine would start a process
    // that holds the program's output open for a second.
    static const HWINSTA station = ::CreateWindowStationW(name.c_str(), 0, GENERIC_ALL, nullptr);
    if (!station || !::SetProcessWindowStation(station))
        ADD_FAILURE() << "no window station of its own: error " << ::GetLastError();
    const HDESK desktop = ::CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    if (!desktop || !::SetThreadDesktop(desktop))
        ADD_FAILURE() << "no desktop of its own: error " << ::GetLastError();
}
}   // namespace support
