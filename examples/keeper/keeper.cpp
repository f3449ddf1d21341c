// Settings and log for scripts. Says what it did, and what went wrong.
//
//     keeper get FILE SECTION KEY            keeper delete FILE SECTION [KEY]
//     keeper set FILE SECTION KEY VALUE      keeper log FILE TEXT

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

int Run(const std::vector<ustring>& words)
{
    const auto word = [&words](std::size_t i) { return i < words.size() ? words[i].c_str() : nullptr; };
    const ustring command = word(0);

    if (command == L"log" && words.size() == 3)
    {
        CLogFile log;
        return log.Open(word(1)) && log.Write(L"%s", word(2)) ? 0 : 1;
    }
    if (command == L"get" && words.size() == 4)
    {
        Print(CIniFile(word(1)).GetString(word(2), word(3), L""));
        return 0;
    }
    if (command == L"set" && words.size() == 5)
    {
        CIniFile(word(1)).WriteString(word(2), word(3), word(4));
        return 0;
    }
    if (command == L"delete" && (words.size() == 3 || words.size() == 4))
    {
        CIniFile settings(word(1));
        return (word(3) ? settings.DeleteEntry(word(2), word(3)) : settings.DeleteSection(word(2))) ? 0 : 1;
    }
    Print(L"usage: keeper get|set|delete FILE SECTION [KEY [VALUE]], keeper log FILE TEXT");
    return 2;
}
}   // namespace

int wmain(int argc, wchar_t** argv)
try
{
    return Run(std::vector<ustring>(argv + 1, argv + argc));
}
catch (const CStdException& e)
{
    const CStdException::CExInfo info(e);
    Print(ustring(argv[2]) + L": " + info.GetErrorMessage());
    return 1;
}
