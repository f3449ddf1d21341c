// A font description that keeps itself in the registry of the user.
//
//     CLogFont font;
//     font.lfHeight = -14;
//     font.GetProfile(L"SOFTWARE\\VNT\\meter\\Font");      // what is stored there replaces what is set here
//     HFONT handle = ::CreateFontIndirectW(font);
//     font.WriteProfile(L"SOFTWARE\\VNT\\meter\\Font");

#ifndef VANTOR_LOGFONT_H
#define VANTOR_LOGFONT_H

#include <vantor/Platform.h>
#include <vantor/Strings.h>

namespace vantor
{
// A LOGFONTW, all zeros at first. Each field is one registry value under its own name, "lfHeight" to "lfFaceName":
// numbers as REG_DWORD, the face name as a string. Keys are paths below HKEY_CURRENT_USER. Nothing throws but
// GetProfileString, which may run out of memory.
class CLogFont : public LOGFONTW
{
public:
    CLogFont() noexcept : LOGFONTW() {}
    CLogFont(const LOGFONTW& font) noexcept : LOGFONTW(font) {}

    operator LOGFONTW*() noexcept { return this; }
    operator const LOGFONTW*() const noexcept { return this; }

    // A field whose value is missing or of another type keeps what it holds. A name of 32 characters or more is cut to
    // 32 and has no terminator. Always true.
    VANTOR_API bool GetProfile(const wchar_t* key) noexcept;
    // False as soon as a value cannot be written; those before it are.
    VANTOR_API bool WriteProfile(const wchar_t* key) const noexcept;

    // Single values of any name, apart from the font.
    VANTOR_API int GetProfileInt(const wchar_t* key, const wchar_t* name, int defaultValue) const noexcept;
    VANTOR_API ustring GetProfileString(const wchar_t* key, const wchar_t* name, const wchar_t* defaultValue);
    VANTOR_API bool WriteProfileInt(const wchar_t* key, const wchar_t* name, int value) const noexcept;
    VANTOR_API bool WriteProfileString(const wchar_t* key, const wchar_t* name, const wchar_t* value) const noexcept;
};
}   // namespace vantor

#endif
