#include "../platform/Calls.h"

#include <vantor/Variant.h>

#include <cwchar>

namespace vantor
{
namespace
{
constexpr LCID UsEnglish = 1033;
constexpr int DigitsRoom = 256;   // characters

enum class EKind
{
    eOther,
    eSigned,
    eUnsigned,
};

EKind KindOf(VARTYPE vt)
{
    switch (vt)
    {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_INT:
        return EKind::eSigned;
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
        return EKind::eUnsigned;
    default:
        return EKind::eOther;
    }
}

int SignedValue(const VARIANT& v)
{
    switch (v.vt)
    {
    case VT_I1:
        return static_cast<signed char>(v.cVal);   // plain char has no sign on some devices
    case VT_I2:
        return v.iVal;
    default:
        return v.lVal;
    }
}

unsigned long UnsignedValue(const VARIANT& v)
{
    switch (v.vt)
    {
    case VT_UI1:
        return v.bVal;
    case VT_UI2:
        return v.uiVal;
    default:
        return v.ulVal;
    }
}

double FloatingValue(const VARIANT& v)
{
    return v.vt == VT_R4 ? static_cast<double>(v.fltVal) : v.dblVal;
}

const wchar_t* Text(const VARIANT& v)
{
    return v.bstrVal ? v.bstrVal : L"";
}

template <class Number>
int Compare(Number a, Number b)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

bool IsBase(int base)
{
    return base >= 2 && base <= 36;
}

// A string becomes the VT_I4 that it starts with. False if there is more than that.
bool ParseInteger(VARIANT& v, EKind target, int base)
{
    const wchar_t* const text = Text(v);
    wchar_t* end = nullptr;
    const long number =
        target == EKind::eSigned ? std::wcstol(text, &end, base) : static_cast<long>(std::wcstoul(text, &end, base));
    const bool whole = *end == 0 || (base == 16 && _wcsicmp(end, L"h") == 0);
    ::SysFreeString(v.bstrVal);
    v.vt = VT_I4;
    v.lVal = number;
    return whole;
}

// An integer becomes its digits. False, and v stays, if there is no memory for them.
bool FormatInteger(VARIANT& v, int base)
{
    wchar_t digits[DigitsRoom];
    if (KindOf(v.vt) == EKind::eSigned)
        _itow(SignedValue(v), digits, base);
    else
        _ultow(UnsignedValue(v), digits, base);
    const BSTR text = ::SysAllocString(_wcsupr(digits));
    if (!text)
        return false;
    v.vt = VT_BSTR;
    v.bstrVal = text;
    return true;
}

// The platform's conversion, with true as the number 1. `target` may be `source`.
bool Convert(LCID lcid, VARTYPE vt, VARIANT& target, VARIANT& source)
{
    if (source.vt == VT_BOOL)
        source.boolVal = source.boolVal != VARIANT_FALSE;
    return SUCCEEDED(::VariantChangeTypeEx(&target, &source, lcid, VARIANT_ALPHABOOL, vt));
}

// Both are of the type of a.
int CompareAlike(const VARIANT& a, const VARIANT& b)
{
    switch (a.vt)
    {
    case VT_BSTR:
        return std::wcscmp(Text(a), Text(b));
    case VT_BOOL:
        return Compare(a.boolVal != VARIANT_FALSE, b.boolVal != VARIANT_FALSE);
    case VT_R4:
    case VT_R8:
        return Compare(FloatingValue(a), FloatingValue(b));
    default:
        break;
    }
    switch (KindOf(a.vt))
    {
    case EKind::eSigned:
        return Compare(SignedValue(a), SignedValue(b));
    case EKind::eUnsigned:
        return Compare(UnsignedValue(a), UnsignedValue(b));
    case EKind::eOther:
        break;
    }
    return 0;
}
}   // namespace

bool VariantChangeType(unsigned long lcid, unsigned short vt, VARIANT& v, int base) noexcept
{
    if (v.vt == vt)
        return true;

    bool whole = true;
    if (base != 0)
    {
        const EKind target = KindOf(vt);
        if (v.vt == VT_BSTR && target != EKind::eOther)
        {
            if (!IsBase(base))
                return false;
            whole = ParseInteger(v, target, base);
        }
        else if (vt == VT_BSTR && KindOf(v.vt) != EKind::eOther)
        {
            return IsBase(base) && FormatInteger(v, base);
        }
    }
    return Convert(lcid, vt, v, v) && whole;
}

int VariantCompare(const VARIANT& a, const VARIANT& b) noexcept
{
    if (a.vt == b.vt)
        return CompareAlike(a, b);

    VARIANT source = b;   // shallow: what it refers to stays b's
    VARIANT converted;
    ::VariantInit(&converted);
    if (!Convert(UsEnglish, a.vt, converted, source))
        return 0;
    const int order = CompareAlike(a, converted);
    ::VariantClear(&converted);
    return order;
}
}   // namespace vantor
