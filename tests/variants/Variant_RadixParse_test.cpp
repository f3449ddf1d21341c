// Digits to integers: a number in some base, in 32 bits, handed on as a VT_I4.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <climits>
#include <cwctype>
#include <random>

using namespace variants;
using vantor::VariantChangeType;

namespace
{
constexpr VARTYPE SignedTypes[] = {VT_I1, VT_I2, VT_I4, VT_INT};
constexpr VARTYPE UnsignedTypes[] = {VT_UI1, VT_UI2, VT_UI4, VT_UINT};
constexpr VARTYPE IntegerTypes[] = {VT_I1, VT_I2, VT_I4, VT_INT, VT_UI1, VT_UI2, VT_UI4, VT_UINT};
constexpr int Radixes[] = {2, 8, 10, 16, 36};

bool IsUnsigned(VARTYPE vt)
{
    return vt == VT_UI1 || vt == VT_UI2 || vt == VT_UI4 || vt == VT_UINT;
}

long long IntegerOf(const VARIANT& v)
{
    switch (v.vt)
    {
    case VT_I1:
        return static_cast<signed char>(v.cVal);
    case VT_I2:
        return v.iVal;
    case VT_I4:
        return v.lVal;
    case VT_INT:
        return v.intVal;
    case VT_UI1:
        return v.bVal;
    case VT_UI2:
        return v.uiVal;
    case VT_UI4:
        return v.ulVal;
    case VT_UINT:
        return v.uintVal;
    default:
        ADD_FAILURE() << Describe(v) << " is no integer";
        return 0;
    }
}

bool FitsSigned(long value, VARTYPE vt)
{
    switch (vt)
    {
    case VT_I1:
        return value >= -128 && value <= 127;
    case VT_I2:
        return value >= -32768 && value <= 32767;
    default:
        return true;
    }
}

void ExpectInteger(long long expected, VARTYPE vt, const wchar_t* text, int base)
{
    CVariant v = String(text);
    const std::string before = Describe(v);
    EXPECT_TRUE(VariantChangeType(UsEnglish, vt, v, base)) << before << " to " << vt << " by " << base;
    EXPECT_EQ(vt, v.vt) << before << " by " << base;
    EXPECT_EQ(expected, IntegerOf(v)) << before << " to " << vt << " by " << base;
}

// Fails, and v is of the type `left` then.
void ExpectFailure(long long expected, VARTYPE left, VARTYPE vt, const wchar_t* text, int base)
{
    CVariant v = String(text);
    const std::string before = Describe(v);
    EXPECT_FALSE(VariantChangeType(UsEnglish, vt, v, base)) << before << " to " << vt << " by " << base;
    EXPECT_EQ(left, v.vt) << before << " by " << base;
    EXPECT_EQ(expected, IntegerOf(v)) << before << " to " << vt << " by " << base;
}

// The number that was read is what the platform makes of it as a VT_I4; where the platform refuses, it stays one.
void ExpectAsThePlatformConverts(long read, VARTYPE vt, const std::wstring& text, int base, bool whole = true)
{
    CVariant expected = I4(read);
    const bool fits = SUCCEEDED(::VariantChangeTypeEx(&expected, &expected, UsEnglish, VARIANT_ALPHABOOL, vt));
    if (fits && whole)
        ExpectInteger(IntegerOf(expected), vt, text.c_str(), base);
    else
        ExpectFailure(IntegerOf(expected), expected.vt, vt, text.c_str(), base);
}

std::wstring Digits(unsigned long value, unsigned base)
{
    std::wstring text;
    do
    {
        text.insert(text.begin(), L"0123456789abcdefghijklmnopqrstuvwxyz"[value % base]);
        value /= base;
    } while (value != 0);
    return text;
}

std::wstring SignedDigits(long value, unsigned base)
{
    return value < 0 ? L"-" + Digits(0UL - static_cast<unsigned long>(value), base)
                     : Digits(static_cast<unsigned long>(value), base);
}

struct SParsed
{
    long value;
    bool whole;
    bool isOpen;   // an unsigned number that is too large and negative: some platforms negate the limit
};

unsigned DigitValue(wchar_t character)
{
    if (character >= L'0' && character <= L'9')
        return static_cast<unsigned>(character - L'0');
    const wchar_t lower = static_cast<wchar_t>(std::towlower(character));
    return lower >= L'a' && lower <= L'z' ? static_cast<unsigned>(lower - L'a' + 10) : 99;
}

// Blanks, a sign, "0x" in base 16, digits; up to 32 bits.
SParsed Parse(const std::wstring& text, bool isUnsigned, unsigned base)
{
    std::size_t at = 0;
    while (at < text.size() && (text[at] == L' ' || text[at] == L'\t'))
        ++at;
    const bool negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+'))
        ++at;
    if (base == 16 && at + 2 < text.size() && text[at] == L'0' && (text[at + 1] == L'x' || text[at + 1] == L'X') &&
        DigitValue(text[at + 2]) < base)
        at += 2;
    const std::size_t first = at;
    long long magnitude = 0;
    for (; at < text.size() && DigitValue(text[at]) < base; ++at)
        magnitude = std::min(magnitude * base + DigitValue(text[at]), 1LL << 40);
    const std::wstring rest = at == first ? text : text.substr(at);
    const bool whole = rest.empty() || (base == 16 && (rest == L"h" || rest == L"H"));
    if (isUnsigned)
    {
        const bool over = magnitude > 0xFFFFFFFFLL;
        const unsigned long value = over ? 0xFFFFFFFFUL : static_cast<unsigned long>(magnitude);
        return {static_cast<long>(negative ? 0UL - value : value), whole, negative && over};
    }
    const long long value = std::max(-2147483648LL, std::min(negative ? -magnitude : magnitude, 2147483647LL));
    return {static_cast<long>(value), whole, false};
}
}   // namespace

