#include "Module.h"

namespace
{
HINSTANCE g_module = nullptr;
}

HINSTANCE vantor::LibraryModule() noexcept
{
    return g_module;
}

#ifdef UNDER_CE
using ModuleArgument = HANDLE;
#else
using ModuleArgument = HINSTANCE;
#endif

extern "C" BOOL WINAPI DllMain(ModuleArgument module, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_ATTACH)
        g_module = static_cast<HINSTANCE>(module);
    return TRUE;
}
