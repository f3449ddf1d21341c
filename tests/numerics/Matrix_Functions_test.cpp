#include "MatrixTest.h"

#include "numerics/Minor.h"

#include <cmath>
#include <limits>

using namespace vantor;
using matrices::Elements;
using matrices::Of;

namespace
{
using Numbers = std::vector<double>;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

const matrix A = Of({{1, 2, 3}, {4, 5, 6}});
}   // namespace

TEST(MatrixDeterminant, OfASingleElement_IsTheElement)
{
    EXPECT_EQ(-7.0, determinant(matrix(1, 1, -7.0)));
    EXPECT_EQ(0.0, determinant(matrix(1, 1, 0.0)));
}

TEST(MatrixDeterminant, OfADiagonal_IsItsProduct)
{
    EXPECT_EQ(-24.0, determinant(Of({{2, 0, 0}, {0, -3, 0}, {0, 0, 4}})));
}

TEST(MatrixDeterminant, OfTwoExchangedRows_IsMinusOne)
{
    EXPECT_EQ(-1.0, determinant(Of({{0, 1}, {1, 0}})));
}

TEST(MatrixDeterminant, WithAZeroRow_IsZero)
{
    EXPECT_EQ(0.0, determinant(Of({{1, 2}, {0, 0}})));
}

TEST(MatrixDeterminant, WithAZeroRow_IsZeroWhateverTheOthersHold)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(0.0, determinant(Of({{infinity, NaN}, {0, 0}})));
}

TEST(MatrixDeterminant, WithAZeroColumn_IsZero)
{
    EXPECT_EQ(0.0, determinant(Of({{0, 2, 3}, {0, 5, 6}, {0, 8, 10}})));
}

TEST(MatrixDeterminant, OfEqualRows_IsZero)
{
    EXPECT_EQ(0.0, determinant(Of({{1, 2}, {1, 2}})));
}

TEST(MatrixDeterminant, LeavesTheMatrix)
{
    const matrix a = Of({{0, 2}, {8, 4}});
    determinant(a);
    EXPECT_EQ((Numbers{0, 2, 8, 4}), Elements(a));
}

TEST(MatrixMinor, LeavesOutTheRowAndTheColumn)
{
    const matrix a = Of({{1, 2, 4}, {8, 16, 33}, {64, 129, 256}});
    const double others[3][3] = {{16. * 256 - 33. * 129, 8. * 256 - 33. * 64, 8. * 129 - 16. * 64},
                                 {2. * 256 - 4. * 129, 1. * 256 - 4. * 64, 1. * 129 - 2. * 64},
                                 {2. * 33 - 4. * 16, 1. * 33 - 4. * 8, 1. * 16 - 2. * 8}};
    for (unsigned int i = 1; i <= 3; ++i)
    {
        for (unsigned int j = 1; j <= 3; ++j)
            EXPECT_NEAR(others[i - 1][j - 1], minor(a, i, j), 1e-9) << i << ", " << j;
    }
}

TEST(MatrixMinor, OfTwoByTwo_IsTheOppositeElement)
{
    const matrix a = Of({{1, 2}, {3, 4}});
    EXPECT_EQ(4.0, minor(a, 1, 1));
    EXPECT_EQ(3.0, minor(a, 1, 2));
    EXPECT_EQ(2.0, minor(a, 2, 1));
    EXPECT_EQ(1.0, minor(a, 2, 2));
}

TEST(MatrixInvert, OfASingleElement_IsItsReciprocal)
{
    EXPECT_EQ(Numbers{0.5}, Elements(invert(matrix(1, 1, 2.0))));
}

TEST(MatrixInvert, OfASingleElement_DividesOnce)
{
    EXPECT_EQ(1.0 / 49.0, invert(matrix(1, 1, 49.0))(1, 1));
}

TEST(MatrixInvert, OfTwoByTwo)
{
    EXPECT_EQ((Numbers{1, -0.5, -1, 1}), Elements(invert(Of({{2, 1}, {2, 2}}))));
}

TEST(MatrixInvert, OfARotation_IsItsTransposed)
{
    EXPECT_EQ((Numbers{0, 0, 1, 1, 0, 0, 0, 1, 0}), Elements(invert(Of({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}))));
}

TEST(MatrixInvert, LeavesTheMatrix)
{
    const matrix a = Of({{0, 2}, {8, 4}});
    invert(a);
    EXPECT_EQ((Numbers{0, 2, 8, 4}), Elements(a));
}

TEST(MatrixGauss, SolvesADiagonal)
{
    const matrix x = gauss(Of({{2, 0}, {0, 4}}), Of({{2}, {8}}));
    EXPECT_EQ(2u, x.rows());
    EXPECT_EQ(1u, x.cols());
    EXPECT_EQ((Numbers{1, 2}), Elements(x));
}

TEST(MatrixGauss, SolvesExchangedRows)
{
    EXPECT_EQ((Numbers{3, 5}), Elements(gauss(Of({{0, 1}, {1, 0}}), Of({{5}, {3}}))));
}

TEST(MatrixGauss, OfASingleElement)
{
    EXPECT_EQ(Numbers{4.0}, Elements(gauss(matrix(1, 1, 2.0), matrix(1, 1, 8.0))));
}

