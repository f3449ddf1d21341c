// What CIniFile is to do, the slow way: a file is a text of bytes, every operation cuts all of it into lines, and each
// rule is a loop of its own.

#ifndef VANTOR_TEST_INIMODEL_H
#define VANTOR_TEST_INIMODEL_H

#include <string>
#include <vector>

namespace settings_test
{
struct CClassified
{
    bool header;
    std::wstring name;
    std::wstring value;
};

CClassified Classify(const std::wstring& line);

// Valid UTF-8 only.
std::wstring FromUtf8(const std::string& bytes);
std::string ToUtf8(const std::wstring& text);

// One object; several may stand on one disk.
class CIniModel
{
public:
    explicit CIniModel(std::string& disk) : m_disk(disk) {}

    std::vector<std::wstring> EnumSections();
    std::vector<std::wstring> EnumEntries(const std::wstring& section);
    std::wstring GetString(const std::wstring& section, const std::wstring& key, const std::wstring& defaultValue);
    int GetInt(const std::wstring& section, const std::wstring& key, int defaultValue);
    void WriteString(const std::wstring& section, const std::wstring& key, const std::wstring& value);
    void WriteInt(const std::wstring& section, const std::wstring& key, int value);
    bool DeleteSection(const std::wstring& section);
    bool DeleteEntry(const std::wstring& section, const std::wstring& key);
    void Load();
    void Save();

private:
    std::string& m_disk;
    bool m_unicode = false;
    std::vector<std::wstring> m_lines;
};
}   // namespace settings_test

#endif
