// The dialogs that show an exception to the user.

#ifndef VANTOR_SRC_ERRORDIALOGS_H
#define VANTOR_SRC_ERRORDIALOGS_H

#include "FullScreenDialog.h"

namespace vantor
{
// Icon, message, and one to three buttons as MessageBox has them; DoModal returns the pressed one's command. The
// technical details are behind a button that shows only after two taps on its place: they are not for everybody.
class CErrorReportDlg : public CFullScreenDialog
{
public:
    CErrorReportDlg(HWND owner, const CReport& report);
    ~CErrorReportDlg() override;

private:
    bool OnInitDialog() override;
    void OnCancel() override;
    bool OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
    EFollow Follow(int id) const override;

    void SetUpButtons();
    void OnTap(POINT point);
    void ShowDetails();

    HICON m_hIcon;
    HWND m_details = nullptr;
    int m_tapCount = 0;
};

// Everything that is known of the exception.
class CErrorInfoDlg : public CFullScreenDialog
{
public:
    CErrorInfoDlg(HWND owner, const CReport& report);

private:
    bool OnInitDialog() override;
    EFollow Follow(int id) const override;
};
}   // namespace vantor

#endif
