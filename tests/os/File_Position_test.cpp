// Positions and lengths of CFile, those of more than 32 bits included.

#include "support/ImportPatch.h"
#include "support/TempFolder.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;
using support::ReadBytes;

namespace
{
constexpr unsigned long long LowHalfOfOnes = 0x1FFFFFFFFULL;   // the low half that is also how the calls say "failed"

struct CPointerArguments
{
    HANDLE file;
    LONG low, high;
    DWORD method;
};
CPointerArguments g_pointer;

// Answers a position of the low half 0x89ABCDEF and the high half 0x12345678.
DWORD WINAPI RecordingSetFilePointer(HANDLE file, LONG low, LONG* high, DWORD method)
{
    g_pointer = {file, low, *high, method};
    *high = 0x12345678;
    return 0x89ABCDEF;
}

DWORD WINAPI LengthOfHighHalf(HANDLE, DWORD* high)
{
    *high = 0xFEDCBA98;
    return 0x76543210;
}

// Counts its own Seek.
class CSeekProbe : public CFile
{
public:
    int seeks = 0;

    unsigned long long Seek(long long offset, unsigned long method) override
    {
        ++seeks;
        return CFile::Seek(offset, method);
    }
};

class FilePosition : public ::testing::Test
{
protected:
    // Opens for reading and writing.
    static void Open(CFile& file, const ustring& path)
    {
        file.Open(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
    }

    CTempFolder m_folder;
};
}   // namespace

TEST_F(FilePosition, GetPosition_FollowsReads)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));
    char buffer[3];
    unsigned int done;
    EXPECT_EQ(file.GetPosition(), 0u);

    file.Read(buffer, 3, done, nullptr);

    EXPECT_EQ(file.GetPosition(), 3u);
}

TEST_F(FilePosition, GetPosition_AsksForTheCurrentPosition)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    const CImportPatch patch(&::SetFilePointer, &RecordingSetFilePointer);

    EXPECT_EQ(file.GetPosition(), 0x1234567889ABCDEFULL);

    EXPECT_EQ(g_pointer.file, static_cast<void*>(file));
    EXPECT_EQ(g_pointer.low, 0);
    EXPECT_EQ(g_pointer.high, 0);
    EXPECT_EQ(g_pointer.method, static_cast<DWORD>(FILE_CURRENT));
}

TEST_F(FilePosition, Seek_FromTheBeginning_GivesThePosition)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));

    EXPECT_EQ(file.Seek(2, FILE_BEGIN), 2u);
    EXPECT_EQ(file.GetPosition(), 2u);
}

TEST_F(FilePosition, Seek_FromTheCurrentPosition_Adds)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));
    file.Seek(4, FILE_BEGIN);

    EXPECT_EQ(file.Seek(-3, FILE_CURRENT), 1u);
}

TEST_F(FilePosition, Seek_FromTheEnd_CountsBackwards)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));

    EXPECT_EQ(file.Seek(-1, FILE_END), 4u);
}

TEST_F(FilePosition, Seek_SplitsTheOffsetAndJoinsTheResult)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    const CImportPatch patch(&::SetFilePointer, &RecordingSetFilePointer);

    EXPECT_EQ(file.Seek(0x7EDCBA9801234567LL, FILE_END), 0x1234567889ABCDEFULL);

    EXPECT_EQ(g_pointer.file, static_cast<void*>(file));
    EXPECT_EQ(g_pointer.low, 0x01234567);
    EXPECT_EQ(g_pointer.high, 0x7EDCBA98);
    EXPECT_EQ(g_pointer.method, static_cast<DWORD>(FILE_END));
}

TEST_F(FilePosition, Seek_OfANegativeOffset_FillsBothHalves)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    const CImportPatch patch(&::SetFilePointer, &RecordingSetFilePointer);

    file.Seek(-2, FILE_CURRENT);

    EXPECT_EQ(g_pointer.low, -2);
    EXPECT_EQ(g_pointer.high, -1);
    EXPECT_EQ(g_pointer.method, static_cast<DWORD>(FILE_CURRENT));
}

TEST_F(FilePosition, Seek_BeyondFourGigabytes_GivesThePosition)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));

    EXPECT_EQ(file.Seek(0x212345678LL, FILE_BEGIN), 0x212345678ULL);
    EXPECT_EQ(file.GetPosition(), 0x212345678ULL);
}

TEST_F(FilePosition, Seek_ToALowHalfOfOnes_IsNoFailure)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));

    EXPECT_EQ(file.Seek(static_cast<long long>(LowHalfOfOnes), FILE_BEGIN), LowHalfOfOnes);
}

TEST_F(FilePosition, GetPosition_OfALowHalfOfOnes_IsNoFailure)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    file.Seek(static_cast<long long>(LowHalfOfOnes), FILE_BEGIN);

    EXPECT_EQ(file.GetPosition(), LowHalfOfOnes);
}

TEST_F(FilePosition, GetLength_OfAnEmptyFile_IsZero)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));

    EXPECT_EQ(file.GetLength(), 0u);
}

TEST_F(FilePosition, GetLength_LeavesThePosition)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));
    file.Seek(2, FILE_BEGIN);

    EXPECT_EQ(file.GetLength(), 5u);
    EXPECT_EQ(file.GetPosition(), 2u);
}

TEST_F(FilePosition, GetLength_JoinsBothHalves)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    const CImportPatch patch(&::GetFileSize, &LengthOfHighHalf);

    EXPECT_EQ(file.GetLength(), 0xFEDCBA9876543210ULL);
}

TEST_F(FilePosition, GetLength_BeyondFourGigabytes_IsWhole)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    file.SetLength(0x100000005ULL);

    EXPECT_EQ(file.GetLength(), 0x100000005ULL);
}

TEST_F(FilePosition, GetLength_OfALowHalfOfOnes_IsNoFailure)
{
    CFile file;
    Open(file, m_folder.File(L"a.txt"));
    file.SetLength(LowHalfOfOnes);

    EXPECT_EQ(file.GetLength(), LowHalfOfOnes);
}

TEST_F(FilePosition, SetLength_CutsTheFile)
{
    const ustring path = m_folder.Write(L"a.txt", "hello");
    {
        CFile file;
        Open(file, path);
        file.SetLength(2);
    }

    EXPECT_EQ(ReadBytes(path.c_str()), "he");
}

TEST_F(FilePosition, SetLength_ExtendsTheFile)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));

    file.SetLength(9);

    EXPECT_EQ(file.GetLength(), 9u);
}

TEST_F(FilePosition, SetLength_LeavesThePositionAtTheNewEnd)
{
    CFile file;
    Open(file, m_folder.Write(L"a.txt", "hello"));
    file.Seek(1, FILE_BEGIN);

    file.SetLength(3);

    EXPECT_EQ(file.GetPosition(), 3u);
}

TEST_F(FilePosition, SetLength_RunsTheSeekOfADerivedClass)
{
    CSeekProbe file;
    Open(file, m_folder.File(L"a.txt"));

    file.SetLength(3);

    EXPECT_EQ(file.seeks, 1);
}
