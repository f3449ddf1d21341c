// Edits an INI file in turn with the program that starts it: editor FILE NAME TURNS. The events NAME.editor and
// NAME.test say whose turn it is. In each it wants to find [Shared] Test= with the turn's number, and writes that to
// Editor=.

#include <vantor/Exceptions.h>
#include <vantor/IniFile.h>

#include <cstdio>
#include <cwchar>

using namespace vantor;

namespace
{
constexpr DWORD Patience = 20000;   // milliseconds

bool Edit(const wchar_t* path, const wchar_t* name, int turns)
{
    CEvent mine(nullptr, FALSE, FALSE, (ustring(name) + L".editor").c_str());
    CEvent other(nullptr, FALSE, FALSE, (ustring(name) + L".test").c_str());
    CIniFile ini(path);
    for (int turn = 1; turn <= turns; ++turn)
    {
        if (::WaitForSingleObject(mine, Patience) != WAIT_OBJECT_0)
        {
            std::printf("turn %d does not come\n", turn);
            return false;
        }
        const int found = ini.GetInt(L"Shared", L"Test", 0);
        if (found != turn)
        {
            std::printf("%d is found in turn %d\n", found, turn);
            return false;
        }
        ini.WriteInt(L"Shared", L"Editor", turn);
        other.Set();
    }
    return true;
}
}   // namespace

int main()
{
    int count = 0;
    wchar_t** const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    try
    {
        return count == 4 && Edit(arguments[1], arguments[2], static_cast<int>(std::wcstol(arguments[3], nullptr, 10)))
                   ? 0
                   : 1;
    }
    catch (const CWinException& e)
    {
        std::printf("error %lu in line %u\n", e.GetErrorCode(), e.GetLine());
        return 2;
    }
}
