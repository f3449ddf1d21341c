// Where the fields of the exported classes stand: applications and the library must agree on it, whichever of them was
// built last.

#include <vantor/vantor.h>

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using namespace vantor;

namespace
{
const unsigned char* Bytes(const void* object)
{
    return static_cast<const unsigned char*>(object);
}

template <class T>
T At(const void* object, std::size_t offset)
{
    T value;
    std::memcpy(&value, Bytes(object) + offset, sizeof value);
    return value;
}

const std::wstring& TextAt(const void* object, std::size_t offset)
{
    return *reinterpret_cast<const std::wstring*>(Bytes(object) + offset);
}

constexpr std::size_t Pointer = sizeof(void*);
constexpr std::size_t Text = sizeof(std::wstring);
// Of the exceptions: behind the pointer to the virtual table a number of 32 bits, padded to a pointer, then the texts.
constexpr std::size_t Line = Pointer;
constexpr std::size_t FileName = 2 * Pointer;
constexpr std::size_t Function = FileName + Text;
constexpr std::size_t OwnFields = Function + Text;

CWinException Win()
{
    return CWinException(11, L".\\File", L"Function", 22);
}

CCommException Comm()
{
    return CCommException(11, L".\\File", L"Function", L"message", L"source");
}

// Holds no handle of the system: what it is given is a number.
class CNumbered : public CHandle
{
public:
    CNumbered() : CHandle(reinterpret_cast<void*>(0x11)) {}
};
}   // namespace

TEST(UstringLayout, AddsNothingToTheStandardString)
{
    EXPECT_EQ(sizeof(std::wstring), sizeof(ustring));
}

TEST(UstringLayout, HasNoVirtualTable)
{
    EXPECT_FALSE(std::is_polymorphic_v<ustring>);
}

TEST(HandleLayout, HasTheEmptyValueAndTheHandle)
{
    EXPECT_EQ(3 * Pointer, sizeof(CHandle));
}

TEST(HandleLayout, TheEmptyValueComesFirst)
{
    const CNumbered handle;
    EXPECT_EQ(reinterpret_cast<void*>(0x11), At<void*>(&handle, Pointer));
}

TEST(HandleLayout, TheHandleComesSecond)
{
    CNumbered handle;
    handle.Attach(reinterpret_cast<void*>(0x22));
    EXPECT_EQ(reinterpret_cast<void*>(0x22), At<void*>(&handle, 2 * Pointer));
    handle.Detach();
}

TEST(HandleLayout, EventAddsNoField)
{
    EXPECT_EQ(sizeof(CHandle), sizeof(CEvent));
}

TEST(HandleLayout, MutexAddsNoField)
{
    EXPECT_EQ(sizeof(CHandle), sizeof(CMutex));
}

TEST(HandleLayout, WSAEventAddsNoField)
{
    EXPECT_EQ(sizeof(CHandle), sizeof(CWSAEvent));
}

TEST(HandleLayout, FileAddsNoField)
{
    EXPECT_EQ(sizeof(CHandle), sizeof(CFile));
}

TEST(CriticalSectionLayout, AddsTheSystemsRecordAlone)
{
    EXPECT_EQ(sizeof(CHandle) + sizeof(CRITICAL_SECTION), sizeof(CCriticalSection));
}

TEST(CriticalSectionLayout, TheRecordStandsBehindTheHandlesFields)
{
    CCriticalSection section;
    section.Lock(true);
    EXPECT_EQ(1, At<CRITICAL_SECTION>(&section, sizeof(CHandle)).RecursionCount);
    section.Unlock();
}

TEST(OverlappedLayout, TheRecordStandsBehindThePointerToTheVirtualTable)
{
    const COverlapped overlapped;
    EXPECT_EQ(Bytes(&overlapped) + Pointer, Bytes(static_cast<const OVERLAPPED*>(&overlapped)));
}

