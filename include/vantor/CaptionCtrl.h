// A caption bar for full-screen dialogs, which have none of the system's: a gradient with an icon, the parent's title
// and up to three buttons. A press reaches the parent as the message that a dialog understands: WM_HELP, or WM_COMMAND
// with IDOK or IDCANCEL.
//
//     class CReport : public CDialog, public CCaptionEnabledWindow
//     ...
//     GetCaptionCtrl().Create(m_hWnd, IDC_CAPTION, IDI_REPORT, g_module, CCaptionCtrl::ButtonClose, 0);

#ifndef VANTOR_CAPTIONCTRL_H
#define VANTOR_CAPTIONCTRL_H

#include <vantor/Platform.h>

#include <map>

namespace vantor
{
// For the user-interface thread alone. Must outlive its window. Nothing throws, and handlers catch what they throw. A
// copy has the same handles: copy one that has no window.
class VANTOR_API CCaptionCtrl
{
public:
    enum EButtons : unsigned long
    {
        ButtonHelp = 1,
        ButtonOk = 2,
        ButtonClose = 4,
    };

    CCaptionCtrl();
    CCaptionCtrl(const CCaptionCtrl&) = default;
    CCaptionCtrl& operator=(const CCaptionCtrl&) = default;

    // Virtual operations in slot order; append-only.
    virtual ~CCaptionCtrl();           // destroys the bar
    virtual void OnBnClickedIcon();    // nothing
    virtual void OnBnClickedHelp();    // sends WM_HELP to the parent
    virtual void OnBnClickedOk();      // sends WM_COMMAND IDOK
    virtual void OnBnClickedClose();   // sends WM_COMMAND IDCANCEL

    // Makes the bar across the top of the parent, in place of one that this object had. iconId 0: no icon. buttons:
    // EButtons. height: pixels, 0 for the height of the system's captions. 0 if there is no parent or no window could
    // be made.
    int Create(HWND hWndParent, unsigned int id, unsigned int iconId, HINSTANCE hInst, unsigned long buttons,
               int height);
    int Destroy();   // 0 if there was no bar

    int Invalidate();
    void EnableCaption(bool enable);   // the look of an active or an inactive window
    bool IsCaptionEnabled() const { return m_bCaptionEnabled; }
    // By the buttons' own identifiers: help 9, OK 1, close 2. 0 if there is no such button.
    int EnableButton(unsigned int id, int enable);
    int IsButtonEnabled(unsigned int id);

    HWND GetHwnd() const { return m_hWnd; }   // null without a window
    HWND GetParent() const { return m_hWndParent; }
    int GetHeight() const { return m_nHeight; }   // pixels

    static CCaptionCtrl* FindInstance(HWND hWnd);   // null if the window is no caption bar
    static LRESULT CALLBACK WndProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

private:
    void OnCreate(HWND hWnd, const CREATESTRUCTW& cs);
    void OnDestroy(HWND hWnd);
    void OnSize(int width);
    void OnPaint(HWND hWnd);
    void OnCommand(WORD id);
    void OnTap(int x, int y);

    HWND m_hWnd;
    HWND m_hWndParent;
    HWND m_hWndHelp;
    HWND m_hWndOk;
    HWND m_hWndClose;
    unsigned int m_nIconId;
    HINSTANCE m_hInstance;
    unsigned long m_dwButtons;
    int m_nHeight;
    bool m_bCaptionEnabled;
    POINT m_ptOrigin;   // top left corner in the parent's client coordinates

    static std::map<HWND, CCaptionCtrl*> m_mapInstances;
};

// Gives a window class a caption bar. Its owner hands every message to OnWindowProc.
class VANTOR_API CCaptionEnabledWindow
{
public:
    CCaptionEnabledWindow(const CCaptionEnabledWindow&) = delete;   // the bar knows its owner
    CCaptionEnabledWindow& operator=(const CCaptionEnabledWindow&) = delete;

    // Asks its owner first.
    class VANTOR_API CMyCaptionCtrl : public CCaptionCtrl
    {
    public:
        explicit CMyCaptionCtrl(CCaptionEnabledWindow& owner);

        void OnBnClickedIcon() override;
        void OnBnClickedHelp() override;
        void OnBnClickedOk() override;
        void OnBnClickedClose() override;

    private:
        CCaptionEnabledWindow& m_owner;
    };

    // Virtual operations in slot order; append-only. Presses on the bar; true keeps the bar from telling its parent.
    virtual bool OnBnClickedIcon();
    virtual bool OnBnClickedHelp();
    virtual bool OnBnClickedOk();
    virtual bool OnBnClickedClose();
    // Keeps the bar as wide as its parent, its look as active, and its title up to date. Consumes nothing.
    virtual void OnWindowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam);

    CCaptionCtrl& GetCaptionCtrl() { return m_caption; }
    const CCaptionCtrl& GetCaptionCtrl() const { return m_caption; }

protected:
    CCaptionEnabledWindow();
    ~CCaptionEnabledWindow() = default;   // never deleted through this class

private:
    CMyCaptionCtrl m_caption;
};
}   // namespace vantor

#endif
