#include "../platform/Calls.h"

#include <vantor/Strings.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <cwctype>

namespace vantor
{
namespace
{
int FirstNumber(const std::string& text)
{
    const auto isDigit = [](char ch) { return ::_isctype(static_cast<unsigned char>(ch), _DIGIT) != 0; };
    const auto first = std::find_if(text.begin(), text.end(), isDigit);
    return std::atoi(text.c_str() + (first - text.begin()));
}

long FirstNumber(const ustring& text)
{
    const auto isDigit = [](wchar_t ch) { return ::iswctype(ch, _DIGIT) != 0; };
    const auto first = std::find_if(text.begin(), text.end(), isDigit);
    return ::_wtol(text.c_str() + (first - text.begin()));
}
}   // namespace

bool LessStrA::operator()(const std::string& a, const std::string& b) const
{
    return ::_stricmp(a.c_str(), b.c_str()) < 0;
}

bool LessStrW::operator()(const ustring& a, const ustring& b) const
{
    return ::_wcsicmp(a.c_str(), b.c_str()) < 0;
}

bool LessStrAN::operator()(const std::string& a, const std::string& b) const
{
    return FirstNumber(a) < FirstNumber(b);
}

bool LessStrWN::operator()(const ustring& a, const ustring& b) const
{
    return FirstNumber(a) < FirstNumber(b);
}
}   // namespace vantor
