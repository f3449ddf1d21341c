// The platform's own registry tool writes what the library reads, and reads what the library writes.

#include "OwnKey.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

using namespace vantor;
using namespace registry_test;

namespace
{
const HKEY User = HKEY_CURRENT_USER;

class RegistryTool : public RegistryTest
{
protected:
    static std::string Run(const std::wstring& arguments)
    {
        const CChildProcess tool(L"reg.exe " + arguments);
        EXPECT_EQ(0u, tool.exitCode) << tool.output;
        return tool.output;
    }

    void Add(const std::wstring& arguments) const
    {
        Run(L"add \"HKCU\\" + std::wstring(m_path) + L"\" /f " + arguments);
    }

    // The line of the query that tells of the value, its blanks as one.
    std::string Query(const std::string& name) const
    {
        const std::string output =
            Run(L"query \"HKCU\\" + std::wstring(m_path) + L"\" /v " + std::wstring(name.begin(), name.end()));
        std::string line;
        for (const char ch : output.substr(output.find("    " + name)))
        {
            if (ch == '\r' || ch == '\n')
                break;
            if (ch != ' ' || (!line.empty() && line.back() != ' '))
                line += ch;
        }
        return line;
    }

    ustring Text(const wchar_t* name) const
    {
        ustring text;
        EXPECT_TRUE(RegGetValue(User, m_path, name, text, L"default"));
        return text;
    }
};
}   // namespace

// ---- Written by the tool

TEST_F(RegistryTool, TextOfTheTool_IsRead)
{
    Add(L"/v v /t REG_SZ /d \"a text\"");
    EXPECT_EQ(L"a text", Text(L"v"));
}

TEST_F(RegistryTool, EmptyTextOfTheTool_IsRead)
{
    Add(L"/v v /t REG_SZ");
    EXPECT_EQ(L"", Text(L"v"));
}

TEST_F(RegistryTool, UnicodeTextOfTheTool_IsRead)
{
    Add(L"/v \u30AD\u00E4 /t REG_SZ /d \"\u00DCber \xD83D\xDD11\"");
    EXPECT_EQ(L"\u00DCber \xD83D\xDD11", Text(L"\u30AD\u00E4"));
}

TEST_F(RegistryTool, ExpandableTextOfTheTool_IsReadUnexpanded)
{
    Add(L"/v v /t REG_EXPAND_SZ /d \"%windir%\\x\"");
    EXPECT_EQ(L"%windir%\\x", Text(L"v"));
}

TEST_F(RegistryTool, UnnamedTextOfTheTool_IsRead)
{
    Add(L"/ve /t REG_SZ /d unnamed");
    EXPECT_EQ(L"unnamed", Text(nullptr));
}

TEST_F(RegistryTool, NumberOfTheTool_IsRead)
{
    Add(L"/v v /t REG_DWORD /d 4000000000");
    unsigned long number = 0;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", number, 0));
    EXPECT_EQ(4000000000u, number);
}

TEST_F(RegistryTool, BytesOfTheTool_AreRead)
{
    Add(L"/v v /t REG_BINARY /d 00ff107f80");
    Bytes bytes;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", bytes));
    EXPECT_EQ((Bytes{0x00, 0xFF, 0x10, 0x7F, 0x80}), bytes);
}

TEST_F(RegistryTool, SeveralTextsOfTheTool_AreNoText)
{
    Add(L"/v v /t REG_MULTI_SZ /d \"one\\0two\"");
    ustring text;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", text, L"default"));
    EXPECT_EQ(L"default", text);
}

TEST_F(RegistryTool, NamesOfTheTool_AreListed)
{
    Add(L"/v one /t REG_SZ /d x");
    Texts names;
    EXPECT_TRUE(RegEnumValues(User, m_path, names));
    EXPECT_EQ(Texts{L"one"}, names);
}

// ---- Read by the tool

TEST_F(RegistryTool, WrittenText_IsShownByTheTool)
{
    RegWriteValue(User, m_path, L"v", L"a text");
    EXPECT_EQ("v REG_SZ a text", Query("v"));
}

TEST_F(RegistryTool, WrittenNumber_IsShownByTheTool)
{
    RegWriteValue(User, m_path, L"v", 4000000000UL);
    EXPECT_EQ("v REG_DWORD 0xee6b2800", Query("v"));
}

TEST_F(RegistryTool, WrittenTextWithPercentSigns_IsPlainTextToTheTool)
{
    RegWriteValue(User, m_path, L"v", L"%windir%");
    EXPECT_EQ("v REG_SZ %windir%", Query("v"));
}

TEST_F(RegistryTool, WrittenUnicode_IsExportedByTheTool)
{
    const support::CTempFolder folder;
    const ustring file = folder.File(L"x.reg");
    RegWriteValue(User, m_path, L"\u30AD\u00E4", L"\u00DCber \xD83D\xDD11");
    Run(L"export \"HKCU\\" + std::wstring(m_path) + L"\" \"" + file + L"\" /y");
    EXPECT_NE(std::string::npos,
              support::ReadBytes(file.c_str()).find(Utf16(L"\r\n\"\u30AD\u00E4\"=\"\u00DCber \xD83D\xDD11\"\r\n")));
}

TEST_F(RegistryTool, DeletedValue_IsMissedByTheTool)
{
    Add(L"/v v /t REG_SZ /d text");
    vantor::RegDeleteValueW(User, m_path, L"v");
    const CChildProcess tool(L"reg.exe query \"HKCU\\" + std::wstring(m_path) + L"\" /v v");
    EXPECT_NE(0u, tool.exitCode) << tool.output;
}
