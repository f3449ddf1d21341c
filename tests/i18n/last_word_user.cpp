// Uses the process's translator, and once more when its library has ended.

#include <vantor/Translator.h>

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
    ustring text = L"Open";
    CTranslator& translator = CTranslatorInstance::Ref();
    Print(translator.XlateEx(text) ? "known " : "unknown ");
    Print(translator.m_langFile.empty() ? "empty " : "filled ");
}
}   // namespace

extern "C" __declspec(dllexport) void Install()
{
    using CallLast = void (*)(void (*)());
    const FARPROC callLast = ::GetProcAddress(::GetModuleHandleW(L"i18n_last_word.dll"), "CallLast");
    Look();
    reinterpret_cast<CallLast>(reinterpret_cast<void*>(callLast))(&Look);
}
