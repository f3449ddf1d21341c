// Loads the two libraries in this order, so that they end in the other.

#include <windows.h>

int main()
{
    if (!::LoadLibraryW(L"help_late_caller.dll"))
        return 2;
    const HMODULE user = ::LoadLibraryW(L"help_late_user.dll");
    if (!user)
        return 3;
    reinterpret_cast<void (*)()>(reinterpret_cast<void*>(::GetProcAddress(user, "Start")))();
}
