#include "Reference.h"

#include <cmath>

#include <emmintrin.h>

namespace reference
{
namespace
{
double Magnitude(double x)
{
    return std::fabs(x);
}

// The processor's root, rounded correctly. The runtime library's own, which is called where the optimiser is off,
// rounds twice and misses the last bit now and then.
double Root(double x)
{
    const __m128d value = _mm_set_sd(x);
    return _mm_cvtsd_f64(_mm_sqrt_sd(value, value));
}

// The candidate of row i: the first of the largest magnitude among n columns, with its sign.
double Candidate(const CTable& t, int n, int i)
{
    double p = 0.0;
    for (int j = 1; j <= n; j++)
    {
        if (Magnitude(t.at[i][j]) > Magnitude(p))
            p = t.at[i][j];
    }
    return p;
}

void Scale(CTable& t, int last, int i, double p)
{
    const double r = 1.0 / p;
    for (int j = 1; j <= last; j++)
        t.at[i][j] = t.at[i][j] * r;
}

// False at a zero pivot.
bool Eliminate(CTable& t, int n, int last)
{
    for (int k = 1; k <= n - 1; k++)
    {
        int p = k;
        double best = 0.0;
        for (int r = k; r <= n; r++)
        {
            if (Magnitude(t.at[r][k]) > best)
            {
                best = Magnitude(t.at[r][k]);
                p = r;
            }
        }
        if (p != k)
        {
            for (int c = k; c <= last; c++)
                t.at[k][c] = t.at[p][c] + t.at[k][c];
        }
        if (t.at[k][k] == 0.0)
            return false;
        for (int r = k + 1; r <= n; r++)
        {
            const double f = -(t.at[r][k] / t.at[k][k]);
            for (int c = k; c <= last; c++)
                t.at[r][c] = t.at[k][c] * f + t.at[r][c];
        }
    }
    return true;
}
}   // namespace

double Determinant(int n, const CTable& a)
{
    CTable t = a;
    double scale = 1.0;
    for (int i = 1; i <= n; i++)
    {
        const double p = Candidate(t, n, i);
        if (p == 0.0)
            return 0.0;
        scale = p * scale;
        Scale(t, n, i, p);
    }
    if (n > 1 && !Eliminate(t, n, n))
        return 0.0;
    double result = scale;
    for (int i = 1; i <= n; i++)
        result = result * t.at[i][i];
    return result;
}

double Minor(int n, const CTable& a, int i, int j)
{
    CTable smaller;
    for (int r = 1; r <= n - 1; r++)
    {
        for (int c = 1; c <= n - 1; c++)
            smaller.at[r][c] = a.at[r < i ? r : r + 1][c < j ? c : c + 1];
    }
    return Determinant(n - 1, smaller);
}

COutcome Invert(int n, const CTable& a, CTable& result)
{
    const double d = Determinant(n, a);
    if (d == 0.0)
        return COutcome::ZeroDeterminant;
    if (n == 1)
    {
        result.at[1][1] = 1.0 / a.at[1][1];
        return COutcome::Done;
    }
    CTable cofactors;
    for (int i = 1; i <= n; i++)
    {
        for (int j = 1; j <= n; j++)
        {
            const double m = Minor(n, a, i, j);
            cofactors.at[i][j] = (i + j) % 2 != 0 ? -m : m;
        }
    }
    const double r = 1.0 / d;
    for (int i = 1; i <= n; i++)
    {
        for (int j = 1; j <= n; j++)
            result.at[i][j] = cofactors.at[j][i] * r;
    }
    return COutcome::Done;
}

COutcome Gauss(int n, const CTable& a, const CTable& b, CTable& x)
{
    CTable t = a;
    for (int i = 1; i <= n; i++)
        t.at[i][n + 1] = b.at[i][1];
    for (int i = 1; i <= n; i++)
    {
        const double p = Candidate(t, n, i);
        if (p == 0.0)
            return COutcome::ZeroRow;
        Scale(t, n + 1, i, p);
    }
    if (n > 1 && !Eliminate(t, n, n + 1))
        return COutcome::ZeroPivot;
    for (int i = n; i >= 1; i--)
    {
        double s = 0.0;
        for (int j = i + 1; j <= n; j++)
            s = t.at[i][j] * x.at[j][1] + s;
        x.at[i][1] = (t.at[i][n + 1] - s) / t.at[i][i];
    }
    return COutcome::Done;
}

void Product(int rows, int inner, int cols, const CTable& a, const CTable& b, CTable& result)
{
    for (int i = 1; i <= rows; i++)
    {
        for (int j = 1; j <= cols; j++)
        {
            double sum = 0.0;
            for (int k = 1; k <= inner; k++)
                sum = a.at[i][k] * b.at[k][j] + sum;
            result.at[i][j] = sum;
        }
    }
}

double Norm(int rows, int cols, const CTable& a)
{
    double sum = 0.0;
    for (int i = 1; i <= rows; i++)
    {
        for (int j = 1; j <= cols; j++)
            sum = sum + a.at[i][j] * a.at[i][j];   // pow(x, 2.0), rounded correctly
    }
    return Root(sum);
}
}   // namespace reference
