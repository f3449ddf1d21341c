#include "MatrixTest.h"

#include <cmath>
#include <limits>

using namespace vantor;
using matrices::Elements;
using matrices::Of;

namespace
{
using Numbers = std::vector<double>;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

const matrix A = Of({{1, 2, 3}, {4, 5, 6}});
const matrix B = Of({{10, -20, 0.5}, {0, 7, 0.25}});
}   // namespace

TEST(MatrixOperators, Plus_IsACopy)
{
    const matrix copy = +A;
    EXPECT_EQ(2u, copy.rows());
    EXPECT_EQ(3u, copy.cols());
    EXPECT_EQ((Numbers{1, 2, 3, 4, 5, 6}), Elements(copy));
    EXPECT_NE(&A(1, 1), &copy(1, 1));
}

TEST(MatrixOperators, Minus_NegatesEveryElement)
{
    const matrix negative = -A;
    EXPECT_EQ(2u, negative.rows());
    EXPECT_EQ((Numbers{-1, -2, -3, -4, -5, -6}), Elements(negative));
}

TEST(MatrixOperators, Minus_NegatesZero)
{
    EXPECT_TRUE(std::signbit((-matrix())(1, 1)));
}

TEST(MatrixOperators, Add_IsElementByElement)
{
    EXPECT_EQ((Numbers{11, -18, 3.5, 4, 12, 6.25}), Elements(A + B));
}

TEST(MatrixOperators, Subtract_IsElementByElement)
{
    EXPECT_EQ((Numbers{-9, 22, 2.5, 4, -2, 5.75}), Elements(A - B));
}

TEST(MatrixOperators, Multiply_IsTheProduct)
{
    const matrix product = A * Of({{7, 8}, {9, 10}, {11, 12}});
    EXPECT_EQ(2u, product.rows());
    EXPECT_EQ(2u, product.cols());
    EXPECT_EQ((Numbers{58, 64, 139, 154}), Elements(product));
}

TEST(MatrixOperators, Multiply_ColumnByRow_IsTheOuterProduct)
{
    const matrix product = Of({{1}, {2}, {3}}) * Of({{4, 5}});
    EXPECT_EQ(3u, product.rows());
    EXPECT_EQ(2u, product.cols());
    EXPECT_EQ((Numbers{4, 5, 8, 10, 12, 15}), Elements(product));
}

TEST(MatrixOperators, Multiply_SumsUpInIncreasingOrder)
{
    // In any other order one of the ones would be kept.
    EXPECT_EQ(0.0, (Of({{1, 1e16, -1e16}}) * matrix(3, 1, 1.0))(1, 1));
    EXPECT_EQ(1.0, (Of({{1e16, -1e16, 1}}) * matrix(3, 1, 1.0))(1, 1));
}

TEST(MatrixOperators, Multiply_StartsFromPositiveZero)
{
    EXPECT_FALSE(std::signbit((matrix(1, 1, -0.0) * matrix(1, 1, 1.0))(1, 1)));
}

TEST(MatrixOperators, Multiply_RoundsEachProduct)
{
    // Fused with the addition, the products' lost bits would be left over.
    const double x = 1.0 + std::ldexp(1.0, -30);
    EXPECT_EQ(0.0, (Of({{x * x, x}}) * Of({{-1.0}, {x}}))(1, 1));
}

TEST(MatrixOperators, MultiplyByANumber_OnEitherSide)
{
    EXPECT_EQ((Numbers{0.5, 1, 1.5, 2, 2.5, 3}), Elements(A * 0.5));
    EXPECT_EQ((Numbers{0.5, 1, 1.5, 2, 2.5, 3}), Elements(0.5 * A));
}

TEST(MatrixOperators, DivideByANumber_MultipliesByTheReciprocal)
{
    const double reciprocal = 1.0 / 49.0;
    ASSERT_NE(1.0, 49.0 * reciprocal);   // else the number shows nothing
    EXPECT_EQ(49.0 * reciprocal, (matrix(1, 1, 49.0) / 49.0)(1, 1));
}

