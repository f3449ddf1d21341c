#ifndef REPORT_RESOURCE_H
#define REPORT_RESOURCE_H

#define IDS_TITLE 1
#define IDS_LINK 2

#endif
