// The one door to the platform's headers. Includes Winsock 2 before <windows.h>, as both demand, and takes back the
// five macros that would rename public functions of this library.

#ifndef VANTOR_PLATFORM_H
#define VANTOR_PLATFORM_H

#include <winsock2.h>

#include <windows.h>   // second: it brings an older Winsock otherwise

#undef RegCreateKey
#undef RegGetValue
#undef GetProfileInt
#undef GetProfileString
#undef WriteProfileString

#include <vantor/Export.h>

#endif
