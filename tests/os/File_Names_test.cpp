// The static members of CFile that ask the system for names: special folders, modules, temporary files.

#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <shlobj.h>

#include <algorithm>
#include <string>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;

struct CFolderArguments
{
    HWND owner;
    int folder;
    BOOL create;
};
CFolderArguments g_folder;

BOOL WINAPI RecordingSpecialFolder(HWND owner, wchar_t* path, int folder, BOOL create)
{
    g_folder = {owner, folder, create};
    path[0] = L'x';
    path[1] = 0;
    return TRUE;
}

BOOL WINAPI FailingSpecialFolder(HWND, wchar_t*, int, BOOL)
{
    ::SetLastError(Injected);
    return FALSE;
}

DWORD WINAPI FailingModuleFileName(HMODULE, wchar_t*, DWORD)
{
    ::SetLastError(Injected);
    return 0;
}

// Answers this path as the system does: what does not fit is cut, and then no terminator is written.
std::wstring g_modulePath;

DWORD WINAPI ModuleFileNameOfChoice(HMODULE, wchar_t* buffer, DWORD size)
{
    const std::size_t length = std::min<std::size_t>(g_modulePath.size(), size);
    g_modulePath.copy(buffer, length);
    if (length < size)
        buffer[length] = 0;
    else
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return static_cast<DWORD>(length);
}

DWORD WINAPI FailingTempPath(DWORD, wchar_t*)
{
    ::SetLastError(Injected);
    return 0;
}

struct CTempNameArguments
{
    std::wstring path, prefix;
    UINT unique;
};
CTempNameArguments g_tempName;

UINT WINAPI RecordingTempFileName(const wchar_t* path, const wchar_t* prefix, UINT unique, wchar_t* name)
{
    g_tempName = {path, prefix, unique};
    name[0] = L'n';
    name[1] = 0;
    return 1;
}

