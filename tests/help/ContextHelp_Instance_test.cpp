// How the process's map is found: each test has a process of its own, in which the executable seems to stand elsewhere.

#include "support/ImportPatch.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/ContextHelp.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;
using support::Utf16;

namespace
{
struct CSystem
{
    ustring executable;   // empty: its name cannot be had
    std::vector<HMODULE> modules;
    std::vector<DWORD> rooms;
    std::vector<ustring> opened;
    int reads = 0;
    int failingRead = 0;
} g_system;

DWORD WINAPI FakeModuleFileName(HMODULE module, LPWSTR path, DWORD room)
{
    g_system.modules.push_back(module);
    g_system.rooms.push_back(room);
    if (g_system.executable.empty() || g_system.executable.size() >= room)
    {
        ::SetLastError(ERROR_GEN_FAILURE);
        return 0;
    }
    ::lstrcpyW(path, g_system.executable.c_str());
    return static_cast<DWORD>(g_system.executable.size());
}

HANDLE WINAPI RecordingCreateFile(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                                  DWORD disposition, DWORD flags, HANDLE model)
{
    g_system.opened.push_back(path);
    return ::CreateFileW(path, access, share, security, disposition, flags, model);
}

BOOL WINAPI FailingReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (++g_system.reads != g_system.failingRead)
        return ::ReadFile(file, buffer, size, done, overlapped);
    *done = 0;
    ::SetLastError(ERROR_CRC);
    return FALSE;
}

class ContextHelpInstance : public ::testing::Test
{
protected:
    ContextHelpInstance()
    {
        g_system = {};
        g_system.executable = m_folder.File(L"program.exe");
        ::CreateDirectoryW(m_folder.File(L"Help").c_str(), nullptr);
        m_module.emplace(&::GetModuleFileNameW, &FakeModuleFileName);
        m_create.emplace(&::CreateFileW, &RecordingCreateFile);
        m_read.emplace(&::ReadFile, &FailingReadFile);
    }

    void WriteMap(const std::wstring& records) const
    {
        m_folder.Write(L"Help\\ContextHelpMap.lng", "\xFF\xFE" + Utf16(records));
    }

    CTempFolder m_folder;

private:
    std::optional<CImportPatch> m_module, m_create, m_read;
};
}   // namespace

TEST_F(ContextHelpInstance, PathOfTheProgram_IsAskedForWithoutModuleAndRoomForAPath)
{
    CContextHelpInstance::Ref();
    EXPECT_EQ(std::vector<HMODULE>{nullptr}, g_system.modules);
    EXPECT_EQ(std::vector<DWORD>{260}, g_system.rooms);
}

// Joining a path leaves one separator of the two that the map's name has.
TEST_F(ContextHelpInstance, Map_IsOpenedInTheHelpFolderOfTheProgram)
{
    CContextHelpInstance::Ref();
    EXPECT_EQ(std::vector<ustring>{m_folder.File(L"Help\\ContextHelpMap.lng")}, g_system.opened);
}

TEST_F(ContextHelpInstance, FolderWithBlanksDotsAndUmlauts_HasTheMap)
{
    ::CreateDirectoryW(m_folder.File(L"Ger\u00E4te 1.0").c_str(), nullptr);
    ::CreateDirectoryW(m_folder.File(L"Ger\u00E4te 1.0\\Help").c_str(), nullptr);
    m_folder.Write(L"Ger\u00E4te 1.0\\Help\\ContextHelpMap.lng", "\xFF\xFE" + Utf16(L"[Spectrum]\n[a.htm]\n"));
    g_system.executable = m_folder.File(L"Ger\u00E4te 1.0\\program");
    EXPECT_EQ(ustring(L"a.htm"), CContextHelpInstance::Ref().GetHelpFileName(L"Spectrum"));
}

TEST_F(ContextHelpInstance, Map_IsLookedForOnce)
{
    CContextHelpInstance::Ref();
    CContextHelpInstance::Ref();
    CContextHelpInstance::Ref();
    EXPECT_EQ(1u, g_system.opened.size());
    EXPECT_EQ(1u, g_system.modules.size());
}

TEST_F(ContextHelpInstance, UnknownPathOfTheProgram_IsSwallowed)
{
    WriteMap(L"[Spectrum]\n[a.htm]\n");
    g_system.executable.clear();
    EXPECT_NO_THROW(CContextHelpInstance::Ref());
    EXPECT_TRUE(CContextHelpInstance::Ref().m_langFile.empty());
}

TEST_F(ContextHelpInstance, UnknownPathOfTheProgram_OpensNothing)
{
    g_system.executable.clear();
    CContextHelpInstance::Ref();
    EXPECT_TRUE(g_system.opened.empty());
}

TEST_F(ContextHelpInstance, UnknownPathOfTheProgram_IsNotAskedForAgain)
{
    g_system.executable.clear();
    CContextHelpInstance::Ref();
    CContextHelpInstance::Ref();
    EXPECT_EQ(1u, g_system.modules.size());
}

TEST_F(ContextHelpInstance, MapThatFailsPartway_LeavesTheTableEmpty)
{
    WriteMap(L"[Spectrum]\n[" + std::wstring(1000, L'x') + L"]\n");
    g_system.failingRead = 2;
    EXPECT_NO_THROW(CContextHelpInstance::Ref());
    EXPECT_EQ(2, g_system.reads);
    EXPECT_TRUE(CContextHelpInstance::Ref().m_langFile.empty());
}

TEST_F(ContextHelpInstance, Ref_IsTheSingletonOfTheProcess)
{
    EXPECT_EQ(&CPhoenixSingleton<CContextHelp>::Ref(), &CContextHelpInstance::Ref());
}

TEST_F(ContextHelpInstance, Ref_IsTheSameEachTime)
{
    EXPECT_EQ(&CContextHelpInstance::Ref(), &CContextHelpInstance::Ref());
}

TEST_F(ContextHelpInstance, SingletonAlone_LooksForNoMap)
{
    WriteMap(L"[Spectrum]\n[a.htm]\n");
    EXPECT_TRUE(CPhoenixSingleton<CContextHelp>::Ref().m_langFile.empty());
    EXPECT_TRUE(g_system.opened.empty());
}

TEST_F(ContextHelpInstance, Map_IsLoadedIntoTheSingleton)
{
    WriteMap(L"[Spectrum]\n[a.htm]\n");
    CContextHelp& singleton = CPhoenixSingleton<CContextHelp>::Ref();
    CContextHelpInstance::Ref();
    EXPECT_EQ(ustring(L"a.htm"), singleton.GetHelpFileName(L"Spectrum"));
}

TEST_F(ContextHelpInstance, RegisteredClass_StaysForTheProcess)
{
    CContextHelpInstance::Ref().RegisterClassW(L"Spectrum");
    EXPECT_EQ(1u, CContextHelpInstance::Ref().m_langFile.count(L"Spectrum"));
}

TEST_F(ContextHelpInstance, ClassThatTheMapNames_KeepsItsPageWhenItIsRegistered)
{
    WriteMap(L"[Spectrum]\n[a.htm]\n");
    CContextHelp& help = CContextHelpInstance::Ref();
    help.RegisterClassW(L"Spectrum");
    EXPECT_EQ(ustring(L"a.htm"), help.GetHelpFileName(L"Spectrum"));
    EXPECT_EQ(1u, help.m_langFile.size());
}

TEST_F(ContextHelpInstance, Ref_GivesAPlainReference)
{
    EXPECT_TRUE((std::is_same_v<CContextHelp&, decltype(CContextHelpInstance::Ref())>));
}
