// COM for a scope.
//
//     const CCOMInitializer com(true);
//     ::CoCreateInstance(...);

#ifndef VANTOR_COM_H
#define VANTOR_COM_H

#include <vantor/Platform.h>

namespace vantor
{
// Initialises COM for the thread that makes it, as a member of the multi-threaded apartment, until the end of its
// scope. Scopes may be nested. A thread that lives in another apartment already is a failure: with throwOnError it
// throws CWinException with the HRESULT as its code, without it the object does nothing.
class VANTOR_API CCOMInitializer
{
public:
    explicit CCOMInitializer(bool throwOnError);
    CCOMInitializer(const CCOMInitializer&) = delete;
    CCOMInitializer& operator=(const CCOMInitializer&) = delete;
    virtual ~CCOMInitializer();   // the only virtual operation

private:
    bool m_bInitialized;
};
}   // namespace vantor

#endif
