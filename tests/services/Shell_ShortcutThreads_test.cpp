// A shortcut may be made on any thread, whatever its COM, and leaves that as it was.

#include "Link.h"
#include "Threads.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Shell.h>

#include <gtest/gtest.h>

#include <functional>

using namespace vantor;
using support::CImportPatch;
using support::CResources;
using support::CTempFolder;

namespace
{
IUnknown* g_created;

// Keeps a reference of its own to what the library has made.
HRESULT WINAPI KeepingCreate(REFCLSID kind, LPUNKNOWN outer, DWORD context, REFIID wanted, LPVOID* object)
{
    const HRESULT result = ::CoCreateInstance(kind, outer, context, wanted, object);
    g_created = static_cast<IUnknown*>(*object);
    if (g_created)
        g_created->AddRef();
    return result;
}

HRESULT WINAPI FailingCreate(REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID* object)
{
    *object = nullptr;
    return REGDB_E_CLASSNOTREG;
}

class ShellShortcutThread : public ::testing::Test
{
protected:
    bool Create() const { return CreateShortcut(m_link.c_str(), m_target.c_str(), nullptr); }
    bool Fail() const { return CreateShortcut(m_link.c_str(), L"", nullptr); }

    // On a thread in the apartment.
    static void In(DWORD apartment, const std::function<void()>& action)
    {
        OnNewThread(
            [&]
            {
                ASSERT_EQ(S_OK, ::CoInitializeEx(nullptr, apartment));
                action();
                ::CoUninitialize();
                EXPECT_TRUE(HasNoCOM()) << "not balanced";
            });
    }

    CTempFolder m_folder;
    const ustring m_target = m_folder.Write(L"my program.exe", "content");
    const ustring m_link = m_folder.File(L"short.lnk");
};
}   // namespace

TEST_F(ShellShortcutThread, WithoutCOM_MakesTheShortcut)
{
    OnNewThread([this] { EXPECT_TRUE(Create()); });
    EXPECT_EQ(m_target, CLink(m_link).target);
}

TEST_F(ShellShortcutThread, WithoutCOM_StaysWithoutCOM)
{
    OnNewThread(
        [this]
        {
            EXPECT_TRUE(Create());
            EXPECT_TRUE(HasNoCOM());
        });
}

TEST_F(ShellShortcutThread, WithoutCOM_OnFailureStaysWithoutCOM)
{
    OnNewThread(
        [this]
        {
            EXPECT_FALSE(Fail());
            EXPECT_TRUE(HasNoCOM());
        });
}

TEST_F(ShellShortcutThread, InTheSingleThreadedApartment_MakesTheShortcut)
{
    In(COINIT_APARTMENTTHREADED, [this] { EXPECT_TRUE(Create()); });
    EXPECT_EQ(m_target, CLink(m_link).target);
}

TEST_F(ShellShortcutThread, InTheSingleThreadedApartment_StaysThere)
{
    In(COINIT_APARTMENTTHREADED,
       [this]
       {
           Create();
           EXPECT_TRUE(IsInApartment(COINIT_APARTMENTTHREADED));
       });
}

TEST_F(ShellShortcutThread, InTheMultiThreadedApartment_MakesTheShortcut)
{
    In(COINIT_MULTITHREADED, [this] { EXPECT_TRUE(Create()); });
    EXPECT_EQ(m_target, CLink(m_link).target);
}

TEST_F(ShellShortcutThread, InTheMultiThreadedApartment_StaysThere)
{
    In(COINIT_MULTITHREADED,
       [this]
       {
           Create();
           EXPECT_TRUE(IsInApartment(COINIT_MULTITHREADED));
       });
}

TEST_F(ShellShortcutThread, WhileOthersAreInTheMultiThreadedApartment_MakesTheShortcut)
{
    In(COINIT_MULTITHREADED, [this] { OnNewThread([this] { EXPECT_TRUE(Create()); }); });
    EXPECT_EQ(m_target, CLink(m_link).target);
}

TEST_F(ShellShortcutThread, Shortcut_LeaksNothing)
{
    const auto code = [this]
    {
        Create();
        Fail();
        CreateShortcut(m_folder.File(L"missing\\short.lnk").c_str(), m_target.c_str(), nullptr);
    };
    code();
    code();
    const CResources before;
    code();
    EXPECT_EQ(before, CResources());
}

TEST_F(ShellShortcutThread, ShortcutInTheSingleThreadedApartment_LeaksNothing)
{
    In(COINIT_APARTMENTTHREADED,
       [this]
       {
           Create();
           Create();
           const CResources before;
           Create();
           EXPECT_EQ(before, CResources());
       });
}

TEST_F(ShellShortcutThread, LinkObject_IsReleased)
{
    const CImportPatch patch(&::CoCreateInstance, &KeepingCreate);
    In(COINIT_APARTMENTTHREADED,
       [this]
       {
           ASSERT_TRUE(Create());
           EXPECT_EQ(0u, g_created->Release());
       });
}

TEST_F(ShellShortcutThread, WithoutLinkObjects_ThereIsNoShortcut)
{
    const CImportPatch patch(&::CoCreateInstance, &FailingCreate);
    EXPECT_FALSE(Create());
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, ::GetFileAttributesW(m_link.c_str()));
}
