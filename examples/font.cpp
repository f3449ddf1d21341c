// A font that the user chose, kept from one run to the next.

#include <vantor/LogFont.h>
#include <vantor/Registry.h>

#include <cstdio>

namespace
{
using namespace vantor;

constexpr wchar_t Key[] = L"SOFTWARE\\VNT\\example_font\\Trace labels";

void Print(const CLogFont& font)
{
    std::printf("%ld units high, weight %ld, %s%s\n", font.lfHeight, font.lfWeight,
                ustring::WideCharToMultiByte(font.lfFaceName, CP_UTF8, 0).c_str(), font.lfItalic ? ", italic" : "");
}
}   // namespace

int main()
{
    CLogFont chosen;
    chosen.lfHeight = -14;
    chosen.lfWeight = FW_BOLD;
    chosen.lfItalic = TRUE;
    std::wcscpy(chosen.lfFaceName, L"Tahoma");
    if (!chosen.WriteProfile(Key))
        std::puts("not kept");

    CLogFont font;
    font.GetProfile(Key);
    Print(font);

    font.WriteProfileInt(Key, L"lfWeight", FW_NORMAL);   // a single value, as another program might set it
    font.GetProfile(Key);
    Print(font);

    if (const HFONT handle = ::CreateFontIndirectW(font))
        ::DeleteObject(handle);
    vantor::RegDeleteKeyW(HKEY_CURRENT_USER, Key);
    font.GetProfile(Key);   // nothing there: the font stays as it is
    Print(font);
}
