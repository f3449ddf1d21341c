// Every result to the last bit, over 100,000 matrices of the order 1 to 12: such as come from measurements, and such as
// find the corners of floating point.

#include "MatrixTest.h"
#include "Reference.h"

#include "numerics/Minor.h"

#include <cmath>
#include <limits>
#include <random>
#include <sstream>

using namespace vantor;
using reference::COutcome;
using reference::CTable;

namespace
{
constexpr unsigned int Matrices = 100'000;

enum Sort
{
    Even,        // -1 to 1
    Integers,    // small ones: ties, zero pivots, singular matrices
    Equal,       // rows of one magnitude, with either sign
    Wild,        // all orders of magnitude
    Denormal,    // the smallest numbers
    Special,     // infinities, NaN, zeros of both signs among others
    Dependent,   // rows that are multiples of others
    Sorts
};

class CGenerator
{
public:
    explicit CGenerator(unsigned int seed) : m_random(seed) {}

    int Order() { return Up(reference::Most); }

    CTable Next(int rows, int cols)
    {
        const auto sort = static_cast<Sort>(m_random() % Sorts);
        CTable t;
        for (int i = 1; i <= rows; i++)
        {
            const double magnitude = Fraction();
            for (int j = 1; j <= cols; j++)
                t.at[i][j] = Element(sort, magnitude);
            if (sort == Dependent && i > 1 && m_random() % 3 == 0)
                Repeat(t, i, Up(i - 1), cols);
        }
        return t;
    }

private:
    int Up(int last) { return static_cast<int>(m_random() % static_cast<unsigned int>(last)) + 1; }
    double Fraction() { return static_cast<double>(m_random()) / 4294967296.0; }
    double Sign() { return m_random() % 2 == 0 ? 1.0 : -1.0; }

    double Element(Sort sort, double magnitude)
    {
        switch (sort)
        {
        case Integers:
            return static_cast<double>(m_random() % 5) - 2.0;
        case Equal:
            return Sign() * magnitude;
        case Wild:
            return Sign() * std::ldexp(Fraction(), static_cast<int>(m_random() % 2040) - 1020);
        case Denormal:
            return Sign() * std::ldexp(Fraction(), -1022 - static_cast<int>(m_random() % 53));
        case Special:
            return m_random() % 4 == 0 ? Corner() : Sign() * Fraction();
        default:
            return 2.0 * Fraction() - 1.0;
        }
    }

    double Corner()
    {
        using Limits = std::numeric_limits<double>;
        const double corners[] = {Limits::infinity(),   -Limits::infinity(), Limits::quiet_NaN(), 0.0, -0.0,
                                  Limits::denorm_min(), Limits::max(),       Limits::min()};
        return corners[m_random() % 8];
    }

    void Repeat(CTable& t, int row, int other, int cols)
    {
        const double factor = static_cast<double>(m_random() % 3);   // a zero row, too
        for (int j = 1; j <= cols; j++)
            t.at[row][j] = factor * t.at[other][j];
    }

    std::mt19937 m_random;
};

matrix Taken(const CTable& t, int rows, int cols)
{
    const matrix result(static_cast<unsigned int>(rows), static_cast<unsigned int>(cols));
    for (int i = 1; i <= rows; i++)
    {
        for (int j = 1; j <= cols; j++)
            result(static_cast<unsigned int>(i), static_cast<unsigned int>(j)) = t.at[i][j];
    }
    return result;
}

testing::AssertionResult Same(const CTable& wanted, int rows, int cols, const matrix& found)
{
    if (found.rows() != static_cast<unsigned int>(rows) || found.cols() != static_cast<unsigned int>(cols))
        return testing::AssertionFailure() << "found " << testing::PrintToString(found);
    for (int i = 1; i <= rows; i++)
    {
        for (int j = 1; j <= cols; j++)
        {
            if (!matrices::SameBits(wanted.at[i][j], found(static_cast<unsigned int>(i), static_cast<unsigned int>(j))))
                return testing::AssertionFailure() << "wanted " << testing::PrintToString(Taken(wanted, rows, cols))
                                                   << "\nfound " << testing::PrintToString(found);
        }
    }
    return testing::AssertionSuccess();
}

// What a call throws, by the number of the place; 0 if it answers.
template <class Call>
unsigned int Thrown(Call call)
{
    try
    {
        call();
    }
    catch (const CMatrixException& e)
    {
        return e.GetLine();
    }
    return 0;
}

unsigned int Number(COutcome outcome)
{
    switch (outcome)
    {
    case COutcome::ZeroRow:
        return 344;
    case COutcome::ZeroPivot:
        return 360;
    case COutcome::ZeroDeterminant:
        return 388;
    default:
        return 0;
    }
}

void ExpectInverses(int order, unsigned int count)
{
    CGenerator generator(100 + static_cast<unsigned int>(order));
    for (unsigned int i = 0; i < count && !testing::Test::HasFailure(); ++i)
    {
        const CTable a = generator.Next(order, order);
        CTable wanted;
        const COutcome outcome = reference::Invert(order, a, wanted);
        matrix found;
        const matrix given = Taken(a, order, order);
        ASSERT_EQ(Number(outcome), Thrown([&] { found = invert(given); })) << testing::PrintToString(given);
        if (outcome == COutcome::Done)
        {
            EXPECT_TRUE(Same(wanted, order, order, found)) << "of " << testing::PrintToString(given);
        }
    }
}
}   // namespace

