// A folder of the test's own, removed with everything in it at the end of the scope; and files as bytes, by calls that
// are not the library's.

#ifndef VANTOR_TEST_TEMPFOLDER_H
#define VANTOR_TEST_TEMPFOLDER_H

#include <vantor/Strings.h>

#include <string>

namespace support
{
class CTempFolder
{
public:
    CTempFolder();
    CTempFolder(const CTempFolder&) = delete;
    CTempFolder& operator=(const CTempFolder&) = delete;
    ~CTempFolder();

    const vantor::ustring& Path() const { return m_path; }   // without a trailing backslash
    vantor::ustring File(const wchar_t* name) const;         // full path of a file in it; makes nothing
    vantor::ustring Write(const wchar_t* name, const std::string& bytes) const;   // makes the file, returns its path

private:
    vantor::ustring m_path;
};

std::string ReadBytes(const wchar_t* path);                       // fails the test if it cannot
void WriteBytes(const wchar_t* path, const std::string& bytes);   // fails the test if it cannot
std::string Utf16(const std::wstring& text);                      // the text's bytes, little-endian, without a mark
vantor::ustring ModuleFolder();   // of the running test program, without a trailing backslash
}   // namespace support

#endif
