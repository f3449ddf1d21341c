#include "ErrorTexts.h"

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Exceptions.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <iterator>

using namespace vantor;
using errors::CErrorTexts;

namespace
{
struct CCall
{
    DWORD flags;
    LPCVOID source;
    DWORD code;
    DWORD language;
    DWORD size;
    va_list* arguments;
};

CCall g_call;
int g_calls;
void* g_given;
void* g_freed;
int g_freedTimes;
HINSTANCE g_stringModule;
UINT g_stringId;

// A message with an insert and a line break, both of which are to stay.
DWORD WINAPI SystemMessage(DWORD flags, LPCVOID source, DWORD code, DWORD language, LPWSTR buffer, DWORD size,
                           va_list* arguments)
{
    static const wchar_t text[] = L"Drive %1 fails.\r\n";
    g_call = {flags, source, code, language, size, arguments};
    ++g_calls;
    g_given = ::LocalAlloc(LMEM_FIXED, sizeof text);
    std::wmemcpy(static_cast<wchar_t*>(g_given), text, std::size(text));
    *reinterpret_cast<void**>(buffer) = g_given;
    return static_cast<DWORD>(std::size(text) - 1);
}

DWORD WINAPI NullSystemMessage(DWORD, LPCVOID, DWORD, DWORD, LPWSTR buffer, DWORD, va_list*)
{
    *reinterpret_cast<void**>(buffer) = nullptr;
    return 1;
}

HLOCAL WINAPI RecordingLocalFree(HLOCAL block)
{
    g_freed = block;
    ++g_freedTimes;
    return ::LocalFree(block);
}

int WINAPI RecordingLoadString(HINSTANCE module, UINT id, LPWSTR buffer, int size)
{
    g_stringModule = module;
    g_stringId = id;
    return ::LoadStringW(module, id, buffer, size);
}

int WINAPI NoString(HINSTANCE, UINT, LPWSTR, int)
{
    ::SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return 0;
}

HANDLE WINAPI NoMutex(LPSECURITY_ATTRIBUTES, BOOL, LPCWSTR)
{
    ::SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    return nullptr;
}

ustring OwnSystemMessage(DWORD code)
{
    wchar_t text[1024];
    const DWORD size = ::FormatMessageW(FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code,
                                        0x400, text, static_cast<DWORD>(std::size(text)), nullptr);
    return std::wstring(text, size);
}
}   // namespace

TEST(WinException, Construct_KeepsTheCodeAndTheRootsFields)
{
    const CWinException e(7, L".\\File", L"CreateFile", 0xFFFFFFFF);
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\File"), e.GetFileName());
    EXPECT_EQ(ustring(L"CreateFile"), e.GetFunction());
    EXPECT_EQ(0xFFFFFFFFul, e.GetErrorCode());
}

TEST(WinException, Construct_WithoutArguments_IsZeroAndEmpty)
{
    const CWinException e;
    EXPECT_EQ(0u, e.GetLine());
    EXPECT_EQ(ustring(), e.GetFileName());
    EXPECT_EQ(ustring(), e.GetFunction());
    EXPECT_EQ(0ul, e.GetErrorCode());
}

TEST(WinException, Copy_KeepsAllFields)
{
    const CWinException e(7, L".\\File", L"CreateFile", 5);
    const CWinException copy(e);
    EXPECT_EQ(7u, copy.GetLine());
    EXPECT_EQ(ustring(L".\\File"), copy.GetFileName());
    EXPECT_EQ(ustring(L"CreateFile"), copy.GetFunction());
    EXPECT_EQ(5ul, copy.GetErrorCode());
}

TEST(WinException, Assign_ReplacesAllFields)
{
    CWinException e(1, L"a", L"b", 2);
    e = CWinException(7, L".\\File", L"CreateFile", 5);
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\File"), e.GetFileName());
    EXPECT_EQ(ustring(L"CreateFile"), e.GetFunction());
    EXPECT_EQ(5ul, e.GetErrorCode());
}

TEST(WinException, GetSource_IsWin32)
{
    ustring source(L"old");
    EXPECT_TRUE(CWinException().GetSource(source));
    EXPECT_EQ(ustring(L"Win32"), source);
}

TEST(WinException, GetSource_LoadsString101OfTheLibrary)
{
    const support::CImportPatch patch(&::LoadStringW, &RecordingLoadString);
    ustring source;
    CWinException().GetSource(source);
    EXPECT_EQ(::GetModuleHandleW(L"vantor.dll"), g_stringModule);
    EXPECT_EQ(101u, g_stringId);
}

TEST(WinException, GetSource_IsTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"Win32"] = L"Betriebssystem";
    ustring source;
    EXPECT_TRUE(CWinException().GetSource(source));
    EXPECT_EQ(ustring(L"Betriebssystem"), source);
}

TEST(WinException, GetSource_WithoutTheString_IsFalseAndEmpty)
{
    const support::CImportPatch patch(&::LoadStringW, &NoString);
    ustring source(L"old");
    EXPECT_FALSE(CWinException().GetSource(source));
    EXPECT_EQ(ustring(), source);
}

TEST(WinException, GetSource_WithoutATranslator_DoesNotThrow)
{
    const support::CImportPatch patch(&::CreateMutexW, &NoMutex);
    ustring source;
    EXPECT_NO_THROW(CWinException().GetSource(source));
}

TEST(WinException, GetSource_AfterTheTranslatorFailed_WorksAgain)
{
    ustring source;
    {
        const support::CImportPatch patch(&::CreateMutexW, &NoMutex);
        CWinException().GetSource(source);
    }
    EXPECT_TRUE(CWinException().GetSource(source));
    EXPECT_EQ(ustring(L"Win32"), source);
}

