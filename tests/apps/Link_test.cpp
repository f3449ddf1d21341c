#include "Loopback.h"

#include <deque>

namespace
{
using namespace vantor;
using loopback::ErrorOf;

// What comes in is written down beforehand, piece by piece.
class CScript : public link::CLink
{
public:
    explicit CScript(std::deque<std::string> pieces) : m_pieces(std::move(pieces)) {}
    ~CScript() noexcept(false) override {}

    std::string Receive(unsigned long time) override
    {
        if (m_pieces.empty())
        {
            ::Sleep(time);
            return std::string();
        }
        std::string piece = std::move(m_pieces.front());
        m_pieces.pop_front();
        return piece;
    }

    void Send(const std::string& bytes) override { sent += bytes; }
    void Drop() override {}

    std::string sent;

private:
    std::deque<std::string> m_pieces;
};

// All lines that come, until the time is up.
std::vector<std::string> Lines(std::deque<std::string> pieces)
{
    CScript script(std::move(pieces));
    link::CLines lines(script);
    std::vector<std::string> all;
    for (std::string line; lines.Receive(line, 1);)
        all.push_back(line);
    return all;
}

using CTexts = std::vector<std::string>;

TEST(Lines, Receive_LineInOnePiece_ComesWithoutItsEnd)
{
    EXPECT_EQ(Lines({"OK 1\r\n"}), CTexts{"OK 1"});
}

TEST(Lines, Receive_LineInSeveralPieces_ComesWhole)
{
    EXPECT_EQ(Lines({"O", "K 1", "\r", "\n"}), CTexts{"OK 1"});
}

TEST(Lines, Receive_SeveralLinesInOnePiece_ComeOneByOne)
{
    EXPECT_EQ(Lines({"a\r\n\r\nb\r\n"}), (CTexts{"a", "", "b"}));
}

TEST(Lines, Receive_LineFeedAlone_EndsALine)
{
    EXPECT_EQ(Lines({"a\nb\n"}), (CTexts{"a", "b"}));
}

TEST(Lines, Receive_CarriageReturnWithinALine_BelongsToIt)
{
    EXPECT_EQ(Lines({"a\rb\r\n"}), CTexts{"a\rb"});
}

TEST(Lines, Receive_ZeroBytes_BelongToTheLine)
{
    EXPECT_EQ(Lines({std::string("a\0b\r\n", 5)}), CTexts{std::string("a\0b", 3)});
}

TEST(Lines, Receive_HalfALine_IsKeptForLater)
{
    CScript script({"OK", "", " 1\r\n"});
    link::CLines lines(script);
    std::string line;
    EXPECT_FALSE(lines.Receive(line, 0));
    EXPECT_TRUE(lines.Receive(line, 0));
    EXPECT_EQ(line, "OK 1");
}

TEST(Lines, Receive_NothingComes_IsFalse)
{
    CScript script({});
    std::string line;
    EXPECT_FALSE(link::CLines(script).Receive(line, 1));
}

TEST(Lines, Receive_TimeIsUpAlready_TakesWhatIsThere)
{
    CScript script({"OK\r\n"});
    std::string line;
    EXPECT_TRUE(link::CLines(script).Receive(line, 0));
    EXPECT_EQ(line, "OK");
}

TEST(Lines, Receive_LineOf4096BytesWithItsCarriageReturn_IsTaken)
{
    const std::string longest(4095, 'x');
    EXPECT_EQ(Lines({longest, "\r\n"}), CTexts{longest});
}

TEST(Lines, Receive_LongerLineWithoutItsEnd_IsInvalid)
{
    CScript script({std::string(4096, 'x'), "xx"});
    link::CLines lines(script);
    std::string line;
    EXPECT_EQ(ErrorOf([&] { lines.Receive(line, 1); }), static_cast<unsigned long>(ERROR_INVALID_DATA));
}

TEST(Lines, Receive_LongerLineWithItsEnd_IsInvalid)
{
    CScript script({std::string(3000, 'x'), std::string(3000, 'x') + "\r\n"});
    link::CLines lines(script);
    std::string line;
    EXPECT_EQ(ErrorOf([&] { lines.Receive(line, 1); }), static_cast<unsigned long>(ERROR_INVALID_DATA));
}

TEST(Lines, Receive_AfterALongerLine_ItsRestIsForgotten)
{
    CScript script({std::string(5000, 'x'), "the rest\r\n", "OK\r\n"});
    link::CLines lines(script);
    std::string line;
    EXPECT_NE(ErrorOf([&] { lines.Receive(line, 1); }), 0UL);
    EXPECT_TRUE(lines.Receive(line, 1));
    EXPECT_EQ(line, "OK");
}

TEST(Lines, Send_EndsTheLine)
{
    CScript script({});
    link::CLines(script).Send("ident");
    EXPECT_EQ(script.sent, "ident\r\n");
}

TEST(Left, TimeHasNotBegunToPass_IsAllOfIt)
{
    EXPECT_GE(link::Left(::GetTickCount(), 100000), 50000UL);
}

TEST(Left, TimeIsOver_IsZero)
{
    EXPECT_EQ(link::Left(::GetTickCount() - 1000, 1000), 0UL);
}

TEST(Left, CounterHasWrapped_IsNoTimeLeftToo)
{
    // Began a moment before the counter's end, as seen from its start: minutes ago, not seven weeks ahead.
    EXPECT_EQ(link::Left(::GetTickCount() + 0x80000000U, 1000), 0UL);
}

TEST(Describe, SystemsFailure_IsSourceWordsAndPlace)
{
    wchar_t message[256] = {};
    ASSERT_NE(::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_FILE_NOT_FOUND, 0, message, 256, nullptr),
              0U);
    std::string words = ustring::WideCharToMultiByte(message, CP_UTF8, 0);
    words.erase(words.find_last_not_of("\r\n ") + 1);
    EXPECT_EQ(link::Describe(CWinException(41, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND)),
              "Win32: " + words + " (CreateFile)");
}

TEST(Describe, ReceiversReply_IsTheTextForTheUser)
{
    EXPECT_EQ(link::Describe(CCommException(1, L".\\Test", L"Ask", L"{2,,dup loop}", L"Receiver")),
              "Receiver: Dup loop (Ask)");
}

TEST(OpenPort, PortThatIsNotThere_IsNotFound)
{
    CEvent cancel(nullptr, TRUE, FALSE, nullptr);
    EXPECT_EQ(ErrorOf([&] { link::OpenPort(L"\\\\.\\COM254", 115200, cancel); }),
              static_cast<unsigned long>(ERROR_FILE_NOT_FOUND));
}
}   // namespace
