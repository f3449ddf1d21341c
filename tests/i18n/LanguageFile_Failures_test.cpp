// How a language file is opened, and what is left when opening, reading or writing fails.

#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;
using support::Utf16;

namespace
{
constexpr wchar_t LoadFunction[] = L"vantor::CLanguageFile::LoadLanguageFile";

CLanguageFile Filled()
{
    CLanguageFile file;
    file[L"old"] = L"entry";
    return file;
}

// Ten blocks of 512 bytes and some more.
ustring WriteLongFile(const CTempFolder& folder)
{
    return folder.Write(L"long.lng", "\xFF\xFE" + Utf16(L"[k]\n[" + std::wstring(2600, L'v') + L"]\n"));
}

HANDLE OpenExclusively(const wchar_t* path)
{
    return ::CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

bool NobodyHasItOpen(const wchar_t* path)
{
    const HANDLE file = OpenExclusively(path);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    ::CloseHandle(file);
    return true;
}

struct COpening
{
    std::wstring name;
    DWORD access;
    DWORD share;
    SECURITY_ATTRIBUTES* sa;
    DWORD disposition;
    DWORD flags;
    HANDLE hTemplate;
};
COpening g_opening;

HANDLE WINAPI RecordingCreateFile(LPCWSTR name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* sa, DWORD disposition,
                                  DWORD flags, HANDLE hTemplate)
{
    g_opening = {name, access, share, sa, disposition, flags, hTemplate};
    return ::CreateFileW(name, access, share, sa, disposition, flags, hTemplate);
}

// Reads and length queries in the order in which they come.
std::string g_calls;
std::size_t g_failingRead;
DWORD g_readError;

BOOL WINAPI FakeReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    g_calls += 'R';
    if (g_failingRead != 0 && --g_failingRead == 0)
    {
        ::SetLastError(g_readError);
        return FALSE;
    }
    return ::ReadFile(file, buffer, size, done, overlapped);
}

DWORD WINAPI RecordingGetFileSize(HANDLE file, LPDWORD high)
{
    g_calls += 'L';
    return ::GetFileSize(file, high);
}

// From the third query on the file is empty.
int g_queries;

DWORD WINAPI ShrinkingGetFileSize(HANDLE file, LPDWORD high)
{
    if (++g_queries < 3)
        return ::GetFileSize(file, high);
    *high = 0;
    ::SetLastError(NO_ERROR);
    return 0;
}

DWORD g_requestedSize;

BOOL WINAPI ShortReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    g_requestedSize = size;
    return ::ReadFile(file, buffer, 2 + 2 * 8, done, overlapped);
}

BOOL WINAPI FullDiskWriteFile(HANDLE, LPCVOID, DWORD, LPDWORD done, LPOVERLAPPED)
{
    *done = 0;
    ::SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

BOOL WINAPI NeedlessSetEndOfFile(HANDLE)
{
    return TRUE;
}

// The protected members, which work on an open file.
class COpenLanguageFile : public CLanguageFile
{
public:
    using CLanguageFile::LoadLanguageFile;
    using CLanguageFile::SaveLanguageFile;
};
}   // namespace

TEST(LanguageFileFailures, Load_EmptyFile_FailsAndEmptiesTheMap)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", "");
    CLanguageFile file = Filled();
    EXPECT_FAILURE(51, L".\\Translator", L"vantor::CLanguageFile::LoadLanguageFile", ERROR_INVALID_DATA,
                   file.LoadLanguageFile(path.c_str()));
    EXPECT_TRUE(file.empty());
}

TEST(LanguageFileFailures, Load_FileOfOneByte_FailsAsTooShort)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", "\xFF");
    EXPECT_FAILURE(51, L".\\Translator", LoadFunction, ERROR_INVALID_DATA,
                   CLanguageFile().LoadLanguageFile(path.c_str()));
}

TEST(LanguageFileFailures, Load_FileWithoutTheMark_FailsAndEmptiesTheMap)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", Utf16(L"[k]\n[v]\n"));
    CLanguageFile file = Filled();
    EXPECT_FAILURE(57, L".\\Translator", L"vantor::CLanguageFile::LoadLanguageFile", ERROR_INVALID_DATA,
                   file.LoadLanguageFile(path.c_str()));
    EXPECT_TRUE(file.empty());
}

TEST(LanguageFileFailures, Load_Utf8File_FailsAsUnmarked)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", "\xEF\xBB\xBF[k]\n[v]\n");
    EXPECT_FAILURE(57, L".\\Translator", LoadFunction, ERROR_INVALID_DATA,
                   CLanguageFile().LoadLanguageFile(path.c_str()));
}

