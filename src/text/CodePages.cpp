#include <vantor/Strings.h>

namespace vantor
{
namespace
{
constexpr unsigned int UpToTerminator = 0xFFFFFFFF;
}

ustring ustring::MultiByteToWideChar(const char* text, unsigned int length, unsigned int codePage, unsigned long flags)
{
    ustring result;
    const int source = static_cast<int>(length);
    const int size = ::MultiByteToWideChar(codePage, flags, text, source, nullptr, 0);
    if (size < 1)
        return result;

    result.resize(static_cast<size_type>(size));
    ::MultiByteToWideChar(codePage, flags, text, source, result.data(), size);
    if (length == UpToTerminator)
        result.pop_back();
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
    ::WideCharToMultiByte(codePage, flags, text, source, result.data(), size, nullptr, nullptr);
    if (length == UpToTerminator)
        result.pop_back();
    return result;
}

std::string ustring::WideCharToMultiByte(const ustring& text, unsigned int codePage, unsigned long flags)
{
    return WideCharToMultiByte(text.c_str(), static_cast<unsigned int>(text.size()), codePage, flags);
}
}   // namespace vantor
