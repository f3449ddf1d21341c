// "Win32Errors.txt" beside the library: texts for error codes that the system has none for.

#ifndef VANTOR_SRC_ERRORTEXTFILE_H
#define VANTOR_SRC_ERRORTEXTFILE_H

#include <vantor/Strings.h>

namespace vantor
{
// Scans the file from its start up to the first line with the code. False, and `text` stays as it was, if there is none
// or the file cannot be read; a missing file is no error.
bool FindErrorText(unsigned long code, ustring& text);
}   // namespace vantor

#endif
