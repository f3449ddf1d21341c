#include <vantor/Strings.h>

namespace vantor
{
ustring ustring::MultiByteToWideChar(const char* text, unsigned int length, unsigned int codePage, unsigned long flags)
{
    ustring result;
    const int source = static_cast<int>(length);
    const int size = ::MultiByteToWideChar(codePage, flags, text, source, nullptr, 0);
    if (size < 1)
        return result;

    result.resize(static_cast<size_type>(size));
    if (::MultiByteToWideChar(codePage, flags, text, source, result.data(), size) < 1)
        result.clear();
    else if (source < 0)
        result.pop_back();   // the terminator
    return result;
}

ustring ustring::MultiByteToWideChar(const std::string& text, unsigned int codePage, unsigned long flags)
{
    return MultiByteToWideChar(text.c_str(), static_cast<unsigned int>(text.size()), codePage, flags);
}

std::string ustring::WideCharToMultiByte(const wchar_t* text, unsigned int length, unsigned int codePage,
                                         unsigned long flags)
{
    std::string result;
    const int source = static_cast<int>(length);
    const int size = ::WideCharToMultiByte(codePage, flags, text, source, nullptr, 0, nullptr, nullptr);
    if (size < 1)
        return result;

    result.resize(static_cast<size_type>(size));
    if (::WideCharToMultiByte(codePage, flags, text, source, result.data(), size, nullptr, nullptr) < 1)
        result.clear();
    else if (source < 0)
        result.pop_back();   // the terminator
    return result;
}

std::string ustring::WideCharToMultiByte(const ustring& text, unsigned int codePage, unsigned long flags)
{
    return WideCharToMultiByte(text.c_str(), static_cast<unsigned int>(text.size()), codePage, flags);
}
}   // namespace vantor
