// Runs a program to its end and keeps what it wrote and how it ended.

#ifndef VANTOR_TEST_CHILDPROCESS_H
#define VANTOR_TEST_CHILDPROCESS_H

#include "support/TempFolder.h"

#include <vantor/Platform.h>

#include <gtest/gtest.h>

#include <string>

struct CChildProcess
{
    // The program finds its DLLs beside the test program, wherever it stands itself.
    explicit CChildProcess(std::wstring commandLine)
    {
        wchar_t path[0x2000] = {};
        ::GetEnvironmentVariableW(L"PATH", path, 0x2000);
        ::SetEnvironmentVariableW(L"PATH", (support::ModuleFolder() + L";" + path).c_str());

        SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
        HANDLE reading = nullptr;
        HANDLE writing = nullptr;
        ::CreatePipe(&reading, &writing, &inheritable, 0);
        ::SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = writing;
        startup.hStdError = writing;
        PROCESS_INFORMATION process = {};
        const BOOL started = ::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                              &startup, &process);
        EXPECT_TRUE(started) << "error " << ::GetLastError();
        ::SetEnvironmentVariableW(L"PATH", path);
        ::CloseHandle(writing);

        char block[512];
        DWORD done = 0;
        while (::ReadFile(reading, block, sizeof block, &done, nullptr) && done != 0)
            output.append(block, done);
        ::CloseHandle(reading);
        if (!started)
            return;
        ::WaitForSingleObject(process.hProcess, INFINITE);
        ::GetExitCodeProcess(process.hProcess, &exitCode);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }

    std::string output;
    DWORD exitCode = ~0u;
};

#endif
