// A font of which not every value can be written or read.

#include "Calls.h"
#include "OwnKey.h"

#include <vantor/LogFont.h>

#include <algorithm>
#include <cstring>
#include <iterator>

using namespace vantor;
using namespace registry_test;

namespace
{
constexpr const wchar_t* Names[] = {L"lfHeight",         L"lfWidth",        L"lfEscapement",    L"lfOrientation",
                                    L"lfWeight",         L"lfItalic",       L"lfUnderline",     L"lfStrikeOut",
                                    L"lfCharSet",        L"lfOutPrecision", L"lfClipPrecision", L"lfQuality",
                                    L"lfPitchAndFamily", L"lfFaceName"};

class LogFontCalls : public RegistryTest
{
protected:
    CCalls m_calls;
};

// The n-th of the fourteen values, n from 1.
class LogFontFailures : public LogFontCalls, public testing::WithParamInterface<unsigned>
{
};

CLogFont Filled()
{
    LOGFONTW record;
    std::memset(&record, 0x55, sizeof record);
    return record;
}

bool Same(const LOGFONTW& a, const LOGFONTW& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}
}   // namespace

TEST_P(LogFontFailures, WriteThatFails_IsFalse)
{
    m_calls.Fail("RegSetValueEx", GetParam(), ERROR_DISK_FULL);
    EXPECT_FALSE(CLogFont().WriteProfile(m_path));
}

TEST_P(LogFontFailures, WriteThatFails_LeavesTheValuesBeforeItAndNoneBehind)
{
    m_calls.Fail("RegSetValueEx", GetParam(), ERROR_DISK_FULL);
    CLogFont().WriteProfile(m_path);
    for (unsigned number = 1; number <= 14; ++number)
        EXPECT_EQ(number < GetParam(), HasValue(m_path, Names[number - 1])) << "value " << number;
}

TEST_P(LogFontFailures, WriteThatFails_IsTheLast)
{
    m_calls.Fail("RegSetValueEx", GetParam(), ERROR_DISK_FULL);
    CLogFont().WriteProfile(m_path);
    EXPECT_EQ(GetParam(), m_calls.Of("RegSetValueEx").size());
}

TEST_P(LogFontFailures, KeyThatCannotBeOpenedForAValue_IsFalse)
{
    m_calls.Fail("RegCreateKeyEx", GetParam(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(CLogFont().WriteProfile(m_path));
    EXPECT_EQ(GetParam() - 1, m_calls.Of("RegSetValueEx").size());
}

TEST_P(LogFontFailures, WriteThatFails_LeavesNoKeyOpen)
{
    m_calls.Fail("RegSetValueEx", GetParam(), ERROR_DISK_FULL);
    CLogFont().WriteProfile(m_path);
    m_calls.ExpectKeysAreClosed();
}

// Its type and size can be read, its data cannot.
TEST_P(LogFontFailures, ReadThatFails_IsTrueAndLeavesItsFieldAlone)
{
    Filled().WriteProfile(m_path);
    m_calls.Forget();
    m_calls.Fail("RegQueryValueEx", 2 * GetParam(), ERROR_ACCESS_DENIED);
    CLogFont font;
    EXPECT_TRUE(font.GetProfile(m_path));

    CLogFont expected = Filled();
    const std::vector<CCall> queries = m_calls.Of("RegQueryValueEx");
    ASSERT_EQ(28u, queries.size());
    const std::wstring failed = queries[2 * GetParam() - 1].name;
    constexpr std::size_t numbers = 5, bytes = 8;
    const std::size_t at = static_cast<std::size_t>(std::find(std::begin(Names), std::end(Names), failed) - Names);
    auto* const image = reinterpret_cast<unsigned char*>(&expected);
    if (at < numbers)
        std::memset(image + at * sizeof(LONG), 0, sizeof(LONG));
    else if (at < numbers + bytes)
        image[numbers * sizeof(LONG) + at - numbers] = 0;
    else
        std::memset(expected.lfFaceName, 0, sizeof expected.lfFaceName);
    EXPECT_TRUE(Same(expected, font));
}

TEST_P(LogFontFailures, Reading_LeavesNoKeyOpen)
{
    Filled().WriteProfile(m_path);
    m_calls.Fail("RegQueryValueEx", 2 * GetParam(), ERROR_ACCESS_DENIED);
    CLogFont().GetProfile(m_path);
    m_calls.ExpectKeysAreClosed();
}

INSTANTIATE_TEST_SUITE_P(Values, LogFontFailures, testing::Range(1u, 15u));

TEST_F(LogFontCalls, SingleNumber_IsNotWritten)
{
    m_calls.Fail("RegCreateKeyEx", 1, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(CLogFont().WriteProfileInt(m_path, L"v", 7));
}

TEST_F(LogFontCalls, SingleText_IsNotWritten)
{
    m_calls.Fail("RegCreateKeyEx", 1, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(CLogFont().WriteProfileString(m_path, L"v", L"text"));
}

TEST_F(LogFontCalls, SingleNumber_FailsWithItsWrite)
{
    m_calls.Fail("RegSetValueEx", 1, ERROR_DISK_FULL);
    EXPECT_FALSE(CLogFont().WriteProfileInt(m_path, L"v", 7));
}

TEST_F(LogFontCalls, SingleText_FailsWithItsWrite)
{
    m_calls.Fail("RegSetValueEx", 1, ERROR_DISK_FULL);
    EXPECT_FALSE(CLogFont().WriteProfileString(m_path, L"v", L"text"));
}

TEST_F(LogFontCalls, SingleNumberWhoseReadFails_IsTheDefault)
{
    Store(L"v", REG_DWORD, DwordBytes(7));
    m_calls.Fail("RegQueryValueEx", 2, ERROR_ACCESS_DENIED);
    EXPECT_EQ(8, CLogFont().GetProfileInt(m_path, L"v", 8));
}

TEST_F(LogFontCalls, SingleTextWhoseReadFails_IsTheDefault)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    m_calls.Fail("RegQueryValueEx", 2, ERROR_ACCESS_DENIED);
    EXPECT_EQ(L"default", CLogFont().GetProfileString(m_path, L"v", L"default"));
}

TEST_F(LogFontCalls, Values_AreSoughtInTheUsersRoot)
{
    CLogFont().WriteProfile(m_path);
    CLogFont().GetProfile(m_path);
    CLogFont().GetProfileString(m_path, L"v", L"");
    std::vector<CCall> opened = m_calls.Of("RegCreateKeyEx");
    for (const CCall& call : m_calls.Of("RegOpenKeyEx"))
        opened.push_back(call);
    EXPECT_EQ(29u, opened.size());
    for (const CCall& call : opened)
    {
        EXPECT_EQ(HKEY_CURRENT_USER, call.key);
        EXPECT_EQ(m_path, call.name);
    }
}
