#include "Link.h"

#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Shell.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CTempFolder;

namespace
{
class ShellShortcut : public ::testing::Test
{
protected:
    // A file, which exists, in a folder of the test's own.
    ustring Target(const wchar_t* folder, const wchar_t* name)
    {
        ::CreateDirectoryW(m_folder.File(folder).c_str(), nullptr);
        return m_folder.Write((ustring(folder) + L"\\" + name).c_str(), "content");
    }

    bool Create(const ustring& target) { return CreateShortcut(m_link.c_str(), target.c_str(), nullptr); }

    bool IsThere() const { return ::GetFileAttributesW(m_link.c_str()) != INVALID_FILE_ATTRIBUTES; }

    CTempFolder m_folder;
    const ustring m_link = m_folder.File(L"short.lnk");
};

// Beside its identifier list a link that Wine has saved keeps its target in the ANSI code page.
bool Names(const ustring& inLink, const ustring& target)
{
    char bytes[MAX_PATH] = {};
    wchar_t text[MAX_PATH] = {};
    ::WideCharToMultiByte(CP_ACP, 0, target.c_str(), -1, bytes, MAX_PATH, nullptr, nullptr);
    ::MultiByteToWideChar(CP_ACP, 0, bytes, -1, text, MAX_PATH);
    return inLink == target || inLink == text;
}

struct CTargetRow
{
    const char* name;
    const wchar_t* folder;
    const wchar_t* file;
};

void PrintTo(const CTargetRow& row, std::ostream* out)
{
    *out << row.name;
}

class ShellShortcutTarget : public ShellShortcut, public ::testing::WithParamInterface<CTargetRow>
{
};
}   // namespace

INSTANTIATE_TEST_SUITE_P(
    Names, ShellShortcutTarget,
    ::testing::Values(CTargetRow{"Plain", L"Tools", L"app.exe"}, CTargetRow{"BlankInTheName", L"Tools", L"my app.exe"},
                      CTargetRow{"BlankInTheFolder", L"Program Files", L"app.exe"},
                      CTargetRow{"BlanksAtTheEdges", L" a", L" b.exe"},
                      CTargetRow{"Umlauts", L"Ger\u00E4te", L"Empf\u00E4nger.exe"},
                      CTargetRow{"OtherScripts", L"\u53D7\u4FE1 \u6A5F", L"\u041F\u0440\u0438\u0451\u043C \u03A9.exe"},
                      CTargetRow{"BeyondTheBasicPlane", L"\U0001F4E1 dish", L"\U0001F4FB.exe"},
                      CTargetRow{"NoExtension", L"Tools", L"app"}, CTargetRow{"Percent", L"Tools", L"100% %TEMP%.exe"}),
    [](const auto& info) { return info.param.name; });

TEST_P(ShellShortcutTarget, Existing_IsResolved)
{
    const ustring target = Target(GetParam().folder, GetParam().file);
    ASSERT_TRUE(Create(target));
    const CLink link(m_link);
    EXPECT_EQ(target, link.listed);
    EXPECT_TRUE(link.resolves);
}

TEST_P(ShellShortcutTarget, Existing_IsNamed)
{
    const ustring target = Target(GetParam().folder, GetParam().file);
    ASSERT_TRUE(Create(target));
    EXPECT_TRUE(Names(CLink(m_link).target, target));
}

TEST_P(ShellShortcutTarget, Existing_GetsNoArguments)
{
    Create(Target(GetParam().folder, GetParam().file));
    const CLink link(m_link);
    EXPECT_TRUE(link.opens);
    EXPECT_EQ(ustring(), link.arguments);
}

TEST_P(ShellShortcutTarget, Missing_IsNamedAllTheSame)
{
    const ustring target = m_folder.File(GetParam().folder) + L"\\" + GetParam().file;
    ASSERT_TRUE(Create(target));
    const CLink link(m_link);
    EXPECT_EQ(target, link.listed);
    EXPECT_TRUE(Names(link.target, target));
}

