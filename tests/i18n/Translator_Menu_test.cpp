// Menus: what is replaced, what is kept, what is left alone.

#include "TestMenu.h"

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CImportPatch;

namespace
{
constexpr auto NoMode = static_cast<CTranslator::EMode>(2);

int g_changes;

BOOL WINAPI CountingDeleteMenu(HMENU menu, UINT position, UINT flags)
{
    ++g_changes;
    return ::DeleteMenu(menu, position, flags);
}

BOOL WINAPI CountingInsertMenu(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text)
{
    ++g_changes;
    return ::InsertMenuW(menu, position, flags, id, text);
}

BOOL WINAPI FailingInsertMenu(HMENU, UINT, UINT, UINT_PTR, LPCWSTR)
{
    return FALSE;
}

BOOL WINAPI FailingDeleteMenu(HMENU, UINT, UINT)
{
    return FALSE;
}

class TranslatorMenu : public ::testing::Test
{
protected:
    TranslatorMenu()
    {
        m_translator.m_langFile[L"Open"] = L"\u00d6ffnen";
        m_translator.m_langFile[L"File"] = L"Datei";
    }

    void Translate() { m_translator.XlateMenu(m_menu); }

    CTestMenu m_menu;
    CTranslator m_translator;
};
}   // namespace

TEST_F(TranslatorMenu, PlainItem_IsReplacedUnderItsId)
{
    m_menu.Add(11, L"Open");
    Translate();
    ASSERT_EQ(1, ::GetMenuItemCount(m_menu));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 0));
    EXPECT_EQ(11u, ItemInfo(m_menu, 0).wID);
}

TEST_F(TranslatorMenu, Items_KeepTheirOrder)
{
    m_menu.Add(11, L"a").Add(12, L"Open").Add(13, L"b").Add(14, L"Open");
    Translate();
    ASSERT_EQ(4, ::GetMenuItemCount(m_menu));
    EXPECT_EQ(ustring(L"a"), ItemText(m_menu, 0));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 1));
    EXPECT_EQ(ustring(L"b"), ItemText(m_menu, 2));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 3));
}

TEST_F(TranslatorMenu, ItemsWithTheSameId_AreReplacedEachInItsPlace)
{
    m_translator.m_langFile[L"Save"] = L"Sichern";
    m_menu.Add(7, L"Save").Add(7, L"Open");
    Translate();
    EXPECT_EQ(ustring(L"Sichern"), ItemText(m_menu, 0));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 1));
}

TEST_F(TranslatorMenu, UnknownItem_IsNotTouched)
{
    m_menu.Add(11, L"Close");
    g_changes = 0;
    const CImportPatch deletions(&::DeleteMenu, &CountingDeleteMenu);
    const CImportPatch insertions(&::InsertMenuW, &CountingInsertMenu);
    Translate();
    EXPECT_EQ(0, g_changes);
    EXPECT_EQ(ustring(L"Close"), ItemText(m_menu, 0));
}

TEST_F(TranslatorMenu, GrayedItem_StaysGrayed)
{
    m_menu.Add(11, L"Open", MF_GRAYED);
    Translate();
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 0));
    EXPECT_EQ(static_cast<UINT>(MF_GRAYED), ItemInfo(m_menu, 0).fState & MF_GRAYED);
}

TEST_F(TranslatorMenu, CheckedItem_StaysChecked)
{
    m_menu.Add(11, L"Open", MF_CHECKED);
    Translate();
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 0));
    EXPECT_EQ(static_cast<UINT>(MFS_CHECKED), ItemInfo(m_menu, 0).fState);
}

TEST_F(TranslatorMenu, GrayedSubMenu_StaysGrayed)
{
    m_menu.AddPopup(L"File", MF_GRAYED);
    Translate();
    EXPECT_EQ(ustring(L"Datei"), ItemText(m_menu, 0));
    EXPECT_EQ(static_cast<UINT>(MF_GRAYED), ItemInfo(m_menu, 0).fState & MF_GRAYED);
}

