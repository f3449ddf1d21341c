// Matrices from lists, their elements as lists, and the failure rows of the matrix package.

#ifndef VANTOR_TEST_MATRIXTEST_H
#define VANTOR_TEST_MATRIXTEST_H

#include <vantor/Exceptions.h>
#include <vantor/Matrix.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <initializer_list>
#include <ostream>
#include <vector>

namespace matrices
{
using Rows = std::initializer_list<std::initializer_list<double>>;

vantor::matrix Of(Rows rows);
std::vector<double> Elements(const vantor::matrix& a);   // row by row

// To the last bit; one NaN is like another.
inline bool SameBits(double x, double y)
{
    return (x != x && y != y) || std::memcmp(&x, &y, sizeof x) == 0;
}

// Throws a CMatrixException with exactly these contents; otherwise what differs in words.
testing::AssertionResult FailsWith(unsigned int line, const wchar_t* fileName, const wchar_t* function,
                                   vantor::CMatrixException::EException kind, const std::function<void()>& action);
}   // namespace matrices

namespace vantor
{
void PrintTo(const matrix& a, std::ostream* out);
}

// A row of the failure table; tools/failures.py collects it.
#define EXPECT_MATRIX_FAILURE(line, fileName, function, kind, ...)                                                     \
    EXPECT_TRUE(::matrices::FailsWith(line, fileName, function, kind, [&] { __VA_ARGS__; }))

#endif
