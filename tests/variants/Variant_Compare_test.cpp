// The order of variants of one type, and of two.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <limits>
#include <type_traits>

using namespace variants;
using vantor::VariantCompare;

static_assert(noexcept(VariantCompare(std::declval<const VARIANT&>(), std::declval<const VARIANT&>())),
              "nothing throws");
static_assert(std::is_same<decltype(&VariantCompare), int (*)(const VARIANT&, const VARIANT&) noexcept>(),
              "the signature is a contract");

namespace
{
// Every two of ascending values.
void ExpectAscending(const std::vector<CVariant>& values)
{
    for (std::size_t a = 0; a < values.size(); ++a)
    {
        for (std::size_t b = 0; b < values.size(); ++b)
        {
            const int expected = a < b ? -1 : a > b ? 1 : 0;
            EXPECT_EQ(expected, VariantCompare(values[a], values[b]))
                << Describe(values[a]) << " against " << Describe(values[b]);
        }
    }
}

void ExpectAllEqual(const std::vector<CVariant>& values)
{
    for (const CVariant& a : values)
    {
        for (const CVariant& b : values)
            EXPECT_EQ(0, VariantCompare(a, b)) << Describe(a) << " against " << Describe(b);
    }
}
}   // namespace

TEST(VariantCompare, I1IsSigned)
{
    ExpectAscending({I1(-128), I1(-1), I1(0), I1(1), I1(127)});
}

TEST(VariantCompare, I2IsSigned)
{
    ExpectAscending({I2(-32768), I2(-1), I2(0), I2(1), I2(32767)});
}

TEST(VariantCompare, I4IsSigned)
{
    ExpectAscending({I4(LONG_MIN), I4(-1), I4(0), I4(1), I4(LONG_MAX)});
}

TEST(VariantCompare, IntIsSigned)
{
    ExpectAscending({Int(INT_MIN), Int(-1), Int(0), Int(1), Int(INT_MAX)});
}

TEST(VariantCompare, UI1IsUnsigned)
{
    ExpectAscending({UI1(0), UI1(1), UI1(127), UI1(128), UI1(255)});
}

TEST(VariantCompare, UI2IsUnsigned)
{
    ExpectAscending({UI2(0), UI2(1), UI2(32767), UI2(32768), UI2(65535)});
}

TEST(VariantCompare, UI4IsUnsigned)
{
    ExpectAscending({UI4(0), UI4(1), UI4(0x7FFFFFFF), UI4(0x80000000), UI4(ULONG_MAX)});
}

TEST(VariantCompare, UIntIsUnsigned)
{
    ExpectAscending({UInt(0), UInt(1), UInt(0x7FFFFFFF), UInt(0x80000000), UInt(UINT_MAX)});
}

TEST(VariantCompare, R4IsAnOrder)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    ExpectAscending({R4(-infinity), R4(-FLT_MAX), R4(-1.5F), R4(-FLT_MIN), R4(0), R4(FLT_MIN), R4(1), R4(1.0000001F),
                     R4(FLT_MAX), R4(infinity)});
}

TEST(VariantCompare, R8IsAnOrder)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    ExpectAscending({R8(-infinity), R8(-DBL_MAX), R8(-1.5), R8(-DBL_MIN), R8(0), R8(DBL_MIN), R8(1),
                     R8(1 + DBL_EPSILON), R8(DBL_MAX), R8(infinity)});
}

TEST(VariantCompare, MinusZeroIsZero)
{
    EXPECT_EQ(0, VariantCompare(R8(-0.0), R8(0.0)));
    EXPECT_EQ(0, VariantCompare(R4(-0.0F), R4(0.0F)));
}

TEST(VariantCompare, ANaNIsEqualToAnything)
{
    const CVariant nan = R8(std::numeric_limits<double>::quiet_NaN());
    for (const CVariant& number : {nan, R8(0), R8(-1), R8(std::numeric_limits<double>::infinity())})
    {
        EXPECT_EQ(0, VariantCompare(nan, number)) << Describe(number);
        EXPECT_EQ(0, VariantCompare(number, nan)) << Describe(number);
    }
}

TEST(VariantCompare, ANaNOfR4IsEqualToAnything)
{
    const CVariant nan = R4(std::numeric_limits<float>::quiet_NaN());
    for (const CVariant& number : {nan, R4(0), R4(-1), R8(7)})
    {
        EXPECT_EQ(0, VariantCompare(nan, number)) << Describe(number);
        EXPECT_EQ(0, VariantCompare(number, nan)) << Describe(number);
    }
}

TEST(VariantCompare, FalseIsLessThanTrue)
{
    ExpectAscending({Bool(VARIANT_FALSE), Bool(VARIANT_TRUE)});
}

