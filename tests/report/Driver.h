// Reports a failure and plays the user: steps that run one after the other, each on the dialog that is then in front,
// while the report waits for its user.

#ifndef VANTOR_TEST_REPORT_DRIVER_H
#define VANTOR_TEST_REPORT_DRIVER_H

#include <vantor/Exceptions.h>

#include <functional>
#include <vector>

constexpr int Caption = 65534;
constexpr int Details = 1006;

using CStep = std::function<void(HWND dialog)>;

// The result of a dialog that is still open when the steps are through; it is ended then.
constexpr int StillOpen = 0x7777;

// Runs the action, which shows dialogs, and the steps in them.
int Drive(const std::vector<CStep>& steps, const std::function<int()>& action);

// A failure with all its texts: source "Link", message "{2,,access denied}", for the user "Access denied".
vantor::CCommException Failure();
int Report(unsigned int type, const std::vector<CStep>& steps);

// What a user does.
void PressEscape(HWND dialog);
void PressReturn(HWND dialog);
void PressCaptionClose(HWND dialog);
void SendClose(HWND dialog);   // WM_CLOSE, the system's own way
void Press(HWND dialog, int id);
CStep Pressing(int id);
// In client coordinates.
void Tap(HWND dialog, POINT point);
void TapDetails(HWND dialog);   // on the middle of the place where the button is
void OpenDetails(HWND dialog);

// What a user sees.
vantor::ustring Text(HWND window);
vantor::ustring ItemText(HWND dialog, int id);
bool IsShown(HWND dialog, int id);
RECT Place(HWND dialog, HWND control);   // client coordinates
std::vector<HWND> Children(HWND window);

// A control's place by the template, in pixels: left, top, width, height.
RECT TemplatePlace(HWND dialog, RECT units);

#endif
