// Prints the page of the class "Spectrum" in brackets, and how many classes the map has. With an argument it looks into
// the map once before, and then puts ContextHelpMap.lng.later in its place.

#include <vantor/ContextHelp.h>
#include <vantor/File.h>

#include <cstdio>

using namespace vantor;

int main(int argc, char**)
{
    if (argc > 1)
    {
        CContextHelpInstance::Ref();
        ustring path, drive, dir, fname, ext;
        CFile::GetModuleFileNameW(nullptr, path, true);
        CFile::SplitPath(path.c_str(), drive, dir, fname, ext);
        const ustring map = drive + dir + L"Help\\ContextHelpMap.lng";
        ::DeleteFileW(map.c_str());
        if (!::MoveFileW((map + L".later").c_str(), map.c_str()))
            return 2;
    }
    CContextHelp& help = CContextHelpInstance::Ref();
    std::printf("[%ls] %u", help.GetHelpFileName(L"Spectrum").c_str(), static_cast<unsigned>(help.m_langFile.size()));
}
