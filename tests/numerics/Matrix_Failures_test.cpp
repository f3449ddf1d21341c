#include "MatrixTest.h"

#include "numerics/Minor.h"

using namespace vantor;
using matrices::Elements;
using matrices::Of;

namespace
{
using Kind = CMatrixException;
using Numbers = std::vector<double>;

const matrix Wide = Of({{1, 2, 3}, {4, 5, 6}});
const matrix Tall = Of({{1, 2}, {3, 4}, {5, 6}});
const matrix Square = Of({{2, 1}, {1, 3}});
}   // namespace

TEST(MatrixFailures, Construct_WithoutRows)
{
    EXPECT_MATRIX_FAILURE(60, L".\\Matrix", L"vantor::matrix::matrix", Kind::InvalidDimension, matrix(0, 3));
}

TEST(MatrixFailures, Construct_WithoutColumns)
{
    EXPECT_MATRIX_FAILURE(60, L".\\Matrix", L"vantor::matrix::matrix", Kind::InvalidDimension, matrix(3, 0));
}

TEST(MatrixFailures, Resize_WithoutColumns_ChangesNothing)
{
    matrix a = Wide;
    EXPECT_MATRIX_FAILURE(91, L".\\Matrix", L"vantor::matrix::resize", Kind::InvalidDimension, a.resize(2, 0, 7.0));
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(3u, a.cols());
    EXPECT_EQ(Elements(Wide), Elements(a));
}

TEST(MatrixFailures, Resize_WithoutRows_ChangesNothing)
{
    matrix a = Wide;
    EXPECT_MATRIX_FAILURE(91, L".\\Matrix", L"vantor::matrix::resize", Kind::InvalidDimension, a.resize(0, 2, 7.0));
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(3u, a.cols());
    EXPECT_EQ(Elements(Wide), Elements(a));
}

TEST(MatrixFailures, Element_InRow0)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, Wide(0, 1));
}

TEST(MatrixFailures, Element_BehindTheLastRow)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, Wide(3, 1));
}

TEST(MatrixFailures, Element_InColumn0)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, Wide(1, 0));
}

TEST(MatrixFailures, Element_BehindTheLastColumn)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, Wide(1, 4));
}

TEST(MatrixFailures, Element_AtTheLargestNumbers)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, Wide(~0u, ~0u));
}

TEST(MatrixFailures, Add_OtherRows)
{
    EXPECT_MATRIX_FAILURE(132, L".\\Matrix", L"vantor::operator +", Kind::IncompatibleDimension, Square + Tall);
}

TEST(MatrixFailures, Add_OtherColumns)
{
    EXPECT_MATRIX_FAILURE(132, L".\\Matrix", L"vantor::operator +", Kind::IncompatibleDimension, Square + Wide);
}

TEST(MatrixFailures, Subtract_OtherRows)
{
    EXPECT_MATRIX_FAILURE(144, L".\\Matrix", L"vantor::operator -", Kind::IncompatibleDimension, Square - Tall);
}

TEST(MatrixFailures, Subtract_OtherColumns)
{
    EXPECT_MATRIX_FAILURE(144, L".\\Matrix", L"vantor::operator -", Kind::IncompatibleDimension, Square - Wide);
}

TEST(MatrixFailures, Multiply_ColumnsThatAreNotTheOthersRows)
{
    EXPECT_MATRIX_FAILURE(156, L".\\Matrix", L"vantor::operator *", Kind::IncompatibleDimension, Wide * Square);
}

TEST(MatrixFailures, DivideByZero)
{
    EXPECT_MATRIX_FAILURE(191, L".\\Matrix", L"vantor::operator /", Kind::DivisionByZero, Wide / 0.0);
}

TEST(MatrixFailures, DivideByNegativeZero)
{
    EXPECT_MATRIX_FAILURE(191, L".\\Matrix", L"vantor::operator /", Kind::DivisionByZero, Wide / -0.0);
}

TEST(MatrixFailures, DivideElements_OtherRows)
{
    EXPECT_MATRIX_FAILURE(202, L".\\Matrix", L"vantor::operator /", Kind::IncompatibleDimension, Square / Tall);
}

