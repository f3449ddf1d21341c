// Where the file is looked for, how it is opened, read and closed. What stands in it: ErrorTextFile_Format_test.cpp.

#include "ErrorTexts.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Exceptions.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <malloc.h>
#include <string>
#include <vector>

using namespace vantor;
using errors::CErrorTexts;
using errors::Lookup;
using errors::Utf16File;

namespace
{
using CReads = std::vector<DWORD>;

constexpr std::size_t ChunkSize = 256;   // characters in 512 bytes

struct COpening
{
    DWORD access;
    DWORD share;
    LPSECURITY_ATTRIBUTES sa;
    DWORD disposition;
    HANDLE hTemplate;
};

ustring g_realFile;
COpening g_opening;
HMODULE g_askedModule;
int g_messageTimes;

// The library's file is another one, on disk.
HANDLE WINAPI OpenRealFile(LPCWSTR, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES sa, DWORD disposition, DWORD flags,
                           HANDLE hTemplate)
{
    g_opening = {access, share, sa, disposition, hTemplate};
    return ::CreateFileW(g_realFile.c_str(), access, share, sa, disposition, flags, hTemplate);
}

std::optional<ustring> LookupIn(const ustring& path, unsigned long code)
{
    const support::CImportPatch message(&::FormatMessageW, &errors::NoSystemMessage);
    const support::CImportPatch create(&::CreateFileW, &OpenRealFile);
    g_realFile = path;
    return Lookup(code);
}

DWORD WINAPI ModulePath(HMODULE module, LPWSTR buffer, DWORD)
{
    g_askedModule = module;
    std::wcscpy(buffer, L"D:\\Storage\\v1.2\\vantor.dll");
    return static_cast<DWORD>(std::wcslen(buffer));
}

DWORD WINAPI NoModulePath(HMODULE, LPWSTR, DWORD)
{
    ::SetLastError(ERROR_GEN_FAILURE);
    return 0;
}

DWORD WINAPI SystemMessage(DWORD, LPCVOID, DWORD, DWORD, LPWSTR buffer, DWORD, va_list*)
{
    ++g_messageTimes;
    *reinterpret_cast<HLOCAL*>(buffer) = ::LocalAlloc(LPTR, 2 * sizeof(wchar_t));
    **reinterpret_cast<wchar_t**>(buffer) = L'S';
    return 1;
}

// Lines with the codes from 1000 on, of 32 characters each, so that 8 of them are a chunk.
std::wstring Lines(int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += std::to_wstring(1000 + i) + L"," + std::wstring(26, L'm') + L"\n";
    return text;
}

std::size_t HeapBytes()
{
    const HANDLE heap = reinterpret_cast<HANDLE>(::_get_heap_handle());
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    ::HeapLock(heap);
    while (::HeapWalk(heap, &entry))
    {
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            bytes += entry.cbData;
    }
    ::HeapUnlock(heap);
    return bytes;
}

std::size_t g_mostHeapBytes;
}   // namespace

TEST(ErrorTextFile, Path_IsBesideTheLibrary)
{
    const CErrorTexts file(std::nullopt);
    Lookup(16);
    ASSERT_EQ(1u, file.opened.size());
    EXPECT_EQ(support::ModuleFolder() + ustring(L"\\Win32Errors.txt"), file.opened[0]);
}

TEST(ErrorTextFile, Path_IsMadeFromTheLibrarysOwnModule)
{
    const CErrorTexts file(std::nullopt);
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    Lookup(16);
    EXPECT_EQ(::GetModuleHandleW(L"vantor.dll"), g_askedModule);
    ASSERT_EQ(1u, file.opened.size());
    EXPECT_EQ(ustring(L"D:\\Storage\\v1.2\\Win32Errors.txt"), file.opened[0]);
}

