#include "FullScreen.h"

namespace vantor::platform
{
// A desktop's shell steps back for a topmost window that covers the screen, which the dialog makes of itself.
void PresentFullScreen(HWND) {}
}   // namespace vantor::platform
