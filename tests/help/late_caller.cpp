// Calls a function when it is unloaded. Loaded before other libraries it does so after they have ended.

#include <windows.h>

namespace
{
void (*g_function)() = nullptr;
}

extern "C" __declspec(dllexport) void CallAtEnd(void (*function)())
{
    g_function = function;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_DETACH && g_function)
        g_function();
    return TRUE;
}
