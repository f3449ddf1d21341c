// Failures: what an exception knows, how it is kept and thrown again, and what a receiver's error reply means.

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

// Catches whatever goes wrong and hands it out: on a worker thread nobody would be there to see it.
CSmartPtr<CStdException> ReadTrace(const wchar_t* path)
{
    try
    {
        CFile trace(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        return CSmartPtr<CStdException>();
    }
    catch (CStdException& e)
    {
        return e.Clone();
    }
}

void PrintPlace(const CStdException::CExInfo& info)
{
    Print(info.GetSource() + L", " + info.GetFunction() + L" in " + info.GetFileName() + L", line " +
          ustring::ui64toa(info.GetLine()));
}
}   // namespace

int main()
{
    const CSmartPtr<CStdException> failure = ReadTrace(L"no such trace.csv");
    try
    {
        if (failure)
            failure->Throw();   // as the type that it was, from the place that it came from
    }
    catch (const CWinException& e)
    {
        PrintPlace(e);
        if (e.GetErrorCode() == ERROR_FILE_NOT_FOUND)
            Print(L"there is no such file");
    }

    const CCommException reply(0, nullptr, nullptr, L"{2,,file system not mounted}", L"receiver");
    const CStdException::CExInfo info(reply);
    Print(info.GetSource() + L" sends " + info.GetErrorMessage());
    Print(info.GetSource() + L" means " + info.GetErrorMessageUI());
}
