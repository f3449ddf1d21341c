// How the lines of the file are read.

#include "ErrorTexts.h"

#include "support/Print.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using errors::CErrorTexts;
using errors::Lookup;
using errors::Utf16File;

namespace
{
std::optional<ustring> LookupIn(const std::wstring& text, unsigned long code)
{
    const CErrorTexts file(Utf16File(text));
    return Lookup(code);
}

std::optional<ustring> LookupInBytes(const std::string& bytes, unsigned long code)
{
    const CErrorTexts file(bytes);
    return Lookup(code);
}

// What becomes of a message.
std::optional<ustring> Message(const std::wstring& text)
{
    return LookupIn(L"7," + text + L"\n", 7);
}
}   // namespace

TEST(ErrorTextFormat, Mark_Missing_MeansNoText)
{
    EXPECT_EQ(std::nullopt, LookupInBytes(support::Utf16(L"16, Sixteen\n16, Sixteen\n"), 16));
}

TEST(ErrorTextFormat, EightBitText_IsIgnored)
{
    EXPECT_EQ(std::nullopt, LookupInBytes("16, Sixteen\n16, Sixteen\n", 16));
}

TEST(ErrorTextFormat, Utf8Text_IsIgnored)
{
    EXPECT_EQ(std::nullopt, LookupInBytes("\xEF\xBB\xBF"
                                          "16, Sixteen\n16, Sixteen\n",
                                          16));
}

TEST(ErrorTextFormat, BigEndianText_IsIgnored)
{
    std::string bytes = Utf16File(L"16, Sixteen\n16, Sixteen\n");
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    EXPECT_EQ(std::nullopt, LookupInBytes(bytes, 16));
}

TEST(ErrorTextFormat, EmptyFile_IsIgnored)
{
    EXPECT_EQ(std::nullopt, LookupInBytes("", 0));
}

TEST(ErrorTextFormat, HalfAMark_IsIgnored)
{
    EXPECT_EQ(std::nullopt, LookupInBytes("\xFF", 0));
}

TEST(ErrorTextFormat, MarkAlone_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupInBytes("\xFF\xFE", 0));
}

TEST(ErrorTextFormat, SecondMark_IsPartOfTheFirstCode)
{
    EXPECT_EQ(std::nullopt, LookupIn(L"\xFEFF"
                                     L"16, Sixteen\n",
                                     16));
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"\xFEFF"
                                            L"16, Sixteen\n",
                                            0));
}

TEST(ErrorTextFormat, Code_IsDecimal)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"15, Fifteen\n16, Sixteen\n17, Seventeen\n", 16));
}

TEST(ErrorTextFormat, Code_WithLeadingZeros_IsDecimal)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"016, Sixteen\n", 16));
}

TEST(ErrorTextFormat, Code_Behind0x_IsHexadecimal)
{
    EXPECT_EQ(ustring(L"Fail"), LookupIn(L"0x80004005, Fail\n", 0x80004005));
}

TEST(ErrorTextFormat, Code_Behind0X_IsHexadecimal)
{
    EXPECT_EQ(ustring(L"Fail"), LookupIn(L"0XaBcD, Fail\n", 0xABCD));
}

TEST(ErrorTextFormat, Code_WithHexadecimalDigitsAlone_IsDecimal)
{
    EXPECT_EQ(ustring(L"One"), LookupIn(L"1F, One\n", 1));
}

TEST(ErrorTextFormat, Code_HighestOfAll_IsFound)
{
    EXPECT_EQ(ustring(L"All"), LookupIn(L"4294967295, All\n", 0xFFFFFFFF));
    EXPECT_EQ(ustring(L"All"), LookupIn(L"0xFFFFFFFF, All\n", 0xFFFFFFFF));
}

TEST(ErrorTextFormat, Code_WithOtherTextBehindIt_CountsAsItsDigits)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"16 (busy), Sixteen\n", 16));
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"0x10h, Sixteen\n", 16));
}

