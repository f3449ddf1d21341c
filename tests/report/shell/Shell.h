// A shell like the device's, for the tests: exports without names, which note down their calls.

#ifndef VANTOR_TEST_REPORT_SHELL_H
#define VANTOR_TEST_REPORT_SHELL_H

#include <windows.h>

struct CShellCall
{
    WORD ordinal;
    HWND dialog;
    DWORD mask;     // of the record that call 56 gets, else 0
    DWORD value;    // the record's flags, or the second argument
    BOOL visible;   // the dialog, at the time of the call
};

constexpr WORD ShellLogOrdinal = 1;
constexpr int ShellCallsMax = 16;

struct CShellLog
{
    int count;
    CShellCall calls[ShellCallsMax];
};

using ShellLogCall = CShellLog*();

#endif
