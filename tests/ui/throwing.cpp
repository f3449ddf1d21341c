// Throws from one of a dialog's handlers, in spite of what they promise.

#include "resource.h"

#include "support/MessagePump.h"

#include <vantor/Dialog.h>

#include <cstdio>
#include <string>

using namespace vantor;

namespace
{
std::string g_where;

void ThrowAt(const char* where)
{
    if (g_where != where)
        return;
    std::fputs("throwing\n", stdout);
    std::fflush(stdout);
    throw 1;
}

class CThrowingDialog : public CDialog
{
public:
    CThrowingDialog() : CDialog(::GetModuleHandleW(nullptr), IDD_FORM, nullptr) {}

    bool OnInitDialog() override
    {
        ThrowAt("init");
        return CDialog::OnInitDialog();
    }
    void OnYes() override { ThrowAt("command"); }
    void OnDestroy() override
    {
        ThrowAt("destroy");
        CDialog::OnDestroy();
    }
    void OnEraseBkgnd(HDC hdc) override
    {
        ThrowAt("erase");
        CDialog::OnEraseBkgnd(hdc);
    }
    bool OnDialogProc(HWND, UINT msg, WPARAM, LPARAM) override
    {
        if (msg == WM_APP)
            ThrowAt("proc");
        return false;
    }
};
}   // namespace

int main(int, char** arguments)
{
    g_where = arguments[1];
    support::UseOwnDesktop();
    try
    {
        CThrowingDialog dialog;
        dialog.Create();
        ::SendMessageW(dialog.m_hWnd, WM_COMMAND, IDYES, 0);
        ::SendMessageW(dialog.m_hWnd, WM_APP, 0, 0);
        const HDC hdc = ::GetDC(dialog.m_hWnd);
        ::SendMessageW(dialog.m_hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0);
        ::ReleaseDC(dialog.m_hWnd, hdc);
        ::DestroyWindow(dialog.m_hWnd);
    }
    catch (int)
    {
        std::fputs("survived: caught\n", stdout);
        return 0;
    }
    std::fputs("survived\n", stdout);
    return 0;
}
