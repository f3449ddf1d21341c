#include <vantor/Strings.h>

#include <cwchar>
#include <string_view>

namespace vantor
{
namespace
{
using View = std::wstring_view;

int Order(wchar_t a, wchar_t b)
{
    return a == b ? 0 : a < b ? -1 : 1;
}

int OrderNoCase(wchar_t a, wchar_t b)
{
    const wchar_t left[] = {a, 0};
    const wchar_t right[] = {b, 0};
    const int order = ::_wcsicmp(left, right);
    return order == 0 ? 0 : order < 0 ? -1 : 1;
}

// A mask, cut at its runs of stars; a "?" right behind a star belongs to the run.
struct Parts
{
    std::vector<View> parts;   // one more than there are runs, but for a run that ends the mask
    bool endsWithStar = false;
};

Parts Cut(View mask)
{
    Parts result;
    for (;;)
    {
        const std::size_t star = mask.find(L'*');
        result.parts.push_back(mask.substr(0, star));
        if (star == mask.npos)
            return result;
        const std::size_t rest = mask.find_first_not_of(L"*?", star);
        if (rest == mask.npos)
        {
            result.endsWithStar = true;
            return result;
        }
        mask.remove_prefix(rest);
    }
}

// The results of all tails of a text against the mask from one part on.
struct Tails
{
    std::vector<signed char> results;     // by the tail's start
    std::size_t lastMatch = View::npos;   // start of the shortest tail that matches
};

// The result of the text's tail from `start` on against one part of the mask and what follows it.
template <class Comparison>
int MatchTail(View text, std::size_t start, View part, bool endsWithStar, const Tails* rest, Comparison order)
{
    std::size_t pos = start;
    for (wchar_t expected : part)
    {
        if (expected != L'?')
        {
            if (const int difference = order(text[pos], expected))
                return difference;
        }
        if (++pos == text.size())
            return 0;
    }
    if (!rest)
        return endsWithStar ? 0 : 1;
    if (rest->lastMatch != View::npos && rest->lastMatch >= pos)
        return 0;
    return rest->results[start];   // no tail behind the star matches: the whole text is tried once more
}

// Every tail against every part, from the mask's end to its front: what follows a part is looked up instead of matched
// again, which keeps the work at length of text times length of mask.
template <class Comparison>
int Match(View text, View mask, Comparison order)
{
    if (text.empty())
        return 0;

    const Parts cut = Cut(mask);
    Tails tails;
    const Tails* rest = nullptr;
    for (std::size_t part = cut.parts.size() - 1; part > 0; --part)
    {
        tails.results.resize(text.size());
        std::size_t lastMatch = View::npos;
        for (std::size_t start = 0; start < text.size(); ++start)
        {
            const int result = MatchTail(text, start, cut.parts[part], cut.endsWithStar, rest, Order);
            tails.results[start] = static_cast<signed char>(result);
            if (result == 0)
                lastMatch = start;
        }
        tails.lastMatch = lastMatch;
        rest = &tails;
    }
    return MatchTail(text, 0, cut.parts[0], cut.endsWithStar, rest, order);
}
}   // namespace

int ustring::compareNoCase(const wchar_t* other, size_type count) const
{
    if (count == npos || count == 0xFFFFFFFF)
        return ::_wcsicmp(c_str(), OrEmpty(other));
    return ::_wcsnicmp(c_str(), OrEmpty(other), count);
}

int ustring::compareWithMask(const wchar_t* mask) const
{
    return Match(*this, OrEmpty(mask), Order);
}

int ustring::compareWithMaskNoCase(const wchar_t* mask) const
{
    return Match(*this, OrEmpty(mask), OrderNoCase);
}
}   // namespace vantor
