#include "Leaks.h"

#include <vantor/Platform.h>

#include <cstdint>
#include <cwchar>
#include <malloc.h>

namespace support
{
namespace
{
// The platform's own counters (GetProcessHandleCount, GetGuiResources) always answer 0 where these tests run, so every
// value that a handle can have is tried.

std::size_t CountHandles()
{
    std::size_t count = 0;
    for (std::uintptr_t value = 4; value < 0x4000; value += 4)
    {
        DWORD flags;
        if (::GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags))
            ++count;
    }
    return count;
}

std::size_t CountGdiObjects()
{
    std::size_t count = 0;
    for (std::uintptr_t value = 1; value < 0xFFFF; ++value)
    {
        if (::GetObjectType(reinterpret_cast<HGDIOBJ>(value)) != 0)
            ++count;
    }
    return count;
}

// The system's input method keeps a window of its own as long as the thread has any.
bool IsOfTheSystem(HWND window)
{
    wchar_t name[8];
    return ::GetClassNameW(window, name, 8) != 0 && std::wcscmp(name, L"IME") == 0;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count)
{
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process == ::GetCurrentProcessId() && !IsOfTheSystem(window))
        ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

// Of the calling thread's desktop.
std::size_t CountWindows()
{
    std::size_t count = 0;
    const auto parameter = reinterpret_cast<LPARAM>(&count);
    ::EnumChildWindows(::GetDesktopWindow(), &CountWindow, parameter);   // descendants included
    for (HWND window = nullptr; (window = ::FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        CountWindow(window, parameter);
    return count;
}

bool IsIcon(HICON icon)
{
    ICONINFO info;
    if (!::GetIconInfo(icon, &info))
        return false;
    ::DeleteObject(info.hbmMask);
    if (info.hbmColor)
        ::DeleteObject(info.hbmColor);
    return true;
}

std::size_t CountUserObjects()
{
    std::size_t count = CountWindows();
    for (std::uintptr_t value = 2; value < 0x10000; value += 2)
    {
        if (::IsMenu(reinterpret_cast<HMENU>(value)) || IsIcon(reinterpret_cast<HICON>(value)))
            ++count;
    }
    return count;
}

std::size_t CountHeapBlocks()
{
    const HANDLE heap = reinterpret_cast<HANDLE>(::_get_heap_handle());
    std::size_t count = 0;
    PROCESS_HEAP_ENTRY entry{};
    ::HeapLock(heap);
    while (::HeapWalk(heap, &entry))
    {
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            ++count;
    }
    ::HeapUnlock(heap);
    return count;
}
}   // namespace

CResources::CResources()
{
    // The first look makes the system load what it looks at.
    static const std::size_t first = CountGdiObjects() + CountUserObjects();
    static_cast<void>(first);

    handles = CountHandles();
    gdiObjects = CountGdiObjects();
    userObjects = CountUserObjects();
    heapBlocks = CountHeapBlocks();
}

bool CResources::operator==(const CResources& other) const
{
    return handles == other.handles && gdiObjects == other.gdiObjects && userObjects == other.userObjects &&
           heapBlocks == other.heapBlocks;
}

std::ostream& operator<<(std::ostream& out, const CResources& resources)
{
    return out << resources.handles << " handles, " << resources.gdiObjects << " GDI objects, " << resources.userObjects
               << " user objects, " << resources.heapBlocks << " heap blocks";
}
}   // namespace support
