// Windows as objects: a base that owns one window and can be found again from its handle, and a cursor for the time of
// a scope.
//
//     LRESULT CALLBACK PlotProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept
//     {
//         if (msg == WM_CREATE)
//         {
//             auto* cs = reinterpret_cast<CREATESTRUCTW*>(lParam);
//             auto* plot = static_cast<CWnd*>(cs->lpCreateParams);
//             plot->m_hWnd = hWnd;
//             return plot->OnCreate(cs);                // registers
//         }
//         CWnd* plot = CWnd::FindInstance(hWnd);
//         if (plot && msg == WM_DESTROY)
//             plot->OnDestroy();                        // removes the registration
//         LRESULT result = 0;
//         if (plot && plot->OnWindowProc(hWnd, msg, wParam, lParam, &result))
//             return result;
//         return ::DefWindowProcW(hWnd, msg, wParam, lParam);
//     }
//
// Nothing here throws: failures are results, as the platform's own calls have it. Handlers are called from the system's
// frames, which no exception may cross: a handler catches what it throws, or the program ends.

#ifndef VANTOR_WINDOW_H
#define VANTOR_WINDOW_H

#include <vantor/Object.h>

#include <map>

namespace vantor
{
// Stands for one window and must outlive it: the registry from handle to object holds plain pointers. The registry may
// be used from any thread, everything else from the window's own.
class VANTOR_API CWnd
{
public:
    explicit CWnd(HWND hWndParent = nullptr);   // makes no window
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // Virtual operations in slot order; derived classes append theirs.

    // Destroys the window if there is one, and removes the registration.
    virtual ~CWnd();
    // Called by the window procedures of applications. True: handled, with `result`; the base handles nothing.
    virtual bool OnWindowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual int OnCreate(CREATESTRUCTW* cs);   // registers; 0 lets the creation go on
    virtual void OnDestroy();                  // removes the registration; m_hWnd is null afterwards
    virtual void OnEraseBkgnd(HDC hdc);        // fills the client area with the colour of buttons

    static long GetStyle(HWND hWnd);
    static long GetStyleEx(HWND hWnd);
    // Takes bits of the style away, then adds some: a bit named in both ends up set.
    static bool ModifyStyle(HWND hWnd, long remove, long add);
    static bool ModifyStyleEx(HWND hWnd, long remove, long add);
    static long SetDlgCtrlId(HWND hWnd, long id);   // returns the previous identifier

    // Centres the window on the screen, whatever its parent; does nothing if the parent is given but no window.
    void CenterWindow();

    // A handle has one object at most: false, and nothing changes, if one is registered already.
    static bool RegisterInstance(HWND hWnd, CWnd* pWnd);
    static bool UnregisterInstance(HWND hWnd);   // false if there is none
    static CWnd* FindInstance(HWND hWnd);        // null if there is none

    HWND m_hWnd;         // null while there is no window
    HWND m_hWndParent;   // as given at construction; may be null

private:
    static std::map<HWND, CWnd*> m_map;
    static CCriticalSection m_cs;   // guards m_map
};

// Shows a cursor (the wait cursor, unless told otherwise) until the end of the scope. With two nulls no cursor is
// shown. A copy restores the same cursor.
class VANTOR_API CWaitCursor
{
public:
    explicit CWaitCursor(HINSTANCE hInst = nullptr, const wchar_t* cursorName = MAKEINTRESOURCEW(32514));   // IDC_WAIT
    CWaitCursor(const CWaitCursor&) = default;
    CWaitCursor& operator=(const CWaitCursor&) = default;
    virtual ~CWaitCursor();

    void Restore();   // early; may be called again

private:
    HCURSOR m_hPrevCursor;
};
}   // namespace vantor

#endif
