#include "Texts.h"

#include "Pseudo.h"

#include <vantor/Exceptions.h>

#include <algorithm>

namespace lng
{
namespace
{
using namespace vantor;

constexpr wchar_t Source[] = L".\\lng";
constexpr UINT LastResourceId = 0xFFFF;

// A module for its resources alone: nothing of it runs.
class CResourceModule
{
public:
    explicit CResourceModule(const ustring& path)
        : m_module(::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE))
    {
        if (!m_module)
            throw CWinException(1, Source, L"LoadLibraryEx", ::GetLastError());
    }
    CResourceModule(const CResourceModule&) = delete;
    CResourceModule& operator=(const CResourceModule&) = delete;
    ~CResourceModule() { ::FreeLibrary(m_module); }

    operator HINSTANCE() const { return m_module; }

private:
    HMODULE m_module;
};

CLanguageFile GatherStrings(HINSTANCE module)
{
    CLanguageFile table;
    ustring text;
    for (UINT id = 1; id <= LastResourceId; ++id)
    {
        if (text.load(module, id))
            table.try_emplace(text, text);
    }
    return table;
}

CLanguageFile GatherMenus(HINSTANCE module)
{
    CTranslator translator;
    translator.SetMode(CTranslator::eGather);
    for (UINT id = 1; id <= LastResourceId; ++id)
    {
        if (const HMENU menu = ::LoadMenuW(module, MAKEINTRESOURCEW(id)))
        {
            translator.XlateMenu(menu);
            ::DestroyMenu(menu);
        }
    }
    return std::move(translator.m_langFile);
}

// A file of its own beside the wanted one; removed with the object unless it took the other's place.
class CReplacement
{
public:
    explicit CReplacement(const ustring& path) : m_path(path)
    {
        // Not by MakePath, which leaves one backslash of the two at the start of a network path.
        const std::size_t folder = path.find_last_of(L"\\/:");
        const ustring place = folder == ustring::npos ? std::wstring(L".") : path.substr(0, folder + 1);
        CFile::GetTempFileNameW(place.c_str(), L"lng", 0, m_temporary);
    }
    CReplacement(const CReplacement&) = delete;
    CReplacement& operator=(const CReplacement&) = delete;
    ~CReplacement()
    {
        if (!m_temporary.empty())
            ::DeleteFileW(m_temporary.c_str());
    }

    const wchar_t* Path() const { return m_temporary.c_str(); }

    void TakePlace()
    {
        // Some systems would let a read-only file be replaced.
        const DWORD attributes = ::GetFileAttributesW(m_path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
            throw CWinException(2, Source, L"MoveFileEx", ERROR_ACCESS_DENIED);
        if (!::MoveFileExW(m_temporary.c_str(), m_path.c_str(), MOVEFILE_REPLACE_EXISTING))
            throw CWinException(2, Source, L"MoveFileEx", ::GetLastError());
        m_temporary.clear();
    }

private:
    ustring m_path;
    ustring m_temporary;
};

// A device such as NUL is opened itself, and refuses a table with an error of its own: a file must not take its place.
bool IsDevice(const ustring& path)
{
    const HANDLE file =
        ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const DWORD type = ::GetFileType(file);
    ::CloseHandle(file);
    return type != FILE_TYPE_DISK;
}
}   // namespace

Counts Gather(const ustring& modulePath, CLanguageFile& table)
{
    const CResourceModule module(modulePath);
    CTranslator translator;
    translator.Gather(module);
    CLanguageFile all = std::move(translator.m_langFile);
    all.erase(ustring());

    const CLanguageFile strings = GatherStrings(module);
    CLanguageFile menus = GatherMenus(module);
    menus.erase(ustring());
    Counts counts;
    counts.strings = strings.size();
    counts.menus = static_cast<std::size_t>(
        std::count_if(menus.begin(), menus.end(), [&](const auto& entry) { return strings.count(entry.first) == 0; }));
    counts.dialogs = all.size() - counts.strings - counts.menus;
    table.merge(all);
    return counts;
}

CLanguageFile Load(const ustring& path)
{
    // Opened once by itself, for a missing file is no failure to the table.
    CFile(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    CLanguageFile table;
    table.LoadLanguageFile(path.c_str());
    return table;
}

void Save(CLanguageFile& table, const ustring& path)
{
    if (IsDevice(path))
    {
        table.SaveLanguageFile(path.c_str());
        return;
    }
    CReplacement replacement(path);
    table.SaveLanguageFile(replacement.Path());
    replacement.TakePlace();
}

std::vector<ustring> NotStorable(const CLanguageFile& table)
{
    std::vector<ustring> result;
    for (const auto& [source, translation] : table)
    {
        const auto changes = [](const ustring& text)
        { return text.find(L'\r') != ustring::npos || text.find(L"]\n[") != ustring::npos; };
        if (changes(source) || changes(translation))
            result.push_back(source);
    }
    return result;
}

Statistics Count(const CLanguageFile& table)
{
    Statistics result;
    result.entries = table.size();
    for (const auto& [source, translation] : table)
    {
        result.characters += source.size();
        result.longest = std::max(result.longest, source.size());
        if (translation.empty() && !source.empty())
            ++result.empty;
        else if (translation == source)
            ++result.untranslated;
        else
            ++result.translated;
        if (!translation.empty() && Placeholders(source) != Placeholders(translation))
            result.brokenPlaceholders.push_back(source);
    }
    return result;
}
}   // namespace lng
