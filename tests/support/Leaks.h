// Counts of what a process holds. Exact, but run the code once before the first count: first uses allocate for good.
//
//     code();
//     const CResources before;
//     code();
//     EXPECT_EQ(before, CResources());

#ifndef VANTOR_TEST_LEAKS_H
#define VANTOR_TEST_LEAKS_H

#include <cstddef>
#include <ostream>

namespace support
{
struct CResources
{
    CResources();   // counts now

    std::size_t handles;
    std::size_t gdiObjects;
    std::size_t userObjects;   // menus, icons, windows of this process on the thread's desktop
    std::size_t heapBlocks;    // of the C runtime's heap

    bool operator==(const CResources& other) const;
};

std::ostream& operator<<(std::ostream& out, const CResources& resources);
}   // namespace support

#endif
