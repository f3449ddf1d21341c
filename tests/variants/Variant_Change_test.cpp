// Conversions without a radix: what stays, what true becomes, what a failure leaves.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace variants;
using vantor::VariantChangeType;

static_assert(noexcept(VariantChangeType(0UL, VARTYPE{0}, std::declval<VARIANT&>(), 0)), "nothing throws");
static_assert(std::is_same<decltype(&vantor::VariantChangeType),
                           bool (*)(unsigned long, unsigned short, VARIANT&, int) noexcept>(),
              "the signature is a contract");

namespace
{
constexpr VARTYPE NumberTypes[] = {VT_I2,  VT_I4,  VT_R4,  VT_R8, VT_CY,  VT_DATE, VT_DECIMAL, VT_I1,
                                   VT_UI1, VT_UI2, VT_UI4, VT_I8, VT_UI8, VT_INT,  VT_UINT};

// Everything but the radix: base 0 and one that has nothing to do with these types.
constexpr int BasesOfNoConcern[] = {0, 16, 37, -1};
}   // namespace

TEST(VariantChange, ToItsOwnType_IsTrue)
{
    CObject object;
    for (CVariant& v : ValuesOfEveryType(object))
        EXPECT_TRUE(VariantChangeType(UsEnglish, v.vt, v, 0)) << Describe(v);
}

TEST(VariantChange, ToItsOwnType_LeavesItAsItIs)
{
    CObject object;
    for (CVariant& v : ValuesOfEveryType(object))
    {
        const VARIANT before = v;
        VariantChangeType(UsEnglish, v.vt, v, 0);
        EXPECT_TRUE(IsSame(before, v)) << Describe(before) << " became " << Describe(v);
    }
}

TEST(VariantChange, ToItsOwnType_WithAnyBase_IsTrue)
{
    for (const int base : {16, 1, 37, -1})
    {
        CVariant text = String(L"x");
        EXPECT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, text, base)) << base;
        EXPECT_TRUE(TextOf(text) == L"x") << base;
    }
}

TEST(VariantChange, ToItsOwnType_ThatThePlatformDoesNotKnow_IsTrue)
{
    CVariant v = Empty(0x7FFF);
    EXPECT_TRUE(VariantChangeType(UsEnglish, 0x7FFF, v, 0));
    v.vt = VT_EMPTY;
}

TEST(VariantChange, True_ToAnInteger_IsOne)
{
    CVariant v = Bool(VARIANT_TRUE);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 0));
    EXPECT_EQ(VT_I4, v.vt);
    EXPECT_EQ(1, v.lVal);
}

TEST(VariantChange, True_ToEveryNumberType_IsOne)
{
    for (const VARTYPE vt : NumberTypes)
    {
        CVariant v = Bool(VARIANT_TRUE);
        ASSERT_TRUE(VariantChangeType(UsEnglish, vt, v, 0)) << vt;
        EXPECT_EQ(vt, v.vt);
        EXPECT_EQ(1.0, NumberOf(v)) << vt;
    }
}

TEST(VariantChange, AnyTrue_ToANumber_IsOne)
{
    for (const int value : {-1, 1, 2, 0x7FFF, -0x8000})
    {
        CVariant v = Bool(value);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I2, v, 0)) << value;
        EXPECT_EQ(1, v.iVal) << value;
    }
}

TEST(VariantChange, True_ToANumber_WithABase_IsOne)
{
    for (const int base : BasesOfNoConcern)
    {
        CVariant v = Bool(VARIANT_TRUE);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_UI1, v, base)) << base;
        EXPECT_EQ(1, v.bVal) << base;
    }
}

TEST(VariantChange, False_ToEveryNumberType_IsZero)
{
    for (const VARTYPE vt : NumberTypes)
    {
        CVariant v = Bool(VARIANT_FALSE);
        ASSERT_TRUE(VariantChangeType(UsEnglish, vt, v, 0)) << vt;
        EXPECT_EQ(0.0, NumberOf(v)) << vt;
    }
}

TEST(VariantChange, True_ToAString_IsAWord)
{
    for (const int value : {-1, 1, 2})
    {
        CVariant v = Bool(value);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 0));
        EXPECT_TRUE(TextOf(v) == L"True") << Describe(v);
    }
}

TEST(VariantChange, False_ToAString_IsAWord)
{
    CVariant v = Bool(VARIANT_FALSE);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 0));
    EXPECT_TRUE(TextOf(v) == L"False") << Describe(v);
}

TEST(VariantChange, True_ToAString_WithABase_IsAWord)
{
    for (const int base : BasesOfNoConcern)
    {
        CVariant v = Bool(VARIANT_TRUE);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, base)) << base;
        EXPECT_TRUE(TextOf(v) == L"True") << Describe(v);
    }
}

TEST(VariantChange, ANumber_ToABool_IsThePlatformsTrue)
{
    CVariant v = I4(5);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BOOL, v, 0));
    EXPECT_EQ(VT_BOOL, v.vt);
    EXPECT_EQ(VARIANT_TRUE, v.boolVal);
}

TEST(VariantChange, AReferenceToTrue_IsThePlatformsNumber)
{
    VARIANT_BOOL truth = VARIANT_TRUE;
    CVariant v = Empty(VT_BYREF | VT_BOOL);
    v.pboolVal = &truth;
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 0));
    EXPECT_EQ(-1, v.lVal);
    EXPECT_EQ(VARIANT_TRUE, truth);
}

