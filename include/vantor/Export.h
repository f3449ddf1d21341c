// VANTOR_API marks what vantor.dll exports: whole classes where a virtual table or type information must cross the
// border of the DLL, single members where a class derives from a standard container (exporting such a class whole
// would make some compilers export the container's members too, and collide with the application's own copies).

#ifndef VANTOR_EXPORT_H
#define VANTOR_EXPORT_H

#ifdef VANTOR_BUILDING
#define VANTOR_API __declspec(dllexport)
#else
#define VANTOR_API __declspec(dllimport)
#endif

#endif
