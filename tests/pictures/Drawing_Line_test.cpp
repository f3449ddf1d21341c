#include "Picture.h"

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;

namespace
{
constexpr int Square = 40;

// Draws lines of random colours over a random picture, each compared with the slow picture's.
class CLines
{
public:
    explicit CLines(unsigned int seed) : m_random(seed), m_background(Square, Square), m_surface(Square, Square)
    {
        m_background.Fill(m_random);
    }

    void Expect(POINT p1, POINT p2, unsigned char halfWidth)
    {
        const COLORREF colour = m_random() & 0xFFFFFF;
        CSlowPicture wanted = m_background;
        wanted.DrawSmoothLine(p1, p2, colour, halfWidth);
        m_background.CopyTo(m_surface);
        CDCEx(m_surface).DrawSmoothLine(p1, p2, colour, halfWidth);
        ASSERT_TRUE(Same(wanted, m_surface)) << p1 << " to " << p2 << ", half-width " << int{halfWidth};
    }

    void ExpectToAll(POINT from, unsigned char halfWidth)
    {
        for (int y = 0; y < Square && !testing::Test::HasFatalFailure(); ++y)
        {
            for (int x = 0; x < Square && !testing::Test::HasFatalFailure(); ++x)
                Expect(from, {x, y}, halfWidth);
        }
    }

    LONG Random(int first, int last)
    {
        return first + static_cast<int>(m_random() % static_cast<unsigned int>(last - first + 1));
    }

private:
    std::mt19937 m_random;
    CSlowPicture m_background;
    CSurface m_surface;
};

// A black surface with one white line.
class CWhiteLine
{
public:
    CWhiteLine(POINT p1, POINT p2, unsigned char halfWidth = 0) : m_surface(Square, Square)
    {
        CSlowPicture(Square, Square).CopyTo(m_surface);
        CDCEx(m_surface).DrawSmoothLine(p1, p2, RGB(255, 255, 255), halfWidth);
    }

    int At(int x, int y) const { return GetRValue(m_surface.GetPixel(x, y)); }
    int Lit() const
    {
        int count = 0;
        for (int y = 0; y < Square; ++y)
        {
            for (int x = 0; x < Square; ++x)
                count += At(x, y) != 0;
        }
        return count;
    }

private:
    CSurface m_surface;
};

class DrawingLinesOfWidth : public testing::TestWithParam<int>
{
};
}   // namespace

TEST_P(DrawingLinesOfWidth, FromTheCentreToAllPoints)
{
    CLines lines(1);
    lines.ExpectToAll({20, 20}, static_cast<unsigned char>(GetParam()));
}

TEST_P(DrawingLinesOfWidth, FromACornerToAllPoints)
{
    CLines lines(2);
    lines.ExpectToAll({0, Square - 1}, static_cast<unsigned char>(GetParam()));
}

TEST_P(DrawingLinesOfWidth, ThatLeaveThePicture)
{
    CLines lines(3);
    for (int i = 0; i < 4000 && !HasFatalFailure(); ++i)
    {
        const POINT p1 = {lines.Random(-60, 100), lines.Random(-60, 100)};
        const POINT p2 = {lines.Random(-60, 100), lines.Random(-60, 100)};
        lines.Expect(p1, p2, static_cast<unsigned char>(GetParam()));
    }
}

INSTANTIATE_TEST_SUITE_P(Half, DrawingLinesOfWidth, testing::Values(0, 1, 2, 3, 200, 255));

TEST(DrawingLines, FromEveryThirdPointToAllPoints)
{
    CLines lines(4);
    for (int y = 0; y < Square && !HasFatalFailure(); y += 3)
    {
        for (int x = 0; x < Square && !HasFatalFailure(); x += 3)
            lines.ExpectToAll({x, y}, 0);
    }
}

TEST(DrawingLines, Vertical_IsFromEndToEnd)
{
    const CWhiteLine line({7, 12}, {7, 5});
    EXPECT_EQ(8, line.Lit());
    EXPECT_EQ(255, line.At(7, 5));
    EXPECT_EQ(255, line.At(7, 12));
}

TEST(DrawingLines, Horizontal_IsFromEndToEnd)
{
    const CWhiteLine line({12, 7}, {5, 7});
    EXPECT_EQ(8, line.Lit());
    EXPECT_EQ(255, line.At(5, 7));
    EXPECT_EQ(255, line.At(12, 7));
}

TEST(DrawingLines, Vertical_IsAsWideAsAsked)
{
    EXPECT_EQ(8 * 5, CWhiteLine({7, 12}, {7, 5}, 2).Lit());
}

TEST(DrawingLines, OfASinglePoint_IsItsPixel)
{
    const CWhiteLine line({9, 9}, {9, 9});
    EXPECT_EQ(1, line.Lit());
    EXPECT_EQ(255, line.At(9, 9));
}

TEST(DrawingLines, OfASinglePointWithAWidth_IsAHorizontalRun)
{
    const CWhiteLine line({9, 9}, {9, 9}, 1);
    EXPECT_EQ(3, line.Lit());
    EXPECT_EQ(255, line.At(8, 9));
    EXPECT_EQ(255, line.At(10, 9));
}

TEST(DrawingLines, AtFortyFiveDegrees_RunsVerticalPieces)
{
    const CWhiteLine line({5, 5}, {8, 8}, 1);
    EXPECT_EQ(255, line.At(5, 4));
    EXPECT_EQ(255, line.At(5, 6));
    EXPECT_EQ(0, line.At(4, 5));
    EXPECT_EQ(4 * 3, line.Lit());
}

TEST(DrawingLines, Flat_SharesTheColourBetweenTwoPixelsAColumn)
{
    const CWhiteLine line({4, 10}, {8, 11});
    EXPECT_EQ(255, line.At(4, 10));
    EXPECT_EQ(191, line.At(5, 10));
    EXPECT_EQ(63, line.At(5, 11));
    EXPECT_EQ(127, line.At(6, 10));
    EXPECT_EQ(127, line.At(6, 11));
    EXPECT_EQ(255, line.At(8, 11));
}

TEST(DrawingLines, Steep_SharesTheColourBetweenTwoPixelsARow)
{
    const CWhiteLine line({10, 4}, {11, 8});
    EXPECT_EQ(255, line.At(10, 4));
    EXPECT_EQ(191, line.At(10, 5));
    EXPECT_EQ(63, line.At(11, 5));
    EXPECT_EQ(255, line.At(11, 8));
}

TEST(DrawingLines, OnASurfaceThatIsNotCreated_DoNothing)
{
    CCompatibleDC surface;
    CDCEx(surface).DrawSmoothLine({-5, -5}, {5, 5}, RGB(255, 255, 255), 3);
    CDCEx(surface).DrawSmoothLine({0, -5}, {0, 5}, RGB(255, 255, 255), 3);
    CDCEx(surface).DrawSmoothLine({-5, 0}, {5, 0}, RGB(255, 255, 255), 3);
    EXPECT_EQ(0u, surface.GetPixel(0, 0));
}
