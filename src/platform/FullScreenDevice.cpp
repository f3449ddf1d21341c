// The device's shell exports these calls by number only. Also built by the tests, against a shell of their own.

#include "DeviceModule.h"
#include "FullScreen.h"

namespace vantor::platform
{
namespace
{
constexpr wchar_t ShellName[] = L"aygshell.dll";

struct DialogInitialisation   // the shell's record
{
    DWORD mask;
    HWND dialog;
    DWORD flags;
};

using InitDialogCall = BOOL(DialogInitialisation* initialisation);
constexpr WORD InitDialogOrdinal = 56;
constexpr DWORD MaskFlags = 1;
constexpr DWORD FullScreenNoMenuBar = 16;

using DoneButtonCall = BOOL(HWND dialog, DWORD state);
constexpr WORD DoneButtonOrdinal = 21;
constexpr DWORD HideDoneButton = 2;

using FullScreenCall = BOOL(HWND dialog, DWORD state);
constexpr WORD FullScreenOrdinal = 65;
constexpr DWORD HideAll = 42;   // task bar 2, input panel button 8, start icon 32
}   // namespace

void PresentFullScreen(HWND dialog)
{
    const CDeviceModule shell(ShellName);
    if (const auto initDialog = shell.Find<InitDialogCall>(InitDialogOrdinal))
    {
        DialogInitialisation initialisation = {MaskFlags, dialog, FullScreenNoMenuBar};
        initDialog(&initialisation);
    }
    if (const auto doneButton = shell.Find<DoneButtonCall>(DoneButtonOrdinal))
        doneButton(dialog, HideDoneButton);
    if (const auto fullScreen = shell.Find<FullScreenCall>(FullScreenOrdinal))
        fullScreen(dialog, HideAll);
}
}   // namespace vantor::platform
