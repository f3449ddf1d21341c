#include "OwnKey.h"

#include <algorithm>
#include <cstring>

using vantor::ustring;

namespace registry_test
{
namespace
{
constexpr DWORD NameRoom = 0x4000;   // characters; a name is shorter

// What the key holds by an own walk, which takes names of any length.
template <class Call>
std::vector<std::wstring> Names(HKEY key, Call call)
{
    std::vector<std::wstring> names;
    std::vector<wchar_t> name(NameRoom);
    DWORD length = NameRoom;
    while (call(key, static_cast<DWORD>(names.size()), name.data(), &length, nullptr, nullptr, nullptr, nullptr) == 0)
    {
        names.emplace_back(name.data(), length);
        length = NameRoom;
    }
    return names;
}

void RemoveTree(const std::wstring& path)
{
    HKEY key;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    const std::vector<std::wstring> below = Names(key, &::RegEnumKeyExW);
    ::RegCloseKey(key);
    for (const std::wstring& name : below)
        RemoveTree(path + L'\\' + name);
    ::RegDeleteKeyW(HKEY_CURRENT_USER, path.c_str());
}

std::string Narrow(const std::wstring& text)
{
    std::string narrow;
    for (const wchar_t ch : text)
    {
        char code[16];
        std::snprintf(code, sizeof code, 0x20 <= ch && ch < 0x7F ? "%c" : "<%X>", static_cast<unsigned>(ch));
        narrow += code;
    }
    return narrow;
}

void AddTo(std::vector<std::string>& lines, const std::wstring& path)
{
    lines.push_back(Narrow(path));
    const COpenKey key(path);
    std::vector<std::wstring> values = Names(key, &::RegEnumValueW);
    std::sort(values.begin(), values.end());
    for (const std::wstring& name : values)
    {
        const CStored stored = Stored(path, name.c_str());
        lines.push_back(Narrow(path) + " : " + Narrow(name) + " = " + std::to_string(stored.type) + ' ' + stored.bytes);
    }
    std::vector<std::wstring> below = Names(key, &::RegEnumKeyExW);
    std::sort(below.begin(), below.end());
    for (const std::wstring& name : below)
        AddTo(lines, path + L'\\' + name);
}
}   // namespace

std::ostream& operator<<(std::ostream& out, const CStored& stored)
{
    out << "type " << stored.type << ',';
    for (const char byte : stored.bytes)
    {
        char hex[4];
        std::snprintf(hex, sizeof hex, " %02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        out << hex;
    }
    return out;
}

std::string Utf16(const std::wstring& text)
{
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

std::string Utf16Sz(const std::wstring& text)
{
    return Utf16(text) + std::string(sizeof(wchar_t), '\0');
}

std::string DwordBytes(unsigned long number)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<char>(number >> shift & 0xFF));
    return bytes;
}

COpenKey::COpenKey(const std::wstring& path)
{
    EXPECT_EQ(ERROR_SUCCESS, ::RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                               &m_key, nullptr));
}

bool KeyExists(const std::wstring& path)
{
    HKEY key;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    ::RegCloseKey(key);
    return true;
}

void MakeKey(const std::wstring& path)
{
    const COpenKey key(path);
}

void Store(const std::wstring& path, const wchar_t* name, DWORD type, const std::string& bytes)
{
    // The system looks for a terminator before and behind the end of a text, and stores it too where it finds one.
    const std::string padding(8, '\xFF');
    const std::string padded = padding + bytes + padding;
    const COpenKey key(path);
    ASSERT_EQ(ERROR_SUCCESS,
              ::RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(padded.data() + padding.size()),
                               static_cast<DWORD>(bytes.size())));
    DWORD size = ~0u;
    ASSERT_EQ(ERROR_SUCCESS, ::RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size));
    ASSERT_EQ(bytes.size(), size);
}

bool HasValue(const std::wstring& path, const wchar_t* name)
{
    const COpenKey key(path);
    return ::RegQueryValueExW(key, name, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

CStored Stored(const std::wstring& path, const wchar_t* name)
{
    const COpenKey key(path);
    CStored stored;
    DWORD size = 0;
    EXPECT_EQ(ERROR_SUCCESS, ::RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size));
    stored.bytes.resize(size);
    EXPECT_EQ(ERROR_SUCCESS,
              ::RegQueryValueExW(key, name, nullptr, &stored.type, reinterpret_cast<BYTE*>(&stored.bytes[0]), &size));
    EXPECT_EQ(stored.bytes.size(), size);
    return stored;
}

std::vector<std::string> Snapshot(const std::wstring& path)
{
    std::vector<std::string> lines;
    if (KeyExists(path))
        AddTo(lines, path);
    return lines;
}

// Below no other key: its parent is the user's root, whose other keys are not the test's.
COwnKey::COwnKey() : m_path(L"VantorTest-" + std::to_wstring(::GetCurrentProcessId()))
{
    RemoveTree(m_path);   // of a process of that number which was killed
}

COwnKey::~COwnKey()
{
    RemoveTree(m_path);
    EXPECT_FALSE(KeyExists(m_path));
}
}   // namespace registry_test
