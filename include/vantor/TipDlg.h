// A small notice without a border for the time of some work: an icon and a text in the middle of the screen.
//
//     const CTipDlg tip(hWnd, L"Loading the trace ...", false);    // painted when the constructor returns
//     LoadTrace();                                                 // may take its time: no message need be handled

#ifndef VANTOR_TIPDLG_H
#define VANTOR_TIPDLG_H

#include <vantor/Dialog.h>

namespace vantor
{
class VANTOR_API CTipDlg : public CDialog
{
public:
    // Shows the text at once, modeless and painted, together with the parent and its ancestors; or, deferred, makes no
    // window until Create or DoModal. A null text is empty. A text too long for the box ends with an ellipsis.
    CTipDlg(HWND hWndParent, const wchar_t* text, bool deferred);
    ~CTipDlg() override;

    bool OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

private:
    ustring m_text;
};
}   // namespace vantor

#endif
