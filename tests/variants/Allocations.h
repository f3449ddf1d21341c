// Counts the blocks that the COM task allocator gives out and takes back: every string of a variant is one, the
// library's as well as those that the platform allocates for it. Exact: the platform keeps no freed string for later
// while this lives.
//
//     const CAllocations allocations;
//     code();
//     EXPECT_EQ(0U, allocations.Held());
//     EXPECT_EQ(0U, allocations.Strays());

#ifndef VANTOR_TEST_VARIANTS_ALLOCATIONS_H
#define VANTOR_TEST_VARIANTS_ALLOCATIONS_H

#include <cstddef>

namespace variants
{
class CAllocations   // one at a time
{
public:
    CAllocations();
    CAllocations(const CAllocations&) = delete;
    CAllocations& operator=(const CAllocations&) = delete;
    ~CAllocations();

    std::size_t Held() const;     // given out since the construction and not taken back
    std::size_t Strays() const;   // taken back without having been given out since: twice, for one
};
}   // namespace variants

#endif
