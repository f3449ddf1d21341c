#include "support/Print.h"

#include <vantor/Exceptions.h>

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

using namespace vantor;

namespace
{
// An application's own exception.
class CAppException : public CStdException
{
public:
    CAppException(unsigned int line, const wchar_t* fileName, const wchar_t* function, int detail)
        : CStdException(line, fileName, function), m_detail(detail)
    {
    }

    CSmartPtr<CStdException> Clone() override { return CSmartPtr<CStdException>(new CAppException(*this)); }
    void Throw() const override { throw CAppException(*this); }
    bool GetSource(ustring& out) const override
    {
        out = L"Application";
        return true;
    }
    bool GetErrorMessage(ustring& out) const override
    {
        out.sprintf(L"Detail %d", m_detail);
        return true;
    }

    int GetDetail() const { return m_detail; }

private:
    int m_detail;
};

struct CTexts
{
    explicit CTexts(const CStdException& e)
    {
        e.GetSource(source), e.GetErrorMessage(message), e.GetErrorMessageUI(userMessage);
    }

    ustring source, message, userMessage;
};

void ExpectSame(const CStdException& expected, const CStdException& actual)
{
    EXPECT_STREQ(typeid(expected).name(), typeid(actual).name());
    EXPECT_EQ(expected.GetLine(), actual.GetLine());
    EXPECT_EQ(expected.GetFileName(), actual.GetFileName());
    EXPECT_EQ(expected.GetFunction(), actual.GetFunction());
    const CTexts expectedTexts(expected), actualTexts(actual);
    EXPECT_EQ(expectedTexts.source, actualTexts.source);
    EXPECT_EQ(expectedTexts.message, actualTexts.message);
    EXPECT_EQ(expectedTexts.userMessage, actualTexts.userMessage);
}

template <class Exception>
void ExpectThrowsItsOwnType(const Exception& e)
{
    const CStdException& root = e;
    try
    {
        root.Throw();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const Exception& caught)
    {
        ExpectSame(e, caught);
        EXPECT_NE(&root, &static_cast<const CStdException&>(caught)) << "what is thrown is a copy";
    }
}

void ExpectIsCaughtAsRoot(const CStdException& e)
{
    try
    {
        e.Throw();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const CStdException& caught)
    {
        ExpectSame(e, caught);
    }
}

template <class Exception>
CSmartPtr<CStdException> CaughtClone(const Exception& e)
{
    try
    {
        throw Exception(e);
    }
    catch (CStdException& caught)
    {
        return caught.Clone();
    }
}

template <class Exception>
void ExpectCloneKeepsEverything(const Exception& e)
{
    const CSmartPtr<CStdException> clone = CaughtClone(e);
    ASSERT_TRUE(static_cast<bool>(clone));
    ExpectSame(e, *clone);
}

template <class Exception>
void ExpectCloneThrowsItsOwnType(const Exception& e)
{
    const CSmartPtr<CStdException> clone = CaughtClone(e);
    ASSERT_TRUE(static_cast<bool>(clone));
    try
    {
        clone->Throw();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const Exception& caught)
    {
        ExpectSame(e, caught);
    }
    ExpectSame(e, *clone);
}

// The exported member function itself: the compiler may take for granted that a call through an object has one.
void CallThrowWithoutAnObject(const char* exportedName)
{
#ifdef _WIN64
    using Function = void (*)(const void*);
#else
    // Takes its first argument where a member function takes the object.
    using Function = void(__attribute__((fastcall))*)(const void*);
#endif
    const FARPROC address = ::GetProcAddress(::GetModuleHandleW(L"vantor.dll"), exportedName);
    ASSERT_NE(nullptr, address);
    const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    EXPECT_NO_THROW(function(nullptr));
}

const CWinException g_win(7, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND);
const CCommException g_comm(8, L".\\Receiver", L"app::Send", L"{2,,dup loop}", L"COM1");
const CMatrixException g_matrix(9, L".\\Matrix", L"invert", CMatrixException::DivisionByZero);
const CAppException g_app(10, L".\\App", L"app::Run", 42);
}   // namespace

TEST(WinExceptionCopies, Throw_ThrowsACopyOfItsOwnType)
{
    ExpectThrowsItsOwnType(g_win);
}