TEST(VariantCompare, AnyNonZeroIsTrue)
{
    ExpectAllEqual({Bool(-1), Bool(1), Bool(2), Bool(SHRT_MIN), Bool(SHRT_MAX)});
    ExpectAscending({Bool(0), Bool(2)});
}

TEST(VariantCompare, StringsByTheirCharacters)
{
    EXPECT_GT(0, VariantCompare(String(L"apple"), String(L"pear")));
    EXPECT_LT(0, VariantCompare(String(L"pear"), String(L"apple")));
    EXPECT_GT(0, VariantCompare(String(L"apple"), String(L"apples")));
    EXPECT_EQ(0, VariantCompare(String(L"apple"), String(L"apple")));
}

TEST(VariantCompare, StringsAreCaseSensitive)
{
    EXPECT_GT(0, VariantCompare(String(L"B"), String(L"a")));
    EXPECT_LT(0, VariantCompare(String(L"a"), String(L"A")));
}

TEST(VariantCompare, StringsOfDigitsAreText)
{
    EXPECT_LT(0, VariantCompare(String(L"9"), String(L"10")));
}

TEST(VariantCompare, CharactersAreUnsigned)
{
    EXPECT_LT(0, VariantCompare(String(L"\xFFFD"), String(L"a")));
}

TEST(VariantCompare, StringsEndAtTheFirstNul)
{
    CVariant longer = Empty(VT_BSTR);
    longer.bstrVal = ::SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(0, VariantCompare(longer, String(L"a")));
}

TEST(VariantCompare, ANullStringIsTheEmptyText)
{
    EXPECT_EQ(0, VariantCompare(NullString(), NullString()));
    EXPECT_EQ(0, VariantCompare(NullString(), String(L"")));
    EXPECT_GT(0, VariantCompare(NullString(), String(L"a")));
    EXPECT_LT(0, VariantCompare(String(L"a"), NullString()));
}

TEST(VariantCompare, DatesAreEqual)
{
    ExpectAllEqual({Date(0), Date(1), Date(41338.5)});
}

TEST(VariantCompare, CurrenciesAreEqual)
{
    ExpectAllEqual({Currency(0), Currency(10000), Currency(-10000)});
}

TEST(VariantCompare, DecimalsAreEqual)
{
    ExpectAllEqual({Decimal(0, 0, false), Decimal(1, 0, false), Decimal(1, 0, true)});
}

TEST(VariantCompare, LargeIntegersAreEqual)
{
    ExpectAllEqual({I8(LLONG_MIN), I8(0), I8(LLONG_MAX)});
    ExpectAllEqual({UI8(0), UI8(ULLONG_MAX)});
}

TEST(VariantCompare, ErrorsAreEqual)
{
    ExpectAllEqual({Error(0), Error(1), Error(DISP_E_OVERFLOW)});
}

TEST(VariantCompare, ObjectsAreEqual)
{
    CObject object;
    ExpectAllEqual({Of(VT_DISPATCH, nullptr), Of(VT_DISPATCH, &object)});
    ExpectAllEqual({Of(VT_UNKNOWN, nullptr), Of(VT_UNKNOWN, &object)});
}

TEST(VariantCompare, VariantsAndTheUnassignedTypeAreEqual)
{
    CVariant a = Empty(VT_VARIANT);
    CVariant b = Empty(VT_VARIANT);
    a.llVal = 1;
    EXPECT_EQ(0, VariantCompare(a, b));
    a.vt = Unassigned;
    b.vt = Unassigned;
    EXPECT_EQ(0, VariantCompare(a, b));
}

TEST(VariantCompare, EmptyAndNullAreEqualToAnything)
{
    for (const VARTYPE vt : {VT_EMPTY, VT_NULL})
    {
        for (const CVariant& b : {Empty(VT_EMPTY), Empty(VT_NULL), I4(5), String(L"a"), Bool(-1)})
            EXPECT_EQ(0, VariantCompare(Empty(vt), b)) << vt << " against " << Describe(b);
    }
}

TEST(VariantCompare, TypesAboveTheLastAreEqualToAnything)
{
    for (const int vt : {24, 25, 26, 29, 31, 37, 64, 72, 4095, 0x0FFF | 0x2000, 0xFFFF})
    {
        CVariant a = I4(5);
        CVariant b = I4(7);
        a.vt = static_cast<VARTYPE>(vt);
        EXPECT_EQ(0, VariantCompare(a, b)) << vt;
        b.vt = static_cast<VARTYPE>(vt);
        EXPECT_EQ(0, VariantCompare(a, b)) << vt;
        a.vt = VT_I4;
        b.vt = VT_I4;
    }
}

