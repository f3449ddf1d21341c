// Loading against a slow reference: exhaustive small files, random large ones, damaged ones.

#include "support/Leaks.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Exceptions.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace vantor;
using support::CTempFolder;
using support::Utf16;

namespace
{
using Table = std::map<std::wstring, std::wstring>;

void ReplaceAll(std::wstring& text, const std::wstring& what, const std::wstring& with)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::wstring::npos; at += with.size())
        text.replace(at, what.size(), with);
}

// The pieces between "]", line feed; none after the last one of them.
std::vector<std::wstring> Split(const std::wstring& text)
{
    std::vector<std::wstring> pieces;
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find(L"]\n", begin)) != std::wstring::npos; begin = end + 2)
        pieces.push_back(text.substr(begin, end - begin));
    if (begin < text.size())
        pieces.push_back(text.substr(begin));
    return pieces;
}

std::vector<std::wstring> Joined(const std::vector<std::wstring>& pieces)
{
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < pieces.size(); ++i)
    {
        std::wstring text = pieces[i];
        while (!text.empty() && text.front() == L'\n')
            text.erase(0, 1);
        if (!text.empty() && text.front() == L'[')
            text.erase(0, 1);
        while (i + 1 < pieces.size() && (pieces[i + 1].empty() || pieces[i + 1].front() != L'['))
            text += L"]\n" + pieces[++i];
        texts.push_back(text);
    }
    return texts;
}

// What a file with this text after its mark holds.
Table Reference(std::wstring text)
{
    ReplaceAll(text, L"\r\n", L"\n");
    ReplaceAll(text, L"\r", L"\n");
    const std::vector<std::wstring> texts = Joined(Split(text));
    Table table;
    for (std::size_t i = 0; i + 1 < texts.size(); i += 2)
        table[texts[i]] = texts[i + 1];
    return table;
}

// The protected member, which reads an open file.
class COpenLanguageFile : public CLanguageFile
{
public:
    using CLanguageFile::LoadLanguageFile;
};

// Loads contents one after the other from one file that stays open: opening would take most of the time.
class CLoader
{
public:
    CLoader()
        : m_path(m_folder.Write(L"x.lng", "")),
          m_file(m_path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)
    {
    }

    Table Load(const std::string& bytes)
    {
        DWORD done = 0;
        ::SetFilePointer(m_file, 0, nullptr, FILE_BEGIN);
        ::SetEndOfFile(m_file);
        EXPECT_TRUE(::WriteFile(m_file, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr));
        COpenLanguageFile file;
        file.LoadLanguageFile(m_file);
        return Table(file.begin(), file.end());
    }
    Table LoadText(const std::wstring& text) { return Load("\xFF\xFE" + Utf16(text)); }

private:
    CTempFolder m_folder;
    ustring m_path;
    CFile m_file;
};

std::wstring RandomText(std::mt19937& random, std::size_t length)
{
    static const std::wstring alphabet(L"[[[]]]]\n\n\n\r\raa\0", 15);
    std::wstring text;
    while (text.size() < length)
    {
        text += alphabet[random() % alphabet.size()];
        if (random() % 3 == 0)
            text += L"]\n[";   // or next to nothing would be found
    }
    return text;
}

// Two records with everything that is special, in a little more than one block.
std::string SampleBytes()
{
    return "\xFF\xFE" +
           Utf16(L"[a]\nb]\n[]\r\n[" + std::wstring(230, L'k') + L"]\r\n]\n[v\r]\n\n[x]\n[c]\n[d\u00e4]\n");
}

std::wstring TextOf(const std::string& bytes)
{
    std::wstring text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
        text +=
            static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
    return text;
}

unsigned int FailingLine(const std::function<void()>& load)
{
    try
    {
        load();
    }
    catch (const CWinException& e)
    {
        return e.GetLine();
    }
    return 0;
}

unsigned int FailingLine(const ustring& path)
{
    return FailingLine([&] { CLanguageFile().LoadLanguageFile(path.c_str()); });
}
}   // namespace

TEST(LanguageFileLoad, EveryShortText_GivesWhatTheReferenceGives)
{
    static const wchar_t alphabet[] = {L'[', L']', L'\n', L'a'};
    constexpr std::size_t maxLength = 6;

    CLoader loader;
    for (std::size_t length = 0; length <= maxLength; ++length)
    {
        for (std::size_t number = 0; number < std::size_t{1} << 2 * length; ++number)
        {
            std::wstring text;
            for (std::size_t i = 0; i < length; ++i)
                text += alphabet[number >> 2 * i & 3];
            ASSERT_EQ(Reference(text), loader.LoadText(text)) << ::testing::PrintToString(ustring(text));
        }
    }
}