TEST(MatrixFailures, DivideElements_OtherColumns)
{
    EXPECT_MATRIX_FAILURE(203, L".\\Matrix", L"vantor::operator /", Kind::IncompatibleDimension, Square / Wide);
}

TEST(MatrixFailures, DivideElements_OtherRowsAndColumns_ReportsTheRows)
{
    EXPECT_MATRIX_FAILURE(202, L".\\Matrix", L"vantor::operator /", Kind::IncompatibleDimension, Wide / Tall);
}

TEST(MatrixFailures, Determinant_OfNoSquare)
{
    EXPECT_MATRIX_FAILURE(239, L".\\Matrix", L"vantor::determinant", Kind::InvalidDimension, determinant(Wide));
}

TEST(MatrixFailures, Minor_OfNoSquare)
{
    EXPECT_MATRIX_FAILURE(283, L".\\Matrix", L"vantor::minor", Kind::InvalidDimension, minor(Wide, 1, 1));
}

TEST(MatrixFailures, Minor_OfASingleElement)
{
    EXPECT_MATRIX_FAILURE(283, L".\\Matrix", L"vantor::minor", Kind::InvalidDimension, minor(matrix(), 1, 1));
}

TEST(MatrixFailures, Minor_OfASingleElementWithAWrongIndex_ReportsTheDimension)
{
    EXPECT_MATRIX_FAILURE(283, L".\\Matrix", L"vantor::minor", Kind::InvalidDimension, minor(matrix(), 0, 1));
}

TEST(MatrixFailures, Minor_WithoutRow0)
{
    EXPECT_MATRIX_FAILURE(284, L".\\Matrix", L"vantor::minor", Kind::InvalidIndex, minor(Square, 0, 1));
}

TEST(MatrixFailures, Minor_WithoutTheRowBehindTheLast)
{
    EXPECT_MATRIX_FAILURE(284, L".\\Matrix", L"vantor::minor", Kind::InvalidIndex, minor(Square, 3, 1));
}

TEST(MatrixFailures, Minor_WithoutColumn0)
{
    EXPECT_MATRIX_FAILURE(284, L".\\Matrix", L"vantor::minor", Kind::InvalidIndex, minor(Square, 1, 0));
}

TEST(MatrixFailures, Minor_WithoutTheColumnBehindTheLast)
{
    EXPECT_MATRIX_FAILURE(284, L".\\Matrix", L"vantor::minor", Kind::InvalidIndex, minor(Square, 1, 3));
}

TEST(MatrixFailures, Gauss_OfNoSquare)
{
    EXPECT_MATRIX_FAILURE(324, L".\\Matrix", L"vantor::gauss", Kind::InvalidDimension, gauss(Wide, matrix(2, 1)));
}

TEST(MatrixFailures, Gauss_OfNoSquareWithOtherRows_ReportsTheMatrix)
{
    EXPECT_MATRIX_FAILURE(324, L".\\Matrix", L"vantor::gauss", Kind::InvalidDimension, gauss(Wide, matrix(7, 2)));
}

TEST(MatrixFailures, Gauss_OtherRowsOnTheRightHandSide)
{
    EXPECT_MATRIX_FAILURE(325, L".\\Matrix", L"vantor::gauss", Kind::IncompatibleDimension,
                          gauss(Square, matrix(3, 1)));
}

TEST(MatrixFailures, Gauss_OtherRowsAndTwoColumnsOnTheRightHandSide_ReportsTheRows)
{
    EXPECT_MATRIX_FAILURE(325, L".\\Matrix", L"vantor::gauss", Kind::IncompatibleDimension,
                          gauss(Square, matrix(3, 2)));
}

TEST(MatrixFailures, Gauss_TwoColumnsOnTheRightHandSide)
{
    EXPECT_MATRIX_FAILURE(326, L".\\Matrix", L"vantor::gauss", Kind::InvalidDimension, gauss(Square, Square));
}