bool FileThere(const ustring& path)
{
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool EndsWith(const ustring& text, const wchar_t* end)
{
    const std::wstring tail = end;
    return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

ustring ShortModuleName(const std::wstring& path)
{
    g_modulePath = path;
    const CImportPatch patch(&::GetModuleFileNameW, &ModuleFileNameOfChoice);
    ustring name = L"old";
    CFile::GetModuleFileNameW(nullptr, name, false);
    return name;
}

ustring FullModuleName(const std::wstring& path)
{
    g_modulePath = path;
    const CImportPatch patch(&::GetModuleFileNameW, &ModuleFileNameOfChoice);
    ustring name = L"old";
    CFile::GetModuleFileNameW(nullptr, name, true);
    return name;
}

}   // namespace

TEST(SpecialFolderPath, Success_GivesTheSystemsPath)
{
    wchar_t expected[MAX_PATH];
    ASSERT_TRUE(::SHGetSpecialFolderPathW(nullptr, expected, CSIDL_PERSONAL, FALSE));
    ustring path;

    CFile::GetSpecialFolderPath(CSIDL_PERSONAL, path);

    EXPECT_EQ(path, expected);
}

TEST(SpecialFolderPath, Call_HasNoOwnerAndCreatesNothing)
{
    const CImportPatch patch(&::SHGetSpecialFolderPathW, &RecordingSpecialFolder);
    g_folder = {reinterpret_cast<HWND>(1), 0, TRUE};
    ustring path;

    CFile::GetSpecialFolderPath(0x1234, path);

    EXPECT_EQ(g_folder.owner, nullptr);
    EXPECT_EQ(g_folder.folder, 0x1234);
    EXPECT_EQ(g_folder.create, FALSE);
    EXPECT_EQ(path, L"x");
}

TEST(SpecialFolderPath, Failure_LeavesTheOutputUntouched)
{
    const CImportPatch patch(&::SHGetSpecialFolderPathW, &FailingSpecialFolder);
    ustring path = L"old";

    EXPECT_FAILURE(331, L".\\File", L"SHGetSpecialFolderPath", Injected,
                   CFile::GetSpecialFolderPath(CSIDL_PERSONAL, path));
    EXPECT_EQ(path, L"old");
}

TEST(ModuleFileName, FullPath_IsTheProgramsPath)
{
    ustring path;

    CFile::GetModuleFileNameW(nullptr, path, true);

    EXPECT_EQ(path, support::ModuleFolder() + L"\\os_test.exe");
}

TEST(ModuleFileName, ShortForm_IsTheProgramsName)
{
    ustring name;

    CFile::GetModuleFileNameW(nullptr, name, false);

    EXPECT_EQ(name, L"os_test");
}

TEST(ModuleFileName, FullPath_OfAModule_IsTheModulesPath)
{
    ustring path;

    CFile::GetModuleFileNameW(::GetModuleHandleW(L"vantor.dll"), path, true);

    EXPECT_TRUE(EndsWith(path, L"\\vantor.dll")) << ::testing::PrintToString(path);
}

TEST(ModuleFileName, ShortForm_OfAModule_IsTheModulesName)
{
    ustring name;

    CFile::GetModuleFileNameW(::GetModuleHandleW(L"vantor.dll"), name, false);

    EXPECT_EQ(name, L"vantor");
}

TEST(ModuleFileName, ShortForm_OfAPathWithoutDrive_IsTheName)
{
    EXPECT_EQ(ShortModuleName(L"\\Windows\\app.exe"), L"app");
}

TEST(ModuleFileName, ShortForm_OfANameWithDots_LosesTheLastPartOnly)
{
    EXPECT_EQ(ShortModuleName(L"C:\\a.b\\app.v1.exe"), L"app.v1");
}

TEST(ModuleFileName, ShortForm_OfANameWithoutExtension_IsTheName)
{
    EXPECT_EQ(ShortModuleName(L"C:\\a.b\\app"), L"app");
}

TEST(ModuleFileName, ShortForm_OfALongName_IsWhole)
{
    const std::wstring name(240, L'n');

    EXPECT_EQ(ShortModuleName(L"C:\\" + name + L".exe"), name);
}

TEST(ModuleFileName, FullPath_OfTheLongestPath_IsWhole)
{
    const std::wstring path = L"C:\\" + std::wstring(125, L'd') + L"\\" + std::wstring(126, L'n') + L".exe";
    ASSERT_EQ(path.size(), 259u);

    EXPECT_EQ(FullModuleName(path), path);
}

TEST(ModuleFileName, FullPath_OfATooLongPath_IsWhatTheSystemGives)
{
    const std::wstring path = L"C:\\" + std::wstring(150, L'd') + L"\\" + std::wstring(150, L'n') + L".exe";

    EXPECT_EQ(FullModuleName(path), path.substr(0, 260));
}

TEST(ModuleFileName, ShortForm_OfATooLongPath_IsWhatTheSystemGives)
{
    const std::wstring folder = L"C:\\" + std::wstring(150, L'd') + L"\\";

    EXPECT_EQ(ShortModuleName(folder + std::wstring(150, L'n') + L".exe"), std::wstring(260 - folder.size(), L'n'));
}

TEST(ModuleFileName, OfAModuleThatIsNotLoaded_ThrowsAndClearsTheOutput)
{
    ustring name = L"old";

    EXPECT_FAILURE(343, L".\\File", L"GetModuleFileName", ERROR_MOD_NOT_FOUND,
                   CFile::GetModuleFileNameW(reinterpret_cast<HINSTANCE>(0x12340000), name, true));
    EXPECT_EQ(name, L"");
}

TEST(ModuleFileName, ShortForm_OnFailure_ThrowsAndClearsTheOutput)
{
    const CImportPatch patch(&::GetModuleFileNameW, &FailingModuleFileName);
    ustring name = L"old";

    EXPECT_FAILURE(343, L".\\File", L"GetModuleFileName", Injected, CFile::GetModuleFileNameW(nullptr, name, false));
    EXPECT_EQ(name, L"");
}

TEST(TempPath, Success_GivesTheSystemsPath)
{
    wchar_t expected[MAX_PATH];
    ASSERT_NE(::GetTempPathW(MAX_PATH, expected), 0u);
    ustring path = L"old";

    CFile::GetTempPathW(path);

    EXPECT_EQ(path, expected);
}

TEST(TempPath, Failure_ClearsTheOutput)
{
    const CImportPatch patch(&::GetTempPathW, &FailingTempPath);
    ustring path = L"old";

    EXPECT_FAILURE(368, L".\\File", L"GetTempPath", Injected, CFile::GetTempPathW(path));
    EXPECT_EQ(path, L"");
}

TEST(TempFileName, UniqueOfZero_MakesTheFile)
{
    const CTempFolder folder;
    ustring name;

    CFile::GetTempFileNameW(folder.Path().c_str(), L"abc", 0, name);

    EXPECT_TRUE(FileThere(name));
    EXPECT_EQ(name.find(folder.Path() + L"\\abc"), 0u) << ::testing::PrintToString(name);
}

TEST(TempFileName, UniqueOfZero_MakesAnotherFileEachTime)
{
    const CTempFolder folder;
    ustring first, second;

    CFile::GetTempFileNameW(folder.Path().c_str(), L"abc", 0, first);
    CFile::GetTempFileNameW(folder.Path().c_str(), L"abc", 0, second);

    EXPECT_NE(first, second);
}

TEST(TempFileName, UniqueNumber_MakesTheNameOnly)
{
    const CTempFolder folder;
    ustring name;

    CFile::GetTempFileNameW(folder.Path().c_str(), L"abc", 0x1F, name);

    EXPECT_EQ(name.compareNoCase((folder.Path() + L"\\abc1F.tmp").c_str(), ustring::npos), 0);
    EXPECT_FALSE(FileThere(name));
}

TEST(TempFileName, Call_PassesItsArgumentsOn)
{
    const CImportPatch patch(&::GetTempFileNameW, &RecordingTempFileName);
    ustring name;

    CFile::GetTempFileNameW(L"path", L"prefix", 0x89ABCDEF, name);

    EXPECT_EQ(g_tempName.path, L"path");
    EXPECT_EQ(g_tempName.prefix, L"prefix");
    EXPECT_EQ(g_tempName.unique, 0x89ABCDEFu);
    EXPECT_EQ(name, L"n");
}

TEST(TempFileName, InAMissingFolder_ThrowsAndClearsTheOutput)
{
    const CTempFolder folder;
    const ustring missing = folder.File(L"missing");
    ustring name = L"old";

    EXPECT_FAILURE(384, L".\\File", L"GetTempFileName", ERROR_DIRECTORY,
                   CFile::GetTempFileNameW(missing.c_str(), L"abc", 0, name));
    EXPECT_EQ(name, L"");
}

TEST(TempFileName, AnOutputThatIsThePath_IsReadFirst)
{
    const CImportPatch patch(&::GetTempFileNameW, &RecordingTempFileName);
    ustring name = L"path";

    CFile::GetTempFileNameW(name.c_str(), L"prefix", 1, name);

    EXPECT_EQ(g_tempName.path, L"path");
    EXPECT_EQ(name, L"n");
}

TEST(TempFileName, AnOutputThatIsThePrefix_IsReadFirst)
{
    const CImportPatch patch(&::GetTempFileNameW, &RecordingTempFileName);
    ustring name = L"prefix";

    CFile::GetTempFileNameW(L"path", name.c_str(), 1, name);

    EXPECT_EQ(g_tempName.prefix, L"prefix");
    EXPECT_EQ(name, L"n");
}
