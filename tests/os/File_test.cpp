// CFile as an object: opening, reading, writing; renaming and removing. File_Position_test.cpp has positions and
// lengths.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;
using support::CTempFolder;
using support::ReadBytes;

namespace
{
struct COpenArguments
{
    const wchar_t* name;
    DWORD access, share;
    SECURITY_ATTRIBUTES* sa;
    DWORD disposition, flags;
    HANDLE hTemplate;
};
COpenArguments g_open;

HANDLE WINAPI RecordingCreateFile(const wchar_t* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* sa,
                                  DWORD disposition, DWORD flags, HANDLE hTemplate)
{
    g_open = {name, access, share, sa, disposition, flags, hTemplate};
    return ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

HANDLE g_flushed;

BOOL WINAPI RecordingFlush(HANDLE file)
{
    g_flushed = file;
    return TRUE;
}

// Counts its own Close.
class CProbeFile : public CFile
{
public:
    int closes = 0;

    void Close() override
    {
        ++closes;
        CFile::Close();
    }
};

class File : public ::testing::Test
{
protected:
    // Opens for reading and writing, without sharing.
    static void Open(CFile& file, const ustring& path)
    {
        file.Open(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
    }
    static bool CanBeOpenedByOthers(const ustring& path)
    {
        const HANDLE h = ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        return h != INVALID_HANDLE_VALUE && ::CloseHandle(h);
    }

    CTempFolder m_folder;
};
}   // namespace

TEST_F(File, DefaultConstruction_IsEmpty)
{
    const CFile file;

    EXPECT_FALSE(file.IsCreated());
}

TEST_F(File, EmptyValue_IsTheInvalidHandleValue)
{
    CFile file;

    EXPECT_EQ(file.Detach(), INVALID_HANDLE_VALUE);
}

TEST_F(File, Open_PassesAllSevenArgumentsOnUnchanged)
{
    const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, FALSE};
    const wchar_t* const name = L"name";
    int hTemplate;
    CFile file;

    file.Open(name, 0x80000001, 0x11, &sa, 0x22, 0x80000080, &hTemplate);

    EXPECT_EQ(g_open.name, name);
    EXPECT_EQ(g_open.access, 0x80000001u);
    EXPECT_EQ(g_open.share, 0x11u);
    EXPECT_EQ(g_open.sa, &sa);
    EXPECT_EQ(g_open.disposition, 0x22u);
    EXPECT_EQ(g_open.flags, 0x80000080u);
    EXPECT_EQ(g_open.hTemplate, &hTemplate);
}

TEST_F(File, OpeningConstruction_PassesAllSevenArgumentsOnUnchanged)
{
    const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, FALSE};
    const wchar_t* const name = L"name";
    int hTemplate;

    const CFile file(name, 0x80000001, 0x11, &sa, 0x22, 0x80000080, &hTemplate);

    EXPECT_EQ(g_open.name, name);
    EXPECT_EQ(g_open.access, 0x80000001u);
    EXPECT_EQ(g_open.share, 0x11u);
    EXPECT_EQ(g_open.sa, &sa);
    EXPECT_EQ(g_open.disposition, 0x22u);
    EXPECT_EQ(g_open.flags, 0x80000080u);
    EXPECT_EQ(g_open.hTemplate, &hTemplate);
}

TEST_F(File, Open_AddsNoDefaultsOfItsOwn)
{
    const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);
    g_open = {L"name", 1, 1, nullptr, 1, 1, INVALID_HANDLE_VALUE};
    CFile file;

    file.Open(nullptr, 0, 0, nullptr, 0, 0, nullptr);

    EXPECT_EQ(g_open.name, nullptr);
    EXPECT_EQ(g_open.access, 0u);
    EXPECT_EQ(g_open.share, 0u);
    EXPECT_EQ(g_open.sa, nullptr);
    EXPECT_EQ(g_open.disposition, 0u);
    EXPECT_EQ(g_open.flags, 0u);
    EXPECT_EQ(g_open.hTemplate, nullptr);
}

TEST_F(File, OpeningConstruction_HoldsTheFile)
{
    const ustring path = m_folder.Write(L"a.txt", "abc");

    const CFile file(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);

    EXPECT_TRUE(file.IsCreated());
    EXPECT_EQ(file.GetLength(), 3u);
}

TEST_F(File, Open_OnAHoldingObject_ClosesTheOldFile)
{
    const ustring first = m_folder.Write(L"a.txt", "");
    CFile file;
    Open(file, first);

    Open(file, m_folder.File(L"b.txt"));

    EXPECT_TRUE(file.IsCreated());
    EXPECT_TRUE(CanBeOpenedByOthers(first));
}

