// Every value of every type against every other, by a table of how each type compares; and that both stay as they are.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace variants;
using vantor::VariantCompare;

namespace
{
int Sign(int order)
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

template <class Number>
int Order(Number a, Number b)
{
    if (a < b)
        return -1;
    if (a > b)
        return 1;
    return 0;
}

int ByCharacter(const VARIANT& a, const VARIANT& b)
{
    const std::wstring first(TextOf(a).c_str());   // up to the first NUL
    const std::wstring second(TextOf(b).c_str());
    return Order(first, second);
}

int OrderOfAType(const VARIANT& a, const VARIANT& b)
{
    switch (a.vt)
    {
    case 2:
        return Order<short>(a.iVal, b.iVal);
    case 3:
        return Order<long>(a.lVal, b.lVal);
    case 4:
        return Order<float>(a.fltVal, b.fltVal);
    case 5:
        return Order<double>(a.dblVal, b.dblVal);
    case 8:
        return ByCharacter(a, b);
    case 11:
        return Order(a.boolVal == 0 ? 0 : 1, b.boolVal == 0 ? 0 : 1);
    case 16:
        return Order(static_cast<signed char>(a.bVal), static_cast<signed char>(b.bVal));
    case 17:
        return Order<unsigned char>(a.bVal, b.bVal);
    case 18:
        return Order<unsigned short>(a.uiVal, b.uiVal);
    case 19:
        return Order<unsigned long>(a.ulVal, b.ulVal);
    case 22:
        return Order<int>(a.intVal, b.intVal);
    case 23:
        return Order<unsigned>(a.uintVal, b.uintVal);
    default:
        return 0;
    }
}

int Expected(const CVariant& a, const CVariant& b)
{
    CVariant copy = b;   // deep: it is converted in place
    if (copy.vt != a.vt)
    {
        if (copy.vt == VT_BOOL && copy.boolVal != 0)
            copy.boolVal = 1;
        if (FAILED(::VariantChangeTypeEx(&copy, &copy, UsEnglish, VARIANT_ALPHABOOL, a.vt)))
            return 0;
    }
    return OrderOfAType(a, copy);
}

// 1 and 2 in every type that can hold them, and how they compare when the type comes first.
struct SNumber
{
    CVariant one;
    CVariant two;
    bool comparable;
};

std::vector<SNumber> Numbers()
{
    return {
        {I2(1), I2(2), true},
        {I4(1), I4(2), true},
        {R4(1), R4(2), true},
        {R8(1), R8(2), true},
        {Currency(10000), Currency(20000), false},
        {Date(1), Date(2), false},
        {Decimal(1, 0, false), Decimal(2, 0, false), false},
        {I1(1), I1(2), true},
        {UI1(1), UI1(2), true},
        {UI2(1), UI2(2), true},
        {UI4(1), UI4(2), true},
        {I8(1), I8(2), false},
        {UI8(1), UI8(2), false},
        {Int(1), Int(2), true},
        {UInt(1), UInt(2), true},
    };
}
}   // namespace

TEST(VariantComparePairs, EveryPairIsAsTheTableSays)
{
    CObject object;
    const std::vector<CVariant> values = ValuesOfEveryType(object);
    for (const CVariant& a : values)
    {
        for (const CVariant& b : values)
        {
            EXPECT_EQ(Expected(a, b), Sign(VariantCompare(a, b))) << Describe(a) << " against " << Describe(b);
        }
    }
}

TEST(VariantComparePairs, OnlyStringsMayGiveMoreThanOne)
{
    CObject object;
    const std::vector<CVariant> values = ValuesOfEveryType(object);
    for (const CVariant& a : values)
    {
        for (const CVariant& b : values)
        {
            if (a.vt != VT_BSTR)
            {
                const int order = VariantCompare(a, b);
                EXPECT_TRUE(order >= -1 && order <= 1) << Describe(a) << " against " << Describe(b) << ": " << order;
            }
        }
    }
}

TEST(VariantComparePairs, NumbersOfTwoTypesAreOrderedByTheFirst)
{
    const std::vector<SNumber> numbers = Numbers();
    for (const SNumber& a : numbers)
    {
        for (const SNumber& b : numbers)
        {
            const int greater = a.comparable ? 1 : 0;
            EXPECT_EQ(-greater, VariantCompare(a.one, b.two)) << Describe(a.one) << " against " << Describe(b.two);
            EXPECT_EQ(greater, VariantCompare(a.two, b.one)) << Describe(a.two) << " against " << Describe(b.one);
            EXPECT_EQ(0, VariantCompare(a.two, b.two)) << Describe(a.two) << " against " << Describe(b.two);
        }
    }
}

TEST(VariantComparePairs, NumbersAndTextAreOrderedByTheFirst)
{
    for (const SNumber& number : Numbers())
    {
        if (number.one.vt == VT_DATE)
            continue;
        EXPECT_EQ(number.comparable ? -1 : 0, VariantCompare(number.one, String(L"2"))) << Describe(number.one);
        EXPECT_EQ(number.comparable ? 1 : 0, VariantCompare(number.two, String(L"1"))) << Describe(number.two);
        EXPECT_GT(0, VariantCompare(String(L"1"), number.two)) << Describe(number.two);
        EXPECT_LT(0, VariantCompare(String(L"2"), number.one)) << Describe(number.one);
        EXPECT_EQ(0, VariantCompare(String(L"2"), number.two)) << Describe(number.two);
    }
}

TEST(VariantComparePairs, NumbersAndTrueAreOrderedByTheFirst)
{
    for (const SNumber& number : Numbers())
    {
        EXPECT_EQ(0, VariantCompare(number.one, Bool(-1))) << Describe(number.one);
        EXPECT_EQ(number.comparable ? 1 : 0, VariantCompare(number.two, Bool(-1))) << Describe(number.two);
        EXPECT_EQ(0, VariantCompare(Bool(-1), number.two)) << Describe(number.two);
        EXPECT_EQ(-1, VariantCompare(Bool(0), number.two)) << Describe(number.two);
    }
}

TEST(VariantComparePairs, NeitherChanges)
{
    CObject object;
    const std::vector<CVariant> values = ValuesOfEveryType(object);
    for (const CVariant& a : values)
    {
        for (const CVariant& b : values)
        {
            const VARIANT first = a;
            const VARIANT second = b;
            const std::wstring firstText = TextOf(a);
            const std::wstring secondText = TextOf(b);
            VariantCompare(a, b);
            EXPECT_TRUE(IsSame(first, a) && firstText == TextOf(a)) << Describe(a) << " against " << Describe(b);
            EXPECT_TRUE(IsSame(second, b) && secondText == TextOf(b)) << Describe(a) << " against " << Describe(b);
        }
    }
}
