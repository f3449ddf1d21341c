#include <vantor/LogFont.h>
#include <vantor/Registry.h>

#include <algorithm>
#include <iterator>

namespace vantor
{
namespace
{
struct CLongField
{
    const wchar_t* name;
    LONG LOGFONTW::*field;
};

struct CByteField
{
    const wchar_t* name;
    BYTE LOGFONTW::*field;
};

// In the order in which they are written; the face name follows.
constexpr CLongField LongFields[] = {
    {L"lfHeight", &LOGFONTW::lfHeight},         {L"lfWidth", &LOGFONTW::lfWidth},
    {L"lfEscapement", &LOGFONTW::lfEscapement}, {L"lfOrientation", &LOGFONTW::lfOrientation},
    {L"lfWeight", &LOGFONTW::lfWeight},
};
constexpr CByteField ByteFields[] = {
    {L"lfItalic", &LOGFONTW::lfItalic},
    {L"lfUnderline", &LOGFONTW::lfUnderline},
    {L"lfStrikeOut", &LOGFONTW::lfStrikeOut},
    {L"lfCharSet", &LOGFONTW::lfCharSet},
    {L"lfOutPrecision", &LOGFONTW::lfOutPrecision},
    {L"lfClipPrecision", &LOGFONTW::lfClipPrecision},
    {L"lfQuality", &LOGFONTW::lfQuality},
    {L"lfPitchAndFamily", &LOGFONTW::lfPitchAndFamily},
};
constexpr wchar_t FaceName[] = L"lfFaceName";
}   // namespace

bool CLogFont::GetProfile(const wchar_t* key) noexcept
{
    for (const auto& [name, field] : LongFields)
        this->*field = GetProfileInt(key, name, this->*field);
    for (const auto& [name, field] : ByteFields)
        this->*field = static_cast<BYTE>(GetProfileInt(key, name, this->*field));

    ustring face;
    if (RegGetValue(HKEY_CURRENT_USER, key, FaceName, face, nullptr))
    {
        const std::size_t length = std::min<std::size_t>(face.size(), LF_FACESIZE);
        std::fill(std::copy_n(face.data(), length, lfFaceName), std::end(lfFaceName), L'\0');
    }
    return true;
}

bool CLogFont::WriteProfile(const wchar_t* key) const noexcept
{
    for (const auto& [name, field] : LongFields)
    {
        if (!WriteProfileInt(key, name, this->*field))
            return false;
    }
    for (const auto& [name, field] : ByteFields)
    {
        if (!WriteProfileInt(key, name, this->*field))
            return false;
    }
    wchar_t face[LF_FACESIZE + 1] = {};   // with the terminator that a full name lacks
    std::copy(std::begin(lfFaceName), std::end(lfFaceName), face);
    return WriteProfileString(key, FaceName, face);
}

int CLogFont::GetProfileInt(const wchar_t* key, const wchar_t* name, int defaultValue) const noexcept
{
    unsigned long value = 0;
    return RegGetValue(HKEY_CURRENT_USER, key, name, value, 0) ? static_cast<int>(value) : defaultValue;
}

ustring CLogFont::GetProfileString(const wchar_t* key, const wchar_t* name, const wchar_t* defaultValue)
{
    ustring value;
    if (!RegGetValue(HKEY_CURRENT_USER, key, name, value, nullptr))
        value = defaultValue;
    return value;
}

bool CLogFont::WriteProfileInt(const wchar_t* key, const wchar_t* name, int value) const noexcept
{
    return RegWriteValue(HKEY_CURRENT_USER, key, name, static_cast<unsigned long>(value));
}

bool CLogFont::WriteProfileString(const wchar_t* key, const wchar_t* name, const wchar_t* value) const noexcept
{
    return RegWriteValue(HKEY_CURRENT_USER, key, name, value);
}
}   // namespace vantor
