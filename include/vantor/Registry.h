// One-call access to the registry.
//
//     ustring key;
//     RegGetDefaultKeyName(nullptr, nullptr, L"Options", key);                 // SOFTWARE\VNT\<program>\Options
//     RegWriteValue(HKEY_CURRENT_USER, key.c_str(), L"Span", 2000UL);
//     unsigned long span = 0;
//     RegGetValue(HKEY_CURRENT_USER, key.c_str(), L"Span", span, 1000);        // 2000
//
// Each call opens the key `subKey` below the open key `root`, does one thing and closes it again. True on success;
// nothing throws, and no error code is kept. A null name is the key's default value. Names and defaults must not point
// into the text that the call fills.

#ifndef VANTOR_REGISTRY_H
#define VANTOR_REGISTRY_H

#include <vantor/Platform.h>
#include <vantor/Strings.h>

#include <vector>

namespace vantor
{
// A string up to its first NUL; an expandable one comes unexpanded. Where there is none, `value` is the default (null:
// the empty string). A string that grows while it is read gives false and no meaningful text.
VANTOR_API bool RegGetValue(HKEY root, const wchar_t* subKey, const wchar_t* name, ustring& value,
                            const wchar_t* defaultValue) noexcept;
VANTOR_API bool RegGetValue(HKEY root, const wchar_t* subKey, const wchar_t* name, unsigned long& value,
                            unsigned long defaultValue) noexcept;
// Binary data, and no other type. Empty where there is none.
VANTOR_API bool RegGetValue(HKEY root, const wchar_t* subKey, const wchar_t* name,
                            std::vector<unsigned char>& data) noexcept;

// Create the key where it is missing. The number needs its type, 0UL: a plain 0 is a null pointer as well.
VANTOR_API bool RegWriteValue(HKEY root, const wchar_t* subKey, const wchar_t* name, const wchar_t* value) noexcept;
VANTOR_API bool RegWriteValue(HKEY root, const wchar_t* subKey, const wchar_t* name, unsigned long value) noexcept;
// False if there is no such value. A missing key is created even so.
VANTOR_API bool RegDeleteValueW(HKEY root, const wchar_t* subKey, const wchar_t* name) noexcept;

VANTOR_API bool RegCreateKey(HKEY root, const wchar_t* subKey) noexcept;   // also true if it exists
// The device deletes what is below the key with it; the desktop refuses to delete a key that has keys below it. The
// platform has a function of the same name and arguments: write vantor::RegDeleteKeyW where both can be seen.
VANTOR_API bool RegDeleteKeyW(HKEY root, const wchar_t* subKey) noexcept;

// The names in the system's order. False, and no names, if the key cannot be opened. A name of more than 255 characters
// ends the list. subKey may be one of `names`, to walk down a tree.
VANTOR_API bool RegEnumSubKeys(HKEY root, const wchar_t* subKey, std::vector<ustring>& names) noexcept;
VANTOR_API bool RegEnumValues(HKEY root, const wchar_t* subKey, std::vector<ustring>& names) noexcept;

// The name of an application's own key, to be opened under any root: "SOFTWARE\company\product\section". Null stands
// for "VNT", the name of the running program, and no section.
VANTOR_API bool RegGetDefaultKeyName(const wchar_t* company, const wchar_t* product, const wchar_t* section,
                                     ustring& keyName) noexcept;
}   // namespace vantor

#endif
