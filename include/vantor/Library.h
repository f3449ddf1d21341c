// A loaded library for a scope.
//
//     const CLibrary codec(L"\\Windows\\codec.dll");

#ifndef VANTOR_LIBRARY_H
#define VANTOR_LIBRARY_H

#include <vantor/Platform.h>

namespace vantor
{
// Keeps a library loaded; freed with the object. A bare name is searched for as LoadLibraryW does, and may find what a
// stranger put there: give the whole path.
class VANTOR_API CLibrary
{
public:
    // Throws CWinException if the library cannot be loaded.
    explicit CLibrary(const wchar_t* name);
    CLibrary(const CLibrary&) = delete;
    CLibrary& operator=(const CLibrary&) = delete;
    virtual ~CLibrary();   // the only virtual operation

private:
    HINSTANCE m_hModule;
};
}   // namespace vantor

#endif
