// Files: a measurement is written to a temporary file, read back and removed; and what path names are made of.

#include <vantor/File.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

void WriteTrace(const wchar_t* path, const std::string& points)
{
    CFile trace(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    unsigned int done = 0;
    trace.Write(points.data(), static_cast<unsigned int>(points.size()), done, nullptr);
}

std::string ReadTrace(const wchar_t* path)
{
    CFile trace(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    std::string points(static_cast<std::size_t>(trace.GetLength()), '\0');
    unsigned int done = 0;
    trace.Read(points.data(), static_cast<unsigned int>(points.size()), done, nullptr);
    points.resize(done);
    return points;
}
}   // namespace

int main()
{
    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"trc", 0, path);   // makes the file: the name is taken from now on

    WriteTrace(path.c_str(), "100.1;-47.3\n100.2;-51.0\n");
    Print(ustring::ui64toa(CFile::GetLength(path.c_str())) + L" bytes");
    Print(ustring(ReadTrace(path.c_str()), CP_UTF8, 0).trim_right(L'\n'));
    Print(CFile::IsParentFolder(path.c_str(), folder.c_str()) ? L"in the temporary folder" : L"elsewhere");
    CFile::Remove(path.c_str());
    Print(CFile::FileExists(path.c_str()) ? L"still there" : L"removed");

    ustring drive, dir, fname, ext;
    CFile::SplitPath(L"C:/data/trace.2026.csv", drive, dir, fname, ext);
    Print(drive + L" " + dir + L" " + fname + L" " + ext);
    CFile::MakePath(path, drive.c_str(), L"archive", fname.c_str(), L"zip");
    Print(path);
    CFile::UpdateFileName(path.c_str(), L"index.txt", path);
    Print(path);
}
