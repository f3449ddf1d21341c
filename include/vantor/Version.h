// The library's version: read by the compiler, the resource compiler and CMake alike.

#ifndef VANTOR_VERSION_H
#define VANTOR_VERSION_H

#define VANTOR_VERSION_MAJOR 0
#define VANTOR_VERSION_MINOR 1
#define VANTOR_VERSION_PATCH 0

#endif
