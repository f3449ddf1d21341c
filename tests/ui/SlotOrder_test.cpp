// The order of the windows' virtual operations.

#include "support/Slots.h"

#include <string>
#include <vector>

using support::ExpectSlots;
using support::Unnamed;

namespace
{
// How names spell WPARAM, LPARAM and LRESULT*, which have a pointer's size.
#ifdef _WIN64
const std::string Parameters = "yx";
const std::string Result = "Px";
#else
const std::string Parameters = "jl";
const std::string Result = "Pl";
#endif

const std::string OnWindowProc = "_ZN6vantor4CWnd12OnWindowProcEP6HWND__j" + Parameters + Result;
const std::string OnCreate = "_ZN6vantor4CWnd8OnCreateEP16tagCREATESTRUCTW";
const std::string OnDestroy = "_ZN6vantor4CWnd9OnDestroyEv";
const std::string OnEraseBkgnd = "_ZN6vantor4CWnd12OnEraseBkgndEP5HDC__";

// A dialog with its own destructor and last operation.
std::vector<std::string> DialogSlots(const std::string& destructor, const std::string& onDialogProc)
{
    return {destructor + "D1Ev",
            destructor + "D0Ev",
            OnWindowProc,
            OnCreate,
            OnDestroy,
            OnEraseBkgnd,
            "_ZN6vantor7CDialog17InitModalIndirectEP11HINSTANCE__PvP6HWND__",
            "_ZN6vantor7CDialog7DoModalEv",
            "_ZN6vantor7CDialog6CreateEv",
            "_ZN6vantor7CDialog12OnInitDialogEv",
            "_ZN6vantor7CDialog4OnOKEv",
            "_ZN6vantor7CDialog8OnCancelEv",
            "_ZN6vantor7CDialog7OnAbortEv",
            "_ZN6vantor7CDialog7OnRetryEv",
            "_ZN6vantor7CDialog8OnIgnoreEv",
            "_ZN6vantor7CDialog5OnYesEv",
            "_ZN6vantor7CDialog4OnNoEv",
            "_ZN6vantor7CDialog15SetDlgItemTextWEiPKw",
            "_ZN6vantor7CDialog15GetDlgItemTextWEiRNS_7ustringE",
            "_ZN6vantor7CDialog20GetDlgItemTextLengthEi",
            onDialogProc + Parameters};
}
}   // namespace

TEST(SlotOrder, Wnd)
{
    ExpectSlots("_ZTVN6vantor4CWndE",
                {"_ZN6vantor4CWndD1Ev", "_ZN6vantor4CWndD0Ev", OnWindowProc, OnCreate, OnDestroy, OnEraseBkgnd});
}

TEST(SlotOrder, Dialog_AppendsItsOperationsToThoseOfWnd)
{
    ExpectSlots("_ZTVN6vantor7CDialogE",
                DialogSlots("_ZN6vantor7CDialog", "_ZN6vantor7CDialog12OnDialogProcEP6HWND__j"));
}

TEST(SlotOrder, TipDlg_ReplacesTheDestructorAndOnDialogProcOfDialog)
{
    ExpectSlots("_ZTVN6vantor7CTipDlgE",
                DialogSlots("_ZN6vantor7CTipDlg", "_ZN6vantor7CTipDlg12OnDialogProcEP6HWND__j"));
}

TEST(SlotOrder, WaitCursor_HasADestructor)
{
    ExpectSlots("_ZTVN6vantor11CWaitCursorE", {"_ZN6vantor11CWaitCursorD1Ev", "_ZN6vantor11CWaitCursorD0Ev"});
}

TEST(SlotOrder, CaptionCtrl)
{
    ExpectSlots("_ZTVN6vantor12CCaptionCtrlE",
                {"_ZN6vantor12CCaptionCtrlD1Ev", "_ZN6vantor12CCaptionCtrlD0Ev",
                 "_ZN6vantor12CCaptionCtrl15OnBnClickedIconEv", "_ZN6vantor12CCaptionCtrl15OnBnClickedHelpEv",
                 "_ZN6vantor12CCaptionCtrl13OnBnClickedOkEv", "_ZN6vantor12CCaptionCtrl16OnBnClickedCloseEv"});
}

TEST(SlotOrder, CaptionEnabledWindow_HasNoDestructor)
{
    ExpectSlots(
        "_ZTVN6vantor21CCaptionEnabledWindowE",
        {"_ZN6vantor21CCaptionEnabledWindow15OnBnClickedIconEv", "_ZN6vantor21CCaptionEnabledWindow15OnBnClickedHelpEv",
         "_ZN6vantor21CCaptionEnabledWindow13OnBnClickedOkEv", "_ZN6vantor21CCaptionEnabledWindow16OnBnClickedCloseEv",
         "_ZN6vantor21CCaptionEnabledWindow12OnWindowProcEP6HWND__j" + Parameters});
}

TEST(SlotOrder, MyCaptionCtrl_ReplacesThePressesOfCaptionCtrl)
{
    ExpectSlots("_ZTVN6vantor21CCaptionEnabledWindow14CMyCaptionCtrlE",
                {Unnamed, Unnamed, "_ZN6vantor21CCaptionEnabledWindow14CMyCaptionCtrl15OnBnClickedIconEv",
                 "_ZN6vantor21CCaptionEnabledWindow14CMyCaptionCtrl15OnBnClickedHelpEv",
                 "_ZN6vantor21CCaptionEnabledWindow14CMyCaptionCtrl13OnBnClickedOkEv",
                 "_ZN6vantor21CCaptionEnabledWindow14CMyCaptionCtrl16OnBnClickedCloseEv"});
}
