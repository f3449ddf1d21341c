// The string table is text_test.rc's.

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Strings.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

using vantor::CTranslatorInstance;
using vantor::ustring;

namespace
{
constexpr unsigned int Zero = 0;
constexpr unsigned int Plain = 101;
constexpr unsigned int Empty = 102;
constexpr unsigned int Wide = 103;
constexpr unsigned int Of255 = 104;
constexpr unsigned int Of256 = 105;
constexpr unsigned int Of300 = 106;
constexpr unsigned int Translated = 107;
constexpr unsigned int Missing = 199;

HINSTANCE Self()
{
    return ::GetModuleHandleW(nullptr);
}

// "000|001|002|...": what the long entries hold, as far as it is loaded.
std::wstring Marks(std::size_t length)
{
    std::wstring text;
    for (int mark = 0; text.size() < length; ++mark)
        text += std::to_wstring(1000 + mark).substr(1) + L"|";
    return text.substr(0, length);
}

int WINAPI FailingLoadString(HINSTANCE, UINT, LPWSTR, int)
{
    ::SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return 0;
}
}   // namespace

TEST(StringLoad, Entry_IsLoaded)
{
    ustring text;
    EXPECT_TRUE(text.load(Self(), Plain));
    EXPECT_EQ(text, L"Plain text");
}

TEST(StringLoad, Entry_ReplacesThePreviousContent)
{
    ustring text = L"A previous content that is longer than the entry";
    text.load(Self(), Plain);
    EXPECT_EQ(text, L"Plain text");
}

TEST(StringLoad, EntryInAnyScript_IsLoaded)
{
    ustring text;
    text.load(Self(), Wide);
    EXPECT_EQ(text, L"Gr\u00FC\u00DFe, \u041F\u0440\u0438\u0432\u0435\u0442, \u65E5\u672C");
}

TEST(StringLoad, IdZero_IsAnEntryLikeOthers)
{
    ustring text;
    EXPECT_TRUE(text.load(Self(), Zero));
    EXPECT_EQ(text, L"zero");
}

TEST(StringLoad, MissingEntry_EmptiesTheString)
{
    ustring text = L"old";
    EXPECT_FALSE(text.load(Self(), Missing));
    EXPECT_EQ(text, L"");
}

TEST(StringLoad, EntryInAMissingBlock_EmptiesTheString)
{
    ustring text = L"old";
    EXPECT_FALSE(text.load(Self(), 60000));
    EXPECT_EQ(text, L"");
}

TEST(StringLoad, EmptyEntry_EmptiesTheString)
{
    ustring text = L"old";
    EXPECT_FALSE(text.load(Self(), Empty));
    EXPECT_EQ(text, L"");
}

TEST(StringLoad, FailingCall_EmptiesTheString)
{
    const support::CImportPatch patch(&::LoadStringW, &FailingLoadString);
    ustring text = L"old";
    EXPECT_FALSE(text.load(Self(), Plain));
    EXPECT_EQ(text, L"");
}

TEST(StringLoad, EntryOf255Characters_IsLoadedWhole)
{
    ustring text;
    EXPECT_TRUE(text.load(Self(), Of255));
    EXPECT_EQ(text, Marks(255));
}

TEST(StringLoad, EntryOf256Characters_IsCutToIts255First)
{
    ustring text;
    EXPECT_TRUE(text.load(Self(), Of256));
    EXPECT_EQ(text, Marks(255));
}

TEST(StringLoad, EntryOf300Characters_IsCutToIts255First)
{
    ustring text;
    EXPECT_TRUE(text.load(Self(), Of300));
    EXPECT_EQ(text, Marks(255));
}

TEST(StringLoad, LibrarysOwnStrings_AreFoundInItsModule)
{
    ustring text;
    EXPECT_TRUE(text.load(::GetModuleHandleW(L"vantor.dll"), 101));
}

TEST(StringXload, EntryInTheTable_IsTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"Translated text"] = L"Texte traduit";
    ustring text;
    EXPECT_TRUE(text.xload(Self(), Translated));
    EXPECT_EQ(text, L"Texte traduit");
}

TEST(StringXload, EntryThatIsNotInTheTable_StaysAsItIs)
{
    ustring text;
    EXPECT_TRUE(text.xload(Self(), Plain));
    EXPECT_EQ(text, L"Plain text");
}

TEST(StringXload, LongEntry_IsTranslatedAsItWasCut)
{
    CTranslatorInstance::Ref().m_langFile[Marks(255)] = L"short";
    ustring text;
    EXPECT_TRUE(text.xload(Self(), Of300));
    EXPECT_EQ(text, L"short");
}

TEST(StringXload, TranslationToNothing_IsStillTrue)
{
    CTranslatorInstance::Ref().m_langFile[L"Translated text"] = L"";
    ustring text;
    EXPECT_TRUE(text.xload(Self(), Translated));
    EXPECT_EQ(text, L"");
}

TEST(StringXload, MissingEntry_EmptiesTheString)
{
    ustring text = L"old";
    EXPECT_FALSE(text.xload(Self(), Missing));
    EXPECT_EQ(text, L"");
}

TEST(StringXload, MissingEntry_IsNotTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L""] = L"something";
    ustring text;
    EXPECT_FALSE(text.xload(Self(), Missing));
    EXPECT_EQ(text, L"");
}
