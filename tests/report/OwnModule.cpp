// The program is the module that holds the dialogs' resources.

#include "../../src/platform/Module.h"

HINSTANCE vantor::LibraryModule() noexcept
{
    return ::GetModuleHandleW(nullptr);
}
