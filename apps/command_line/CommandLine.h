// What the programs' main functions have in common.

#ifndef VANTOR_APPS_COMMANDLINE_H
#define VANTOR_APPS_COMMANDLINE_H

#include <vantor/vantor.h>

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace command_line
{
// Options and words of wmain, as UTF-8. 0, or the exit code after help (negative) or a usage error (2), of which the
// user has been told.
inline int Parse(CLI::App& app, int count, wchar_t** arguments)
{
    std::vector<std::string> rest;   // the parser takes them from the back
    for (int i = count - 1; i > 0; --i)
        rest.push_back(vantor::ustring::WideCharToMultiByte(arguments[i], CP_UTF8, 0));
    try
    {
        app.parse(rest);
        return 0;
    }
    catch (const CLI::ParseError& e)
    {
        return app.exit(e) == 0 ? -1 : 2;
    }
}
}   // namespace command_line

#endif
