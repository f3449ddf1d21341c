#include "../platform/Calls.h"

#include <vantor/Strings.h>

#include <iterator>
#include <oleauto.h>

namespace vantor
{
namespace
{
ustring WithoutGrouping(const wchar_t* text)
{
    ustring plain(text);
    plain.replace(L" ", L"");
    plain.replace(ustring::m_Locale.ThousandsSep(), L"");
    return plain;
}

// The value of a whole group: 10 to the power of `digits`. 0 where all digits of a 64-bit number are one group.
unsigned long long GroupValue(int digits)
{
    if (digits < 1 || digits > 19)
        return 0;
    unsigned long long value = 1;
    while (digits-- > 0)
        value *= 10;
    return value;
}

// Puts the decimal digits of a value, `least` of them or more, in front of the text.
void PrependDigits(ustring& text, unsigned long long value, int least)
{
    wchar_t digits[20];
    wchar_t* const end = digits + std::size(digits);
    wchar_t* first = end;
    do
    {
        *--first = static_cast<wchar_t>(L'0' + value % 10);
        value /= 10;
    } while (value != 0 || end - first < least);
    text.insert(0, first, static_cast<std::size_t>(end - first));
}
}   // namespace

long long ustring::atoi64(const wchar_t* text)
{
    return ::_atoi64(WideCharToMultiByte(WithoutGrouping(text), CP_UTF8, 0).c_str());
}

double ustring::strtod(const wchar_t* text)
{
    return vantor_wcstod(WithoutGrouping(text).c_str(), nullptr);
}

ustring ustring::ui64toa(unsigned long long value)
{
    // Inner groups have three digits at least, whatever the locale's size is.
    constexpr int leastInGroup = 3;

    ustring result;
    if (const unsigned long long group = GroupValue(m_Locale.Grouping()))
    {
        for (; value / group != 0; value /= group)
        {
            PrependDigits(result, value % group, leastInGroup);
            result.insert(0, m_Locale.ThousandsSep());
        }
    }
    PrependDigits(result, value, 1);
    return result;
}

ustring ustring::i64toa(long long value)
{
    if (value >= 0)
        return ui64toa(static_cast<unsigned long long>(value));
    ustring result = ui64toa(0 - static_cast<unsigned long long>(value));
    result.add_sign(m_Locale.NegNumber(), m_Locale.NegativeSign());
    return result;
}

ustring ustring::fcvt(double value, int digits)
{
    if (digits < 0)
        digits = m_Locale.Digits();

    int point = 0;   // of the decimal point in the figures; beyond their start for small values
    int negative = 0;
    ustring figures = MultiByteToWideChar(std::string(::_fcvt(value, digits, &point, &negative)), CP_UTF8, 0);
    if (point < 1)
    {
        const int zeros = m_Locale.LeadingZeros() ? 1 : 0;
        figures.insert(size_type{0}, static_cast<size_type>(zeros - point), L'0');
        point = zeros;
    }

    ustring result = figures.substr(0, static_cast<size_type>(point));
    figures.erase(0, static_cast<size_type>(point));
    if (const int group = m_Locale.Grouping(); group > 0)
    {
        for (int position = static_cast<int>(result.size()) - group; position > 0; position -= group)
            result.insert(static_cast<size_type>(position), m_Locale.ThousandsSep());
    }
    if (digits > 0)
    {
        figures.resize(static_cast<size_type>(digits), L'0');
        result += m_Locale.DecimalPoint();
        result += figures;
    }
    if (negative)
        result.add_sign(m_Locale.NegNumber(), m_Locale.NegativeSign());
    return result;
}

void ustring::add_sign(int mode, const wchar_t* sign)
{
    switch (mode)
    {
    case 0:
        *this = L"(" + *this + L")";
        break;
    case 1:
        *this = sign + *this;
        break;
    case 2:
        *this = ustring(sign) + L" " + *this;
        break;
    case 3:
        *this += sign;
        break;
    case 4:
        *this = *this + L" " + sign;   // made beside this text, which the sign may stand in
        break;
    default:
        break;
    }
}

double wtof(const wchar_t* text)
{
    double value = 0.0;
    return vantor_swscanf(OrEmpty(text), L"%lf", &value) == 1 ? value : 0.0;
}

double wtof(const wchar_t* text, unsigned long lcid)
{
    VARIANT source;
    ::VariantInit(&source);
    source.vt = VT_BSTR;
    source.bstrVal = ::SysAllocString(text);

    VARIANT number;
    ::VariantInit(&number);
    const HRESULT result = ::VariantChangeTypeEx(&number, &source, lcid, 0, VT_R8);
    ::VariantClear(&source);
    return SUCCEEDED(result) ? number.dblVal : 0.0;
}
}   // namespace vantor
