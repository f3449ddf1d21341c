// The static members of CFile that look files up: whether they exist, how long they are.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <shlobj.h>

#include <string>
#include <vector>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;
using support::CTempFolder;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;
constexpr unsigned long long NoSuchFile = 0xFFFFFFFFFFFFFFFFULL;

std::vector<HANDLE> g_found, g_closed;

HANDLE WINAPI RecordingFindFirst(const wchar_t* path, WIN32_FIND_DATAW* entry)
{
    g_found.push_back(::FindFirstFileW(path, entry));
    return g_found.back();
}

BOOL WINAPI RecordingFindClose(HANDLE search)
{
    g_closed.push_back(search);
    return ::FindClose(search);
}

BOOL WINAPI FailingSpecialFolder(HWND, wchar_t*, int, BOOL)
{
    ::SetLastError(Injected);
    return FALSE;
}

class FileQueries : public ::testing::Test
{
protected:
    void SetUp() override
    {
        g_found.clear();
        g_closed.clear();
    }

    CTempFolder m_folder;
};

// A file of the test's own in the user's documents.
class FileInSpecialFolder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        wchar_t documents[MAX_PATH];
        ASSERT_TRUE(::SHGetSpecialFolderPathW(nullptr, documents, CSIDL_PERSONAL, FALSE));
        m_name = UniqueName(L"document");
        m_path = ustring(documents) + L"\\" + m_name + L".txt";
        support::WriteBytes(m_path.c_str(), "hello");
    }
    void TearDown() override { ::DeleteFileW(m_path.c_str()); }

    ustring m_name;   // without extension
    ustring m_path;
};
}   // namespace

TEST_F(FileQueries, FileExists_OfAFile_IsTrueAndNoFolder)
{
    bool isFolder = true;

    EXPECT_TRUE(CFile::FileExists(m_folder.Write(L"a.txt", "").c_str(), isFolder));
    EXPECT_FALSE(isFolder);
}

TEST_F(FileQueries, FileExists_OfAFolder_IsTrueAndAFolder)
{
    bool isFolder = false;

    EXPECT_TRUE(CFile::FileExists(m_folder.Path().c_str(), isFolder));
    EXPECT_TRUE(isFolder);
}

TEST_F(FileQueries, FileExists_OfAMissingFile_IsFalseAndNoFolder)
{
    bool isFolder = true;

    EXPECT_FALSE(CFile::FileExists(m_folder.File(L"missing").c_str(), isFolder));
    EXPECT_FALSE(isFolder);
}

TEST_F(FileQueries, FileExists_OfANullPath_IsFalseAndNoFolder)
{
    bool isFolder = true;

    EXPECT_FALSE(CFile::FileExists(nullptr, isFolder));
    EXPECT_FALSE(isFolder);
}

TEST_F(FileQueries, FileExists_OfAnEmptyPath_IsFalseAndNoFolder)
{
    bool isFolder = true;

    EXPECT_FALSE(CFile::FileExists(L"", isFolder));
    EXPECT_FALSE(isFolder);
}

TEST_F(FileQueries, FileExists_OfAnEmptyPath_DoesNotSearch)
{
    const CImportPatch patch(&::FindFirstFileW, &RecordingFindFirst);

    CFile::FileExists(L"");

    EXPECT_TRUE(g_found.empty());
}

TEST_F(FileQueries, FileExists_OfAMatchingMask_IsTrue)
{
    m_folder.Write(L"a.txt", "");

    EXPECT_TRUE(CFile::FileExists(m_folder.File(L"?.t*").c_str()));
}

TEST_F(FileQueries, FileExists_OfAMaskThatNothingMatches_IsFalse)
{
    m_folder.Write(L"a.txt", "");

    EXPECT_FALSE(CFile::FileExists(m_folder.File(L"*.log").c_str()));
}

TEST_F(FileQueries, FileExists_WithoutFolderFlag_TellsTheSame)
{
    EXPECT_TRUE(CFile::FileExists(m_folder.Write(L"a.txt", "").c_str()));
    EXPECT_TRUE(CFile::FileExists(m_folder.Path().c_str()));
    EXPECT_FALSE(CFile::FileExists(m_folder.File(L"missing").c_str()));
    EXPECT_FALSE(CFile::FileExists(nullptr));
}

TEST_F(FileQueries, FileExists_ClosesItsSearch)
{
    const ustring path = m_folder.Write(L"a.txt", "");
    const CImportPatch find(&::FindFirstFileW, &RecordingFindFirst);
    const CImportPatch close(&::FindClose, &RecordingFindClose);

    CFile::FileExists(path.c_str());

    EXPECT_EQ(g_found.size(), 1u);
    EXPECT_EQ(g_closed, g_found);
}

TEST_F(FileQueries, FileExists_WithoutAMatch_ClosesNothing)
{
    const ustring path = m_folder.File(L"missing");
    const CImportPatch close(&::FindClose, &RecordingFindClose);

    CFile::FileExists(path.c_str());

    EXPECT_TRUE(g_closed.empty());
}

