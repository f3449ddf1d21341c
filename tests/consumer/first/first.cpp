#include <vantor/vantor.h>

#include <cstdio>

using namespace vantor;

int main()
{
    try
    {
        CFile trace(L"C:\\trace.csv", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        std::printf("%ls bytes\n", ustring::ui64toa(trace.GetLength()).c_str());
    }
    catch (const CStdException& e)
    {
        const CStdException::CExInfo info(e);
        std::printf("%ls: %ls", info.GetSource().c_str(), info.GetErrorMessage().c_str());
    }
}
