// A DLL with nothing of this library in it: whatever it imports, the compiler's runtime needs.

#include <map>
#include <new>
#include <string>

extern "C" __declspec(dllexport) int Empty(int count)
{
    static std::map<std::wstring, int> table;
    try
    {
        table[std::wstring(static_cast<std::size_t>(count), L'x')] = count;
        throw std::bad_alloc();
    }
    catch (const std::bad_alloc&)
    {
        return static_cast<int>(table.size());
    }
}
