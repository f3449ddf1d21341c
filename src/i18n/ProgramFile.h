// The language files that belong to the running program.

#ifndef VANTOR_SRC_PROGRAMFILE_H
#define VANTOR_SRC_PROGRAMFILE_H

#include <vantor/Translator.h>

namespace vantor
{
// Loads a file of the program's folder; a null name is the program's own. What goes wrong is dropped: no such file
// leaves the table as it is, a damaged one leaves it empty.
void LoadProgramFile(CLanguageFile& table, const wchar_t* name, const wchar_t* ext) noexcept;
}   // namespace vantor

#endif
