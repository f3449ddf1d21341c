// What a thousand reports leave behind.

#include "Driver.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
// The device's screen: on a larger one most of the time goes into filling it.
int WINAPI SmallScreen(int index)
{
    return index == SM_CXSCREEN ? 240 : index == SM_CYSCREEN ? 320 : ::GetSystemMetrics(index);
}

void Reports(int count)
{
    static const unsigned int types[] = {0x00, 0x11, 0x22, 0x33, 0x44};
    static const int commands[] = {IDOK, IDOK, IDABORT, IDYES, IDYES};
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(commands[i % 5], Report(types[i % 5], {Pressing(commands[i % 5])}));
}

void ReportsWithDetails(int count)
{
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(IDNO, Report(MB_YESNO, {OpenDetails, Pressing(IDCANCEL), Pressing(IDNO)}));
}

// Wine opens a handle of its own at some time while dialogs come and go; one that a report leaves would come as often
// as they.
void ExpectNothingLeft(const support::CResources& before)
{
    const support::CResources after;
    EXPECT_EQ(before.gdiObjects, after.gdiObjects);
    EXPECT_EQ(before.userObjects, after.userObjects);
    EXPECT_EQ(before.heapBlocks, after.heapBlocks);
    EXPECT_LE(after.handles, before.handles + 3);
}
}   // namespace

TEST(ReportLeaks, AThousandReports_LeaveNothingBehind)
{
    const support::CImportPatch patch(&::GetSystemMetrics, &SmallScreen);
    Reports(20);
    const support::CResources before;
    Reports(1000);
    ExpectNothingLeft(before);
}

TEST(ReportLeaks, AHundredDetails_LeaveNothingBehind)
{
    const support::CImportPatch patch(&::GetSystemMetrics, &SmallScreen);
    ReportsWithDetails(20);
    const support::CResources before;
    ReportsWithDetails(100);
    ExpectNothingLeft(before);
}
