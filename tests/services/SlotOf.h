// Where a virtual operation stands in its class's table. One that a derived class adds tells how many its base has.

#ifndef VANTOR_TEST_SERVICES_SLOTOF_H
#define VANTOR_TEST_SERVICES_SLOTOF_H

#include <cstddef>
#include <cstring>

// A pointer to a virtual member holds the offset in the table, plus one to tell it from an address.
template <class Member>
std::size_t SlotOf(Member member)
{
    std::size_t value;
    std::memcpy(&value, &member, sizeof value);
    return (value - 1) / sizeof(void*);
}

#endif
