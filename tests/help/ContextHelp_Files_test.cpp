// The map as a file that an application saves, and reads again.

#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/ContextHelp.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CTempFolder;

namespace
{
class ContextHelpFile : public ::testing::Test
{
protected:
    CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"ContextHelpMap.lng");
    CContextHelp m_help;
};
}   // namespace

TEST_F(ContextHelpFile, RegisteredClasses_AreSavedInOrderWithEmptyPages)
{
    m_help.RegisterClassW(L"Z");
    m_help.RegisterClassW(L"a");
    m_help.RegisterClassW(L"\u00E4");
    m_help.m_langFile.SaveLanguageFile(m_path.c_str());
    const std::string expected("\xFF\xFE"
                               "[\0Z\0]\0\n\0[\0]\0\n\0"
                               "[\0a\0]\0\n\0[\0]\0\n\0"
                               "[\0\xE4\0]\0\n\0[\0]\0\n\0",
                               44);
    EXPECT_EQ(expected, support::ReadBytes(m_path.c_str()));
}

TEST_F(ContextHelpFile, Pages_AreSavedBehindTheirClasses)
{
    m_help.RegisterClassW(L"A");
    m_help.m_langFile[L"B"] = L"b.h";
    m_help.m_langFile.SaveLanguageFile(m_path.c_str());
    const std::string expected("\xFF\xFE"
                               "[\0A\0]\0\n\0[\0]\0\n\0"
                               "[\0B\0]\0\n\0[\0b\0.\0h\0]\0\n\0",
                               36);
    EXPECT_EQ(expected, support::ReadBytes(m_path.c_str()));
}

TEST_F(ContextHelpFile, SavedMap_LoadsAgain)
{
    m_help.RegisterClassW(L"First");
    m_help.RegisterClassW(L"Last");
    m_help.RegisterClassW(L"\u53D7\u4FE1 [1]");
    m_help.m_langFile[L"Middle"] = L"seite f\u00FCr mitte.htm";
    m_help.m_langFile.SaveLanguageFile(m_path.c_str());

    CContextHelp again;
    again.RegisterClassW(L"Gone");
    ASSERT_TRUE(again.m_langFile.LoadLanguageFile(m_path.c_str()));
    EXPECT_TRUE(m_help.m_langFile == again.m_langFile);
    EXPECT_EQ(4u, again.m_langFile.size());
}

TEST_F(ContextHelpFile, RegisteringAfterLoading_AddsTheNewClassesOnly)
{
    m_help.m_langFile[L"Spectrum"] = L"spectrum.htm";
    m_help.m_langFile.SaveLanguageFile(m_path.c_str());

    CContextHelp again;
    again.m_langFile.LoadLanguageFile(m_path.c_str());
    again.RegisterClassW(L"Receiver");
    again.RegisterClassW(L"Spectrum");
    EXPECT_EQ(2u, again.m_langFile.size());
    EXPECT_EQ(ustring(L"spectrum.htm"), again.GetHelpFileName(L"Spectrum"));
}

TEST_F(ContextHelpFile, EmptyMap_IsSavedAsTheMarkAlone)
{
    m_help.m_langFile.SaveLanguageFile(m_path.c_str());
    EXPECT_EQ("\xFF\xFE", support::ReadBytes(m_path.c_str()));
}
