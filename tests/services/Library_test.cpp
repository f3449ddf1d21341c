#include "SlotOf.h"

#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Slots.h"
#include "support/TempFolder.h"

#include <vantor/Library.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <vector>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;

namespace
{
constexpr wchar_t Name[] = L"services_lodger.dll";

HMODULE const FakeModule = reinterpret_cast<HMODULE>(0x12340000);
const wchar_t* g_asked;
std::vector<HMODULE> g_freed;

HMODULE WINAPI LoadNothing(LPCWSTR name)
{
    g_asked = name;
    ::SetLastError(ERROR_DLL_INIT_FAILED);
    return nullptr;
}

HMODULE WINAPI LoadFake(LPCWSTR name)
{
    g_asked = name;
    return FakeModule;
}

BOOL WINAPI RecordingFree(HMODULE module)
{
    g_freed.push_back(module);
    return module == FakeModule ? TRUE : ::FreeLibrary(module);
}

class Library : public ::testing::Test
{
protected:
    Library() : m_patch(&::FreeLibrary, &RecordingFree)
    {
        g_asked = nullptr;
        g_freed.clear();
    }

    static bool IsLoaded() { return ::GetModuleHandleW(Name) != nullptr; }

    const ustring m_path = support::ModuleFolder() + L"\\" + Name;

private:
    CImportPatch m_patch;
};

struct CWithMore : CLibrary
{
    using CLibrary::CLibrary;
    virtual void More() {}
};
}   // namespace

TEST_F(Library, Scope_HasItLoaded)
{
    ASSERT_FALSE(IsLoaded());
    const CLibrary library(m_path.c_str());
    const FARPROC answer = ::GetProcAddress(::GetModuleHandleW(Name), "Answer");
    ASSERT_NE(nullptr, answer);
    EXPECT_EQ(42, reinterpret_cast<int (*)()>(reinterpret_cast<void*>(answer))());
}

TEST_F(Library, EndOfScope_UnloadsIt)
{
    {
        const CLibrary library(m_path.c_str());
        ASSERT_TRUE(IsLoaded());
    }
    EXPECT_FALSE(IsLoaded());
}

TEST_F(Library, EndOfTheInnerScope_LeavesItLoaded)
{
    const CLibrary outer(m_path.c_str());
    {
        const CLibrary inner(m_path.c_str());
    }
    EXPECT_TRUE(IsLoaded());
}

TEST_F(Library, EndOfTheOuterScope_UnloadsIt)
{
    {
        const CLibrary outer(m_path.c_str());
        const CLibrary inner(m_path.c_str());
    }
    EXPECT_FALSE(IsLoaded());
}

TEST_F(Library, ThatTheProgramLoadedItself_StaysLoaded)
{
    const HMODULE own = ::LoadLibraryW(m_path.c_str());
    {
        const CLibrary library(m_path.c_str());
    }
    EXPECT_TRUE(IsLoaded());
    ::FreeLibrary(own);
    EXPECT_FALSE(IsLoaded());
}

TEST_F(Library, ExceptionThroughTheScope_UnloadsIt)
{
    try
    {
        const CLibrary library(m_path.c_str());
        throw 1;
    }
    catch (int)
    {
    }
    EXPECT_FALSE(IsLoaded());
}

TEST_F(Library, DeletedThroughItsBase_IsUnloaded)
{
    std::unique_ptr<CLibrary>(new CWithMore(m_path.c_str())).reset();
    EXPECT_FALSE(IsLoaded());
}

TEST_F(Library, BareName_IsFoundBesideTheProgram)
{
    const CLibrary library(Name);
    EXPECT_TRUE(IsLoaded());
}

TEST_F(Library, PathWithBlanksAndUmlauts_IsLoaded)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"Gr\u00F6\u00DFe und Art.dll");
    ASSERT_TRUE(::CopyFileW(m_path.c_str(), path.c_str(), TRUE));
    const CLibrary library(path.c_str());
    EXPECT_NE(nullptr, ::GetModuleHandleW(path.c_str()));
}

TEST_F(Library, Missing_Throws)
{
    const CTempFolder folder;
    const ustring missing = folder.File(L"missing.dll");
    EXPECT_FAILURE(10, L".\\Library", L"LoadLibrary", 126, CLibrary(missing.c_str()));
}

TEST_F(Library, Failure_CarriesTheLastError)
{
    const CImportPatch patch(&::LoadLibraryW, &LoadNothing);
    EXPECT_FAILURE(10, L".\\Library", L"LoadLibrary", 1114, CLibrary(L"any.dll"));
}

TEST_F(Library, FileThatIsNoLibrary_Throws)
{
    const CTempFolder folder;
    const ustring text = folder.Write(L"text.dll", "no library");
    EXPECT_FAILURE(10, L".\\Library", L"LoadLibrary", ERROR_BAD_EXE_FORMAT, CLibrary(text.c_str()));
}

TEST_F(Library, NullName_ThrowsWhatThePlatformSays)
{
    ::LoadLibraryW(nullptr);
    const DWORD error = ::GetLastError();
    EXPECT_FAILURE(10, L".\\Library", L"LoadLibrary", error, CLibrary(nullptr));
}

TEST_F(Library, ThatFailed_FreesNothing)
{
    const CImportPatch patch(&::LoadLibraryW, &LoadNothing);
    EXPECT_THROW(CLibrary(L"any.dll"), CWinException);
    EXPECT_TRUE(g_freed.empty());
}

TEST_F(Library, Platform_IsGivenTheNameAsItIs)
{
    const CImportPatch patch(&::LoadLibraryW, &LoadFake);
    constexpr wchar_t name[] = L"any name";
    const CLibrary library(name);
    EXPECT_EQ(name, g_asked);
}

TEST_F(Library, EndOfScope_FreesWhatWasLoadedOnce)
{
    const CImportPatch patch(&::LoadLibraryW, &LoadFake);
    {
        const CLibrary library(L"any.dll");
        EXPECT_TRUE(g_freed.empty());
    }
    EXPECT_EQ(std::vector<HMODULE>{FakeModule}, g_freed);
}

TEST_F(Library, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CLibrary>);
    EXPECT_FALSE(std::is_copy_assignable_v<CLibrary>);
}

TEST(LibrarySlots, BeginWithTheDestructor)
{
    support::ExpectSlots("_ZTVN6vantor8CLibraryE", {"_ZN6vantor8CLibraryD1Ev", "_ZN6vantor8CLibraryD0Ev"});
}

TEST(LibrarySlots, EndWithTheDestructor)
{
    EXPECT_EQ(2u, SlotOf(&CWithMore::More));
}