TEST(VariantRadixParse, HexadecimalDigits)
{
    ExpectInteger(255, VT_I4, L"ff", 16);
}

TEST(VariantRadixParse, HexadecimalDigitsWithAnH)
{
    ExpectInteger(255, VT_I4, L"FFh", 16);
    ExpectInteger(0x1F, VT_I4, L"1Fh", 16);
}

TEST(VariantRadixParse, HexadecimalDigitsWithACapitalH)
{
    ExpectInteger(255, VT_I4, L"ffH", 16);
}

TEST(VariantRadixParse, TextAfterTheNumber_Fails)
{
    CVariant v = String(L"FFx");
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_I4, v, 16));
}

TEST(VariantRadixParse, TextAfterTheNumber_LeavesTheNumberInTheTarget)
{
    for (const VARTYPE vt : IntegerTypes)
        ExpectFailure(0x7F, vt, vt, L"7Fx", 16);
}

TEST(VariantRadixParse, OutOfTheTargetsRange_LeavesTheI4)
{
    ExpectFailure(128, VT_I4, VT_I1, L"80", 16);
    ExpectFailure(-129, VT_I4, VT_I1, L"-129", 10);
    ExpectFailure(32768, VT_I4, VT_I2, L"8000", 16);
    ExpectFailure(256, VT_I4, VT_UI1, L"100", 16);
    ExpectFailure(65536, VT_I4, VT_UI2, L"10000", 16);
}

TEST(VariantRadixParse, TextAfterANumberOutOfRange_LeavesTheI4)
{
    ExpectFailure(256, VT_I4, VT_UI1, L"100x", 16);
}

TEST(VariantRadixParse, ATrailingBlankIsText)
{
    for (const int base : Radixes)
        ExpectFailure(1, VT_I4, VT_I4, L"1 ", base);
}

TEST(VariantRadixParse, AnHAndMoreIsText)
{
    for (const wchar_t* text : {L"1hh", L"1h ", L"1 h", L"1hx"})
        ExpectFailure(1, VT_I4, VT_I4, text, 16);
}

TEST(VariantRadixParse, AnHIsTextInSmallerBases)
{
    for (const int base : {2, 8, 10, 15})
        ExpectFailure(1, VT_I4, VT_I4, L"1h", base);
}

TEST(VariantRadixParse, AnHIsTextInBase17)
{
    ExpectFailure(1, VT_I4, VT_I4, L"1h", 17);
}

TEST(VariantRadixParse, AnHIsADigitInBase36)
{
    ExpectInteger(36 + 17, VT_I4, L"1h", 36);
    ExpectInteger(17, VT_I4, L"H", 36);
}

TEST(VariantRadixParse, AnHAlone_IsZero)
{
    ExpectInteger(0, VT_I4, L"h", 16);
}

