#include "ProgramFile.h"

#include <vantor/File.h>

namespace vantor
{
void LoadProgramFile(CLanguageFile& table, const wchar_t* name, const wchar_t* ext) noexcept
try
{
    ustring program, drive, dir, fname, programExt, path;
    CFile::GetModuleFileNameW(nullptr, program, true);
    CFile::SplitPath(program.c_str(), drive, dir, fname, programExt);
    CFile::MakePath(path, drive.c_str(), dir.c_str(), name ? name : fname.c_str(), ext);
    table.LoadLanguageFile(path.c_str());
}
catch (...)   // then texts stay as they are, and no class has a help page
{
}
}   // namespace vantor
