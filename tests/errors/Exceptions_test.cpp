#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Exceptions.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

using namespace vantor;

namespace
{
// Records in which order its texts are asked for; what is null it cannot give.
class CProbe : public CStdException
{
public:
    using CStdException::CStdException;

    CSmartPtr<CStdException> Clone() override { return CSmartPtr<CStdException>(new CProbe(*this)); }
    void Throw() const override { throw CProbe(*this); }
    bool GetSource(ustring& out) const override { return Give("source", source, out); }
    bool GetErrorMessage(ustring& out) const override { return Give("message", message, out); }
    bool GetErrorMessageUI(ustring& out) const override { return Give("user message", userMessage, out); }

    const wchar_t* source = L"S";
    const wchar_t* message = L"M";
    const wchar_t* userMessage = L"U";
    mutable std::vector<std::string> calls;

private:
    bool Give(const char* what, const wchar_t* text, ustring& out) const
    {
        calls.push_back(what);
        if (text)
            out = text;
        return text != nullptr;
    }
};

// Leaves GetErrorMessageUI to the root.
class CPlain : public CStdException
{
public:
    CSmartPtr<CStdException> Clone() override { return CSmartPtr<CStdException>(new CPlain(*this)); }
    void Throw() const override { throw CPlain(*this); }
    bool GetSource(ustring&) const override { return false; }
    bool GetErrorMessage(ustring& out) const override
    {
        out = L"technical";
        return result;
    }

    bool result = true;
};

// Writes a text and then reports that there is none.
class CHalf : public CPlain
{
public:
    bool GetSource(ustring& out) const override
    {
        out = L"half";
        return false;
    }
};

const wchar_t* g_modulePath;
HMODULE g_askedModule;
DWORD g_room;
int g_askedTimes;

DWORD WINAPI ModulePath(HMODULE module, LPWSTR buffer, DWORD room)
{
    g_askedModule = module;
    g_room = room;
    ++g_askedTimes;
    std::wcscpy(buffer, g_modulePath);
    return static_cast<DWORD>(std::wcslen(g_modulePath));
}

DWORD WINAPI NoModulePath(HMODULE, LPWSTR, DWORD)
{
    ::SetLastError(ERROR_GEN_FAILURE);
    return 0;
}
}   // namespace

TEST(StdException, Construct_WithNulls_LeavesTheNamesEmpty)
{
    const CProbe e(0, nullptr, nullptr);
    EXPECT_EQ(0u, e.GetLine());
    EXPECT_EQ(ustring(), e.GetFileName());
    EXPECT_EQ(ustring(), e.GetFunction());
}

TEST(StdException, Construct_WithoutArguments_IsTheSameAsWithNulls)
{
    const CProbe e;
    EXPECT_EQ(0u, e.GetLine());
    EXPECT_EQ(ustring(), e.GetFileName());
    EXPECT_EQ(ustring(), e.GetFunction());
}

TEST(StdException, Construct_TakesLineFileAndFunctionInThisOrder)
{
    const CProbe e(0xFFFFFFFF, L".\\Translator", L"vantor::CLanguageFile::LoadLanguageFile");
    EXPECT_EQ(0xFFFFFFFFu, e.GetLine());
    EXPECT_EQ(ustring(L".\\Translator"), e.GetFileName());
    EXPECT_EQ(ustring(L"vantor::CLanguageFile::LoadLanguageFile"), e.GetFunction());
}

TEST(StdException, Construct_WithOneNull_KeepsTheOtherName)
{
    EXPECT_EQ(ustring(L"Open"), CProbe(1, nullptr, L"Open").GetFunction());
    EXPECT_EQ(ustring(L".\\File"), CProbe(1, L".\\File", nullptr).GetFileName());
}

TEST(StdException, Names_AreCopiesOfTheThrowersTexts)
{
    wchar_t file[] = L".\\File";
    const CProbe e(1, file, nullptr);
    file[0] = L'!';
    EXPECT_EQ(ustring(L".\\File"), e.GetFileName());
}

TEST(StdException, Getters_ReturnCopies)
{
    const CProbe e(1, L".\\File", L"Open");
    e.GetFileName() += L"changed";
    e.GetFunction() += L"changed";
    EXPECT_EQ(ustring(L".\\File"), e.GetFileName());
    EXPECT_EQ(ustring(L"Open"), e.GetFunction());
}

TEST(StdException, CopyConstruct_KeepsLineFileAndFunction)
{
    const CProbe e(7, L".\\File", L"Open");
    const CProbe copy(e);
    EXPECT_EQ(7u, copy.GetLine());
    EXPECT_EQ(ustring(L".\\File"), copy.GetFileName());
    EXPECT_EQ(ustring(L"Open"), copy.GetFunction());
}

