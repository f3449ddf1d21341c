// Context help: the map of a program that has none yet is written, filled in, and asked.

#include <vantor/ContextHelp.h>

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
    // The map of "Help//ContextHelpMap.lng" in this program's folder: there is none, so it is empty.
    CContextHelp& help = CContextHelpInstance::Ref();
    Print(L"before: '" + help.GetHelpFileName(L"SpectrumView") + L"'");

    help.RegisterClassW(L"SpectrumView");
    help.RegisterClassW(L"LevelView");

    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"map", 0, path);
    help.m_langFile.SaveLanguageFile(path.c_str());

    CLanguageFile map;   // what a writer of help pages does with it
    map.LoadLanguageFile(path.c_str());
    map[L"SpectrumView"] = L"spectrum.htm#view";
    map.SaveLanguageFile(path.c_str());

    help.m_langFile.LoadLanguageFile(path.c_str());
    CFile::Remove(path.c_str());
    for (const auto& [className, page] : help.m_langFile)
        Print(className + L": " + (page.empty() ? ustring(L"no page yet") : page));
    Print(L"after: '" + help.GetHelpFileName(L"SpectrumView") + L"'");
}