TEST_F(ShellShortcut, File_IsAShellLink)
{
    ASSERT_TRUE(Create(Target(L"Tools", L"app.exe")));
    const std::string head("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20);
    EXPECT_EQ(head, support::ReadBytes(m_link.c_str()).substr(0, head.size()));
}

TEST_F(ShellShortcut, TargetThatIsAFolder_IsResolved)
{
    const ustring target = m_folder.File(L"My Documents");
    ::CreateDirectoryW(target.c_str(), nullptr);
    ASSERT_TRUE(Create(target));
    const CLink link(m_link);
    EXPECT_EQ(target, link.target);
    EXPECT_TRUE(link.resolves);
}

TEST_F(ShellShortcut, QuotedTargetWithoutBlank_IsResolved)
{
    const ustring target = Target(L"Tools", L"app.exe");
    ASSERT_TRUE(Create(L"\"" + target + L"\""));
    EXPECT_EQ(target, CLink(m_link).target);
}

struct CBadTargetRow
{
    const char* name;
    const wchar_t* target;
};

static void PrintTo(const CBadTargetRow& row, std::ostream* out)
{
    *out << row.name;
}

class ShellShortcutBadTarget : public ShellShortcut, public ::testing::WithParamInterface<CBadTargetRow>
{
};

INSTANTIATE_TEST_SUITE_P(Targets, ShellShortcutBadTarget,
                         ::testing::Values(CBadTargetRow{"Null", nullptr}, CBadTargetRow{"Empty", L""},
                                           CBadTargetRow{"QuotedNothing", L"\"\""},
                                           CBadTargetRow{"QuotationMarkAlone", L"\""},
                                           CBadTargetRow{"InnerQuotationMark", L"C:\\Tools\\a\"b.exe"},
                                           CBadTargetRow{"InnerQuotationMarkAndBlank", L"C:\\Tools\\a\" b.exe"},
                                           CBadTargetRow{"QuotedWithBlank", L"\"C:\\My Tools\\a.exe\""}),
                         [](const auto& info) { return info.param.name; });

TEST_P(ShellShortcutBadTarget, IsFalse)
{
    EXPECT_FALSE(CreateShortcut(m_link.c_str(), GetParam().target, nullptr));
}

TEST_P(ShellShortcutBadTarget, MakesNoFile)
{
    CreateShortcut(m_link.c_str(), GetParam().target, nullptr);
    EXPECT_FALSE(IsThere());
}

TEST_F(ShellShortcut, LongestTarget_IsNamed)
{
    const ustring target = L"C:\\" + ustring(std::wstring(MAX_PATH - 4, L'x'));
    ASSERT_EQ(259u, target.size());
    ASSERT_TRUE(Create(target));
    EXPECT_EQ(target, CLink(m_link).target);
}

TEST_F(ShellShortcut, TargetThatNoLinkCanHold_IsFalse)
{
    EXPECT_FALSE(Create(L"C:\\" + ustring(std::wstring(MAX_PATH - 3, L'x'))));
    EXPECT_FALSE(IsThere());
}

TEST_F(ShellShortcut, ShortcutWithBlanksAndUmlauts_IsWritten)
{
    ::CreateDirectoryW(m_folder.File(L"Start Men\u00FC").c_str(), nullptr);
    const ustring name = m_folder.File(L"Start Men\u00FC\\Mein Empf\u00E4nger \u53D7.lnk");
    const ustring target = Target(L"Tools", L"app.exe");
    ASSERT_TRUE(CreateShortcut(name.c_str(), target.c_str(), nullptr));
    EXPECT_EQ(target, CLink(name).target);
}

TEST_F(ShellShortcut, RelativeName_StandsInTheCurrentFolder)
{
    wchar_t current[MAX_PATH];
    ::GetCurrentDirectoryW(MAX_PATH, current);
    const ustring target = Target(L"Tools", L"app.exe");
    ::SetCurrentDirectoryW(m_folder.Path().c_str());
    const bool created = CreateShortcut(L"short.lnk", target.c_str(), nullptr);
    ::SetCurrentDirectoryW(current);
    EXPECT_TRUE(created);
    EXPECT_EQ(target, CLink(m_link).target);
}

TEST_F(ShellShortcut, NameWithoutExtension_GetsNone)
{
    const ustring name = m_folder.File(L"short");
    ASSERT_TRUE(CreateShortcut(name.c_str(), Target(L"Tools", L"app.exe").c_str(), nullptr));
    EXPECT_TRUE(CLink(name).opens);
}

TEST_F(ShellShortcut, InAMissingFolder_IsFalse)
{
    const ustring name = m_folder.File(L"missing\\short.lnk");
    EXPECT_FALSE(CreateShortcut(name.c_str(), Target(L"Tools", L"app.exe").c_str(), nullptr));
}

TEST_F(ShellShortcut, InThePlaceOfAFolder_IsFalse)
{
    ::CreateDirectoryW(m_link.c_str(), nullptr);
    EXPECT_FALSE(Create(Target(L"Tools", L"app.exe")));
}

TEST_F(ShellShortcut, WithATooLongName_IsFalse)
{
    const ustring name = m_folder.File((std::wstring(MAX_PATH, L'x') + L".lnk").c_str());
    EXPECT_FALSE(CreateShortcut(name.c_str(), Target(L"Tools", L"app.exe").c_str(), nullptr));
}

TEST_F(ShellShortcut, WithoutAName_IsFalse)
{
    const ustring target = Target(L"Tools", L"app.exe");
    EXPECT_FALSE(CreateShortcut(nullptr, target.c_str(), nullptr));
    EXPECT_FALSE(CreateShortcut(L"", target.c_str(), nullptr));
}

TEST_F(ShellShortcut, OverAnother_PointsToTheNewTarget)
{
    ASSERT_TRUE(Create(Target(L"Tools with a long name", L"the first of the two programs.exe")));
    const ustring second = Target(L"Tools", L"b.exe");
    ASSERT_TRUE(Create(second));
    EXPECT_EQ(second, CLink(m_link).target);
}

TEST_F(ShellShortcut, OverAnyOtherFile_ReplacesIt)
{
    support::WriteBytes(m_link.c_str(), std::string(5000, 'x'));
    const ustring target = Target(L"Tools", L"app.exe");
    ASSERT_TRUE(Create(target));
    EXPECT_EQ(target, CLink(m_link).target);
}

TEST_F(ShellShortcut, ThirdArgument_IsNotUsed)
{
    const ustring target = Target(L"Tools", L"app.exe");
    ASSERT_TRUE(CreateShortcut(m_link.c_str(), target.c_str(), L"-silent"));
    const CLink link(m_link);
    EXPECT_EQ(target, link.target);
    EXPECT_EQ(ustring(), link.arguments);
}

TEST_F(ShellShortcut, Arguments_AreLeftAsTheyWere)
{
    std::wstring name = m_link.c_str();
    std::wstring target = Target(L"Program Files", L"app.exe").c_str();
    const std::wstring nameBefore = name, targetBefore = target;
    CreateShortcut(name.data(), target.data(), nullptr);
    EXPECT_TRUE(name == nameBefore);
    EXPECT_TRUE(target == targetBefore);
}
