#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Exceptions.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
HINSTANCE g_module;
UINT g_id;

int WINAPI RecordingLoadString(HINSTANCE module, UINT id, LPWSTR buffer, int size)
{
    g_module = module;
    g_id = id;
    return ::LoadStringW(module, id, buffer, size);
}

int WINAPI NoString(HINSTANCE, UINT, LPWSTR, int)
{
    ::SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return 0;
}

HANDLE WINAPI NoMutex(LPSECURITY_ATTRIBUTES, BOOL, LPCWSTR)
{
    ::SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    return nullptr;
}

CMatrixException Kind(CMatrixException::EException kind)
{
    return CMatrixException(7, L".\\Matrix", L"invert", kind);
}

ustring Message(const CStdException& e)
{
    ustring text(L"old");
    EXPECT_TRUE(e.GetErrorMessage(text));
    return text;
}

UINT MessageId(CMatrixException::EException kind)
{
    const support::CImportPatch patch(&::LoadStringW, &RecordingLoadString);
    Message(Kind(kind));
    EXPECT_EQ(::GetModuleHandleW(L"vantor.dll"), g_module);
    return g_id;
}
}   // namespace

TEST(MatrixException, Kinds_HaveTheirNumbers)
{
    EXPECT_EQ(0, static_cast<int>(CMatrixException::NoError));
    EXPECT_EQ(1, static_cast<int>(CMatrixException::InvalidDimension));
    EXPECT_EQ(2, static_cast<int>(CMatrixException::IncompatibleDimension));
    EXPECT_EQ(3, static_cast<int>(CMatrixException::InvalidIndex));
    EXPECT_EQ(4, static_cast<int>(CMatrixException::DivisionByZero));
}

TEST(MatrixException, Construct_KeepsTheRootsFields)
{
    const CMatrixException e = Kind(CMatrixException::InvalidIndex);
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\Matrix"), e.GetFileName());
    EXPECT_EQ(ustring(L"invert"), e.GetFunction());
}

TEST(MatrixException, Copy_KeepsAllFields)
{
    const CMatrixException e = Kind(CMatrixException::InvalidIndex);
    const CMatrixException copy(e);
    EXPECT_EQ(7u, copy.GetLine());
    EXPECT_EQ(ustring(L".\\Matrix"), copy.GetFileName());
    EXPECT_EQ(ustring(L"invert"), copy.GetFunction());
    EXPECT_EQ(ustring(L"Invalid Index"), Message(copy));
}

TEST(MatrixException, Assign_ReplacesAllFields)
{
    CMatrixException e(1, L"a", L"b", CMatrixException::NoError);
    e = Kind(CMatrixException::InvalidIndex);
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\Matrix"), e.GetFileName());
    EXPECT_EQ(ustring(L"invert"), e.GetFunction());
    EXPECT_EQ(ustring(L"Invalid Index"), Message(e));
}

TEST(MatrixException, GetErrorMessage_OfNoError)
{
    EXPECT_EQ(ustring(L"Success"), Message(Kind(CMatrixException::NoError)));
    EXPECT_EQ(105u, MessageId(CMatrixException::NoError));
}

TEST(MatrixException, GetErrorMessage_OfInvalidDimension)
{
    EXPECT_EQ(ustring(L"Invalid Matrix Dimension"), Message(Kind(CMatrixException::InvalidDimension)));
    EXPECT_EQ(113u, MessageId(CMatrixException::InvalidDimension));
}

TEST(MatrixException, GetErrorMessage_OfIncompatibleDimension)
{
    EXPECT_EQ(ustring(L"Incompatible Matrix Dimension"), Message(Kind(CMatrixException::IncompatibleDimension)));
    EXPECT_EQ(114u, MessageId(CMatrixException::IncompatibleDimension));
}

TEST(MatrixException, GetErrorMessage_OfInvalidIndex)
{
    EXPECT_EQ(ustring(L"Invalid Index"), Message(Kind(CMatrixException::InvalidIndex)));
    EXPECT_EQ(115u, MessageId(CMatrixException::InvalidIndex));
}

TEST(MatrixException, GetErrorMessage_OfDivisionByZero)
{
    EXPECT_EQ(ustring(L"Division by Zero"), Message(Kind(CMatrixException::DivisionByZero)));
    EXPECT_EQ(116u, MessageId(CMatrixException::DivisionByZero));
}

