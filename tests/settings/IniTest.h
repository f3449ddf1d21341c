// An INI file in a folder of its own, as CIniFile shows it and as bytes on disk.

#ifndef VANTOR_TEST_INITEST_H
#define VANTOR_TEST_INITEST_H

#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/IniFile.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace settings_test
{
using Texts = std::vector<vantor::ustring>;

inline Texts Sections(vantor::CIniFile& ini)
{
    Texts sections;
    ini.EnumSections(sections);
    return sections;
}

inline Texts Entries(vantor::CIniFile& ini, const wchar_t* section)
{
    Texts keys;
    ini.EnumEntries(section, keys);
    return keys;
}

inline std::string MarkedUtf16(const std::wstring& text)
{
    return "\xFF\xFE" + support::Utf16(text);
}

class IniTest : public ::testing::Test
{
protected:
    // Another one on the same file may be opened beside it.
    vantor::CIniFile& Open(const std::string& bytes)
    {
        SetBytes(bytes);
        return OpenAsItIs();
    }

    vantor::CIniFile& OpenAsItIs()
    {
        m_objects.push_back(std::make_unique<vantor::CIniFile>(m_path.c_str()));
        return *m_objects.back();
    }

    void Close() { m_objects.clear(); }

    std::string Bytes() const { return support::ReadBytes(m_path.c_str()); }

    // As another program does it.
    void SetBytes(const std::string& bytes) const { support::WriteBytes(m_path.c_str(), bytes); }

    support::CTempFolder m_folder;
    const vantor::ustring m_path = m_folder.File(L"a.ini");

private:
    std::vector<std::unique_ptr<vantor::CIniFile>> m_objects;   // gone before the folder
};
}   // namespace settings_test

#endif
