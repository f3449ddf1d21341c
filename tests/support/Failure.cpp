#include "Failure.h"

#include <iomanip>
#include <sstream>
#include <typeinfo>

namespace support
{
namespace
{
// File and function names are ASCII; whatever else comes is shown as a number.
std::string Readable(const std::wstring& text)
{
    std::ostringstream out;
    out << '"';
    for (const wchar_t c : text)
    {
        if (c >= 0x20 && c < 0x7F)
            out << static_cast<char>(c);
        else
            out << "\\x" << std::hex << static_cast<unsigned>(c) << std::dec;
    }
    out << '"';
    return out.str();
}

std::string Row(unsigned int line, const std::wstring& fileName, const std::wstring& function, unsigned long error)
{
    std::ostringstream out;
    out << line << ", " << Readable(fileName) << ", " << Readable(function) << ", error " << error << " (0x" << std::hex
        << error << ")";
    return out.str();
}
}   // namespace

::testing::AssertionResult FailsWith(unsigned int line, const wchar_t* fileName, const wchar_t* function,
                                     unsigned long error, const std::function<void()>& action)
{
    const std::string wanted = Row(line, fileName, function, error);
    try
    {
        action();
    }
    catch (const vantor::CWinException& e)
    {
        const std::string thrown = Row(e.GetLine(), e.GetFileName(), e.GetFunction(), e.GetErrorCode());
        if (typeid(e) != typeid(vantor::CWinException))
            return ::testing::AssertionFailure() << "wanted a CWinException, thrown was " << typeid(e).name();
        if (thrown == wanted)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "wanted " << wanted << "\nthrown " << thrown;
    }
    catch (const std::exception& e)
    {
        return ::testing::AssertionFailure()
               << "wanted " << wanted << "\nthrown " << typeid(e).name() << ": " << e.what();
    }
    catch (const vantor::CStdException& e)
    {
        return ::testing::AssertionFailure() << "wanted " << wanted << "\nthrown " << typeid(e).name();
    }
    return ::testing::AssertionFailure() << "wanted " << wanted << "\nnothing was thrown";
}
}   // namespace support
