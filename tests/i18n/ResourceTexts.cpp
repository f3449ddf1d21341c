#include "ResourceTexts.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace
{
const wchar_t* const TypeMenu = MAKEINTRESOURCEW(4);
const wchar_t* const TypeDialog = MAKEINTRESOURCEW(5);
const wchar_t* const TypeString = MAKEINTRESOURCEW(6);

class CReader
{
public:
    CReader(HINSTANCE module, const wchar_t* type, unsigned id)
    {
        const HRSRC resource = ::FindResourceW(module, MAKEINTRESOURCEW(id), type);
        if (!resource)
            return;
        m_data = static_cast<const std::uint8_t*>(::LockResource(::LoadResource(module, resource)));
        m_size = ::SizeofResource(module, resource);
    }

    bool AtEnd() const { return m_at >= m_size; }
    void Skip(std::size_t bytes) { m_at += bytes; }
    void Align() { m_at = (m_at + 3) & ~std::size_t{3}; }

    std::uint16_t Word()
    {
        std::uint16_t value = 0;
        if (m_at + sizeof value <= m_size)
            std::memcpy(&value, m_data + m_at, sizeof value);
        m_at += sizeof value;
        return value;
    }
    std::uint32_t DoubleWord()
    {
        const std::uint32_t low = Word();
        return low | static_cast<std::uint32_t>(Word()) << 16;
    }
    std::wstring Text()
    {
        std::wstring text;
        while (const std::uint16_t unit = Word())
            text += static_cast<wchar_t>(unit);
        return text;
    }
    // A text, or a number behind 0xFFFF, which gives false.
    bool TextOrNumber(std::wstring& text)
    {
        if (Word() == 0xFFFF)
        {
            Word();
            return false;
        }
        m_at -= 2;
        text = Text();
        return true;
    }

private:
    const std::uint8_t* m_data = nullptr;
    std::size_t m_size = 0;
    std::size_t m_at = 0;
};

BOOL CALLBACK AddId(HMODULE, const wchar_t*, wchar_t* name, LONG_PTR ids)
{
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    if (number != 0 && number <= 0xFFFF)
        reinterpret_cast<std::vector<unsigned>*>(ids)->push_back(static_cast<unsigned>(number));
    return TRUE;
}

std::vector<unsigned> Ids(HINSTANCE module, const wchar_t* type)
{
    std::vector<unsigned> ids;
    ::EnumResourceNamesW(module, type, AddId, reinterpret_cast<LONG_PTR>(&ids));
    return ids;
}

void ReadStrings(HINSTANCE module, unsigned block, std::set<std::wstring>& texts)
{
    CReader reader(module, TypeString, block);
    for (unsigned id = (block - 1) * 16; id < block * 16; ++id)
    {
        std::wstring text;
        for (std::uint16_t length = reader.Word(); length > 0; --length)
            text += static_cast<wchar_t>(reader.Word());
        if (id != 0 && !text.empty())
            texts.insert(text.substr(0, 255));
    }
}

bool ClassExists(HINSTANCE module, const std::wstring& name)
{
    WNDCLASSW info;
    return ::GetClassInfoW(nullptr, name.c_str(), &info) || ::GetClassInfoW(module, name.c_str(), &info);
}

// False if a class is missing.
bool ReadDialog(HINSTANCE module, unsigned id, std::set<std::wstring>& texts)
{
    CReader reader(module, TypeDialog, id);
    const std::uint32_t first = reader.DoubleWord();
    const bool extended = first == 0xFFFF0001;
    if (extended)
        reader.Skip(8);   // help id, extended style
    const std::uint32_t style = extended ? reader.DoubleWord() : first;
    if (!extended)
        reader.Skip(4);   // extended style
    unsigned controls = reader.Word();
    reader.Skip(8);   // place

    std::wstring text;
    bool classesExist = true;
    reader.TextOrNumber(text);   // menu
    if (reader.TextOrNumber(text) && !text.empty())
        classesExist = ClassExists(module, text);
    texts.insert(reader.Text());
    if (style & DS_SETFONT)
    {
        reader.Skip(extended ? 6 : 2);   // size, weight, italics, character set
        reader.Text();
    }

    for (; controls > 0; --controls)
    {
        reader.Align();
        reader.Skip(extended ? 24 : 18);   // help id, styles, place, id
        if (reader.TextOrNumber(text))
            classesExist = ClassExists(module, text) && classesExist;
        if (reader.TextOrNumber(text))
            texts.insert(text);
        reader.Skip(reader.Word());   // data of its own
    }
    return classesExist;
}

void ReadMenuItems(CReader& reader, std::set<std::wstring>* texts)
{
    for (bool last = false; !last && !reader.AtEnd();)
    {
        const UINT flags = reader.Word();
        last = (flags & MF_END) != 0;
        const bool popup = (flags & MF_POPUP) != 0;
        const UINT id = popup ? 0 : reader.Word();
        const std::wstring text = reader.Text();
        const bool separator = (flags & MF_SEPARATOR) != 0 || (!popup && id == 0 && text.empty());
        const bool wanted = texts && !separator && (flags & (MF_OWNERDRAW | MF_MENUBREAK | MF_MENUBARBREAK)) == 0;
        if (wanted)
            texts->insert(text);
        if (popup)
            ReadMenuItems(reader, wanted ? texts : nullptr);
    }
}

void ReadExtendedMenuItems(CReader& reader, std::set<std::wstring>* texts)
{
    for (bool last = false; !last && !reader.AtEnd();)
    {
        reader.Align();
        const UINT type = reader.DoubleWord();
        reader.Skip(8);   // state, id
        const UINT flags = reader.Word();
        last = (flags & 0x80) != 0;
        const std::wstring text = reader.Text();
        const bool wanted = texts && (type & (MFT_SEPARATOR | MFT_OWNERDRAW | MFT_MENUBREAK | MFT_MENUBARBREAK)) == 0;
        if (wanted)
            texts->insert(text);
        if (flags & 0x01)
        {
            reader.Align();
            reader.Skip(4);   // help id
            ReadExtendedMenuItems(reader, wanted ? texts : nullptr);
        }
    }
}

void ReadMenu(HINSTANCE module, unsigned id, std::set<std::wstring>& texts)
{
    CReader reader(module, TypeMenu, id);
    const bool extended = reader.Word() == 1;
    reader.Skip(reader.Word());   // the rest of the head
    if (extended)
        ReadExtendedMenuItems(reader, &texts);
    else
        ReadMenuItems(reader, &texts);
}
}   // namespace

CResourceTexts::CResourceTexts(HINSTANCE module)
{
    for (const unsigned block : Ids(module, TypeString))
        ReadStrings(module, block, strings);
    for (const unsigned id : Ids(module, TypeDialog))
    {
        std::set<std::wstring> texts;
        if (ReadDialog(module, id, texts))
            dialogs.insert(texts.begin(), texts.end());
        else
            ++foreignDialogs;
    }
    for (const unsigned id : Ids(module, TypeMenu))
        ReadMenu(module, id, menus);
}
