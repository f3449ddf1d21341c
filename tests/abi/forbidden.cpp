// A DLL that calls what the device does not have: the checker must find it.

#include <windows.h>

extern "C" __declspec(dllexport) int Forbidden(HMENU menu)
{
    return ::GetMenuItemCount(menu);
}
