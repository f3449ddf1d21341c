// Texts on their way to the user where nothing may throw: a translator that fails leaves them as they are.

#ifndef VANTOR_SRC_LIBRARYTEXTS_H
#define VANTOR_SRC_LIBRARYTEXTS_H

#include <vantor/Strings.h>

namespace vantor
{
void Translate(ustring& text) noexcept;
void TranslateWindow(HWND window) noexcept;   // and all its descendants

// An entry of the library's own string table, translated. False if there is none.
bool LoadLibraryText(unsigned int id, ustring& text) noexcept;
}   // namespace vantor

#endif
