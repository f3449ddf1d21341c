#include "Picture.h"

#include <limits>

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;

namespace
{
constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Black = RGB(0, 0, 0);

// Black, with a run through its fifth row or column.
class CBlack
{
public:
    CBlack() : m_surface(20, 20) { CSlowPicture(20, 20).CopyTo(m_surface); }

    void Horizontal(double x, unsigned char halfWidth) { CDCEx(m_surface).SetHPixel(x, 5, White, halfWidth); }
    void Vertical(double y, unsigned char halfWidth) { CDCEx(m_surface).SetVPixel(5, y, White, halfWidth); }

    std::vector<int> Row(int first, int last) const
    {
        std::vector<int> values;
        for (int x = first; x <= last; ++x)
            values.push_back(GetRValue(m_surface.GetPixel(x, 5)));
        return values;
    }
    std::vector<int> Column(int first, int last) const
    {
        std::vector<int> values;
        for (int y = first; y <= last; ++y)
            values.push_back(GetRValue(m_surface.GetPixel(5, y)));
        return values;
    }
    int Lit() const
    {
        int count = 0;
        for (int y = 0; y < 20; ++y)
        {
            for (int x = 0; x < 20; ++x)
                count += m_surface.GetPixel(x, y) != 0;
        }
        return count;
    }

private:
    CSurface m_surface;
};

using Values = std::vector<int>;
}   // namespace

TEST(DrawingMix, OfWhiteAndBlackByHalves_IsRoundedDown)
{
    EXPECT_EQ(RGB(127, 127, 127), CDCEx::MixColors(White, Black, 0.5));
}

TEST(DrawingMix, WithRatio1_IsTheFirst)
{
    EXPECT_EQ(RGB(1, 2, 3), CDCEx::MixColors(RGB(1, 2, 3), RGB(200, 100, 50), 1.0));
}

TEST(DrawingMix, WithRatio0_IsTheSecond)
{
    EXPECT_EQ(RGB(200, 100, 50), CDCEx::MixColors(RGB(1, 2, 3), RGB(200, 100, 50), 0.0));
}

TEST(DrawingMix, WithALargerRatio_IsTheFirst)
{
    EXPECT_EQ(RGB(1, 2, 3), CDCEx::MixColors(RGB(1, 2, 3), RGB(200, 100, 50), 2.0));
    EXPECT_EQ(RGB(1, 2, 3), CDCEx::MixColors(RGB(1, 2, 3), RGB(200, 100, 50), std::numeric_limits<double>::infinity()));
}

TEST(DrawingMix, WithANegativeRatio_IsTheSecond)
{
    EXPECT_EQ(RGB(200, 100, 50), CDCEx::MixColors(RGB(1, 2, 3), RGB(200, 100, 50), -1.0));
    EXPECT_EQ(RGB(200, 100, 50),
              CDCEx::MixColors(RGB(1, 2, 3), RGB(200, 100, 50), -std::numeric_limits<double>::infinity()));
}

TEST(DrawingMix, KeepsChannelsApart)
{
    EXPECT_EQ(RGB(75, 150, 225), CDCEx::MixColors(RGB(100, 200, 240), RGB(0, 0, 180), 0.75));
}

TEST(DrawingMix, ClearsTheTopByte)
{
    EXPECT_EQ(RGB(1, 2, 3), CDCEx::MixColors(0xFF000000 | RGB(1, 2, 3), 0x80000000 | RGB(1, 2, 3), 0.25));
}

// Of ratios that are fractions of 256 whole numbers tell the exact result.
TEST(DrawingMix, OfAllChannelsByAllFractionsOf256)
{
    for (int one = 0; one < 256; ++one)
    {
        for (int two = 0; two < 256; two += 3)
        {
            const int three = two < 255 ? two + 1 : 0;
            const int four = two < 254 ? two + 2 : 0;
            for (int k = 0; k <= 256; ++k)
            {
                const auto mixed = [=](int other) { return (other * (256 - k) + one * k) / 256; };
                ASSERT_EQ(RGB(mixed(two), mixed(three), mixed(four)),
                          CDCEx::MixColors(RGB(one, one, one), RGB(two, three, four), k / 256.0))
                    << one << " and " << two << " by " << k;
            }
        }
    }
}

TEST(DrawingMix, OfRandomColoursByRandomRatios)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> ratio(-0.1, 1.1);
    for (int i = 0; i < 1'000'000; ++i)
    {
        const COLORREF one = random() & 0xFFFFFF;
        const COLORREF two = random() & 0xFFFFFF;
        const double share = ratio(random);
        ASSERT_EQ(pictures::SlowMix(one, two, share), CDCEx::MixColors(one, two, share))
            << one << " and " << two << " by " << share;
    }
}

TEST(DrawingRuns, Horizontal_AtAWholePlace_SetsExactlyTheRun)
{
    CBlack picture;
    picture.Horizontal(10.0, 1);
    EXPECT_EQ((Values{0, 255, 255, 255, 0}), picture.Row(8, 12));
    EXPECT_EQ(3, picture.Lit());
}

TEST(DrawingRuns, Horizontal_BetweenPixels_BlendsTwo)
{
    CBlack picture;
    picture.Horizontal(10.25, 0);
    EXPECT_EQ((Values{0, 191, 63, 0}), picture.Row(9, 12));
    EXPECT_EQ(2, picture.Lit());
}

TEST(DrawingRuns, Horizontal_BetweenPixelsWithAWidth_BlendsTheEnds)
{
    CBlack picture;
    picture.Horizontal(10.25, 1);
    EXPECT_EQ((Values{0, 191, 255, 255, 63, 0}), picture.Row(8, 13));
    EXPECT_EQ(4, picture.Lit());
}