TEST(WinException, GetErrorMessage_OfAccessDenied_IsTheSystemsTextWithItsLineBreak)
{
    ustring message(L"old");
    EXPECT_TRUE(CWinException(1, nullptr, nullptr, 5).GetErrorMessage(message));
    EXPECT_EQ(OwnSystemMessage(5), message);
    ASSERT_GT(message.size(), 2u);
    EXPECT_EQ(ustring(L"\r\n"), ustring(message.substr(message.size() - 2)));
}

TEST(WinException, GetErrorMessageUI_IsTheTechnicalMessage)
{
    ustring message;
    EXPECT_TRUE(CWinException(1, nullptr, nullptr, 2).GetErrorMessageUI(message));
    EXPECT_EQ(OwnSystemMessage(2), message);
}

TEST(WinException, GetErrorMessage_AsksTheSystemInTheUsersLanguageWithoutInserts)
{
    const support::CImportPatch patch(&::FormatMessageW, &SystemMessage);
    ustring message;
    CWinException(1, nullptr, nullptr, 0x80004005).GetErrorMessage(message);
    EXPECT_EQ(1, g_calls);
    EXPECT_EQ(0x1300u, g_call.flags);
    EXPECT_EQ(nullptr, g_call.source);
    EXPECT_EQ(0x80004005u, g_call.code);
    EXPECT_EQ(0x400u, g_call.language);
    EXPECT_EQ(nullptr, g_call.arguments);
}

TEST(WinException, GetErrorMessage_TakesTheSystemsTextExactly)
{
    const support::CImportPatch patch(&::FormatMessageW, &SystemMessage);
    ustring message;
    EXPECT_TRUE(CWinException(1, nullptr, nullptr, 5).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Drive %1 fails.\r\n"), message);
}

TEST(WinException, GetErrorMessage_FreesTheSystemsBufferOnce)
{
    const support::CImportPatch patch(&::FormatMessageW, &SystemMessage);
    const support::CImportPatch patchFree(&::LocalFree, &RecordingLocalFree);
    ustring message;
    CWinException(1, nullptr, nullptr, 5).GetErrorMessage(message);
    EXPECT_EQ(g_given, g_freed);
    EXPECT_EQ(1, g_freedTimes);
}

TEST(WinException, GetErrorMessage_OfANullBuffer_IsEmptyAndTrue)
{
    const support::CImportPatch patch(&::FormatMessageW, &NullSystemMessage);
    ustring message(L"old");
    EXPECT_TRUE(CWinException(1, nullptr, nullptr, 5).GetErrorMessage(message));
    EXPECT_EQ(ustring(), message);
}

TEST(WinException, GetErrorMessage_IsNotTranslated)
{
    const support::CImportPatch patch(&::FormatMessageW, &SystemMessage);
    CTranslatorInstance::Ref().m_langFile[L"Drive %1 fails.\r\n"] = L"Translated";
    ustring message;
    CWinException(1, nullptr, nullptr, 5).GetErrorMessage(message);
    EXPECT_EQ(ustring(L"Drive %1 fails.\r\n"), message);
}

TEST(WinException, GetErrorMessage_OfACodeThatOnlyTheFileKnows_IsTheFilesText)
{
    const CErrorTexts file(errors::Utf16File(L"1234, Receiver is busy\n"));
    ustring message;
    EXPECT_TRUE(CWinException(1, nullptr, nullptr, 1234).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Receiver is busy"), message);
}

TEST(WinException, GetErrorMessage_OfACodeThatNobodyKnows_NamesTheCodeAndIsFalse)
{
    const CErrorTexts none(std::nullopt);
    ustring message;
    EXPECT_FALSE(CWinException(1, nullptr, nullptr, 1234).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Unknown error: 1234 (0x4D2)."), message);
}

TEST(WinException, GetErrorMessage_OfTheHighestCode_IsASignedDecimalAndFalse)
{
    const CErrorTexts none(std::nullopt);
    ustring message;
    EXPECT_FALSE(CWinException(1, nullptr, nullptr, 0xFFFFFFFF).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Unknown error: -1 (0xFFFFFFFF)."), message);
}

TEST(WinException, GetErrorMessage_OfAnUnknownCode_ReplacesWhatStoodInTheText)
{
    const CErrorTexts none(std::nullopt);
    ustring message(L"old");
    CWinException(1, nullptr, nullptr, 0).GetErrorMessage(message);
    EXPECT_EQ(ustring(L"Unknown error: 0 (0x0)."), message);
}

TEST(WinException, GetErrorMessage_OfACodeThatTheSystemReallyDoesNotKnow_NamesTheCode)
{
    ustring message;
    EXPECT_FALSE(CWinException(1, nullptr, nullptr, 0xABCDEF01).GetErrorMessage(message));
    EXPECT_EQ(ustring(L"Unknown error: -1412567295 (0xABCDEF01)."), message);
}

TEST(WinException, Snapshot_OfAnUnknownCode_StillHasAMessage)
{
    const CErrorTexts none(std::nullopt);
    const CStdException::CExInfo info(CWinException(1, nullptr, nullptr, 1234));
    EXPECT_EQ(ustring(L"Win32"), info.GetSource());
    EXPECT_EQ(ustring(L"Unknown error: 1234 (0x4D2)."), info.GetErrorMessage());
    EXPECT_EQ(ustring(L"Unknown error: 1234 (0x4D2)."), info.GetErrorMessageUI());
}