TEST(MatrixGauss, OfAMatrixAndItself)
{
    const matrix a(1, 1, 8.0);
    EXPECT_EQ(Numbers{1.0}, Elements(gauss(a, a)));
}

TEST(MatrixGauss, IntoItsOwnRightHandSide)
{
    matrix b = Of({{2}, {8}});
    b = gauss(Of({{2, 0}, {0, 4}}), b);
    EXPECT_EQ((Numbers{1, 2}), Elements(b));
}

TEST(MatrixGauss, WithOnlyTheLastPivotZero_DividesByIt)
{
    const matrix x = gauss(Of({{1, 1}, {1, 1}}), Of({{1}, {2}}));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), x(2, 1));
}

TEST(MatrixGauss, LeavesItsArguments)
{
    const matrix a = Of({{0, 2}, {8, 4}});
    const matrix b = Of({{3}, {5}});
    gauss(a, b);
    EXPECT_EQ((Numbers{0, 2, 8, 4}), Elements(a));
    EXPECT_EQ((Numbers{3, 5}), Elements(b));
}

TEST(MatrixNorm, IsTheRootOfTheSumOfSquares)
{
    EXPECT_EQ(5.0, norm(Of({{3, 0}, {0, -4}})));
    EXPECT_EQ(10.0, norm(Of({{1, -3, 5}, {4, 7, 0}})));
}

TEST(MatrixNorm, OfASingleElement_IsItsMagnitude)
{
    EXPECT_EQ(2.5, norm(matrix(1, 1, -2.5)));
}

TEST(MatrixNorm, AddsInStorageOrder)
{
    // The small squares are lost behind the large one, and count before it.
    const double large = std::ldexp(1.0, 26);
    const matrix first(64, 64, 0.5);
    first(1, 1) = large;
    EXPECT_EQ(large, norm(first));
    const matrix last(64, 64, 0.5);
    last(64, 64) = large;
    EXPECT_LT(large, norm(last));
}

TEST(MatrixNorm, OverflowsWithTheSquares)
{
    EXPECT_EQ(std::numeric_limits<double>::infinity(), norm(matrix(1, 1, 1e200)));
}

TEST(MatrixTranspose, ExchangesRowsAndColumns)
{
    const matrix a = transpose(A);
    EXPECT_EQ(3u, a.rows());
    EXPECT_EQ(2u, a.cols());
    EXPECT_EQ((Numbers{1, 4, 2, 5, 3, 6}), Elements(a));
}

TEST(MatrixTranspose, IntoItself)
{
    matrix a = A;
    a = transpose(a);
    EXPECT_EQ((Numbers{1, 4, 2, 5, 3, 6}), Elements(a));
}

TEST(MatrixRow, IsAOneRowMatrix)
{
    const matrix last = row(A, 2);
    EXPECT_EQ(1u, last.rows());
    EXPECT_EQ(3u, last.cols());
    EXPECT_EQ((Numbers{4, 5, 6}), Elements(last));
}

TEST(MatrixRow, IsACopy)
{
    const matrix a = A;
    row(a, 1)(1, 1) = 9.0;
    EXPECT_EQ(1.0, a(1, 1));
}

TEST(MatrixColumn, IsAOneColumnMatrix)
{
    const matrix last = col(A, 3);
    EXPECT_EQ(2u, last.rows());
    EXPECT_EQ(1u, last.cols());
    EXPECT_EQ((Numbers{3, 6}), Elements(last));
}

TEST(MatrixColumn, IsACopy)
{
    const matrix a = A;
    col(a, 1)(1, 1) = 9.0;
    EXPECT_EQ(1.0, a(1, 1));
}

TEST(Rad2Deg, MultipliesByTheWrittenFactor)
{
    EXPECT_EQ(57.29577951308232, Rad2Deg(1.0));
    EXPECT_EQ(-3.0 * 57.29577951308232, Rad2Deg(-3.0));
}

TEST(Deg2Rad, MultipliesByTheWrittenFactor)
{
    EXPECT_EQ(0.017453292519943295, Deg2Rad(1.0));
    EXPECT_EQ(-180.0 * 0.017453292519943295, Deg2Rad(-180.0));
}

TEST(Round, HalvesGoAwayFromZero)
{
    EXPECT_EQ(3, vantor::round(2.5));
    EXPECT_EQ(-3, vantor::round(-2.5));
    EXPECT_EQ(1, vantor::round(0.5));
    EXPECT_EQ(-1, vantor::round(-0.5));
}

TEST(Round, LessThanAHalfGoesTowardsZero)
{
    EXPECT_EQ(0, vantor::round(-0.4));
    EXPECT_EQ(0, vantor::round(0.4));
    EXPECT_EQ(2, vantor::round(2.25));
    EXPECT_EQ(-2, vantor::round(-2.25));
}

TEST(Round, WholeNumbersStay)
{
    for (const int whole : {0, 1, -1, 1000, -1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(whole, vantor::round(whole));
}

TEST(Round, AddsTheHalfInDoublePrecision)
{
    // The largest number below a half: with a half it rounds to 1.
    EXPECT_EQ(1, vantor::round(0.49999999999999994));
}
