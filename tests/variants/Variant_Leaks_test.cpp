// Each string is freed once, and each object released once: by what converts it, and by nothing that only compares.

#include "Allocations.h"
#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <objbase.h>

using namespace variants;

namespace
{
// Changes a copy of each value to each type; clears it.
void ChangeAll(const std::vector<CVariant>& values, int base)
{
    for (const CVariant& value : values)
    {
        for (VARTYPE vt = 0; vt <= LastType; ++vt)
        {
            CVariant v = value;
            vantor::VariantChangeType(UsEnglish, vt, v, base);
        }
    }
}

void CompareAll(const std::vector<CVariant>& values)
{
    for (const CVariant& a : values)
    {
        for (const CVariant& b : values)
            vantor::VariantCompare(a, b);
    }
}
}   // namespace

TEST(VariantLeaks, TheCountSeesAStringThatIsNotFreed)
{
    const CAllocations allocations;
    const BSTR text = ::SysAllocString(L"kept");
    EXPECT_EQ(1U, allocations.Held());
    ::SysFreeString(text);
    EXPECT_EQ(0U, allocations.Held());
}

TEST(VariantLeaks, TheCountSeesABlockThatIsFreedTwice)
{
    const CAllocations allocations;
    void* const block = ::CoTaskMemAlloc(8);
    ::CoTaskMemFree(block);
    EXPECT_EQ(0U, allocations.Strays());
    ::CoTaskMemFree(block);
    EXPECT_EQ(1U, allocations.Strays());
}

TEST(VariantLeaks, AStringThatIsParsedIsFreed)
{
    const CAllocations allocations;
    CVariant v = String(L"FFh");
    vantor::VariantChangeType(UsEnglish, VT_I4, v, 16);
    EXPECT_EQ(0U, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}

TEST(VariantLeaks, AStringWithTextAfterTheNumberIsFreed)
{
    const CAllocations allocations;
    CVariant v = String(L"FFx");
    vantor::VariantChangeType(UsEnglish, VT_I4, v, 16);
    EXPECT_EQ(0U, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}

TEST(VariantLeaks, AStringWhoseNumberDoesNotFitIsFreed)
{
    const CAllocations allocations;
    CVariant v = String(L"FFF");
    vantor::VariantChangeType(UsEnglish, VT_UI1, v, 16);
    EXPECT_EQ(0U, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}

TEST(VariantLeaks, AnIntegerThatIsFormattedOwnsOneString)
{
    const CAllocations allocations;
    CVariant v = I4(255);
    vantor::VariantChangeType(UsEnglish, VT_BSTR, v, 16);
    EXPECT_EQ(1U, allocations.Held());
}

TEST(VariantLeaks, ANumberThatThePlatformFormatsOwnsOneString)
{
    const CAllocations allocations;
    CVariant v = R8(1.5);
    vantor::VariantChangeType(UsEnglish, VT_BSTR, v, 0);
    EXPECT_EQ(1U, allocations.Held());
}

TEST(VariantLeaks, AStringThatCannotBeConvertedIsKept)
{
    const CAllocations allocations;
    CVariant v = String(L"apple");
    vantor::VariantChangeType(UsEnglish, VT_R8, v, 0);
    EXPECT_EQ(1U, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}

TEST(VariantLeaks, NoConversionLeaksOrFreesTwice)
{
    CObject object;
    const CAllocations allocations;
    const std::vector<CVariant> values = ValuesOfEveryType(object);
    ChangeAll(values, 0);
    const std::size_t held = allocations.Held();
    ChangeAll(values, 0);
    EXPECT_EQ(held, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}

TEST(VariantLeaks, NoConversionWithARadixLeaksOrFreesTwice)
{
    for (const int base : {2, 8, 10, 16, 36, 1, 37, -1})
    {
        CObject object;
        const CAllocations allocations;
        const std::vector<CVariant> values = ValuesOfEveryType(object);
        ChangeAll(values, base);
        const std::size_t held = allocations.Held();
        ChangeAll(values, base);
        EXPECT_EQ(held, allocations.Held()) << "base " << base;
        EXPECT_EQ(0U, allocations.Strays()) << "base " << base;
    }
}

TEST(VariantLeaks, NoConversionKeepsAReference)
{
    CObject object;
    {
        const std::vector<CVariant> values = ValuesOfEveryType(object);
        const LONG references = object.References();
        ChangeAll(values, 0);
        EXPECT_EQ(references, object.References());
    }
    EXPECT_EQ(FirstReference, object.References());
}

TEST(VariantLeaks, NoComparisonLeaksOrFreesTwice)
{
    CObject object;
    const CAllocations allocations;
    const std::vector<CVariant> values = ValuesOfEveryType(object);
    CompareAll(values);
    const std::size_t held = allocations.Held();
    CompareAll(values);
    EXPECT_EQ(held, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}

TEST(VariantLeaks, NoComparisonKeepsAReference)
{
    CObject object;
    const std::vector<CVariant> values = ValuesOfEveryType(object);
    const LONG references = object.References();
    CompareAll(values);
    EXPECT_EQ(references, object.References());
}

TEST(VariantLeaks, AStringThatBecomesAnArrayForTheComparisonIsFreed)
{
    const CAllocations allocations;
    CVariant array = Empty(VT_ARRAY | VT_UI1);
    array.parray = ::SafeArrayCreateVector(VT_UI1, 0, 2);
    const CVariant text = String(L"ab");
    const std::size_t held = allocations.Held();
    EXPECT_EQ(0, vantor::VariantCompare(array, text));
    EXPECT_EQ(held, allocations.Held());
    EXPECT_EQ(0U, allocations.Strays());
}
