// Copies of whole menus, and menus read anew from a resource.

#include "TestMenu.h"
#include "resource.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"
#include "support/Print.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using support::CImportPatch;
using support::CResources;

namespace
{
HINSTANCE Program()
{
    return ::GetModuleHandleW(nullptr);
}

int g_allowedCalls;   // this many succeed, all later ones fail

BOOL WINAPI LimitedAppendMenu(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text)
{
    return g_allowedCalls-- > 0 ? ::AppendMenuW(menu, flags, id, text) : FALSE;
}

HMENU WINAPI FailingCreatePopupMenu()
{
    return nullptr;
}

// Fails where the copy asks for everything at once.
BOOL WINAPI FailingDetailedGetMenuItemInfo(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFOW* info)
{
    return (info->fMask & MIIM_DATA) == 0 && ::GetMenuItemInfoW(menu, item, byPosition, info);
}

UINT g_mask;
UINT g_textSize;

BOOL WINAPI RecordingGetMenuItemInfo(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFOW* info)
{
    if (info->fMask & MIIM_DATA)
    {
        g_mask = info->fMask;
        g_textSize = info->cch;
    }
    return ::GetMenuItemInfoW(menu, item, byPosition, info);
}
}   // namespace

TEST(CopyMenu, Items_KeepTheirOrderIdsAndTexts)
{
    const CTestMenu source{{11, L"one"}, {12, L"two\tCtrl+T"}};
    const CTestMenu target;
    EXPECT_TRUE(menu::CopyMenu(target, source));
    ASSERT_EQ(2, ::GetMenuItemCount(target));
    EXPECT_EQ(11u, ItemInfo(target, 0).wID);
    EXPECT_EQ(ustring(L"one"), ItemText(target, 0));
    EXPECT_EQ(12u, ItemInfo(target, 1).wID);
    EXPECT_EQ(ustring(L"two\tCtrl+T"), ItemText(target, 1));
}

TEST(CopyMenu, Copies_AreAppended)
{
    const CTestMenu source{{11, L"new"}};
    const CTestMenu target{{1, L"old"}};
    EXPECT_TRUE(menu::CopyMenu(target, source));
    EXPECT_EQ(ustring(L"old"), ItemText(target, 0));
    EXPECT_EQ(ustring(L"new"), ItemText(target, 1));
}

TEST(CopyMenu, EmptySource_Succeeds)
{
    const CTestMenu source;
    const CTestMenu target;
    EXPECT_TRUE(menu::CopyMenu(target, source));
    EXPECT_EQ(0, ::GetMenuItemCount(target));
}

TEST(CopyMenu, NoSource_Succeeds)
{
    const CTestMenu target;
    EXPECT_TRUE(menu::CopyMenu(target, nullptr));
}

TEST(CopyMenu, Separator_StaysOne)
{
    CTestMenu source;
    source.Add(0, nullptr, MF_SEPARATOR);
    const CTestMenu target;
    menu::CopyMenu(target, source);
    ASSERT_EQ(1, ::GetMenuItemCount(target));
    EXPECT_EQ(static_cast<UINT>(MFT_SEPARATOR), ItemInfo(target, 0).fType);
}

TEST(CopyMenu, CheckMarks_AreDeliberatelyNotCopied)
{
    CTestMenu source;
    source.Add(11, L"x", MF_CHECKED);
    const CTestMenu target;
    menu::CopyMenu(target, source);
    EXPECT_EQ(0u, ItemInfo(target, 0).fState);
}

TEST(CopyMenu, GrayedStates_AreDeliberatelyNotCopied)
{
    CTestMenu source;
    source.Add(11, L"x", MF_GRAYED);
    source.AddPopup(L"sub", MF_GRAYED);
    const CTestMenu target;
    menu::CopyMenu(target, source);
    EXPECT_EQ(0u, ItemInfo(target, 0).fState);
    EXPECT_EQ(0u, ItemInfo(target, 1).fState);
}

TEST(CopyMenu, SubMenus_AreCopiedDeep)
{
    CTestMenu source;
    const HMENU sub = source.AddPopup(L"sub");
    const HMENU inner = ::CreatePopupMenu();
    ::AppendMenuW(sub, MF_STRING, 21, L"first");
    ::AppendMenuW(sub, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"inner");
    ::AppendMenuW(inner, MF_STRING, 31, L"leaf");
    const CTestMenu target;
    EXPECT_TRUE(menu::CopyMenu(target, source));

    EXPECT_EQ(ustring(L"sub"), ItemText(target, 0));
    const HMENU copiedSub = ::GetSubMenu(target, 0);
    ASSERT_EQ(2, ::GetMenuItemCount(copiedSub));
    EXPECT_EQ(ustring(L"first"), ItemText(copiedSub, 0));
    EXPECT_EQ(ustring(L"inner"), ItemText(copiedSub, 1));
    const HMENU copiedInner = ::GetSubMenu(copiedSub, 1);
    EXPECT_EQ(31u, ItemInfo(copiedInner, 0).wID);
    EXPECT_EQ(ustring(L"leaf"), ItemText(copiedInner, 0));
    EXPECT_NE(sub, copiedSub);
    EXPECT_NE(inner, copiedInner);
}

TEST(CopyMenu, LongText_IsCutToWhatTheBufferHolds)
{
    CTestMenu source;
    source.Add(11, std::wstring(200, L'x').c_str());
    const CTestMenu target;
    EXPECT_TRUE(menu::CopyMenu(target, source));
    EXPECT_EQ(ustring(std::wstring(127, L'x')), ItemText(target, 0));
}

