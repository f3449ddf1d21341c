// The shell: a special folder, a shortcut in it, and a library for as long as it is needed.

#include <vantor/Exceptions.h>
#include <vantor/File.h>
#include <vantor/Library.h>
#include <vantor/Shell.h>

#include <cstdio>

#include <shlobj.h>

namespace
{
using namespace vantor;
}

int main()
{
    ustring documents;
    if (!GetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, documents))
        std::puts("this system has no folder for documents");
    ustring untouched = L"as it was";
    if (!GetSpecialFolderLocation(nullptr, CSIDL_CONTROLS, untouched))   // a folder, but none of files
        std::printf("no path: %ls\n", untouched.c_str());

    ustring program, shortcut;
    CFile::GetModuleFileNameW(nullptr, program, true);
    CFile::MakePath(shortcut, nullptr, documents.c_str(), L"Level meter example", L"lnk");
    if (CreateShortcut(shortcut.c_str(), program.c_str(), nullptr))
        std::printf("a shortcut of %s\n", CFile::GetLength(shortcut.c_str()) > 0 ? "some bytes" : "nothing");
    CFile::Remove(shortcut.c_str());

    try
    {
        const CLibrary missing(L"C:\\no such folder\\codec.dll");
    }
    catch (const CWinException& e)
    {
        std::printf("not loaded: %s\n", e.GetErrorCode() == ERROR_MOD_NOT_FOUND ? "there is none" : "something else");
    }
}