TEST(MatrixOperators, DivideByTheSmallestNumber_IsNoDivisionByZero)
{
    EXPECT_EQ(Infinity, (matrix(1, 1, 1.0) / std::numeric_limits<double>::denorm_min())(1, 1));
}

TEST(MatrixOperators, DivideByNaN_IsNoDivisionByZero)
{
    EXPECT_TRUE(std::isnan((matrix(1, 1, 1.0) / NaN)(1, 1)));
}

TEST(MatrixOperators, DivideElements_IsNoProductWithTheInverse)
{
    EXPECT_EQ((Numbers{2, -3, 4, 5}), Elements(Of({{2, 6}, {8, 10}}) / Of({{1, -2}, {2, 2}})));
}

TEST(MatrixOperators, DivideElements_DividesInsteadOfMultiplying)
{
    EXPECT_EQ(1.0, (matrix(1, 1, 49.0) / matrix(1, 1, 49.0))(1, 1));
}

TEST(MatrixOperators, DivideElements_ByZero_IsAnInfinity)
{
    EXPECT_EQ((Numbers{Infinity, -Infinity, -Infinity, 2}), Elements(Of({{1, -1}, {1, 4}}) / Of({{0, 0}, {-0.0, 2}})));
}

TEST(MatrixOperators, DivideElements_ZeroByZero_IsNaN)
{
    EXPECT_TRUE(std::isnan((matrix() / matrix())(1, 1)));
}

TEST(MatrixOperators, AddAndAssign)
{
    matrix a = A;
    EXPECT_EQ(&a, &(a += B));
    EXPECT_EQ((Numbers{11, -18, 3.5, 4, 12, 6.25}), Elements(a));
}

TEST(MatrixOperators, SubtractAndAssign)
{
    matrix a = A;
    EXPECT_EQ(&a, &(a -= B));
    EXPECT_EQ((Numbers{-9, 22, 2.5, 4, -2, 5.75}), Elements(a));
}

TEST(MatrixOperators, MultiplyAndAssign)
{
    matrix a = Of({{1, 2}, {3, 4}});
    EXPECT_EQ(&a, &(a *= Of({{0, 1}, {1, 0}})));
    EXPECT_EQ((Numbers{2, 1, 4, 3}), Elements(a));
}

TEST(MatrixOperators, MultiplyAndAssign_TakesTheProductsDimensions)
{
    matrix a = A;
    a *= matrix(3, 1, 1.0);
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(1u, a.cols());
    EXPECT_EQ((Numbers{6, 15}), Elements(a));
}

TEST(MatrixOperators, MultiplyByANumberAndAssign)
{
    matrix a = A;
    EXPECT_EQ(&a, &(a *= 2.0));
    EXPECT_EQ((Numbers{2, 4, 6, 8, 10, 12}), Elements(a));
}

TEST(MatrixOperators, DivideByANumberAndAssign_MultipliesByTheReciprocal)
{
    matrix a(1, 1, 49.0);
    EXPECT_EQ(&a, &(a /= 49.0));
    EXPECT_EQ(49.0 * (1.0 / 49.0), a(1, 1));
}

TEST(MatrixOperators, AddAndAssign_KeepsReferencesToElements)
{
    matrix a = A;
    const double& element = a(2, 3);
    a += B;
    EXPECT_EQ(6.25, element);
}

TEST(MatrixOperators, SubtractAndAssign_KeepsReferencesToElements)
{
    matrix a = A;
    const double& element = a(2, 3);
    a -= B;
    EXPECT_EQ(5.75, element);
}

TEST(MatrixOperators, MultiplyAndAssign_KeepsReferencesToElementsWhileTheDimensionsStay)
{
    matrix a = Of({{1, 2}, {3, 4}});
    const double& element = a(2, 1);
    a *= Of({{0, 1}, {1, 0}});
    EXPECT_EQ(4.0, element);
}

TEST(MatrixOperators, MultiplyByANumberAndAssign_KeepsReferencesToElements)
{
    matrix a = A;
    const double& element = a(2, 3);
    a *= 2.0;
    EXPECT_EQ(12.0, element);
}

