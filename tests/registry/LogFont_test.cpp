// CLogFont as the record that it is.

#include <vantor/LogFont.h>

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using namespace vantor;

namespace
{
static_assert(sizeof(CLogFont) == sizeof(LOGFONTW));
static_assert(sizeof(CLogFont) == 92);
static_assert(alignof(CLogFont) == alignof(LOGFONTW));
static_assert(!std::is_polymorphic_v<CLogFont>);
static_assert(std::is_convertible_v<CLogFont*, LOGFONTW*>);   // publicly derived
static_assert(std::is_convertible_v<CLogFont&, LOGFONTW*>);
static_assert(std::is_convertible_v<CLogFont, LOGFONTW>);
static_assert(std::is_convertible_v<const CLogFont&, LOGFONTW>);
static_assert(std::is_convertible_v<const LOGFONTW&, CLogFont>);
static_assert(std::is_assignable_v<CLogFont&, const LOGFONTW&>);

LOGFONTW SomeFont()
{
    LOGFONTW font = {-14, 1, 900, 901, 700, 1, 2, 3, DEFAULT_CHARSET, 4, 5, 6, 34, {}};
    std::wcscpy(font.lfFaceName, L"Tahoma");
    return font;
}

bool Same(const LOGFONTW& a, const LOGFONTW& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;   // the record has no gaps
}
}   // namespace

TEST(LogFont, Default_IsAllZeros)
{
    alignas(CLogFont) unsigned char place[sizeof(CLogFont)];
    std::memset(place, 0xFF, sizeof place);
    const CLogFont* const font = new (place) CLogFont;
    EXPECT_TRUE(Same(LOGFONTW(), *font));
}

TEST(LogFont, ConstructedFromARecord_IsThatRecord)
{
    const CLogFont font(SomeFont());
    EXPECT_TRUE(Same(SomeFont(), font));
}

TEST(LogFont, AssignedFromARecord_IsThatRecord)
{
    CLogFont font;
    font = SomeFont();
    EXPECT_TRUE(Same(SomeFont(), font));
}

TEST(LogFont, Copy_IsTheSameRecord)
{
    const CLogFont font(SomeFont());
    const CLogFont copy(font);
    EXPECT_TRUE(Same(font, copy));
}

TEST(LogFont, ConvertedToARecord_IsThatRecord)
{
    const CLogFont font(SomeFont());
    const LOGFONTW record = font;
    EXPECT_TRUE(Same(SomeFont(), record));
}

TEST(LogFont, ConvertedToAPointer_IsTheObjectItself)
{
    CLogFont font;
    LOGFONTW* const record = font;
    EXPECT_EQ(static_cast<void*>(&font), record);
}

TEST(LogFont, ConstantConvertedToAPointer_IsTheObjectItself)
{
    const CLogFont font;
    const LOGFONTW* const record = font;
    EXPECT_EQ(static_cast<const void*>(&font), record);
}

TEST(LogFont, GivenToThePlatform_IsFilledByIt)
{
    const HFONT made = ::CreateFontIndirectW(CLogFont(SomeFont()));
    CLogFont font;
    EXPECT_EQ(static_cast<int>(sizeof(LOGFONTW)), ::GetObjectW(made, sizeof(LOGFONTW), static_cast<LOGFONTW*>(font)));
    EXPECT_EQ(-14, font.lfHeight);
    EXPECT_STREQ(L"Tahoma", font.lfFaceName);
    ::DeleteObject(made);
}