TEST(ErrorTextFormat, Code_Unreadable_IsZero)
{
    EXPECT_EQ(ustring(L"Text"), LookupIn(L"sixteen, Text\n", 0));
}

TEST(ErrorTextFormat, Code_Empty_IsZero)
{
    EXPECT_EQ(ustring(L"Text"), LookupIn(L", Text\n", 0));
}

TEST(ErrorTextFormat, Code_OfAPrefixAlone_IsZero)
{
    EXPECT_EQ(ustring(L"Text"), LookupIn(L"0x, Text\n", 0));
}

TEST(ErrorTextFormat, Code_EndsAtANul)
{
    EXPECT_EQ(ustring(L"One"), LookupIn(std::wstring(L"1\0"
                                                     L"6, One\n",
                                                     9),
                                        1));
}

TEST(ErrorTextFormat, Code_MayHaveSpacesAtBothEnds)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"   16  , Sixteen\n", 16));
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"   0x10  , Sixteen\n", 16));
}

TEST(ErrorTextFormat, FirstLineWithTheCode_Wins)
{
    EXPECT_EQ(ustring(L"Ten"), LookupIn(L"0x10, Ten\n16, Sixteen\n", 16));
}

TEST(ErrorTextFormat, CodeThatIsNotThere_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupIn(L"15, Fifteen\n17, Seventeen\n", 16));
}

TEST(ErrorTextFormat, CodeThatOnlyBeginsLikeTheOther_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupIn(L"160, More\n1, Less\n", 16));
}

TEST(ErrorTextFormat, CarriageReturns_BeforeLineFeedsAreDropped)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"15, Fifteen\r\n16, Sixteen\r\n", 16));
}

TEST(ErrorTextFormat, CarriageReturns_AnywhereAreDropped)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"\r\r1\r6\r,\r Six\r\rteen\r\n\r", 16));
}

TEST(ErrorTextFormat, CarriageReturns_EndNoLine)
{
    EXPECT_EQ(ustring(L"Fifteen16, Sixteen"), LookupIn(L"15, Fifteen\r16, Sixteen\n", 15));
}

TEST(ErrorTextFormat, BlankLines_AreSkipped)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"\n\r\n15, Fifteen\n\n\r\n\n0x10, Sixteen\n", 16));
}

TEST(ErrorTextFormat, LineWithoutAComma_RunsOnIntoTheNext)
{
    const wchar_t text[] = L"note\n0x10, Sixteen\n17, Seventeen\n";
    EXPECT_EQ(std::nullopt, LookupIn(text, 16));
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(text, 0));
    EXPECT_EQ(ustring(L"Seventeen"), LookupIn(text, 17));
}

TEST(ErrorTextFormat, LineWithoutAComma_GivesItsDigitsToTheNext)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupIn(L"5 times\n16, Sixteen\n", 5));
}

TEST(ErrorTextFormat, LastLine_WithoutALineFeed_IsNeverConsidered)
{
    EXPECT_EQ(std::nullopt, LookupIn(L"15, Fifteen\n16, Sixteen", 16));
}

TEST(ErrorTextFormat, LastLine_WithACarriageReturnOnly_IsNeverConsidered)
{
    EXPECT_EQ(std::nullopt, LookupIn(L"15, Fifteen\r\n16, Sixteen\r", 16));
}

TEST(ErrorTextFormat, LastLine_WithoutALineFeedThatFillsItsChunk_IsNeverConsidered)
{
    const std::wstring line = L"16,";
    EXPECT_EQ(std::nullopt, LookupIn(line + std::wstring(256 - line.size(), L'x'), 16));
}

TEST(ErrorTextFormat, Message_GoesFromTheFirstComma)
{
    EXPECT_EQ(ustring(L"one, two,, three"), Message(L" one, two,, three"));
}

TEST(ErrorTextFormat, Message_LosesSpacesAtBothEnds)
{
    EXPECT_EQ(ustring(L"one  two"), Message(L"   one  two  "));
}

