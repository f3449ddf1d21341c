// Matrices: a system of equations, its check, an inverse, and what a singular one does.

#include <vantor/Exceptions.h>
#include <vantor/Matrix.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const char* name, const matrix& a)
{
    std::printf("%s\n", name);
    for (unsigned int i = 1; i <= a.rows(); ++i)
    {
        for (unsigned int j = 1; j <= a.cols(); ++j)
            std::printf("%9.4f", a(i, j));
        std::printf("\n");
    }
}
}   // namespace

int main()
{
    // Two currents in a bridge: 2 I1 - I2 = 3, -I1 + 4 I2 = 2.
    matrix a(2, 2), b(2, 1);
    a(1, 1) = 2;
    a(1, 2) = -1;
    a(2, 1) = -1;
    a(2, 2) = 4;
    b(1, 1) = 3;
    b(2, 1) = 2;

    const matrix x = gauss(a, b);
    Print("x", x);
    std::printf("what is left: %.1g\n", norm(a * x - b));
    std::printf("determinant: %g\n", determinant(a));
    Print("inverse", invert(a));
    Print("transposed row", transpose(row(a, 2)));
    std::printf("30 degrees: %.6f\n", Deg2Rad(30));

    a(2, 1) = -4;   // now the second row is -2 times the first
    a(2, 2) = 2;
    try
    {
        invert(a);
    }
    catch (const CMatrixException& e)
    {
        const CStdException::CExInfo info(e);
        std::printf("%ls: %ls in %ls\n", info.GetSource().c_str(), info.GetErrorMessage().c_str(),
                    info.GetFunction().c_str());
    }
}
