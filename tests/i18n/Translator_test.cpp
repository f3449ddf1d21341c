// Single texts: modes and look-ups.

#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace vantor;

namespace
{
constexpr auto NoMode = static_cast<CTranslator::EMode>(2);

CTranslator Knowing(const wchar_t* source, const wchar_t* translation)
{
    CTranslator translator;
    translator.m_langFile[source] = translation;
    return translator;
}

// The text after XlateEx; fails the test if its answer is another.
ustring Translated(CTranslator& translator, const wchar_t* source, bool answer)
{
    ustring text(source);
    EXPECT_EQ(answer, translator.XlateEx(text));
    return text;
}
}   // namespace

TEST(Translator, New_IsEmptyAndTranslates)
{
    CTranslator translator;
    EXPECT_TRUE(translator.m_langFile.empty());
    EXPECT_EQ(CTranslator::eTranslate, translator.SetMode(CTranslator::eTranslate));
}

TEST(Translator, Modes_HaveFixedNumbers)
{
    EXPECT_EQ(0, static_cast<int>(CTranslator::eGather));
    EXPECT_EQ(1, static_cast<int>(CTranslator::eTranslate));
}

TEST(Translator, SetMode_ReturnsThePreviousMode)
{
    CTranslator translator;
    translator.SetMode(CTranslator::eGather);
    EXPECT_EQ(CTranslator::eGather, translator.SetMode(NoMode));
    EXPECT_EQ(NoMode, translator.SetMode(CTranslator::eTranslate));
}

TEST(Translator, Class_HasAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CTranslator>);
}

TEST(Translator, XlateEx_KnownText_BecomesItsTranslation)
{
    CTranslator translator = Knowing(L"Open", L"\u00d6ffnen");
    EXPECT_EQ(ustring(L"\u00d6ffnen"), Translated(translator, L"Open", true));
}

TEST(Translator, XlateEx_UnknownText_StaysAsItIs)
{
    CTranslator translator = Knowing(L"Open", L"x");
    EXPECT_EQ(ustring(L"Close"), Translated(translator, L"Close", false));
}

TEST(Translator, XlateEx_TrailingBlank_IsAnotherText)
{
    CTranslator translator = Knowing(L"Open", L"x");
    EXPECT_EQ(ustring(L"Open "), Translated(translator, L"Open ", false));
}

TEST(Translator, XlateEx_LeadingBlank_IsAnotherText)
{
    CTranslator translator = Knowing(L"Open", L"x");
    EXPECT_EQ(ustring(L" Open"), Translated(translator, L" Open", false));
}

TEST(Translator, XlateEx_OtherCase_IsAnotherText)
{
    CTranslator translator = Knowing(L"Open", L"x");
    EXPECT_EQ(ustring(L"open"), Translated(translator, L"open", false));
}

TEST(Translator, XlateEx_Ampersand_IsPartOfTheText)
{
    CTranslator translator = Knowing(L"&Open", L"x");
    EXPECT_EQ(ustring(L"Open"), Translated(translator, L"Open", false));
}

TEST(Translator, XlateEx_Formats_AreNotFilledIn)
{
    CTranslator translator = Knowing(L"%d files", L"%d Dateien (%s)");
    EXPECT_EQ(ustring(L"%d Dateien (%s)"), Translated(translator, L"%d files", true));
}

TEST(Translator, XlateEx_PartOfAKnownText_IsAnotherText)
{
    CTranslator translator = Knowing(L"Open file", L"x");
    EXPECT_EQ(ustring(L"Open"), Translated(translator, L"Open", false));
}

TEST(Translator, XlateEx_TranslationThatIsASourceText_IsNotTranslatedAgain)
{
    CTranslator translator = Knowing(L"a", L"b");
    translator.m_langFile[L"b"] = L"c";
    EXPECT_EQ(ustring(L"b"), Translated(translator, L"a", true));
}

TEST(Translator, XlateEx_WhileTranslating_CollectsNothing)
{
    CTranslator translator;
    Translated(translator, L"Open", false);
    EXPECT_TRUE(translator.m_langFile.empty());
}

TEST(Translator, XlateEx_Gathering_AddsTheTextAsItsOwnTranslationOnce)
{
    CTranslator translator;
    translator.SetMode(CTranslator::eGather);
    EXPECT_EQ(ustring(L"Open"), Translated(translator, L"Open", true));
    EXPECT_EQ(ustring(L"Open"), Translated(translator, L"Open", true));
    EXPECT_EQ(1u, translator.m_langFile.size());
    EXPECT_EQ(ustring(L"Open"), translator.m_langFile[L"Open"]);
}

TEST(Translator, XlateEx_Gathering_CollectsTheEmptyString)
{
    CTranslator translator;
    translator.SetMode(CTranslator::eGather);
    Translated(translator, L"", true);
    EXPECT_EQ(1u, translator.m_langFile.count(L""));
}

TEST(Translator, XlateEx_GatheringAKnownText_KeepsTextAndTranslation)
{
    CTranslator translator = Knowing(L"Open", L"\u00d6ffnen");
    translator.SetMode(CTranslator::eGather);
    EXPECT_EQ(ustring(L"Open"), Translated(translator, L"Open", true));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), translator.m_langFile[L"Open"]);
}

TEST(Translator, XlateEx_InAnotherMode_LooksUp)
{
    CTranslator translator = Knowing(L"Open", L"x");
    translator.SetMode(NoMode);
    EXPECT_EQ(ustring(L"x"), Translated(translator, L"Open", true));
}

TEST(Translator, XlateEx_InAnotherMode_CollectsNothing)
{
    CTranslator translator;
    translator.SetMode(NoMode);
    Translated(translator, L"Open", false);
    EXPECT_TRUE(translator.m_langFile.empty());
}

TEST(Translator, GatheredTexts_CanBeSavedTranslatedAndLoaded)
{
    const support::CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    CTranslator gatherer;
    gatherer.SetMode(CTranslator::eGather);
    Translated(gatherer, L"Open", true);
    gatherer.m_langFile[L"Open"] = L"Ouvrir";
    gatherer.m_langFile.SaveLanguageFile(path.c_str());

    CTranslator translator;
    ASSERT_TRUE(translator.m_langFile.LoadLanguageFile(path.c_str()));
    EXPECT_EQ(ustring(L"Ouvrir"), Translated(translator, L"Open", true));
}

// A class compiled into the program would see another object than the library's code does.
TEST(Translator, Instance_IsTheSameForProgramAndLibrary)
{
    EXPECT_EQ(&CPhoenixSingleton<CTranslator>::Ref(), &CTranslatorInstance::Ref());
}

TEST(Translator, Instance_IsTheOneThatTheLibraryAsks)
{
    const HMODULE library = ::GetModuleHandleW(L"vantor.dll");
    ustring source, translated;
    ASSERT_TRUE(source.load(library, 101));
    CPhoenixSingleton<CTranslator>::Ref().m_langFile[source] = L"translated";
    EXPECT_TRUE(translated.xload(library, 101));
    EXPECT_EQ(ustring(L"translated"), translated);
}
