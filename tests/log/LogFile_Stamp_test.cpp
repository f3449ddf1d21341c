// The time stamp of the records.

#include "log/Log.h"

#include <cstdio>

using namespace vantor;
using log_test::CFixedClock;
using log_test::CTexts;
using support::CImportPatch;
using support::CTempFolder;

namespace
{
void WINAPI AnotherTime(SYSTEMTIME* time)
{
    *time = {1999, 12, 5, 31, 23, 59, 58, 0};
}

class LogFileStamp : public testing::Test
{
protected:
    ~LogFileStamp() noexcept override {}

    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    CLogFile m_log;
    const CFixedClock m_clock;

    void SetUp() override { ASSERT_TRUE(m_log.Open(m_path.c_str())); }

    // The stamps of the file, one for each record.
    CTexts Stamps() const
    {
        CTexts stamps;
        for (const log_test::CRecord& record : log_test::Records(m_path))
            stamps.emplace_back(record.stamp.begin(), record.stamp.end());
        return stamps;
    }

    std::string StampOf(const SYSTEMTIME& time)
    {
        CFixedClock::Now = time;
        m_log.Write(L"x");
        const CTexts stamps = Stamps();
        return stamps.empty() ? "" : stamps.back();
    }
};
}   // namespace

TEST_F(LogFileStamp, Afternoon)
{
    EXPECT_EQ("2013/March/05, 14:07:00", StampOf({2013, 3, 2, 5, 14, 7, 0, 0}));
}

TEST_F(LogFileStamp, Midnight_IsHourZero)
{
    EXPECT_EQ("2013/March/05, 00:00:00", StampOf({2013, 3, 2, 5, 0, 0, 0, 0}));
}

TEST_F(LogFileStamp, LastSecondOfADay_HasNoMilliseconds)
{
    EXPECT_EQ("2012/December/31, 23:59:59", StampOf({2012, 12, 1, 31, 23, 59, 59, 999}));
}

TEST_F(LogFileStamp, LeapDay)
{
    EXPECT_EQ("2012/February/29, 09:08:07", StampOf({2012, 2, 3, 29, 9, 8, 7, 0}));
}

TEST_F(LogFileStamp, EveryMonth_ByItsFullEnglishName)
{
    for (WORD month = 1; month <= 12; ++month)
        StampOf({2014, month, 0, 1, 12, 30, 0, 0});
    const CTexts expected = {"2014/January/01, 12:30:00", "2014/February/01, 12:30:00", "2014/March/01, 12:30:00",
                             "2014/April/01, 12:30:00",   "2014/May/01, 12:30:00",      "2014/June/01, 12:30:00",
                             "2014/July/01, 12:30:00",    "2014/August/01, 12:30:00",   "2014/September/01, 12:30:00",
                             "2014/October/01, 12:30:00", "2014/November/01, 12:30:00", "2014/December/01, 12:30:00"};
    EXPECT_EQ(expected, Stamps());
}

TEST_F(LogFileStamp, IsTheLocalTime_NotTheUniversal)
{
    const CImportPatch patch(&::GetSystemTime, &AnotherTime);
    EXPECT_EQ("2013/March/05, 14:07:00", StampOf({2013, 3, 2, 5, 14, 7, 0, 0}));
}

TEST_F(LogFileStamp, LanguageOfTheThread_DoesNotMatter)
{
    const LCID old = ::GetThreadLocale();
    ASSERT_TRUE(::SetThreadLocale(1031));
    EXPECT_EQ("2013/March/05, 14:07:00", StampOf({2013, 3, 2, 5, 14, 7, 0, 0}));
    ::SetThreadLocale(old);
}
