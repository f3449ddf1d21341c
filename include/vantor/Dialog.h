// Dialogs as objects: built from a template, run modally or not, their messages routed to virtual functions. A
// dialog is translated if its OnInitDialog asks for it: CTranslatorInstance::Ref().XlateWnd(m_hWnd).
//
//     class CSettings : public CDialog
//     {
//     public:
//         explicit CSettings(HWND owner) : CDialog(g_module, IDD_SETTINGS, owner) {}
//
//     protected:
//         bool OnInitDialog() override
//         {
//             SetDlgItemTextW(IDC_NAME, m_name.c_str());
//             return CDialog::OnInitDialog();      // without it the dialog gets no further messages
//         }
//         void OnOK() override
//         {
//             GetDlgItemTextW(IDC_NAME, m_name);
//             CDialog::OnOK();
//         }
//     };

#ifndef VANTOR_DIALOG_H
#define VANTOR_DIALOG_H

#include <vantor/Strings.h>
#include <vantor/Window.h>

namespace vantor
{
// Must outlive its window. Nothing here throws, and handlers catch what they throw: an exception that leaves one ends
// the program at once.
class VANTOR_API CDialog : public CWnd
{
public:
    // Loads nothing yet. The template is a resource of the module, found by number.
    CDialog(HINSTANCE hInst, unsigned int templateId, HWND hWndParent);

    // Virtual operations in slot order, behind those of CWnd; derived classes append theirs.

    ~CDialog() override;   // destroys a window that is still there; its handlers are not called any more
    // A template in memory instead of the resource: a block of LocalAlloc, of which a copy is kept. False for null: a
    // copy kept before stays. Meant to be called once, before DoModal or Create.
    virtual bool InitModalIndirect(HINSTANCE hInst, void* pTemplate, HWND hWndParent);
    // Runs the dialog; returns what it was ended with (IDOK to IDNO by the handlers below), or -1 or 0 if it could not
    // be built.
    virtual int DoModal();
    // Makes the dialog and returns; false if it could not be built. WM_CLOSE hides such a dialog, it does not destroy
    // it.
    virtual bool Create();
    // Registers the window; an override calls it, or the dialog gets no further messages. True lets the system set the
    // focus.
    virtual bool OnInitDialog();
    // A command with the identifier 1 to 7, whatever the notification; each ends the dialog with that identifier.
    virtual void OnOK();
    virtual void OnCancel();
    virtual void OnAbort();
    virtual void OnRetry();
    virtual void OnIgnore();
    virtual void OnYes();
    virtual void OnNo();
    virtual bool SetDlgItemTextW(int id, const wchar_t* text);
    // Returns the length; 0, and the text empty, if there is no such control or nothing in it.
    virtual unsigned int GetDlgItemTextW(int id, ustring& text);
    virtual unsigned int GetDlgItemTextLength(int id);
    // Sees every message first. True: handled, and nothing else is done; the base handles nothing.
    virtual bool OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam);

    // The dialog procedure of every CDialog; its object is the parameter of the dialog's creation.
    static INT_PTR CALLBACK DialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

protected:
    HINSTANCE m_hInstance;
    unsigned int m_nTemplateId;
    void* m_pTemplate;   // the copy that InitModalIndirect made; null while the resource is used

private:
    const DLGTEMPLATE* FindTemplate() const;
    INT_PTR OnCommand(WORD id);
};
}   // namespace vantor

#endif
