#ifndef SAMPLE_RESOURCE_H
#define SAMPLE_RESOURCE_H

#define IDS_TITLE 1
#define IDS_NO_TRACE 2

#define IDM_MAIN 10
#define IDM_OPEN 11
#define IDM_SAVE 12
#define IDM_START 13
#define IDM_STOP 14
#define IDM_HOLD 15

#define IDD_SETTINGS 20
#define IDC_FREQUENCY_LABEL 21
#define IDC_FREQUENCY 22
#define IDC_AVERAGE 23

#endif
