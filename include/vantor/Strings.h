// The library's one text type, the locale settings that its number formatting follows, and orderings for containers.
//
//     ustring name = L"trace 7.csv";
//     name.replace(L" ", L"_");
//     if (name.compareWithMask(L"*.csv") == 0)
//         label.sprintf(L"%s: %s points", name.c_str(), ustring::ui64toa(1001).c_str());   // trace_7.csv: 1,001 points

#ifndef VANTOR_STRINGS_H
#define VANTOR_STRINGS_H

#include <vantor/Platform.h>

#include <cstdarg>
#include <list>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantor
{
class ustring;

// A null pointer stands for the empty string.
inline const wchar_t* OrEmpty(const wchar_t* text) noexcept
{
    return text ? text : L"";
}

// A snapshot of one locale's number settings, read once. Never throws: what cannot be read is empty or 0.
// Copies own their texts. May be read from any thread.
class VANTOR_API CLocale
{
public:
    explicit CLocale(LCID locale);

    const wchar_t* DecimalPoint() const { return m_decimalPoint; }
    const wchar_t* ThousandsSep() const { return m_thousandsSep; }
    const wchar_t* NegativeSign() const { return m_negativeSign; }
    int NegNumber() const { return m_negNumber; }   // form of a negative number, 0 to 4: see ustring::add_sign
    int Grouping() const { return m_grouping; }     // digits in a group: only the first number of the locale's "3;2;0"
    int Digits() const { return m_digits; }         // digits after the decimal separator
    bool LeadingZeros() const { return m_leadingZeros != 0; }

    // A numeric setting of a locale; 0 if it cannot be read or does not start with a digit.
    static int GetLocaleInfoW(LCID locale, LCTYPE type);

private:
    static constexpr int TextSize = 256;   // characters, terminator included

    wchar_t m_decimalPoint[TextSize] = {};
    wchar_t m_thousandsSep[TextSize] = {};
    wchar_t m_negativeSign[TextSize] = {};
    int m_negNumber;
    int m_grouping;
    int m_digits;
    int m_leadingZeros;
};

// Case-insensitive order, by the runtime library's rules (_stricmp, _wcsicmp).
struct LessStrA
{
    VANTOR_API bool operator()(const std::string& a, const std::string& b) const;
};
struct LessStrW
{
    VANTOR_API bool operator()(const ustring& a, const ustring& b) const;
};

// Order by the first decimal number in each text; none counts as 0, and a minus sign is no part of it ("-5" is 5).
// All else is ignored: "x7" and "y7" are equivalent, so that a set keeps one of them.
struct LessStrAN
{
    VANTOR_API bool operator()(const std::string& a, const std::string& b) const;
};
struct LessStrWN
{
    VANTOR_API bool operator()(const ustring& a, const ustring& b) const;
};

// The standard wide string (UTF-16 code units) with conveniences, and no data of its own: everything that the base
// offers works as usual, npos included. A null `const wchar_t*` is the empty string wherever one is taken.
// Number formatting and parsing follow m_Locale.
class ustring : public std::wstring
{
public:
    ustring() noexcept = default;
    ustring(const wchar_t* text) : std::wstring(OrEmpty(text)) {}
    ustring(std::wstring text) noexcept : std::wstring(std::move(text)) {}
    VANTOR_API ustring(const std::string& narrow, unsigned int codePage, unsigned long flags);

    ustring& operator=(const wchar_t* text)
    {
        assign(OrEmpty(text));
        return *this;
    }
    ustring& operator=(wchar_t ch)
    {
        assign(1, ch);
        return *this;
    }

    ustring& operator+=(const std::wstring& text)
    {
        append(text);
        return *this;
    }
    ustring& operator+=(const wchar_t* text)
    {
        append(OrEmpty(text));
        return *this;
    }
    ustring& operator+=(wchar_t ch)
    {
        push_back(ch);
        return *this;
    }

    // Remove every leading and/or trailing character that equals ch, or that is in the set.
    VANTOR_API ustring& trim(wchar_t ch);
    VANTOR_API ustring& trim_left(wchar_t ch);
    VANTOR_API ustring& trim_right(wchar_t ch);
    VANTOR_API ustring& trim(const std::vector<wchar_t>& set);
    VANTOR_API ustring& trim_left(const std::vector<wchar_t>& set);
    VANTOR_API ustring& trim_right(const std::vector<wchar_t>& set);

    // Replaces every occurrence, left to right; inserted text is not searched again. An empty `what` changes nothing.
    VANTOR_API void replace(const ustring& what, const ustring& with);
    using std::wstring::replace;

    // By the runtime library's rules for its current locale; without setlocale that is A to Z only.
    VANTOR_API void strupr();
    VANTOR_API void strlwr();

    // printf formatting of the platform: %s and %c take wide text, %S narrow. The result is never cut. The arguments
    // may point into this string.
    VANTOR_API void sprintf(const wchar_t* format, ...);
    VANTOR_API void vsprintf(const wchar_t* format, std::va_list args);

    // Loads an entry of the module's string table, xload also translates it. False, and an empty string, if there is
    // no such entry or it is empty. An entry of more than 255 characters is cut to its first 255.
    VANTOR_API bool load(HINSTANCE module, unsigned int id);
    VANTOR_API bool xload(HINSTANCE module, unsigned int id);

    // Escapes every character that `forbidden` lists: "%", then its code in hexadecimal, two digits or more. A space
    // becomes "%20". The list is gone through once, in order, also for the "%" just made: list "%" first, or it is
    // escaped again.
    VANTOR_API void replaceForbiddenSymbols(const wchar_t* forbidden);

    // The text between the first `from` and the next `to`. A null `from` means the start, a null `to` the end.
    // keepFrom: the result begins with `from`. needTo: without a `to` the result is empty, else it goes to the end.
    // `to` is never part of the result; without a `from` it is empty.
    VANTOR_API ustring substr(const wchar_t* from, const wchar_t* to, bool keepFrom, bool needTo) const;
    using std::wstring::substr;

    // True for digits and the locale's thousands separators in any order and number ("1,234", "12,,3", ","), and for
    // nothing else: an unsigned integer as a user types it.
    VANTOR_API bool isnumber() const;

    // The runtime library's _wcsicmp, or _wcsnicmp over `count` characters. npos, and 0xFFFFFFFF on every platform,
    // mean the whole string.
    VANTOR_API int compareNoCase(const wchar_t* other, size_type count) const;

    // Matches against a mask: "*" stands for any run of characters, "?" for any one. 0 is a match; otherwise -1 or 1.
    // Three oddities that applications rely on: a text that ends before the mask does matches (so the empty text
    // matches every mask), a "?" directly after a "*" demands no character, and where nothing matches behind a "*" the
    // whole text is tried against the rest of the mask ("ab" matches "a*ab"). NoCase ignores case only before the first
    // "*".
    VANTOR_API int compareWithMask(const wchar_t* mask) const;
    VANTOR_API int compareWithMaskNoCase(const wchar_t* mask) const;

    // Pieces of a sequence of NUL-terminated strings that ends with an empty one.
    VANTOR_API static void split(const wchar_t* multiString, std::vector<ustring>& out);
    VANTOR_API static void split(const wchar_t* multiString, std::list<ustring>& out);
    VANTOR_API static void split(const wchar_t* multiString, std::set<ustring, LessStrW>& out);

    // Pieces between delimiters, empty ones included. An empty text is one empty piece; a text that ends with the
    // delimiter gives a last empty piece only with keepTrailingEmpty; an empty delimiter gives the whole text.
    // A set keeps the first of pieces that differ in case only.
    VANTOR_API static void split(const wchar_t* text, wchar_t delimiter, std::vector<ustring>& out,
                                 bool keepTrailingEmpty);
    VANTOR_API static void split(const wchar_t* text, wchar_t delimiter, std::list<ustring>& out,
                                 bool keepTrailingEmpty);
    VANTOR_API static void split(const wchar_t* text, wchar_t delimiter, std::set<ustring, LessStrW>& out,
                                 bool keepTrailingEmpty);
    VANTOR_API static void split(const wchar_t* text, const wchar_t* delimiter, std::vector<ustring>& out,
                                 bool keepTrailingEmpty);
    VANTOR_API static void split(const wchar_t* text, const wchar_t* delimiter, std::list<ustring>& out,
                                 bool keepTrailingEmpty);
    VANTOR_API static void split(const wchar_t* text, const wchar_t* delimiter, std::set<ustring, LessStrW>& out,
                                 bool keepTrailingEmpty);

    // Numbers from text, spaces and the locale's thousands separators ignored; 0 if there is none. strtod's decimal
    // separator is always ".": with a locale that writes "12,5" it reads 12.
    VANTOR_API static long long atoi64(const wchar_t* text);
    VANTOR_API static double strtod(const wchar_t* text);

    // Numbers as text for the locale. Inner groups are padded to three digits even where the locale's groups are
    // larger. fcvt: fixed point, rounded to `digits` places, negative for the locale's own; a negative value that
    // rounds to zero keeps its sign.
    VANTOR_API static ustring i64toa(long long value);
    VANTOR_API static ustring ui64toa(unsigned long long value);
    VANTOR_API static ustring fcvt(double value, int digits);

    // Puts a negative sign to this text. Mode 0 (5), 1 -5, 2 - 5, 3 5-, 4 5 -; any other changes nothing.
    VANTOR_API void add_sign(int mode, const wchar_t* sign);

    // Code-page conversions with the platform's flags; empty if the text cannot be converted. Lengths are in units of
    // the source; 0xFFFFFFFF takes the text up to its terminator, which is not part of the result.
    VANTOR_API static ustring MultiByteToWideChar(const char* text, unsigned int length, unsigned int codePage,
                                                  unsigned long flags);
    VANTOR_API static ustring MultiByteToWideChar(const std::string& text, unsigned int codePage, unsigned long flags);
    VANTOR_API static std::string WideCharToMultiByte(const wchar_t* text, unsigned int length, unsigned int codePage,
                                                      unsigned long flags);
    VANTOR_API static std::string WideCharToMultiByte(const ustring& text, unsigned int codePage, unsigned long flags);

    // The user's default locale, as it was when the library was loaded.
    VANTOR_API static CLocale m_Locale;
};

// Comparisons are ordinal, by code units; a text sorts before every longer one that begins with it.
// clang-format off
inline bool operator==(const ustring& a, const std::wstring& b) { return a.compare(b) == 0; }
inline bool operator!=(const ustring& a, const std::wstring& b) { return a.compare(b) != 0; }
inline bool operator<(const ustring& a, const std::wstring& b) { return a.compare(b) < 0; }
inline bool operator>(const ustring& a, const std::wstring& b) { return a.compare(b) > 0; }
inline bool operator<=(const ustring& a, const std::wstring& b) { return a.compare(b) <= 0; }
inline bool operator>=(const ustring& a, const std::wstring& b) { return a.compare(b) >= 0; }

inline bool operator==(const ustring& a, const wchar_t* b) { return a.compare(OrEmpty(b)) == 0; }
inline bool operator!=(const ustring& a, const wchar_t* b) { return a.compare(OrEmpty(b)) != 0; }
inline bool operator<(const ustring& a, const wchar_t* b) { return a.compare(OrEmpty(b)) < 0; }
inline bool operator>(const ustring& a, const wchar_t* b) { return a.compare(OrEmpty(b)) > 0; }
inline bool operator<=(const ustring& a, const wchar_t* b) { return a.compare(OrEmpty(b)) <= 0; }
inline bool operator>=(const ustring& a, const wchar_t* b) { return a.compare(OrEmpty(b)) >= 0; }

inline bool operator==(const wchar_t* a, const ustring& b) { return b == a; }
inline bool operator!=(const wchar_t* a, const ustring& b) { return b != a; }
inline bool operator<(const wchar_t* a, const ustring& b) { return b > a; }
inline bool operator>(const wchar_t* a, const ustring& b) { return b < a; }
inline bool operator<=(const wchar_t* a, const ustring& b) { return b >= a; }
inline bool operator>=(const wchar_t* a, const ustring& b) { return b <= a; }
// clang-format on

// The left side is taken by value: a chain of + appends to one text instead of copying it again and again.
inline ustring operator+(ustring a, const std::wstring& b)
{
    a += b;
    return a;
}
inline ustring operator+(ustring a, std::wstring&& b)   // else the standard's operator would fit temporaries as well
{
    a += b;
    return a;
}
inline ustring operator+(ustring a, const wchar_t* b)
{
    a += b;
    return a;
}
inline ustring operator+(ustring a, wchar_t b)
{
    a += b;
    return a;
}
inline ustring operator+(const wchar_t* a, const ustring& b)
{
    return ustring(a) + b;
}
inline ustring operator+(wchar_t a, const ustring& b)
{
    return ustring(std::wstring(1, a)) + b;
}

// One floating-point number at the start of the text; 0.0 if there is none. Without a locale only "." is the decimal
// separator; with one, the platform reads the whole text by that locale's rules.
VANTOR_API double wtof(const wchar_t* text);
VANTOR_API double wtof(const wchar_t* text, unsigned long lcid);
}   // namespace vantor

#endif
