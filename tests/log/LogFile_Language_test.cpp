// The stamp in a program whose user speaks another language and lives elsewhere: LC_ALL and TZ say where
// (CMakeLists.txt).

#include "log/Log.h"

#include <cstdlib>

using namespace vantor;
using support::CTempFolder;

namespace
{
class LogFileLanguage : public testing::Test
{
protected:
    ~LogFileLanguage() noexcept override {}

    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    CLogFile m_log;

    void SetUp() override
    {
        const char* const name = std::getenv("LC_ALL");
        const std::pair<const char*, LCID> languages[] = {
            {"de_DE.UTF-8", 1031}, {"fr_FR.UTF-8", 1036}, {"ja_JP.UTF-8", 1041}, {"hi_IN.UTF-8", 1081}};
        LCID expected = 0;
        for (const auto& language : languages)
        {
            if (name && std::string(name) == language.first)
                expected = language.second;
        }
        ASSERT_EQ(expected, ::GetUserDefaultLCID()) << "the system did not take the language";
        ASSERT_TRUE(m_log.Open(m_path.c_str()));
    }
};

// The stamp that a moment has to have.
std::wstring Stamp(const SYSTEMTIME& time)
{
    wchar_t text[64];
    std::swprintf(text, 64, L"%04d/%ls/%02d, %02d:%02d:%02d", time.wYear, log_test::Months[time.wMonth - 1], time.wDay,
                  time.wHour, time.wMinute, time.wSecond);
    return text;
}
}   // namespace

TEST_F(LogFileLanguage, Months_AreEnglish)
{
    const log_test::CFixedClock clock;
    std::vector<std::wstring> expected;
    for (WORD month = 1; month <= 12; ++month)
    {
        log_test::CFixedClock::Now.wMonth = month;
        expected.push_back(Stamp(log_test::CFixedClock::Now));
        m_log.Write(L"x");
    }
    const auto records = log_test::Records(m_path);
    ASSERT_EQ(12u, records.size());
    for (std::size_t month = 0; month < 12; ++month)
        EXPECT_TRUE(records[month].stamp == expected[month]) << "month " << month + 1;
}

TEST_F(LogFileLanguage, Time_IsThatOfTheUsersZone)
{
    SYSTEMTIME before, after, universal;
    do   // until no second ends meanwhile
    {
        ::GetLocalTime(&before);
        m_log.Write(L"x");
        ::GetLocalTime(&after);
    } while (before.wSecond != after.wSecond);
    ::GetSystemTime(&universal);
    ASSERT_NE(before.wHour, universal.wHour) << "TZ names no zone elsewhere";

    const auto records = log_test::Records(m_path);
    ASSERT_FALSE(records.empty());
    EXPECT_TRUE(records.back().stamp == Stamp(before));
}
