// The map beside the executable: a small program, copied to a folder with or without one.

#include "support/ChildProcess.h"
#include "support/TempFolder.h"

#include <vantor/ContextHelp.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CTempFolder;
using support::Utf16;

namespace
{
const std::string Mark = "\xFF\xFE";
const std::string Map = Mark + Utf16(L"[Receiver]\n[receiver.htm]\n[Spectrum]\n[spectrum.htm]\n");
const std::string OtherMap = Mark + Utf16(L"[Spectrum]\n[other.htm]\n");

class ContextHelpProgram : public ::testing::Test
{
protected:
    ContextHelpProgram() { ::CreateDirectoryW(m_folder.File(L"Help").c_str(), nullptr); }

    // What the program prints if it stands in the folder.
    std::string Run(const std::wstring& arguments = {}, const wchar_t* program = L"help_page")
    {
        const ustring copy = m_folder.File(L"program.exe");
        const ustring original = support::ModuleFolder() + L"\\" + program + L".exe";
        EXPECT_TRUE(::CopyFileW(original.c_str(), copy.c_str(), TRUE));
        const CChildProcess process(L"\"" + copy + L"\" " + arguments);
        EXPECT_EQ(0u, process.exitCode);
        return process.output;
    }

    CTempFolder m_folder;
};

struct CMapRow
{
    const char* name;
    std::string bytes;
};

void PrintTo(const CMapRow& row, std::ostream* out)
{
    *out << row.name;
}

class ContextHelpDamagedMap : public ContextHelpProgram, public ::testing::WithParamInterface<CMapRow>
{
};
}   // namespace

TEST_F(ContextHelpProgram, Map_IsLoadedOnFirstUse)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", Map);
    EXPECT_EQ("[spectrum.htm] 2", Run());
}

TEST_F(ContextHelpProgram, MapWithTheMarkAlone_IsEmpty)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", Mark);
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, WithoutMap_NoClassHasAPage)
{
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, WithoutHelpFolder_NoClassHasAPage)
{
    ::RemoveDirectoryW(m_folder.File(L"Help").c_str());
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, MapBesideTheExecutable_IsIgnored)
{
    m_folder.Write(L"ContextHelpMap.lng", Map);
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, LanguageFileOfTheExecutable_IsIgnored)
{
    m_folder.Write(L"program.lng", Map);
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, MapThatComesLater_IsNotLoaded)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng.later", Map);
    EXPECT_EQ("[] 0", Run(L"later"));
}

TEST_F(ContextHelpProgram, MapThatChangesLater_IsNotLoadedAgain)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", Map);
    m_folder.Write(L"Help\\ContextHelpMap.lng.later", OtherMap);
    EXPECT_EQ("[spectrum.htm] 2", Run(L"later"));
}

TEST_F(ContextHelpProgram, DamagedMapThatIsMendedLater_IsNotLoaded)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", "no map");
    m_folder.Write(L"Help\\ContextHelpMap.lng.later", Map);
    EXPECT_EQ("[] 0", Run(L"later"));
}

TEST_F(ContextHelpProgram, FolderInThePlaceOfTheMap_IsSwallowed)
{
    ::CreateDirectoryW(m_folder.File(L"Help\\ContextHelpMap.lng").c_str(), nullptr);
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, MapThatCannotBeOpened_IsSwallowed)
{
    const ustring path = m_folder.Write(L"Help\\ContextHelpMap.lng", Map);
    const HANDLE other = ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ("[] 0", Run());
    ::CloseHandle(other);
}

INSTANTIATE_TEST_SUITE_P(Map, ContextHelpDamagedMap,
                         ::testing::Values(CMapRow{"Empty", ""}, CMapRow{"OneByte", "\xFF"},
                                           CMapRow{"NoMark", Utf16(L"[Spectrum]\n[a.htm]\n")},
                                           CMapRow{"Narrow", "[Spectrum]\n[a.htm]\n"},
                                           CMapRow{"NarrowWithItsMark", "\xEF\xBB\xBF[Spectrum]\n[a.htm]\n"},
                                           CMapRow{"BigEndian", std::string("\xFE\xFF\0[\0S\0]\0\n\0[\0a\0]\0\n", 18)}),
                         [](const auto& info) { return info.param.name; });

TEST_P(ContextHelpDamagedMap, IsSwallowed)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", GetParam().bytes);
    EXPECT_EQ("[] 0", Run());
}

TEST_F(ContextHelpProgram, MapCutInAClassName_HasThePagesBefore)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", Mark + Utf16(L"[Spectrum]\n[spectrum.htm]\n[Recei"));
    EXPECT_EQ("[spectrum.htm] 1", Run());
}

TEST_F(ContextHelpProgram, MapCutInACharacter_LosesThisOneOnly)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", Mark + Utf16(L"[Spectrum]\n[spectrum.htm") + "x");
    EXPECT_EQ("[spectrum.htm] 1", Run());
}

// What one program registers and saves, another finds, once the pages are filled in.
TEST_F(ContextHelpProgram, SavedMap_IsLoadedByTheNextProgram)
{
    CContextHelp help;
    help.RegisterClassW(L"Receiver");
    help.RegisterClassW(L"Spectrum");
    help.m_langFile[L"Spectrum"] = L"spectrum.htm";
    help.m_langFile.SaveLanguageFile(m_folder.File(L"Help\\ContextHelpMap.lng").c_str());
    EXPECT_EQ("[spectrum.htm] 2", Run());
}

// Although the map is there and was loaded: it is looked for once.
TEST_F(ContextHelpProgram, HelpUsedAfterItsEnd_RisesAgainFreshAndEmpty)
{
    m_folder.Write(L"Help\\ContextHelpMap.lng", Map);
    EXPECT_EQ("known filled kept unknown empty kept ", Run({}, L"help_late"));
}
