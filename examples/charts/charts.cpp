// Charts of a measurement: level over frequency, level over direction, and a calibration with what it leaves. Each is
// drawn at one, two and four times its size. Prints the calibration's figures.
//
//     charts [FOLDER]        polar.bmp, level.bmp and fit.bmp there, or in the folder that it is started in

#include "Picture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace
{
using namespace vantor;
using namespace charts;

constexpr SIZE Size = {240, 240};
constexpr double Left = 12, Top = 12, Right = 228, Bottom = 228;

// dBm from 88 to 108 MHz, 0.25 MHz apart: noise, and four stations.
double LevelAt(int index)
{
    const double frequency = 88 + index * 0.25;
    double level = -96 + 2.5 * std::sin(index * 12.9898) * std::cos(index * 78.233);
    const double stations[][2] = {{91.2, 30}, {94.3, 58}, {99.8, 22}, {104.6, 44}};
    for (const auto& [centre, height] : stations)
        level += height / (1 + std::pow((frequency - centre) / 0.35, 2.0));
    return level;
}

void Frame(CPen& pen)
{
    for (int i = 0; i <= 4; ++i)
    {
        const double x = Left + (Right - Left) * i / 4;
        const double y = Top + (Bottom - Top) * i / 4;
        pen.Line(x, Top, x, Bottom, i % 4 == 0 ? Axis : Grid);
        pen.Line(Left, y, Right, y, i % 4 == 0 ? Axis : Grid);
    }
}

void DrawLevel(CPen& pen)
{
    constexpr int points = 81;
    const auto x = [](int i) { return Left + (Right - Left) * i / (points - 1); };
    const auto y = [](int i) { return Bottom - (LevelAt(i) + 100) / 70 * (Bottom - Top); };
    Frame(pen);
    int highest = 0;
    for (int i = 1; i < points; ++i)
    {
        pen.Line(x(i - 1), y(i - 1), x(i), y(i), Trace);
        if (y(i) < y(highest))
            highest = i;
    }
    pen.Circle(x(highest), y(highest), 6, Mark);
}

// An antenna of three elements, level over direction.
void DrawPolar(CPen& pen)
{
    const double centre = (Left + Right) / 2;
    const double outside = (Right - Left) / 2;
    for (int ring = 1; ring <= 4; ++ring)
        pen.Circle(centre, centre, outside * ring / 4, ring == 4 ? Axis : Grid);
    for (int spoke = 0; spoke < 12; ++spoke)
    {
        const double angle = Deg2Rad(spoke * 30.0);
        pen.Line(centre, centre, centre + outside * std::cos(angle), centre - outside * std::sin(angle), Grid);
    }
    const auto radius = [outside](double angle)
    {
        const double field = std::fabs(1 + 1.6 * std::cos(angle) + 0.9 * std::cos(2 * angle)) / 3.5;
        return outside * std::max(0.0, 1 + std::log10(std::max(field, 1e-3)) / 1.5);
    };
    for (int degree = 0; degree < 360; degree += 3)
    {
        const double a = Deg2Rad(degree);
        const double b = Deg2Rad(degree + 3.0);
        pen.Line(centre + radius(a) * std::cos(a), centre - radius(a) * std::sin(a), centre + radius(b) * std::cos(b),
                 centre - radius(b) * std::sin(b), Trace);
    }
}

// A calibration: what the generator gave, and what the receiver showed, in dBm.
constexpr double Given[] = {-100, -90, -80, -70, -60, -50, -40, -30, -20};
constexpr double Shown[] = {-98.7, -89.4, -79.2, -69.5, -59.8, -50.1, -40.6, -31.3, -22.2};
constexpr unsigned int Count = std::size(Given);

// The coefficients of shown = c1 + c2 * given + c3 * given * given with the least squares of what is left.
matrix Fit()
{
    matrix a(Count, 3), b(Count, 1);
    for (unsigned int i = 1; i <= Count; ++i)
    {
        a(i, 1) = 1;
        a(i, 2) = Given[i - 1];
        a(i, 3) = Given[i - 1] * Given[i - 1];
        b(i, 1) = Shown[i - 1];
    }
    return gauss(transpose(a) * a, transpose(a) * b);
}

double Fitted(const matrix& c, double given)
{
    return c(1, 1) + c(2, 1) * given + c(3, 1) * given * given;
}

void DrawFit(CPen& pen, const matrix& c)
{
    const double middle = Top + (Bottom - Top) * 0.75;   // around it what is left, 1 dB as 100 pixels
    const auto x = [](double level) { return Left + (level + 105) / 90 * (Right - Left); };
    const auto y = [middle](double level) { return middle - 36 - (level + 105) / 90 * (middle - 36 - Top); };
    Frame(pen);
    for (double level = -104; level < -16; level += 4)
        pen.Line(x(level), y(Fitted(c, level)), x(level + 4), y(Fitted(c, level + 4)), Trace);
    pen.Line(Left, middle, Right, middle, Axis);
    for (unsigned int i = 0; i < Count; ++i)
    {
        pen.Circle(x(Given[i]), y(Shown[i]), 3, Mark);
        const double rest = Shown[i] - Fitted(c, Given[i]);
        pen.Line(x(Given[i]), middle, x(Given[i]), middle - rest * 100, Mark);
    }
}
}   // namespace

int wmain(int argc, wchar_t** argv)
try
{
    const ustring folder = argc > 1 ? argv[1] : L".";
    const matrix c = Fit();
    WriteComparison(folder, L"level", Size, DrawLevel);
    WriteComparison(folder, L"polar", Size, DrawPolar);
    WriteComparison(folder, L"fit", Size, [&c](CPen& pen) { DrawFit(pen, c); });

    std::printf("shown = %.6f + %.6f * given + %.8f * given^2\n", c(1, 1), c(2, 1), c(3, 1));
    std::printf("%6s %8s %8s %8s\n", "given", "shown", "fitted", "rest, dB");
    matrix rest(Count, 1);
    for (unsigned int i = 1; i <= Count; ++i)
    {
        rest(i, 1) = Shown[i - 1] - Fitted(c, Given[i - 1]);
        std::printf("%6.1f %8.2f %8.2f %+8.3f\n", Given[i - 1], Shown[i - 1], Fitted(c, Given[i - 1]), rest(i, 1));
    }
    std::printf("root of the mean square of what is left: %.3f dB\n", norm(rest) / std::sqrt(Count));
    return 0;
}
catch (const CStdException& e)
{
    const CStdException::CExInfo info(e);
    std::printf("%ls", info.GetErrorMessage().c_str());
    return 1;
}