TEST(StdException, Assign_ReplacesLineFileAndFunction)
{
    CProbe e(1, L"a", L"b");
    e = CProbe(7, L".\\File", L"Open");
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\File"), e.GetFileName());
    EXPECT_EQ(ustring(L"Open"), e.GetFunction());
}

TEST(StdException, Root_IsAbstractAndHasAVirtualDestructor)
{
    EXPECT_TRUE(std::is_abstract_v<CStdException>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CStdException>);
}

TEST(StdException, GetErrorMessageUI_UnlessOverridden_IsTheTechnicalMessage)
{
    const CPlain e;
    ustring text;
    EXPECT_TRUE(e.GetErrorMessageUI(text));
    EXPECT_EQ(ustring(L"technical"), text);
}

TEST(StdException, GetErrorMessageUI_UnlessOverridden_ReturnsTheTechnicalMessagesResult)
{
    CPlain e;
    e.result = false;
    ustring text;
    EXPECT_FALSE(e.GetErrorMessageUI(text));
}

TEST(ExInfo, Default_IsEmpty)
{
    const CStdException::CExInfo info;
    EXPECT_EQ(0u, info.GetLine());
    EXPECT_EQ(ustring(), info.GetFileName());
    EXPECT_EQ(ustring(), info.GetFunction());
    EXPECT_EQ(ustring(), info.GetSource());
    EXPECT_EQ(ustring(), info.GetErrorMessage());
    EXPECT_EQ(ustring(), info.GetErrorMessageUI());
}

TEST(ExInfo, Snapshot_HoldsAllSixFields)
{
    const CStdException::CExInfo info(CProbe(7, L".\\File", L"Open"));
    EXPECT_EQ(7u, info.GetLine());
    EXPECT_EQ(ustring(L".\\File"), info.GetFileName());
    EXPECT_EQ(ustring(L"Open"), info.GetFunction());
    EXPECT_EQ(ustring(L"S"), info.GetSource());
    EXPECT_EQ(ustring(L"M"), info.GetErrorMessage());
    EXPECT_EQ(ustring(L"U"), info.GetErrorMessageUI());
}

TEST(ExInfo, Snapshot_AsksForSourceThenMessageThenUserMessage)
{
    const CProbe e;
    const CStdException::CExInfo info(e);
    EXPECT_EQ((std::vector<std::string>{"source", "message", "user message"}), e.calls);
}

TEST(ExInfo, Snapshot_WhenTheSourceFails_HasAnEmptySourceAndAllElse)
{
    CProbe e(7, L".\\File", L"Open");
    e.source = nullptr;
    const CStdException::CExInfo info(e);
    EXPECT_EQ(ustring(), info.GetSource());
    EXPECT_EQ(7u, info.GetLine());
    EXPECT_EQ(ustring(L"M"), info.GetErrorMessage());
    EXPECT_EQ(ustring(L"U"), info.GetErrorMessageUI());
}

TEST(ExInfo, Snapshot_WhenTheMessagesFail_HasEmptyMessagesAndTheSource)
{
    CProbe e;
    e.message = nullptr;
    e.userMessage = nullptr;
    const CStdException::CExInfo info(e);
    EXPECT_EQ(ustring(L"S"), info.GetSource());
    EXPECT_EQ(ustring(), info.GetErrorMessage());
    EXPECT_EQ(ustring(), info.GetErrorMessageUI());
}

TEST(ExInfo, Snapshot_KeepsWhatAFailingGetterWrote)
{
    EXPECT_EQ(ustring(L"half"), CStdException::CExInfo(CHalf()).GetSource());
}

TEST(ExInfo, Snapshot_OutlivesTheException)
{
    auto e = std::make_unique<CProbe>(7u, L".\\File", L"Open");
    const CStdException::CExInfo info(*e);
    e.reset();
    EXPECT_EQ(ustring(L".\\File"), info.GetFileName());
    EXPECT_EQ(ustring(L"U"), info.GetErrorMessageUI());
}

TEST(ExInfo, Copy_HasAllSixFields)
{
    auto info = std::make_unique<CStdException::CExInfo>(CProbe(7, L".\\File", L"Open"));
    const CStdException::CExInfo copy(*info);
    info.reset();
    EXPECT_EQ(7u, copy.GetLine());
    EXPECT_EQ(ustring(L".\\File"), copy.GetFileName());
    EXPECT_EQ(ustring(L"Open"), copy.GetFunction());
    EXPECT_EQ(ustring(L"S"), copy.GetSource());
    EXPECT_EQ(ustring(L"M"), copy.GetErrorMessage());
    EXPECT_EQ(ustring(L"U"), copy.GetErrorMessageUI());
}

