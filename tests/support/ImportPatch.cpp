#include "ImportPatch.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace support
{
namespace
{
[[noreturn]] void Die(const char* what)
{
    std::fprintf(stderr, "ImportPatch: %s\n", what);
    std::fflush(stderr);
    std::abort();
}

// The address of a function that is declared without dllimport is that of the program's own stub, `jmp [slot]`.
void* BehindStub(void* function)
{
    unsigned char code[6];
    std::memcpy(code, function, sizeof code);
    if (code[0] != 0xFF || code[1] != 0x25)
        return function;
    INT32 operand;
    std::memcpy(&operand, code + 2, sizeof operand);
#ifdef _WIN64
    const void* const slot = static_cast<unsigned char*>(function) + sizeof code + operand;
#else
    const void* const slot = reinterpret_cast<void*>(operand);
#endif
    void* target;
    std::memcpy(&target, slot, sizeof target);
    return target;
}

std::vector<void**> FindSlots(const void* original)
{
    const HMODULE module = ::GetModuleHandleW(L"vantor.dll");
    if (!module)
        Die("vantor.dll is not loaded");
    unsigned char* const base = reinterpret_cast<unsigned char*>(module);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];

    std::vector<void**> slots;
    for (auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         library->FirstThunk != 0; ++library)
    {
        for (void** slot = reinterpret_cast<void**>(base + library->FirstThunk); *slot; ++slot)
        {
            if (*slot == original)
                slots.push_back(slot);
        }
    }
    return slots;
}

void Fill(const std::vector<void**>& slots, void* function)
{
    for (void** const slot : slots)
    {
        DWORD protection;
        if (!::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection))
            Die("the import table cannot be made writable");
        *slot = function;
        ::VirtualProtect(slot, sizeof *slot, protection, &protection);
    }
}
}   // namespace

CImportPatch::CImportPatch(void* original, void* fake) : m_original(original)
{
    // Only an address that is no slot's can be a stub of this program: some system functions begin with a jump themselves.
    m_slots = FindSlots(m_original);
    if (m_slots.empty())
    {
        m_original = BehindStub(original);
        m_slots = FindSlots(m_original);
    }
    if (m_slots.empty())
        Die("vantor.dll does not import the function, or it is patched already");
    Fill(m_slots, fake);
}

CImportPatch::~CImportPatch()
{
    const DWORD error = ::GetLastError();
    Fill(m_slots, m_original);
    ::SetLastError(error);
}
}   // namespace support
