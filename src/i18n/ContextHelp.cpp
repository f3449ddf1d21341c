#include "ProgramFile.h"

#include <vantor/ContextHelp.h>

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
        LoadProgramFile(CPhoenixSingleton<CContextHelp>::Ref().m_langFile, L"Help//ContextHelpMap.lng", nullptr);
    }
    return CPhoenixSingleton<CContextHelp>::Ref();
}
}   // namespace vantor
