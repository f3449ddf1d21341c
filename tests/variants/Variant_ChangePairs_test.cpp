// Every value of every type to every type, against the platform's own conversion; and the number one in all its types,
// against one.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

using namespace variants;
using vantor::VariantChangeType;

namespace
{
// True is the number 1 before the platform converts in place.
bool Expected(LCID lcid, VARTYPE vt, VARIANT& v)
{
    if (v.vt == vt)
        return true;
    if (v.vt == VT_BOOL && v.boolVal != 0)
        v.boolVal = 1;
    return SUCCEEDED(::VariantChangeTypeEx(&v, &v, lcid, VARIANT_ALPHABOOL, vt));
}

void ExpectThePlatformsConversion(const CVariant& value, LCID lcid, VARTYPE vt, int base)
{
    CVariant expected = value;
    const bool success = Expected(lcid, vt, expected);
    CVariant v = value;
    EXPECT_EQ(success, VariantChangeType(lcid, vt, v, base)) << Describe(value) << " to " << vt << " in " << lcid;
    EXPECT_TRUE(HoldsTheSame(expected, v))
        << Describe(value) << " to " << vt << " in " << lcid << ": " << Describe(v) << ", not " << Describe(expected);
}

bool IsRadixInteger(VARTYPE vt)
{
    return vt == VT_I1 || vt == VT_I2 || vt == VT_I4 || vt == VT_INT || vt == VT_UI1 || vt == VT_UI2 || vt == VT_UI4 ||
           vt == VT_UINT;
}

bool HasARadix(VARTYPE from, VARTYPE to)
{
    return (from == VT_BSTR && IsRadixInteger(to)) || (to == VT_BSTR && IsRadixInteger(from));
}

void ExpectEveryPair(LCID lcid)
{
    CObject object;
    for (const CVariant& value : ValuesOfEveryType(object))
    {
        for (VARTYPE vt = 0; vt <= LastType; ++vt)
            ExpectThePlatformsConversion(value, lcid, vt, 0);
    }
}

// The number 1 in every type that can hold one, text and true included.
const std::vector<CVariant> Ones = {
    I2(1),  I4(1),   R4(1),    R8(1),        Currency(10000),     Date(1), I1(1), UI1(1), UI2(1), UI4(1), I8(1), UI8(1),
    Int(1), UInt(1), Bool(-1), String(L"1"), Decimal(1, 0, false)};
}   // namespace

TEST(VariantChangePairs, EnglishIsThePlatforms)
{
    ExpectEveryPair(UsEnglish);
}

TEST(VariantChangePairs, GermanIsThePlatforms)
{
    ExpectEveryPair(1031);
}

TEST(VariantChangePairs, FrenchIsThePlatforms)
{
    ExpectEveryPair(1036);
}

TEST(VariantChangePairs, ABaseConcernsOnlyStringsAndIntegers)
{
    CObject object;
    for (const CVariant& value : ValuesOfEveryType(object))
    {
        for (VARTYPE vt = 0; vt <= LastType; ++vt)
        {
            if (!HasARadix(value.vt, vt))
                ExpectThePlatformsConversion(value, UsEnglish, vt, 16);
        }
    }
}

TEST(VariantChangePairs, OneStaysOneInEveryNumberType)
{
    for (const CVariant& from : Ones)
    {
        for (const CVariant& to : Ones)
        {
            const bool fromDateToText = from.vt == VT_DATE && to.vt == VT_BSTR;
            const bool fromTrueToText = from.vt == VT_BOOL && to.vt == VT_BSTR;
            const bool fromTextToDate = from.vt == VT_BSTR && to.vt == VT_DATE;
            if (fromDateToText || fromTrueToText || fromTextToDate)
                continue;
            CVariant v = from;
            EXPECT_TRUE(VariantChangeType(UsEnglish, to.vt, v, 0)) << Describe(from) << " to " << to.vt;
            EXPECT_EQ(to.vt, v.vt);
            EXPECT_EQ(1.0, NumberOf(v)) << Describe(from) << " became " << Describe(v);
        }
    }
}

TEST(VariantChangePairs, OneStaysOneWithARadix)
{
    for (const CVariant& one : Ones)
    {
        if (!IsRadixInteger(one.vt))
            continue;
        CVariant v = one;
        EXPECT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 2)) << one.vt;
        EXPECT_TRUE(TextOf(v) == L"1") << Describe(v);
        EXPECT_TRUE(VariantChangeType(UsEnglish, one.vt, v, 2)) << one.vt;
        EXPECT_TRUE(HoldsTheSame(one, v)) << Describe(v);
    }
}

TEST(VariantChangePairs, NothingThatIsNoNumberBecomesOne)
{
    for (const CVariant& number : Ones)
    {
        for (const VARTYPE vt :
             {VARTYPE{VT_NULL}, VARTYPE{VT_UNKNOWN}, VARTYPE{VT_DISPATCH}, VARTYPE{VT_VARIANT}, Unassigned})
        {
            CVariant v = Empty(vt);
            EXPECT_FALSE(VariantChangeType(UsEnglish, number.vt, v, 0)) << vt << " to " << number.vt;
            EXPECT_EQ(vt, v.vt) << number.vt;
        }
    }
}
