// Numbers of vantor.dll's resources and of the controls in its dialogs. Also read by the resource compiler, so only
// plain macros. Texts and pictures are found by these numbers at run time: they may be added to, never changed.

#ifndef VANTOR_RESOURCE_H
#define VANTOR_RESOURCE_H

// Strings: words that name the source of an error.
#define IDS_SOURCE_WIN32 101
#define IDS_SOURCE_RECEIVER 102
#define IDS_SOURCE_XML 103
#define IDS_SOURCE_MATRIX 104

// Strings: messages of the matrix package. The first lies apart from the others.
#define IDS_MATRIX_SUCCESS 105
#define IDS_MATRIX_INVALID_DIMENSION 113
#define IDS_MATRIX_INCOMPATIBLE_DIMENSION 114
#define IDS_MATRIX_INVALID_INDEX 115
#define IDS_MATRIX_DIVISION_BY_ZERO 116

// Strings: button captions. Each one is the command it stands for (IDOK = 1 to IDNO = 7) plus 105.
#define IDS_BUTTON_OK 106
#define IDS_BUTTON_CANCEL 107
#define IDS_BUTTON_ABORT 108
#define IDS_BUTTON_RETRY 109
#define IDS_BUTTON_IGNORE 110
#define IDS_BUTTON_YES 111
#define IDS_BUTTON_NO 112

// Icon groups; each holds 16, 32 and 48 pixels. The names keep clear of the platform's own IDI_ERROR and its like.
#define IDI_REPORT_ERROR 105
#define IDI_REPORT_WARNING 106
#define IDI_REPORT_INFORMATION 107
#define IDI_REPORT_QUESTION 108
#define IDI_VANTOR 111
#define IDI_HELP 112

// Dialog templates.
#define IDD_ERROR_REPORT 107
#define IDD_ERROR_INFO 108
#define IDD_TIP 109

// Controls without a number of their own (the device's headers know no IDC_STATIC), and the caption bar, which is
// created at run time.
#define IDC_UNNAMED 65535
#define IDC_CAPTION_BAR 65534

// Controls of IDD_ERROR_REPORT: a row of three buttons and a centred row of two, of which one is shown. Commands are
// given to the buttons at run time.
#define IDC_REPORT_ROW3_LEFT 1001
#define IDC_REPORT_ROW3_MIDDLE 1002
#define IDC_REPORT_ROW3_RIGHT 1003
#define IDC_REPORT_ICON 1004
#define IDC_REPORT_MESSAGE 1005
#define IDC_REPORT_DETAILS 1006
#define IDC_REPORT_ROW2_LEFT 1007
#define IDC_REPORT_ROW2_RIGHT 1008

// Controls of IDD_ERROR_INFO: values, then their labels. "2" is the place that the reporter names, beside the place
// where the exception was raised. The Close button is the platform's IDCANCEL.
#define IDC_INFO_MESSAGE 1005
#define IDC_INFO_SOURCE 1007
#define IDC_INFO_FUNCTION 1008
#define IDC_INFO_FILE 1009
#define IDC_INFO_LINE 1010
#define IDC_INFO_FILE2 1011
#define IDC_INFO_LINE2 1012
#define IDC_INFO_SOURCE_LABEL 1020
#define IDC_INFO_FUNCTION_LABEL 1021
#define IDC_INFO_FILE_LABEL 1022
#define IDC_INFO_LINE_LABEL 1023
#define IDC_INFO_MESSAGE_LABEL 1024
#define IDC_INFO_FILE2_LABEL 1025
#define IDC_INFO_LINE2_LABEL 1026

// Control of IDD_TIP.
#define IDC_TIP_TEXT 1012

#endif
