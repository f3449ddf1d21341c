// Far outside of the surface: whoever walked all these pixels would run for hours.

#include "Picture.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;

namespace
{
constexpr int Square = 50;
constexpr LONG Least = std::numeric_limits<LONG>::min();
constexpr LONG Most = std::numeric_limits<LONG>::max();

// The steps of a line that can be seen alone; each stands for itself.
void DrawVisible(CSlowPicture& picture, POINT p1, POINT p2, COLORREF c, int halfWidth)
{
    const auto between = [](int place, LONG end1, LONG end2)
    { return place >= std::min(end1, end2) && place <= std::max(end1, end2); };
    const auto isNear = [](double place) { return std::fabs(place) < 1000.0; };
    const double dx = static_cast<double>(p1.x) - p2.x;
    const double dy = static_cast<double>(p1.y) - p2.y;
    const double k = dy / dx;
    const double b = p1.y - p1.x * k;
    for (int place = 0; place < Square; place++)
    {
        if (dx == 0 || (dy != 0 && std::fabs(dx) < std::fabs(dy)))
        {
            const double x = dx == 0 ? p1.x : (place - b) * (1 / k);
            if (between(place, p1.y, p2.y) && isNear(x))
                picture.SetHPixel(x, place, c, halfWidth);
        }
        else
        {
            const double y = dy == 0 ? p1.y : place * k + b;
            if (between(place, p1.x, p2.x) && isNear(y))
                picture.SetVPixel(place, y, c, halfWidth);
        }
    }
}

void ExpectLine(POINT p1, POINT p2, unsigned char halfWidth = 1)
{
    CSlowPicture wanted(Square, Square);
    CSurface surface(Square, Square);
    wanted.CopyTo(surface);
    DrawVisible(wanted, p1, p2, RGB(255, 128, 64), halfWidth);
    CDCEx(surface).DrawSmoothLine(p1, p2, RGB(255, 128, 64), halfWidth);
    EXPECT_TRUE(Same(wanted, surface)) << p1 << " to " << p2;
}

// Nothing of the circle can be seen.
void ExpectNoCircle(POINT centre, unsigned int radius)
{
    CSurface surface(Square, Square);
    const CSlowPicture black(Square, Square);
    black.CopyTo(surface);
    CDCEx(surface).DrawSmoothCircle(centre, radius, RGB(255, 255, 255));
    EXPECT_TRUE(Same(black, surface)) << radius << " around " << centre;
}
}   // namespace

TEST(DrawingFar, Horizontal_OverTheWholeRange)
{
    ExpectLine({Least, 20}, {Most, 20});
    ExpectLine({Most, 20}, {Least, 20});
}

TEST(DrawingFar, Vertical_OverTheWholeRange)
{
    ExpectLine({20, Least}, {20, Most});
    ExpectLine({20, Most}, {20, Least});
}

TEST(DrawingFar, Diagonals_OverTheWholeRange)
{
    ExpectLine({Least, Least}, {Most, Most});
    ExpectLine({Least, Most}, {Most, Least});
    ExpectLine({Most, Most}, {Least, Least});
}

TEST(DrawingFar, FromThePictureToTheEndsOfTheRange)
{
    for (const LONG x : {Least, LONG{-1000000}, LONG{10}, LONG{1000000}, Most})
    {
        for (const LONG y : {Least, LONG{-1000000}, LONG{17}, LONG{1000000}, Most})
            ExpectLine({20, 30}, {x, y});
    }
}

TEST(DrawingFar, AlmostFlatAndAlmostSteep)
{
    ExpectLine({Least, 10}, {Most, 40});
    ExpectLine({10, Least}, {40, Most});
}

TEST(DrawingFar, BesideThePicture)
{
    ExpectLine({Least, -10}, {Most, -11});
    ExpectLine({-10, Least}, {-11, Most});
    ExpectLine({Least, Least}, {Most, Least});
    ExpectLine({Most, Least}, {Most, Most});
    ExpectLine({Least, Least}, {Least, Least});
    ExpectLine({Most, Most}, {Most, Most});
}

TEST(DrawingFar, RandomLines)
{
    std::mt19937 random(1);
    const auto coordinate = [&]() -> LONG
    { return random() % 2 == 0 ? static_cast<LONG>(random() % 100) - 25 : static_cast<LONG>(random() - 0x80000000u); };
    for (int i = 0; i < 20000 && !HasFailure(); ++i)
    {
        const POINT p1 = {coordinate(), coordinate()};
        const POINT p2 = {coordinate(), coordinate()};
        ExpectLine(p1, p2, static_cast<unsigned char>(random() % 4));
    }
}

TEST(DrawingFar, ALargeCircleThroughThePicture)
{
    for (const unsigned int radius : {1000u, 30000u, 65534u, 65535u})
    {
        const auto away = static_cast<LONG>(radius);
        for (const POINT centre : {POINT{20 - away, 25}, POINT{20 + away, 25}, POINT{25, 20 - away},
                                   POINT{25, 20 + away}, POINT{20 - away * 7 / 10, 25 - away * 7 / 10}})
        {
            CSlowPicture wanted(Square, Square);
            CSurface surface(Square, Square);
            wanted.CopyTo(surface);
            wanted.DrawSmoothCircle(centre, radius, RGB(255, 128, 64));
            CDCEx(surface).DrawSmoothCircle(centre, radius, RGB(255, 128, 64));
            EXPECT_TRUE(Same(wanted, surface)) << radius << " around " << centre;
        }
    }
}

TEST(DrawingFar, ACircleAroundThePicture_CannotBeSeen)
{
    ExpectNoCircle({25, 25}, 65535);
}

TEST(DrawingFar, ACircleAtTheEndsOfTheRange_CannotBeSeen)
{
    for (const LONG x : {Least, LONG{25}, Most})
    {
        for (const LONG y : {Least, LONG{25}, Most})
            ExpectNoCircle({x, y}, 60000);
    }
}

// What they look like is open.
TEST(DrawingFar, CirclesWhoseSquaredRadiusExceeds32Bits_End)
{
    CSurface surface(Square, Square);
    for (const unsigned int radius :
         {65536u, 65537u, 92681u, 92682u, 0x7FFFFFFFu, 0x80000000u, 0xFFFF0001u, 0xFFFFFFFEu, 0xFFFFFFFFu})
    {
        for (const LONG x : {Least, LONG{-65000}, LONG{25}, LONG{65000}, Most})
        {
            for (const LONG y : {Least, LONG{-65000}, LONG{25}, LONG{65000}, Most})
                CDCEx(surface).DrawSmoothCircle({x, y}, radius, RGB(255, 255, 255));
        }
    }
    EXPECT_EQ(Square, surface.GetBitmapSize().cx);
}
