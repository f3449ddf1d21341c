// Where the fields of CIniFile stand, and what its virtual table holds: applications and the library must agree on it.

#include "IniTest.h"
#include "support/Slots.h"

#include <cstring>
#include <list>
#include <type_traits>

using namespace vantor;
using namespace settings_test;

namespace
{
constexpr std::size_t Pointer = sizeof(void*);
constexpr std::size_t Name = Pointer;
constexpr std::size_t Unicode = Name + sizeof(ustring);
constexpr std::size_t File = Unicode + Pointer;   // padded
constexpr std::size_t LineList = File + sizeof(CFile);

// With an operation of its own, which takes the first free slot.
class CProbe : public CIniFile
{
public:
    using CIniFile::CIniFile;
    virtual void Own() {}
};

class IniFileLayout : public IniTest
{
protected:
    template <class T>
    const T& At(std::size_t offset)
    {
        return *reinterpret_cast<const T*>(reinterpret_cast<const unsigned char*>(&m_ini) + offset);
    }

    CIniFile& m_ini = Open(MarkedUtf16(L"[S]\r\nk=v\r\n"));
};
}   // namespace

TEST_F(IniFileLayout, TheNameComesFirst)
{
    EXPECT_EQ(m_path, At<ustring>(Name));
}

TEST_F(IniFileLayout, TheEncodingComesSecond_AndStartsFalse)
{
    EXPECT_FALSE(At<bool>(Unicode));
    m_ini.Load();
    EXPECT_TRUE(At<bool>(Unicode));
}

TEST_F(IniFileLayout, TheFileComesThird)
{
    BY_HANDLE_FILE_INFORMATION open, wanted;
    ASSERT_TRUE(::GetFileInformationByHandle(At<CFile>(File), &open));
    const CFile same(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                     nullptr);
    ASSERT_TRUE(::GetFileInformationByHandle(same, &wanted));
    EXPECT_EQ(wanted.nFileIndexLow, open.nFileIndexLow);
    EXPECT_EQ(wanted.nFileIndexHigh, open.nFileIndexHigh);
}

TEST_F(IniFileLayout, TheLinesComeLast)
{
    m_ini.Load();
    EXPECT_EQ((std::list<ustring>{L"[S]", L"k=v"}), At<std::list<ustring>>(LineList));
}

TEST_F(IniFileLayout, NothingFollows)
{
    EXPECT_EQ(LineList + sizeof(std::list<ustring>), sizeof(CIniFile));
}

TEST(IniFileTable, HasADestructorThatMayThrow)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIniFile>);
    EXPECT_FALSE(std::is_nothrow_destructible_v<CIniFile>);
}

#ifdef __MINGW32__   // in this compiler's virtual tables, by its names
TEST(IniFileTable, BeginsWithTheDestructor)
{
    support::ExpectSlots("_ZTVN6vantor8CIniFileE", {"_ZN6vantor8CIniFileD1Ev", "_ZN6vantor8CIniFileD0Ev"});
}

TEST(IniFileTable, HasNothingButTheDestructor)
{
    const auto own = &CProbe::Own;
    std::uintptr_t offset;   // of the slot, plus one
    std::memcpy(&offset, &own, sizeof offset);
    EXPECT_EQ(2 * Pointer + 1, offset);   // the compiler gives a destructor two slots
}
#endif
