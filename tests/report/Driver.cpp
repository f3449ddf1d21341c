#include "Driver.h"

#include "support/MessagePump.h"

#include <cwchar>
#include <string>

using namespace vantor;

namespace
{
const std::vector<CStep>* g_steps = nullptr;
std::size_t g_next = 0;

BOOL CALLBACK FindDialog(HWND window, LPARAM found)
{
    wchar_t name[16] = {};
    ::GetClassNameW(window, name, 16);
    if (std::wcscmp(name, L"#32770") != 0 || !::IsWindowVisible(window) || !::IsWindowEnabled(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// A timer's message comes when nothing else is left to do, so the step before has had all its effects.
void CALLBACK NextStep(HWND, UINT, UINT_PTR, DWORD)
{
    HWND dialog = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindDialog, reinterpret_cast<LPARAM>(&dialog));
    if (!dialog)
        return;
    if (g_next == g_steps->size())
        ::EndDialog(dialog, StillOpen);
    else
        (*g_steps)[g_next++](dialog);
}

POINT Middle(const RECT& area)
{
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}
}   // namespace

int Drive(const std::vector<CStep>& steps, const std::function<int()>& action)
{
    static const bool once = (support::UseOwnDesktop(), true);
    static_cast<void>(once);
    g_steps = &steps;
    g_next = 0;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, &NextStep);
    const int result = action();
    ::KillTimer(nullptr, timer);
    return result;
}

CCommException Failure()
{
    return CCommException(1234567, L".\\Sweep", L"vantor::Start", L"{2,,access denied}", L"Link");
}

int Report(unsigned int type, const std::vector<CStep>& steps)
{
    return Drive(steps, [type] { return Failure().ReportError(nullptr, type, L"trace 7.csv", 4000000000); });
}

void PressEscape(HWND dialog)
{
    ::PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 1);
}

void PressReturn(HWND dialog)
{
    ::PostMessageW(dialog, WM_KEYDOWN, VK_RETURN, 1);
}

void PressCaptionClose(HWND dialog)
{
    Press(::GetDlgItem(dialog, Caption), IDCANCEL);
}

void SendClose(HWND dialog)
{
    ::PostMessageW(dialog, WM_CLOSE, 0, 0);
}

void Press(HWND dialog, int id)
{
    ::PostMessageW(::GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

CStep Pressing(int id)
{
    return [id](HWND dialog) { Press(dialog, id); };
}

void Tap(HWND dialog, POINT point)
{
    const LPARAM position = MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
    ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, position);
    ::SendMessageW(dialog, WM_LBUTTONUP, 0, position);
}

void TapDetails(HWND dialog)
{
    Tap(dialog, Middle(Place(dialog, ::GetDlgItem(dialog, Details))));
}

void OpenDetails(HWND dialog)
{
    TapDetails(dialog);
    TapDetails(dialog);
    Press(dialog, Details);
}

ustring Text(HWND window)
{
    wchar_t text[512] = {};
    ::GetWindowTextW(window, text, 512);
    return text;
}

ustring ItemText(HWND dialog, int id)
{
    return Text(::GetDlgItem(dialog, id));
}

bool IsShown(HWND dialog, int id)
{
    return ::IsWindowVisible(::GetDlgItem(dialog, id)) != FALSE;
}

RECT Place(HWND dialog, HWND control)
{
    RECT area = {};
    ::GetWindowRect(control, &area);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

std::vector<HWND> Children(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(window, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

RECT TemplatePlace(HWND dialog, RECT units)
{
    ::MapDialogRect(dialog, &units);
    return units;
}
