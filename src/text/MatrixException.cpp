#include "../i18n/LibraryTexts.h"
#include "Copies.h"

#include "../../res/resource.h"

#include <vantor/Exceptions.h>

namespace vantor
{
CMatrixException::CMatrixException(unsigned int line, const wchar_t* fileName, const wchar_t* function, EException kind)
    : CStdException(line, fileName, function), m_kind(kind)
{
}

CSmartPtr<CStdException> CMatrixException::Clone()
{
    return CloneOf(*this);
}

void CMatrixException::Throw() const
{
    ThrowCopyOf(this);
}

bool CMatrixException::GetSource(ustring& out) const
{
    return LoadLibraryText(IDS_SOURCE_MATRIX, out);
}

bool CMatrixException::GetErrorMessage(ustring& out) const
{
    static constexpr unsigned int texts[] = {IDS_MATRIX_SUCCESS, IDS_MATRIX_INVALID_DIMENSION,
                                             IDS_MATRIX_INCOMPATIBLE_DIMENSION, IDS_MATRIX_INVALID_INDEX,
                                             IDS_MATRIX_DIVISION_BY_ZERO};
    if (m_kind < NoError || m_kind > DivisionByZero)
        return false;
    return LoadLibraryText(texts[m_kind], out);
}
}   // namespace vantor
