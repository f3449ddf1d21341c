// The scanner against one that takes the whole file at once and its own good time.

#include "ErrorTexts.h"

#include "support/Print.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <random>
#include <string>

using namespace vantor;
using errors::CErrorTexts;
using errors::Lookup;
using errors::Utf16File;

namespace
{
void TrimChar(std::wstring& text, wchar_t ch)
{
    while (!text.empty() && text.front() == ch)
        text.erase(0, 1);
    while (!text.empty() && text.back() == ch)
        text.pop_back();
}

void ReplaceAll(std::wstring& text, wchar_t second, wchar_t with)
{
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
    {
        if (text[i] == L'\\' && text[i + 1] == second)
            text.replace(i, 2, 1, with);
    }
}

unsigned long CodeOf(const std::wstring& text)
{
    const bool hexadecimal = text.size() >= 2 && text[0] == L'0' && (text[1] == L'x' || text[1] == L'X');
    return hexadecimal ? std::wcstoul(text.c_str() + 2, nullptr, 16) : std::wcstoul(text.c_str(), nullptr, 10);
}

std::optional<ustring> SlowLookup(const std::string& bytes, unsigned long wanted)
{
    if (bytes.size() < 2 || bytes[0] != '\xFF' || bytes[1] != '\xFE')
        return std::nullopt;
    std::wstring buffer;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
    {
        const auto ch =
            static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
        if (ch != L'\r')
            buffer += ch;
    }
    for (;;)
    {
        while (!buffer.empty() && buffer.front() == L'\n')
            buffer.erase(0, 1);
        const std::size_t comma = buffer.find(L',');
        if (comma == std::wstring::npos)
            return std::nullopt;
        const std::size_t end = buffer.find(L'\n', comma);
        if (end == std::wstring::npos)
            return std::nullopt;
        std::wstring code = buffer.substr(0, comma);
        std::wstring message = buffer.substr(comma + 1, end - comma - 1);
        TrimChar(code, L' ');
        TrimChar(message, L' ');
        if (CodeOf(code) == wanted)
        {
            ReplaceAll(message, L'r', L'\r');
            ReplaceAll(message, L'n', L'\n');
            ReplaceAll(message, L'"', L'"');
            TrimChar(message, L'"');
            return ustring(message);
        }
        buffer.erase(0, end + 1);
    }
}

constexpr std::wstring_view Alphabet(L"0011x,,,\n\n\n\r  \"\\\\rn\0", 20);
constexpr unsigned long Codes[] = {0, 1, 0x10, 10, 11, 0x11, 0x100, 0xFFFFFFFF};

class CFiles
{
public:
    explicit CFiles(std::uint_fast32_t seed) : m_random(seed) {}

    std::string Next(std::size_t most)
    {
        std::wstring text(Below(most + 1), L'\0');
        for (wchar_t& ch : text)
            ch = Alphabet[Below(Alphabet.size())];
        std::string bytes = Utf16File(text);
        if (Below(8) == 0)
            bytes.pop_back();
        return bytes;
    }

    // Where chunks end does not matter: any even number of bytes may come at a time.
    DWORD NextChunk() { return static_cast<DWORD>(2 * (1 + Below(256))); }

private:
    std::size_t Below(std::size_t end) { return m_random() % end; }

    std::mt19937 m_random;
};

// Returns how many of the look-ups had a result.
int CompareRandomFiles(CFiles& files, int count, std::size_t most)
{
    int hits = 0;
    CErrorTexts file(std::nullopt);
    for (int i = 0; i < count && !::testing::Test::HasFailure(); ++i)
    {
        file.bytes = files.Next(most);
        file.mostBytes = files.NextChunk();
        for (const unsigned long code : Codes)
        {
            const std::optional<ustring> expected = SlowLookup(*file.bytes, code);
            EXPECT_EQ(expected, Lookup(code))
                << "file " << i << ", code " << code << ": " << ::testing::PrintToString(*file.bytes);
            hits += expected.has_value();
        }
        EXPECT_TRUE(file.IsClosed());
        file.Forget();
    }
    return hits;
}
}   // namespace

TEST(RandomErrorTextFile, ManySmallFiles_ReadAsASlowScannerReadsThem)
{
    CFiles files(20210405);
    EXPECT_GT(CompareRandomFiles(files, 6000, 40), 3000);
}

TEST(RandomErrorTextFile, FilesOfSeveralChunks_ReadAsASlowScannerReadsThem)
{
    CFiles files(7);
    EXPECT_GT(CompareRandomFiles(files, 300, 2000), 300);
}
