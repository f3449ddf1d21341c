// Dialogs that have the screen to themselves.

#ifndef VANTOR_SRC_FULLSCREEN_H
#define VANTOR_SRC_FULLSCREEN_H

#include <vantor/Platform.h>

namespace vantor::platform
{
// How a dialog is shown that takes the screen. A desktop's dialog manager shows every dialog once more when it is
// initialised, and so would restore one that is maximised.
#ifdef UNDER_CE
constexpr int ShowFullScreen = SW_MAXIMIZE;
#else
constexpr int ShowFullScreen = SW_SHOW;
#endif

// Makes the device's shell give the dialog the whole screen: no menu bar, no done button, no task bar, no input panel
// button. What the shell does not offer is left out, and the dialog works all the same. Call it while the dialog is
// being initialised.
void PresentFullScreen(HWND dialog);
}   // namespace vantor::platform

#endif
