// The matrix algorithms once more, step by step on plain arrays with indices from 1: no matrix, no temporaries, no
// shortcuts. What they find is compared to the last bit.

#ifndef VANTOR_TEST_REFERENCE_H
#define VANTOR_TEST_REFERENCE_H

namespace reference
{
constexpr int Most = 12;   // the largest order

struct CTable
{
    double at[Most + 1][Most + 2] = {};   // one more column for a right-hand side
};

enum class COutcome
{
    Done,
    ZeroRow,
    ZeroPivot,
    ZeroDeterminant
};

double Determinant(int n, const CTable& a);
double Minor(int n, const CTable& a, int i, int j);
COutcome Invert(int n, const CTable& a, CTable& result);
// The right-hand side and the result stand in column 1.
COutcome Gauss(int n, const CTable& a, const CTable& b, CTable& x);
void Product(int rows, int inner, int cols, const CTable& a, const CTable& b, CTable& result);
double Norm(int rows, int cols, const CTable& a);
}   // namespace reference

#endif
