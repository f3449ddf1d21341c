// Variants to test with: an owner that frees, values of every type, and an object that counts its references.

#ifndef VANTOR_TEST_VARIANTS_VALUES_H
#define VANTOR_TEST_VARIANTS_VALUES_H

#include <vantor/Platform.h>

#include <oleauto.h>

#include <string>
#include <vector>

namespace variants
{
constexpr LCID UsEnglish = 1033;
constexpr VARTYPE Unassigned = 15;
constexpr VARTYPE LastType = VT_UINT;   // 23
constexpr LONG FirstReference = 1;

// A variant that is cleared at the end. Copies are deep.
class CVariant : public VARIANT
{
public:
    CVariant();
    CVariant(const CVariant& other);
    CVariant& operator=(const CVariant&) = delete;
    ~CVariant();
};

CVariant Empty(VARTYPE vt);   // of the type, all bytes of the value 0
CVariant I1(int value);
CVariant I2(int value);
CVariant I4(long value);
CVariant Int(int value);
CVariant UI1(unsigned value);
CVariant UI2(unsigned value);
CVariant UI4(unsigned long value);
CVariant UInt(unsigned value);
CVariant I8(long long value);
CVariant UI8(unsigned long long value);
CVariant R4(float value);
CVariant R8(double value);
CVariant Bool(int value);
CVariant Currency(long long tenThousandths);
CVariant Date(double days);
CVariant Error(SCODE code);
CVariant Decimal(unsigned long value, int scale, bool negative);
CVariant String(const wchar_t* text);
CVariant NullString();
CVariant Of(VARTYPE vt, IUnknown* object);   // VT_UNKNOWN or VT_DISPATCH; takes a reference

// The same bits, with its type: nothing of it has moved.
bool IsSame(const VARIANT& a, const VARIANT& b);

// The same type and value.
bool HoldsTheSame(const VARIANT& a, const VARIANT& b);

// The value of a number, of its text, or 1 for true; NaN for anything else.
double NumberOf(const VARIANT& v);

// Type and value, for messages; a string in double quotes.
std::string Describe(const VARIANT& v);

// The string of a VT_BSTR; L"<type>" of any other variant.
std::wstring TextOf(const VARIANT& v);

// An automation object whose default property is the string "10". Lives as long as the test; nothing frees it.
class CObject : public IDispatch
{
public:
    LONG References() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override;

private:
    LONG m_references = FirstReference;
};

// Several values of every type from 0 to 23: limits, 0, 1, -1, texts that are numbers and texts that are none. The
// objects refer to `object`.
std::vector<CVariant> ValuesOfEveryType(CObject& object);
}   // namespace variants

#endif
