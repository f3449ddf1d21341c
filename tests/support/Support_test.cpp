// The tests' own tools, tried on things that are known: a tool that sees nothing would let everything pass.

#include "Failure.h"
#include "ImportPatch.h"
#include "Leaks.h"
#include "MessagePump.h"
#include "TempFolder.h"

#include <vantor/Object.h>

#include <gtest/gtest-spi.h>

#include <memory>

using namespace support;
using namespace vantor;

#ifdef __MINGW32__
// Declared without dllimport: its address is that of a stub in this program.
extern "C" __int64 __cdecl StubOfAtoi64(const char*) __MINGW_ASM_CALL(_atoi64);
#else
#define StubOfAtoi64 ::_atoi64
#endif

namespace
{
BOOL WINAPI FailingSetEvent(HANDLE)
{
    ::SetLastError(0xDEADBEEF);
    return FALSE;
}

__int64 __cdecl Answer(const char*)
{
    return 42;
}

HWND NewWindow(const wchar_t* windowClass, HWND parent)
{
    return ::CreateWindowExW(0, windowClass, L"", WS_POPUP, 0, 0, 9, 9, parent, nullptr, nullptr, nullptr);
}
}   // namespace

TEST(ImportPatch, InScope_TheLibraryCallsTheFake)
{
    CEvent event(nullptr, TRUE, FALSE, nullptr);
    const CImportPatch patch(&::SetEvent, &FailingSetEvent);
    EXPECT_THROW(event.Set(), CWinException);
}

TEST(ImportPatch, OriginalGivenByItsStub_TheLibraryCallsTheFake)
{
    const CImportPatch patch(&StubOfAtoi64, &Answer);
    EXPECT_EQ(42, ustring::atoi64(L"7"));
}

TEST(ImportPatch, AfterTheScope_TheLibraryCallsTheSystemAgain)
{
    CEvent event(nullptr, TRUE, FALSE, nullptr);
    {
        const CImportPatch patch(&::SetEvent, &FailingSetEvent);
    }
    EXPECT_NO_THROW(event.Set());
}

TEST(ImportPatch, InScope_TheTestCallsTheSystem)
{
    CEvent event(nullptr, TRUE, FALSE, nullptr);
    const CImportPatch patch(&::SetEvent, &FailingSetEvent);
    EXPECT_TRUE(::SetEvent(event));
}

TEST(FailsWith, TheSameRow_Succeeds)
{
    EXPECT_FAILURE(7, L".\\A", L"B", 5, throw CWinException(7, L".\\A", L"B", 5));
}

TEST(FailsWith, AnotherNumber_Fails)
{
    EXPECT_FALSE(FailsWith(8, L".\\A", L"B", 5, [] { throw CWinException(7, L".\\A", L"B", 5); }));
}

TEST(FailsWith, AnotherTag_Fails)
{
    EXPECT_FALSE(FailsWith(7, L".\\Aa", L"B", 5, [] { throw CWinException(7, L".\\A", L"B", 5); }));
}

TEST(FailsWith, AnotherFunction_Fails)
{
    EXPECT_FALSE(FailsWith(7, L".\\A", L"Bb", 5, [] { throw CWinException(7, L".\\A", L"B", 5); }));
}

TEST(FailsWith, AnotherError_Fails)
{
    EXPECT_FALSE(FailsWith(7, L".\\A", L"B", 6, [] { throw CWinException(7, L".\\A", L"B", 5); }));
}

TEST(FailsWith, NoThrow_Fails)
{
    EXPECT_FALSE(FailsWith(7, L".\\A", L"B", 5, [] {}));
}

TEST(TempFolder, File_HoldsTheBytesThatWereWritten)
{
    const CTempFolder folder;
    const std::string bytes("a\0b\r\n", 5);
    EXPECT_EQ(bytes, ReadBytes(folder.Write(L"f.bin", bytes).c_str()));
}

