// Pseudo-translation: text that a developer can still read, and in which everything that is not translated, too short
// for its place or shown in a wrong font is seen at a glance.

#ifndef LNG_PSEUDO_H
#define LNG_PSEUDO_H

#include <vantor/Strings.h>

namespace lng
{
// Accents on the letters, brackets around the text, and filling so that it is 40 % longer (rounded up, the brackets
// included). Kept as they are: placeholders ("%5.2f", "%1!s!", "%%", "{0}"), the accelerator behind an "&", line
// breaks, blanks at both ends, and what follows a tab, a menu's short cut. A text without a letter has nothing to
// translate and stays as it is.
vantor::ustring Pseudo(const vantor::ustring& text);

// The length of the placeholder that begins at `pos`, 0 if none does.
std::size_t PlaceholderAt(const vantor::ustring& text, std::size_t pos);

// A text's placeholders in order, each as it stands there.
std::vector<vantor::ustring> Placeholders(const vantor::ustring& text);
}   // namespace lng

#endif
