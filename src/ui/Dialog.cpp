#include <vantor/Dialog.h>

#include <cstring>

namespace vantor
{
CDialog::CDialog(HINSTANCE hInst, unsigned int templateId, HWND hWndParent)
    : CWnd(hWndParent), m_hInstance(hInst), m_nTemplateId(templateId), m_pTemplate(nullptr)
{
}

CDialog::~CDialog()
{
    if (m_pTemplate)
        ::LocalFree(m_pTemplate);
}

bool CDialog::InitModalIndirect(HINSTANCE hInst, void* pTemplate, HWND hWndParent)
{
    if (!pTemplate)
        return false;
    const SIZE_T size = ::LocalSize(pTemplate);
    m_hWndParent = hWndParent;
    m_hInstance = hInst;
    m_pTemplate = ::LocalAlloc(LMEM_ZEROINIT, size);
    std::memcpy(m_pTemplate, pTemplate, size);
    return true;
}

// Null for a resource that is missing, with which the system's call fails in its own way.
const DLGTEMPLATE* CDialog::FindTemplate() const
{
    if (m_pTemplate)
        return static_cast<const DLGTEMPLATE*>(m_pTemplate);
    const HRSRC resource = ::FindResourceW(m_hInstance, MAKEINTRESOURCEW(m_nTemplateId), RT_DIALOG);
    const HGLOBAL loaded = resource ? ::LoadResource(m_hInstance, resource) : nullptr;
    return static_cast<const DLGTEMPLATE*>(loaded ? ::LockResource(loaded) : nullptr);
}

int CDialog::DoModal()
{
    return static_cast<int>(::DialogBoxIndirectParamW(m_hInstance, FindTemplate(), m_hWndParent, DialogProc,
                                                      reinterpret_cast<LPARAM>(this)));
}

bool CDialog::Create()
{
    m_hWnd = ::CreateDialogIndirectParamW(m_hInstance, FindTemplate(), m_hWndParent, DialogProc,
                                          reinterpret_cast<LPARAM>(this));
    return m_hWnd != nullptr;
}

bool CDialog::OnInitDialog()
{
    RegisterInstance(m_hWnd, this);
    return true;
}

void CDialog::OnOK()
{
    ::EndDialog(m_hWnd, IDOK);
}

void CDialog::OnCancel()
{
    ::EndDialog(m_hWnd, IDCANCEL);
}

void CDialog::OnAbort()
{
    ::EndDialog(m_hWnd, IDABORT);
}

void CDialog::OnRetry()
{
    ::EndDialog(m_hWnd, IDRETRY);
}

void CDialog::OnIgnore()
{
    ::EndDialog(m_hWnd, IDIGNORE);
}

void CDialog::OnYes()
{
    ::EndDialog(m_hWnd, IDYES);
}

void CDialog::OnNo()
{
    ::EndDialog(m_hWnd, IDNO);
}

bool CDialog::SetDlgItemTextW(int id, const wchar_t* text)
{
    return ::SetDlgItemTextW(m_hWnd, id, text) != FALSE;
}

unsigned int CDialog::GetDlgItemTextW(int id, ustring& text)
{
    text.clear();
    const unsigned int length = GetDlgItemTextLength(id);
    if (length == 0)
        return 0;
    text.resize(length + std::size_t{1});
    text.resize(::GetDlgItemTextW(m_hWnd, id, text.data(), static_cast<int>(length + 1)));
    return static_cast<unsigned int>(text.size());
}

unsigned int CDialog::GetDlgItemTextLength(int id)
{
    return static_cast<unsigned int>(::GetWindowTextLengthW(::GetDlgItem(m_hWnd, id)));
}

bool CDialog::OnDialogProc(HWND, UINT, WPARAM, LPARAM)
{
    return false;
}

// Only the identifier counts, not the notification.
INT_PTR CDialog::OnCommand(WORD id)
{
    switch (id)
    {
    case IDOK:
        OnOK();
        return TRUE;
    case IDCANCEL:
        OnCancel();
        return TRUE;
    case IDABORT:
        OnAbort();
        return TRUE;
    case IDRETRY:
        OnRetry();
        return TRUE;
    case IDIGNORE:
        OnIgnore();
        return TRUE;
    case IDYES:
        OnYes();
        return TRUE;
    case IDNO:
        OnNo();
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK CDialog::DialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept
{
    CDialog* dialog = nullptr;
    if (msg == WM_INITDIALOG)
    {
        dialog = reinterpret_cast<CDialog*>(lParam);
        if (dialog)
            dialog->m_hWnd = hWnd;
    }
    else
    {
        dialog = dynamic_cast<CDialog*>(FindInstance(hWnd));
    }
    if (!dialog)
        return FALSE;
    if (dialog->OnDialogProc(hWnd, msg, wParam, lParam))
        return TRUE;

    // Nothing touches the object after its handler: it may be gone.
    switch (msg)
    {
    case WM_DESTROY:
        dialog->OnDestroy();
        return TRUE;
    case WM_CLOSE:
        ::EndDialog(hWnd, IDCANCEL);   // past OnCancel, also where that refuses
        return TRUE;
    case WM_ERASEBKGND:
        dialog->OnEraseBkgnd(reinterpret_cast<HDC>(wParam));
        return TRUE;
    case WM_INITDIALOG:
        return dialog->OnInitDialog();
    case WM_COMMAND:
        return dialog->OnCommand(LOWORD(wParam));
    default:
        return FALSE;
    }
}
}   // namespace vantor
