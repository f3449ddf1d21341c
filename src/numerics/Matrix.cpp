#include "Minor.h"

#include <vantor/Exceptions.h>
#include <vantor/Matrix.h>

#include <algorithm>
#include <cmath>
#include <new>

namespace vantor
{
namespace
{
using Kind = CMatrixException;

[[noreturn]] void Fail(unsigned int line, const wchar_t* function, CMatrixException::EException kind)
{
    throw CMatrixException(line, L".\\Matrix", function, kind);
}

// More elements than a 32-bit byte count can tell are not to be had.
constexpr unsigned long long MostElements = 0x1FFFFFFF;

bool IsSquare(const matrix& a)
{
    return a.rows() == a.cols();
}

// Divides row i by its element of largest magnitude among the first n columns, the first of several, and returns that
// element. A row that has none but zeros there stays, and 0.0 is returned.
double Equilibrate(const matrix& t, unsigned int i, unsigned int n)
{
    double largest = 0.0;
    for (unsigned int j = 1; j <= n; ++j)
    {
        if (std::fabs(t(i, j)) > std::fabs(largest))
            largest = t(i, j);
    }
    if (largest == 0.0)
        return largest;
    const double reciprocal = 1.0 / largest;
    for (unsigned int j = 1; j <= t.cols(); ++j)
        t(i, j) = t(i, j) * reciprocal;
    return largest;
}

// Makes the first n columns an upper triangle; false if a pivot is zero. The row with the largest pivot is added, not
// swapped: the determinant stays, and so does its sign.
bool Eliminate(const matrix& t, unsigned int n)
{
    for (unsigned int k = 1; k < n; ++k)
    {
        unsigned int pivot = k;
        double largest = 0.0;
        for (unsigned int r = k; r <= n; ++r)
        {
            if (std::fabs(t(r, k)) > largest)
            {
                largest = std::fabs(t(r, k));
                pivot = r;
            }
        }
        if (pivot != k)
        {
            for (unsigned int c = k; c <= t.cols(); ++c)
                t(k, c) = t(pivot, c) + t(k, c);
        }
        if (t(k, k) == 0.0)
            return false;
        for (unsigned int r = k + 1; r <= n; ++r)
        {
            const double factor = -(t(r, k) / t(k, k));
            for (unsigned int c = k; c <= t.cols(); ++c)
                t(r, c) = t(k, c) * factor + t(r, c);
        }
    }
    return true;
}

// A matrix with element(i, j) in its places.
template <class Element>
matrix Filled(unsigned int rows, unsigned int cols, Element element)
{
    matrix result(rows, cols);
    for (unsigned int i = 1; i <= rows; ++i)
    {
        for (unsigned int j = 1; j <= cols; ++j)
            result(i, j) = element(i, j);
    }
    return result;
}

// Of a square matrix, which it uses up.
double DeterminantOf(matrix t)   // NOLINT(performance-unnecessary-value-param): elements of a constant one are writable
{
    const unsigned int n = t.rows();
    double result = 1.0;
    for (unsigned int i = 1; i <= n; ++i)
    {
        const double largest = Equilibrate(t, i, n);
        if (largest == 0.0)
            return 0.0;
        result = largest * result;
    }
    if (!Eliminate(t, n))
        return 0.0;
    for (unsigned int i = 1; i <= n; ++i)
        result = result * t(i, i);
    return result;
}
}   // namespace

// Of m_rows x m_cols elements. The largest size of all is what no platform has.
void matrix::Allocate()
{
    const unsigned long long count = 1ULL * m_rows * m_cols;
    const std::size_t size = count > MostElements ? ~std::size_t{0} : static_cast<std::size_t>(count) * sizeof(double);
    m_data = nullptr;
    m_data = static_cast<double*>(::operator new(size));
}

matrix::matrix(unsigned int rows, unsigned int cols, double value) : m_rows(rows), m_cols(cols)
{
    if (rows == 0 || cols == 0)
        Fail(60, L"vantor::matrix::matrix", Kind::InvalidDimension);
    Allocate();
    clear(value);
}

matrix::matrix(const matrix& other) : m_rows(other.m_rows), m_cols(other.m_cols)
{
    Allocate();
    std::copy_n(other.m_data, std::size_t{m_rows} * m_cols, m_data);
}

matrix::~matrix()
{
    ::operator delete(m_data);
}

matrix& matrix::operator=(const matrix& other)
{
    if (this == &other)
        return *this;
    if (!m_data || !same_dim(*this, other))
    {
        ::operator delete(m_data);
        m_rows = other.m_rows;
        m_cols = other.m_cols;
        Allocate();
    }
    std::copy_n(other.m_data, std::size_t{m_rows} * m_cols, m_data);
    return *this;
}

void matrix::clear(double value)
{
    std::fill_n(m_data, std::size_t{m_rows} * m_cols, value);
}

void matrix::resize(unsigned int rows, unsigned int cols, double value)
{
    if (rows == 0 || cols == 0)
        Fail(91, L"vantor::matrix::resize", Kind::InvalidDimension);
    ::operator delete(m_data);
    m_rows = rows;
    m_cols = cols;
    Allocate();
    clear(value);
}

void matrix::FailIndex()
{
    Fail(105, L"vantor::matrix::operator ()", Kind::InvalidIndex);
}

matrix matrix::operator+() const
{
    return *this;
}

matrix matrix::operator-() const
{
    return Filled(m_rows, m_cols, [this](unsigned int i, unsigned int j) { return -(*this)(i, j); });
}

bool same_dim(const matrix& a, const matrix& b)
{
    return a.rows() == b.rows() && a.cols() == b.cols();
}

bool operator==(const matrix& a, const matrix& b)
{
    if (!same_dim(a, b))
        return false;
    for (unsigned int i = 1; i <= a.rows(); ++i)
    {
        for (unsigned int j = 1; j <= a.cols(); ++j)
        {
            if (!(a(i, j) == b(i, j)))
                return false;
        }
    }
    return true;
}

bool operator!=(const matrix& a, const matrix& b)
{
    return !(a == b);
}

matrix operator+(const matrix& a, const matrix& b)
{
    if (!same_dim(a, b))
        Fail(132, L"vantor::operator +", Kind::IncompatibleDimension);
    return Filled(a.rows(), a.cols(), [&](unsigned int i, unsigned int j) { return a(i, j) + b(i, j); });
}

matrix operator-(const matrix& a, const matrix& b)
{
    if (!same_dim(a, b))
        Fail(144, L"vantor::operator -", Kind::IncompatibleDimension);
    return Filled(a.rows(), a.cols(), [&](unsigned int i, unsigned int j) { return a(i, j) - b(i, j); });
}

matrix operator*(const matrix& a, const matrix& b)
{
    if (a.cols() != b.rows())
        Fail(156, L"vantor::operator *", Kind::IncompatibleDimension);
    return Filled(a.rows(), b.cols(),
                  [&](unsigned int i, unsigned int j)
                  {
                      double sum = 0.0;
                      for (unsigned int k = 1; k <= a.cols(); ++k)
                          sum = a(i, k) * b(k, j) + sum;
                      return sum;
                  });
}

matrix operator*(const matrix& a, double s)
{
    return Filled(a.rows(), a.cols(), [&](unsigned int i, unsigned int j) { return a(i, j) * s; });
}

matrix operator*(double s, const matrix& a)
{
    return a * s;
}

matrix operator/(const matrix& a, double s)
{
    if (s == 0.0)
        Fail(191, L"vantor::operator /", Kind::DivisionByZero);
    return a * (1.0 / s);
}

matrix operator/(const matrix& a, const matrix& b)
{
    if (a.rows() != b.rows())
        Fail(202, L"vantor::operator /", Kind::IncompatibleDimension);
    if (a.cols() != b.cols())
        Fail(203, L"vantor::operator /", Kind::IncompatibleDimension);
    return Filled(a.rows(), a.cols(), [&](unsigned int i, unsigned int j) { return a(i, j) / b(i, j); });
}

matrix& operator+=(matrix& a, const matrix& b)
{
    return a = a + b;
}

matrix& operator-=(matrix& a, const matrix& b)
{
    return a = a - b;
}

matrix& operator*=(matrix& a, const matrix& b)
{
    return a = a * b;
}

matrix& operator*=(matrix& a, double s)
{
    return a = a * s;
}

matrix& operator/=(matrix& a, double s)
{
    return a = a / s;
}

double determinant(const matrix& a)
{
    if (!IsSquare(a))
        Fail(239, L"vantor::determinant", Kind::InvalidDimension);
    return DeterminantOf(a);
}

double minor(const matrix& a, unsigned int i, unsigned int j)
{
    if (!IsSquare(a) || a.rows() < 2)
        Fail(283, L"vantor::minor", Kind::InvalidDimension);
    if (i < 1 || i > a.rows() || j < 1 || j > a.cols())
        Fail(284, L"vantor::minor", Kind::InvalidIndex);
    const unsigned int n = a.rows() - 1;
    return determinant(
        Filled(n, n, [&](unsigned int r, unsigned int c) { return a(r < i ? r : r + 1, c < j ? c : c + 1); }));
}

matrix gauss(const matrix& a, const matrix& b)
{
    constexpr wchar_t function[] = L"vantor::gauss";

    if (!IsSquare(a))
        Fail(324, function, Kind::InvalidDimension);
    if (b.rows() != a.rows())
        Fail(325, function, Kind::IncompatibleDimension);
    if (b.cols() != 1)
        Fail(326, function, Kind::InvalidDimension);

    const unsigned int n = a.rows();
    const matrix t = Filled(n, n + 1, [&](unsigned int i, unsigned int j) { return j <= n ? a(i, j) : b(i, 1); });
    for (unsigned int i = 1; i <= n; ++i)
    {
        if (Equilibrate(t, i, n) == 0.0)
            Fail(344, function, Kind::DivisionByZero);
    }
    if (!Eliminate(t, n))
        Fail(360, function, Kind::DivisionByZero);

    matrix x(n, 1);
    for (unsigned int i = n; i >= 1; --i)
    {
        double sum = 0.0;
        for (unsigned int j = i + 1; j <= n; ++j)
            sum = t(i, j) * x(j, 1) + sum;
        x(i, 1) = (t(i, n + 1) - sum) / t(i, i);
    }
    return x;
}

matrix invert(const matrix& a)
{
    if (!IsSquare(a))
        Fail(387, L"vantor::invert", Kind::InvalidDimension);
    const double d = determinant(a);
    if (d == 0.0)
        Fail(388, L"vantor::invert", Kind::DivisionByZero);
    const unsigned int n = a.rows();
    if (n == 1)
        return matrix(1, 1, 1.0 / a(1, 1));
    // The cofactors, transposed at once.
    return Filled(n, n,
                  [&](unsigned int i, unsigned int j)
                  {
                      const double cofactor = minor(a, j, i);
                      return (i + j) % 2 == 0 ? cofactor : -cofactor;
                  }) /
           d;
}

double norm(const matrix& a)
{
    double sum = 0.0;
    for (unsigned int i = 1; i <= a.rows(); ++i)
    {
        for (unsigned int j = 1; j <= a.cols(); ++j)
        {
            const double element = a(i, j);
            sum += element * element;   // pow(element, 2.0) as it should be: not every runtime library's is exact
        }
    }
    return std::sqrt(sum);
}

matrix transpose(const matrix& a)
{
    return Filled(a.cols(), a.rows(), [&](unsigned int i, unsigned int j) { return a(j, i); });
}

matrix row(const matrix& a, unsigned int i)
{
    if (i > a.rows())
        Fail(407, L"vantor::row", Kind::InvalidIndex);
    return Filled(1, a.cols(), [&](unsigned int, unsigned int j) { return a(i, j); });
}

matrix col(const matrix& a, unsigned int j)
{
    if (j > a.cols())
        Fail(416, L"vantor::col", Kind::InvalidIndex);
    return Filled(a.rows(), 1, [&](unsigned int i, unsigned int) { return a(i, j); });
}

double Rad2Deg(double x)
{
    return x * 57.29577951308232;
}

double Deg2Rad(double x)
{
    return x * 0.017453292519943295;
}

int round(double x)
{
    return x >= 0.0 ? static_cast<int>(x + 0.5) : static_cast<int>(x - 0.5);
}
}   // namespace vantor
