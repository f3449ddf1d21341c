#ifndef VANTOR_TEST_UI_RESOURCE_H
#define VANTOR_TEST_UI_RESOURCE_H

#define IDD_FORM 1001      // an edit control, a filled edit control, and buttons 1 to 7
#define IDD_MISSING 1099   // no such dialog

#define IDC_EMPTY 101
#define IDC_FILLED 102
#define IDC_OTHER 103     // a button
#define IDC_MISSING 199   // no such control

#endif