TEST(LanguageFileFailures, Load_BigEndianFile_FailsAsUnmarked)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", std::string("\xFE\xFF\0[\0k\0]\0\n", 10));
    EXPECT_FAILURE(57, L".\\Translator", LoadFunction, ERROR_INVALID_DATA,
                   CLanguageFile().LoadLanguageFile(path.c_str()));
}

TEST(LanguageFileFailures, Load_RefusedFile_IsClosedAgain)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", "no language file");
    EXPECT_THROW(CLanguageFile().LoadLanguageFile(path.c_str()), CWinException);
    EXPECT_TRUE(NobodyHasItOpen(path.c_str()));
}

TEST(LanguageFileFailures, Load_GoodFile_IsClosedAgain)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    CLanguageFile().LoadLanguageFile(path.c_str());
    EXPECT_TRUE(NobodyHasItOpen(path.c_str()));
}

TEST(LanguageFileFailures, Load_FileOpenWithoutSharing_FailsAndKeepsTheMap)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    const HANDLE other = OpenExclusively(path.c_str());
    CLanguageFile file = Filled();
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION, file.LoadLanguageFile(path.c_str()));
    EXPECT_EQ(Filled(), file);
    ::CloseHandle(other);
}

TEST(LanguageFileFailures, Load_FolderInsteadOfAFile_Fails)
{
    const CTempFolder folder;
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_ACCESS_DENIED,
                   CLanguageFile().LoadLanguageFile(folder.Path().c_str()));
}

TEST(LanguageFileFailures, Load_FileThatAnotherReads_IsShared)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    const HANDLE other = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    CLanguageFile file;
    EXPECT_TRUE(file.LoadLanguageFile(path.c_str()));
    ::CloseHandle(other);
}

TEST(LanguageFileFailures, Load_OpensForReadingAndSharesReading)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);
    CLanguageFile().LoadLanguageFile(path.c_str());
    EXPECT_TRUE(path == g_opening.name.c_str());
    EXPECT_EQ(GENERIC_READ, g_opening.access);
    EXPECT_EQ(static_cast<DWORD>(FILE_SHARE_READ), g_opening.share);
    EXPECT_EQ(nullptr, g_opening.sa);
    EXPECT_EQ(static_cast<DWORD>(OPEN_EXISTING), g_opening.disposition);
    EXPECT_EQ(0u, g_opening.flags);
    EXPECT_EQ(nullptr, g_opening.hTemplate);
}

TEST(LanguageFileFailures, Load_ReadsFiveHundredAndTwelveBytesAtATime)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    const CImportPatch patch(&::ReadFile, &ShortReadFile);
    CLanguageFile().LoadLanguageFile(path.c_str());
    EXPECT_EQ(512u, g_requestedSize);
}

TEST(LanguageFileFailures, Load_ShortRead_EndsTheReading)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", "\xFF\xFE" + Utf16(L"[k]\n[v]\n[l]\n[w]\n"));
    const CImportPatch patch(&::ReadFile, &ShortReadFile);
    CLanguageFile file;
    file.LoadLanguageFile(path.c_str());
    ASSERT_EQ(1u, file.size());
    EXPECT_EQ(ustring(L"v"), file.at(L"k"));
}

TEST(LanguageFileFailures, Load_AsksForTheLengthBeforeEveryRead)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", "\xFF\xFE" + Utf16(std::wstring(600, L'a')));   // 512 + 512 + 178 bytes
    g_calls.clear();
    const CImportPatch read(&::ReadFile, &FakeReadFile);
    const CImportPatch size(&::GetFileSize, &RecordingGetFileSize);
    CLanguageFile().LoadLanguageFile(path.c_str());
    EXPECT_EQ("LRLRLR", g_calls);
}

TEST(LanguageFileFailures, Load_FileThatLosesItsBytesMeanwhile_FailsAsTooShort)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    g_queries = 0;
    const CImportPatch patch(&::GetFileSize, &ShrinkingGetFileSize);
    CLanguageFile file = Filled();
    EXPECT_FAILURE(51, L".\\Translator", LoadFunction, ERROR_INVALID_DATA, file.LoadLanguageFile(path.c_str()));
    EXPECT_TRUE(file.empty());
}