TEST(OverlappedLayout, TheEventStandsBehindTheRecord)
{
    const COverlapped overlapped;
    EXPECT_EQ(overlapped.hEvent, At<HANDLE>(&overlapped, Pointer + sizeof(OVERLAPPED) + 2 * Pointer));
}

TEST(OverlappedLayout, HasNothingButRecordAndEvent)
{
    EXPECT_EQ(Pointer + sizeof(OVERLAPPED) + sizeof(CEvent), sizeof(COverlapped));
}

TEST(OverlappedLayout, WSAOverlapped_TheRecordStandsBehindThePointerToTheVirtualTable)
{
    const CWSAOverlapped overlapped;
    EXPECT_EQ(Bytes(&overlapped) + Pointer, Bytes(static_cast<const OVERLAPPED*>(&overlapped)));
}

TEST(OverlappedLayout, WSAOverlapped_HasNothingButRecordAndEvent)
{
    EXPECT_EQ(Pointer + sizeof(OVERLAPPED) + sizeof(CWSAEvent), sizeof(CWSAOverlapped));
}

TEST(ExceptionLayout, TheLineComesFirst)
{
    const CWinException e = Win();
    EXPECT_EQ(11u, At<unsigned int>(&e, Line));
}

TEST(ExceptionLayout, TheFileNameComesSecond)
{
    const CWinException e = Win();
    EXPECT_EQ(L".\\File", TextAt(&e, FileName));
}

TEST(ExceptionLayout, TheFunctionComesThird)
{
    const CWinException e = Win();
    EXPECT_EQ(L"Function", TextAt(&e, Function));
}

TEST(ExceptionLayout, WinException_TheErrorCodeFollows)
{
    const CWinException e = Win();
    EXPECT_EQ(22u, At<unsigned long>(&e, OwnFields));
}

TEST(ExceptionLayout, CommException_TheMessageFollows)
{
    const CCommException e = Comm();
    EXPECT_EQ(L"message", TextAt(&e, OwnFields));
}

TEST(ExceptionLayout, CommException_TheSourceFollowsTheMessage)
{
    const CCommException e = Comm();
    EXPECT_EQ(L"source", TextAt(&e, OwnFields + Text));
}

TEST(ExceptionLayout, MatrixException_TheKindFollows)
{
    const CMatrixException e(11, L".\\Matrix", L"Function", CMatrixException::InvalidIndex);
    EXPECT_EQ(3, At<int>(&e, OwnFields));
}

TEST(ExceptionLayout, TheSnapshotHasTheLineFirst)
{
    const CStdException::CExInfo info{Win()};
    EXPECT_EQ(11u, At<unsigned int>(&info, 0));
}

TEST(ExceptionLayout, TheSnapshotHasItsTextsInOrder)
{
    const CStdException::CExInfo info{Comm()};
    const wchar_t* const texts[] = {L".\\File", L"Function", L"source", L"message", L"message"};
    for (std::size_t i = 0; i < std::size(texts); ++i)
        EXPECT_EQ(texts[i], TextAt(&info, Pointer + i * Text)) << "text " << i;
}

TEST(ExceptionLayout, TheSnapshotIsNotPolymorphic)
{
    EXPECT_FALSE(std::is_polymorphic_v<CStdException::CExInfo>);
}

TEST(SmartPtrLayout, HasOnePointerBehindThatToTheVirtualTable)
{
    EXPECT_EQ(2 * Pointer, sizeof(CSmartPtr<CStdException>));
}

TEST(SmartPtrLayout, TheBlockHasTheObjectFirst)
{
    const CSmartPtr<CStdException> pointer = Win().Clone();
    const void* const block = At<void*>(&pointer, Pointer);
    EXPECT_EQ(pointer.get(), At<CStdException*>(block, 0));
}

