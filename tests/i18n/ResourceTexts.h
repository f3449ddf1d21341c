// The texts in a module's resources, read off the bytes: what a program that gathers them has to find.

#ifndef VANTOR_TEST_RESOURCETEXTS_H
#define VANTOR_TEST_RESOURCETEXTS_H

#include <vantor/Platform.h>

#include <set>
#include <string>

struct CResourceTexts
{
    explicit CResourceTexts(HINSTANCE module);

    std::set<std::wstring> strings;   // the first 255 characters of each
    std::set<std::wstring> dialogs;   // captions and control texts of dialogs whose window classes all exist
    std::set<std::wstring> menus;     // items, but no separators, owner-drawn ones, and ones that start a column
    unsigned foreignDialogs = 0;      // left out, since they name a class that does not exist
};

#endif
