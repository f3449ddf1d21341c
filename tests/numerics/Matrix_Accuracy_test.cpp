// How near the results are to the true ones: against exact fractions, published values and another library. Rows are
// added where others swap them, which cancels digits in rare cases however well-conditioned the matrix is: one random
// matrix in a hundred may be off.

#include "MatrixTest.h"

#include <Eigen/Dense>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace vantor;

namespace
{
constexpr double Epsilon = std::numeric_limits<double>::epsilon();

matrix Taken(const Eigen::MatrixXd& a)
{
    const matrix result(static_cast<unsigned int>(a.rows()), static_cast<unsigned int>(a.cols()));
    for (Eigen::Index i = 0; i < a.rows(); ++i)
    {
        for (Eigen::Index j = 0; j < a.cols(); ++j)
            result(static_cast<unsigned int>(i + 1), static_cast<unsigned int>(j + 1)) = a(i, j);
    }
    return result;
}

Eigen::MatrixXd Given(const matrix& a)
{
    Eigen::MatrixXd result(a.rows(), a.cols());
    for (unsigned int i = 1; i <= a.rows(); ++i)
    {
        for (unsigned int j = 1; j <= a.cols(); ++j)
            result(i - 1, j - 1) = a(i, j);
    }
    return result;
}

// Well-conditioned ones, so that both libraries come near the truth.
Eigen::MatrixXd Random(std::mt19937& random, Eigen::Index order)
{
    std::uniform_real_distribution<double> element(-1.0, 1.0);
    Eigen::MatrixXd a(order, order);
    for (Eigen::Index i = 0; i < order; ++i)
    {
        for (Eigen::Index j = 0; j < order; ++j)
            a(i, j) = element(random) + (i == j ? 3.0 : 0.0);
    }
    return a;
}

double Condition(const Eigen::MatrixXd& a)
{
    const Eigen::VectorXd values = a.jacobiSvd().singularValues();
    return values(0) / values(values.size() - 1);
}

// Whole numbers of any size that occurs here.
using CWhole = std::vector<std::vector<long long>>;

CWhole Without(const CWhole& a, std::size_t row, std::size_t col)
{
    CWhole result = a;
    result.erase(result.begin() + static_cast<std::ptrdiff_t>(row));
    for (auto& line : result)
        line.erase(line.begin() + static_cast<std::ptrdiff_t>(col));
    return result;
}

long long Determinant(const CWhole& a)   // by its first row
{
    if (a.empty())
        return 1;
    long long sum = 0;
    for (std::size_t j = 0; j < a.size(); ++j)
        sum += (j % 2 == 0 ? 1 : -1) * a[0][j] * Determinant(Without(a, 0, j));
    return sum;
}

CWhole WholeMatrix(std::mt19937& random, std::size_t order)
{
    CWhole a(order, std::vector<long long>(order));
    for (auto& line : a)
    {
        for (auto& element : line)
            element = static_cast<long long>(random() % 19) - 9;
    }
    return a;
}

matrix Taken(const CWhole& a)
{
    const matrix result(static_cast<unsigned int>(a.size()), static_cast<unsigned int>(a.size()));
    for (unsigned int i = 0; i < a.size(); ++i)
    {
        for (unsigned int j = 0; j < a.size(); ++j)
            result(i + 1, j + 1) = static_cast<double>(a[i][j]);
    }
    return result;
}

// The exact inverse, each element a fraction that is rounded once. Its norm and the matrix's are the condition.
struct CExactInverse
{
    explicit CExactInverse(const CWhole& a) : determinant(Determinant(a)), elements(a.size(), a.size())
    {
        double largestRow = 0.0;
        double largestInverseRow = 0.0;
        for (std::size_t i = 0; i < a.size(); ++i)
        {
            double row = 0.0;
            double inverseRow = 0.0;
            for (std::size_t j = 0; j < a.size(); ++j)
            {
                const long long cofactor = ((i + j) % 2 == 0 ? 1 : -1) * Determinant(Without(a, j, i));
                const double element = static_cast<double>(cofactor) / static_cast<double>(determinant);
                elements(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)) = element;
                row += std::fabs(static_cast<double>(a[i][j]));
                inverseRow += std::fabs(element);
            }
            largestRow = std::max(largestRow, row);
            largestInverseRow = std::max(largestInverseRow, inverseRow);
        }
        condition = largestRow * largestInverseRow;
    }

    long long determinant;
    double condition;
    Eigen::MatrixXd elements;
};

double Largest(const Eigen::MatrixXd& a)
{
    return a.cwiseAbs().maxCoeff();
}

