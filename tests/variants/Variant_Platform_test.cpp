// What reaches the platform, and what happens when it refuses.

#include "Values.h"
#include "support/ImportPatch.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

#include <cwchar>

using namespace variants;
using support::CImportPatch;
using vantor::VariantChangeType;
using vantor::VariantCompare;

namespace
{
struct SCall
{
    VARIANT* target;
    VARIANT* source;
    VARIANT value;   // of the source, at the call
    LCID lcid;
    USHORT flags;
    VARTYPE vt;
};

std::vector<SCall> g_calls;

HRESULT WINAPI RecordingChange(VARIANT* target, VARIANT* source, LCID lcid, USHORT flags, VARTYPE vt)
{
    g_calls.push_back({target, source, *source, lcid, flags, vt});
    return ::VariantChangeTypeEx(target, source, lcid, flags, vt);
}

HRESULT WINAPI RefusingChange(VARIANT*, VARIANT*, LCID, USHORT, VARTYPE)
{
    return E_OUTOFMEMORY;
}

HRESULT WINAPI ChangeWithAWarning(VARIANT* target, VARIANT* source, LCID lcid, USHORT flags, VARTYPE vt)
{
    const HRESULT result = ::VariantChangeTypeEx(target, source, lcid, flags, vt);
    return SUCCEEDED(result) ? S_FALSE : result;
}

BSTR WINAPI NoMemory(const OLECHAR*)
{
    return nullptr;
}

int __cdecl LargeOrder(const wchar_t*, const wchar_t*)
{
    return 4711;
}

int __cdecl LargeNegativeOrder(const wchar_t*, const wchar_t*)
{
    return -4711;
}

class VariantPlatform : public testing::Test
{
protected:
    VariantPlatform() { g_calls.clear(); }
};
}   // namespace

TEST_F(VariantPlatform, Change_PassesTheLanguage)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    for (const LCID lcid : {1033UL, 1031UL, 1036UL, 0UL, 0xFFFFFFFFUL})
    {
        g_calls.clear();
        CVariant v = I4(1);
        VariantChangeType(lcid, VT_R8, v, 0);
        ASSERT_EQ(1U, g_calls.size());
        EXPECT_EQ(lcid, g_calls[0].lcid);
    }
}

TEST_F(VariantPlatform, Change_PassesTheTargetAndWordsForTruth)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    CVariant v = I4(1);
    VariantChangeType(UsEnglish, VT_R8, v, 0);
    ASSERT_EQ(1U, g_calls.size());
    EXPECT_EQ(2, g_calls[0].flags);
    EXPECT_EQ(VT_R8, g_calls[0].vt);
}

TEST_F(VariantPlatform, Change_ConvertsInPlace)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    CVariant v = I4(1);
    VariantChangeType(UsEnglish, VT_BSTR, v, 0);
    ASSERT_EQ(1U, g_calls.size());
    EXPECT_EQ(&v, g_calls[0].target);
    EXPECT_EQ(&v, g_calls[0].source);
}

TEST_F(VariantPlatform, Change_HandsTrueOnAsOne)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    for (const int value : {-1, 1, 2})
    {
        g_calls.clear();
        CVariant v = Bool(value);
        VariantChangeType(UsEnglish, VT_I4, v, 0);
        ASSERT_EQ(1U, g_calls.size());
        EXPECT_EQ(VT_BOOL, g_calls[0].value.vt);
        EXPECT_EQ(1, g_calls[0].value.boolVal) << value;
    }
}

TEST_F(VariantPlatform, Change_HandsFalseOnAsItIs)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    CVariant v = Bool(0);
    VariantChangeType(UsEnglish, VT_I4, v, 0);
    ASSERT_EQ(1U, g_calls.size());
    EXPECT_EQ(0, g_calls[0].value.boolVal);
}

TEST_F(VariantPlatform, Change_ToItsOwnType_AsksNobody)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    CVariant v = String(L"1");
    VariantChangeType(UsEnglish, VT_BSTR, v, 16);
    EXPECT_EQ(0U, g_calls.size());
}