TEST(MatrixBits, Determinant)
{
    CGenerator generator(1);
    for (unsigned int i = 0; i < Matrices; ++i)
    {
        const int n = generator.Order();
        const CTable a = generator.Next(n, n);
        const double wanted = reference::Determinant(n, a);
        const double found = determinant(Taken(a, n, n));
        ASSERT_TRUE(matrices::SameBits(wanted, found))
            << wanted << " is wanted, " << found << " found of " << testing::PrintToString(Taken(a, n, n));
    }
}

TEST(MatrixBits, Minor)
{
    CGenerator generator(2);
    for (unsigned int i = 0; i < Matrices / 4; ++i)
    {
        const int n = generator.Order();
        if (n == 1)
            continue;
        const CTable a = generator.Next(n, n);
        const int row = static_cast<int>(i) % n + 1;
        const int col = static_cast<int>(i / 13) % n + 1;
        const double found = minor(Taken(a, n, n), static_cast<unsigned int>(row), static_cast<unsigned int>(col));
        ASSERT_TRUE(matrices::SameBits(reference::Minor(n, a, row, col), found))
            << row << ", " << col << " of " << testing::PrintToString(Taken(a, n, n));
    }
}

TEST(MatrixBits, Gauss)
{
    CGenerator generator(3);
    for (unsigned int i = 0; i < Matrices; ++i)
    {
        const int n = generator.Order();
        const CTable a = generator.Next(n, n);
        const CTable b = generator.Next(n, 1);
        CTable wanted;
        const COutcome outcome = reference::Gauss(n, a, b, wanted);
        matrix found;
        ASSERT_EQ(Number(outcome), Thrown([&] { found = gauss(Taken(a, n, n), Taken(b, n, 1)); }))
            << testing::PrintToString(Taken(a, n, n));
        if (outcome == COutcome::Done)
        {
            ASSERT_TRUE(Same(wanted, n, 1, found))
                << "of " << testing::PrintToString(Taken(a, n, n)) << " and " << testing::PrintToString(Taken(b, n, 1));
        }
    }
}

TEST(MatrixBits, Product)
{
    CGenerator generator(4);
    for (unsigned int i = 0; i < Matrices; ++i)
    {
        const int rows = generator.Order();
        const int inner = generator.Order();
        const int cols = generator.Order();
        const CTable a = generator.Next(rows, inner);
        const CTable b = generator.Next(inner, cols);
        CTable wanted;
        reference::Product(rows, inner, cols, a, b, wanted);
        ASSERT_TRUE(Same(wanted, rows, cols, Taken(a, rows, inner) * Taken(b, inner, cols)));
    }
}

TEST(MatrixBits, Norm)
{
    CGenerator generator(5);
    for (unsigned int i = 0; i < Matrices; ++i)
    {
        const int rows = generator.Order();
        const int cols = generator.Order();
        const CTable a = generator.Next(rows, cols);
        ASSERT_TRUE(matrices::SameBits(reference::Norm(rows, cols, a), norm(Taken(a, rows, cols))))
            << testing::PrintToString(Taken(a, rows, cols));
    }
}

TEST(MatrixBits, DivideByANumber)
{
    CGenerator generator(6);
    for (unsigned int i = 0; i < Matrices; ++i)
    {
        const int rows = generator.Order();
        const int cols = generator.Order();
        const CTable a = generator.Next(rows, cols);
        const double divisor = generator.Next(1, 1).at[1][1];
        if (divisor == 0.0)
            continue;
        const double r = 1.0 / divisor;
        CTable wanted;
        for (int row = 1; row <= rows; row++)
        {
            for (int col = 1; col <= cols; col++)
                wanted.at[row][col] = a.at[row][col] * r;
        }
        ASSERT_TRUE(Same(wanted, rows, cols, Taken(a, rows, cols) / divisor)) << divisor;
    }
}

TEST(MatrixBits, AddSubtractDivide_ElementByElement)
{
    CGenerator generator(7);
    for (unsigned int i = 0; i < Matrices / 4; ++i)
    {
        const int rows = generator.Order();
        const int cols = generator.Order();
        const CTable a = generator.Next(rows, cols);
        const CTable b = generator.Next(rows, cols);
        CTable sums;
        CTable differences;
        CTable quotients;
        for (int row = 1; row <= rows; row++)
        {
            for (int col = 1; col <= cols; col++)
            {
                sums.at[row][col] = a.at[row][col] + b.at[row][col];
                differences.at[row][col] = a.at[row][col] - b.at[row][col];
                quotients.at[row][col] = a.at[row][col] / b.at[row][col];
            }
        }
        ASSERT_TRUE(Same(sums, rows, cols, Taken(a, rows, cols) + Taken(b, rows, cols)));
        ASSERT_TRUE(Same(differences, rows, cols, Taken(a, rows, cols) - Taken(b, rows, cols)));
        ASSERT_TRUE(Same(quotients, rows, cols, Taken(a, rows, cols) / Taken(b, rows, cols)));
    }
}

// An inverse costs as many determinants as it has elements: fewer of the larger orders, 100,000 in all, and order by
// order, so that none takes long.
constexpr unsigned int Inverses[] = {0, 20000, 20000, 16000, 14000, 10000, 8000, 5000, 3000, 2000, 1000, 600, 400};

class MatrixInverseBits : public testing::TestWithParam<int>
{
};

TEST_P(MatrixInverseBits, Invert)
{
    ExpectInverses(GetParam(), Inverses[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(Order, MatrixInverseBits, testing::Range(1, reference::Most + 1));
