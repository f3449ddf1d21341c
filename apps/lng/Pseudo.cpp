#include "Pseudo.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

namespace lng
{
namespace
{
using vantor::ustring;
using View = std::wstring_view;

constexpr View Plain = L"AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz";
constexpr View Accented =
    L"\u00C5\u00E5\u0181\u0253\u00C7\u00E7\u00D0\u00F0\u00CB\u00EB\u0191\u0192\u011C\u011D\u0124\u0125"
    L"\u00CE\u00EE\u0134\u0135\u0136\u0137\u013D\u013E\u1E40\u1E41\u00D1\u00F1\u00D6\u00F6\u00DE\u00FE"
    L"\u01EA\u01EB\u0154\u0155\u0160\u0161\u0162\u0163\u00DB\u00FB\u1E7C\u1E7D\u0174\u0175\u1E8A\u1E8B"
    L"\u00DD\u00FD\u017D\u017E";
static_assert(Plain.size() == Accented.size());

wchar_t Accent(wchar_t ch)
{
    const std::size_t letter = Plain.find(ch);
    return letter == View::npos ? ch : Accented[letter];
}

std::size_t Skip(View text, std::size_t pos, View set)
{
    const std::size_t end = text.find_first_not_of(set, pos);
    return end == View::npos ? text.size() : end;
}

// "%1!s!" and "%1": a numbered insert of the platform's message formatting. 0 if it is none.
std::size_t NumberedInsert(View text, std::size_t pos)
{
    const std::size_t digits = Skip(text, pos + 1, L"0123456789");
    if (digits == pos + 1 || digits > pos + 3)
        return 0;
    if (digits < text.size() && text[digits] == L'!')
    {
        const std::size_t close = text.find(L'!', digits + 1);
        if (close != View::npos && close - digits <= 12)
            return close + 1 - pos;
    }
    return digits - pos;
}

// "%5.2f", "%I64u", "%%": a conversion of printf. 0 if it is none.
std::size_t Conversion(View text, std::size_t pos)
{
    std::size_t end = Skip(text, pos + 1, L"-+#0123456789.*");
    for (View size : {View(L"I64"), View(L"I32"), View(L"ll"), View(L"l"), View(L"hh"), View(L"h"), View(L"w")})
    {
        if (text.substr(end, size.size()) == size)
        {
            end += size.size();
            break;
        }
    }
    const bool known = end < text.size() && View(L"cCdiouxXeEfgGaAnpsS%").find(text[end]) != View::npos;
    return known ? end + 1 - pos : 0;
}

std::size_t Braces(View text, std::size_t pos)
{
    const std::size_t end = Skip(text, pos + 1, L"0123456789");
    return end > pos + 1 && end < text.size() && text[end] == L'}' ? end + 1 - pos : 0;
}

// The body of a text, accented, its placeholders and accelerator kept; empty if it has no letter besides the
// placeholders'.
ustring AccentAll(const ustring& body)
{
    ustring result;
    bool letters = false;
    bool accelerator = false;
    for (std::size_t pos = 0; pos < body.size();)
    {
        if (const std::size_t length = PlaceholderAt(body, pos))
        {
            result.append(body, pos, length);
            pos += length;
            accelerator = false;
            continue;
        }
        const wchar_t ch = body[pos++];
        letters = letters || std::iswalpha(ch) != 0;
        result += accelerator ? ch : Accent(ch);
        accelerator = ch == L'&' && !accelerator;
    }
    return letters ? result : ustring();
}
}   // namespace

std::size_t PlaceholderAt(const ustring& text, std::size_t pos)
{
    if (text[pos] == L'{')
        return Braces(text, pos);
    if (text[pos] != L'%')
        return 0;
    const std::size_t conversion = Conversion(text, pos);
    return conversion != 0 ? conversion : NumberedInsert(text, pos);
}

std::vector<ustring> Placeholders(const ustring& text)
{
    std::vector<ustring> result;
    for (std::size_t pos = 0; pos < text.size();)
    {
        const std::size_t length = PlaceholderAt(text, pos);
        if (length != 0)
            result.push_back(text.substr(pos, length));
        pos += std::max<std::size_t>(length, 1);
    }
    return result;
}

ustring Pseudo(const ustring& text)
{
    const std::size_t tab = std::min(text.find(L'\t'), text.size());
    const auto isBlank = [](wchar_t ch) { return std::iswspace(ch) != 0; };
    const auto bodyEnd = text.begin() + static_cast<std::ptrdiff_t>(tab);
    const auto first = std::find_if_not(text.begin(), bodyEnd, isBlank);
    const auto last =
        std::find_if_not(std::make_reverse_iterator(bodyEnd), std::make_reverse_iterator(first), isBlank).base();
    const ustring body = std::wstring(first, last);

    const ustring accented = AccentAll(body);
    if (accented.empty())
        return text;

    const std::size_t longer = std::max<std::size_t>((2 * body.size() + 4) / 5, 2);   // 40 %, rounded up
    ustring result = std::wstring(text.begin(), first);
    result += L'[';
    result += accented;
    result.append(longer - 2, L'~');
    result += L']';
    result.append(last, text.end());
    return result;
}
}   // namespace lng
