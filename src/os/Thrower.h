// The one helper for failures of the operating system:
//
//     constexpr CThrower Fail{L".\\File"};
//
//     if (!::DeleteFileW(path))
//         Fail(124, L"DeleteFile");
//
// The first number names the place and never changes. The error code is read where the call stands: code that must be
// read before anything else happens goes into a local first.

#ifndef VANTOR_SRC_THROWER_H
#define VANTOR_SRC_THROWER_H

#include <vantor/Exceptions.h>

namespace vantor
{
struct CThrower
{
    const wchar_t* fileName;

    [[noreturn]] void operator()(unsigned int line, const wchar_t* function,
                                 unsigned long error = ::GetLastError()) const
    {
        throw CWinException(line, fileName, function, error);
    }
};
}   // namespace vantor

#endif
