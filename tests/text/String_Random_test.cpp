// The members against slow references that follow their definitions step by step, over random texts of few different
// letters.

#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using vantor::ustring;

namespace
{
constexpr int Rounds = 40000;

class CRandom
{
public:
    std::size_t Below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_engine); }

    std::wstring Text(const std::wstring& letters, std::size_t longest)
    {
        std::wstring text(Below(longest + 1), L' ');
        for (wchar_t& ch : text)
            ch = letters[Below(letters.size())];
        return text;
    }

private:
    std::mt19937 m_engine{20080229};
};

bool Contains(const std::vector<wchar_t>& set, wchar_t ch)
{
    for (const wchar_t element : set)
    {
        if (element == ch)
            return true;
    }
    return false;
}

std::wstring SlowTrimLeft(std::wstring text, const std::vector<wchar_t>& set)
{
    while (!text.empty() && Contains(set, text.front()))
        text.erase(0, 1);
    return text;
}

std::wstring SlowTrimRight(std::wstring text, const std::vector<wchar_t>& set)
{
    while (!text.empty() && Contains(set, text.back()))
        text.pop_back();
    return text;
}

std::wstring SlowReplace(std::wstring text, const std::wstring& what, const std::wstring& with)
{
    for (std::size_t pos = text.find(what); pos != text.npos; pos = text.find(what, pos + with.size()))
        text.replace(pos, what.size(), with);
    return text;
}

std::wstring Escape(wchar_t ch)
{
    std::wstring digits;
    for (unsigned int code = ch; code != 0 || digits.size() < 2; code /= 16)
        digits.insert(0, 1, L"0123456789ABCDEF"[code % 16]);
    return L"%" + digits;
}

std::wstring SlowForbidden(std::wstring text, const std::wstring& forbidden)
{
    for (std::size_t pos = text.size(); pos-- > 0;)
    {
        for (const wchar_t symbol : forbidden)
        {
            if (text[pos] == symbol)
                text.replace(pos, 1, Escape(symbol));
        }
    }
    return text;
}

std::wstring SlowSubstr(const std::wstring& text, const wchar_t* from, const wchar_t* to, bool keepFrom, bool needTo)
{
    if (text.empty())
        return L"";
    std::size_t start = 0;
    if (from)
    {
        start = text.find(from, 0);
        if (start == text.npos)
            return L"";
    }
    const std::size_t fromLength = from ? std::wstring(from).size() : 0;
    std::size_t end = text.npos;
    if (to)
    {
        end = text.find(to, from ? start + fromLength : 0);
        if (end == text.npos && needTo)
            return L"";
    }
    if (from && !keepFrom)
        start += fromLength;
    std::wstring result;
    for (std::size_t pos = start; pos < text.size() && pos != end; ++pos)
        result += text[pos];
    return result;
}

const wchar_t* OrNull(const std::wstring& text, bool null)
{
    return null ? nullptr : text.c_str();
}
}   // namespace

TEST(StringRandom, TrimByCharacter_FollowsItsSteps)
{
    CRandom random;
    for (int round = 0; round < Rounds; ++round)
    {
        const ustring text = random.Text(L"ab ", 12);
        const std::vector<wchar_t> set = {L"ab "[random.Below(3)]};
        const wchar_t ch = set[0];
        ASSERT_EQ(ustring(text).trim_left(ch), SlowTrimLeft(text, set)) << testing::PrintToString(text);
        ASSERT_EQ(ustring(text).trim_right(ch), SlowTrimRight(text, set)) << testing::PrintToString(text);
        ASSERT_EQ(ustring(text).trim(ch), SlowTrimRight(SlowTrimLeft(text, set), set)) << testing::PrintToString(text);
    }
}

TEST(StringRandom, TrimBySet_FollowsItsSteps)
{
    CRandom random;
    for (int round = 0; round < Rounds; ++round)
    {
        const ustring text = random.Text(L"abcd", 12);
        const std::wstring letters = random.Text(L"abcd", 3);
        const std::vector<wchar_t> set(letters.begin(), letters.end());
        ASSERT_EQ(ustring(text).trim_left(set), SlowTrimLeft(text, set)) << testing::PrintToString(text);
        ASSERT_EQ(ustring(text).trim_right(set), SlowTrimRight(text, set)) << testing::PrintToString(text);
        ASSERT_EQ(ustring(text).trim(set), SlowTrimRight(SlowTrimLeft(text, set), set)) << testing::PrintToString(text);
    }
}

TEST(StringRandom, Replace_FollowsItsSteps)
{
    CRandom random;
    for (int round = 0; round < Rounds; ++round)
    {
        const ustring text = random.Text(L"ab", 20);
        const ustring what = L"a" + random.Text(L"ab", 3);
        const ustring with = random.Text(L"abc", 4);
        ustring replaced = text;
        replaced.replace(what, with);
        ASSERT_EQ(replaced, SlowReplace(text, what, with))
            << testing::PrintToString(text) << testing::PrintToString(what) << testing::PrintToString(with);
    }
}

TEST(StringRandom, ReplaceForbiddenSymbols_FollowsItsSteps)
{
    CRandom random;
    const std::wstring letters = L"%25aC<\x7F\u00E4\x1234\xFFFF";
    for (int round = 0; round < Rounds; ++round)
    {
        const ustring text = random.Text(letters, 10);
        const ustring forbidden = random.Text(letters, 5);
        ustring escaped = text;
        escaped.replaceForbiddenSymbols(forbidden.c_str());
        ASSERT_EQ(escaped, SlowForbidden(text, forbidden))
            << testing::PrintToString(text) << testing::PrintToString(forbidden);
    }
}

TEST(StringRandom, Substr_FollowsItsSteps)
{
    CRandom random;
    for (int round = 0; round < Rounds; ++round)
    {
        const ustring text = random.Text(L"ab[]", 12);
        const std::wstring from = random.Text(L"ab[", 2);
        const std::wstring to = random.Text(L"ab]", 2);
        const wchar_t* const fromText = OrNull(from, random.Below(5) == 0);
        const wchar_t* const toText = OrNull(to, random.Below(5) == 0);
        for (const bool keepFrom : {false, true})
        {
            for (const bool needTo : {false, true})
            {
                ASSERT_EQ(text.substr(fromText, toText, keepFrom, needTo),
                          SlowSubstr(text, fromText, toText, keepFrom, needTo))
                    << testing::PrintToString(text) << testing::PrintToString(ustring(fromText))
                    << testing::PrintToString(ustring(toText)) << keepFrom << needTo;
            }
        }
    }
}