TEST(SmartPtrLayout, TheBlockHasTheCountSecond)
{
    const CSmartPtr<CStdException> pointer = Win().Clone(), second(pointer), third(pointer);
    const void* const block = At<void*>(&pointer, Pointer);
    EXPECT_EQ(3, At<LONG>(block, Pointer));
}

TEST(ReplyTableLayout, HasThirtyFiveRows)
{
    EXPECT_EQ(35u, std::extent_v<decltype(CCommException::m_aINT2UI)>);
}

TEST(ReplyTableLayout, ARowIsTwoPointers)
{
    EXPECT_EQ(2 * Pointer, sizeof(CCommException::INT2UI));
}

TEST(MatrixKinds, AreNumberedFromZero)
{
    EXPECT_EQ(0, CMatrixException::NoError);
    EXPECT_EQ(1, CMatrixException::InvalidDimension);
    EXPECT_EQ(2, CMatrixException::IncompatibleDimension);
    EXPECT_EQ(3, CMatrixException::InvalidIndex);
    EXPECT_EQ(4, CMatrixException::DivisionByZero);
}

TEST(TranslatorModes, AreNumberedFromZero)
{
    EXPECT_EQ(0, CTranslator::eGather);
    EXPECT_EQ(1, CTranslator::eTranslate);
}

TEST(LibraryLayout, HasTheModuleBehindTheVirtualTable)
{
    const CLibrary library(L"kernel32.dll");
    EXPECT_EQ(2 * Pointer, sizeof library);
    EXPECT_EQ(::GetModuleHandleW(L"kernel32.dll"), At<HMODULE>(&library, Pointer));
}

TEST(ComInitializerLayout, HasTheFlagBehindTheVirtualTable)
{
    const CCOMInitializer com(true);
    EXPECT_EQ(2 * Pointer, sizeof com);
    EXPECT_TRUE(At<bool>(&com, Pointer));
}

TEST(ContextHelpLayout, HasTheMapBehindTheVirtualTable)
{
    const CContextHelp help;
    EXPECT_EQ(Pointer + sizeof(CLanguageFile), sizeof help);
    EXPECT_EQ(Bytes(&help) + Pointer, Bytes(&help.m_langFile));
}

template <class T>
class ScopeClass : public ::testing::Test
{
};
using ScopeClasses = ::testing::Types<CCOMInitializer, CLibrary>;
TYPED_TEST_SUITE(ScopeClass, ScopeClasses);

TYPED_TEST(ScopeClass, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<TypeParam>);
    EXPECT_FALSE(std::is_copy_assignable_v<TypeParam>);
}

template <class T>
class OwningClass : public ::testing::Test
{
};
using OwningClasses =
    ::testing::Types<CHandle, CEvent, CMutex, CCriticalSection, CWSAEvent, COverlapped, CWSAOverlapped, CFile>;
TYPED_TEST_SUITE(OwningClass, OwningClasses);

TYPED_TEST(OwningClass, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<TypeParam>);
}

TYPED_TEST(OwningClass, CannotBeAssigned)
{
    EXPECT_FALSE(std::is_copy_assignable_v<TypeParam>);
}

TYPED_TEST(OwningClass, MayThrowFromItsDestructor)
{
    EXPECT_FALSE(std::is_nothrow_destructible_v<TypeParam>);
}

TYPED_TEST(OwningClass, HasAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
}

template <class T>
class ValueClass : public ::testing::Test
{
};
using ValueClasses = ::testing::Types<ustring, CLocale, CWinException, CCommException, CMatrixException,
                                      CStdException::CExInfo, CSmartPtr<CStdException>>;
TYPED_TEST_SUITE(ValueClass, ValueClasses);

TYPED_TEST(ValueClass, CanBeCopied)
{
    EXPECT_TRUE(std::is_copy_constructible_v<TypeParam>);
}

TYPED_TEST(ValueClass, CanBeAssigned)
{
    EXPECT_TRUE(std::is_copy_assignable_v<TypeParam>);
}