double Binomial(int n, int k)
{
    double result = 1.0;
    for (int i = 1; i <= k; ++i)
        result = result * (n - k + i) / i;
    return result;
}

Eigen::MatrixXd Hilbert(int order)
{
    Eigen::MatrixXd a(order, order);
    for (int i = 1; i <= order; ++i)
    {
        for (int j = 1; j <= order; ++j)
            a(i - 1, j - 1) = 1.0 / (i + j - 1);
    }
    return a;
}

// Of whole numbers, by the well-known formula.
Eigen::MatrixXd HilbertInverse(int order)
{
    Eigen::MatrixXd a(order, order);
    for (int i = 1; i <= order; ++i)
    {
        for (int j = 1; j <= order; ++j)
            a(i - 1, j - 1) = ((i + j) % 2 == 0 ? 1.0 : -1.0) * (i + j - 1) * Binomial(order + i - 1, order - j) *
                              Binomial(order + j - 1, order - i) * std::pow(Binomial(i + j - 2, i - 1), 2.0);
    }
    return a;
}

// Condition numbers of the Hilbert matrices from the literature, by order.
constexpr double HilbertConditions[] = {0, 1, 19.3, 525, 1.56e4, 4.77e5, 1.50e7, 4.76e8, 1.53e10};

// NIST's linear calibration data of ozone monitors: measured, true.
constexpr double Norris[][2] = {
    {0.1, 0.2},     {338.8, 337.4}, {118.1, 118.2}, {888.0, 884.6}, {9.2, 10.1},    {228.1, 226.5},
    {668.5, 666.3}, {998.5, 996.3}, {449.1, 448.6}, {778.9, 777.0}, {559.2, 558.2}, {0.3, 0.4},
    {0.1, 0.6},     {778.1, 775.5}, {668.8, 666.9}, {339.3, 338.0}, {448.9, 447.5}, {10.8, 11.6},
    {557.7, 556.0}, {228.3, 228.1}, {998.0, 995.8}, {888.8, 887.6}, {119.6, 120.2}, {0.3, 0.3},
    {0.6, 0.3},     {557.6, 556.8}, {339.3, 339.1}, {888.0, 887.2}, {998.5, 999.0}, {778.9, 779.0},
    {10.2, 11.1},   {117.6, 118.3}, {228.9, 229.2}, {668.4, 669.1}, {449.2, 448.9}, {0.2, 0.5}};
constexpr double NorrisSlope = 1.00211681802045;
constexpr double NorrisIntercept = -0.262323073774029;
}   // namespace

TEST(MatrixAccuracy, Determinant_IsThatOfAnotherLibrary)
{
    std::mt19937 random(1);
    int off = 0;
    for (int i = 0; i < 2000; ++i)
    {
        const Eigen::MatrixXd a = Random(random, 1 + i % 12);
        const double wanted = a.determinant();
        off += std::fabs(determinant(Taken(a)) - wanted) > 1e-12 * std::fabs(wanted);
    }
    EXPECT_LE(off, 20);
}

TEST(MatrixAccuracy, Invert_IsThatOfAnotherLibrary)
{
    std::mt19937 random(2);
    int off = 0;
    for (int i = 0; i < 500; ++i)
    {
        const Eigen::MatrixXd a = Random(random, 1 + i % 12);
        const Eigen::MatrixXd wanted = a.inverse();
        const double tolerance = 100 * Epsilon * Condition(a) * Largest(wanted);
        off += Largest(Given(invert(Taken(a))) - wanted) > tolerance;
    }
    EXPECT_LE(off, 5);
}

TEST(MatrixAccuracy, Gauss_IsThatOfAnotherLibrary)
{
    std::mt19937 random(3);
    int off = 0;
    for (int i = 0; i < 2000; ++i)
    {
        const Eigen::MatrixXd a = Random(random, 1 + i % 12);
        const Eigen::MatrixXd b = Random(random, a.rows()).leftCols(1);
        const Eigen::MatrixXd wanted = a.fullPivLu().solve(b);
        const double tolerance = 100 * Epsilon * Condition(a) * Largest(wanted);
        off += Largest(Given(gauss(Taken(a), Taken(b))) - wanted) > tolerance;
    }
    EXPECT_LE(off, 20);
}

TEST(MatrixAccuracy, Product_IsThatOfAnotherLibrary)
{
    std::mt19937 random(4);
    for (int i = 0; i < 2000; ++i)
    {
        const Eigen::MatrixXd a = Random(random, 1 + i % 12);
        const Eigen::MatrixXd b = Random(random, a.rows()).leftCols(1 + i % a.rows());
        ASSERT_LE(Largest(Given(Taken(a) * Taken(b)) - a * b), 100 * Epsilon * Largest(a) * Largest(b)) << a;
    }
}