TEST_F(FileQueries, GetLength_IsTheFilesSize)
{
    EXPECT_EQ(CFile::GetLength(m_folder.Write(L"a.txt", "hello").c_str()), 5u);
}

TEST_F(FileQueries, GetLength_OfAnEmptyFile_IsZero)
{
    EXPECT_EQ(CFile::GetLength(m_folder.Write(L"a.txt", "").c_str()), 0u);
}

TEST_F(FileQueries, GetLength_OfAMissingFile_IsAllOnes)
{
    EXPECT_EQ(CFile::GetLength(m_folder.File(L"missing").c_str()), NoSuchFile);
}

TEST_F(FileQueries, GetLength_OfANullPath_IsAllOnes)
{
    EXPECT_EQ(CFile::GetLength(nullptr), NoSuchFile);
}

TEST_F(FileQueries, GetLength_OfAnEmptyPath_IsAllOnes)
{
    EXPECT_EQ(CFile::GetLength(L""), NoSuchFile);
}

TEST_F(FileQueries, GetLength_BeyondFourGigabytes_IsWhole)
{
    const ustring path = m_folder.File(L"a.txt");
    {
        CFile file(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        file.SetLength(0x2FFFFFFFFULL);
    }

    EXPECT_EQ(CFile::GetLength(path.c_str()), 0x2FFFFFFFFULL);
}

TEST_F(FileQueries, GetLength_OfAFileThatNobodyElseMayOpen_IsItsSize)
{
    const ustring path = m_folder.Write(L"a.txt", "hello");
    const CFile file(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);

    EXPECT_EQ(CFile::GetLength(path.c_str()), 5u);
}

TEST_F(FileQueries, GetLength_ClosesItsSearch)
{
    const ustring path = m_folder.Write(L"a.txt", "");
    const CImportPatch find(&::FindFirstFileW, &RecordingFindFirst);
    const CImportPatch close(&::FindClose, &RecordingFindClose);

    CFile::GetLength(path.c_str());

    EXPECT_EQ(g_found.size(), 1u);
    EXPECT_EQ(g_closed, g_found);
}

TEST_F(FileInSpecialFolder, FileExists_FindsTheFile)
{
    bool isFolder = true;

    EXPECT_TRUE(CFile::FileExists(CSIDL_PERSONAL, m_name.c_str(), L"txt", isFolder));
    EXPECT_FALSE(isFolder);
}

TEST_F(FileInSpecialFolder, FileExists_WithoutFolderFlag_FindsTheFile)
{
    EXPECT_TRUE(CFile::FileExists(CSIDL_PERSONAL, m_name.c_str(), L".txt"));
}

TEST_F(FileInSpecialFolder, FileExists_OfAnotherName_IsFalse)
{
    bool isFolder = true;

    EXPECT_FALSE(CFile::FileExists(CSIDL_PERSONAL, m_name.c_str(), L"log", isFolder));
    EXPECT_FALSE(isFolder);
}

TEST_F(FileInSpecialFolder, FileExists_WithoutFolderFlagOfAnotherName_IsFalse)
{
    EXPECT_FALSE(CFile::FileExists(CSIDL_PERSONAL, m_name.c_str(), L"log"));
}

TEST_F(FileInSpecialFolder, FileExists_OfTheFolderItself_IsAFolder)
{
    bool isFolder = false;

    EXPECT_TRUE(CFile::FileExists(CSIDL_PERSONAL, nullptr, nullptr, isFolder));
    EXPECT_TRUE(isFolder);
}

TEST_F(FileInSpecialFolder, FileExists_WhenTheFolderIsUnknown_Throws)
{
    const CImportPatch patch(&::SHGetSpecialFolderPathW, &FailingSpecialFolder);

    EXPECT_FAILURE(331, L".\\File", L"SHGetSpecialFolderPath", Injected,
                   CFile::FileExists(CSIDL_PERSONAL, m_name.c_str(), L"txt"));
}

TEST_F(FileInSpecialFolder, GetLength_IsTheFilesSize)
{
    EXPECT_EQ(CFile::GetLength(CSIDL_PERSONAL, m_name.c_str(), L"txt"), 5u);
}

TEST_F(FileInSpecialFolder, GetLength_OfAnotherName_IsAllOnes)
{
    EXPECT_EQ(CFile::GetLength(CSIDL_PERSONAL, m_name.c_str(), L"log"), NoSuchFile);
}

TEST_F(FileInSpecialFolder, GetLength_WhenTheFolderIsUnknown_Throws)
{
    const CImportPatch patch(&::SHGetSpecialFolderPathW, &FailingSpecialFolder);

    EXPECT_FAILURE(331, L".\\File", L"SHGetSpecialFolderPath", Injected,
                   CFile::GetLength(CSIDL_PERSONAL, m_name.c_str(), L"txt"));
}
