// The order of virtual operations is part of the binary interface: applications call them by position. Read off the
// virtual tables that vantor.dll exports, against the addresses of the functions that it exports.

#ifndef VANTOR_TEST_SLOTS_H
#define VANTOR_TEST_SLOTS_H

#include <vantor/Platform.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace support
{
// A slot whose function is not exported (it is inline, or the class has none).
constexpr char Unnamed[] = "";

inline const void* Exported(const std::string& name)
{
    void* const address = reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"vantor.dll"), name.c_str()));
    EXPECT_NE(nullptr, address) << name << " is not exported";
    return address;
}

// The operations in slot order. The compiler gives a virtual destructor two slots: one destroys, the other also frees.
inline void ExpectSlots(const std::string& table, const std::vector<std::string>& operations)
{
    constexpr std::size_t before = 2;   // the offset to the whole object and the type information
    const auto* const entries = static_cast<const void* const*>(Exported(table));
    ASSERT_NE(nullptr, entries);
    for (std::size_t slot = 0; slot < operations.size(); ++slot)
    {
        if (operations[slot] != Unnamed)
        {
            EXPECT_EQ(Exported(operations[slot]), entries[before + slot]) << operations[slot] << " in slot " << slot;
        }
    }
}
}   // namespace support

#endif