TEST_F(TranslatorMenu, LongItem_IsLookedUpWhole)
{
    const std::wstring text(500, L'x');
    m_translator.m_langFile[text] = L"long";
    m_menu.Add(11, text.c_str());
    Translate();
    EXPECT_EQ(ustring(L"long"), ItemText(m_menu, 0));
}

TEST_F(TranslatorMenu, LongTranslation_IsSetWhole)
{
    const std::wstring text(500, L'x');
    m_translator.m_langFile[L"Open"] = text;
    m_menu.Add(11, L"Open");
    Translate();
    EXPECT_EQ(ustring(text), ItemText(m_menu, 0));
}

TEST_F(TranslatorMenu, Separator_StaysOne)
{
    m_translator.m_langFile[L""] = L"not empty";
    m_menu.Add(0, nullptr, MF_SEPARATOR).Add(11, L"Open");
    Translate();
    EXPECT_EQ(static_cast<UINT>(MFT_SEPARATOR), ItemInfo(m_menu, 0).fType);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 1));
}

TEST_F(TranslatorMenu, OwnerDrawnItem_IsLeftAlone)
{
    m_translator.m_langFile[L""] = L"not empty";
    m_menu.Add(11, reinterpret_cast<const wchar_t*>(0x1234), MF_OWNERDRAW).Add(12, L"Open");
    Translate();
    EXPECT_EQ(static_cast<UINT>(MFT_OWNERDRAW), ItemInfo(m_menu, 0).fType);
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(m_menu, 1));
}

TEST_F(TranslatorMenu, OwnerDrawnSubMenu_IsLeftAloneWithAllItems)
{
    const HMENU sub = m_menu.AddPopup(nullptr, MF_OWNERDRAW);
    ::AppendMenuW(sub, MF_STRING, 21, L"Open");
    Translate();
    EXPECT_EQ(ustring(L"Open"), ItemText(sub, 0));
}

TEST_F(TranslatorMenu, ItemThatStartsAColumn_IsLeftAlone)
{
    m_menu.Add(11, L"Open", MF_MENUBREAK);
    Translate();
    EXPECT_EQ(ustring(L"Open"), ItemText(m_menu, 0));
}

TEST_F(TranslatorMenu, ItemThatStartsAColumnWithALine_IsLeftAlone)
{
    m_menu.Add(11, L"Open", MF_MENUBARBREAK);
    Translate();
    EXPECT_EQ(ustring(L"Open"), ItemText(m_menu, 0));
}

TEST_F(TranslatorMenu, SubMenu_GetsItsNewTextAndKeepsItsHandle)
{
    m_menu.Add(11, L"a");
    const HMENU sub = m_menu.AddPopup(L"File");
    m_menu.Add(12, L"b");
    Translate();
    ASSERT_EQ(3, ::GetMenuItemCount(m_menu));
    EXPECT_EQ(ustring(L"Datei"), ItemText(m_menu, 1));
    EXPECT_EQ(sub, ::GetSubMenu(m_menu, 1));
    EXPECT_TRUE(::IsMenu(sub));
}

TEST_F(TranslatorMenu, ItemsOfASubMenu_AreTranslated)
{
    const HMENU sub = m_menu.AddPopup(L"File");
    ::AppendMenuW(sub, MF_STRING, 21, L"Open");
    Translate();
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(sub, 0));
    EXPECT_EQ(21u, ItemInfo(sub, 0).wID);
}

TEST_F(TranslatorMenu, ItemsOfASubMenuWithAnUnknownText_AreTranslated)
{
    const HMENU sub = m_menu.AddPopup(L"unknown");
    ::AppendMenuW(sub, MF_STRING, 21, L"Open");
    Translate();
    EXPECT_EQ(ustring(L"unknown"), ItemText(m_menu, 0));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(sub, 0));
}

TEST_F(TranslatorMenu, SubMenusInSubMenus_AreTranslatedAndKept)
{
    const HMENU sub = m_menu.AddPopup(L"File");
    const HMENU inner = ::CreatePopupMenu();
    ::AppendMenuW(sub, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"File");
    ::AppendMenuW(inner, MF_STRING, 31, L"Open");
    Translate();
    EXPECT_EQ(ustring(L"Datei"), ItemText(sub, 0));
    EXPECT_EQ(inner, ::GetSubMenu(sub, 0));
    EXPECT_EQ(ustring(L"\u00d6ffnen"), ItemText(inner, 0));
}

