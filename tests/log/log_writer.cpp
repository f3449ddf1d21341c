// usage: log_writer PATH WRITER COUNT MEETING
// Writes COUNT messages to a log as soon as the event MEETING.go is set; with COUNT 0 it never ends. The semaphore
// MEETING.ready counts up before that, and again after 100 messages. With COUNT -1 it ends in the middle of writing its
// 101st message, after an odd number of bytes.

#include "log/Messages.h"

#include <cstdlib>
#include <cwchar>
#include <string>

#include <shellapi.h>

using vantor::CLogFile;

namespace
{
BOOL WINAPI WriteAndDie(HANDLE file, const void* buffer, DWORD, DWORD* done, OVERLAPPED* overlapped)
{
    ::WriteFile(file, buffer, 101, done, overlapped);
    ::TerminateProcess(::GetCurrentProcess(), 0);
    return FALSE;
}
}   // namespace

int main()
{
    int count = 0;
    wchar_t** const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    if (!arguments || count != 5)
        return 2;
    const int writer = static_cast<int>(std::wcstol(arguments[2], nullptr, 10));
    const int messages = static_cast<int>(std::wcstol(arguments[3], nullptr, 10));
    const std::wstring meeting = arguments[4];

    const HANDLE ready = ::OpenSemaphoreW(SEMAPHORE_MODIFY_STATE, FALSE, (meeting + L".ready").c_str());
    const HANDLE go = ::OpenEventW(SYNCHRONIZE, FALSE, (meeting + L".go").c_str());
    if (!ready || !go)
        return 3;
    ::ReleaseSemaphore(ready, 1, nullptr);
    ::WaitForSingleObject(go, INFINITE);

    CLogFile log;
    if (!log.Open(arguments[1]))
        return 4;
    for (int message = 0; messages <= 0 || message < messages; ++message)
    {
        if (message == 100)
        {
            ::ReleaseSemaphore(ready, 1, nullptr);
            if (messages < 0)
            {
                const support::CImportPatch patch(&::WriteFile, &WriteAndDie);
                log_test::WriteMessage(log, writer, message);
            }
        }
        if (!log_test::WriteMessage(log, writer, message))
            return 5;
    }
}
