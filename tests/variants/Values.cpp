#include "Values.h"

#include <cfloat>
#include <climits>
#include <cstring>
#include <cwchar>
#include <initializer_list>
#include <limits>
#include <sstream>
#include <type_traits>

namespace variants
{
namespace
{
// The bytes that the value of a type has; what lies behind them is anything.
std::size_t SizeOf(VARTYPE vt)
{
    switch (vt)
    {
    case VT_EMPTY:
    case VT_NULL:
        return 0;
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_DISPATCH:
    case VT_UNKNOWN:
    case VT_VARIANT:
        return sizeof(void*);
    default:
        return 8;
    }
}
template <class Value>
void Add(std::vector<CVariant>& variants, CVariant (*make)(Value),
         std::initializer_list<std::common_type_t<Value>> values)
{
    for (const Value& value : values)
        variants.push_back(make(value));
}
}   // namespace

CVariant::CVariant()
{
    std::memset(static_cast<VARIANT*>(this), 0, sizeof(VARIANT));
}

CVariant::CVariant(const CVariant& other) : CVariant()
{
    if (FAILED(::VariantCopy(this, const_cast<CVariant*>(&other))))   // types that the platform refuses own nothing
        std::memcpy(static_cast<VARIANT*>(this), static_cast<const VARIANT*>(&other), sizeof(VARIANT));
}

CVariant::~CVariant()
{
    ::VariantClear(this);
}

CVariant Empty(VARTYPE type)
{
    CVariant v;
    v.vt = type;
    return v;
}

CVariant I1(int value)
{
    CVariant v = Empty(VT_I1);
    v.cVal = static_cast<char>(value);
    return v;
}

CVariant I2(int value)
{
    CVariant v = Empty(VT_I2);
    v.iVal = static_cast<SHORT>(value);
    return v;
}

CVariant I4(long value)
{
    CVariant v = Empty(VT_I4);
    v.lVal = value;
    return v;
}

CVariant Int(int value)
{
    CVariant v = Empty(VT_INT);
    v.intVal = value;
    return v;
}

CVariant UI1(unsigned value)
{
    CVariant v = Empty(VT_UI1);
    v.bVal = static_cast<BYTE>(value);
    return v;
}

CVariant UI2(unsigned value)
{
    CVariant v = Empty(VT_UI2);
    v.uiVal = static_cast<USHORT>(value);
    return v;
}

CVariant UI4(unsigned long value)
{
    CVariant v = Empty(VT_UI4);
    v.ulVal = value;
    return v;
}

CVariant UInt(unsigned value)
{
    CVariant v = Empty(VT_UINT);
    v.uintVal = value;
    return v;
}

CVariant I8(long long value)
{
    CVariant v = Empty(VT_I8);
    v.llVal = value;
    return v;
}

CVariant UI8(unsigned long long value)
{
    CVariant v = Empty(VT_UI8);
    v.ullVal = value;
    return v;
}

CVariant R4(float value)
{
    CVariant v = Empty(VT_R4);
    v.fltVal = value;
    return v;
}

CVariant R8(double value)
{
    CVariant v = Empty(VT_R8);
    v.dblVal = value;
    return v;
}

CVariant Bool(int value)
{
    CVariant v = Empty(VT_BOOL);
    v.boolVal = static_cast<VARIANT_BOOL>(value);
    return v;
}

CVariant Currency(long long tenThousandths)
{
    CVariant v = Empty(VT_CY);
    v.cyVal.int64 = tenThousandths;
    return v;
}

CVariant Date(double days)
{
    CVariant v = Empty(VT_DATE);
    v.date = days;
    return v;
}

CVariant Error(SCODE code)
{
    CVariant v = Empty(VT_ERROR);
    v.scode = code;
    return v;
}

CVariant Decimal(unsigned long value, int scale, bool negative)
{
    CVariant v;
    v.decVal.Lo32 = value;
    v.decVal.scale = static_cast<BYTE>(scale);
    v.decVal.sign = negative ? DECIMAL_NEG : BYTE{0};
    v.vt = VT_DECIMAL;   // lies over the number's reserved word
    return v;
}

CVariant String(const wchar_t* text)
{
    CVariant v = Empty(VT_BSTR);
    v.bstrVal = ::SysAllocString(text);
    return v;
}

CVariant NullString()
{
    return Empty(VT_BSTR);
}

CVariant Of(VARTYPE type, IUnknown* object)
{
    CVariant v = Empty(type);
    v.punkVal = object;
    if (object)
        object->AddRef();
    return v;
}

bool IsSame(const VARIANT& a, const VARIANT& b)
{
    return std::memcmp(&a, &b, sizeof(VARIANT)) == 0;
}

bool HoldsTheSame(const VARIANT& a, const VARIANT& b)
{
    if (a.vt != b.vt)
        return false;
    if (a.vt == VT_BSTR)
        return TextOf(a) == TextOf(b);
    if (a.vt == VT_DECIMAL)
        return a.decVal.Lo64 == b.decVal.Lo64 && a.decVal.Hi32 == b.decVal.Hi32 &&
               a.decVal.signscale == b.decVal.signscale;
    return std::memcmp(&a.llVal, &b.llVal, SizeOf(a.vt)) == 0;
}

double NumberOf(const VARIANT& v)
{
    if (v.vt == VT_BSTR)
        return std::wcstod(v.bstrVal, nullptr);
    CVariant number;
    if (FAILED(::VariantChangeTypeEx(&number, const_cast<VARIANT*>(&v), UsEnglish, 0, VT_R8)))
        return std::numeric_limits<double>::quiet_NaN();
    return v.vt == VT_BOOL ? -number.dblVal : number.dblVal;
}

std::wstring TextOf(const VARIANT& v)
{
    if (v.vt != VT_BSTR)
        return L"<" + std::to_wstring(v.vt) + L">";
    return std::wstring(v.bstrVal ? v.bstrVal : L"", ::SysStringLen(v.bstrVal));
}

std::string Describe(const VARIANT& v)
{
    std::ostringstream out;
    out << "VARIANT " << v.vt << ' ';
    if (v.vt == VT_BSTR)
    {
        out << '"';
        for (const wchar_t character : TextOf(v))
            out << (character < 0x7F ? static_cast<char>(character) : '?');
        out << (v.bstrVal ? "\"" : "\" (null)");
        return out.str();
    }
    if (v.vt == VT_R4)
        out << v.fltVal << ' ';
    if (v.vt == VT_R8 || v.vt == VT_DATE)
        out << v.dblVal << ' ';
    out << std::hex << "0x" << v.ullVal;
    return out.str();
}

HRESULT STDMETHODCALLTYPE CObject::QueryInterface(REFIID id, void** object)
{
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDispatch))
        return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE CObject::AddRef()
{
    return static_cast<ULONG>(++m_references);
}

