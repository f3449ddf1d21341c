// The name of an application's own key.

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Registry.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

using namespace vantor;
using support::CImportPatch;

namespace
{
const wchar_t* g_program;   // what the system says; null: it fails
HMODULE g_module;           // what it was asked for
DWORD g_room;

DWORD WINAPI SayModuleFileName(HMODULE module, wchar_t* name, DWORD room)
{
    g_module = module;
    g_room = room;
    if (!g_program)
    {
        ::SetLastError(ERROR_GEN_FAILURE);
        return 0;
    }
    return static_cast<DWORD>(std::wcslen(std::wcscpy(name, g_program)));
}

class RegistryDefaultKeyName : public testing::Test
{
protected:
    RegistryDefaultKeyName()
    {
        g_module = reinterpret_cast<HMODULE>(1);
        g_room = 0;
    }

    // The key name of a program with this path.
    static ustring Name(const wchar_t* program, const wchar_t* company, const wchar_t* product, const wchar_t* section)
    {
        g_program = program;
        const CImportPatch patch(&::GetModuleFileNameW, &SayModuleFileName);
        ustring name = L"before";
        EXPECT_TRUE(RegGetDefaultKeyName(company, product, section, name));
        return name;
    }
};

constexpr wchar_t App[] = L"\\Windows\\App.exe";
}   // namespace

TEST_F(RegistryDefaultKeyName, NothingGiven_IsTheProgramOfTheDefaultCompany)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\App", Name(App, nullptr, nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, SectionGiven_IsOneLevelMore)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\App\\Options", Name(App, nullptr, nullptr, L"Options"));
}

TEST_F(RegistryDefaultKeyName, ProductGiven_StandsForTheProgram)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\Product", Name(App, nullptr, L"Product", nullptr));
}

TEST_F(RegistryDefaultKeyName, ProductAndSectionGiven)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\Product\\Options", Name(App, nullptr, L"Product", L"Options"));
}

TEST_F(RegistryDefaultKeyName, CompanyGiven_StandsForTheDefaultCompany)
{
    EXPECT_EQ(L"SOFTWARE\\Company\\App", Name(App, L"Company", nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, CompanyAndSectionGiven)
{
    EXPECT_EQ(L"SOFTWARE\\Company\\App\\Options", Name(App, L"Company", nullptr, L"Options"));
}

TEST_F(RegistryDefaultKeyName, CompanyAndProductGiven)
{
    EXPECT_EQ(L"SOFTWARE\\Company\\Product", Name(App, L"Company", L"Product", nullptr));
}

TEST_F(RegistryDefaultKeyName, AllGiven)
{
    EXPECT_EQ(L"SOFTWARE\\Company\\Product\\Options", Name(App, L"Company", L"Product", L"Options"));
}

TEST_F(RegistryDefaultKeyName, EmptyTexts_AreGivenTexts)
{
    EXPECT_EQ(L"SOFTWARE\\\\\\", Name(App, L"", L"", L""));
}

TEST_F(RegistryDefaultKeyName, EmptySection_LeavesItsBackslash)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\App\\", Name(App, nullptr, nullptr, L""));
}

TEST_F(RegistryDefaultKeyName, PercentSigns_AreTextAsAnyOther)
{
    EXPECT_EQ(L"SOFTWARE\\100%\\%s%d\\%n%%", Name(App, L"100%", L"%s%d", L"%n%%"));
}

TEST_F(RegistryDefaultKeyName, PercentSignsInTheProgramsName_AreTextAsAnyOther)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\%s 100%", Name(L"\\Windows\\%s 100%.exe", nullptr, nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, SectionWithBackslashes_IsSeveralLevels)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\App\\a\\b", Name(App, nullptr, nullptr, L"a\\b"));
}

TEST_F(RegistryDefaultKeyName, UnicodeTexts_AreTakenAsTheyAre)
{
    EXPECT_EQ(L"SOFTWARE\\\u00C4\\\u30AD\\\xD83D\xDD11", Name(App, L"\u00C4", L"\u30AD", L"\xD83D\xDD11"));
}

TEST_F(RegistryDefaultKeyName, LongTexts_AreNotCut)
{
    const std::wstring product(5000, L'p');
    const std::wstring section(5000, L's');
    EXPECT_TRUE(L"SOFTWARE\\VNT\\" + product + L"\\" + section == Name(App, nullptr, product.c_str(), section.c_str()));
}

TEST_F(RegistryDefaultKeyName, Program_OnADrive)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\meter", Name(L"C:\\Program Files\\A.B\\meter.exe", nullptr, nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, Program_WithSeveralDots)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\App.v2", Name(L"\\Windows\\App.v2.exe", nullptr, nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, Program_WithoutExtension)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\App", Name(L"\\Windows\\App", nullptr, nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, Program_WithBlanksAndUnicode)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\Mess \u00DCber \u30AD", Name(L"\\Mess \u00DCber \u30AD.exe", nullptr, nullptr, nullptr));
}

TEST_F(RegistryDefaultKeyName, Program_IsAskedForInto260Characters)
{
    Name(App, nullptr, nullptr, nullptr);
    EXPECT_EQ(nullptr, g_module);
    EXPECT_EQ(260u, g_room);
}

TEST_F(RegistryDefaultKeyName, Program_IsThatOfTheProcessAndNotTheLibrary)
{
    wchar_t path[MAX_PATH] = {};
    ASSERT_NE(0u, ::GetModuleFileNameW(nullptr, path, MAX_PATH));
    std::wstring program = path;
    program.erase(0, program.rfind(L'\\') + 1);
    program.erase(program.rfind(L'.'));

    ustring name;
    EXPECT_TRUE(RegGetDefaultKeyName(nullptr, nullptr, nullptr, name));
    EXPECT_EQ(ustring(L"SOFTWARE\\VNT\\" + program), name);
}

TEST_F(RegistryDefaultKeyName, ProgramThatCannotBeRead_IsFalseAndEmpty)
{
    g_program = nullptr;
    const CImportPatch patch(&::GetModuleFileNameW, &SayModuleFileName);
    ustring name = L"before";
    EXPECT_FALSE(RegGetDefaultKeyName(L"Company", nullptr, L"Options", name));
    EXPECT_EQ(L"", name);
}

TEST_F(RegistryDefaultKeyName, ProgramThatCannotBeRead_IsNotMissedWhereTheProductIsGiven)
{
    EXPECT_EQ(L"SOFTWARE\\VNT\\Product", Name(nullptr, nullptr, L"Product", nullptr));
}
