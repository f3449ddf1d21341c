// What the error report and its details have in common: a dialog with a caption bar that covers the screen, keeps above
// all windows, and lays its controls out anew when the screen turns.

#ifndef VANTOR_SRC_FULLSCREENDIALOG_H
#define VANTOR_SRC_FULLSCREENDIALOG_H

#include <vantor/CaptionCtrl.h>
#include <vantor/Dialog.h>

#include <map>

namespace vantor
{
// Texts and numbers that the dialogs show.
struct CReport
{
    ustring message;   // for the user, translated
    ustring title;     // the application's name
    ustring source;
    ustring fileName;
    ustring function;
    ustring text;   // of the reporter: "File 2:"
    unsigned int line = 0;
    unsigned int number = 0;   // of the reporter: "Line 2:"
    unsigned int type = 0;     // as for MessageBox
};

class CFullScreenDialog : public CDialog, public CCaptionEnabledWindow
{
protected:
    // How a control follows a change of the client area.
    enum EFollow
    {
        Stay,
        GrowWide,   // by the change of the width
        GrowBoth,
        MoveHalfAndDown,   // by half the change of the width, and by the change of the height
    };

    CFullScreenDialog(unsigned int templateId, HWND owner, const CReport& report);

    // Translates the texts, makes the caption bar, moves the controls below it, and covers the screen. `controls` ends
    // with 0.
    void Present(const int* controls);
    // From now on the layout follows the size; the first time at once, for the screen has another size than the
    // template.
    void StartLayout();
    bool OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
    virtual EFollow Follow(int id) const = 0;

    unsigned int IconId() const;

    const CReport m_report;

private:
    // By handle: controls may get other identifiers while the dialog runs.
    struct CPlace
    {
        HWND control;
        RECT place;
    };

    void Layout(int width, int height);

    bool m_initialized = false;
    RECT m_rcClient = {};             // of the template, the bottom moved down by the height of the caption bar
    std::map<int, CPlace> m_layout;   // the controls' places in that area, by the template's identifiers
};
}   // namespace vantor

#endif
