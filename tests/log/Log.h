// Log files read back by a parser of the tests' own, and a clock that stands.

#ifndef VANTOR_TEST_LOG_LOG_H
#define VANTOR_TEST_LOG_LOG_H

#include "support/ImportPatch.h"
#include "support/TempFolder.h"

#include <vantor/LogFile.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <vector>

namespace log_test
{
inline constexpr const wchar_t* Months[] = {L"January",   L"February", L"March",    L"April",
                                            L"May",       L"June",     L"July",     L"August",
                                            L"September", L"October",  L"November", L"December"};

struct CRecord
{
    std::wstring stamp;
    std::wstring text;
};

// The records of a file's bytes: the mark, then nothing but "[time] text" and a line end, again and again. Fails with
// the offset, in characters, of what is none; the records before it are in `records` all the same.
inline testing::AssertionResult Parse(const std::string& bytes, std::vector<CRecord>& records)
{
    records.clear();
    if (bytes.compare(0, 2, "\xFF\xFE") != 0)
        return testing::AssertionFailure() << "no mark";
    std::wstring text;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2)
    {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        text += static_cast<wchar_t>(high << 8 | low);
    }

    // Each # stands for a digit, an M for the name of a month.
    const auto stampLength = [&text](std::size_t at) -> std::size_t
    {
        const std::size_t begin = at;
        for (const wchar_t c : std::wstring(L"####/M/##, ##:##:##"))
        {
            std::size_t length = 0;
            if (c == L'M')
            {
                for (const wchar_t* const month : Months)
                {
                    if (text.compare(at, std::wcslen(month), month) == 0)
                        length = std::wcslen(month);
                }
            }
            else if (at < text.size())
                length = c == L'#' ? text[at] >= L'0' && text[at] <= L'9' : text[at] == c;
            if (length == 0)
                return 0;
            at += length;
        }
        return at - begin;
    };

    for (std::size_t at = 0; at < text.size();)
    {
        const std::size_t end = text.find(L"\r\n", at);
        const std::size_t length = text[at] == L'[' ? stampLength(at + 1) : 0;
        const std::size_t begin = at + 1 + length + 2;
        if (length == 0 || text.compare(begin - 2, 2, L"] ") != 0 || end == std::wstring::npos || end <= begin)
            return testing::AssertionFailure() << "no record at character " << at;
        records.push_back({text.substr(at + 1, length), text.substr(begin, end - begin)});
        if (records.back().text.find_first_of(L"\r\n") != std::wstring::npos)
            return testing::AssertionFailure() << "half a line end in the record at character " << at;
        at = end + 2;
    }
    if (bytes.size() % 2 != 0)
        return testing::AssertionFailure() << "half a character at the end";
    return testing::AssertionSuccess();
}

// The records of a log in which nothing else may stand.
inline std::vector<CRecord> Records(const vantor::ustring& path)
{
    std::vector<CRecord> records;
    EXPECT_TRUE(Parse(support::ReadBytes(path.c_str()), records));
    return records;
}

// What the records say, for texts of plain ASCII.
inline std::vector<std::string> Texts(const vantor::ustring& path)
{
    std::vector<std::string> texts;
    for (const CRecord& record : Records(path))
    {
        texts.emplace_back();
        for (const wchar_t c : record.text)
            texts.back() += c < 0x80 ? static_cast<char>(c) : '?';
    }
    return texts;
}

using CTexts = std::vector<std::string>;

// While it lives, the library's local time is Now: the 5th of March 2013, 14:07:00, unless it is changed.
class CFixedClock
{
public:
    CFixedClock() : m_patch(&::GetLocalTime, &GetLocalTime) { Now = {2013, 3, 2, 5, 14, 7, 0, 999}; }

    static inline SYSTEMTIME Now = {};

private:
    static void WINAPI GetLocalTime(SYSTEMTIME* time) { *time = Now; }

    support::CImportPatch m_patch;
};

// Whether no handle of the file is open, here or elsewhere.
inline bool IsOpenNowhere(const vantor::ustring& path)
{
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        ::CloseHandle(file);
    return file != INVALID_HANDLE_VALUE;
}
}   // namespace log_test

#endif
