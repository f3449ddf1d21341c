// Automation variants: register addresses in hexadecimal, conversions by the rules of a language, and an order.

#include <vantor/COM.h>
#include <vantor/Strings.h>
#include <vantor/Variant.h>

#include <cstdio>

namespace
{
using namespace vantor;

// A variant that frees what it holds.
struct CText : VARIANT
{
    explicit CText(const wchar_t* text)
    {
        vt = VT_BSTR;
        bstrVal = ::SysAllocString(text);
    }
    CText(const CText&) = delete;
    CText& operator=(const CText&) = delete;
    ~CText() { ::VariantClear(this); }
};
}   // namespace

int main()
{
    const CCOMInitializer com(true);   // throws if the thread is in another apartment

    CText address(L"1FFh");
    VariantChangeType(1033, VT_I4, address, 16);
    std::printf("1FFh is %ld\n", address.lVal);
    address.lVal += 1;
    VariantChangeType(1033, VT_BSTR, address, 16);
    std::printf("and then comes %ls\n", address.bstrVal);

    CText level(L"-37,5");
    std::printf("a number in German: %s\n", VariantChangeType(1031, VT_R8, level, 0) ? "yes" : "no");
    std::printf("%.1f dBm\n", level.dblVal);

    CText words(L"10 MHz");
    std::printf("a number: %s\n", VariantChangeType(1033, VT_I4, words, 10) ? "yes" : "no");

    CText two(L"2"), ten(L"10");
    std::printf("as texts: %s\n", VariantCompare(two, ten) < 0 ? "2 before 10" : "10 before 2");
    VariantChangeType(1033, VT_I4, two, 10);
    std::printf("as numbers: %s\n", VariantCompare(two, ten) < 0 ? "2 before 10" : "10 before 2");
}
