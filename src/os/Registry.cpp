#include <vantor/File.h>
#include <vantor/Registry.h>

#include <algorithm>
#include <cwchar>
#include <limits>

namespace vantor
{
namespace
{
constexpr wchar_t DefaultCompany[] = L"VNT";
constexpr DWORD NameRoom = 256;   // characters, with the terminating NUL

// A key that is open for the length of a scope. Without a key every call fails.
class CKey
{
public:
    CKey() = default;
    CKey(const CKey&) = delete;
    CKey& operator=(const CKey&) = delete;
    ~CKey()
    {
        if (m_key)
            ::RegCloseKey(m_key);
    }

    bool Open(HKEY root, const wchar_t* subKey, REGSAM access)
    {
        return ::RegOpenKeyExW(root, subKey, 0, access, &m_key) == ERROR_SUCCESS;
    }
    // Opens an existing key, too.
    bool Create(HKEY root, const wchar_t* subKey)
    {
        DWORD disposition = 0;
        return ::RegCreateKeyExW(root, subKey, 0, nullptr, 0, KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, &m_key,
                                 &disposition) == ERROR_SUCCESS;
    }

    bool Query(const wchar_t* name, DWORD& type, DWORD& size) const
    {
        return ::RegQueryValueExW(m_key, name, nullptr, &type, nullptr, &size) == ERROR_SUCCESS;
    }
    // `size`: bytes, the room in `data` and then what was read.
    bool Read(const wchar_t* name, void* data, DWORD& size) const
    {
        return ::RegQueryValueExW(m_key, name, nullptr, nullptr, static_cast<BYTE*>(data), &size) == ERROR_SUCCESS;
    }
    bool Write(const wchar_t* name, DWORD type, const void* data, DWORD size) const
    {
        return ::RegSetValueExW(m_key, name, 0, type, static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
    }

    operator HKEY() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

// What `call` enumerates, RegEnumKeyExW or RegEnumValueW.
template <class Call>
bool Names(HKEY root, const wchar_t* subKey, std::vector<ustring>& names, Call call) noexcept
try
{
    CKey key;
    const bool opened = key.Open(root, subKey, KEY_READ);
    names.clear();   // only now: subKey may be one of them
    if (!opened)
        return false;
    wchar_t name[NameRoom];
    DWORD length = NameRoom;
    for (DWORD i = 0; call(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++i)
    {
        names.emplace_back().assign(name, length);
        length = NameRoom;
    }
    return true;
}
catch (...)   // out of memory
{
    return false;
}
}   // namespace

bool RegGetValue(HKEY root, const wchar_t* subKey, const wchar_t* name, ustring& value,
                 const wchar_t* defaultValue) noexcept
try
{
    value = defaultValue;
    CKey key;
    DWORD type = REG_NONE, size = 0;
    if (!key.Open(root, subKey, KEY_QUERY_VALUE) || !key.Query(name, type, size))
        return false;
    if (type != REG_SZ && type != REG_EXPAND_SZ)
        return false;

    const std::size_t length = size / sizeof(wchar_t);
    value.assign(length + size % sizeof(wchar_t), L'\0');   // half a character at the end needs room, too
    const bool read = key.Read(name, value.data(), size);
    value.resize(read ? std::min(length, value.find(L'\0')) : 0);
    return read;
}
catch (...)   // out of memory
{
    return false;
}

bool RegGetValue(HKEY root, const wchar_t* subKey, const wchar_t* name, unsigned long& value,
                 unsigned long defaultValue) noexcept
{
    value = defaultValue;
    CKey key;
    DWORD type = REG_NONE, size = 0;
    return key.Open(root, subKey, KEY_QUERY_VALUE) && key.Query(name, type, size) && type == REG_DWORD &&
           size == sizeof value && key.Read(name, &value, size);
}

bool RegGetValue(HKEY root, const wchar_t* subKey, const wchar_t* name, std::vector<unsigned char>& data) noexcept
try
{
    data.clear();
    CKey key;
    DWORD type = REG_NONE, size = 0;
    if (!key.Open(root, subKey, KEY_QUERY_VALUE) || !key.Query(name, type, size) || type != REG_BINARY)
        return false;
    data.resize(size);
    // Without a buffer, as an empty value has none, the call succeeds with the size alone.
    const bool read = key.Read(name, data.data(), size) && size <= data.size();
    data.resize(read ? size : 0);
    return read;
}
catch (...)   // out of memory
{
    return false;
}

bool RegWriteValue(HKEY root, const wchar_t* subKey, const wchar_t* name, const wchar_t* value) noexcept
{
    const wchar_t* const text = value ? value : L"";
    const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
    CKey key;
    return size <= std::numeric_limits<DWORD>::max() && key.Create(root, subKey) &&
           key.Write(name, REG_SZ, text, static_cast<DWORD>(size));
}

bool RegWriteValue(HKEY root, const wchar_t* subKey, const wchar_t* name, unsigned long value) noexcept
{
    CKey key;
    return key.Create(root, subKey) && key.Write(name, REG_DWORD, &value, sizeof value);
}

bool RegDeleteValueW(HKEY root, const wchar_t* subKey, const wchar_t* name) noexcept
{
    CKey key;
    return key.Create(root, subKey) && ::RegDeleteValueW(key, name) == ERROR_SUCCESS;
}

bool RegCreateKey(HKEY root, const wchar_t* subKey) noexcept
{
    CKey key;
    return key.Create(root, subKey);
}

bool RegDeleteKeyW(HKEY root, const wchar_t* subKey) noexcept
{
    return ::RegDeleteKeyW(root, subKey) == ERROR_SUCCESS;
}

bool RegEnumSubKeys(HKEY root, const wchar_t* subKey, std::vector<ustring>& names) noexcept
{
    return Names(root, subKey, names, &::RegEnumKeyExW);
}

bool RegEnumValues(HKEY root, const wchar_t* subKey, std::vector<ustring>& names) noexcept
{
    return Names(root, subKey, names, &::RegEnumValueW);
}

bool RegGetDefaultKeyName(const wchar_t* company, const wchar_t* product, const wchar_t* section,
                          ustring& keyName) noexcept
try
{
    keyName.clear();
    ustring program;
    if (!product)
        CFile::GetModuleFileNameW(nullptr, program, false);
    const wchar_t* const first = company ? company : DefaultCompany;
    const wchar_t* const second = product ? product : program.c_str();
    if (section)
        keyName.sprintf(L"SOFTWARE\\%s\\%s\\%s", first, second, section);
    else
        keyName.sprintf(L"SOFTWARE\\%s\\%s", first, second);
    return true;
}
catch (...)   // the program's path cannot be read, or out of memory
{
    return false;
}
}   // namespace vantor