TEST(CopyMenu, Source_IsUnchanged)
{
    CTestMenu source{{11, L"one"}};
    const HMENU sub = source.AddPopup(L"sub");
    const CTestMenu target;
    menu::CopyMenu(target, source);
    EXPECT_EQ(2, ::GetMenuItemCount(source));
    EXPECT_EQ(sub, ::GetSubMenu(source, 1));
}

TEST(CopyMenu, AsksForEverythingWithATextBuffer)
{
    const CTestMenu source{{11, L"one"}};
    const CTestMenu target;
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    menu::CopyMenu(target, source);
    EXPECT_EQ(static_cast<UINT>(MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_TYPE | MIIM_DATA), g_mask);
    EXPECT_EQ(128u, g_textSize);
}

TEST(CopyMenu, ReadFails_EndsWithFalse)
{
    const CTestMenu source{{11, L"one"}};
    const CTestMenu target;
    const CImportPatch patch(&::GetMenuItemInfoW, &FailingDetailedGetMenuItemInfo);
    EXPECT_FALSE(menu::CopyMenu(target, source));
    EXPECT_EQ(0, ::GetMenuItemCount(target));
}

TEST(CopyMenu, AppendFails_EndsWithFalseBehindWhatWasCopied)
{
    const CTestMenu source{{11, L"one"}, {12, L"two"}, {13, L"three"}};
    const CTestMenu target;
    g_allowedCalls = 1;
    const CImportPatch patch(&::AppendMenuW, &LimitedAppendMenu);
    EXPECT_FALSE(menu::CopyMenu(target, source));
    EXPECT_EQ(1, ::GetMenuItemCount(target));
}

TEST(CopyMenu, AppendInASubMenuFails_EndsWithFalse)
{
    CTestMenu source;
    ::AppendMenuW(source.AddPopup(L"sub"), MF_STRING, 21, L"inner");
    source.Add(12, L"behind");
    const CTestMenu target;
    g_allowedCalls = 1;
    const CImportPatch patch(&::AppendMenuW, &LimitedAppendMenu);
    EXPECT_FALSE(menu::CopyMenu(target, source));
    EXPECT_EQ(1, ::GetMenuItemCount(target));
}

TEST(CopyMenu, AppendOfASubMenuFails_LeavesNoMenuBehind)
{
    CTestMenu source;
    source.AddPopup(L"sub");
    const CTestMenu target;
    CResources();   // counting opens things of its own
    const CResources before;
    g_allowedCalls = 0;
    const CImportPatch patch(&::AppendMenuW, &LimitedAppendMenu);
    EXPECT_FALSE(menu::CopyMenu(target, source));
    EXPECT_EQ(before.userObjects, CResources().userObjects);
}

TEST(CopyMenu, NoPopupToBeHad_EndsWithFalse)
{
    CTestMenu source;
    source.AddPopup(L"sub");
    const CTestMenu target;
    const CImportPatch patch(&::CreatePopupMenu, &FailingCreatePopupMenu);
    EXPECT_FALSE(menu::CopyMenu(target, source));
    EXPECT_EQ(0, ::GetMenuItemCount(target));
}

TEST(ReloadMenu, Items_AreReplacedByTheResources)
{
    const CTestMenu menu{{1, L"old"}, {2, L"older"}};
    EXPECT_TRUE(menu::ReloadMenu(menu, Program(), IDR_NESTED));
    ASSERT_EQ(3, ::GetMenuItemCount(menu));
    EXPECT_EQ(ustring(L"menu file"), ItemText(menu, 0));
    EXPECT_EQ(ustring(L"menu open\tCtrl+O"), ItemText(::GetSubMenu(menu, 0), 0));
}

TEST(ReloadMenu, Id_CountsWithItsLowSixteenBits)
{
    const CTestMenu menu;
    EXPECT_TRUE(menu::ReloadMenu(menu, Program(), 0xABCD0000 | IDR_NESTED));
    EXPECT_EQ(3, ::GetMenuItemCount(menu));
}

TEST(ReloadMenu, MissingResource_FailsWithTheMenuEmptied)
{
    const CTestMenu menu{{1, L"old"}};
    EXPECT_FALSE(menu::ReloadMenu(menu, Program(), 399));
    EXPECT_EQ(0, ::GetMenuItemCount(menu));
}

TEST(ReloadMenu, CopyFails_Fails)
{
    const CTestMenu menu;
    g_allowedCalls = 0;
    const CImportPatch patch(&::AppendMenuW, &LimitedAppendMenu);
    EXPECT_FALSE(menu::ReloadMenu(menu, Program(), IDR_NESTED));
}

TEST(ReloadMenu, RemovedSubMenus_SurviveForTheirOwners)
{
    CTestMenu menu;
    const HMENU sub = menu.AddPopup(L"sub");
    menu::ReloadMenu(menu, Program(), IDR_NESTED);
    EXPECT_TRUE(::IsMenu(sub));
    ::DestroyMenu(sub);
}

TEST(ReloadMenu, LoadedMenu_IsNotLeftBehind)
{
    const auto reload = []
    {
        const CTestMenu menu;
        menu::ReloadMenu(menu, Program(), IDR_NESTED);
    };
    reload();
    CResources();   // counting opens things of its own
    const CResources before;
    reload();
    EXPECT_EQ(before, CResources());
}