TEST(MatrixException, GetErrorMessage_IsTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"Division by Zero"] = L"Division durch Null";
    EXPECT_EQ(ustring(L"Division durch Null"), Message(Kind(CMatrixException::DivisionByZero)));
}

TEST(MatrixException, GetErrorMessage_WithoutTheString_IsFalseAndEmpty)
{
    const support::CImportPatch patch(&::LoadStringW, &NoString);
    ustring text(L"old");
    EXPECT_FALSE(Kind(CMatrixException::DivisionByZero).GetErrorMessage(text));
    EXPECT_EQ(ustring(), text);
}

TEST(MatrixException, GetErrorMessage_OfAKindBelowTheFirst_IsFalseAndLeavesTheTextAlone)
{
    ustring text(L"old");
    EXPECT_FALSE(Kind(static_cast<CMatrixException::EException>(-1)).GetErrorMessage(text));
    EXPECT_EQ(ustring(L"old"), text);
}

TEST(MatrixException, GetErrorMessage_OfAKindBehindTheLast_IsFalseAndLeavesTheTextAlone)
{
    ustring text(L"old");
    EXPECT_FALSE(Kind(static_cast<CMatrixException::EException>(5)).GetErrorMessage(text));
    EXPECT_EQ(ustring(L"old"), text);
}

TEST(MatrixException, GetErrorMessage_WithoutATranslator_DoesNotThrow)
{
    const support::CImportPatch patch(&::CreateMutexW, &NoMutex);
    ustring text;
    EXPECT_NO_THROW(Kind(CMatrixException::DivisionByZero).GetErrorMessage(text));
}

TEST(MatrixException, GetErrorMessageUI_IsTheTechnicalMessage)
{
    ustring text;
    EXPECT_TRUE(Kind(CMatrixException::DivisionByZero).GetErrorMessageUI(text));
    EXPECT_EQ(ustring(L"Division by Zero"), text);
}

TEST(MatrixException, GetSource_IsMatrixLibrary)
{
    ustring source(L"old");
    EXPECT_TRUE(Kind(CMatrixException::DivisionByZero).GetSource(source));
    EXPECT_EQ(ustring(L"Matrix Library"), source);
}

TEST(MatrixException, GetSource_LoadsString104OfTheLibrary)
{
    const support::CImportPatch patch(&::LoadStringW, &RecordingLoadString);
    ustring source;
    Kind(CMatrixException::DivisionByZero).GetSource(source);
    EXPECT_EQ(::GetModuleHandleW(L"vantor.dll"), g_module);
    EXPECT_EQ(104u, g_id);
}

TEST(MatrixException, GetSource_IsTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"Matrix Library"] = L"Matrizen";
    ustring source;
    EXPECT_TRUE(Kind(CMatrixException::DivisionByZero).GetSource(source));
    EXPECT_EQ(ustring(L"Matrizen"), source);
}

TEST(MatrixException, GetSource_OfAnUnknownKind_IsMatrixLibrary)
{
    ustring source;
    EXPECT_TRUE(Kind(static_cast<CMatrixException::EException>(5)).GetSource(source));
    EXPECT_EQ(ustring(L"Matrix Library"), source);
}

TEST(MatrixException, GetSource_WithoutTheString_IsFalseAndEmpty)
{
    const support::CImportPatch patch(&::LoadStringW, &NoString);
    ustring source(L"old");
    EXPECT_FALSE(Kind(CMatrixException::DivisionByZero).GetSource(source));
    EXPECT_EQ(ustring(), source);
}

TEST(MatrixException, GetSource_WithoutATranslator_DoesNotThrow)
{
    const support::CImportPatch patch(&::CreateMutexW, &NoMutex);
    ustring source;
    EXPECT_NO_THROW(Kind(CMatrixException::DivisionByZero).GetSource(source));
}

TEST(MatrixException, Snapshot_OfAnUnknownKind_HasTheSourceAndAnEmptyMessage)
{
    const CStdException::CExInfo info(Kind(static_cast<CMatrixException::EException>(5)));
    EXPECT_EQ(ustring(L"Matrix Library"), info.GetSource());
    EXPECT_EQ(ustring(), info.GetErrorMessage());
    EXPECT_EQ(ustring(), info.GetErrorMessageUI());
}
