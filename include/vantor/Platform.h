// The one door to the platform's headers. Includes Winsock 2 before <windows.h>, as both demand, and takes back the
// five macros that would rename public functions of this library. A program that includes <windows.h> by itself may do so
// before or after; if that brought the older Winsock, it stays the program's choice: this library's headers name nothing
// but what both have.

#ifndef VANTOR_PLATFORM_H
#define VANTOR_PLATFORM_H

#ifndef _WINSOCKAPI_
#include <winsock2.h>
#endif

#include <windows.h>   // second: it brings an older Winsock otherwise

#undef RegCreateKey
#undef RegGetValue
#undef GetProfileInt
#undef GetProfileString
#undef WriteProfileString

#include <vantor/Export.h>

#endif