TEST(VariantRadixParse, EmptyText_IsZero)
{
    for (const VARTYPE vt : IntegerTypes)
        ExpectInteger(0, vt, L"", 16);
}

TEST(VariantRadixParse, ANullString_IsZero)
{
    for (const int base : Radixes)
    {
        CVariant v = NullString();
        EXPECT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, base)) << base;
        EXPECT_EQ(VT_I4, v.vt);
        EXPECT_EQ(0, v.lVal);
    }
}

TEST(VariantRadixParse, LeadingBlanksAreSkipped)
{
    ExpectInteger(0x1F, VT_I4, L" \t\n1F", 16);
}

TEST(VariantRadixParse, BlanksAlone_AreText)
{
    ExpectFailure(0, VT_I4, VT_I4, L"  ", 16);
}

TEST(VariantRadixParse, SignsAreRead)
{
    ExpectInteger(-31, VT_I4, L"-1F", 16);
    ExpectInteger(31, VT_I4, L"+1F", 16);
    ExpectInteger(31, VT_UI4, L"+1F", 16);
}

TEST(VariantRadixParse, ANegativeNumberToASmallUnsignedType_FailsAndLeavesTheI4)
{
    ExpectFailure(-1, VT_I4, VT_UI1, L"-1", 10);
    ExpectFailure(-1, VT_I4, VT_UI2, L"-1", 10);
}

TEST(VariantRadixParse, ANegativeNumberToALargeUnsignedType_IsConvertedByThePlatform)
{
    ExpectAsThePlatformConverts(-1, VT_UI4, L"-1", 10);
    ExpectAsThePlatformConverts(-1, VT_UINT, L"-1", 10);
}

TEST(VariantRadixParse, ASignAlone_IsText)
{
    ExpectFailure(0, VT_I4, VT_I4, L"-", 10);
}

TEST(VariantRadixParse, ThePrefixOfBase16IsRead)
{
    ExpectInteger(31, VT_I4, L"0x1F", 16);
    ExpectInteger(31, VT_UI1, L"0X1f", 16);
    ExpectInteger(-31, VT_I4, L"-0x1F", 16);
    ExpectInteger(31, VT_I4, L"0x1Fh", 16);
}

TEST(VariantRadixParse, ThePrefixIsTextInOtherBases)
{
    ExpectFailure(0, VT_I4, VT_I4, L"0x1", 10);
    ExpectFailure(0, VT_I4, VT_I4, L"0x1", 8);
}

TEST(VariantRadixParse, APrefixWithoutDigits_IsText)
{
    ExpectFailure(0, VT_I4, VT_I4, L"0x", 16);
}

TEST(VariantRadixParse, ADigitOfALargerBaseIsText)
{
    ExpectFailure(1, VT_I4, VT_I4, L"12", 2);
    ExpectFailure(7, VT_I4, VT_I4, L"78", 8);
    ExpectFailure(9, VT_I4, VT_I4, L"9A", 10);
    ExpectFailure(15, VT_I4, VT_I4, L"FG", 16);
}

TEST(VariantRadixParse, ThousandsAndFractionsAreText)
{
    ExpectFailure(1, VT_I4, VT_I4, L"1,000", 10);
    ExpectFailure(1, VT_I4, VT_I4, L"1.0", 10);
}

TEST(VariantRadixParse, ALargeSignedNumberEndsAtTheLimit)
{
    for (const VARTYPE vt : {VT_I4, VT_INT})
    {
        ExpectInteger(LONG_MAX, vt, L"80000000", 16);
        ExpectInteger(LONG_MAX, vt, L"123456789ABCDEF0123456789", 16);
        ExpectInteger(LONG_MIN, vt, L"-80000001", 16);
    }
}

TEST(VariantRadixParse, ALargeSignedNumberToASmallType_FailsAndLeavesTheLimit)
{
    ExpectFailure(LONG_MAX, VT_I4, VT_I2, L"FFFFFFFFFF", 16);
    ExpectFailure(LONG_MIN, VT_I4, VT_I1, L"-FFFFFFFFFF", 16);
}

TEST(VariantRadixParse, AnUnsignedNumberUpToTheSignedLimit)
{
    ExpectInteger(0x7FFFFFFF, VT_UI4, L"7FFFFFFF", 16);
    ExpectInteger(0x7FFFFFFF, VT_UINT, L"7FFFFFFF", 16);
}

