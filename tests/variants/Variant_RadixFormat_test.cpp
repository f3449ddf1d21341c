// Integers to digits.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>

using namespace variants;
using vantor::VariantChangeType;

namespace
{
constexpr int Radixes[] = {2, 8, 10, 16, 36};

std::wstring Digits(unsigned long value, unsigned base)
{
    std::wstring text;
    do
    {
        text.insert(text.begin(), L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[value % base]);
        value /= base;
    } while (value != 0);
    return text;
}

// A negative number has a sign in base 10, and its 32 bits in any other.
std::wstring SignedDigits(long value, unsigned base)
{
    if (value < 0 && base == 10)
        return L"-" + Digits(0UL - static_cast<unsigned long>(value), base);
    return Digits(static_cast<unsigned long>(value), base);
}

void ExpectDigits(const std::wstring& expected, CVariant v, int base)
{
    const std::string before = Describe(v);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, base)) << before << " by " << base;
    EXPECT_TRUE(TextOf(v) == expected) << before << " by " << base << ": " << Describe(v);
}

void ExpectSignedDigits(const std::vector<long>& values, CVariant (*make)(long))
{
    for (const int base : Radixes)
    {
        for (const long value : values)
            ExpectDigits(SignedDigits(value, static_cast<unsigned>(base)), make(value), base);
    }
}

void ExpectUnsignedDigits(const std::vector<unsigned long>& values, CVariant (*make)(unsigned long))
{
    for (const int base : Radixes)
    {
        for (const unsigned long value : values)
            ExpectDigits(Digits(value, static_cast<unsigned>(base)), make(value), base);
    }
}
}   // namespace

TEST(VariantRadixFormat, HexadecimalIsUpperCaseWithoutPrefixOrSuffix)
{
    ExpectDigits(L"FF", I4(255), 16);
}

TEST(VariantRadixFormat, MinusOneHexadecimalIsItsBits)
{
    ExpectDigits(L"FFFFFFFF", I4(-1), 16);
}

TEST(VariantRadixFormat, ANegativeI1IsWidenedTo32Bits)
{
    ExpectDigits(L"FFFFFF80", I1(-128), 16);
}

TEST(VariantRadixFormat, ANegativeI2IsWidenedTo32Bits)
{
    ExpectDigits(L"FFFF8000", I2(-32768), 16);
}

TEST(VariantRadixFormat, TheLongestTextHas32Digits)
{
    ExpectDigits(std::wstring(32, L'1'), I4(-1), 2);
}

TEST(VariantRadixFormat, ANegativeNumberInBase10HasASign)
{
    ExpectDigits(L"-2147483648", I4(LONG_MIN), 10);
}

TEST(VariantRadixFormat, Base36HasAllLettersInUpperCase)
{
    ExpectDigits(L"Z", UI1(35), 36);
    ExpectDigits(L"ZIK0ZJ", Int(INT_MAX), 36);
}

TEST(VariantRadixFormat, I1AtItsLimits)
{
    ExpectSignedDigits({SCHAR_MIN, -1, 0, 1, SCHAR_MAX}, [](long value) { return I1(static_cast<int>(value)); });
}

TEST(VariantRadixFormat, I2AtItsLimits)
{
    ExpectSignedDigits({SHRT_MIN, -1, 0, 1, SHRT_MAX}, [](long value) { return I2(static_cast<int>(value)); });
}

TEST(VariantRadixFormat, I4AtItsLimits)
{
    ExpectSignedDigits({LONG_MIN, -1, 0, 1, LONG_MAX}, &I4);
}

TEST(VariantRadixFormat, IntAtItsLimits)
{
    ExpectSignedDigits({INT_MIN, -1, 0, 1, INT_MAX}, [](long value) { return Int(static_cast<int>(value)); });
}

TEST(VariantRadixFormat, UI1AtItsLimits)
{
    ExpectUnsignedDigits({0, 1, 0x7F, 0x80, UCHAR_MAX},
                         [](unsigned long value) { return UI1(static_cast<unsigned>(value)); });
}

TEST(VariantRadixFormat, UI2AtItsLimits)
{
    ExpectUnsignedDigits({0, 1, 0x7FFF, 0x8000, USHRT_MAX},
                         [](unsigned long value) { return UI2(static_cast<unsigned>(value)); });
}