TEST(MatrixAccuracy, Norm_IsThatOfAnotherLibrary)
{
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i)
    {
        const Eigen::MatrixXd a = Random(random, 1 + i % 12);
        ASSERT_NEAR(a.norm(), norm(Taken(a)), 100 * Epsilon * a.norm()) << a;
    }
}

TEST(MatrixAccuracy, Determinant_OfWholeNumbers_IsExactButForRounding)
{
    std::mt19937 random(6);
    int off = 0;
    for (unsigned int i = 0; i < 1000; ++i)
    {
        const CWhole a = WholeMatrix(random, 1 + i % 6);
        double lengths = 1.0;   // no determinant is larger than the product of its rows' lengths
        for (const auto& line : a)
        {
            double square = 0.0;
            for (const long long element : line)
                square += static_cast<double>(element * element);
            lengths *= std::sqrt(square);
        }
        off += std::fabs(determinant(Taken(a)) - static_cast<double>(Determinant(a))) > 100 * Epsilon * lengths;
    }
    EXPECT_LE(off, 10);
}

TEST(MatrixAccuracy, Invert_OfWholeNumbers_IsTheExactFractionsButForRounding)
{
    std::mt19937 random(7);
    int off = 0;
    for (unsigned int i = 0; i < 600; ++i)
    {
        const CWhole a = WholeMatrix(random, 1 + i % 6);
        if (Determinant(a) == 0)
            continue;
        const CExactInverse exact(a);
        const double tolerance = 100 * Epsilon * exact.condition * Largest(exact.elements);
        off += Largest(Given(invert(Taken(a))) - exact.elements) > tolerance;
    }
    EXPECT_LE(off, 6);
}

TEST(MatrixAccuracy, Gauss_OfWholeNumbers_IsTheExactFractionsButForRounding)
{
    std::mt19937 random(8);
    int off = 0;
    for (unsigned int i = 0; i < 600; ++i)
    {
        const CWhole a = WholeMatrix(random, 1 + i % 6);
        if (Determinant(a) == 0)
            continue;
        const CExactInverse exact(a);
        const Eigen::MatrixXd b = Eigen::VectorXd::Unit(exact.elements.rows(), i % exact.elements.rows());
        const Eigen::MatrixXd wanted = exact.elements * b;   // one column of the inverse
        const double tolerance = 100 * Epsilon * exact.condition * Largest(exact.elements);
        off += Largest(Given(gauss(Taken(a), Taken(b))) - wanted) > tolerance;
    }
    EXPECT_LE(off, 6);
}

TEST(MatrixAccuracy, Determinant_OfHilbertMatrices)
{
    constexpr double reciprocals[] = {1,
                                      1,
                                      12,
                                      2160,
                                      6048000,
                                      266716800000.,
                                      186313420339200000.,
                                      2067909047925770649600000.,
                                      365356847125734485878112256000000.};
    for (int n = 1; n <= 8; ++n)
        EXPECT_NEAR(1.0, determinant(Taken(Hilbert(n))) * reciprocals[n], 10 * Epsilon * HilbertConditions[n]) << n;
}

TEST(MatrixAccuracy, Invert_OfHilbertMatrices)
{
    for (int n = 1; n <= 8; ++n)
    {
        const Eigen::MatrixXd wanted = HilbertInverse(n);
        const double tolerance = 10 * Epsilon * HilbertConditions[n] * Largest(wanted);
        EXPECT_LE(Largest(Given(invert(Taken(Hilbert(n)))) - wanted), tolerance) << n;
    }
}

TEST(MatrixAccuracy, Gauss_OfHilbertMatrices)
{
    for (int n = 1; n <= 8; ++n)
    {
        const Eigen::MatrixXd ones = Eigen::MatrixXd::Ones(n, 1);
        const matrix x = gauss(Taken(Hilbert(n)), Taken(Hilbert(n) * ones));
        EXPECT_LE(Largest(Given(x) - ones), 10 * Epsilon * HilbertConditions[n]) << n;
    }
}

TEST(MatrixAccuracy, CalibrationData_GiveTheCertifiedLine)
{
    matrix factors(36, 2, 1.0);   // a constant and the true value
    matrix measured(36, 1);
    for (unsigned int i = 0; i < 36; ++i)
    {
        measured(i + 1, 1) = Norris[i][0];
        factors(i + 1, 2) = Norris[i][1];
    }
    const matrix line = gauss(transpose(factors) * factors, transpose(factors) * measured);
    EXPECT_NEAR(NorrisIntercept, line(1, 1), 1e-12);
    EXPECT_NEAR(NorrisSlope, line(2, 1), 1e-14);
}
