// What the program does to language files and modules, apart from the command line.

#ifndef LNG_TEXTS_H
#define LNG_TEXTS_H

#include <vantor/Translator.h>

namespace lng
{
// Texts by the kind of resource that they were first met in.
struct Counts
{
    std::size_t strings = 0;
    std::size_t dialogs = 0;
    std::size_t menus = 0;
};

// Adds all texts of a module to the table, each as its own translation; one that is there already keeps its
// translation. The empty text is left out: a translation for it would appear on every empty label. Throws CWinException
// if the module cannot be loaded.
Counts Gather(const vantor::ustring& modulePath, vantor::CLanguageFile& table);

// A table from a file that has to be there. Throws CWinException.
vantor::CLanguageFile Load(const vantor::ustring& path);

// Writes the table to a file. The file is complete or, when this throws CWinException, as it was before.
void Save(vantor::CLanguageFile& table, const vantor::ustring& path);

// The texts that do not survive being written to a file and read again: carriage returns, and line breaks between
// brackets.
std::vector<vantor::ustring> NotStorable(const vantor::CLanguageFile& table);

struct Statistics
{
    std::size_t entries = 0;
    std::size_t translated = 0;     // the translation differs from the text
    std::size_t untranslated = 0;   // it is the same
    std::size_t empty = 0;          // there is none
    std::size_t characters = 0;     // of all texts
    std::size_t longest = 0;        // characters of the longest text
    std::vector<vantor::ustring>
        brokenPlaceholders;   // texts whose translation has other placeholders, or another order
};

Statistics Count(const vantor::CLanguageFile& table);
}   // namespace lng

#endif
