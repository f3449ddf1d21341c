#include "services/SlotOf.h"

#include "support/Leaks.h"
#include "support/Print.h"
#include "support/Slots.h"

#include <vantor/ContextHelp.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

using namespace vantor;
using support::CResources;

namespace
{
struct CWithMore : CContextHelp
{
    virtual void More() {}
};
}   // namespace

TEST(ContextHelp, New_IsEmpty)
{
    EXPECT_TRUE(CContextHelp().m_langFile.empty());
}

TEST(ContextHelp, Map_IsAPublicLanguageFile)
{
    EXPECT_TRUE((std::is_same_v<CLanguageFile, decltype(CContextHelp::m_langFile)>));
}

TEST(ContextHelp, UnknownClass_HasNoPage)
{
    EXPECT_EQ(ustring(), CContextHelp().GetHelpFileName(L"Spectrum"));
}

TEST(ContextHelp, MappedClass_HasItsPage)
{
    CContextHelp help;
    help.m_langFile[L"Receiver"] = L"receiver.htm";
    help.m_langFile[L"Spectrum"] = L"spectrum.htm";
    EXPECT_EQ(ustring(L"receiver.htm"), help.GetHelpFileName(L"Receiver"));
    EXPECT_EQ(ustring(L"spectrum.htm"), help.GetHelpFileName(L"Spectrum"));
}

TEST(ContextHelp, AskedFor_AnUnknownClassIsNotAdded)
{
    CContextHelp help;
    help.GetHelpFileName(L"Spectrum");
    EXPECT_TRUE(help.m_langFile.empty());
}

TEST(ContextHelp, RegisteredClass_HasNoPage)
{
    CContextHelp help;
    help.RegisterClassW(L"Spectrum");
    EXPECT_EQ(ustring(), help.GetHelpFileName(L"Spectrum"));
}

TEST(ContextHelp, RegisteredClass_IsInTheMapWithAnEmptyPage)
{
    CContextHelp help;
    help.RegisterClassW(L"Spectrum");
    ASSERT_EQ(1u, help.m_langFile.count(L"Spectrum"));
    EXPECT_EQ(ustring(), help.m_langFile[L"Spectrum"]);
}

TEST(ContextHelp, RegisteredTwice_IsOneEntry)
{
    CContextHelp help;
    help.RegisterClassW(L"Spectrum");
    help.RegisterClassW(L"Spectrum");
    EXPECT_EQ(1u, help.m_langFile.size());
}

TEST(ContextHelp, MappedClass_KeepsItsPageWhenItIsRegistered)
{
    CContextHelp help;
    help.m_langFile[L"Spectrum"] = L"spectrum.htm";
    help.RegisterClassW(L"Spectrum");
    EXPECT_EQ(ustring(L"spectrum.htm"), help.GetHelpFileName(L"Spectrum"));
}

TEST(ContextHelp, OtherLetterCase_IsAnotherClass)
{
    CContextHelp help;
    help.RegisterClassW(L"Spectrum");
    help.RegisterClassW(L"SPECTRUM");
    EXPECT_EQ(2u, help.m_langFile.size());
}

TEST(ContextHelp, OtherLetterCase_HasNotThePage)
{
    CContextHelp help;
    help.m_langFile[L"Spectrum"] = L"spectrum.htm";
    EXPECT_EQ(ustring(), help.GetHelpFileName(L"spectrum"));
}

TEST(ContextHelp, BeginningOfAClassName_HasNotThePage)
{
    CContextHelp help;
    help.m_langFile[L"SpectrumView"] = L"spectrum.htm";
    EXPECT_EQ(ustring(), help.GetHelpFileName(L"Spectrum"));
    EXPECT_EQ(ustring(), help.GetHelpFileName(L"SpectrumView "));
}

TEST(ContextHelp, NullClass_IsTheEmptyName)
{
    CContextHelp help;
    help.RegisterClassW(nullptr);
    ASSERT_EQ(1u, help.m_langFile.count(L""));
    help.m_langFile[L""] = L"start.htm";
    EXPECT_EQ(ustring(L"start.htm"), help.GetHelpFileName(nullptr));
}

TEST(ContextHelp, NullClass_HasNoPageAtFirst)
{
    EXPECT_EQ(ustring(), CContextHelp().GetHelpFileName(nullptr));
}

TEST(ContextHelp, Destructor_EmptiesTheMap)
{
    const auto code = []
    {
        const std::unique_ptr<CContextHelp> help = std::make_unique<CWithMore>();
        for (int i = 0; i < 100; ++i)
            help->RegisterClassW((L"a name that is too long to be stored in place " + std::to_wstring(i)).c_str());
    };
    code();
    const CResources before;
    code();
    EXPECT_EQ(before, CResources());
}

TEST(ContextHelpSlots, BeginWithTheDestructor)
{
    support::ExpectSlots("_ZTVN6vantor12CContextHelpE",
                         {"_ZN6vantor12CContextHelpD1Ev", "_ZN6vantor12CContextHelpD0Ev"});
}

TEST(ContextHelpSlots, EndWithTheDestructor)
{
    EXPECT_EQ(2u, SlotOf(&CWithMore::More));
}
