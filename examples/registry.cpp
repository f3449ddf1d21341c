// The registry: an application's own key, values of three types, and the names of all of them.

#include <vantor/Registry.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}
}   // namespace

int main()
{
    ustring key;
    RegGetDefaultKeyName(nullptr, nullptr, L"Example", key);   // the company is ours, the product this program
    Print(key);

    RegWriteValue(HKEY_CURRENT_USER, key.c_str(), L"Antenna", L"Loop, 60 cm");
    RegWriteValue(HKEY_CURRENT_USER, key.c_str(), L"Span", 2000UL);

    ustring antenna;
    unsigned long span = 0, points = 0;
    RegGetValue(HKEY_CURRENT_USER, key.c_str(), L"Antenna", antenna, L"none");
    RegGetValue(HKEY_CURRENT_USER, key.c_str(), L"Span", span, 1000);
    if (!RegGetValue(HKEY_CURRENT_USER, key.c_str(), L"Points", points, 1001))
        Print(L"no points there: " + ustring::ui64toa(points));   // the default
    Print(antenna + L", span " + ustring::ui64toa(span));

    std::vector<ustring> names;
    RegEnumValues(HKEY_CURRENT_USER, key.c_str(), names);
    for (const ustring& name : names)
        Print(name);

    if (!RegGetValue(HKEY_CURRENT_USER, key.c_str(), L"Span", antenna, L"not a text"))
        Print(antenna);
    vantor::RegDeleteKeyW(HKEY_CURRENT_USER, key.c_str());   // the platform has one of this name, too
}