TEST_F(VariantPlatform, Change_OfParsedText_HandsOnAnI4WhateverTheTarget)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    for (const VARTYPE vt : {VT_I1, VT_I2, VT_I4, VT_INT, VT_UI1, VT_UI2, VT_UI4, VT_UINT})
    {
        g_calls.clear();
        CVariant v = String(L"1F");
        VariantChangeType(1031, vt, v, 16);
        ASSERT_EQ(1U, g_calls.size()) << vt;
        EXPECT_EQ(VT_I4, g_calls[0].value.vt) << vt;
        EXPECT_EQ(0x1F, g_calls[0].value.lVal) << vt;
        EXPECT_EQ(vt, g_calls[0].vt);
        EXPECT_EQ(1031U, g_calls[0].lcid);
        EXPECT_EQ(2, g_calls[0].flags);
    }
}

TEST_F(VariantPlatform, Change_OfTextWithARemainder_IsConvertedAllTheSame)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    CVariant v = String(L"1Fx");
    VariantChangeType(UsEnglish, VT_UI1, v, 16);
    ASSERT_EQ(1U, g_calls.size());
    EXPECT_EQ(0x1F, g_calls[0].value.lVal);
}

TEST_F(VariantPlatform, Change_ToDigits_AsksNobody)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    CVariant v = I4(255);
    VariantChangeType(UsEnglish, VT_BSTR, v, 16);
    EXPECT_EQ(0U, g_calls.size());
}

TEST_F(VariantPlatform, Change_WhenRefused_Fails)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RefusingChange);
    CVariant v = I4(5);
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_R8, v, 0));
    EXPECT_EQ(VT_I4, v.vt);
    EXPECT_EQ(5, v.lVal);
}

TEST_F(VariantPlatform, Change_OfText_WhenRefused_LeavesTheI4)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RefusingChange);
    CVariant v = String(L"1F");
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_I4, v, 16));
    EXPECT_EQ(VT_I4, v.vt);
    EXPECT_EQ(0x1F, v.lVal);
}

TEST_F(VariantPlatform, Change_WithAnySuccess_IsTrue)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &ChangeWithAWarning);
    CVariant v = I4(5);
    EXPECT_TRUE(VariantChangeType(UsEnglish, VT_R8, v, 0));
}

TEST_F(VariantPlatform, Change_WithoutMemoryForDigits_FailsAndLeavesTheInteger)
{
    const CImportPatch patch(&::SysAllocString, &NoMemory);
    CVariant v = UI2(65535);
    EXPECT_FALSE(VariantChangeType(UsEnglish, VT_BSTR, v, 16));
    EXPECT_EQ(VT_UI2, v.vt);
    EXPECT_EQ(65535, v.uiVal);
}

TEST_F(VariantPlatform, Compare_ConvertsByUsEnglishRulesToTheFirstType)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    VariantCompare(R8(1), String(L"1"));
    ASSERT_EQ(1U, g_calls.size());
    EXPECT_EQ(1033U, g_calls[0].lcid);
    EXPECT_EQ(2, g_calls[0].flags);
    EXPECT_EQ(VT_R8, g_calls[0].vt);
    EXPECT_EQ(VT_BSTR, g_calls[0].value.vt);
}

TEST_F(VariantPlatform, Compare_HandsTrueOnAsOne)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    VariantCompare(I4(1), Bool(VARIANT_TRUE));
    ASSERT_EQ(1U, g_calls.size());
    EXPECT_EQ(1, g_calls[0].value.boolVal);
}

TEST_F(VariantPlatform, Compare_OfTheSameType_AsksNobody)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RecordingChange);
    VariantCompare(R8(1), R8(2));
    VariantCompare(String(L"1"), String(L"2"));
    VariantCompare(Date(1), Date(2));
    EXPECT_EQ(0U, g_calls.size());
}

TEST_F(VariantPlatform, Compare_WhenTheConversionIsRefused_IsZero)
{
    const CImportPatch patch(&::VariantChangeTypeEx, &RefusingChange);
    EXPECT_EQ(0, VariantCompare(I4(1), I2(2)));
}

TEST_F(VariantPlatform, Compare_OfStrings_GivesThePlatformsNumber)
{
    const CImportPatch patch(&std::wcscmp, &LargeOrder);
    EXPECT_EQ(4711, VariantCompare(String(L"a"), String(L"b")));
}

TEST_F(VariantPlatform, Compare_OfStrings_GivesThePlatformsNegativeNumber)
{
    const CImportPatch patch(&std::wcscmp, &LargeNegativeOrder);
    EXPECT_EQ(-4711, VariantCompare(String(L"a"), String(L"b")));
}