ULONG STDMETHODCALLTYPE CObject::Release()
{
    return static_cast<ULONG>(--m_references);
}

HRESULT STDMETHODCALLTYPE CObject::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CObject::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CObject::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*)
{
    return DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE CObject::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                          UINT*)
{
    if (member != DISPID_VALUE || !result)
        return DISP_E_MEMBERNOTFOUND;
    result->vt = VT_BSTR;
    result->bstrVal = ::SysAllocString(L"10");
    return S_OK;
}

std::vector<CVariant> ValuesOfEveryType(CObject& object)
{
    constexpr float floatNaN = std::numeric_limits<float>::quiet_NaN();
    constexpr double doubleNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr float floatInfinity = std::numeric_limits<float>::infinity();
    constexpr double doubleInfinity = std::numeric_limits<double>::infinity();
    CVariant largeDecimal = Decimal(0xFFFFFFFF, 0, false);
    largeDecimal.decVal.Mid32 = 0xFFFFFFFF;
    largeDecimal.decVal.Hi32 = 0xFFFFFFFF;

    std::vector<CVariant> values = {Empty(VT_EMPTY), Empty(VT_NULL), Empty(VT_VARIANT), Empty(Unassigned)};
    Add(values, &I2, {SHRT_MIN, -1, 0, 1, 10, SHRT_MAX});
    Add(values, &I4, {LONG_MIN, -1, 0, 1, 10, 255, LONG_MAX});
    Add(values, &R4, {floatNaN, -floatInfinity, floatInfinity, -FLT_MAX, FLT_MIN, -1.5F, 0, -0.0F, 0.1F, 1, FLT_MAX});
    Add(values, &R8, {doubleNaN, -doubleInfinity, doubleInfinity, -DBL_MAX, DBL_MIN, -1.5, 0, -0.0, 0.1, 1, DBL_MAX});
    Add(values, &R8, {2147483647, 2147483648, 4294967295});
    Add(values, &Currency, {LLONG_MIN, -10000, 0, 10000, 15000, LLONG_MAX});
    Add(values, &Date, {-657434, 0, 1, 41338.5, 2958465, doubleNaN});
    values.push_back(NullString());
    Add(values, &String, {L"", L" ", L"0", L"1", L"-1", L"10", L" 12 ", L"1.5", L"1,5", L"1e400"});
    Add(values, &String, {L"255", L"ff", L"FFh", L"&HFF", L"0x1F", L"-32769", L"65536"});
    Add(values, &String, {L"2147483647", L"2147483648", L"4294967295", L"4294967296"});
    Add(values, &String, {L"true", L"True", L"FALSE", L"#TRUE#", L"apple", L"Apple", L"\x00E4pfel"});
    Add(values, &String, {L"3/5/2013", L"2013-03-05 14:07:09", L"12/31/1899"});
    for (const VARTYPE type : {VARTYPE{VT_DISPATCH}, VARTYPE{VT_UNKNOWN}})
    {
        values.push_back(Of(type, nullptr));
        values.push_back(Of(type, &object));
    }
    Add(values, &Error, {0, 1, DISP_E_OVERFLOW});
    Add(values, &Bool, {VARIANT_TRUE, VARIANT_FALSE, 1, 2, SHRT_MIN});
    values.push_back(Decimal(0, 0, false));
    values.push_back(Decimal(1, 0, false));
    values.push_back(Decimal(15, 1, true));
    values.push_back(largeDecimal);
    Add(values, &I1, {SCHAR_MIN, -1, 0, 1, SCHAR_MAX});
    Add(values, &UI1, {0, 1, 128, UCHAR_MAX});
    Add(values, &UI2, {0, 1, 0x8000, USHRT_MAX});
    Add(values, &UI4, {0, 1, 0x80000000, ULONG_MAX});
    Add(values, &I8, {LLONG_MIN, -1, 0, 1, LLONG_MAX});
    Add(values, &UI8, {0, 1, ULLONG_MAX});
    Add(values, &Int, {INT_MIN, -1, 0, 1, INT_MAX});
    Add(values, &UInt, {0, 1, 0x80000000, UINT_MAX});
    return values;
}
}   // namespace variants
