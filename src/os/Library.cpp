#include "Thrower.h"

#include <vantor/Library.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\Library"};
}

CLibrary::CLibrary(const wchar_t* name) : m_hModule(::LoadLibraryW(name))
{
    if (!m_hModule)
        Fail(10, L"LoadLibrary");
}

CLibrary::~CLibrary()
{
    if (m_hModule)
        ::FreeLibrary(m_hModule);
}
}   // namespace vantor
