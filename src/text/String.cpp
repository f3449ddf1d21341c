#include <vantor/Strings.h>
#include <vantor/Translator.h>

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <string_view>

namespace vantor
{
namespace
{
template <class Removable>
void TrimLeft(ustring& text, Removable removable)
{
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), removable));
}

template <class Removable>
void TrimRight(ustring& text, Removable removable)
{
    text.erase(std::find_if_not(text.rbegin(), text.rend(), removable).base(), text.end());
}

auto Equals(wchar_t ch)
{
    return [ch](wchar_t other) { return other == ch; };
}

auto IsIn(const std::vector<wchar_t>& set)
{
    return [&set](wchar_t ch) { return std::find(set.begin(), set.end(), ch) != set.end(); };
}
}   // namespace

ustring::ustring(const std::string& narrow, unsigned int codePage, unsigned long flags)
    : ustring(MultiByteToWideChar(narrow, codePage, flags))
{
}

ustring& ustring::trim(wchar_t ch)
{
    return trim_left(ch).trim_right(ch);
}

ustring& ustring::trim_left(wchar_t ch)
{
    TrimLeft(*this, Equals(ch));
    return *this;
}

ustring& ustring::trim_right(wchar_t ch)
{
    TrimRight(*this, Equals(ch));
    return *this;
}

ustring& ustring::trim(const std::vector<wchar_t>& set)
{
    return trim_left(set).trim_right(set);
}

ustring& ustring::trim_left(const std::vector<wchar_t>& set)
{
    TrimLeft(*this, IsIn(set));
    return *this;
}

ustring& ustring::trim_right(const std::vector<wchar_t>& set)
{
    TrimRight(*this, IsIn(set));
    return *this;
}

void ustring::replace(const ustring& what, const ustring& with)
{
    size_type hit = what.empty() ? npos : find(what);
    if (hit == npos)
        return;

    ustring result;
    result.reserve(size());
    size_type copied = 0;
    for (; hit != npos; hit = find(what, copied))
    {
        result.append(*this, copied, hit - copied).append(with);
        copied = hit + what.size();
    }
    result.append(*this, copied, npos);
    swap(result);
}

void ustring::strupr()
{
    if (!empty())
        ::_wcsupr(data());
}

void ustring::strlwr()
{
    if (!empty())
        ::_wcslwr(data());
}

void ustring::sprintf(const wchar_t* format, ...)
{
    std::va_list args;
    va_start(args, format);
    vsprintf(format, args);
    va_end(args);
}

void ustring::vsprintf(const wchar_t* format, std::va_list args)
{
    // The result is made beside the old text, which the arguments may point into. Each attempt consumes its list.
    const auto attempt = [format, &args](wchar_t* buffer, size_type room)
    {
        std::va_list list;
        va_copy(list, args);
        const int written = ::_vsnwprintf(buffer, room, OrEmpty(format), list);
        va_end(list);
        return written;
    };

    wchar_t buffer[1024];
    int written = attempt(buffer, std::size(buffer));
    if (written >= 0)
    {
        assign(buffer, static_cast<size_type>(written));
        return;
    }

    ustring grown;
    for (size_type room = 2 * std::size(buffer); written < 0; room *= 2)
    {
        grown.resize(room);
        written = attempt(grown.data(), room);
    }
    grown.resize(static_cast<size_type>(written));
    swap(grown);
}

bool ustring::load(HINSTANCE module, unsigned int id)
{
    wchar_t text[256];
    const int length = ::LoadStringW(module, id, text, static_cast<int>(std::size(text)));
    assign(text, length > 0 ? static_cast<size_type>(length) : 0);
    return !empty();
}

bool ustring::xload(HINSTANCE module, unsigned int id)
{
    if (!load(module, id))
        return false;
    CTranslatorInstance::Ref().XlateEx(*this);
    return true;
}

void ustring::replaceForbiddenSymbols(const wchar_t* forbidden)
{
    forbidden = OrEmpty(forbidden);
    if (find_first_of(forbidden) == npos)
        return;

    ustring result;
    result.reserve(size());
    ustring escape;
    for (wchar_t ch : *this)
    {
        // An escape begins with "%", which the rest of the list may name: it is then escaped in turn, in front of the
        // digits made so far.
        ustring digits;
        for (const wchar_t* symbol = forbidden; *symbol; ++symbol)
        {
            if (ch != *symbol)
                continue;
            escape.sprintf(L"%02X", static_cast<unsigned int>(ch));
            digits.insert(0, escape);
            ch = L'%';
        }
        result += ch;
        result += digits;
    }
    swap(result);
}

ustring ustring::substr(const wchar_t* from, const wchar_t* to, bool keepFrom, bool needTo) const
{
    size_type start = 0;
    size_type inner = 0;   // where the text behind `from` begins
    if (from)
    {
        start = find(from);
        if (start == npos)
            return ustring();
        inner = start + std::wcslen(from);
    }

    size_type end = npos;
    if (to)
    {
        end = find(to, inner);
        if (end == npos && needTo)
            return ustring();
    }

    if (!keepFrom)
        start = inner;
    return end == npos ? substr(start) : substr(start, end - start);
}

bool ustring::isnumber() const
{
    const std::wstring_view separator = m_Locale.ThousandsSep();
    size_type pos = 0;
    while (pos < size())
    {
        if (::iswctype((*this)[pos], _DIGIT))
            ++pos;
        else if (!separator.empty() && compare(pos, separator.size(), separator) == 0)
            pos += separator.size();
        else
            return false;
    }
    return !empty();
}
}   // namespace vantor
