// Writing to a log: records, their lines, their bytes.

#include "log/Log.h"

using namespace vantor;
using log_test::CFixedClock;
using log_test::CTexts;
using log_test::Records;
using log_test::Texts;
using support::CImportPatch;
using support::CTempFolder;
using support::ReadBytes;
using support::Utf16;

namespace
{
int g_ticks;

void WINAPI TickingClock(SYSTEMTIME* time)
{
    *time = {2013, 3, 2, 5, 14, 7, static_cast<WORD>(g_ticks++), 0};
}

BOOL WINAPI UnsupportedLock(HANDLE, DWORD, DWORD, DWORD, DWORD, OVERLAPPED*)
{
    ::SetLastError(ERROR_NOT_SUPPORTED);
    return FALSE;
}

class LogFileWrite : public testing::Test
{
protected:
    ~LogFileWrite() noexcept override {}

    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    CLogFile m_log;

    void SetUp() override { ASSERT_TRUE(m_log.Open(m_path.c_str())); }

    CTexts Written() const { return Texts(m_path); }
    std::string Bytes() const { return ReadBytes(m_path.c_str()); }
};
}   // namespace

TEST_F(LogFileWrite, OneLine_MarkAndRecordToTheByte)
{
    const CFixedClock clock;
    ASSERT_TRUE(m_log.Write(L"text"));
    EXPECT_EQ(Utf16(L"\uFEFF[2013/March/05, 14:07:00] text\r\n"), Bytes());
}

TEST_F(LogFileWrite, SeveralMessages_StandInTheirOrder)
{
    for (int number = 0; number < 5; ++number)
        ASSERT_TRUE(m_log.Write(L"%d", number));
    EXPECT_EQ((CTexts{"0", "1", "2", "3", "4"}), Written());
}

TEST_F(LogFileWrite, BlankLineBetweenTwo_TwoRecords)
{
    const CFixedClock clock;
    ASSERT_TRUE(m_log.Write(L"a\r\n\r\nb"));
    EXPECT_EQ(Utf16(L"\uFEFF[2013/March/05, 14:07:00] a\r\n[2013/March/05, 14:07:00] b\r\n"), Bytes());
}

TEST_F(LogFileWrite, LinesOfAMessage_HaveOneStampThoughTheClockGoesOn)
{
    const CImportPatch patch(&::GetLocalTime, &TickingClock);
    ASSERT_TRUE(m_log.Write(L"a\nb\nc"));
    const auto records = Records(m_path);
    ASSERT_EQ(3u, records.size());
    EXPECT_TRUE(records[0].stamp == records[1].stamp && records[1].stamp == records[2].stamp);
}

TEST_F(LogFileWrite, TwoMessages_HaveAStampEach)
{
    const CFixedClock clock;
    ASSERT_TRUE(m_log.Write(L"a"));
    CFixedClock::Now.wSecond = 1;
    ASSERT_TRUE(m_log.Write(L"b"));
    EXPECT_EQ(Utf16(L"\uFEFF[2013/March/05, 14:07:00] a\r\n[2013/March/05, 14:07:01] b\r\n"), Bytes());
}

TEST_F(LogFileWrite, EmptyMessage_WritesNothing)
{
    EXPECT_TRUE(m_log.Write(L""));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, MessageThatFormatsToNothing_WritesNothing)
{
    EXPECT_TRUE(m_log.Write(L"%s", L""));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, BlankLinesAlone_WriteNothing)
{
    EXPECT_TRUE(m_log.Write(L"\n\n"));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, CarriageReturnsAlone_WriteNothing)
{
    EXPECT_TRUE(m_log.Write(L"\r\r\n\r"));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, NullFormat_IsTheEmptyMessage)
{
    const wchar_t* const none = nullptr;
    EXPECT_TRUE(m_log.Write(none));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, LineEndAtTheEnd_NoEmptyRecord)
{
    ASSERT_TRUE(m_log.Write(L"a\n"));
    EXPECT_EQ(CTexts{"a"}, Written());
}

TEST_F(LogFileWrite, LineEndAtTheStart_NoEmptyRecord)
{
    ASSERT_TRUE(m_log.Write(L"\r\na"));
    EXPECT_EQ(CTexts{"a"}, Written());
}

