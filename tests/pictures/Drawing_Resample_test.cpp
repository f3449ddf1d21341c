#include "Picture.h"

#include <cstring>

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;

namespace
{
CSlowPicture Random(int width, int height, unsigned int seed)
{
    std::mt19937 random(seed);
    CSlowPicture picture(width, height);
    picture.Fill(random);
    return picture;
}

// The averages, of a picture that stays as it is.
CSlowPicture Averaged(const CSlowPicture& source, int factor)
{
    CSlowPicture result = source;
    for (int x = 0; x < source.Width() / factor; x++)
    {
        for (int y = 0; y < source.Height() / factor; y++)
        {
            int red = 0;
            int green = 0;
            int blue = 0;
            for (int i = 0; i < factor * factor; i++)
            {
                const COLORREF c = source.GetPixel(x * factor + i % factor, y * factor + i / factor);
                red += GetRValue(c);
                green += GetGValue(c);
                blue += GetBValue(c);
            }
            const int count = factor * factor;
            result.SetPixel(x, y, RGB(red / count, green / count, blue / count));
        }
    }
    return result;
}

class DrawingResampleBy : public testing::TestWithParam<int>
{
};
}   // namespace

TEST_P(DrawingResampleBy, PicturesOfOddSizes)
{
    for (const int width : {1, 3, 5, 7, 15, 17, 31, 33, 51, 67})
    {
        for (const int height : {1, 3, 5, 7, 15, 17, 31, 33, 51, 67})
        {
            const CSlowPicture source = Random(width, height, static_cast<unsigned int>(width * 100 + height));
            CSurface surface(width, height);
            source.CopyTo(surface);
            ASSERT_TRUE(surface.ResampleDown(static_cast<unsigned int>(GetParam())));
            ASSERT_TRUE(Same(Averaged(source, GetParam()), surface)) << width << " x " << height;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Factor, DrawingResampleBy, testing::Range(1, 18));

TEST(DrawingResample, ByTwo_IgnoresTheLastRowAndColumnOfFive)
{
    CSlowPicture source(5, 5);
    for (int i = 0; i < 5; ++i)
    {
        source.SetPixel(4, i, RGB(255, 255, 255));
        source.SetPixel(i, 4, RGB(255, 255, 255));
    }
    source.SetPixel(0, 0, RGB(4, 8, 12));
    source.SetPixel(3, 3, RGB(40, 80, 120));
    CSurface surface(5, 5);
    source.CopyTo(surface);
    EXPECT_TRUE(surface.ResampleDown(2));
    EXPECT_EQ(RGB(1, 2, 3), surface.GetPixel(0, 0));
    EXPECT_EQ(0u, surface.GetPixel(1, 0));
    EXPECT_EQ(0u, surface.GetPixel(0, 1));
    EXPECT_EQ(RGB(10, 20, 30), surface.GetPixel(1, 1));
}

TEST(DrawingResample, RoundsDown)
{
    CSlowPicture source(2, 2);
    source.SetPixel(0, 0, RGB(255, 3, 4));
    source.SetPixel(1, 1, RGB(252, 0, 3));
    CSurface surface(2, 2);
    source.CopyTo(surface);
    EXPECT_TRUE(surface.ResampleDown(2));
    EXPECT_EQ(RGB(126, 0, 1), surface.GetPixel(0, 0));
}

TEST(DrawingResample, LeavesTheRestOfThePicture)
{
    const CSlowPicture source = Random(6, 6, 1);
    CSurface surface(6, 6);
    source.CopyTo(surface);
    EXPECT_TRUE(surface.ResampleDown(3));
    for (int y = 0; y < 6; ++y)
    {
        for (int x = 0; x < 6; ++x)
        {
            if (x >= 2 || y >= 2)
            {
                EXPECT_EQ(source.GetPixel(x, y), surface.GetPixel(x, y)) << x << ", " << y;
            }
        }
    }
}

TEST(DrawingResample, KeepsTheSize)
{
    CSurface surface(6, 4);
    EXPECT_TRUE(surface.ResampleDown(2));
    EXPECT_EQ(6, surface.GetBitmapSize().cx);
    EXPECT_EQ(4, surface.GetBitmapSize().cy);
}

TEST(DrawingResample, ClearsTheTopBytes)
{
    CSurface surface(2, 2);
    for (int i = 0; i < 4; ++i)
        surface.Words()[i] = 0xFF040506;
    EXPECT_TRUE(surface.ResampleDown(2));
    EXPECT_EQ(0x00040506u, surface.Words()[0]);
}

TEST(DrawingResample, By1_ChangesNothing)
{
    CSurface surface(2, 2);
    for (int i = 0; i < 4; ++i)
        surface.Words()[i] = 0xFF040506;
    EXPECT_TRUE(surface.ResampleDown(1));
    EXPECT_EQ(0xFF040506u, surface.Words()[0]);
}

TEST(DrawingResample, By0_Fails)
{
    const CSlowPicture source = Random(4, 4, 1);
    CSurface surface(4, 4);
    source.CopyTo(surface);
    EXPECT_FALSE(surface.ResampleDown(0));
    EXPECT_TRUE(Same(source, surface));
}

TEST(DrawingResample, WithoutASurface_Fails)
{
    CCompatibleDC surface;
    EXPECT_FALSE(surface.ResampleDown(2));
    EXPECT_FALSE(surface.ResampleDown(1));
}

TEST(DrawingResample, ByMoreThanTheWidth_ChangesNothing)
{
    const CSlowPicture source = Random(3, 8, 1);
    CSurface surface(3, 8);
    source.CopyTo(surface);
    EXPECT_TRUE(surface.ResampleDown(4));
    EXPECT_TRUE(Same(source, surface));
}

TEST(DrawingResample, ByMoreThanTheHeight_ChangesNothing)
{
    const CSlowPicture source = Random(8, 3, 1);
    CSurface surface(8, 3);
    source.CopyTo(surface);
    EXPECT_TRUE(surface.ResampleDown(4));
    EXPECT_TRUE(Same(source, surface));
}

TEST(DrawingResample, ByTheLargestFactor_ChangesNothing)
{
    const CSlowPicture source = Random(8, 3, 1);
    CSurface surface(8, 3);
    source.CopyTo(surface);
    EXPECT_TRUE(surface.ResampleDown(~0u));
    EXPECT_TRUE(Same(source, surface));
}

TEST(DrawingResample, OfAWhiteSquareWhoseSumExceeds32Bits_IsWhite)
{
    constexpr int side = 4105;   // 255 times its square is more than 2^32
    CSurface surface(side, side);
    std::memset(surface.Words(), 0xFF, sizeof(uint32_t) * side * side);
    EXPECT_TRUE(surface.ResampleDown(side));
    EXPECT_EQ(0x00FFFFFFu, surface.Words()[0]);
}
