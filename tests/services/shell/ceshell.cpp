// As on the device, where a list is of the DLL's own memory, and so is the allocator: both end when it is unloaded.

#include "Shell.h"

#include <objbase.h>

#include <cwchar>

namespace
{
HANDLE g_heap;
void* g_list;

class CAllocator : public IMalloc
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        Note('R');
        return 1;
    }
    void* STDMETHODCALLTYPE Alloc(SIZE_T) override { return nullptr; }
    void* STDMETHODCALLTYPE Realloc(void*, SIZE_T) override { return nullptr; }
    void STDMETHODCALLTYPE Free(void* block) override
    {
        Note('F');
        if (block != g_list)
            Script().foreign = true;
        else if (g_list)
            ::HeapFree(g_heap, 0, g_list);
        g_list = nullptr;
    }
    SIZE_T STDMETHODCALLTYPE GetSize(void*) override { return 0; }
    int STDMETHODCALLTYPE DidAlloc(void*) override { return 1; }
    void STDMETHODCALLTYPE HeapMinimize() override {}
} g_allocator;
}   // namespace

extern "C" HRESULT SpecialFolderLocation(HWND owner, int folder, void** list)
{
    Note('L');
    Script().owner = owner;
    Script().folder = folder;
    if (SUCCEEDED(Script().location))
        *list = g_list = ::HeapAlloc(g_heap, HEAP_ZERO_MEMORY, 64);
    return Script().location;
}

extern "C" BOOL PathFromIDList(const void* list, wchar_t* path)
{
    Note('P');
    if (list != g_list)
        Script().foreign = true;
    std::wcscpy(path, Script().path ? Script().path : L"garbage");
    return Script().path != nullptr;
}

extern "C" HRESULT GetAllocator(IMalloc** allocator)
{
    Note('A');
    if (SUCCEEDED(Script().allocator))
        *allocator = &g_allocator;
    return Script().allocator;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_ATTACH)
        g_heap = ::HeapCreate(0, 0, 0);
    if (reason == DLL_PROCESS_DETACH)
        ::HeapDestroy(g_heap);
    return TRUE;
}
