// Small dense matrices of double, with indices from 1.
//
//     matrix a(2, 2);
//     a(1, 1) = 2.0;
//     a(2, 2) = 4.0;
//     const matrix x = gauss(a, matrix(2, 1, 8.0));      // a * x = (8, 8): (4, 2)

#ifndef VANTOR_MATRIX_H
#define VANTOR_MATRIX_H

#include <vantor/Platform.h>

#include <cstddef>

namespace vantor
{
// rows x cols elements, at least one. What cannot be done throws CMatrixException and changes nothing; where memory is
// short, std::bad_alloc.
//
// Results are the same to the last bit of double precision on every platform, in the order of operations that is
// written below: nothing is fused, contracted or kept in a longer format. That is no promise of accuracy: elimination
// adds rows where others swap them, and can lose digits that way, in rare cases all, with matrices that are
// well-conditioned. Where it matters look at norm(a * x - b).
class VANTOR_API matrix
{
public:
    matrix(unsigned int rows = 1, unsigned int cols = 1, double value = 0.0);   // all elements are value
    matrix(const matrix& other);
    ~matrix();

    // Takes the other's dimensions, too. For these see resize, if memory is short.
    matrix& operator=(const matrix& other);

    unsigned int rows() const noexcept { return m_rows; }
    unsigned int cols() const noexcept { return m_cols; }

    void clear(double value);   // all elements
    // All elements are value afterwards, also where the dimensions stay. If memory is short the new dimensions are set
    // but there are no elements: then only another resize, an assignment or the destructor may follow.
    void resize(unsigned int rows, unsigned int cols, double value);

    // Row i, column j, from 1; writable also in a constant matrix.
    double& operator()(unsigned int i, unsigned int j) const
    {
        if (i - 1 >= m_rows || j - 1 >= m_cols)   // 0 becomes the largest number
            FailIndex();
        return m_data[std::size_t{i - 1} * m_cols + (j - 1)];
    }

    matrix operator+() const;
    matrix operator-() const;

private:
    [[noreturn]] static void FailIndex();
    void Allocate();

    double* m_data;   // row by row
    unsigned int m_rows;
    unsigned int m_cols;
};

VANTOR_API bool same_dim(const matrix& a, const matrix& b);

// Element by element, exactly: no tolerance, and a NaN is equal to nothing.
VANTOR_API bool operator==(const matrix& a, const matrix& b);
VANTOR_API bool operator!=(const matrix& a, const matrix& b);

// Element by element.
VANTOR_API matrix operator+(const matrix& a, const matrix& b);
VANTOR_API matrix operator-(const matrix& a, const matrix& b);
// The product; each element is summed up from 0.0, k = 1, 2 ...: sum = a(i, k) * b(k, j) + sum.
VANTOR_API matrix operator*(const matrix& a, const matrix& b);
VANTOR_API matrix operator*(const matrix& a, double s);
VANTOR_API matrix operator*(double s, const matrix& a);
// Multiplies by 1.0 / s, on purpose. Throws DivisionByZero for 0.0.
VANTOR_API matrix operator/(const matrix& a, double s);
// Element by element; no division by a matrix. Zeros in b give infinities and NaN.
VANTOR_API matrix operator/(const matrix& a, const matrix& b);

// a = a op b. The product may change the dimensions of a.
VANTOR_API matrix& operator+=(matrix& a, const matrix& b);
VANTOR_API matrix& operator-=(matrix& a, const matrix& b);
VANTOR_API matrix& operator*=(matrix& a, const matrix& b);
VANTOR_API matrix& operator*=(matrix& a, double s);
VANTOR_API matrix& operator/=(matrix& a, double s);

// By elimination. 0.0 exactly for what it finds to be singular.
VANTOR_API double determinant(const matrix& a);
// By the adjugate: a determinant for each element. Throws DivisionByZero if the determinant is 0.0.
VANTOR_API matrix invert(const matrix& a);
// Solves a * x = b, with one column b, by elimination of rows that are scaled to a largest element of 1. Rows are
// added, not swapped. Throws DivisionByZero for a zero row or pivot; the last pivot is not looked at, so that a
// singular matrix may give infinities and NaN instead.
VANTOR_API matrix gauss(const matrix& a, const matrix& b);
// The square root of the sum of all squares.
VANTOR_API double norm(const matrix& a);
VANTOR_API matrix transpose(const matrix& a);
VANTOR_API matrix row(const matrix& a, unsigned int i);   // 1 x cols
VANTOR_API matrix col(const matrix& a, unsigned int j);   // rows x 1

VANTOR_API double Rad2Deg(double x);
VANTOR_API double Deg2Rad(double x);
VANTOR_API int round(double x);   // halves away from zero
}   // namespace vantor

#endif
