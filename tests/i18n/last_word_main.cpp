// Loads the two libraries in this order, so that they end in the other.

#include <windows.h>

int main()
{
    if (!::LoadLibraryW(L"i18n_last_word.dll"))
        return 2;
    const HMODULE user = ::LoadLibraryW(L"i18n_last_word_user.dll");
    if (!user)
        return 3;
    reinterpret_cast<void (*)()>(reinterpret_cast<void*>(::GetProcAddress(user, "Install")))();
}
