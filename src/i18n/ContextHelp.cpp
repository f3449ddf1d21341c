#include <vantor/ContextHelp.h>
#include <vantor/File.h>

namespace vantor
{
template class VANTOR_API CPhoenixSingleton<CContextHelp>;

bool CContextHelpInstance::m_bIsInitilized = false;

CContextHelp::CContextHelp() = default;

CContextHelp::~CContextHelp() = default;

void CContextHelp::RegisterClassW(const wchar_t* className)
{
    m_langFile.try_emplace(className);
}

ustring CContextHelp::GetHelpFileName(const wchar_t* className)
{
    const auto entry = m_langFile.find(className);
    return entry == m_langFile.end() ? ustring() : entry->second;
}

CContextHelp& CContextHelpInstance::Ref()
{
    if (!m_bIsInitilized)
    {
        m_bIsInitilized = true;
        try
        {
            ustring executable, drive, dir, fname, ext, path;
            CFile::GetModuleFileNameW(nullptr, executable, true);
            CFile::SplitPath(executable.c_str(), drive, dir, fname, ext);
            CFile::MakePath(path, drive.c_str(), dir.c_str(), L"Help//ContextHelpMap.lng", nullptr);
            CPhoenixSingleton<CContextHelp>::Ref().m_langFile.LoadLanguageFile(path.c_str());
        }
        catch (...)   // no class has a help page then
        {
        }
    }
    return CPhoenixSingleton<CContextHelp>::Ref();
}
}   // namespace vantor