TEST(MatrixOperators, DivideByANumberAndAssign_KeepsReferencesToElements)
{
    matrix a = A;
    const double& element = a(2, 3);
    a /= 2.0;
    EXPECT_EQ(3.0, element);
}

TEST(MatrixOperators, AddItselfAndAssign)
{
    matrix a = A;
    a += a;
    EXPECT_EQ((Numbers{2, 4, 6, 8, 10, 12}), Elements(a));
}

TEST(MatrixOperators, SubtractItselfAndAssign)
{
    matrix a = A;
    a -= a;
    EXPECT_EQ(Numbers(6, 0.0), Elements(a));
}

TEST(MatrixOperators, MultiplyByItselfAndAssign)
{
    matrix a = Of({{1, 2}, {3, 4}});
    a *= a;
    EXPECT_EQ((Numbers{7, 10, 15, 22}), Elements(a));
}

TEST(MatrixOperators, MultiplyByAnElementOfItself_TakesItsOldValueThroughout)
{
    matrix a = Of({{2, 3}, {4, 5}});
    a *= a(1, 1);
    EXPECT_EQ((Numbers{4, 6, 8, 10}), Elements(a));
}

TEST(MatrixOperators, DivideByItself)
{
    EXPECT_EQ(Numbers(6, 1.0), Elements(A / A));
}

TEST(MatrixOperators, OperandsStayAsTheyAre)
{
    const matrix a = A;
    const matrix b = B;
    static_cast<void>(a + b);
    static_cast<void>(a - b);
    static_cast<void>(a / b);
    static_cast<void>(a * transpose(b));
    static_cast<void>(a * 2.0);
    static_cast<void>(a / 2.0);
    static_cast<void>(-a);
    EXPECT_EQ(Elements(A), Elements(a));
    EXPECT_EQ(Elements(B), Elements(b));
}

TEST(MatrixOperators, Equal_ToACopy)
{
    EXPECT_TRUE(A == matrix(A));
    EXPECT_FALSE(A != matrix(A));
}

TEST(MatrixOperators, Equal_SeesEveryElement)
{
    for (unsigned int i = 1; i <= 2; ++i)
    {
        for (unsigned int j = 1; j <= 3; ++j)
        {
            const matrix other = A;
            other(i, j) = -1;
            EXPECT_FALSE(A == other) << i << ", " << j;
            EXPECT_TRUE(A != other) << i << ", " << j;
        }
    }
}

TEST(MatrixOperators, Equal_HasNoTolerance)
{
    EXPECT_FALSE(matrix(1, 1, 1.0) == matrix(1, 1, std::nextafter(1.0, 2.0)));
}

TEST(MatrixOperators, Equal_OfZerosOfBothSigns)
{
    EXPECT_TRUE(matrix(1, 1, 0.0) == matrix(1, 1, -0.0));
}

TEST(MatrixOperators, Equal_WithANaN_IsFalseEvenToItself)
{
    const matrix a(2, 2, NaN);
    EXPECT_FALSE(a == a);
    EXPECT_TRUE(a != a);
}

TEST(MatrixOperators, Equal_OfATransposedMatrix_IsFalse)
{
    EXPECT_FALSE(matrix(2, 3, 1.0) == matrix(3, 2, 1.0));
    EXPECT_TRUE(matrix(2, 3, 1.0) != matrix(3, 2, 1.0));
}

TEST(MatrixOperators, Equal_OfARowAndAColumn_IsFalse)
{
    EXPECT_FALSE(matrix(1, 3) == matrix(3, 1));
}

TEST(MatrixOperators, SameDim_ComparesRowsAndColumns)
{
    EXPECT_TRUE(same_dim(matrix(2, 3), matrix(2, 3, 1.0)));
    EXPECT_FALSE(same_dim(matrix(2, 3), matrix(2, 4)));
    EXPECT_FALSE(same_dim(matrix(2, 3), matrix(1, 3)));
    EXPECT_FALSE(same_dim(matrix(2, 3), matrix(3, 2)));
}
