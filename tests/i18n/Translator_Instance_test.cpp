// The language file beside the executable: small programs of their own, each copied to a folder with or without one.

#include "support/ChildProcess.h"
#include "support/TempFolder.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CTempFolder;
using support::Utf16;

namespace
{
const std::string French = "\xFF\xFE" + Utf16(L"[Open]\n[Ouvrir]\n[Close]\n[Fermer]\n");

class TranslatorInstance : public ::testing::Test
{
protected:
    // What the program prints if it stands in the folder under this name.
    std::string Run(const std::wstring& name, const std::wstring& arguments = {})
    {
        const ustring program = m_folder.File(name.c_str());
        EXPECT_TRUE(::CopyFileW((support::ModuleFolder() + L"\\i18n_translated.exe").c_str(), program.c_str(), TRUE));
        const CChildProcess process(L"\"" + program + L"\" " + arguments);
        EXPECT_EQ(0u, process.exitCode);
        return process.output;
    }

    CTempFolder m_folder;
};
}   // namespace

TEST_F(TranslatorInstance, LanguageFileBesideTheExecutable_IsLoadedOnFirstUse)
{
    m_folder.Write(L"program.lng", French);
    EXPECT_EQ("true Ouvrir 2", Run(L"program.exe"));
}

TEST_F(TranslatorInstance, ExecutableWithDotsInItsName_LosesTheLastExtensionOnly)
{
    m_folder.Write(L"my.new.program.lng", French);
    EXPECT_EQ("true Ouvrir 2", Run(L"my.new.program.exe"));
}

TEST_F(TranslatorInstance, LanguageFileOfAnotherName_IsIgnored)
{
    m_folder.Write(L"other.lng", French);
    EXPECT_EQ("false Open 0", Run(L"program.exe"));
}

TEST_F(TranslatorInstance, MissingLanguageFile_LeavesAllTextsAsTheyAre)
{
    EXPECT_EQ("false Open 0", Run(L"program.exe"));
}

TEST_F(TranslatorInstance, DamagedLanguageFile_IsSwallowed)
{
    m_folder.Write(L"program.lng", "no language file");
    EXPECT_EQ("false Open 0", Run(L"program.exe"));
}

TEST_F(TranslatorInstance, EmptyLanguageFile_IsSwallowed)
{
    m_folder.Write(L"program.lng", "");
    EXPECT_EQ("false Open 0", Run(L"program.exe"));
}

TEST_F(TranslatorInstance, LanguageFileThatCannotBeOpened_IsSwallowed)
{
    const ustring path = m_folder.Write(L"program.lng", French);
    const HANDLE other = ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ("false Open 0", Run(L"program.exe"));
    ::CloseHandle(other);
}

TEST_F(TranslatorInstance, LanguageFileThatComesLater_IsNotLoaded)
{
    m_folder.Write(L"program.lng.later", French);
    EXPECT_EQ("false Open 0", Run(L"program.exe", L"later"));
}

TEST_F(TranslatorInstance, DamagedLanguageFileThatIsMendedLater_IsNotLoaded)
{
    m_folder.Write(L"program.lng", "no language file");
    m_folder.Write(L"program.lng.later", French);
    EXPECT_EQ("false Open 0", Run(L"program.exe", L"later"));
}
