// Files that nobody should have written: no crash, no hang, nothing left behind.

#include "ErrorTexts.h"

#include "support/Leaks.h"
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
constexpr std::size_t Million = 1000 * 1000;

std::optional<ustring> LookupWithoutLeak(const std::string& bytes, unsigned long code)
{
    CErrorTexts file(bytes);
    Lookup(code);
    file.Forget();
    const support::CResources before;
    Lookup(code);
    EXPECT_TRUE(file.IsClosed());
    file.Forget();
    EXPECT_EQ(before, support::CResources());
    return Lookup(code);
}
}   // namespace

TEST(DamagedErrorTextFile, TruncatedAtEveryByte_GivesTheLinesThatAreWhole)
{
    const std::wstring first = L"15,\"Fif\\nteen\"\r\n";
    const std::wstring second = L"0x10, Sixteen\r\n";
    const std::string whole = Utf16File(first + second);
    const std::size_t firstEnd = Utf16File(first).size();
    CErrorTexts file(std::nullopt);
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        file.bytes = whole.substr(0, size);
        EXPECT_EQ(size >= firstEnd, Lookup(15) == ustring(L"Fif\nteen")) << size << " bytes";
        EXPECT_EQ(size == whole.size(), Lookup(16) == ustring(L"Sixteen")) << size << " bytes";
        EXPECT_EQ(size >= firstEnd, Lookup(15).has_value()) << size << " bytes";
        EXPECT_EQ(size == whole.size(), Lookup(16).has_value()) << size << " bytes";
    }
    EXPECT_TRUE(file.IsClosed());
}

TEST(DamagedErrorTextFile, WithOneByteOfACharacterAtTheEnd_GivesTheLinesBefore)
{
    EXPECT_EQ(ustring(L"Sixteen"), LookupWithoutLeak(Utf16File(L"16, Sixteen\n") + "\n", 16));
}

TEST(DamagedErrorTextFile, WithHalfALineFeedAtTheEnd_HasNoSuchLine)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(L"16, Sixteen") + "\n", 16));
}

TEST(DamagedErrorTextFile, WithOneByteInFront_IsIgnored)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(" " + Utf16File(L"16, Sixteen\n"), 16));
}

TEST(DamagedErrorTextFile, OfThreeBytes_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(std::string("\xFF\xFE,", 3), 0));
}

TEST(DamagedErrorTextFile, OfNuls_IsIgnored)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(std::string(5000, '\0'), 0));
}

TEST(DamagedErrorTextFile, OfNulsBehindTheMark_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(std::wstring(5000, L'\0')), 0));
}

TEST(DamagedErrorTextFile, WithNulsBeforeALine_ReadsItsCodeAsZero)
{
    const std::string bytes = Utf16File(std::wstring(1000, L'\0') + L"16, Sixteen\n17, Seventeen\n");
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(bytes, 16));
    EXPECT_EQ(ustring(L"Sixteen"), LookupWithoutLeak(bytes, 0));
    EXPECT_EQ(ustring(L"Seventeen"), LookupWithoutLeak(bytes, 17));
}

TEST(DamagedErrorTextFile, WithoutAComma_HasNoText)
{
    std::wstring text;
    for (int i = 0; i < 2000; ++i)
        text += L"16 Sixteen\n";
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(text), 16));
}

TEST(DamagedErrorTextFile, OfCommas_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(std::wstring(5000, L',')), 0));
}

TEST(DamagedErrorTextFile, OfLineFeeds_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(std::wstring(5000, L'\n')), 0));
}

TEST(DamagedErrorTextFile, OfCarriageReturns_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(std::wstring(5000, L'\r')), 0));
}

TEST(DamagedErrorTextFile, OfHalfSurrogates_IsReadAsAnyText)
{
    const std::wstring halves(600, L'\xD800');
    EXPECT_EQ(ustring(halves), LookupWithoutLeak(Utf16File(halves + L"," + halves + L"\n"), 0));
}

TEST(DamagedErrorTextFile, WithAMessageOfTenMegabytes_GivesItWhole)
{
    const std::wstring message(5 * Million, L'm');
    EXPECT_TRUE(LookupWithoutLeak(Utf16File(L"16," + message + L"\n"), 16) == ustring(message));
}

TEST(DamagedErrorTextFile, WithALineOfTenMegabytes_FindsTheLineBehind)
{
    const std::string bytes = Utf16File(L"1," + std::wstring(5 * Million, L'm') + L"\n16, Sixteen\n");
    EXPECT_EQ(ustring(L"Sixteen"), LookupWithoutLeak(bytes, 16));
}

TEST(DamagedErrorTextFile, OfTenMegabytesInOneLineWithoutEnd_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(L"16," + std::wstring(5 * Million, L'm')), 16));
}

TEST(DamagedErrorTextFile, OfTenMegabytesWithoutAComma_HasNoText)
{
    EXPECT_EQ(std::nullopt, LookupWithoutLeak(Utf16File(std::wstring(5 * Million, L'm') + L"\n"), 0));
}

TEST(DamagedErrorTextFile, WithACodeOfTenMegabytes_ReadsItsFirstDigits)
{
    const std::string bytes = Utf16File(L"16" + std::wstring(5 * Million, L'm') + L", Sixteen\n");
    EXPECT_EQ(ustring(L"Sixteen"), LookupWithoutLeak(bytes, 16));
}

TEST(DamagedErrorTextFile, WithAMillionEscapes_MakesThemAllReal)
{
    std::wstring message, expected;
    for (std::size_t i = 0; i < Million / 3; ++i)
    {
        message += L"\\r\\n.\\\"";
        expected += L"\r\n.\"";
    }
    expected.pop_back();   // a quote at the end goes
    EXPECT_TRUE(LookupWithoutLeak(Utf16File(L"16," + message + L"\n"), 16) == ustring(expected));
}