TEST(ErrorTextFile, Path_ThatCannotBeMade_MeansNoText)
{
    const CErrorTexts file(Utf16File(L"16, Sixteen\n"));
    const support::CImportPatch patch(&::GetModuleFileNameW, &NoModulePath);
    ustring message;
    EXPECT_FALSE(CWinException(1, nullptr, nullptr, 16).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Unknown error: 16 (0x10)."), message);
    EXPECT_TRUE(file.opened.empty());
}

TEST(ErrorTextFile, Open_IsForReadingSharedWithReaders)
{
    const support::CTempFolder folder;
    LookupIn(folder.Write(L"e.txt", Utf16File(L"16, Sixteen\n")), 16);
    EXPECT_EQ(static_cast<DWORD>(GENERIC_READ), g_opening.access);
    EXPECT_EQ(static_cast<DWORD>(FILE_SHARE_READ), g_opening.share);
    EXPECT_EQ(static_cast<DWORD>(OPEN_EXISTING), g_opening.disposition);
    EXPECT_EQ(nullptr, g_opening.sa);
    EXPECT_EQ(nullptr, g_opening.hTemplate);
}

TEST(ErrorTextFile, Open_DoesNotHappenForACodeThatTheSystemKnows)
{
    const support::CImportPatch open(&::CreateFileW, &OpenRealFile);
    const support::CImportPatch message(&::FormatMessageW, &SystemMessage);
    g_opening = {};
    EXPECT_EQ(ustring(L"S"), Lookup(16));
    EXPECT_EQ(1, g_messageTimes);
    EXPECT_EQ(0u, g_opening.access);
}

TEST(ErrorTextFile, RealFile_OnDisk_IsRead)
{
    const support::CTempFolder folder;
    const ustring path =
        folder.Write(L"e.txt", Utf16File(Lines(100) + L"16, \"Sechzehn \x00E4\x4E2D\\r\\n\"\r\n17, Siebzehn\r\n"));
    EXPECT_EQ(ustring(L"Sechzehn \x00E4\x4E2D\r\n"), LookupIn(path, 16));
}

TEST(ErrorTextFile, RealFile_Missing_MeansNoText)
{
    const support::CTempFolder folder;
    EXPECT_EQ(std::nullopt, LookupIn(folder.File(L"e.txt"), 16));
}

TEST(ErrorTextFile, RealFile_ThatIsAFolder_MeansNoText)
{
    const support::CTempFolder folder;
    EXPECT_EQ(std::nullopt, LookupIn(folder.Path(), 16));
}

TEST(ErrorTextFile, RealFile_HeldByAnotherForItselfAlone_MeansNoText)
{
    const support::CTempFolder folder;
    const ustring path = folder.Write(L"e.txt", Utf16File(L"16, Sixteen\n"));
    const HANDLE other = ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(std::nullopt, LookupIn(path, 16));
    ::CloseHandle(other);
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(path, 16));
}

TEST(ErrorTextFile, RealFile_HeldByAnotherReader_IsRead)
{
    const support::CTempFolder folder;
    const ustring path = folder.Write(L"e.txt", Utf16File(L"16, Sixteen\n"));
    const HANDLE other = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(path, 16));
    ::CloseHandle(other);
}

TEST(ErrorTextFile, RealFile_IsClosedAfterwards)
{
    const support::CTempFolder folder;
    const ustring path = folder.Write(L"e.txt", Utf16File(L"16, Sixteen\n"));
    LookupIn(path, 16);
    EXPECT_TRUE(::DeleteFileW(path.c_str()));
}

TEST(ErrorTextFile, Read_TakesTheMarkAloneAndThenChunksOf512Bytes)
{
    const CErrorTexts file(Utf16File(Lines(20)));
    Lookup(9999);
    EXPECT_EQ((CReads{2, 512, 512, 512, 512}), file.asked) << "the last read is the one that gives nothing";
}

TEST(ErrorTextFile, Read_StopsAtTheWrongMark)
{
    const CErrorTexts file(support::Utf16(Lines(20)));
    Lookup(1000);
    EXPECT_EQ((CReads{2}), file.asked);
}

TEST(ErrorTextFile, Read_StopsInTheFirstChunkIfTheLineIsThere)
{
    const CErrorTexts file(Utf16File(Lines(80)));
    EXPECT_NE(std::nullopt, Lookup(1007));
    EXPECT_EQ((CReads{2, 512}), file.asked);
}

TEST(ErrorTextFile, Read_StopsInTheChunkThatCompletesTheLine)
{
    const CErrorTexts file(Utf16File(L"1,\n" + Lines(80)));   // the chunk's last line now ends in the second
    EXPECT_NE(std::nullopt, Lookup(1007));
    EXPECT_EQ((CReads{2, 512, 512}), file.asked);
}

TEST(ErrorTextFile, Read_AfterTheHit_MayFail)
{
    CErrorTexts file(Utf16File(Lines(80)));
    file.failingRead = 2;
    EXPECT_NE(std::nullopt, Lookup(1000));
}

TEST(ErrorTextFile, Read_ThatFailsAtTheMark_MeansNoText)
{
    CErrorTexts file(Utf16File(Lines(80)));
    file.failingRead = 0;
    EXPECT_EQ(std::nullopt, Lookup(1000));
    EXPECT_EQ(1u, file.asked.size());
}

TEST(ErrorTextFile, Read_ThatFailsAtTheFirstChunk_MeansNoText)
{
    CErrorTexts file(Utf16File(Lines(80)));
    file.failingRead = 1;
    EXPECT_EQ(std::nullopt, Lookup(1000));
    EXPECT_EQ(2u, file.asked.size());
}

TEST(ErrorTextFile, Read_ThatFailsBeforeTheLineIsWhole_MeansNoText)
{
    CErrorTexts file(Utf16File(L"1,\n" + Lines(80)));
    file.failingRead = 2;
    EXPECT_EQ(std::nullopt, Lookup(1007));
    EXPECT_EQ(3u, file.asked.size());
}

