#include "MatrixTest.h"

#include <type_traits>
#include <utility>

using namespace vantor;
using matrices::Elements;
using matrices::Of;

namespace
{
using Numbers = std::vector<double>;

template <class T>
T At(const matrix& object, std::size_t offset)
{
    T value;
    std::memcpy(&value, reinterpret_cast<const unsigned char*>(&object) + offset, sizeof value);
    return value;
}
}   // namespace

TEST(Matrix, Default_IsASingleZero)
{
    const matrix a;
    EXPECT_EQ(1u, a.rows());
    EXPECT_EQ(1u, a.cols());
    EXPECT_EQ(Numbers{0.0}, Elements(a));
}

TEST(Matrix, RowsAlone_MakeAColumnOfZeros)
{
    const matrix a(2);
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(1u, a.cols());
    EXPECT_EQ((Numbers{0, 0}), Elements(a));
}

TEST(Matrix, Construct_SetsEveryElement)
{
    const matrix a(2, 3, 1.5);
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(3u, a.cols());
    EXPECT_EQ(Numbers(6, 1.5), Elements(a));
}

TEST(Matrix, Copy_IsDeep)
{
    const matrix a(2, 2, 1.0);
    const matrix copy(a);
    copy(1, 2) = 7.0;
    EXPECT_EQ((Numbers{1, 7, 1, 1}), Elements(copy));
    EXPECT_EQ((Numbers{1, 1, 1, 1}), Elements(a));
}

TEST(Matrix, Copy_OutlivesTheOriginal)
{
    auto* const a = new matrix(2, 2, 3.0);
    const matrix copy(*a);
    delete a;
    EXPECT_EQ(Numbers(4, 3.0), Elements(copy));
}

TEST(Matrix, Copy_TakesTheDimensions)
{
    const matrix copy = Of({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(2u, copy.rows());
    EXPECT_EQ(3u, copy.cols());
}

TEST(Matrix, Assign_IsDeep)
{
    const matrix a(2, 2, 1.0);
    matrix copy(2, 2);
    copy = a;
    copy(2, 1) = 7.0;
    EXPECT_EQ((Numbers{1, 1, 7, 1}), Elements(copy));
    EXPECT_EQ((Numbers{1, 1, 1, 1}), Elements(a));
}

TEST(Matrix, Assign_TakesOtherDimensions)
{
    matrix a(4, 4, 9.0);
    a = Of({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(3u, a.cols());
    EXPECT_EQ((Numbers{1, 2, 3, 4, 5, 6}), Elements(a));
}

TEST(Matrix, Assign_OfTheTransposedDimensions_TakesThem)
{
    matrix a(3, 2, 9.0);
    a = Of({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(3u, a.cols());
    EXPECT_EQ((Numbers{1, 2, 3, 4, 5, 6}), Elements(a));
}

TEST(Matrix, Assign_OfTheSameDimensions_KeepsReferencesToElements)
{
    matrix a(2, 2);
    const double& element = a(2, 1);
    a = Of({{1, 2}, {3, 4}});
    EXPECT_EQ(3.0, element);
}

TEST(Matrix, Assign_AnswersTheMatrixItself)
{
    matrix a;
    EXPECT_EQ(&a, &(a = matrix(2, 2)));
}

TEST(Matrix, Assign_ToItself_KeepsTheElements)
{
    matrix a = Of({{1, 2}, {3, 4}});
    const matrix& same = a;
    a = same;
    EXPECT_EQ((Numbers{1, 2, 3, 4}), Elements(a));
}

TEST(Matrix, Clear_SetsEveryElementAndKeepsTheDimensions)
{
    matrix a = Of({{1, 2, 3}, {4, 5, 6}});
    a.clear(-2.5);
    EXPECT_EQ(2u, a.rows());
    EXPECT_EQ(3u, a.cols());
    EXPECT_EQ(Numbers(6, -2.5), Elements(a));
}

TEST(Matrix, Resize_SetsDimensionsAndEveryElement)
{
    matrix a = Of({{1, 2}, {3, 4}});
    a.resize(3, 1, 0.5);
    EXPECT_EQ(3u, a.rows());
    EXPECT_EQ(1u, a.cols());
    EXPECT_EQ(Numbers(3, 0.5), Elements(a));
}

TEST(Matrix, Resize_ToLarger_KeepsNoOldContents)
{
    matrix a = Of({{1, 2}, {3, 4}});
    a.resize(3, 3, 8.0);
    EXPECT_EQ(Numbers(9, 8.0), Elements(a));
}

TEST(Matrix, Resize_ToTheSameDimensions_RefillsEveryElement)
{
    matrix a = Of({{1, 2}, {3, 4}});
    a.resize(2, 2, 8.0);
    EXPECT_EQ(Numbers(4, 8.0), Elements(a));
}

TEST(Matrix, Resize_WithAnElementAsValue_TakesItsOldValue)
{
    matrix a = Of({{1, 2}, {3, 4}});
    a.resize(100, 100, a(2, 2));
    EXPECT_EQ(Numbers(10000, 4.0), Elements(a));
}

TEST(Matrix, Element_CanBeWrittenInAConstantMatrix)
{
    const matrix a(2, 2);
    a(1, 2) = 5.0;
    EXPECT_EQ((Numbers{0, 5, 0, 0}), Elements(a));
}

TEST(Matrix, Element_IsTheSameOneAtEachAccess)
{
    const matrix a(2, 3);
    EXPECT_EQ(&a(2, 3), &a(2, 3));
}

TEST(Matrix, Elements_StandRowByRow)
{
    const matrix a(4, 3);
    const double* const first = &a(1, 1);
    for (unsigned int i = 1; i <= 4; ++i)
    {
        for (unsigned int j = 1; j <= 3; ++j)
            EXPECT_EQ(first + (i - 1) * 3 + (j - 1), &a(i, j)) << i << ", " << j;
    }
}

TEST(MatrixLayout, TheElementsComeFirst)
{
    const matrix a(2, 3);
    EXPECT_EQ(&a(1, 1), At<double*>(a, 0));
}

TEST(MatrixLayout, TheRowsComeSecond)
{
    EXPECT_EQ(2u, At<unsigned int>(matrix(2, 3), sizeof(void*)));
}

TEST(MatrixLayout, TheColumnsComeLast)
{
    EXPECT_EQ(3u, At<unsigned int>(matrix(2, 3), sizeof(void*) + sizeof(unsigned int)));
    EXPECT_EQ(sizeof(void*) + 2 * sizeof(unsigned int), sizeof(matrix));
}

TEST(MatrixLayout, HasNoVirtualTable)
{
    EXPECT_FALSE(std::is_polymorphic_v<matrix>);
}
