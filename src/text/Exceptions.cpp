#include "../i18n/LibraryTexts.h"
#include "../ui/ErrorDialogs.h"

#include <vantor/Exceptions.h>
#include <vantor/File.h>

namespace vantor
{
ustring CStdException::m_strAppName;

CStdException::CStdException(unsigned int line, const wchar_t* fileName, const wchar_t* function)
    : m_line(line), m_fileName(fileName), m_function(function)
{
}

CStdException::~CStdException() = default;

bool CStdException::GetErrorMessageUI(ustring& out) const
{
    return GetErrorMessage(out);
}

int CStdException::ReportError(HWND parent, unsigned int type, const wchar_t* text, unsigned int number) const
{
    return ReportError(CExInfo(*this), parent, type, text, number);
}

int CStdException::ReportError(const CExInfo& info, HWND parent, unsigned int type, const wchar_t* text,
                               unsigned int number)
{
    CReport report;
    report.message = info.GetErrorMessageUI();
    Translate(report.message);
    report.title = GetAppName();
    report.source = info.GetSource();
    report.fileName = info.GetFileName();
    report.function = info.GetFunction();
    report.line = info.GetLine();
    report.type = type;
    report.text = text;
    report.number = number;
    return CErrorReportDlg(parent, report).DoModal();
}

void CStdException::SetAppName(const wchar_t* name)
{
    m_strAppName = name;
}

ustring CStdException::GetAppName()
{
    if (!m_strAppName.empty())
        return m_strAppName;

    ustring name;
    try
    {
        CFile::GetModuleFileNameW(nullptr, name, false);
    }
    catch (const CWinException&)
    {
        name.clear();
    }
    return name;
}

CStdException::CExInfo::CExInfo(const CStdException& e)
    : m_line(e.GetLine()), m_fileName(e.GetFileName()), m_function(e.GetFunction())
{
    e.GetSource(m_source);
    e.GetErrorMessage(m_errorMessage);
    e.GetErrorMessageUI(m_errorMessageUI);
}

void CStdException::CExInfo::Clear()
{
    *this = CExInfo();
}
}   // namespace vantor
