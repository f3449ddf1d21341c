// The path routines against slow references, over every short text of the characters that matter and many longer random
// ones.

#include "support/Print.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <functional>
#include <random>
#include <string>
#include <vector>

using namespace vantor;

namespace
{
constexpr int RandomInputs = 100000;
const std::wstring Alphabet = L"aAb.:\\/";

std::wstring Slashes(std::wstring text)
{
    for (wchar_t& c : text)
        c = c == L'/' ? L'\\' : c;
    return text;
}

struct CParts
{
    std::wstring drive, dir, fname, ext;
};

// Takes one part after the other off a shrinking text.
CParts ReferenceSplit(const std::wstring& path)
{
    CParts parts;
    std::wstring rest = Slashes(path);

    const int colon = static_cast<int>(rest.find(L':'));
    if (colon >= 0)
    {
        parts.drive = rest.substr(0, static_cast<std::size_t>(colon) + 1);
        rest = rest.substr(static_cast<std::size_t>(colon) + 1);
    }

    const int dot = static_cast<int>(rest.rfind(L'.'));
    const int slash = static_cast<int>(rest.rfind(L'\\'));
    if (dot >= 0 && (slash < 0 || slash < dot))
    {
        parts.ext = rest.substr(static_cast<std::size_t>(dot));
        rest = rest.substr(0, static_cast<std::size_t>(dot));
    }

    const int last = static_cast<int>(rest.rfind(L'\\'));
    if (last >= 0)
    {
        parts.fname = rest.substr(static_cast<std::size_t>(last) + 1);
        rest = rest.substr(0, static_cast<std::size_t>(last) + 1);
    }
    else
    {
        parts.fname = rest;
        rest = L"";
    }
    parts.dir = rest;
    return parts;
}

std::wstring ReferenceMake(const wchar_t* drive, const wchar_t* dir, const wchar_t* fname, const wchar_t* ext)
{
    std::wstring out;
    if (drive)
        out = out + drive;
    if (dir)
        out = (out.empty() ? out : out + L"\\") + dir;
    if (fname)
        out = (out.empty() ? out : out + L"\\") + fname;
    if (ext && std::wcslen(ext) != 0)
        out = (ext[0] == L'.' ? out : out + L".") + ext;
    out = Slashes(out);
    while (out.find(L"\\\\") != std::wstring::npos)
        out.erase(out.find(L"\\\\"), 1);
    return out;
}

std::wstring ReferenceUpdate(const wchar_t* path, const wchar_t* newName)
{
    if (!path || std::wcslen(path) == 0)
        return newName ? newName : L"";
    const CParts parts = ReferenceSplit(path);
    return ReferenceMake(parts.drive.c_str(), parts.dir.c_str(), newName, nullptr);
}

std::vector<std::wstring> ReferenceComponents(const std::wstring& path)
{
    std::vector<std::wstring> components(1);
    const std::wstring text = Slashes(path);
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] != L'\\')
            components.back() += text[i];
        else if (i + 1 != text.size())
            components.emplace_back();
    }
    return components;
}

bool ReferenceIsParent(const std::wstring& path, const std::wstring& folder)
{
    const std::vector<std::wstring> components = ReferenceComponents(path);
    const std::vector<std::wstring> ancestors = ReferenceComponents(folder);
    if (ancestors.size() > components.size())
        return false;
    for (std::size_t i = 0; i < ancestors.size(); ++i)
    {
        if (::_wcsicmp(ancestors[i].c_str(), components[i].c_str()) != 0)
            return false;
    }
    return true;
}

class CRandom
{
public:
    explicit CRandom(unsigned int seed) : m_engine(seed) {}

    std::wstring Text(unsigned int longest)
    {
        std::wstring text(Number(longest + 1), L' ');
        for (wchar_t& c : text)
            c = Alphabet[Number(static_cast<unsigned int>(Alphabet.size()))];
        return text;
    }
    unsigned int Number(unsigned int limit) { return static_cast<unsigned int>(m_engine() % limit); }

private:
    std::mt19937 m_engine;
};

// Every text of up to `longest` characters.
void ForEachText(std::size_t longest, const std::function<void(const std::wstring&)>& action)
{
    std::vector<std::wstring> level(1);
    for (std::size_t length = 0; length <= longest; ++length)
    {
        std::vector<std::wstring> next;
        for (const std::wstring& text : level)
        {
            action(text);
            for (const wchar_t c : Alphabet)
                next.push_back(text + c);
        }
        level.swap(next);
    }
}

// False ends a test that would otherwise repeat one fault a thousand times.
bool SplitsAsTheReference(const std::wstring& path)
{
    const CParts expected = ReferenceSplit(path);
    ustring drive, dir, fname, ext;
    CFile::SplitPath(path.c_str(), drive, dir, fname, ext);
    const bool same = drive == expected.drive && dir == expected.dir && fname == expected.fname && ext == expected.ext;
    EXPECT_TRUE(same) << ::testing::PrintToString(ustring(path)) << " gives " << ::testing::PrintToString(drive) << ' '
                      << ::testing::PrintToString(dir) << ' ' << ::testing::PrintToString(fname) << ' '
                      << ::testing::PrintToString(ext);
    return same;
}

