// Date and time: a sweep's start and length, how long ago it was, and the same moment in four languages.

#include <vantor/Exceptions.h>
#include <vantor/SystemTime.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}
}   // namespace

int main()
{
    constexpr LCID english = 1033;

    const CSystemTime start(2013, 3, 5, 23, 58, 30, 0);
    const CSystemTimeSpan length(0, 0, 2, 31, 250, false);
    const CSystemTime end = start + length;
    Print(start.Format(english, L"start  %Y-%m-%d %H:%M:%S"));
    Print(end.Format(english, L"end    %Y-%m-%d %H:%M:%S"));
    Print((end - start).Format(L"took   %s%H:%M:%S.%m"));
    Print((start - end).Format(L"back   %s%H:%M:%S.%m"));
    Print(start < end ? L"the start comes first" : L"the end comes first");
    Print(start.Format(english, L"day %#j of the year, week %#W"));

    for (const LCID locale : {1033u, 1031u, 1036u, 1041u})
        Print(start.Format(locale, L"%A, %#d %B %Y"));

    const long long seconds = start;   // since 1970
    Print(ustring::i64toa(seconds));
    Print(CSystemTime(seconds) == start ? L"and back" : L"lost");

    try
    {
        CSystemTime(2013, 2, 30, 0, 0, 0, 0);
    }
    catch (const CStdException& e)
    {
        const CStdException::CExInfo info(e);
        Print(L"30 February: " + info.GetFunction() + L" says " + info.GetErrorMessage().trim_right(L'\n'));
    }
}
