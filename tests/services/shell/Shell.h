// A shell like the device's, for the tests: what its calls are to answer, and what they were asked. The program that
// loads the DLLs exports ShellScript, so that the record outlives them.

#ifndef VANTOR_TEST_SERVICES_SHELL_H
#define VANTOR_TEST_SERVICES_SHELL_H

#include <windows.h>

struct CShellScript
{
    // Answers.
    HRESULT location;
    const wchar_t* path;   // null: the list has none
    HRESULT allocator;
    DWORD shortcut;

    // What was asked.
    HWND owner;
    int folder;
    wchar_t name[MAX_PATH];
    wchar_t target[MAX_PATH];

    // One letter a call: location, Path, Allocator, Free, Release, Shortcut.
    int count;
    char calls[16];
    bool foreign;   // a list that is none of the shell's was given to it
};

using ShellScriptCall = CShellScript*();

inline CShellScript& Script()
{
    const FARPROC find = ::GetProcAddress(::GetModuleHandleW(nullptr), "ShellScript");
    return *reinterpret_cast<ShellScriptCall*>(reinterpret_cast<void*>(find))();
}

inline void Note(char call)
{
    CShellScript& script = Script();
    if (script.count < 15)
        script.calls[script.count++] = call;
}

#endif