TEST(ErrorTextFile, Read_ThatFails_LeavesTheUnknownErrorText)
{
    CErrorTexts file(Utf16File(Lines(80)));
    file.failingRead = 1;
    ustring message;
    EXPECT_FALSE(CWinException(1, nullptr, nullptr, 1000).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Unknown error: 1000 (0x3E8)."), message);
}

TEST(ErrorTextFile, Read_MayGiveLessThanAsked)
{
    CErrorTexts file(Utf16File(Lines(10)));
    file.mostBytes = 2;
    EXPECT_EQ(ustring(std::wstring(26, L'm')), Lookup(1009));
}

TEST(ErrorTextFile, Line_IsFoundAtEveryDistanceFromTheEndOfAChunk)
{
    const std::wstring line = L"\r\n 0x10 , \"Six\\\"teen\\r\\n\" \r\n";
    for (std::size_t start = ChunkSize - line.size() - 2; start <= ChunkSize + 2; ++start)
    {
        const CErrorTexts file(Utf16File(L"1," + std::wstring(start - 3, L'f') + L"\n" + line));
        EXPECT_EQ(ustring(L"Six\"teen\r\n"), Lookup(16)) << "line at " << start;
    }
}

TEST(ErrorTextFile, Line_IsFoundAtEveryDistanceFromTheEndOfALaterChunk)
{
    const std::wstring line = L"a\nb\r\n,\n16,\\n\n";
    for (std::size_t start = 3 * ChunkSize - line.size() - 2; start <= 3 * ChunkSize + 2; ++start)
    {
        const CErrorTexts file(Utf16File(std::wstring(start - 3, L'\n') + L"1,\n" + line));
        EXPECT_EQ(ustring(L"\n"), Lookup(16)) << "line at " << start;
    }
}

TEST(ErrorTextFile, Line_MayBeLongerThanManyChunks)
{
    const std::wstring text(10 * ChunkSize + 17, L'x');
    const CErrorTexts file(Utf16File(L"1," + text + L"y\n2," + text + L"z\n"));
    EXPECT_EQ(ustring(text + L"z"), Lookup(2));
}

TEST(ErrorTextFile, Close_AfterAHit)
{
    const CErrorTexts file(Utf16File(Lines(20)));
    EXPECT_NE(std::nullopt, Lookup(1000));
    EXPECT_TRUE(file.IsClosed());
}

TEST(ErrorTextFile, Close_WithoutAHit)
{
    const CErrorTexts file(Utf16File(Lines(20)));
    EXPECT_EQ(std::nullopt, Lookup(16));
    EXPECT_TRUE(file.IsClosed());
}

TEST(ErrorTextFile, Close_AfterAWrongMark)
{
    const CErrorTexts file(support::Utf16(Lines(20)));
    EXPECT_EQ(std::nullopt, Lookup(1000));
    EXPECT_TRUE(file.IsClosed());
}

TEST(ErrorTextFile, Close_AfterAFailedRead)
{
    CErrorTexts file(Utf16File(Lines(20)));
    file.failingRead = 1;
    EXPECT_EQ(std::nullopt, Lookup(1000));
    EXPECT_TRUE(file.IsClosed());
}

TEST(ErrorTextFile, Close_ThatFails_IsNotThrown)
{
    CErrorTexts file(Utf16File(Lines(20)));
    file.failingClose = true;
    EXPECT_NO_THROW(Lookup(1000));
}

// As when a memory card is pulled out: the report of that must not end the program.
TEST(ErrorTextFile, Close_ThatFailsAfterAFailedRead_IsNotThrown)
{
    CErrorTexts file(Utf16File(Lines(20)));
    file.failingRead = 1;
    file.failingClose = true;
    EXPECT_NO_THROW(Lookup(1000));
}

TEST(ErrorTextFile, Lookup_KeepsNothingOfAnEarlierOne)
{
    CErrorTexts file(Utf16File(L"16, Before\n"));
    Lookup(16);
    file.bytes = Utf16File(L"16, After\n");
    EXPECT_EQ(ustring(L"After"), Lookup(16));
    file.bytes.reset();
    EXPECT_EQ(std::nullopt, Lookup(16));
    EXPECT_EQ(3u, file.opened.size());
}

TEST(ErrorTextFile, Lookup_StartsFromTheFrontEachTime)
{
    const CErrorTexts file(Utf16File(Lines(20)));
    Lookup(1019);
    EXPECT_NE(std::nullopt, Lookup(1000));
}

TEST(ErrorTextFile, Lookup_LeavesNothingBehind)
{
    CErrorTexts file(Utf16File(Lines(20)));
    const auto lookups = [&file]
    {
        file.failingRead = static_cast<std::size_t>(-1);
        Lookup(1019);
        Lookup(16);
        file.failingRead = file.asked.size() + 1;
        Lookup(1000);
        file.Forget();
    };
    lookups();
    const support::CResources before;
    lookups();
    EXPECT_EQ(before, support::CResources());
}

TEST(ErrorTextFile, Lookup_HoldsNoMoreThanTheLineInHand)
{
    CErrorTexts file(Utf16File(Lines(30000)));   // 2 MB
    file.asked.reserve(5000);
    file.onRead = []
    {
        static int reads = 0;
        if (++reads % 100 == 0)
            g_mostHeapBytes = std::max(g_mostHeapBytes, HeapBytes());
    };
    const std::size_t before = HeapBytes();
    EXPECT_EQ(std::nullopt, Lookup(16));
    ASSERT_NE(0u, g_mostHeapBytes);
    EXPECT_LT(g_mostHeapBytes, before + 32 * 1024);
}
