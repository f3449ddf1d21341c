// Files, and the toolbox for path names.
//
//     ustring path;
//     CFile::MakePath(path, nullptr, L"\\Storage", L"trace", L"csv");               // \Storage\trace.csv
//     CFile file(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
//     unsigned int done = 0;
//     file.Read(buffer, sizeof buffer, done, nullptr);                              // throws CWinException on failure

#ifndef VANTOR_FILE_H
#define VANTOR_FILE_H

#include <vantor/Object.h>
#include <vantor/Strings.h>

namespace vantor
{
// Owns a file handle; closed with the object. Everything that fails throws CWinException with the platform's error
// code.
class VANTOR_API CFile : public CHandle
{
public:
    CFile();
    // Opens at once. The arguments are those of CreateFileW, without defaults of the library's own.
    CFile(const wchar_t* name, unsigned long access, unsigned long share, _SECURITY_ATTRIBUTES* sa,
          unsigned long disposition, unsigned long flags, void* hTemplate);

    // Virtual operations in slot order, behind those of CHandle; derived classes append theirs.

    // Closes what is open first, also when the new file then cannot be opened: the object is empty after a failure.
    virtual void Open(const wchar_t* name, unsigned long access, unsigned long share, _SECURITY_ATTRIBUTES* sa,
                      unsigned long disposition, unsigned long flags, void* hTemplate);
    // True when done; false while an overlapped operation is still running (ov is null for synchronous use). `done` is
    // the count of bytes that the system reported, in every case, also when the call throws.
    virtual bool Read(void* buffer, unsigned int size, unsigned int& done, _OVERLAPPED* ov);
    virtual bool Write(const void* buffer, unsigned int size, unsigned int& done, _OVERLAPPED* ov);
    virtual void Flush();
    virtual unsigned long long GetPosition() const;
    // method: FILE_BEGIN, FILE_CURRENT or FILE_END. Returns the new position.
    virtual unsigned long long Seek(long long offset, unsigned long method);
    virtual unsigned long long GetLength() const;
    // Leaves the position at the new end.
    virtual void SetLength(unsigned long long length);

    static void Rename(const wchar_t* from, const wchar_t* to);
    static void Remove(const wchar_t* path);

    // Path routines take "/" for "\" and never fail; a null argument is an absent part. They may be given the text that
    // they write to.

    // drive "C:", dir "\data\", fname "file.tar", ext ".gz" of "C:/data/file.tar.gz". A dot in a folder's name begins
    // no extension.
    static void SplitPath(const wchar_t* path, ustring& drive, ustring& dir, ustring& fname, ustring& ext);
    // Joins the parts with "\" and reduces every run of "\" to one, also the two at the start of a network path. A
    // folder is rooted on the drive: "C:" and "data" make "C:\data". The dot before ext may be left out.
    static void MakePath(ustring& out, const wchar_t* drive, const wchar_t* dir, const wchar_t* fname,
                         const wchar_t* ext);
    // The path with another file name; newName brings its own extension. Without a path it is newName alone.
    static void UpdateFileName(const wchar_t* path, const wchar_t* newName, ustring& out);
    // Whether folder is path itself or one of its ancestors, by whole components without regard to case.
    static bool IsParentFolder(const wchar_t* path, const wchar_t* folder);

    // Whether a directory search finds the path: wildcards match, and a folder counts. The second pair looks below one
    // of the shell's special folders (CSIDL_...), and throws if the system does not know that.
    static bool FileExists(const wchar_t* path, bool& isFolder);
    static bool FileExists(const wchar_t* path);
    static bool FileExists(int folder, const wchar_t* fname, const wchar_t* ext, bool& isFolder);
    static bool FileExists(int folder, const wchar_t* fname, const wchar_t* ext);
    // Bytes, from the directory entry and without opening the file; all ones if there is no such file.
    static unsigned long long GetLength(const wchar_t* path);
    static unsigned long long GetLength(int folder, const wchar_t* fname, const wchar_t* ext);

    // After a failure out is empty, but GetSpecialFolderPath leaves it as it was. The special folder is not created.
    static void GetSpecialFolderPath(int folder, ustring& out);
    // The module's path, or, with fullPath false, its file name without folder and extension.
    static void GetModuleFileNameW(HINSTANCE module, ustring& out, bool fullPath);
    static void GetTempPathW(ustring& out);
    // unique: 0 makes the file with a name not yet taken, any other value only makes the name.
    static void GetTempFileNameW(const wchar_t* path, const wchar_t* prefix, unsigned int unique, ustring& out);
};
}   // namespace vantor

#endif