bool IsParentAsTheReference(const std::wstring& path, const std::wstring& folder)
{
    const bool result = CFile::IsParentFolder(path.c_str(), folder.c_str());
    const bool same = result == ReferenceIsParent(path, folder);
    EXPECT_TRUE(same) << ::testing::PrintToString(ustring(path)) << " below "
                      << ::testing::PrintToString(ustring(folder)) << ": " << result;
    return same;
}

const wchar_t* OrNull(const std::wstring& text, bool null)
{
    return null ? nullptr : text.c_str();
}
}   // namespace

TEST(PathOracle, SplitPath_OfEveryShortText_IsAsTheReference)
{
    ForEachText(5,
                [](const std::wstring& path)
                {
                    if (!HasFailure())
                        SplitsAsTheReference(path);
                });
}

TEST(PathOracle, SplitPath_OfRandomTexts_IsAsTheReference)
{
    CRandom random(1);
    for (int i = 0; i < RandomInputs && SplitsAsTheReference(random.Text(24)); ++i)
    {
    }
}

TEST(PathOracle, MakePath_OfRandomParts_IsAsTheReference)
{
    CRandom random(2);
    for (int i = 0; i < RandomInputs && !HasFailure(); ++i)
    {
        const std::wstring parts[4] = {random.Text(3), random.Text(8), random.Text(6), random.Text(4)};
        const unsigned int nulls = random.Number(16);
        const wchar_t* p[4];
        for (unsigned int k = 0; k < 4; ++k)
            p[k] = OrNull(parts[k], (nulls >> k & 1) != 0);

        ustring out;
        CFile::MakePath(out, p[0], p[1], p[2], p[3]);

        EXPECT_TRUE(out == ReferenceMake(p[0], p[1], p[2], p[3]))
            << "parts " << ::testing::PrintToString(ustring(p[0])) << ' ' << ::testing::PrintToString(ustring(p[1]))
            << ' ' << ::testing::PrintToString(ustring(p[2])) << ' ' << ::testing::PrintToString(ustring(p[3]))
            << ", nulls " << nulls << ", result " << ::testing::PrintToString(out);
    }
}

TEST(PathOracle, MakePath_OfEverySubsetOfNullAndEmptyParts_IsAsTheReference)
{
    const wchar_t* const choices[4][3] = {
        {nullptr, L"", L"C:"}, {nullptr, L"", L"\\d\\"}, {nullptr, L"", L"f"}, {nullptr, L"", L"e"}};
    for (int i = 0; i < 81; ++i)
    {
        const wchar_t* const drive = choices[0][i % 3];
        const wchar_t* const dir = choices[1][i / 3 % 3];
        const wchar_t* const fname = choices[2][i / 9 % 3];
        const wchar_t* const ext = choices[3][i / 27];

        ustring out = L"old";
        CFile::MakePath(out, drive, dir, fname, ext);

        EXPECT_TRUE(out == ReferenceMake(drive, dir, fname, ext))
            << "subset " << i << ": " << ::testing::PrintToString(out);
    }
}

TEST(PathOracle, UpdateFileName_OfRandomTexts_IsAsTheReference)
{
    CRandom random(3);
    for (int i = 0; i < RandomInputs && !HasFailure(); ++i)
    {
        const std::wstring path = random.Text(16);
        const std::wstring name = random.Text(8);
        const wchar_t* const newName = OrNull(name, random.Number(8) == 0);

        ustring out;
        CFile::UpdateFileName(path.c_str(), newName, out);

        EXPECT_TRUE(out == ReferenceUpdate(path.c_str(), newName))
            << ::testing::PrintToString(ustring(path)) << " with " << ::testing::PrintToString(ustring(newName))
            << " gives " << ::testing::PrintToString(out);
    }
}

TEST(PathOracle, IsParentFolder_OfRandomTexts_IsAsTheReference)
{
    CRandom random(4);
    for (int i = 0; i < RandomInputs; ++i)
    {
        if (!IsParentAsTheReference(random.Text(8), random.Text(5)))
            return;
    }
}

// Two random texts are seldom related: here the folder is a piece of the path in the other case.
TEST(PathOracle, IsParentFolder_OfPiecesOfThePath_IsAsTheReference)
{
    CRandom random(5);
    for (int i = 0; i < RandomInputs; ++i)
    {
        const std::wstring path = random.Text(16);
        std::wstring folder = path.substr(0, random.Number(static_cast<unsigned int>(path.size()) + 1));
        for (wchar_t& c : folder)
            c = c == L'a' ? L'A' : c == L'A' ? L'a' : c == L'\\' ? L'/' : c;
        if (!IsParentAsTheReference(path, folder))
            return;
    }
}

TEST(PathOracle, IsParentFolder_OfEveryPathAndItself_IsTrue)
{
    ForEachText(5,
                [](const std::wstring& path)
                {
                    if (HasFailure())
                        return;
                    EXPECT_TRUE(CFile::IsParentFolder(path.c_str(), path.c_str()))
                        << ::testing::PrintToString(ustring(path));
                });
}
