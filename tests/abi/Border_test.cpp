// What crosses the border between a program and vantor.dll: exceptions, static data, the DLLs that belong together.

#include "support/TempFolder.h"

#include <vantor/vantor.h>

#include <gtest/gtest.h>

#include <typeinfo>

using namespace vantor;

namespace
{
constexpr wchar_t NoSuchFile[] = L"C:\\no such folder\\no such file";

void OpenMissing()
{
    CFile(NoSuchFile, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

// Built before main, as an application's static objects are.
const struct EarlyBird
{
    ustring decimalPoint = ustring::m_Locale.DecimalPoint();
    ustring thousandsSep = ustring::m_Locale.ThousandsSep();
} earlyBird;

std::wstring UserSetting(LCTYPE type)
{
    wchar_t text[16];
    return ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 16) != 0 ? text : L"?";
}

std::wstring FolderOf(HMODULE module)
{
    wchar_t path[MAX_PATH + 1];
    const std::wstring whole(path, ::GetModuleFileNameW(module, path, MAX_PATH));
    return whole.substr(0, whole.rfind(L'\\'));
}
}   // namespace

TEST(ExceptionFromTheLibrary, IsCaughtByItsExactType)
{
    EXPECT_THROW(OpenMissing(), CWinException);
}

TEST(ExceptionFromTheLibrary, IsCaughtByTheRoot)
{
    EXPECT_THROW(OpenMissing(), CStdException);
}

TEST(ExceptionFromTheLibrary, HasTheProgramsTypeInformation)
{
    try
    {
        OpenMissing();
        FAIL() << "nothing was thrown";
    }
    catch (const CStdException& e)
    {
        EXPECT_TRUE(typeid(e) == typeid(CWinException));
    }
}

TEST(ExceptionFromTheLibrary, ItsCloneIsThrownWithTheExactType)
{
    const CMatrixException e(1, L".\\Matrix", L"f", CMatrixException::InvalidIndex);
    const CSmartPtr<CStdException> clone = CMatrixException(e).Clone();
    EXPECT_THROW(clone->Throw(), CMatrixException);
}

TEST(ExceptionFromTheProgram, PassesThroughTheLibrary)
{
    class COwn : public CFile
    {
    public:
        unsigned long long Seek(long long, unsigned long) override { throw 7; }
    };
    COwn file;
    EXPECT_THROW(file.SetLength(1), int);   // calls Seek
}

TEST(StaticObjectOfAnApplication, FindsTheUsersDecimalPoint)
{
    EXPECT_EQ(UserSetting(LOCALE_SDECIMAL), earlyBird.decimalPoint);
}

TEST(StaticObjectOfAnApplication, FindsTheUsersThousandsSeparator)
{
    EXPECT_EQ(UserSetting(LOCALE_STHOUSAND), earlyBird.thousandsSep);
}

TEST(Deployment, TheLibraryStandsBesideTheProgram)
{
    EXPECT_STRCASEEQ(
        ustring::WideCharToMultiByte(support::ModuleFolder(), CP_UTF8, 0).c_str(),
        ustring::WideCharToMultiByte(ustring(FolderOf(::GetModuleHandleW(L"vantor.dll"))), CP_UTF8, 0).c_str());
}

TEST(Deployment, TheCompilersRuntimeStandsBesideTheLibrary)
{
    const wchar_t* const names[] = {
        L"libstdc++-6.dll", sizeof(void*) == 8 ? L"libgcc_s_seh-1.dll" : L"libgcc_s_dw2-1.dll", L"libwinpthread-1.dll"};
    for (const wchar_t* name : names)
    {
        const HMODULE module = ::GetModuleHandleW(name);
        ASSERT_NE(nullptr, module) << ustring::WideCharToMultiByte(ustring(name), CP_UTF8, 0) << " is not loaded";
        EXPECT_EQ(FolderOf(::GetModuleHandleW(L"vantor.dll")), FolderOf(module));
    }
}
