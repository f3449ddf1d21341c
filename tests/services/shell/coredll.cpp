#include "Shell.h"

#include <cwchar>

extern "C" DWORD MakeShortcut(const wchar_t* name, const wchar_t* target)
{
    Note('S');
    std::wcsncpy(Script().name, name, MAX_PATH - 1);
    std::wcsncpy(Script().target, target, MAX_PATH - 1);
    return Script().shortcut;
}
