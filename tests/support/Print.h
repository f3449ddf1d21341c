// Shows a ustring in GoogleTest's messages as UTF-8; an unpaired surrogate as U+FFFD.

#ifndef VANTOR_TEST_PRINT_H
#define VANTOR_TEST_PRINT_H

#include <vantor/Strings.h>

#include <ostream>
#include <string>

namespace vantor
{
inline void PrintTo(const ustring& text, std::ostream* out)
{
    const int units = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    if (units != 0)
    {
        const int length = ::WideCharToMultiByte(CP_UTF8, 0, text.c_str(), units, &bytes[0],
                                                 static_cast<int>(bytes.size()), nullptr, nullptr);
        bytes.resize(static_cast<std::size_t>(length));
    }
    *out << '"' << bytes << '"';
}
}   // namespace vantor

#endif
