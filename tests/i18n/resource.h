// Resources of the test program, for Gather to find.

#ifndef VANTOR_TEST_I18N_RESOURCE_H
#define VANTOR_TEST_I18N_RESOURCE_H

#define IDD_PLAIN 200
#define IDD_EXTENDED 201
#define IDD_VISIBLE 202
#define IDD_EXTENDED_VISIBLE 203
#define IDD_FOREIGN_CLASS 204
#define IDR_NESTED 300
#define IDR_EXTENDED 301

#endif