TEST(LanguageFileLoad, RandomSmallTexts_GiveWhatTheReferenceGives)
{
    std::mt19937 random(1);
    CLoader loader;
    for (int round = 0; round < 10000; ++round)
    {
        const std::wstring text = RandomText(random, random() % 40);
        ASSERT_EQ(Reference(text), loader.LoadText(text)) << ::testing::PrintToString(ustring(text));
    }
}

TEST(LanguageFileLoad, RandomTextsOfSeveralBlocks_GiveWhatTheReferenceGives)
{
    std::mt19937 random(2);
    CLoader loader;
    for (int round = 0; round < 1500; ++round)
    {
        const std::wstring text = RandomText(random, 230 + random() % 600);
        ASSERT_EQ(Reference(text), loader.LoadText(text)) << ::testing::PrintToString(ustring(text));
    }
}

TEST(LanguageFileLoad, Nuls_AreCharactersLikeOthers)
{
    CLoader loader;
    const Table expected{{std::wstring(L"a\0b", 3), std::wstring(L"\0", 1)}};
    EXPECT_EQ(expected, loader.LoadText(std::wstring(L"[a\0b]\n[\0]\n", 10)));
}

TEST(LanguageFileLoad, OneLineOfTenMegabytes_IsOneText)
{
    CLoader loader;
    const std::wstring line(5 * 1024 * 1024, L'x');
    EXPECT_TRUE(loader.LoadText(L"[k]\n[" + line + L"]\n") == (Table{{L"k", line}}));
}

TEST(LanguageFileLoad, OneLineOfTenMegabytesAlone_GivesAnEmptyMap)
{
    CLoader loader;
    EXPECT_TRUE(loader.LoadText(std::wstring(5 * 1024 * 1024, L'[')).empty());
}

TEST(LanguageFileLoad, MillionsOfLoneBrackets_AreOneText)
{
    CLoader loader;
    std::wstring text;
    for (int i = 0; i < 1000000; ++i)
        text += L"]\n";
    EXPECT_TRUE(loader.LoadText(L"[k]\n[" + text + L"]\n") == (Table{{L"k", text}}));
}

TEST(LanguageFileLoad, TruncatedAtEveryByte_GivesWhatIsLeft)
{
    CLoader loader;
    const std::string sample = SampleBytes();
    for (std::size_t size = 2; size <= sample.size(); ++size)
    {
        const std::string left = sample.substr(0, size);
        ASSERT_EQ(Reference(TextOf(left)), loader.Load(left)) << size << " bytes";
    }
}

TEST(LanguageFileLoad, TruncatedInsideTheMark_IsRefused)
{
    const CTempFolder folder;
    EXPECT_EQ(51u, FailingLine(folder.Write(L"x.lng", "\xFF")));
}

TEST(LanguageFileLoad, EveryByteDamagedInTurn_IsLoadedOrRefused)
{
    CLoader loader;
    const std::string sample = SampleBytes();
    for (std::size_t at = 0; at < sample.size(); ++at)
    {
        std::string damaged = sample;
        damaged[at] = static_cast<char>(~damaged[at]);
        if (at < 2)
            ASSERT_EQ(57u, FailingLine([&] { loader.Load(damaged); })) << "byte " << at;
        else
            ASSERT_EQ(Reference(TextOf(damaged)), loader.Load(damaged)) << "byte " << at;
    }
}

TEST(LanguageFileLoad, DamagedFiles_LeaveNothingBehind)
{
    const CTempFolder folder;
    const ustring good = folder.Write(L"good.lng", SampleBytes());
    const ustring empty = folder.Write(L"empty.lng", "");
    const ustring unmarked = folder.Write(L"unmarked.lng", "[k]\n[v]\n");
    const auto loadAll = [&]
    {
        CLanguageFile().LoadLanguageFile(good.c_str());
        CLanguageFile().LoadLanguageFile(folder.File(L"none.lng").c_str());
        return FailingLine(empty) + FailingLine(unmarked);
    };
    ASSERT_EQ(51u + 57u, loadAll());
    support::CResources();   // counting opens things of its own
    const support::CResources before;
    loadAll();
    EXPECT_EQ(before, support::CResources());
}
