#include "Allocations.h"

#include <vantor/Platform.h>

#include <objbase.h>

#include <cstdio>
#include <cstdlib>
#include <set>

namespace variants
{
namespace
{
class CSpy : public IMallocSpy
{
public:
    void Reset()
    {
        m_held.clear();
        m_strays = 0;
    }

    std::size_t Held() const { return m_held.size(); }
    std::size_t Strays() const { return m_strays; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IMallocSpy);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }

    void* STDMETHODCALLTYPE PostAlloc(void* block) override
    {
        Add(block);
        return block;
    }

    void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override { return Remove(block) ? block : nullptr; }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}

    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** actual, BOOL) override
    {
        if (block)
            Remove(block);
        *actual = block;
        return size;
    }

    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override
    {
        Add(block);
        return block;
    }

    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int did) override { return did; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

private:
    void Add(void* block)
    {
        if (block)
            m_held.insert(block);
    }

    bool Remove(void* block)
    {
        if (m_held.erase(block) != 0)
            return true;
        ++m_strays;
        return false;
    }

    std::set<void*> m_held;
    std::size_t m_strays = 0;
};

CSpy g_spy;

[[noreturn]] void Die(const char* what)
{
    std::fprintf(stderr, "Allocations: %s\n", what);
    std::fflush(stderr);
    std::abort();
}

// For the rest of the process: a freed string goes back to the allocator. No header declares this, and the 32-bit
// import library lacks it.
void CacheNoStrings()
{
    using Function = void(WINAPI*)();
    const HMODULE automation = ::GetModuleHandleW(L"oleaut32.dll");
    const FARPROC address = automation ? ::GetProcAddress(automation, "SetOaNoCache") : nullptr;
    if (!address)
        Die("SetOaNoCache is missing");
    reinterpret_cast<Function>(reinterpret_cast<void*>(address))();
}
}   // namespace

CAllocations::CAllocations()
{
    g_spy.Reset();
    CacheNoStrings();
    if (FAILED(::CoRegisterMallocSpy(&g_spy)))
        Die("the allocator is watched already");
}

CAllocations::~CAllocations()
{
    ::CoRevokeMallocSpy();
}

std::size_t CAllocations::Held() const
{
    return g_spy.Held();
}

std::size_t CAllocations::Strays() const
{
    return g_spy.Strays();
}
}   // namespace variants