TEST(ExInfo, Assign_ReplacesAllSixFields)
{
    CStdException::CExInfo info(CWinException(1, L"a", L"b", ERROR_FILE_NOT_FOUND));
    info = CStdException::CExInfo(CProbe(7, L".\\File", L"Open"));
    EXPECT_EQ(7u, info.GetLine());
    EXPECT_EQ(ustring(L".\\File"), info.GetFileName());
    EXPECT_EQ(ustring(L"Open"), info.GetFunction());
    EXPECT_EQ(ustring(L"S"), info.GetSource());
    EXPECT_EQ(ustring(L"M"), info.GetErrorMessage());
    EXPECT_EQ(ustring(L"U"), info.GetErrorMessageUI());
}

TEST(ExInfo, Getters_ReturnCopies)
{
    const CStdException::CExInfo info(CProbe(7, L".\\File", L"Open"));
    info.GetSource() += L"changed";
    EXPECT_EQ(ustring(L"S"), info.GetSource());
}

TEST(ExInfo, Clear_EmptiesAllSixFields)
{
    CStdException::CExInfo info(CProbe(7, L".\\File", L"Open"));
    info.Clear();
    EXPECT_EQ(0u, info.GetLine());
    EXPECT_EQ(ustring(), info.GetFileName());
    EXPECT_EQ(ustring(), info.GetFunction());
    EXPECT_EQ(ustring(), info.GetSource());
    EXPECT_EQ(ustring(), info.GetErrorMessage());
    EXPECT_EQ(ustring(), info.GetErrorMessageUI());
}

TEST(ExInfo, IsAPlainValue)
{
    EXPECT_FALSE(std::is_polymorphic_v<CStdException::CExInfo>);
}

TEST(AppName, UnlessSet_IsTheExecutablesNameWithoutExtension)
{
    EXPECT_EQ(ustring(L"errors_test"), CStdException::GetAppName());
}

TEST(AppName, Set_IsGivenBack)
{
    CStdException::SetAppName(L"Field terminal");
    EXPECT_EQ(ustring(L"Field terminal"), CStdException::GetAppName());
}

TEST(AppName, Set_KeepsACopy)
{
    wchar_t name[] = L"Field";
    CStdException::SetAppName(name);
    name[0] = L'!';
    EXPECT_EQ(ustring(L"Field"), CStdException::GetAppName());
}

TEST(AppName, SetToNull_FallsBackToTheExecutable)
{
    CStdException::SetAppName(L"Field terminal");
    CStdException::SetAppName(nullptr);
    EXPECT_EQ(ustring(L"errors_test"), CStdException::GetAppName());
}

TEST(AppName, SetToEmpty_FallsBackToTheExecutable)
{
    CStdException::SetAppName(L"Field terminal");
    CStdException::SetAppName(L"");
    EXPECT_EQ(ustring(L"errors_test"), CStdException::GetAppName());
}

TEST(AppName, Fallback_AsksForTheExecutableWithRoomForAPath)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    g_modulePath = L"\\Windows\\app.exe";
    g_askedModule = ::GetModuleHandleW(L"vantor.dll");
    EXPECT_EQ(ustring(L"app"), CStdException::GetAppName());
    EXPECT_EQ(nullptr, g_askedModule);
    EXPECT_EQ(260u, g_room);
}

TEST(AppName, Fallback_CutsOnlyTheLastExtension)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    g_modulePath = L"C:\\Program Files\\v1.2\\Field.Terminal.exe";
    EXPECT_EQ(ustring(L"Field.Terminal"), CStdException::GetAppName());
}

TEST(AppName, Fallback_TakesANameWithoutExtensionWhole)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    g_modulePath = L"C:\\v1.2\\terminal";
    EXPECT_EQ(ustring(L"terminal"), CStdException::GetAppName());
}

TEST(AppName, Fallback_TakesTheLongestName)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    const std::wstring name(252, L'n');
    const std::wstring path = L"C:\\" + name + L".exe";   // with its terminator all of the 260 characters
    g_modulePath = path.c_str();
    EXPECT_EQ(ustring(name), CStdException::GetAppName());
}

TEST(AppName, Fallback_WhenThePathIsUnknown_IsEmpty)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &NoModulePath);
    EXPECT_EQ(ustring(), CStdException::GetAppName());
}

TEST(AppName, Fallback_IsAskedForAgainAtEachCall)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    g_modulePath = L"\\one.exe";
    CStdException::GetAppName();
    g_modulePath = L"\\two.exe";
    EXPECT_EQ(ustring(L"two"), CStdException::GetAppName());
    EXPECT_EQ(2, g_askedTimes);
}

TEST(AppName, Set_IsNotLookedUp)
{
    const support::CImportPatch patch(&::GetModuleFileNameW, &ModulePath);
    g_modulePath = L"\\one.exe";
    CStdException::SetAppName(L"Field terminal");
    CStdException::GetAppName();
    EXPECT_EQ(0, g_askedTimes);
}
