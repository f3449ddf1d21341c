#include <vantor/File.h>

#include <algorithm>

namespace vantor
{
namespace
{
ustring WithBackslashes(const wchar_t* path)
{
    ustring result(path);
    std::replace(result.begin(), result.end(), L'/', L'\\');
    return result;
}

void AppendPart(ustring& path, const wchar_t* part)
{
    if (!part)
        return;
    if (!path.empty())
        path += L'\\';
    path += part;
}

// Turns every "/" into a backslash and every run of backslashes into one.
void NormaliseSeparators(ustring& path)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < path.size(); ++i)
    {
        const wchar_t ch = path[i] == L'/' ? L'\\' : path[i];
        if (ch != L'\\' || kept == 0 || path[kept - 1] != L'\\')
            path[kept++] = ch;
    }
    path.resize(kept);
}
}   // namespace

void CFile::SplitPath(const wchar_t* path, ustring& drive, ustring& dir, ustring& fname, ustring& ext)
{
    const ustring whole = WithBackslashes(path);

    const std::size_t colon = whole.find(L':');
    const std::size_t dirStart = colon == ustring::npos ? 0 : colon + 1;
    const std::size_t slash = whole.rfind(L'\\');
    const std::size_t fnameStart = slash == ustring::npos || slash < dirStart ? dirStart : slash + 1;
    const std::size_t dot = whole.rfind(L'.');
    const std::size_t extStart = dot == ustring::npos || dot < fnameStart ? whole.size() : dot;

    drive = whole.substr(0, dirStart);
    dir = whole.substr(dirStart, fnameStart - dirStart);
    fname = whole.substr(fnameStart, extStart - fnameStart);
    ext = whole.substr(extStart);
}

void CFile::MakePath(ustring& out, const wchar_t* drive, const wchar_t* dir, const wchar_t* fname, const wchar_t* ext)
{
    ustring path(drive);
    AppendPart(path, dir);
    AppendPart(path, fname);
    if (*OrEmpty(ext))
    {
        if (*ext != L'.')
            path += L'.';
        path += ext;
    }
    NormaliseSeparators(path);
    out.swap(path);
}

void CFile::UpdateFileName(const wchar_t* path, const wchar_t* newName, ustring& out)
{
    if (*OrEmpty(path) == 0)
    {
        out = ustring(newName);
        return;
    }
    ustring drive, dir, fname, ext;
    SplitPath(path, drive, dir, fname, ext);
    MakePath(out, drive.c_str(), dir.c_str(), newName, nullptr);
}

bool CFile::IsParentFolder(const wchar_t* path, const wchar_t* folder)
{
    std::vector<ustring> components, ancestors;
    ustring::split(WithBackslashes(path).c_str(), L'\\', components, false);
    ustring::split(WithBackslashes(folder).c_str(), L'\\', ancestors, false);
    if (ancestors.size() > components.size())
        return false;
    return std::equal(ancestors.begin(), ancestors.end(), components.begin(),
                      [](const ustring& a, const ustring& b)
                      { return a.compareNoCase(b.c_str(), ustring::npos) == 0; });
}
}   // namespace vantor
