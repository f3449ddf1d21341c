// The help page of the window in front: a map from window class names to help file names, in the language file
// "Help//ContextHelpMap.lng" of the executable's folder.
//
//     CContextHelp& help = CContextHelpInstance::Ref();
//     const ustring page = help.GetHelpFileName(L"SpectrumView");   // "" if the map names none
//
// and to write a map that is complete but for the names of the pages:
//
//     help.RegisterClassW(L"SpectrumView");
//     help.m_langFile.SaveLanguageFile(path);

#ifndef VANTOR_CONTEXTHELP_H
#define VANTOR_CONTEXTHELP_H

#include <vantor/Translator.h>

namespace vantor
{
// For the user-interface thread. Class names are compared exactly, letter case included.
class VANTOR_API CContextHelp
{
public:
    CContextHelp();
    virtual ~CContextHelp();   // the only virtual operation

    // Adds the class with an empty help name; one that is in the map stays as it is.
    void RegisterClassW(const wchar_t* className);
    ustring GetHelpFileName(const wchar_t* className);

    CLanguageFile m_langFile;
};

// The process's map. The first call looks for the map file; if that is missing or damaged the map is empty, and it is
// not tried again.
class VANTOR_API CContextHelpInstance
{
public:
    static CContextHelp& Ref();

private:
    static bool m_bIsInitilized;   // spelled as the applications' debuggers know it
};

#ifndef VANTOR_BUILDING
extern template class VANTOR_API CPhoenixSingleton<CContextHelp>;
#endif
}   // namespace vantor

#endif