TEST_F(LogFileWrite, CarriageReturnInALine_IsRemovedAndDoesNotSplit)
{
    ASSERT_TRUE(m_log.Write(L"a\rb\r\r"));
    EXPECT_EQ(CTexts{"ab"}, Written());
}

TEST_F(LogFileWrite, LineOfBlanks_IsARecord)
{
    ASSERT_TRUE(m_log.Write(L"a\n  \nb"));
    EXPECT_EQ((CTexts{"a", "  ", "b"}), Written());
}

TEST_F(LogFileWrite, BlanksAndTabs_AreKept)
{
    ASSERT_TRUE(m_log.Write(L"\t a b \t"));
    EXPECT_EQ(CTexts{"\t a b \t"}, Written());
}

TEST_F(LogFileWrite, LineEndsInAnArgument_SplitAsWell)
{
    ASSERT_TRUE(m_log.Write(L"reply: %s", L"one\r\ntwo\r\n"));
    EXPECT_EQ((CTexts{"reply: one", "two"}), Written());
}

TEST_F(LogFileWrite, PercentInAnArgument_IsNotFormattedAgain)
{
    ASSERT_TRUE(m_log.Write(L"%s", L"100%d %s%%"));
    EXPECT_EQ(CTexts{"100%d %s%%"}, Written());
}

TEST_F(LogFileWrite, TextThatLooksLikeAStamp_IsText)
{
    ASSERT_TRUE(m_log.Write(L"[2013/March/05, 14:07:00] x"));
    EXPECT_EQ(CTexts{"[2013/March/05, 14:07:00] x"}, Written());
}

TEST_F(LogFileWrite, MessageOf5000Characters_IsWhole)
{
    const std::wstring text(5000, L'x');
    ASSERT_TRUE(m_log.Write(text.c_str()));
    EXPECT_EQ(CTexts{std::string(5000, 'x')}, Written());
}

TEST_F(LogFileWrite, ArgumentOf5000Characters_IsWhole)
{
    const std::wstring text(5000, L'x');
    ASSERT_TRUE(m_log.Write(L"<%s>", text.c_str()));
    EXPECT_EQ(CTexts{"<" + std::string(5000, 'x') + ">"}, Written());
}

// Around the size at which a message no longer fits the first attempt at formatting.
TEST_F(LogFileWrite, MessagesOfAboutAThousandCharacters_AreWhole)
{
    CTexts expected;
    for (const std::size_t length : {1022u, 1023u, 1024u, 1025u, 1026u, 2047u, 2048u, 2049u})
    {
        ASSERT_TRUE(m_log.Write(L"%s", std::wstring(length, L'x').c_str()));
        expected.emplace_back(length, 'x');
    }
    EXPECT_EQ(expected, Written());
}

TEST_F(LogFileWrite, MessageOf100000Lines_IsWhole)
{
    std::wstring text;
    for (int line = 0; line < 100000; ++line)
        text += L"x\n";
    ASSERT_TRUE(m_log.Write(L"%s", text.c_str()));
    EXPECT_EQ(100000u, Written().size());
}

TEST_F(LogFileWrite, SmallS_IsWide)
{
    ASSERT_TRUE(m_log.Write(L"%s", L"wide"));
    EXPECT_EQ(CTexts{"wide"}, Written());
}

TEST_F(LogFileWrite, LargeS_IsNarrow)
{
    ASSERT_TRUE(m_log.Write(L"%S", "narrow"));
    EXPECT_EQ(CTexts{"narrow"}, Written());
}

TEST_F(LogFileWrite, Arguments_OfSeveralKinds)
{
    ASSERT_TRUE(m_log.Write(L"%d %u %04X %c %.2f %s %S %%", -1, 2u, 0xABCu, L'c', 0.25, L"w", "n"));
    EXPECT_EQ(CTexts{"-1 2 0ABC c 0.25 w n %"}, Written());
}

TEST_F(LogFileWrite, CharactersBeyondAscii_AreUtf16)
{
    const CFixedClock clock;
    ASSERT_TRUE(m_log.Write(L"%s", L"\u00E4 \u65E5 \U0001F600"));
    EXPECT_EQ(Utf16(L"\uFEFF[2013/March/05, 14:07:00] \u00E4 \u65E5 \U0001F600\r\n"), Bytes());
}

