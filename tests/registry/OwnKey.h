// A registry key of the test's own below HKEY_CURRENT_USER, removed with everything in it at the end of the scope; and
// the registry as it is, by calls that are not the library's. Paths are below HKEY_CURRENT_USER.

#ifndef VANTOR_TEST_REGISTRY_OWNKEY_H
#define VANTOR_TEST_REGISTRY_OWNKEY_H

#include "support/Print.h"

#include <vantor/Registry.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace registry_test
{
using Texts = std::vector<vantor::ustring>;
using Bytes = std::vector<unsigned char>;

struct CStored
{
    DWORD type = ~0u;
    std::string bytes;

    bool operator==(const CStored& other) const { return type == other.type && bytes == other.bytes; }
    bool operator!=(const CStored& other) const { return !(*this == other); }
};
std::ostream& operator<<(std::ostream& out, const CStored& stored);

std::string Utf16(const std::wstring& text);     // little-endian
std::string Utf16Sz(const std::wstring& text);   // with the terminating NUL
std::string DwordBytes(unsigned long number);    // little-endian

// An open key; creates it where it is missing.
class COpenKey
{
public:
    explicit COpenKey(const std::wstring& path);
    COpenKey(const COpenKey&) = delete;
    COpenKey& operator=(const COpenKey&) = delete;
    ~COpenKey() { ::RegCloseKey(m_key); }

    operator HKEY() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

bool KeyExists(const std::wstring& path);
void MakeKey(const std::wstring& path);
// Stores exactly these bytes: no terminator is added to a text. Creates the key.
void Store(const std::wstring& path, const wchar_t* name, DWORD type, const std::string& bytes);
bool HasValue(const std::wstring& path, const wchar_t* name);
CStored Stored(const std::wstring& path, const wchar_t* name);   // fails the test if there is no such value
// The key and all below it, one line for each key and each value.
std::vector<std::string> Snapshot(const std::wstring& path);

class COwnKey
{
public:
    COwnKey();
    COwnKey(const COwnKey&) = delete;
    COwnKey& operator=(const COwnKey&) = delete;
    ~COwnKey();

    const wchar_t* Path() const { return m_path.c_str(); }
    std::wstring Below(const std::wstring& relative) const { return m_path + L'\\' + relative; }

private:
    std::wstring m_path;
};

class RegistryTest : public testing::Test
{
protected:
    const COwnKey m_own;
    const wchar_t* const m_path = m_own.Path();

    void Store(const wchar_t* name, DWORD type, const std::string& bytes) const
    {
        registry_test::Store(m_path, name, type, bytes);
    }
    CStored Stored(const wchar_t* name) const { return registry_test::Stored(m_path, name); }
};
}   // namespace registry_test

#endif
