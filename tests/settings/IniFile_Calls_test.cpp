// A long file: an operation makes as many calls of the system as the file has blocks, and one to write it.

#include "IniTest.h"
#include "support/ImportPatch.h"

using namespace vantor;
using namespace settings_test;
using support::CImportPatch;

namespace
{
constexpr int Lines = 20000;

struct CCalls
{
    std::size_t reads, largestRead, seeks, cuts, writes;
};
CCalls g_calls;

BOOL WINAPI NotedReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    ++g_calls.reads;
    g_calls.largestRead = std::max<std::size_t>(g_calls.largestRead, size);
    return ::ReadFile(file, buffer, size, done, overlapped);
}

DWORD WINAPI NotedSetFilePointer(HANDLE file, LONG low, LONG* high, DWORD method)
{
    ++g_calls.seeks;
    return ::SetFilePointer(file, low, high, method);
}

BOOL WINAPI NotedSetEndOfFile(HANDLE file)
{
    ++g_calls.cuts;
    return ::SetEndOfFile(file);
}

BOOL WINAPI NotedWriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    ++g_calls.writes;
    return ::WriteFile(file, buffer, size, done, overlapped);
}

// Two hundred sections.
std::wstring LongText()
{
    std::wstring text;
    for (int line = 0; line < Lines; ++line)
        text +=
            (line % 100 == 0 ? L"[s" + std::to_wstring(line) + L"]" : L"k" + std::to_wstring(line) + L"=v") + L"\r\n";
    return text;
}

std::string Narrow(const std::wstring& ascii)
{
    std::string bytes;
    for (const wchar_t ch : ascii)
        bytes += static_cast<char>(ch);
    return bytes;
}

class IniFileCalls : public IniTest
{
protected:
    void SetUp() override
    {
        const std::string bytes = Narrow(LongText());
        m_blocks = (bytes.size() + 511) / 512;
        m_ini = &Open(bytes);
        g_calls = {};
    }

    std::size_t m_blocks;
    CIniFile* m_ini;
    const CImportPatch m_read{&::ReadFile, &NotedReadFile};
    const CImportPatch m_seek{&::SetFilePointer, &NotedSetFilePointer};
    const CImportPatch m_cut{&::SetEndOfFile, &NotedSetEndOfFile};
    const CImportPatch m_write{&::WriteFile, &NotedWriteFile};
};
}   // namespace

TEST_F(IniFileCalls, Reading_TakesBlocksOf512BytesAndTheEnd)
{
    EXPECT_EQ(L"v", m_ini->GetString(L"s19900", L"k19999", L""));

    EXPECT_EQ(m_blocks + 1, g_calls.reads);
    EXPECT_EQ(512u, g_calls.largestRead);
    EXPECT_EQ(1u, g_calls.seeks);
}

TEST_F(IniFileCalls, Reading_NeitherCutsNorWrites)
{
    m_ini->GetString(L"s19900", L"k19999", L"");
    Sections(*m_ini);
    Entries(*m_ini, L"s0");

    EXPECT_EQ(0u, g_calls.cuts);
    EXPECT_EQ(0u, g_calls.writes);
}

TEST_F(IniFileCalls, Listing_ReadsOnce)
{
    EXPECT_EQ(200u, Sections(*m_ini).size());

    EXPECT_EQ(m_blocks + 1, g_calls.reads);
}

TEST_F(IniFileCalls, Editing_ReadsOnceAndWritesOnce)
{
    m_ini->WriteString(L"s10000", L"k10050", L"w");

    EXPECT_EQ(m_blocks + 1, g_calls.reads);
    EXPECT_EQ(1u, g_calls.cuts);
    EXPECT_EQ(1u, g_calls.writes);
}

TEST_F(IniFileCalls, Deleting_ReadsOnceAndWritesOnce)
{
    m_ini->DeleteSection(L"s0");

    EXPECT_EQ(m_blocks + 1, g_calls.reads);
    EXPECT_EQ(1u, g_calls.cuts);
    EXPECT_EQ(1u, g_calls.writes);
}

TEST_F(IniFileCalls, Editing_KeepsEveryOtherLine)
{
    m_ini->WriteString(L"s10000", L"k10050", L"w");

    std::string wanted = Narrow(LongText());
    wanted.replace(wanted.find("k10050=v"), 8, "k10050=w");
    EXPECT_EQ(wanted, Bytes());
}