TEST(MatrixFailures, Gauss_WithAZeroRow)
{
    const matrix a = Of({{1, 2}, {0, 0}});
    EXPECT_MATRIX_FAILURE(344, L".\\Matrix", L"vantor::gauss", Kind::DivisionByZero, gauss(a, matrix(2, 1, 1.0)));
    EXPECT_EQ((Numbers{1, 2, 0, 0}), Elements(a));
}

TEST(MatrixFailures, Gauss_OfASingleZero)
{
    EXPECT_MATRIX_FAILURE(344, L".\\Matrix", L"vantor::gauss", Kind::DivisionByZero, gauss(matrix(), matrix()));
}

TEST(MatrixFailures, Gauss_WithAZeroPivot)
{
    const matrix a = Of({{0, 1}, {0, 2}});
    EXPECT_MATRIX_FAILURE(360, L".\\Matrix", L"vantor::gauss", Kind::DivisionByZero, gauss(a, matrix(2, 1, 1.0)));
    EXPECT_EQ((Numbers{0, 1, 0, 2}), Elements(a));
}

TEST(MatrixFailures, Invert_OfNoSquare)
{
    EXPECT_MATRIX_FAILURE(387, L".\\Matrix", L"vantor::invert", Kind::InvalidDimension, invert(Wide));
}

TEST(MatrixFailures, Invert_OfASingularMatrix)
{
    const matrix a = Of({{1, 2}, {2, 4}});
    EXPECT_MATRIX_FAILURE(388, L".\\Matrix", L"vantor::invert", Kind::DivisionByZero, invert(a));
    EXPECT_EQ((Numbers{1, 2, 2, 4}), Elements(a));
}

TEST(MatrixFailures, Invert_OfASingleZero)
{
    EXPECT_MATRIX_FAILURE(388, L".\\Matrix", L"vantor::invert", Kind::DivisionByZero, invert(matrix()));
}

TEST(MatrixFailures, Row_BehindTheLast)
{
    EXPECT_MATRIX_FAILURE(407, L".\\Matrix", L"vantor::row", Kind::InvalidIndex, row(Wide, 3));
}

TEST(MatrixFailures, Row0_IsReportedByTheElementAccess)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, row(Wide, 0));
}

TEST(MatrixFailures, Column_BehindTheLast)
{
    EXPECT_MATRIX_FAILURE(416, L".\\Matrix", L"vantor::col", Kind::InvalidIndex, col(Wide, 4));
}

TEST(MatrixFailures, Column0_IsReportedByTheElementAccess)
{
    EXPECT_MATRIX_FAILURE(105, L".\\Matrix", L"vantor::matrix::operator ()", Kind::InvalidIndex, col(Wide, 0));
}

TEST(MatrixFailures, AddAndAssign_LeavesTheMatrix)
{
    matrix a = Square;
    EXPECT_MATRIX_FAILURE(132, L".\\Matrix", L"vantor::operator +", Kind::IncompatibleDimension, a += Wide);
    EXPECT_EQ(Elements(Square), Elements(a));
}

TEST(MatrixFailures, SubtractAndAssign_LeavesTheMatrix)
{
    matrix a = Square;
    EXPECT_MATRIX_FAILURE(144, L".\\Matrix", L"vantor::operator -", Kind::IncompatibleDimension, a -= Wide);
    EXPECT_EQ(Elements(Square), Elements(a));
}

TEST(MatrixFailures, MultiplyAndAssign_LeavesTheMatrix)
{
    matrix a = Wide;
    EXPECT_MATRIX_FAILURE(156, L".\\Matrix", L"vantor::operator *", Kind::IncompatibleDimension, a *= Square);
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(Elements(Wide), Elements(a));
}

TEST(MatrixFailures, DivideAndAssignByZero_LeavesTheMatrix)
{
    matrix a = Wide;
    EXPECT_MATRIX_FAILURE(191, L".\\Matrix", L"vantor::operator /", Kind::DivisionByZero, a /= 0.0);
    EXPECT_EQ(Elements(Wide), Elements(a));
}
