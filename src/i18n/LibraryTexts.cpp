#include "LibraryTexts.h"

#include "../platform/Module.h"

#include <vantor/Translator.h>

namespace vantor
{
void Translate(ustring& text) noexcept
try
{
    CTranslatorInstance::Ref().XlateEx(text);
}
catch (...)
{
}

void TranslateWindow(HWND window) noexcept
try
{
    CTranslatorInstance::Ref().XlateWnd(window);
}
catch (...)
{
}

bool LoadLibraryText(unsigned int id, ustring& text) noexcept
try
{
    if (!text.load(LibraryModule(), id))
        return false;
    Translate(text);
    return true;
}
catch (...)   // no memory
{
    return false;
}
}   // namespace vantor
