// Dialogs to look into: one that records what reaches it, and templates in memory.

#ifndef VANTOR_TEST_UI_DIALOGS_H
#define VANTOR_TEST_UI_DIALOGS_H

#include "resource.h"

#include <vantor/Dialog.h>

#include <functional>
#include <string>
#include <vector>

inline HINSTANCE Module()
{
    return ::GetModuleHandleW(nullptr);
}

// Records its handlers' calls, and calls the base's.
class CFormDialog : public vantor::CDialog
{
public:
    explicit CFormDialog(unsigned int templateId = IDD_FORM, HWND parent = nullptr)
        : CDialog(Module(), templateId, parent)
    {
    }

    bool OnInitDialog() override
    {
        calls += "init ";
        const bool result = CDialog::OnInitDialog();
        if (whenShown)
            whenShown();
        return result;
    }
    void OnDestroy() override
    {
        calls += "destroy ";
        CDialog::OnDestroy();
    }
    void OnOK() override
    {
        calls += "ok ";
        CDialog::OnOK();
    }
    void OnCancel() override
    {
        calls += "cancel ";
        CDialog::OnCancel();
    }
    void OnAbort() override
    {
        calls += "abort ";
        CDialog::OnAbort();
    }
    void OnRetry() override
    {
        calls += "retry ";
        CDialog::OnRetry();
    }
    void OnIgnore() override
    {
        calls += "ignore ";
        CDialog::OnIgnore();
    }
    void OnYes() override
    {
        calls += "yes ";
        CDialog::OnYes();
    }
    void OnNo() override
    {
        calls += "no ";
        CDialog::OnNo();
    }
    bool OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) override
    {
        messages.push_back({hWnd, msg, wParam, lParam, m_hWnd});
        return msg == consumed;
    }

    // Ends a modal dialog with this command, once it runs.
    int Run(WPARAM command)
    {
        whenShown = [this, command] { ::PostMessageW(m_hWnd, WM_COMMAND, command, 0); };
        return DoModal();
    }

    HINSTANCE Instance() const { return m_hInstance; }
    unsigned int TemplateId() const { return m_nTemplateId; }
    void* Template() const { return m_pTemplate; }

    struct CMessage
    {
        HWND window;
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        HWND member;   // m_hWnd at that time
    };

    std::string calls;
    std::vector<CMessage> messages;
    UINT consumed = ~0u;               // OnDialogProc answers true to it
    std::function<void()> whenShown;   // called by OnInitDialog
};

#endif
