// Provokes a failure and shows it to the user, full-screen and in the user's language. The exit status is the id of the
// pressed button.
//
//     report open PATH          a file that is missing, or that another program has locked
//     report save PATH          a file on a full disk
//     report reply TEXT         an error reply of the receiver, such as {2,,access denied}
//
//     report hold PATH          makes the file and keeps it locked until the standard input ends; shows nothing

#include "resource.h"

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Hold(const wchar_t* path)
{
    CFile trace(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF)
        ;
}

void Fail(HINSTANCE module, const ustring& command, const wchar_t* argument)
{
    if (command == L"open")
    {
        CFile trace(argument, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    }
    else if (command == L"save")
    {
        CFile trace(argument, GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
        unsigned int done = 0;
        trace.Write(L"-93.4", 10, done, nullptr);
    }
    else if (command == L"hold")
    {
        Hold(argument);
    }
    else if (command == L"reply")
    {
        ustring link;
        link.xload(module, IDS_LINK);
        throw CCommException(1, L".\\report", L"Sweep", argument, link.c_str());
    }
}

unsigned int ButtonsFor(const ustring& command)
{
    return command == L"open"   ? MB_ICONHAND | MB_OK
           : command == L"save" ? MB_ICONEXCLAMATION | MB_RETRYCANCEL
                                : MB_ICONQUESTION | MB_ABORTRETRYIGNORE;
}
}   // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count != 3)
    {
        std::puts("usage: report open PATH | save PATH | reply TEXT | hold PATH");
        return 100;
    }
    const HINSTANCE module = ::GetModuleHandleW(nullptr);
    ustring title;
    title.xload(module, IDS_TITLE);
    CStdException::SetAppName(title.c_str());
    try
    {
        Fail(module, arguments[1], arguments[2]);
    }
    catch (const CStdException& e)
    {
        return e.ReportError(nullptr, ButtonsFor(arguments[1]), arguments[2], static_cast<unsigned int>(count));
    }
    return 0;
}
