// Reads the resources of vantor.dll by number, from the DLL as it is shipped, and takes them apart field by field.

#ifndef VANTOR_TESTS_ABI_RESOURCEREADER_H
#define VANTOR_TESTS_ABI_RESOURCEREADER_H

#include <vantor/Platform.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <stdexcept>
#include <string>

namespace resources
{

// The module under test; loaded once and kept to the end of the process.
inline HMODULE Module()
{
    static const HMODULE module = ::LoadLibraryExW(L"vantor.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    return module;
}

// The platform's RT_ names follow the UNICODE setting; the wide functions take these.
inline const wchar_t* const TypeIcon = MAKEINTRESOURCEW(3);
inline const wchar_t* const TypeDialog = MAKEINTRESOURCEW(5);
inline const wchar_t* const TypeString = MAKEINTRESOURCEW(6);
inline const wchar_t* const TypeGroupIcon = MAKEINTRESOURCEW(14);
inline const wchar_t* const TypeVersion = MAKEINTRESOURCEW(16);

// Reads little-endian fields one after the other; throws at the end of the data.
class Reader
{
  public:
    Reader(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size)
    {
    }

    template <class T> T Take()
    {
        T value{};
        std::memcpy(&value, Skip(sizeof value), sizeof value);
        return value;
    }

    std::wstring TakeText()
    {
        std::wstring text;
        while (const auto c = Take<std::uint16_t>())
            text += static_cast<wchar_t>(c);
        return text;
    }

    const std::uint8_t* Skip(std::size_t count)
    {
        if (count > m_size - m_at)
            throw std::runtime_error("the resource ends too early");
        const std::uint8_t* const here = m_data + m_at;
        m_at += count;
        return here;
    }

    void Align()
    {
        Skip((4 - m_at % 4) % 4);
    }

    std::size_t At() const
    {
        return m_at;
    }

    std::size_t Left() const
    {
        return m_size - m_at;
    }

  private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

inline Reader Open(const wchar_t* type, unsigned id)
{
    const HRSRC found = ::FindResourceW(Module(), MAKEINTRESOURCEW(id), type);
    if (!found)
        throw std::runtime_error("there is no resource " + std::to_string(id));
    const void* const data = ::LockResource(::LoadResource(Module(), found));
    return {static_cast<const std::uint8_t*>(data), ::SizeofResource(Module(), found)};
}

inline BOOL CALLBACK AddLanguage(HMODULE, const wchar_t*, const wchar_t*, WORD language, LONG_PTR languages)
{
    reinterpret_cast<std::set<WORD>*>(languages)->insert(language);
    return TRUE;
}

inline std::set<WORD> LanguagesOf(const wchar_t* type, unsigned id)
{
    std::set<WORD> languages;
    ::EnumResourceLanguagesW(Module(), type, MAKEINTRESOURCEW(id), AddLanguage, reinterpret_cast<LONG_PTR>(&languages));
    return languages;
}

}  // namespace resources

#endif
