// A small program on the library. It prints the texts of its menu and its dialog as a user would see them: with a
// language file beside it (sample.lng) they are translated. With a file's name it opens that file, and prints
// everything that the exception knows if it cannot.

#include "resource.h"

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

void PrintMenu(HMENU menu, const ustring& indent)
{
    for (int i = 0; i < menu::GetMenuItemCount(menu); ++i)
    {
        wchar_t text[128] = {};
        const UINT state = menu::GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        menu::GetMenuStringW(menu, static_cast<UINT>(i), text, 128, MF_BYPOSITION);
        ustring line = (state & MF_SEPARATOR) ? ustring(L"----") : ustring(text);
        line.replace(L"\t", L"    ");
        if (state & MF_CHECKED)
            line += L" (checked)";
        Print(indent + line);
        if (const HMENU sub = ::GetSubMenu(menu, i))
            PrintMenu(sub, indent + L"    ");
    }
}

INT_PTR CALLBACK SettingsProc(HWND, UINT, WPARAM, LPARAM) noexcept
{
    return FALSE;
}

void PrintWindow(HWND window, const ustring& indent)
{
    wchar_t text[128] = {};
    if (::GetWindowTextW(window, text, 128) > 0)
        Print(indent + text);
    for (HWND child = ::GetWindow(window, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        PrintWindow(child, indent + L"    ");
}

void ShowTexts(HINSTANCE module)
{
    CTranslator& translator = CTranslatorInstance::Ref();
    ustring title;
    title.xload(module, IDS_TITLE);
    Print(title);

    const HMENU menu = ::LoadMenuW(module, MAKEINTRESOURCEW(IDM_MAIN));
    translator.XlateMenu(menu);
    PrintMenu(menu, L"    ");
    ::DestroyMenu(menu);

    const HWND settings = ::CreateDialogParamW(module, MAKEINTRESOURCEW(IDD_SETTINGS), nullptr, SettingsProc, 0);
    translator.XlateWnd(settings);
    PrintWindow(settings, L"    ");
    ::DestroyWindow(settings);
}

void PrintAll(const CStdException& e)
{
    const CStdException::CExInfo info(e);
    ustring text = info.GetErrorMessage();
    Print(L"source     " + info.GetSource());
    Print(L"message    " + text.trim({L'\r', L'\n'}));
    text = info.GetErrorMessageUI();
    Print(L"for users  " + text.trim({L'\r', L'\n'}));
    Print(L"function   " + info.GetFunction());
    Print(L"file       " + info.GetFileName());
    Print(L"line       " + ustring::ui64toa(info.GetLine()));
    if (const auto* failure = dynamic_cast<const CWinException*>(&e))
        Print(L"code       " + ustring::ui64toa(failure->GetErrorCode()));
}

int OpenTrace(HINSTANCE module, const wchar_t* path)
{
    try
    {
        CFile trace(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        Print(ustring::ui64toa(trace.GetLength()) + L" bytes");
        return 0;
    }
    catch (const CStdException& e)
    {
        ustring format, message;
        format.xload(module, IDS_NO_TRACE);
        message.sprintf(format.c_str(), path);
        Print(message);
        PrintAll(e);
        return 1;
    }
}
}   // namespace

int wmain(int count, wchar_t** arguments)
{
    const HINSTANCE module = ::GetModuleHandleW(nullptr);
    if (count > 1)
        return OpenTrace(module, arguments[1]);
    ShowTexts(module);
    return 0;
}
