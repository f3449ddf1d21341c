#include "MatrixTest.h"

#include "support/Print.h"

#include <typeinfo>

using namespace vantor;

namespace matrices
{
namespace
{
// The kind of an exception shows in its message alone.
const wchar_t* MessageOf(CMatrixException::EException kind)
{
    switch (kind)
    {
    case CMatrixException::InvalidDimension:
        return L"Invalid Matrix Dimension";
    case CMatrixException::IncompatibleDimension:
        return L"Incompatible Matrix Dimension";
    case CMatrixException::InvalidIndex:
        return L"Invalid Index";
    case CMatrixException::DivisionByZero:
        return L"Division by Zero";
    default:
        return L"no kind that is thrown";
    }
}

std::string Row(unsigned int line, const ustring& fileName, const ustring& function, const ustring& message)
{
    return std::to_string(line) + ' ' + testing::PrintToString(fileName) + ' ' + testing::PrintToString(function) +
           ' ' + testing::PrintToString(message);
}
}   // namespace

matrix Of(Rows rows)
{
    matrix result(static_cast<unsigned int>(rows.size()), static_cast<unsigned int>(rows.begin()->size()));
    unsigned int i = 0;
    for (const auto& row : rows)
    {
        ++i;
        unsigned int j = 0;
        for (const double element : row)
            result(i, ++j) = element;
    }
    return result;
}

std::vector<double> Elements(const matrix& a)
{
    std::vector<double> elements;
    for (unsigned int i = 1; i <= a.rows(); ++i)
    {
        for (unsigned int j = 1; j <= a.cols(); ++j)
            elements.push_back(a(i, j));
    }
    return elements;
}

testing::AssertionResult FailsWith(unsigned int line, const wchar_t* fileName, const wchar_t* function,
                                   CMatrixException::EException kind, const std::function<void()>& action)
{
    const std::string wanted = Row(line, fileName, function, MessageOf(kind));
    try
    {
        action();
    }
    catch (const CMatrixException& e)
    {
        ustring message;
        e.GetErrorMessage(message);
        const std::string thrown = Row(e.GetLine(), e.GetFileName(), e.GetFunction(), message);
        if (typeid(e) != typeid(CMatrixException))
            return testing::AssertionFailure() << "wanted a CMatrixException, thrown was " << typeid(e).name();
        if (thrown == wanted)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "wanted " << wanted << "\nthrown " << thrown;
    }
    catch (const CStdException& e)
    {
        return testing::AssertionFailure() << "wanted " << wanted << "\nthrown " << typeid(e).name();
    }
    return testing::AssertionFailure() << "wanted " << wanted << "\nnothing was thrown";
}
}   // namespace matrices

namespace vantor
{
void PrintTo(const matrix& a, std::ostream* out)
{
    *out << a.rows() << " x " << a.cols() << std::hexfloat;
    for (const double element : matrices::Elements(a))
        *out << ' ' << element;
    *out << std::defaultfloat;
}
}   // namespace vantor
