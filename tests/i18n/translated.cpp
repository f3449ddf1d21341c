// Prints what the process's translator makes of "Open", and how many entries it has. With an argument it asks once
// before, and then puts NAME.lng.later in the place of the language file.

#include <vantor/File.h>
#include <vantor/Translator.h>

#include <cstdio>

using namespace vantor;

int main(int argc, char**)
{
    if (argc > 1)
    {
        CTranslatorInstance::Ref();
        ustring path, drive, dir, fname, ext;
        CFile::GetModuleFileNameW(nullptr, path, true);
        CFile::SplitPath(path.c_str(), drive, dir, fname, ext);
        const ustring file = drive + dir + fname + L".lng";
        ::DeleteFileW(file.c_str());
        if (!::MoveFileW((file + L".later").c_str(), file.c_str()))
            return 2;
    }
    ustring text = L"Open";
    const bool known = CTranslatorInstance::Ref().XlateEx(text);
    std::printf("%s %ls %u", known ? "true" : "false", text.c_str(),
                static_cast<unsigned>(CTranslatorInstance::Ref().m_langFile.size()));
}