TEST(ErrorTextFormat, Message_KeepsTabs)
{
    EXPECT_EQ(ustring(L"\tone\t"), Message(L" \tone\t "));
}

TEST(ErrorTextFormat, Message_MayBeEmpty)
{
    EXPECT_EQ(ustring(), Message(L""));
}

TEST(ErrorTextFormat, Message_OfSpaces_IsEmpty)
{
    EXPECT_EQ(ustring(), Message(L"   "));
}

TEST(ErrorTextFormat, Message_KeepsNuls)
{
    EXPECT_EQ(ustring(std::wstring(L"a\0b", 3)), Message(std::wstring(L"a\0b", 3)));
}

TEST(ErrorTextFormat, Message_KeepsLettersOfEveryScript)
{
    EXPECT_EQ(ustring(L"\x00E4\x0416\x4E2D\xD83D\xDE00\xFFFF\xFEFF"),
              Message(L"\x00E4\x0416\x4E2D\xD83D\xDE00\xFFFF\xFEFF"));
}

TEST(ErrorTextFormat, EscapedCarriageReturn_IsMadeReal)
{
    EXPECT_EQ(ustring(L"one\rtwo\r"), Message(L"one\\rtwo\\r"));
}

TEST(ErrorTextFormat, EscapedLineFeed_IsMadeReal)
{
    EXPECT_EQ(ustring(L"one\ntwo\n"), Message(L"one\\ntwo\\n"));
}

TEST(ErrorTextFormat, EscapedQuote_IsMadeReal)
{
    EXPECT_EQ(ustring(L"say \"no\" now"), Message(L"say \\\"no\\\" now"));
}

TEST(ErrorTextFormat, EscapedBackslash_IsNone)
{
    EXPECT_EQ(ustring(L"a\\\nb\\\\c"), Message(L"a\\\\nb\\\\c"));
}

TEST(ErrorTextFormat, OtherEscapes_AreLeftAlone)
{
    EXPECT_EQ(ustring(L"\\t\\R\\N\\0\\"), Message(L"\\t\\R\\N\\0\\"));
}

TEST(ErrorTextFormat, Quotes_AtBothEndsAreRemoved)
{
    EXPECT_EQ(ustring(L"one"), Message(L"\"one\""));
}

TEST(ErrorTextFormat, Quotes_AtOneEndAreRemoved)
{
    EXPECT_EQ(ustring(L"one"), Message(L"\"one"));
    EXPECT_EQ(ustring(L"one"), Message(L"one\""));
}

TEST(ErrorTextFormat, Quotes_InAnyNumberAreRemoved)
{
    EXPECT_EQ(ustring(L"one"), Message(L"\"\"\"one\"\""));
}

TEST(ErrorTextFormat, Quotes_InsideAreKept)
{
    EXPECT_EQ(ustring(L"say \"no\" now"), Message(L"\"say \"no\" now\""));
}

TEST(ErrorTextFormat, Quotes_Alone_AreAnEmptyMessage)
{
    EXPECT_EQ(ustring(), Message(L"\"\""));
}

TEST(ErrorTextFormat, Quotes_ProtectSpaces)
{
    EXPECT_EQ(ustring(L"  one "), Message(L"  \"  one \"  "));
}

TEST(ErrorTextFormat, Quotes_DoNotSpanLines)
{
    EXPECT_EQ(ustring(L"one"), LookupIn(L"7,\"one\n8,two\"\n", 7));
    EXPECT_EQ(ustring(L"two"), LookupIn(L"7,\"one\n8,two\"\n", 8));
}

TEST(ErrorTextFormat, EscapedQuotes_AtTheEndsAreRemovedToo)
{
    EXPECT_EQ(ustring(L"one"), Message(L"\"\\\"one\\\"\""));
}

TEST(ErrorTextFormat, QuotedMessage_EndsInARealLineBreak)
{
    EXPECT_EQ(ustring(L"The receiver is busy.\r\n"), Message(L" \"The receiver is busy.\\r\\n\""));
}
