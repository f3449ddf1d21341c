// Asks the process's context help for a page, and once more when the library that holds it has ended.

#include <vantor/ContextHelp.h>

using namespace vantor;

namespace
{
void Print(const char* text)
{
    DWORD done;
    ::WriteFile(::GetStdHandle(STD_OUTPUT_HANDLE), text, static_cast<DWORD>(::lstrlenA(text)), &done, nullptr);
}

void Look()
{
    CContextHelp& help = CContextHelpInstance::Ref();
    Print(help.GetHelpFileName(L"Spectrum") == L"spectrum.htm" ? "known " : "unknown ");
    Print(help.m_langFile.empty() ? "empty " : "filled ");
    help.RegisterClassW(L"Late");
    Print(CContextHelpInstance::Ref().m_langFile.count(L"Late") == 1 ? "kept " : "lost ");
}
}   // namespace

extern "C" __declspec(dllexport) void Start()
{
    using CallAtEnd = void (*)(void (*)());
    const FARPROC callAtEnd = ::GetProcAddress(::GetModuleHandleW(L"help_late_caller.dll"), "CallAtEnd");
    Look();
    reinterpret_cast<CallAtEnd>(reinterpret_cast<void*>(callAtEnd))(&Look);
}
