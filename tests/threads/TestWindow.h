// A window that keeps what was delivered to it, and what stands between the library and its waits.

#ifndef VANTOR_TEST_THREADS_TESTWINDOW_H
#define VANTOR_TEST_THREADS_TESTWINDOW_H

#include "Workers.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace threads_test
{
// On the desktop of the calling thread, which must be the test's own.
class CTestWindow
{
public:
    CTestWindow()
    {
        static const wchar_t name[] = L"vantor.threads";
        WNDCLASSW kind = {};
        kind.lpfnWndProc = &Proc;
        kind.hInstance = ::GetModuleHandleW(nullptr);
        kind.lpszClassName = name;
        ::RegisterClassW(&kind);
        m_h = ::CreateWindowExW(0, name, L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr, nullptr, kind.hInstance,
                                this);
        EXPECT_NE(m_h, nullptr) << "error " << ::GetLastError();
        ::SetForegroundWindow(m_h);
        ::SetFocus(m_h);
        support::PumpMessages();
        m_delivered.clear();
    }
    CTestWindow(const CTestWindow&) = delete;
    CTestWindow& operator=(const CTestWindow&) = delete;
    ~CTestWindow() { ::DestroyWindow(m_h); }

    operator HWND() const { return m_h; }
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        EXPECT_TRUE(::PostMessageW(m_h, message, wParam, lParam));
    }
    void Invalidate() const { ::InvalidateRect(m_h, nullptr, TRUE); }
    bool IsRepaintDue() const { return ::GetUpdateRect(m_h, nullptr, FALSE) != FALSE; }

    // In the order of delivery; of the system's many messages only those that come through the queue.
    const std::vector<UINT>& Delivered() const { return m_delivered; }
    std::ptrdiff_t Count(UINT message) const { return std::count(m_delivered.begin(), m_delivered.end(), message); }
    void Forget() { m_delivered.clear(); }

    // Called by the window procedure for each delivered message.
    std::function<void(const MSG&)> onMessage;

private:
    static bool ComesThroughTheQueue(UINT message)
    {
        return message == WM_PAINT || message == WM_TIMER || message == WM_COMMAND || message == WM_SYSCOMMAND ||
               (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
               (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message >= WM_USER;
    }

    static LRESULT CALLBACK Proc(HWND h, UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (message == WM_NCCREATE)
        {
            const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
            ::SetWindowLongPtrW(h, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
        }
        auto* const self = reinterpret_cast<CTestWindow*>(::GetWindowLongPtrW(h, GWLP_USERDATA));
        if (!self || !ComesThroughTheQueue(message))
            return ::DefWindowProcW(h, message, wParam, lParam);
        self->m_delivered.push_back(message);
        if (message == WM_PAINT)
            ::ValidateRect(h, nullptr);
        if (self->onMessage)
            self->onMessage(MSG{h, message, wParam, lParam, 0, {}});
        return 0;
    }

    HWND m_h;
    std::vector<UINT> m_delivered;
};

// Whether the queue holds anything at all; it stays there.
inline bool IsQueueEmpty()
{
    MSG message;
    return !::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}
}   // namespace threads_test

#endif