TEST(TempFolder, EndOfScope_LeavesNothingBehind)
{
    ustring path;
    {
        const CTempFolder folder;
        path = folder.Path();
        ::CreateDirectoryW(folder.File(L"sub").c_str(), nullptr);
        const ustring file = folder.Write(L"sub\\locked.txt", "x");
        ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, ::GetFileAttributesW(path.c_str()));
}

TEST(TempFolder, TwoAtATime_DoNotShareAFolder)
{
    const CTempFolder one, two;
    EXPECT_NE(one.Path(), two.Path());
}

TEST(TempFolder, ReadBytes_OfAMissingFile_FailsTheTest)
{
    EXPECT_NONFATAL_FAILURE(ReadBytes(L"C:\\there is no such file"), "cannot be opened");
}

TEST(Leaks, Nothing_CountsTheSame)
{
    const CResources before;
    EXPECT_EQ(before, CResources());
}

TEST(Leaks, AHandle_IsCounted)
{
    const CResources before;
    const HANDLE event = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
    EXPECT_EQ(before.handles + 1, CResources().handles);
    ::CloseHandle(event);
}

TEST(Leaks, AGdiObject_IsCounted)
{
    const CResources before;
    const HBRUSH brush = ::CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(before.gdiObjects + 1, CResources().gdiObjects);
    ::DeleteObject(brush);
}

TEST(Leaks, AWindow_IsCounted)
{
    UseOwnDesktop();
    ::DestroyWindow(NewWindow(L"STATIC", nullptr));   // loads the system's cursors
    const CResources before;
    const HWND window = NewWindow(L"STATIC", nullptr);
    EXPECT_EQ(before.userObjects + 1, CResources().userObjects);
    ::DestroyWindow(window);
}

TEST(Leaks, AMessageWindow_IsCounted)
{
    UseOwnDesktop();
    ::DestroyWindow(NewWindow(L"STATIC", HWND_MESSAGE));
    const CResources before;
    const HWND window = NewWindow(L"STATIC", HWND_MESSAGE);
    EXPECT_EQ(before.userObjects + 1, CResources().userObjects);
    ::DestroyWindow(window);
}

TEST(Leaks, AMenu_IsCounted)
{
    ::DestroyMenu(::CreateMenu());
    const CResources before;
    const HMENU menu = ::CreateMenu();
    EXPECT_EQ(before.userObjects + 1, CResources().userObjects);
    ::DestroyMenu(menu);
}

TEST(Leaks, AnIcon_IsCounted)
{
    const BYTE mask[32] = {};
    ::DestroyIcon(::CreateIcon(nullptr, 16, 16, 1, 1, mask, mask));
    const CResources before;
    const HICON icon = ::CreateIcon(nullptr, 16, 16, 1, 1, mask, mask);
    EXPECT_EQ(before.userObjects + 1, CResources().userObjects);
    ::DestroyIcon(icon);
}

TEST(Leaks, AHeapBlock_IsCounted)
{
    const CResources before;
    const auto block = std::make_unique<char[]>(100);
    EXPECT_EQ(before.heapBlocks + 1, CResources().heapBlocks);
}

TEST(MessagePump, PumpUntil_TheConditionHolds_IsTrue)
{
    UseOwnDesktop();
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_APP, 0, 0);
    EXPECT_TRUE(PumpUntil([] { return HIWORD(::GetQueueStatus(QS_POSTMESSAGE)) == 0; }));
}

TEST(MessagePump, PumpUntil_TheConditionNeverHolds_IsFalse)
{
    EXPECT_FALSE(PumpUntil([] { return false; }, 20));
}

TEST(MessagePump, PumpMessages_DispatchesToTheWindow)
{
    UseOwnDesktop();
    const HWND edit = NewWindow(L"EDIT", nullptr);
    ::PostMessageW(edit, WM_CHAR, L'x', 1);
    PumpMessages();
    EXPECT_EQ(1, ::GetWindowTextLengthW(edit));
    ::DestroyWindow(edit);
}