TEST(LanguageFileFailures, Load_ReadThatFailsInTheMiddle_FailsAndLeavesTheMapEmpty)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    g_failingRead = 4;
    g_readError = ERROR_CRC;
    const CImportPatch patch(&::ReadFile, &FakeReadFile);
    CLanguageFile file = Filled();
    EXPECT_FAILURE(54, L".\\File", L"ReadFile", ERROR_CRC, file.LoadLanguageFile(path.c_str()));
    EXPECT_TRUE(file.empty());
}

TEST(LanguageFileFailures, Load_ReadThatFailsAsNotFound_IsFalseWithTheMapEmptied)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    g_failingRead = 2;
    g_readError = ERROR_FILE_NOT_FOUND;
    const CImportPatch patch(&::ReadFile, &FakeReadFile);
    CLanguageFile file = Filled();
    EXPECT_FALSE(file.LoadLanguageFile(path.c_str()));
    EXPECT_TRUE(file.empty());
}

TEST(LanguageFileFailures, Load_ReadThatFailsAsPathNotFound_IsFalse)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    g_failingRead = 1;
    g_readError = ERROR_PATH_NOT_FOUND;
    const CImportPatch patch(&::ReadFile, &FakeReadFile);
    EXPECT_FALSE(CLanguageFile().LoadLanguageFile(path.c_str()));
}

TEST(LanguageFileFailures, Save_OpensForWritingWithoutSharing)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);
    Filled().SaveLanguageFile(path.c_str());
    EXPECT_TRUE(path == g_opening.name.c_str());
    EXPECT_EQ(static_cast<DWORD>(GENERIC_WRITE), g_opening.access);
    EXPECT_EQ(0u, g_opening.share);
    EXPECT_EQ(nullptr, g_opening.sa);
    EXPECT_EQ(static_cast<DWORD>(CREATE_ALWAYS), g_opening.disposition);
    EXPECT_EQ(0u, g_opening.flags);
    EXPECT_EQ(nullptr, g_opening.hTemplate);
}

TEST(LanguageFileFailures, Save_ClosesTheFile)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    Filled().SaveLanguageFile(path.c_str());
    EXPECT_TRUE(NobodyHasItOpen(path.c_str()));
}

TEST(LanguageFileFailures, Save_FileOpenElsewhere_Fails)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    const HANDLE other = OpenExclusively(path.c_str());
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION, Filled().SaveLanguageFile(path.c_str()));
    ::CloseHandle(other);
}

TEST(LanguageFileFailures, Save_MissingFolder_Fails)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"none\\x.lng");
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_PATH_NOT_FOUND, Filled().SaveLanguageFile(path.c_str()));
}

TEST(LanguageFileFailures, Save_FullDisk_FailsAndKeepsTheMap)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);
    CLanguageFile file = Filled();
    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, file.SaveLanguageFile(path.c_str()));
    EXPECT_EQ(Filled(), file);
}

TEST(LanguageFileFailures, Save_FullDisk_ClosesTheFile)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    {
        const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);
        EXPECT_THROW(Filled().SaveLanguageFile(path.c_str()), CWinException);
    }
    EXPECT_TRUE(NobodyHasItOpen(path.c_str()));
}

// The device that is always full; it can be written to, but not cut.
TEST(LanguageFileFailures, Save_ToTheFullDevice_Fails)
{
    const CImportPatch patch(&::SetEndOfFile, &NeedlessSetEndOfFile);
    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, Filled().SaveLanguageFile(L"Z:\\dev\\full"));
}

TEST(LanguageFileFailures, Save_FileThatCannotBeCut_FailsAndKeepsTheMap)
{
    CLanguageFile file = Filled();
    EXPECT_THROW(file.SaveLanguageFile(L"Z:\\dev\\full"), CWinException);
    EXPECT_EQ(Filled(), file);
}

TEST(LanguageFileFailures, LoadFromAnOpenFile_StartsAtTheBeginningAndLeavesItOpen)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    CFile open(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    open.Seek(0, FILE_END);
    COpenLanguageFile file;
    file.LoadLanguageFile(open);
    EXPECT_EQ(1u, file.count(L"k"));
    EXPECT_TRUE(open.IsCreated());
}

TEST(LanguageFileFailures, SaveToAnOpenFile_RewritesAndClosesIt)
{
    const CTempFolder folder;
    const ustring path = WriteLongFile(folder);
    CFile open(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    open.Seek(100, FILE_BEGIN);
    COpenLanguageFile file;
    file[L"k"] = L"v";
    file.SaveLanguageFile(open);
    EXPECT_FALSE(open.IsCreated());
    EXPECT_EQ("\xFF\xFE" + Utf16(L"[k]\n[v]\n"), support::ReadBytes(path.c_str()));
}
