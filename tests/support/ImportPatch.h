// Makes one function that vantor.dll imports fail, or records its arguments, for the length of a scope: the library's
// own import table is patched, so the DLL that is tested is the DLL that is shipped.
//
//     BOOL WINAPI FailingCloseHandle(HANDLE)
//     {
//         ::SetLastError(6);
//         return FALSE;
//     }
//
//     const CImportPatch patch(&::CloseHandle, &FailingCloseHandle);
//
// The fake may call the original by its name: only the library's slot is swapped, the test's is not.

#ifndef VANTOR_TEST_IMPORTPATCH_H
#define VANTOR_TEST_IMPORTPATCH_H

#include <vantor/Platform.h>

#include <vector>

namespace support
{
class CImportPatch
{
public:
    // Finds the slot by the original's address. Ends the program with a message if the library does not import it.
    template <class Function>
    CImportPatch(Function* original, Function* fake)
        : CImportPatch(reinterpret_cast<void*>(original), reinterpret_cast<void*>(fake))
    {
    }
    CImportPatch(const CImportPatch&) = delete;
    CImportPatch& operator=(const CImportPatch&) = delete;
    ~CImportPatch();

private:
    CImportPatch(void* original, void* fake);

    std::vector<void**> m_slots;   // a function that is imported under two names has two
    void* m_original;
};
}   // namespace support

#endif