TEST_F(TranslatorMenu, TranslatedSubMenu_IsDeliberatelyPassedTwice)
{
    m_translator.m_langFile[L"a"] = L"b";
    m_translator.m_langFile[L"b"] = L"c";
    const HMENU sub = m_menu.AddPopup(L"File");
    ::AppendMenuW(sub, MF_STRING, 21, L"a");
    Translate();
    EXPECT_EQ(ustring(L"c"), ItemText(sub, 0));
}

TEST_F(TranslatorMenu, SubMenuWithAnUnknownText_IsPassedOnce)
{
    m_translator.m_langFile[L"a"] = L"b";
    m_translator.m_langFile[L"b"] = L"c";
    const HMENU sub = m_menu.AddPopup(L"unknown");
    ::AppendMenuW(sub, MF_STRING, 21, L"a");
    Translate();
    EXPECT_EQ(ustring(L"b"), ItemText(sub, 0));
}

TEST_F(TranslatorMenu, SubMenuThatCannotBeReplaced_IsLeft)
{
    m_translator.m_langFile.clear();
    m_translator.m_langFile[L"File"] = L"Datei";
    const HMENU sub = m_menu.AddPopup(L"File");
    {
        const CImportPatch patch(&::InsertMenuW, &FailingInsertMenu);
        Translate();
    }
    ASSERT_EQ(1, ::GetMenuItemCount(m_menu));
    EXPECT_EQ(ustring(L"File"), ItemText(m_menu, 0));
    EXPECT_EQ(sub, ::GetSubMenu(m_menu, 0));
}

TEST_F(TranslatorMenu, ItemThatCannotBeDeleted_IsLeft)
{
    m_menu.Add(11, L"Open").Add(12, L"b");
    {
        const CImportPatch patch(&::DeleteMenu, &FailingDeleteMenu);
        Translate();
    }
    ASSERT_EQ(2, ::GetMenuItemCount(m_menu));
    EXPECT_EQ(ustring(L"Open"), ItemText(m_menu, 0));
}

TEST_F(TranslatorMenu, Gathering_CollectsItemsAndSubMenus)
{
    m_translator.m_langFile.clear();
    m_menu.Add(11, L"Open\tCtrl+O").Add(0, nullptr, MF_SEPARATOR);
    ::AppendMenuW(m_menu.AddPopup(L"File"), MF_STRING, 21, L"inner");
    m_menu.Add(12, L"column", MF_MENUBREAK);
    m_translator.SetMode(CTranslator::eGather);
    Translate();

    CLanguageFile expected;
    for (const wchar_t* text : {L"Open\tCtrl+O", L"File", L"inner"})
        expected[text] = text;
    EXPECT_EQ(expected, m_translator.m_langFile);
}

TEST_F(TranslatorMenu, Gathering_ChangesNothing)
{
    m_menu.Add(11, L"Open").AddPopup(L"File");
    m_translator.SetMode(CTranslator::eGather);
    g_changes = 0;
    const CImportPatch deletions(&::DeleteMenu, &CountingDeleteMenu);
    const CImportPatch insertions(&::InsertMenuW, &CountingInsertMenu);
    Translate();
    EXPECT_EQ(0, g_changes);
}

TEST_F(TranslatorMenu, AnotherMode_ChangesNothing)
{
    m_menu.Add(11, L"Open").AddPopup(L"File");
    m_translator.SetMode(NoMode);
    Translate();
    EXPECT_EQ(ustring(L"Open"), ItemText(m_menu, 0));
    EXPECT_EQ(ustring(L"File"), ItemText(m_menu, 1));
}

TEST_F(TranslatorMenu, NoMenu_GathersNothing)
{
    m_translator.m_langFile.clear();
    m_translator.SetMode(CTranslator::eGather);
    m_translator.XlateMenu(nullptr);
    EXPECT_TRUE(m_translator.m_langFile.empty());
}
