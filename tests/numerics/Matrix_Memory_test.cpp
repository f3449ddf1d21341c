#include "MatrixTest.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <cstddef>
#include <new>

using namespace vantor;
using matrices::Elements;
using matrices::Of;

namespace
{
using Numbers = std::vector<double>;

std::size_t g_asked;   // the library's last request

void* NoMemory(std::size_t size)
{
    g_asked = size;
    throw std::bad_alloc();
}

// The library finds no memory.
const auto NewOperator = static_cast<void* (*)(std::size_t)>(&::operator new);

std::size_t AskedFor(unsigned int rows, unsigned int cols)
{
    g_asked = 0;
    const support::CImportPatch patch(NewOperator, &NoMemory);
    EXPECT_THROW(matrix(rows, cols), std::bad_alloc);
    return g_asked;
}
}   // namespace

TEST(MatrixMemory, Construct_AsksForEightBytesAnElement)
{
    EXPECT_EQ(48u, AskedFor(2, 3));
}

TEST(MatrixMemory, Construct_AtTheLimit_AsksForAllElements)
{
    EXPECT_EQ(0xFFFFFFF8u, AskedFor(0x1FFFFFFF, 1));
}

TEST(MatrixMemory, Construct_BeyondTheLimit_AsksForTheLargestSize)
{
    EXPECT_EQ(static_cast<std::size_t>(-1), AskedFor(0x8000, 0x4000));
}

TEST(MatrixMemory, Construct_WhoseCountWouldWrapTo0_AsksForTheLargestSize)
{
    EXPECT_EQ(static_cast<std::size_t>(-1), AskedFor(0x10000, 0x10000));
}

TEST(MatrixMemory, Construct_OfTheLargestDimensions_AsksForTheLargestSize)
{
    EXPECT_EQ(static_cast<std::size_t>(-1), AskedFor(~0u, ~0u));
}

TEST(MatrixMemory, Construct_BeyondTheLimit_Throws)
{
    EXPECT_THROW(matrix(0x8000, 0x4000), std::bad_alloc);
}

TEST(MatrixMemory, Construct_WhoseCountWouldWrapTo0_Throws)
{
    EXPECT_THROW(matrix(0x10000, 0x10000), std::bad_alloc);
}

TEST(MatrixMemory, Resize_BeyondTheLimit_HasReplacedTheDimensions)
{
    matrix a(2, 2, 1.0);
    EXPECT_THROW(a.resize(0x10000, 0x10001, 1.0), std::bad_alloc);
    EXPECT_EQ(0x10000u, a.rows());
    EXPECT_EQ(0x10001u, a.cols());
}

TEST(MatrixMemory, Resize_AfterAFailure_Works)
{
    matrix a(2, 2, 1.0);
    EXPECT_THROW(a.resize(0x10000, 0x10000, 1.0), std::bad_alloc);
    a.resize(1, 2, 3.0);
    EXPECT_EQ((Numbers{3, 3}), Elements(a));
}

TEST(MatrixMemory, Assign_AfterAFailedResize_Works)
{
    matrix a(2, 2, 1.0);
    EXPECT_THROW(a.resize(0x10000, 0x10000, 1.0), std::bad_alloc);
    a = Of({{1, 2}, {3, 4}});
    EXPECT_EQ((Numbers{1, 2, 3, 4}), Elements(a));
}

TEST(MatrixMemory, Assign_OfTheDimensionsOfAFailedResize_Works)
{
    matrix a(1, 1);
    {
        const support::CImportPatch patch(NewOperator, &NoMemory);
        EXPECT_THROW(a.resize(2, 2, 1.0), std::bad_alloc);
    }
    a = Of({{1, 2}, {3, 4}});
    EXPECT_EQ((Numbers{1, 2, 3, 4}), Elements(a));
}

TEST(MatrixMemory, Add_WithoutMemory_LeavesBothOperands)
{
    matrix a = Of({{1, 2}});
    const matrix b = Of({{3, 4}});
    {
        const support::CImportPatch patch(NewOperator, &NoMemory);
        EXPECT_THROW(a += b, std::bad_alloc);
    }
    EXPECT_EQ((Numbers{1, 2}), Elements(a));
    EXPECT_EQ((Numbers{3, 4}), Elements(b));
}

TEST(MatrixMemory, EverythingIsFreed)
{
    const auto use = []
    {
        matrix a = Of({{2, 1, 0}, {1, 3, 1}, {0, 1, 4}});
        const matrix copy(a);
        a *= invert(copy);
        a.resize(5, 5, 1.0);
        a = gauss(copy, matrix(3, 1, 1.0));
        a = transpose(row(copy, 2)) + col(copy, 1);
        EXPECT_THROW(invert(matrix(4, 4, 1.0)), CMatrixException);
        EXPECT_THROW(a.resize(0x10000, 0x10000, 1.0), std::bad_alloc);
    };
    use();
    const support::CResources before;
    use();
    EXPECT_EQ(before, support::CResources());
}
