// The library's own module.

#ifndef VANTOR_SRC_MODULE_H
#define VANTOR_SRC_MODULE_H

#include <vantor/Platform.h>

namespace vantor
{
// The handle that the loader passed: the library's strings, dialogs, icons and folder are found by it. Set before any
// code of an application runs, but behind the library's own static objects.
HINSTANCE LibraryModule() noexcept;
}   // namespace vantor

#endif