TEST(DrawingRuns, Horizontal_LeftOfTheSurface_ShowsItsEndAlone)
{
    CBlack picture;
    picture.Horizontal(-0.75, 0);
    EXPECT_EQ((Values{63, 0}), picture.Row(0, 1));
    EXPECT_EQ(1, picture.Lit());
}

TEST(DrawingRuns, Horizontal_AtTheRightEdge_ShowsItsStartAlone)
{
    CBlack picture;
    picture.Horizontal(19.25, 0);
    EXPECT_EQ((Values{0, 191}), picture.Row(18, 19));
    EXPECT_EQ(1, picture.Lit());
}

TEST(DrawingRuns, Horizontal_BlendsWithWhatIsThere)
{
    CSurface surface(5, 1);
    CSlowPicture(5, 1).CopyTo(surface);
    surface.SetPixel(2, 0, RGB(100, 200, 40));
    CDCEx(surface).SetHPixel(1.5, 0, RGB(200, 0, 80), 0);
    EXPECT_EQ(RGB(100, 0, 40), surface.GetPixel(1, 0));
    EXPECT_EQ(RGB(150, 100, 60), surface.GetPixel(2, 0));
}

TEST(DrawingRuns, Vertical_AtAWholePlace_SetsExactlyTheRun)
{
    CBlack picture;
    picture.Vertical(10.0, 1);
    EXPECT_EQ((Values{0, 255, 255, 255, 0}), picture.Column(8, 12));
    EXPECT_EQ(3, picture.Lit());
}

TEST(DrawingRuns, Vertical_BetweenPixels_BlendsTwo)
{
    CBlack picture;
    picture.Vertical(10.25, 0);
    EXPECT_EQ((Values{0, 191, 63, 0}), picture.Column(9, 12));
    EXPECT_EQ(2, picture.Lit());
}

TEST(DrawingRuns, Vertical_BetweenPixelsWithAWidth_BlendsTheEnds)
{
    CBlack picture;
    picture.Vertical(10.25, 1);
    EXPECT_EQ((Values{0, 191, 255, 255, 63, 0}), picture.Column(8, 13));
    EXPECT_EQ(4, picture.Lit());
}

TEST(DrawingRuns, WithTheLargestWidth_FillTheirLine)
{
    CBlack picture;
    picture.Horizontal(-235.0, 255);
    EXPECT_EQ(20, picture.Lit());
}

TEST(DrawingRuns, BesideTheSurface_DoNothing)
{
    CSurface surface(20, 20);
    const CSlowPicture black(20, 20);
    black.CopyTo(surface);
    CDCEx draw(surface);
    for (const int beside : {-1, 20, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        draw.SetHPixel(5.5, beside, White, 3);
        draw.SetVPixel(beside, 5.5, White, 3);
    }
    EXPECT_TRUE(Same(black, surface));
}

TEST(DrawingRuns, AtPlacesThatNoIntegerReaches_DoNothing)
{
    CSurface surface(20, 20);
    const CSlowPicture black(20, 20);
    black.CopyTo(surface);
    CDCEx draw(surface);
    using Limits = std::numeric_limits<double>;
    for (const double outside : {4294967301.0, -4294967291.5, 1e300, -1e300, Limits::infinity(), Limits::quiet_NaN()})
    {
        draw.SetHPixel(outside, 5, White, 255);
        draw.SetVPixel(5, outside, White, 255);
    }
    EXPECT_TRUE(Same(black, surface));
}

TEST(DrawingRuns, AtRandomPlacesAndWidths)
{
    std::mt19937 random(2);
    std::uniform_real_distribution<double> place(-30.0, 60.0);
    CSlowPicture wanted(31, 23);
    wanted.Fill(random);
    CSurface surface(31, 23);
    wanted.CopyTo(surface);
    CDCEx draw(surface);
    for (int i = 0; i < 100'000; ++i)
    {
        const COLORREF colour = random() & 0xFFFFFF;
        const auto halfWidth = static_cast<unsigned char>(random() % 4 == 0 ? random() % 256 : random() % 4);
        const double at = random() % 8 == 0 ? static_cast<int>(place(random)) : place(random);
        const int line = static_cast<int>(random() % 40) - 4;
        draw.SetHPixel(at, line, colour, halfWidth);
        wanted.SetHPixel(at, line, colour, halfWidth);
        draw.SetVPixel(line, at, colour, halfWidth);
        wanted.SetVPixel(line, at, colour, halfWidth);
        ASSERT_TRUE(Same(wanted, surface)) << at << ", line " << line << ", half-width " << int{halfWidth};
    }
}

TEST(DrawingRuns, AtPlacesAHairFromWholeOnes)
{
    std::mt19937 random(3);
    CSlowPicture wanted(31, 23);
    wanted.Fill(random);
    CSurface surface(31, 23);
    wanted.CopyTo(surface);
    CDCEx draw(surface);
    for (const double hair : {1e-300, 1e-17, 1e-15, 1e-9})
    {
        for (int at = -3; at < 34; ++at)
        {
            for (const double x : {at + hair, at - hair})
            {
                for (unsigned char halfWidth = 0; halfWidth < 4; ++halfWidth)
                {
                    const COLORREF colour = random() & 0xFFFFFF;
                    draw.SetHPixel(x, 7, colour, halfWidth);
                    wanted.SetHPixel(x, 7, colour, halfWidth);
                    draw.SetVPixel(7, x, colour, halfWidth);
                    wanted.SetVPixel(7, x, colour, halfWidth);
                    ASSERT_TRUE(Same(wanted, surface)) << at << " and " << hair << ", half-width " << int{halfWidth};
                }
            }
        }
    }
}