TEST(VariantRadixParse, AnUnsignedNumberAboveTheSignedLimit_IsANegativeI4ToThePlatform)
{
    for (const VARTYPE vt : UnsignedTypes)
    {
        ExpectAsThePlatformConverts(LONG_MIN, vt, L"80000000", 16);
        ExpectAsThePlatformConverts(-1, vt, L"FFFFFFFF", 16);
    }
}

TEST(VariantRadixParse, AnUnsignedNumberAboveTheSignedLimitToASmallType_FailsAndLeavesTheI4)
{
    ExpectFailure(-1, VT_I4, VT_UI1, L"FFFFFFFF", 16);
    ExpectFailure(LONG_MIN, VT_I4, VT_UI2, L"80000000", 16);
}

TEST(VariantRadixParse, ALargeUnsignedNumberEndsAtTheLimit)
{
    for (const VARTYPE vt : UnsignedTypes)
        ExpectAsThePlatformConverts(-1, vt, L"123456789ABCDEF0123456789", 16);
}

TEST(VariantRadixParse, AStringEndsAtItsFirstNul)
{
    CVariant v = Empty(VT_BSTR);
    v.bstrVal = ::SysAllocStringLen(L"12\0x", 4);
    EXPECT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 10));
    EXPECT_EQ(12, v.lVal);
}

TEST(VariantRadixParse, ABaseThatIsNoneFailsAndLeavesTheString)
{
    for (const int base : {1, 37, -1, -16, INT_MAX, INT_MIN})
    {
        CVariant v = String(L"1");
        const BSTR before = v.bstrVal;
        EXPECT_FALSE(VariantChangeType(UsEnglish, VT_I4, v, base)) << base;
        EXPECT_EQ(VT_BSTR, v.vt) << base;
        EXPECT_EQ(before, v.bstrVal) << base;
    }
}

TEST(VariantRadixParse, TheSmallestAndTheLargestBaseAreBases)
{
    ExpectInteger(5, VT_I4, L"101", 2);
    ExpectInteger(3, VT_I4, L"10", 3);
    ExpectInteger(34, VT_I4, L"y", 35);
    ExpectInteger(36, VT_I4, L"10", 36);
}

TEST(VariantRadixParse, EverySignedTypeAroundItsLimits)
{
    for (const int base : Radixes)
    {
        for (const long value :
             {LONG_MIN, -32769L, -32768L, -129L, -128L, -1L, 0L, 1L, 127L, 128L, 32767L, 32768L, LONG_MAX})
        {
            const std::wstring text = SignedDigits(value, static_cast<unsigned>(base));
            for (const VARTYPE vt : SignedTypes)
            {
                if (FitsSigned(value, vt))
                    ExpectInteger(value, vt, text.c_str(), base);
                else
                    ExpectFailure(value, VT_I4, vt, text.c_str(), base);
            }
        }
    }
}

TEST(VariantRadixParse, EveryUnsignedTypeAroundItsLimits)
{
    for (const int base : Radixes)
    {
        for (const unsigned long value :
             {0UL, 1UL, 127UL, 128UL, 255UL, 256UL, 65535UL, 65536UL, 0x7FFFFFFFUL, 0x80000000UL, ULONG_MAX})
        {
            const std::wstring text = Digits(value, static_cast<unsigned>(base));
            for (const VARTYPE vt : UnsignedTypes)
                ExpectAsThePlatformConverts(static_cast<long>(value), vt, text, base);
        }
    }
}

TEST(VariantRadixParse, AnyTextInAnyBase)
{
    constexpr wchar_t alphabet[] = L" +-0011234789aAfFgGhHxXzZ.,\t";
    std::mt19937 random(2607);
    std::uniform_int_distribution<std::size_t> anyCharacter(0, std::size(alphabet) - 2);
    for (int round = 0; round < 20000; ++round)
    {
        std::wstring text(random() % 9, L' ');
        for (wchar_t& character : text)
            character = alphabet[anyCharacter(random)];
        const int base = round % 3 == 0 ? 16 : std::uniform_int_distribution<int>(2, 36)(random);
        const VARTYPE vt = IntegerTypes[random() % std::size(IntegerTypes)];
        const SParsed parsed = Parse(text, IsUnsigned(vt), static_cast<unsigned>(base));
        if (!parsed.isOpen)
            ExpectAsThePlatformConverts(parsed.value, vt, text, base, parsed.whole);
    }
}