TEST_F(File, Open_OnAHoldingObject_ClosesTheOldFileEvenWhenTheNewOneFails)
{
    const ustring first = m_folder.Write(L"a.txt", "");
    CFile file;
    Open(file, first);

    EXPECT_THROW(Open(file, m_folder.File(L"missing\\b.txt")), CWinException);

    EXPECT_TRUE(CanBeOpenedByOthers(first));
}

TEST_F(File, Open_OfTheFileThatIsOpen_Succeeds)
{
    const ustring path = m_folder.Write(L"a.txt", "abc");
    CFile file;
    Open(file, path);

    EXPECT_NO_THROW(Open(file, path)) << "it is closed before it is opened again";
}

TEST_F(File, Open_OnFailure_LeavesTheObjectEmpty)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));

    EXPECT_THROW(Open(file, m_folder.File(L"missing\\b.txt")), CWinException);

    EXPECT_FALSE(file.IsCreated());
}

TEST_F(File, Open_RunsTheCloseOfADerivedClass)
{
    CProbeFile file;
    Open(file, m_folder.File(L"a.txt"));
    file.closes = 0;

    Open(file, m_folder.File(L"b.txt"));

    EXPECT_EQ(file.closes, 1);
}

TEST_F(File, Open_OfAnEmptyObject_RunsTheCloseOfADerivedClassToo)
{
    CProbeFile file;

    Open(file, m_folder.File(L"a.txt"));

    EXPECT_EQ(file.closes, 1);
}

TEST_F(File, Open_WhenTheOldFileCannotBeClosed_ThrowsThatAndOpensNothing)
{
    const ustring second = m_folder.File(L"b.txt");
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    const CProtectedHandle guard(file);

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, Open(file, second));

    EXPECT_FALSE(file.IsCreated());
    EXPECT_FALSE(CanBeOpenedByOthers(second));
}

TEST_F(File, Destructor_ClosesTheFile)
{
    const ustring path = m_folder.File(L"a.txt");
    {
        CFile file;
        Open(file, path);
        EXPECT_FALSE(CanBeOpenedByOthers(path));
    }

    EXPECT_TRUE(CanBeOpenedByOthers(path));
}

TEST_F(File, Read_GivesTheBytesAndTheirCount)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));
    char buffer[16] = {};
    unsigned int done = 99;

    EXPECT_TRUE(file.Read(buffer, sizeof buffer, done, nullptr));

    EXPECT_EQ(done, 5u);
    EXPECT_STREQ(buffer, "hello");
}

TEST_F(File, Read_ReadsNoMoreThanAskedFor)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));
    char buffer[16] = {};
    unsigned int done = 99;

    EXPECT_TRUE(file.Read(buffer, 2, done, nullptr));

    EXPECT_EQ(done, 2u);
    EXPECT_STREQ(buffer, "he");
}

TEST_F(File, Read_AtTheEnd_SucceedsWithACountOfZero)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", ""));
    char buffer[16];
    unsigned int done = 99;

    EXPECT_TRUE(file.Read(buffer, sizeof buffer, done, nullptr));

    EXPECT_EQ(done, 0u);
}

TEST_F(File, Write_WritesTheBytesAndGivesTheirCount)
{
    const ustring path = m_folder.File(L"a.txt");
    unsigned int done = 99;
    {
        CFile file;
        Open(file, path);
        EXPECT_TRUE(file.Write("hello", 5, done, nullptr));
    }

    EXPECT_EQ(done, 5u);
    EXPECT_EQ(ReadBytes(path.c_str()), "hello");
}

TEST_F(File, Flush_FlushesTheFile)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    const CImportPatch patch(&::FlushFileBuffers, &RecordingFlush);
    g_flushed = nullptr;

    file.Flush();

    EXPECT_EQ(g_flushed, static_cast<void*>(file));
}

TEST_F(File, Rename_MovesTheFile)
{
    const ustring from = m_folder.Write(L"a.txt", "hello");
    const ustring to = m_folder.File(L"b.txt");

    CFile::Rename(from.c_str(), to.c_str());

    EXPECT_FALSE(CanBeOpenedByOthers(from));
    EXPECT_EQ(ReadBytes(to.c_str()), "hello");
}

TEST_F(File, Remove_RemovesTheFile)
{
    const ustring path = m_folder.Write(L"a.txt", "hello");

    CFile::Remove(path.c_str());

    EXPECT_FALSE(CanBeOpenedByOthers(path));
}
