// Waiting for the user interface without sleeping blindly.

#ifndef VANTOR_TEST_MESSAGEPUMP_H
#define VANTOR_TEST_MESSAGEPUMP_H

#include <vantor/Platform.h>

#include <functional>

namespace support
{
// Dispatches the calling thread's messages until none is left.
void PumpMessages();
// Dispatches messages until the condition holds; false if it does not within the time.
bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds = 5000);
// Gives the calling thread a desktop of its own, so that tests that run at the same time do not take each other's
// focus. Before any call that makes a window.
void UseOwnDesktop();
}   // namespace support

#endif
