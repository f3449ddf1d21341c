// Settings in an INI file, edited in place: comments, blank lines, the order of everything and lines that mean nothing
// stay as they are.
//
//     CIniFile settings(L"\\Storage\\meter.ini");                             // made if it is missing
//     const int average = settings.GetInt(L"Sweep", L"Average", 16);         // 16 if it is not there
//     settings.WriteString(L"Link", L"Port", L"COM3");                        // in the file when this returns

#ifndef VANTOR_INIFILE_H
#define VANTOR_INIFILE_H

#include <vantor/File.h>

#include <list>
#include <vector>

namespace vantor
{
// Holds the file open, shared for reading and writing, and reads all of it before each operation, so that changes of
// other programs are seen; of two writers the last one wins. One thread at a time.
//
// The format: a line with "[" and a "]" behind it is a section's header, whatever stands around them, and any other is
// an entry "key=value". All from the first ";" on is a comment. Blanks count: "a = 1" has the key "a " and the value
// " 1". A value can have neither "=" nor ";" in it: what stands behind them is not read. Case does not count in names.
// Lines before the first header belong to the section "". Only the first of several sections with one name is looked
// at.
//
// A file that begins with FF FE is UTF-16, any other UTF-8, and stays what it is. Written lines end with CR LF.
//
// Null names, keys and values are empty ones. What fails throws the CWinException of CFile. A failed write leaves the
// file cut short, in the worst case empty: what it held is then only in memory, and Save can write it again until
// anything else is called.
class VANTOR_API CIniFile
{
public:
    enum EType
    {
        eSection,
        eEntry,
        eOther   // no line is
    };

    explicit CIniFile(const wchar_t* fileName);
    CIniFile(const CIniFile&) = delete;
    CIniFile& operator=(const CIniFile&) = delete;
    virtual ~CIniFile() noexcept(false);   // writes nothing: every change is written already

    // In file order, a section that occurs twice as often.
    void EnumSections(std::vector<ustring>& sections);
    // Of the first such section. Blank lines and comments are entries too, with an empty key.
    void EnumEntries(const wchar_t* section, std::vector<ustring>& keys);

    ustring GetString(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue);
    // Decimal; a value that does not begin with a number is 0.
    int GetInt(const wchar_t* section, const wchar_t* key, int defaultValue);

    // Replace the entry's whole line, its comment included; or add one at the end of the section, behind blank lines
    // and comments there; or add the section at the end of the file. Always true.
    bool WriteString(const wchar_t* section, const wchar_t* key, const wchar_t* value);
    bool WriteInt(const wchar_t* section, const wchar_t* key, int value);

    // False if there is no such thing. A section goes with all its lines up to the next header.
    bool DeleteSection(const wchar_t* section);
    bool DeleteEntry(const wchar_t* section, const wchar_t* key);

    // The file's lines into memory, and back. All of the above do this themselves. A NUL byte ends a UTF-8 text, bytes
    // that are none become U+FFFD, an odd last byte of UTF-16 is dropped, and so is one empty line at the end. Save
    // without a Load before empties the file.
    void Load();
    void Save();

    // What a line is: a header gives its name and no value, an entry its key and its value. The outputs may be the
    // line.
    static EType TranslateSection(const ustring& line, ustring& name, ustring& value);

private:
    ustring m_fileName;
    bool m_unicode;
    CFile m_file;
    std::list<ustring> m_lines;
};
}   // namespace vantor

#endif