TEST(VariantChange, AStringOfDigits_WithoutABase_IsDecimal)
{
    CVariant v = String(L"10");
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 0));
    EXPECT_EQ(10, v.lVal);
}

TEST(VariantChange, AnInteger_WithoutABase_IsWrittenDecimal)
{
    CVariant v = I4(-255);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 0));
    EXPECT_TRUE(TextOf(v) == L"-255") << Describe(v);
}

TEST(VariantChange, NumbersOfOtherTypes_TakeNoNoticeOfTheBase)
{
    for (const int base : BasesOfNoConcern)
    {
        CVariant number = R8(255);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, number, base)) << base;
        EXPECT_TRUE(TextOf(number) == L"255") << Describe(number);
        CVariant large = I8(255);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, large, base)) << base;
        EXPECT_TRUE(TextOf(large) == L"255") << Describe(large);
        CVariant integer = I4(255);
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_UI1, integer, base)) << base;
        EXPECT_EQ(255, integer.bVal) << base;
    }
}

TEST(VariantChange, AStringToATypeThatIsNoInteger_TakesNoNoticeOfTheBase)
{
    for (const int base : BasesOfNoConcern)
    {
        CVariant number = String(L"10");
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_R8, number, base)) << base;
        EXPECT_EQ(10.0, number.dblVal) << base;
        CVariant large = String(L"10");
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I8, large, base)) << base;
        EXPECT_EQ(10, large.llVal) << base;
        CVariant truth = String(L"True");
        ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BOOL, truth, base)) << base;
        EXPECT_EQ(VARIANT_TRUE, truth.boolVal) << base;
    }
}

TEST(VariantChange, AnIntegerByReference_TakesNoNoticeOfTheBase)
{
    LONG value = 255;
    CVariant v = Empty(VT_BYREF | VT_I4);
    v.plVal = &value;
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_BSTR, v, 16));
    EXPECT_TRUE(TextOf(v) == L"255") << Describe(v);
}

TEST(VariantChange, AStringByReference_TakesNoNoticeOfTheBase)
{
    CVariant text = String(L"10");
    CVariant v = Empty(VT_BYREF | VT_BSTR);
    v.pbstrVal = &text.bstrVal;
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 16));
    EXPECT_EQ(10, v.lVal);
    EXPECT_TRUE(TextOf(text) == L"10");
}

TEST(VariantChange, OutOfTheTargetsRange_Fails)
{
    CVariant v = I4(256);
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_UI1, v, 0));
}

TEST(VariantChange, OutOfTheTargetsRange_LeavesItAsItIs)
{
    CVariant v = I4(256);
    VariantChangeType(UsEnglish, VT_UI1, v, 0);
    EXPECT_EQ(VT_I4, v.vt);
    EXPECT_EQ(256, v.lVal);
}

TEST(VariantChange, TextThatIsNoNumber_Fails)
{
    CVariant v = String(L"apple");
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_I4, v, 0));
}

TEST(VariantChange, TextThatIsNoNumber_StaysTheSameString)
{
    CVariant v = String(L"apple");
    const BSTR before = v.bstrVal;
    VariantChangeType(UsEnglish, VT_I4, v, 0);
    ASSERT_EQ(VT_BSTR, v.vt);
    EXPECT_EQ(before, v.bstrVal);
    EXPECT_TRUE(TextOf(v) == L"apple");
}

TEST(VariantChange, AFailureOfTrue_LeavesOne)
{
    CVariant v = Bool(VARIANT_TRUE);
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_DISPATCH, v, 0));
    EXPECT_EQ(VT_BOOL, v.vt);
    EXPECT_EQ(1, v.boolVal);
}

TEST(VariantChange, ToATypeThatIsNone_FailsAndLeavesItAsItIs)
{
    for (const int type : {int{VT_VARIANT}, 15, int{VT_VOID}, int{VT_CLSID}, VT_BYREF | VT_I4, 0x7FFF, 0xFFFF})
    {
        CVariant v = I4(7);
        EXPECT_FALSE(VariantChangeType(UsEnglish, static_cast<VARTYPE>(type), v, 0)) << type;
        EXPECT_EQ(VT_I4, v.vt) << type;
        EXPECT_EQ(7, v.lVal) << type;
    }
}

TEST(VariantChange, AnObject_BecomesItsDefaultProperty)
{
    CObject object;
    CVariant v = Of(VT_DISPATCH, &object);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 0));
    EXPECT_EQ(10, v.lVal);
    EXPECT_EQ(FirstReference, object.References());
}

TEST(VariantChange, AnObjectWithABase_BecomesItsDefaultPropertyDecimal)
{
    CObject object;
    CVariant v = Of(VT_DISPATCH, &object);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_I4, v, 16));
    EXPECT_EQ(10, v.lVal);
}

TEST(VariantChange, AnObject_BecomesItsOtherInterface)
{
    CObject object;
    CVariant v = Of(VT_DISPATCH, &object);
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_UNKNOWN, v, 0));
    EXPECT_EQ(VT_UNKNOWN, v.vt);
    EXPECT_EQ(FirstReference + 1, object.References());
}
