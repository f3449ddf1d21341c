// What becomes of a file when it is saved, and when that fails.

#include "Texts.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;
using support::FailsWith;
using support::ReadBytes;

namespace
{
constexpr char OldBytes[] = "what was here before";

BOOL WINAPI WriteToFullDisk(HANDLE, LPCVOID, DWORD, LPDWORD done, LPOVERLAPPED)
{
    *done = 0;
    ::SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

CLanguageFile SomeTable()
{
    CLanguageFile table;
    table[L"Open"] = L"\u00D6ffnen";
    return table;
}

std::string SomeTableAsBytes()
{
    return support::Utf16(L"\uFEFF[Open]\n[\u00D6ffnen]\n");
}

std::vector<ustring> Names(const CTempFolder& folder)
{
    std::vector<ustring> result;
    WIN32_FIND_DATAW entry;
    const HANDLE search = ::FindFirstFileW(folder.File(L"*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return result;
    do
    {
        if (entry.cFileName[0] != L'.')
            result.push_back(entry.cFileName);
    } while (::FindNextFileW(search, &entry));
    ::FindClose(search);
    std::sort(result.begin(), result.end());
    return result;
}

bool SaveFails(const ustring& path)
{
    try
    {
        CLanguageFile table = SomeTable();
        lng::Save(table, path);
        return false;
    }
    catch (const CWinException&)
    {
        return true;
    }
}
}   // namespace

TEST(Save, NewFile_HoldsTheTable)
{
    const CTempFolder folder;
    CLanguageFile table = SomeTable();
    lng::Save(table, folder.File(L"new.lng"));
    EXPECT_EQ(ReadBytes(folder.File(L"new.lng").c_str()), SomeTableAsBytes());
}

TEST(Save, ExistingFile_IsReplaced)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    CLanguageFile table = SomeTable();
    lng::Save(table, path);
    EXPECT_EQ(ReadBytes(path.c_str()), SomeTableAsBytes());
}

TEST(Save, Success_LeavesNoOtherFile)
{
    const CTempFolder folder;
    CLanguageFile table = SomeTable();
    lng::Save(table, folder.File(L"x.lng"));
    EXPECT_EQ(Names(folder), std::vector<ustring>{L"x.lng"});
}

TEST(Save, PathWithSlashes_NamesTheSameFile)
{
    const CTempFolder folder;
    ustring path = folder.File(L"x.lng");
    path.replace(L"\\", L"/");
    CLanguageFile table = SomeTable();
    lng::Save(table, path);
    EXPECT_EQ(Names(folder), std::vector<ustring>{L"x.lng"});
}

TEST(Save, PathInTheLongForm_NamesTheSameFile)
{
    const CTempFolder folder;
    CLanguageFile table = SomeTable();
    lng::Save(table, L"\\\\?\\" + folder.File(L"x.lng"));
    EXPECT_EQ(Names(folder), std::vector<ustring>{L"x.lng"});
}

TEST(Save, FullDisk_FailsWithTheWritesOwnError)
{
    const CTempFolder folder;
    CLanguageFile table = SomeTable();
    const CImportPatch patch(&::WriteFile, &WriteToFullDisk);
    EXPECT_TRUE(
        FailsWith(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, [&] { lng::Save(table, folder.File(L"x.lng")); }));
}

TEST(Save, FullDisk_LeavesAnExistingFileAsItWas)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    {
        const CImportPatch patch(&::WriteFile, &WriteToFullDisk);
        ASSERT_TRUE(SaveFails(path));
    }
    EXPECT_EQ(ReadBytes(path.c_str()), OldBytes);
}

TEST(Save, FullDisk_LeavesNoFileBehind)
{
    const CTempFolder folder;
    const CImportPatch patch(&::WriteFile, &WriteToFullDisk);
    ASSERT_TRUE(SaveFails(folder.File(L"x.lng")));
    EXPECT_TRUE(Names(folder).empty());
}

TEST(Save, ReadOnlyFile_FailsWithTheMovesError)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    CLanguageFile table = SomeTable();
    EXPECT_TRUE(FailsWith(2, L".\\lng", L"MoveFileEx", ERROR_ACCESS_DENIED, [&] { lng::Save(table, path); }));
}

TEST(Save, ReadOnlyFile_IsLeftAsItWas)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(SaveFails(path));
    EXPECT_EQ(ReadBytes(path.c_str()), OldBytes);
}

TEST(Save, ReadOnlyFile_FailureLeavesNoOtherFile)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(SaveFails(path));
    EXPECT_EQ(Names(folder), std::vector<ustring>{L"x.lng"});
}

TEST(Save, FolderInThePlaceOfTheFile_FailsWithTheMovesError)
{
    const CTempFolder folder;
    ::CreateDirectoryW(folder.File(L"x.lng").c_str(), nullptr);
    CLanguageFile table = SomeTable();
    EXPECT_TRUE(
        FailsWith(2, L".\\lng", L"MoveFileEx", ERROR_ACCESS_DENIED, [&] { lng::Save(table, folder.File(L"x.lng")); }));
}

TEST(Save, MissingFolder_FailsBeforeAnythingIsWritten)
{
    const CTempFolder folder;
    CLanguageFile table = SomeTable();
    EXPECT_TRUE(FailsWith(384, L".\\File", L"GetTempFileName", ERROR_DIRECTORY,
                          [&] { lng::Save(table, folder.File(L"missing\\x.lng")); }));
}

TEST(Save, FileThatIsOpenElsewhere_FailsWithTheMovesError)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    const CFile other(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                      nullptr);
    CLanguageFile table = SomeTable();
    EXPECT_TRUE(FailsWith(2, L".\\lng", L"MoveFileEx", ERROR_ACCESS_DENIED, [&] { lng::Save(table, path); }));
}

TEST(Save, FileThatIsOpenElsewhere_IsLeftAsItWas)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    const CFile other(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                      nullptr);
    ASSERT_TRUE(SaveFails(path));
    EXPECT_EQ(ReadBytes(path.c_str()), OldBytes);
}

TEST(Save, FileThatIsOpenElsewhere_FailureLeavesNoOtherFile)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", OldBytes);
    const CFile other(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                      nullptr);
    ASSERT_TRUE(SaveFails(path));
    EXPECT_EQ(Names(folder), std::vector<ustring>{L"x.lng"});
}
