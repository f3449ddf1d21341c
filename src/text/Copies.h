// What every concrete exception class does to clone and to throw itself.

#ifndef VANTOR_SRC_COPIES_H
#define VANTOR_SRC_COPIES_H

#include <vantor/Exceptions.h>

#include <new>

namespace vantor
{
template <class Exception>
CSmartPtr<CStdException> CloneOf(const Exception& e)
{
    return CSmartPtr<CStdException>(new (std::nothrow) Exception(e));
}

// A null pointer is answered with silence. Callers pass `this`, so their files are built with
// -fno-delete-null-pointer-checks: the optimiser would take the test away.
template <class Exception>
void ThrowCopyOf(const Exception* e)
{
    if (e)
        throw Exception(*e);
}
}   // namespace vantor

#endif
