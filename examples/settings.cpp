// Settings: an INI file as a user left it is read, changed in two places, and keeps all that is not understood.

#include <vantor/IniFile.h>

#include <cstdio>

namespace
{
using namespace vantor;

constexpr char Before[] = "; written by hand, 3 March\n"
                          "[Link]\n"
                          "Port=COM3      ; the left one\n"
                          "\n"
                          "[Sweep]\n"
                          "Average=16\n";

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

void WriteFile(const ustring& path, const std::string& bytes)
{
    CFile file(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    unsigned int done = 0;
    file.Write(bytes.data(), static_cast<unsigned int>(bytes.size()), done, nullptr);
}
}   // namespace

int main()
{
    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"ini", 0, path);
    WriteFile(path, Before);
    {
        CIniFile settings(path.c_str());
        Print(L"port: '" + settings.GetString(L"link", L"port", L"COM1") + L"'");   // up to the comment, blanks too
        Print(L"average: " + ustring::i64toa(settings.GetInt(L"Sweep", L"Average", 1)));
        Print(L"points: " + ustring::i64toa(settings.GetInt(L"Sweep", L"Points", 1001)));   // not there: the default

        settings.WriteInt(L"Sweep", L"Average", 32);
        settings.WriteString(L"Screen", L"Colours", L"dark");   // a section that was not there

        std::vector<ustring> sections;
        settings.EnumSections(sections);
        for (const ustring& section : sections)
            Print(L"[" + section + L"]");
    }
    CFile::Remove(path.c_str());
}
