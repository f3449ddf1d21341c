#include "Shell.h"

namespace
{
CShellLog g_log;

BOOL Note(WORD ordinal, HWND dialog, DWORD mask, DWORD value)
{
    if (g_log.count < ShellCallsMax)
        g_log.calls[g_log.count++] = {ordinal, dialog, mask, value, ::IsWindowVisible(dialog)};
    return TRUE;
}

struct CRecord
{
    DWORD mask;
    HWND dialog;
    DWORD flags;
};
}   // namespace

extern "C" CShellLog* ShellLog()
{
    return &g_log;
}

extern "C" BOOL InitDialog(const CRecord* record)
{
    return Note(56, record->dialog, record->mask, record->flags);
}

extern "C" BOOL DoneButton(HWND dialog, DWORD state)
{
    return Note(21, dialog, 0, state);
}

extern "C" BOOL FullScreen(HWND dialog, DWORD state)
{
    return Note(65, dialog, 0, state);
}
