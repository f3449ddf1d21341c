// Text: a receiver's settings arrive in one line, which is taken apart and shown as the user's country writes numbers.

#include <vantor/Strings.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

void PrintSettings(ustring line)
{
    std::vector<ustring> settings;
    ustring::split(line.trim(L' ').c_str(), L';', settings, false);
    for (const ustring& setting : settings)
    {
        const ustring name = setting.substr(nullptr, L"=", false, true);   // up to the first "="
        ustring value = setting.substr(L"=", nullptr, false, false);       // behind it
        if (value.isnumber())
            value = ustring::i64toa(ustring::atoi64(value.c_str()));
        else
            value.replace(L"_", L" ");

        ustring shown;
        shown.sprintf(L"%-10s %s", name.c_str(), value.c_str());
        Print(shown);
    }
}
}   // namespace

int main()
{
    PrintSettings(L"  centre=1090000000;span=2500000;mode=clear_write;  ");

    Print(L"level      " + ustring::fcvt(-47.26, 1) + L" dBm");

    // A set in this order takes texts that differ in case only for the same.
    std::set<ustring, LessStrW> modes;
    ustring::split(L"Maximum,average,MAXIMUM,minimum", L',', modes, false);
    for (const ustring& mode : modes)
        Print(L"mode       " + mode);

    for (const wchar_t* file : {L"trace 1.csv", L"notes.txt", L"trace 20.csv"})
    {
        ustring name = file;
        if (name.compareWithMask(L"trace*.csv") != 0)
            continue;
        name.replaceForbiddenSymbols(L"% ");   // as a part of an address
        Print(L"file       " + name);
    }
}
