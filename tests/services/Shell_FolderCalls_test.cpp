// What GetSpecialFolderLocation asks of the shell, and what becomes of the identifier list.

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Shell.h>

#include <gtest/gtest.h>

#include <shlobj.h>

#include <cwchar>
#include <string>
#include <vector>

using namespace vantor;
using support::CImportPatch;

namespace
{
// Counts; nothing but Free and Release is asked of it.
class CCountingMalloc : public IMalloc
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    void* STDMETHODCALLTYPE Alloc(SIZE_T) override { return nullptr; }
    void* STDMETHODCALLTYPE Realloc(void*, SIZE_T) override { return nullptr; }
    void STDMETHODCALLTYPE Free(void* block) override { freed.push_back(block); }
    SIZE_T STDMETHODCALLTYPE GetSize(void*) override { return 0; }
    int STDMETHODCALLTYPE DidAlloc(void*) override { return 1; }
    void STDMETHODCALLTYPE HeapMinimize() override {}

    ULONG references = 0;
    std::vector<void*> freed;
};

// The shell that the fakes below make.
struct CShell
{
    HRESULT location = S_OK;
    const wchar_t* path = L"C:\\Storage";   // null: the list has none
    HRESULT hasAllocator = S_OK;
    CCountingMalloc allocator;
    ITEMIDLIST list = {};
    HWND owner = nullptr;
    int folder = 0;
    const ITEMIDLIST* converted = nullptr;
    std::string order;
};

CShell* g_shell;

HRESULT WINAPI FakeLocation(HWND owner, int folder, PIDLIST_ABSOLUTE* list)
{
    g_shell->order += "location ";
    g_shell->owner = owner;
    g_shell->folder = folder;
    if (SUCCEEDED(g_shell->location))
        *list = reinterpret_cast<PIDLIST_ABSOLUTE>(&g_shell->list);
    return g_shell->location;
}

BOOL WINAPI FakePath(PCIDLIST_ABSOLUTE list, LPWSTR path)
{
    g_shell->order += "path ";
    g_shell->converted = list;
    std::wcscpy(path, g_shell->path ? g_shell->path : L"garbage");
    return g_shell->path != nullptr;
}

HRESULT WINAPI FakeAllocator(IMalloc** allocator)
{
    g_shell->order += "allocator ";
    *allocator = nullptr;
    if (FAILED(g_shell->hasAllocator))
        return g_shell->hasAllocator;
    g_shell->allocator.AddRef();
    *allocator = &g_shell->allocator;
    return S_OK;
}

class ShellFolderCalls : public ::testing::Test
{
protected:
    ShellFolderCalls()
        : m_location(&::SHGetSpecialFolderLocation, &FakeLocation),
          m_path(&::SHGetPathFromIDListW, &FakePath),
          m_allocator(&::SHGetMalloc, &FakeAllocator)
    {
        g_shell = &m_shell;
    }

    bool Ask(HWND owner = nullptr, int folder = CSIDL_PERSONAL)
    {
        return GetSpecialFolderLocation(owner, folder, m_found);
    }

    const std::vector<void*> OneList = {&m_shell.list};
    CShell m_shell;
    ustring m_found = L"old";

private:
    CImportPatch m_location, m_path, m_allocator;
};
}   // namespace

TEST_F(ShellFolderCalls, OwnerAndNumber_ArePassedThrough)
{
    const HWND owner = ::GetDesktopWindow();
    Ask(owner, 0x1234);
    EXPECT_EQ(owner, m_shell.owner);
    EXPECT_EQ(0x1234, m_shell.folder);
}

TEST_F(ShellFolderCalls, NullOwner_IsPassedThrough)
{
    m_shell.owner = ::GetDesktopWindow();
    Ask(nullptr);
    EXPECT_EQ(nullptr, m_shell.owner);
}

TEST_F(ShellFolderCalls, List_IsTheOneThatIsConverted)
{
    Ask();
    EXPECT_EQ(&m_shell.list, m_shell.converted);
}

TEST_F(ShellFolderCalls, Path_IsHandedOut)
{
    EXPECT_TRUE(Ask());
    EXPECT_EQ(ustring(L"C:\\Storage"), m_found);
}

TEST_F(ShellFolderCalls, LongestPath_IsHandedOutWhole)
{
    const std::wstring longest(MAX_PATH - 1, L'x');
    m_shell.path = longest.c_str();
    EXPECT_TRUE(Ask());
    EXPECT_EQ(ustring(longest), m_found);
}

TEST_F(ShellFolderCalls, EmptyPath_ReplacesTheOld)
{
    m_shell.path = L"";
    EXPECT_TRUE(Ask());
    EXPECT_EQ(ustring(), m_found);
}

TEST_F(ShellFolderCalls, Calls_AreMadeInOrder)
{
    Ask();
    EXPECT_EQ("location path allocator ", m_shell.order);
}

TEST_F(ShellFolderCalls, List_IsFreedOnce)
{
    Ask();
    EXPECT_EQ(OneList, m_shell.allocator.freed);
}

TEST_F(ShellFolderCalls, Allocator_IsReleased)
{
    Ask();
    EXPECT_EQ(0u, m_shell.allocator.references);
}

TEST_F(ShellFolderCalls, ListWithoutPath_IsFalse)
{
    m_shell.path = nullptr;
    EXPECT_FALSE(Ask());
}

TEST_F(ShellFolderCalls, ListWithoutPath_LeavesThePathUntouched)
{
    m_shell.path = nullptr;
    Ask();
    EXPECT_EQ(ustring(L"old"), m_found);
}

TEST_F(ShellFolderCalls, ListWithoutPath_IsFreedOnce)
{
    m_shell.path = nullptr;
    Ask();
    EXPECT_EQ(OneList, m_shell.allocator.freed);
    EXPECT_EQ(0u, m_shell.allocator.references);
}

TEST_F(ShellFolderCalls, NoList_IsFalse)
{
    m_shell.location = E_INVALIDARG;
    EXPECT_FALSE(Ask());
}

TEST_F(ShellFolderCalls, NoList_LeavesThePathUntouched)
{
    m_shell.location = E_INVALIDARG;
    Ask();
    EXPECT_EQ(ustring(L"old"), m_found);
}

TEST_F(ShellFolderCalls, NoList_AsksForNothingElse)
{
    m_shell.location = E_INVALIDARG;
    Ask();
    EXPECT_EQ("location ", m_shell.order);
}

TEST_F(ShellFolderCalls, NoAllocator_StillGivesThePath)
{
    m_shell.hasAllocator = E_FAIL;
    EXPECT_TRUE(Ask());
    EXPECT_EQ(ustring(L"C:\\Storage"), m_found);
}

TEST_F(ShellFolderCalls, NoAllocator_FreesNothing)
{
    m_shell.hasAllocator = E_FAIL;
    Ask();
    EXPECT_TRUE(m_shell.allocator.freed.empty());
}
