#include "../platform/Module.h"
#include "Copies.h"

#include "../../res/resource.h"

#include <vantor/Exceptions.h>

#include <iterator>

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
try
{
    return out.xload(LibraryModule(), IDS_SOURCE_MATRIX);
}
catch (...)   // a text getter never throws
{
    return false;
}

bool CMatrixException::GetErrorMessage(ustring& out) const
try
{
    static constexpr unsigned int texts[] = {IDS_MATRIX_SUCCESS, IDS_MATRIX_INVALID_DIMENSION,
                                             IDS_MATRIX_INCOMPATIBLE_DIMENSION, IDS_MATRIX_INVALID_INDEX,
                                             IDS_MATRIX_DIVISION_BY_ZERO};
    if (m_kind < NoError || m_kind > DivisionByZero)
        return false;
    return out.xload(LibraryModule(), texts[m_kind]);
}
catch (...)   // a text getter never throws
{
    return false;
}
}   // namespace vantor