TEST(WinExceptionCopies, Throw_IsCaughtAsRoot)
{
    ExpectIsCaughtAsRoot(g_win);
}

TEST(WinExceptionCopies, Throw_KeepsTheErrorCode)
{
    try
    {
        g_win.Throw();
    }
    catch (const CWinException& caught)
    {
        EXPECT_EQ(static_cast<unsigned long>(ERROR_FILE_NOT_FOUND), caught.GetErrorCode());
    }
}

TEST(WinExceptionCopies, Throw_WithoutAnObject_DoesNothing)
{
    CallThrowWithoutAnObject("_ZNK6vantor13CWinException5ThrowEv");
}

TEST(WinExceptionCopies, Clone_KeepsEverything)
{
    ExpectCloneKeepsEverything(g_win);
}

TEST(WinExceptionCopies, Clone_ThrowsItsOwnTypeLater)
{
    ExpectCloneThrowsItsOwnType(g_win);
}

TEST(WinExceptionCopies, Clone_OfAClone_KeepsEverything)
{
    const CSmartPtr<CStdException> clone = CaughtClone(g_win)->Clone();
    ExpectSame(g_win, *clone);
}

TEST(WinExceptionCopies, Clone_IsAnotherObjectEachTime)
{
    CWinException e(g_win);
    const CSmartPtr<CStdException> one = e.Clone();
    const CSmartPtr<CStdException> two = e.Clone();
    EXPECT_NE(one.get(), two.get());
    EXPECT_NE(one.get(), &e);
}

TEST(CommExceptionCopies, Throw_ThrowsACopyOfItsOwnType)
{
    ExpectThrowsItsOwnType(g_comm);
}

TEST(CommExceptionCopies, Throw_IsCaughtAsRoot)
{
    ExpectIsCaughtAsRoot(g_comm);
}

TEST(CommExceptionCopies, Throw_WithoutAnObject_DoesNothing)
{
    CallThrowWithoutAnObject("_ZNK6vantor14CCommException5ThrowEv");
}

TEST(CommExceptionCopies, Clone_KeepsEverything)
{
    ExpectCloneKeepsEverything(g_comm);
}

TEST(CommExceptionCopies, Clone_ThrowsItsOwnTypeLater)
{
    ExpectCloneThrowsItsOwnType(g_comm);
}

TEST(MatrixExceptionCopies, Throw_ThrowsACopyOfItsOwnType)
{
    ExpectThrowsItsOwnType(g_matrix);
}

TEST(MatrixExceptionCopies, Throw_IsCaughtAsRoot)
{
    ExpectIsCaughtAsRoot(g_matrix);
}

TEST(MatrixExceptionCopies, Throw_WithoutAnObject_DoesNothing)
{
    CallThrowWithoutAnObject("_ZNK6vantor16CMatrixException5ThrowEv");
}

TEST(MatrixExceptionCopies, Clone_KeepsEverything)
{
    ExpectCloneKeepsEverything(g_matrix);
}

TEST(MatrixExceptionCopies, Clone_ThrowsItsOwnTypeLater)
{
    ExpectCloneThrowsItsOwnType(g_matrix);
}

TEST(AppException, Throw_ThrowsACopyOfItsOwnType)
{
    ExpectThrowsItsOwnType(g_app);
}

TEST(AppException, Clone_ThrowsItsOwnTypeLater)
{
    const CSmartPtr<CStdException> clone = CaughtClone(g_app);
    try
    {
        clone->Throw();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const CAppException& caught)
    {
        EXPECT_EQ(42, caught.GetDetail());
    }
}

TEST(AppException, UserMessage_IsTheTechnicalMessage)
{
    ustring text;
    EXPECT_TRUE(g_app.GetErrorMessageUI(text));
    EXPECT_EQ(ustring(L"Detail 42"), text);
}

TEST(AppException, Snapshot_HoldsItsTexts)
{
    const CStdException::CExInfo info(g_app);
    EXPECT_EQ(10u, info.GetLine());
    EXPECT_EQ(ustring(L"Application"), info.GetSource());
    EXPECT_EQ(ustring(L"Detail 42"), info.GetErrorMessage());
    EXPECT_EQ(ustring(L"Detail 42"), info.GetErrorMessageUI());
}
