// What the user sees of an exception, and what comes back.

#include "support/MessagePump.h"
#include "support/Print.h"

#include <vantor/Exceptions.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace vantor;

namespace
{
ustring TextOf(HWND window)
{
    wchar_t text[512];
    const int length = ::GetWindowTextW(window, text, 512);
    return std::wstring(text, static_cast<std::size_t>(length));
}

// The user: waits for a window with the wanted button, reads everything and presses the button.
class CUser
{
public:
    explicit CUser(int button) : m_button(button)
    {
        support::UseOwnDesktop();
        s_current = this;
        constexpr UINT interval = 10;
        m_timer = ::SetTimer(nullptr, 0, interval, &Look);
    }
    CUser(const CUser&) = delete;
    CUser& operator=(const CUser&) = delete;
    ~CUser()
    {
        ::KillTimer(nullptr, m_timer);
        s_current = nullptr;
    }

    bool Sees(const wchar_t* text) const { return std::find(texts.begin(), texts.end(), ustring(text)) != texts.end(); }

    ustring title;
    std::vector<ustring> texts;   // of all controls

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) { ::EnumThreadWindows(::GetCurrentThreadId(), &LookAt, 0); }

    static BOOL CALLBACK LookAt(HWND window, LPARAM)
    {
        CUser& self = *s_current;
        const HWND button = ::GetDlgItem(window, self.m_button);
        if (self.m_pressed || !::IsWindowVisible(window) || !button || !::IsWindowVisible(button))
            return TRUE;
        self.m_pressed = true;
        self.title = TextOf(window);
        ::EnumChildWindows(window, &Read, 0);
        ::PostMessageW(button, BM_CLICK, 0, 0);
        return FALSE;
    }

    static BOOL CALLBACK Read(HWND control, LPARAM)
    {
        s_current->texts.push_back(TextOf(control));
        return TRUE;
    }

    static CUser* s_current;

    const int m_button;
    bool m_pressed = false;
    UINT_PTR m_timer;
};

CUser* CUser::s_current = nullptr;

CCommException DupLoop()
{
    return CCommException(7, L".\\Receiver", L"app::Send", L"{2,,dup loop}", L"COM1");
}

// The result of a box of which the user presses the button.
int Pressed(unsigned int type, int button)
{
    const CUser user(button);
    return DupLoop().ReportError(nullptr, type, L"", 0);
}

// Shows what a type of the application says, not what its base class says.
class CSpeaking : public CCommException
{
public:
    bool GetErrorMessageUI(ustring& out) const override
    {
        out = L"Please switch the receiver on.";
        return true;
    }
};
}   // namespace

TEST(ReportError, ShowsTheMessageForTheUser)
{
    const CUser user(IDOK);
    DupLoop().ReportError(nullptr, MB_ICONHAND | MB_OK, L"", 0);
    EXPECT_TRUE(user.Sees(L"Dup loop"));
}

TEST(ReportError, ShowsTheTranslatedMessage)
{
    CTranslatorInstance::Ref().m_langFile[L"Dup loop"] = L"Schleife";
    const CUser user(IDOK);
    DupLoop().ReportError(nullptr, MB_ICONHAND | MB_OK, L"", 0);
    EXPECT_TRUE(user.Sees(L"Schleife"));
}

TEST(ReportError, ShowsTheMessageOfTheMostDerivedType)
{
    const CUser user(IDOK);
    const CSpeaking e;
    static_cast<const CStdException&>(e).ReportError(nullptr, MB_OK, L"", 0);
    EXPECT_TRUE(user.Sees(L"Please switch the receiver on."));
}

TEST(ReportError, IsTitledWithTheAppName)
{
    CStdException::SetAppName(L"Field terminal");
    const CUser user(IDOK);
    DupLoop().ReportError(nullptr, MB_OK, L"", 0);
    EXPECT_EQ(ustring(L"Field terminal"), user.title);
}

TEST(ReportError, WithoutAnAppName_IsTitledWithTheExecutable)
{
    const CUser user(IDOK);
    DupLoop().ReportError(nullptr, MB_OK, L"", 0);
    EXPECT_EQ(ustring(L"errors_test"), user.title);
}

TEST(ReportError, OfASnapshot_ShowsTheSameAsOfTheException)
{
    CStdException::SetAppName(L"Field terminal");
    CTranslatorInstance::Ref().m_langFile[L"Dup loop"] = L"Schleife";
    const CStdException::CExInfo info(DupLoop());
    const CUser user(IDNO);
    EXPECT_EQ(IDNO, CStdException::ReportError(info, nullptr, MB_YESNO, L"", 0));
    EXPECT_EQ(ustring(L"Field terminal"), user.title);
    EXPECT_TRUE(user.Sees(L"Schleife"));
}

TEST(ReportError, Ok_ReturnsOk)
{
    EXPECT_EQ(1, Pressed(MB_OK, IDOK));
}

TEST(ReportError, OkCancel_ReturnsOk)
{
    EXPECT_EQ(1, Pressed(MB_OKCANCEL, IDOK));
}

TEST(ReportError, OkCancel_ReturnsCancel)
{
    EXPECT_EQ(2, Pressed(MB_OKCANCEL, IDCANCEL));
}

TEST(ReportError, AbortRetryIgnore_ReturnsAbort)
{
    EXPECT_EQ(3, Pressed(MB_ABORTRETRYIGNORE, IDABORT));
}

TEST(ReportError, AbortRetryIgnore_ReturnsRetry)
{
    EXPECT_EQ(4, Pressed(MB_ABORTRETRYIGNORE, IDRETRY));
}

TEST(ReportError, AbortRetryIgnore_ReturnsIgnore)
{
    EXPECT_EQ(5, Pressed(MB_ABORTRETRYIGNORE, IDIGNORE));
}

TEST(ReportError, YesNoCancel_ReturnsYes)
{
    EXPECT_EQ(6, Pressed(MB_YESNOCANCEL, IDYES));
}

TEST(ReportError, YesNoCancel_ReturnsNo)
{
    EXPECT_EQ(7, Pressed(MB_YESNOCANCEL, IDNO));
}

TEST(ReportError, YesNoCancel_ReturnsCancel)
{
    EXPECT_EQ(2, Pressed(MB_YESNOCANCEL, IDCANCEL));
}

TEST(ReportError, ExclamationYesNo_ReturnsYes)
{
    EXPECT_EQ(6, Pressed(0x34, IDYES));
}

TEST(ReportError, ExclamationYesNo_ReturnsNo)
{
    EXPECT_EQ(7, Pressed(0x34, IDNO));
}

TEST(ReportError, RetryCancel_ReturnsRetry)
{
    EXPECT_EQ(4, Pressed(MB_RETRYCANCEL, IDRETRY));
}

TEST(ReportError, RetryCancel_ReturnsCancel)
{
    EXPECT_EQ(2, Pressed(MB_RETRYCANCEL, IDCANCEL));
}
