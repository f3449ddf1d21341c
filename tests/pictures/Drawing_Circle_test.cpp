#include "Picture.h"

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;

namespace
{
constexpr int Square = 65;

// Circles of the radius 0 to 60, each over the random picture and compared with the slow picture's.
void ExpectCircles(POINT centre)
{
    std::mt19937 random(1);
    CSlowPicture background(Square, Square);
    background.Fill(random);
    for (unsigned int radius = 0; radius <= 60; ++radius)
    {
        const COLORREF colour = random() & 0xFFFFFF;
        CSlowPicture wanted = background;
        wanted.DrawSmoothCircle(centre, radius, colour);
        CSurface surface(Square, Square);
        background.CopyTo(surface);
        CDCEx(surface).DrawSmoothCircle(centre, radius, colour);
        ASSERT_TRUE(Same(wanted, surface)) << "radius " << radius << " at " << centre;
    }
}
}   // namespace

TEST(DrawingCircles, AroundTheMiddle)
{
    ExpectCircles({32, 32});
}

TEST(DrawingCircles, AroundPointsOnTheSurface)
{
    for (int y = 0; y < Square && !HasFatalFailure(); y += 8)
    {
        for (int x = 0; x < Square && !HasFatalFailure(); x += 8)
            ExpectCircles({x, y});
    }
}

TEST(DrawingCircles, AroundPointsOffTheSurface)
{
    for (int y = -63; y < 130 && !HasFatalFailure(); y += 16)
    {
        for (int x = -63; x < 130 && !HasFatalFailure(); x += 16)
            ExpectCircles({x, y});
    }
}

TEST(DrawingCircles, AroundPointsBesideTheEdges)
{
    for (const int place : {-60, -3, -1, Square, Square + 2, Square + 59})
    {
        ExpectCircles({place, 20});
        ExpectCircles({20, place});
        ExpectCircles({place, place});
    }
}

TEST(DrawingCircles, OfRadius0_IsItsCentre)
{
    CSurface surface(9, 9);
    CSlowPicture(9, 9).CopyTo(surface);
    CDCEx(surface).DrawSmoothCircle({4, 4}, 0, RGB(9, 8, 7));
    CSlowPicture wanted(9, 9);
    wanted.SetPixel(4, 4, RGB(9, 8, 7));
    EXPECT_TRUE(Same(wanted, surface));
}

TEST(DrawingCircles, HitTheFourPointsOnTheAxes)
{
    CSurface surface(21, 21);
    CSlowPicture(21, 21).CopyTo(surface);
    CDCEx(surface).DrawSmoothCircle({10, 10}, 9, RGB(255, 255, 255));
    EXPECT_EQ(RGB(255, 255, 255), surface.GetPixel(1, 10));
    EXPECT_EQ(RGB(255, 255, 255), surface.GetPixel(19, 10));
    EXPECT_EQ(RGB(255, 255, 255), surface.GetPixel(10, 1));
    EXPECT_EQ(RGB(255, 255, 255), surface.GetPixel(10, 19));
    EXPECT_EQ(0u, surface.GetPixel(10, 10));
}

TEST(DrawingCircles, OnASurfaceThatIsNotCreated_DoNothing)
{
    CCompatibleDC surface;
    CDCEx(surface).DrawSmoothCircle({0, 0}, 5, RGB(255, 255, 255));
    EXPECT_EQ(0u, surface.GetPixel(0, 5));
}