TEST_F(LogFileWrite, OtherLineSeparators_DoNotSplit)
{
    const CFixedClock clock;
    ASSERT_TRUE(m_log.Write(L"%s", L"a\u2028b\u0085c\vd\fe"));
    EXPECT_EQ(Utf16(L"\uFEFF[2013/March/05, 14:07:00] a\u2028b\u0085c\vd\fe\r\n"), Bytes());
}

TEST_F(LogFileWrite, FrameOfEveryByte_AsHexadecimal)
{
    ASSERT_TRUE(m_log.Write(L"sent %S", CLogFile::Bin2Hex("\x02*\xFF\x03", 4).c_str()));
    EXPECT_EQ(CTexts{"sent 02 2A FF 03"}, Written());
}

TEST_F(LogFileWrite, FrameOfControlCharacters_AsOneRecord)
{
    ASSERT_TRUE(m_log.Write(L"sent %S", CLogFile::Bin2Str("\x02*IDN?\r\n\x03", 8).c_str()));
    EXPECT_EQ(CTexts{"sent $*IDN?$$"}, Written());
}

// Another writer may have moved the end, or a user of the file the position.
TEST_F(LogFileWrite, PositionElsewhere_AppendsAllTheSame)
{
    ASSERT_TRUE(m_log.Write(L"one"));
    m_log.Seek(2, FILE_BEGIN);
    ASSERT_TRUE(m_log.Write(L"two"));
    EXPECT_EQ((CTexts{"one", "two"}), Written());
}

TEST_F(LogFileWrite, TwoLogsOnOneFile_TakeTurns)
{
    CLogFile other;
    ASSERT_TRUE(other.Open(m_path.c_str()));
    m_log.Write(L"one");
    other.Write(L"two");
    m_log.Write(L"three");
    other.Write(L"four");
    EXPECT_EQ((CTexts{"one", "two", "three", "four"}), Written());
}

TEST_F(LogFileWrite, WithoutLocksOfTheFileSystem_WritesAllTheSame)
{
    const CImportPatch patch(&::LockFileEx, &UnsupportedLock);
    EXPECT_TRUE(m_log.Write(L"text"));
    EXPECT_EQ(CTexts{"text"}, Written());
}

// What a lost battery may leave. The half character is completed, so that what follows can be read.
TEST_F(LogFileWrite, FileThatEndsInHalfACharacter_TheNextRecordIsReadable)
{
    const CFixedClock clock;
    const std::string cut = Utf16(L"\uFEFF[2012/May/01, 08:00:00] ol") + 'd';
    const ustring path = m_folder.Write(L"cut.log", cut);
    ASSERT_TRUE(m_log.Open(path.c_str()));
    ASSERT_TRUE(m_log.Write(L"new"));
    EXPECT_EQ(cut + '\0' + Utf16(L"[2013/March/05, 14:07:00] new\r\n"), ReadBytes(path.c_str()));
}

TEST_F(LogFileWrite, FileThatEndsInHalfACharacter_AnEmptyMessageLeavesItSo)
{
    const ustring path = m_folder.Write(L"cut.log", "\xFF\xFE[");
    ASSERT_TRUE(m_log.Open(path.c_str()));
    ASSERT_TRUE(m_log.Write(L""));
    EXPECT_EQ("\xFF\xFE[", ReadBytes(path.c_str()));
}

TEST_F(LogFileWrite, NeverOpened_False)
{
    CLogFile log;
    EXPECT_FALSE(log.Write(L"text"));
}

TEST_F(LogFileWrite, Closed_FalseAndNothingIsWritten)
{
    m_log.Close();
    EXPECT_FALSE(m_log.Write(L"text"));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, AfterAFailedOpen_FalseAndNothingIsWritten)
{
    ASSERT_FALSE(m_log.Open(m_folder.File(L"missing\\x.log").c_str()));
    EXPECT_FALSE(m_log.Write(L"text"));
    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(LogFileWrite, FormatIsNotTouched_WhenTheLogIsClosed)
{
    m_log.Close();
    EXPECT_FALSE(m_log.Write(L"%s", reinterpret_cast<const wchar_t*>(1)));   // formatted, it would end the program
}
