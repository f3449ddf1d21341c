// Run-time translation of a finished user interface: texts of windows, menus, toolbars and string tables are looked up,
// whole and exact, in a language file. The application's own is the file with the executable's path and the extension
// ".lng":
//
//     CTranslatorInstance::Ref().XlateWnd(hWnd);            // a window and all its descendants
//
// and to hand a translator every text of a program:
//
//     CTranslator translator;
//     translator.Gather(module);
//     translator.m_langFile.SaveLanguageFile(L"program.lng");

#ifndef VANTOR_TRANSLATOR_H
#define VANTOR_TRANSLATOR_H

#include <vantor/File.h>
#include <vantor/Object.h>
#include <vantor/Strings.h>

#include <atomic>
#include <cstdlib>
#include <map>
#include <new>

namespace vantor
{
// The table from source text to translated text. A file is UTF-16LE with the mark 0xFEFF, then one record after the
// other with nothing between them: "[source]", LF, "[translation]", LF, in the order of the sources. Texts stand
// unescaped, line breaks and brackets included. Two things do not come back: carriage returns (alone or before a line
// feed they are read as a line feed), and a text in which "]", a line break and "[" follow each other.
class CLanguageFile : public std::map<ustring, ustring>
{
public:
    // Replaces the table by the file's. False, and the table stays as it was, if there is no such file or folder.
    // Throws CWinException if the file cannot be read, or with code 13 if it is no language file; the table is then
    // empty.
    VANTOR_API bool LoadLanguageFile(const wchar_t* path);
    // Writes the table over whatever the file held. Throws CWinException.
    VANTOR_API void SaveLanguageFile(const wchar_t* path);

protected:
    VANTOR_API void LoadLanguageFile(CFile& file);
    VANTOR_API void SaveLanguageFile(CFile& file);   // closes the file
};

// For the user-interface thread. Reports nothing: a text without an entry stays as it is, and so does a window, menu
// item or button whose calls fail.
class VANTOR_API CTranslator
{
public:
    enum EMode : int
    {
        eGather,      // texts are collected into the table, each as its own translation; nothing on screen changes
        eTranslate,   // texts are replaced
    };

    CTranslator();
    virtual ~CTranslator();

    // Returns the previous mode. With a value that is none of EMode texts are looked up, but nothing on screen changes
    // and nothing is collected.
    EMode SetMode(EMode mode);

    // True if the text was replaced, or, with eGather, is in the table now. No trimming, no "&", no formats.
    bool XlateEx(ustring& text);
    void XlateWnd(HWND hwnd);          // the window, then all its descendants
    void XlateToolbar(HWND toolbar);   // the buttons' texts, and the menus that a command bar keeps in their dwData
    void XlateMenu(HMENU menu);        // all text items, sub-menus included; owner-drawn items are left alone
    // Collects the string table, the dialogs (built out of sight) and the menus of a module. The mode is eTranslate
    // after it, whatever it was before.
    void Gather(HINSTANCE module);

    // What the platform's menu interface lacks. The same as in namespace menu.
    int GetMenuItemCount(HMENU menu);
    UINT GetMenuState(HMENU menu, UINT item, UINT flags);
    int GetMenuStringW(HMENU menu, UINT item, wchar_t* buffer, int maxChars, UINT flags);
    UINT GetMenuItemID(HMENU menu, int position);
    int ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR newId, const wchar_t* text);

    // The dialog procedure of Gather: keeps the dialog hidden, and destroys its children with it.
    static INT_PTR CALLBACK DialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    CLanguageFile m_langFile;

private:
    EMode m_mode;
};

// One T for the process, made on first use and deleted by an exit handler; used after that, also while the process
// ends, it rises again. Creation is guarded by a mutex. T needs a virtual destructor and a default constructor. Where
// there is no memory for a T, Ref gives a static one. Across a DLL's border a T has one instance only if one module
// instantiates the template and the others declare it extern, as is done below.
template <class T>
class CPhoenixSingleton
{
public:
    static T& Ref();

private:
    static void MakeInstance();
    static void KillPhoenixSingleton();

    static volatile T* volatile m_ptr;
};

// The process's translator. The first call looks for the application's language file; if that is missing or damaged,
// texts stay as they are, and it is not tried again.
class VANTOR_API CTranslatorInstance
{
public:
    static CTranslator& Ref();

private:
    static bool m_bIsInitilized;   // spelled as the applications' debuggers know it
};

// Menu calls that the platform lacks, built on GetMenuItemInfoW. Items are named by position with MF_BYPOSITION, else
// by command id; strings are read by position only if flags is MF_BYPOSITION and nothing else.
namespace menu
{
VANTOR_API int GetMenuItemCount(HMENU menu);
// MF_GRAYED, MF_CHECKED, MF_HILITE and MF_MENUBARBREAK, MF_MENUBREAK, MF_OWNERDRAW, MF_SEPARATOR of the item.
VANTOR_API UINT GetMenuState(HMENU menu, UINT item, UINT flags);
// The text's length, up to maxChars - 1 characters of it in buffer; a null buffer asks for the length alone. 0 if there
// is no such item.
VANTOR_API int GetMenuStringW(HMENU menu, UINT item, wchar_t* buffer, int maxChars, UINT flags);
VANTOR_API UINT GetMenuItemID(HMENU menu, int position);
VANTOR_API bool ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR newId, const wchar_t* text);
// Replaces all items of a menu by those of a menu resource (the low 16 bits of id). False if that cannot be loaded: the
// menu is then empty.
VANTOR_API bool ReloadMenu(HMENU menu, HINSTANCE module, UINT id);
// Appends copies of the source's items, sub-menus included; texts up to 127 characters, without check marks and grayed
// states. False as soon as a call fails: what was copied stays.
VANTOR_API bool CopyMenu(HMENU target, HMENU source);
}   // namespace menu

template <class T>
T& CPhoenixSingleton<T>::Ref()
{
    volatile T* instance = m_ptr;
    std::atomic_thread_fence(std::memory_order_acquire);
    if (!instance)
    {
        MakeInstance();
        instance = m_ptr;
    }
    if (!instance)
    {
        static T fake;
        return fake;
    }
    return const_cast<T&>(*instance);
}

template <class T>
void CPhoenixSingleton<T>::MakeInstance()
{
    static bool ending = false;   // set by the last exit handler that runs before the mutex goes
    static CMutex mtx(nullptr, FALSE, nullptr);
    static const int registered = std::atexit([] { ending = true; });
    static_cast<void>(registered);

    struct Guard
    {
        const bool locked = !ending && mtx.Lock(INFINITE);   // so late there is one thread left
        ~Guard()
        {
            if (locked)
                mtx.Unlock();
        }
    } guard;

    if (m_ptr)
        return;
    T* instance = new (std::nothrow) T;
    std::atomic_thread_fence(std::memory_order_release);
    m_ptr = instance;
    if (instance)
        std::atexit(KillPhoenixSingleton);
}

template <class T>
void CPhoenixSingleton<T>::KillPhoenixSingleton()
{
    delete const_cast<T*>(m_ptr);
    m_ptr = nullptr;
}

template <class T>
volatile T* volatile CPhoenixSingleton<T>::m_ptr = nullptr;

#ifndef VANTOR_BUILDING
extern template class VANTOR_API CPhoenixSingleton<CTranslator>;
#endif
}   // namespace vantor

#endif
