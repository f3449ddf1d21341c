// Language: translations are saved as a language file, loaded again, and put in place of the texts of a menu.

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

void SaveGerman(const wchar_t* path)
{
    CLanguageFile german;
    german[L"&Trace"] = L"&Messkurve";
    german[L"&Open...\tCtrl+O"] = L"\u00D6&ffnen...\tStrg+O";
    german.SaveLanguageFile(path);
}

void PrintMenu(HMENU menu)
{
    for (int i = 0; i < menu::GetMenuItemCount(menu); ++i)
    {
        wchar_t text[64] = {};
        menu::GetMenuStringW(menu, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
        Print(text);
        if (const HMENU sub = ::GetSubMenu(menu, i))
            PrintMenu(sub);
    }
}
}   // namespace

int main()
{
    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"lng", 0, path);
    SaveGerman(path.c_str());

    CTranslator translator;   // most programs use the one of CTranslatorInstance::Ref()
    translator.m_langFile.LoadLanguageFile(path.c_str());
    CFile::Remove(path.c_str());
    const HMENU bar = ::CreateMenu();
    const HMENU trace = ::CreatePopupMenu();
    ::AppendMenuW(trace, MF_STRING, 1, L"&Open...\tCtrl+O");
    ::AppendMenuW(trace, MF_STRING, 2, L"&Close");   // has no translation: stays as it is
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(trace), L"&Trace");
    translator.XlateMenu(bar);
    PrintMenu(bar);
    ::DestroyMenu(bar);

    ustring text = L"&Trace";
    translator.XlateEx(text);   // a single text
    Print(text);
}