TEST(VariantCompare, ReferencesFirst_AreEqualToAnything)
{
    LONG five = 5;
    LONG seven = 7;
    CVariant a = Empty(VT_BYREF | VT_I4);
    CVariant b = Empty(VT_BYREF | VT_I4);
    a.plVal = &five;
    b.plVal = &seven;
    EXPECT_EQ(0, VariantCompare(a, b));
    EXPECT_EQ(0, VariantCompare(a, I4(7)));
    EXPECT_EQ(5, five);
    EXPECT_EQ(7, seven);
}

TEST(VariantCompare, AReferenceSecond_IsWhatItRefersTo)
{
    LONG seven = 7;
    CVariant b = Empty(VT_BYREF | VT_I4);
    b.plVal = &seven;
    EXPECT_EQ(-1, VariantCompare(I4(5), b));
    EXPECT_EQ(0, VariantCompare(R8(7), b));
    EXPECT_EQ(1, VariantCompare(I2(8), b));
    EXPECT_EQ(7, seven);
}

TEST(VariantCompare, ArraysAreEqual)
{
    CVariant a = Empty(VT_ARRAY | VT_UI1);
    CVariant b = Empty(VT_ARRAY | VT_UI1);
    a.parray = ::SafeArrayCreateVector(VT_UI1, 0, 1);
    b.parray = ::SafeArrayCreateVector(VT_UI1, 0, 2);
    EXPECT_EQ(0, VariantCompare(a, b));
    EXPECT_EQ(0, VariantCompare(a, I4(1)));
    EXPECT_EQ(0, VariantCompare(I4(1), b));
}

TEST(VariantCompare, AnIntegerAgainstDigits_IsNumeric)
{
    EXPECT_EQ(-1, VariantCompare(I4(2), String(L"10")));
}

TEST(VariantCompare, DigitsAgainstAnInteger_AreText)
{
    EXPECT_LT(0, VariantCompare(String(L"2"), I4(10)));
}

TEST(VariantCompare, TheSecondIsRoundedToTheTypeOfTheFirst)
{
    EXPECT_EQ(0, VariantCompare(I4(2), R8(1.7)));
    EXPECT_EQ(1, VariantCompare(R8(2), R8(1.7)));
}

TEST(VariantCompare, WhatDoesNotFitTheFirstIsEqual)
{
    EXPECT_EQ(0, VariantCompare(UI1(5), I4(256)));
    EXPECT_EQ(0, VariantCompare(UI2(5), I4(-1)));
    EXPECT_EQ(0, VariantCompare(I2(5), I4(0x8000)));
}

TEST(VariantCompare, WhatIsNoNumberIsEqualToOne)
{
    EXPECT_EQ(0, VariantCompare(I4(5), String(L"apple")));
    EXPECT_EQ(0, VariantCompare(I4(5), NullString()));
}

TEST(VariantCompare, TrueAgainstANumber_IsOne)
{
    EXPECT_EQ(0, VariantCompare(I4(1), Bool(VARIANT_TRUE)));
    EXPECT_EQ(0, VariantCompare(R8(1), Bool(2)));
    EXPECT_EQ(1, VariantCompare(I4(2), Bool(VARIANT_TRUE)));
    EXPECT_EQ(-1, VariantCompare(I4(-1), Bool(VARIANT_TRUE)));
}

TEST(VariantCompare, TrueAgainstText_IsAWord)
{
    EXPECT_EQ(0, VariantCompare(String(L"True"), Bool(VARIANT_TRUE)));
    EXPECT_EQ(0, VariantCompare(String(L"False"), Bool(VARIANT_FALSE)));
}

TEST(VariantCompare, ANumberAgainstTrue_IsTrueUnlessZero)
{
    EXPECT_EQ(0, VariantCompare(Bool(VARIANT_TRUE), I4(5)));
    EXPECT_EQ(1, VariantCompare(Bool(VARIANT_TRUE), I4(0)));
    EXPECT_EQ(-1, VariantCompare(Bool(VARIANT_FALSE), I4(-1)));
}

TEST(VariantCompare, AnObjectSecond_IsItsDefaultProperty)
{
    CObject object;
    const CVariant b = Of(VT_DISPATCH, &object);
    EXPECT_EQ(-1, VariantCompare(I4(9), b));
    EXPECT_EQ(1, VariantCompare(R8(10.5), b));
    EXPECT_EQ(0, VariantCompare(String(L"10"), b));
}

TEST(VariantCompare, WithItself_IsZero)
{
    CObject object;
    for (const CVariant& v : ValuesOfEveryType(object))
        EXPECT_EQ(0, VariantCompare(v, v)) << Describe(v);
}