TEST(VariantRadixFormat, UI4AtItsLimits)
{
    ExpectUnsignedDigits({0, 1, 0x7FFFFFFF, 0x80000000, ULONG_MAX}, &UI4);
}

TEST(VariantRadixFormat, UIntAtItsLimits)
{
    ExpectUnsignedDigits({0, 1, 0x7FFFFFFF, 0x80000000, UINT_MAX},
                         [](unsigned long value) { return UInt(static_cast<unsigned>(value)); });
}

TEST(VariantRadixFormat, AnyNumberInAnyBase)
{
    std::mt19937 random(3607);
    for (int round = 0; round < 2000; ++round)
    {
        const int base = std::uniform_int_distribution<int>(2, 36)(random);
        const unsigned long bits = static_cast<unsigned long>(random()) >> (random() % 32);
        ExpectDigits(Digits(bits, static_cast<unsigned>(base)), UI4(bits), base);
        ExpectDigits(SignedDigits(static_cast<long>(bits), static_cast<unsigned>(base)), I4(static_cast<long>(bits)),
                     base);
    }
}

TEST(VariantRadixFormat, TheTypeBecomesAString)
{
    CVariant v = UI2(7);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 8));
    EXPECT_EQ(VT_BSTR, v.vt);
}

TEST(VariantRadixFormat, WhatLiesBehindASmallIntegerIsNotRead)
{
    CVariant v = UI4(0xA5A5A5FF);
    v.vt = VT_I1;
    ExpectDigits(L"FFFFFFFF", v, 16);
    v.vt = VT_UI1;
    ExpectDigits(L"FF", v, 16);
    v.vt = VT_I2;
    ExpectDigits(L"FFFFA5FF", v, 16);
    v.vt = VT_UI2;
    ExpectDigits(L"A5FF", v, 16);
}

TEST(VariantRadixFormat, ABaseThatIsNoneFailsAndLeavesTheInteger)
{
    for (const int base : {1, 37, -1, -16, INT_MAX, INT_MIN})
    {
        CVariant v = I4(255);
        EXPECT_FALSE(VariantChangeType(UsEnglish, VT_BSTR, v, base)) << base;
        EXPECT_EQ(VT_I4, v.vt) << base;
        EXPECT_EQ(255, v.lVal) << base;
    }
}

TEST(VariantRadixFormat, TheSmallestAndTheLargestBaseAreBases)
{
    ExpectDigits(L"101", I4(5), 2);
    ExpectDigits(L"10", I4(3), 3);
    ExpectDigits(L"Y", I4(34), 35);
    ExpectDigits(L"10", I4(36), 36);
}

TEST(VariantRadixFormat, DigitsReadBackAreTheNumber)
{
    for (const int base : Radixes)
    {
        for (const CVariant& number : {I1(127), I1(0), I2(32767), I4(LONG_MAX), Int(INT_MAX), UI1(255), UI2(65535),
                                       UI4(0x7FFFFFFF), UInt(0x7FFFFFFF)})
        {
            CVariant v = number;
            ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, base)) << Describe(number);
            EXPECT_TRUE(VariantChangeType(UsEnglish, number.vt, v, base)) << Describe(number) << " by " << base;
            EXPECT_TRUE(HoldsTheSame(number, v)) << Describe(number) << " by " << base << ": " << Describe(v);
        }
    }
}

TEST(VariantRadixFormat, NegativeDecimalDigitsReadBackAreTheNumber)
{
    for (const CVariant& number : {I1(-128), I2(-32768), I4(LONG_MIN), Int(INT_MIN)})
    {
        CVariant v = number;
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 10)) << Describe(number);
        ASSERT_TRUE(VariantChangeType(UsEnglish, number.vt, v, 10)) << Describe(number);
        EXPECT_TRUE(HoldsTheSame(number, v)) << Describe(v);
    }
}

TEST(VariantRadixFormat, NegativeHexadecimalDigitsReadBackAreTheLargestNumber)
{
    CVariant v = I4(-1);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 16));
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 16));
    EXPECT_EQ(LONG_MAX, v.lVal);
}
