// The menu calls that the platform lacks, as members of the translator and as free functions.

#include "TestMenu.h"

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace vantor;
using support::CImportPatch;

namespace
{
struct CMembers
{
    CTranslator translator;

    int Count(HMENU menu) { return translator.GetMenuItemCount(menu); }
    UINT State(HMENU menu, UINT item, UINT flags) { return translator.GetMenuState(menu, item, flags); }
    int String(HMENU menu, UINT item, wchar_t* buffer, int size, UINT flags)
    {
        return translator.GetMenuStringW(menu, item, buffer, size, flags);
    }
    UINT ItemID(HMENU menu, int position) { return translator.GetMenuItemID(menu, position); }
    bool Modify(HMENU menu, UINT item, UINT flags, UINT_PTR id, const wchar_t* text)
    {
        return translator.ModifyMenuW(menu, item, flags, id, text) != 0;
    }
};

struct CFunctions
{
    int Count(HMENU menu) { return menu::GetMenuItemCount(menu); }
    UINT State(HMENU menu, UINT item, UINT flags) { return menu::GetMenuState(menu, item, flags); }
    int String(HMENU menu, UINT item, wchar_t* buffer, int size, UINT flags)
    {
        return menu::GetMenuStringW(menu, item, buffer, size, flags);
    }
    UINT ItemID(HMENU menu, int position) { return menu::GetMenuItemID(menu, position); }
    bool Modify(HMENU menu, UINT item, UINT flags, UINT_PTR id, const wchar_t* text)
    {
        return menu::ModifyMenuW(menu, item, flags, id, text);
    }
};

struct CQuery
{
    UINT size;
    UINT mask;
    UINT item;
    BOOL byPosition;
    const wchar_t* buffer;
    UINT bufferSize;
};
std::vector<CQuery> g_queries;

BOOL WINAPI RecordingGetMenuItemInfo(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFOW* info)
{
    g_queries.push_back({info->cbSize, info->fMask, item, byPosition, info->dwTypeData, info->cch});
    return ::GetMenuItemInfoW(menu, item, byPosition, info);
}

BOOL WINAPI FailingDeleteMenu(HMENU, UINT, UINT)
{
    return FALSE;
}

BOOL WINAPI FailingInsertMenu(HMENU, UINT, UINT, UINT_PTR, LPCWSTR)
{
    return FALSE;
}

template <class T>
class Menu : public ::testing::Test
{
protected:
    Menu() { g_queries.clear(); }

    ustring Text(HMENU menu, UINT item, UINT flags)
    {
        wchar_t text[300] = {};
        calls.String(menu, item, text, static_cast<int>(std::size(text)), flags);
        return text;
    }

    T calls;
    CTestMenu menu{{11, L"one"}, {12, L"two"}, {13, L"three"}};
};

struct CNames
{
    template <class T>
    static std::string GetName(int)
    {
        return std::is_same_v<T, CMembers> ? "Members" : "Functions";
    }
};
using Kinds = ::testing::Types<CMembers, CFunctions>;
TYPED_TEST_SUITE(Menu, Kinds, CNames);
}   // namespace

TYPED_TEST(Menu, EveryQuery_BearsTheRecordsSizeWithoutTheBitmapHandle)
{
    const UINT size = sizeof(void*) == 4 ? 44 : 72;
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    this->calls.Count(this->menu);
    this->calls.State(this->menu, 0, MF_BYPOSITION);
    this->calls.String(this->menu, 0, nullptr, 0, MF_BYPOSITION);
    this->calls.ItemID(this->menu, 0);
    this->calls.Modify(this->menu, 13, 0, 13, L"x");
    ASSERT_FALSE(g_queries.empty());
    for (const CQuery& query : g_queries)
        EXPECT_EQ(size, query.size);
}

TYPED_TEST(Menu, GetMenuItemCount_CountsAllItems)
{
    this->menu.Add(0, nullptr, MF_SEPARATOR);
    this->menu.AddPopup(L"sub");
    EXPECT_EQ(5, this->calls.Count(this->menu));
}

TYPED_TEST(Menu, GetMenuItemCount_EmptyMenu_IsZero)
{
    EXPECT_EQ(0, this->calls.Count(CTestMenu()));
}

TYPED_TEST(Menu, GetMenuItemCount_NoMenu_IsZero)
{
    EXPECT_EQ(0, this->calls.Count(nullptr));
}

TEST(MenuMembers, GetMenuItemCount_AsksForIdsOnly)
{
    CTestMenu menu{{1, L"one"}, {2, L"two"}};
    CTranslator translator;
    g_queries.clear();
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    translator.GetMenuItemCount(menu);
    ASSERT_EQ(3u, g_queries.size());
    for (UINT i = 0; i < 3; ++i)
    {
        EXPECT_EQ(static_cast<UINT>(MIIM_ID), g_queries[i].mask);
        EXPECT_EQ(i, g_queries[i].item);
        EXPECT_TRUE(g_queries[i].byPosition);
    }
}

TEST(MenuFunctions, GetMenuItemCount_AsksForIdsAndTexts)
{
    CTestMenu menu{{1, L"one"}, {2, L"two"}};
    g_queries.clear();
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    menu::GetMenuItemCount(menu);
    ASSERT_EQ(3u, g_queries.size());
    for (UINT i = 0; i < 3; ++i)
    {
        ASSERT_EQ(static_cast<UINT>(MIIM_ID | MIIM_TYPE), g_queries[i].mask);
        EXPECT_EQ(i, g_queries[i].item);
        EXPECT_TRUE(g_queries[i].byPosition);
        EXPECT_NE(nullptr, g_queries[i].buffer);
        EXPECT_EQ(128u, g_queries[i].bufferSize);
    }
}

TYPED_TEST(Menu, GetMenuState_AsksForStateAndType)
{
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    this->calls.State(this->menu, 1, MF_BYPOSITION);
    ASSERT_EQ(1u, g_queries.size());
    EXPECT_EQ(static_cast<UINT>(MIIM_STATE | MIIM_TYPE), g_queries[0].mask);
}

TYPED_TEST(Menu, GetMenuState_PlainItem_IsZero)
{
    EXPECT_EQ(0u, this->calls.State(this->menu, 0, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_TellsGrayed)
{
    this->menu.Add(14, L"x", MF_GRAYED);
    EXPECT_EQ(0x1u, this->calls.State(this->menu, 3, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_TellsChecked)
{
    this->menu.Add(14, L"x", MF_CHECKED);
    EXPECT_EQ(0x8u, this->calls.State(this->menu, 3, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_TellsHighlighted)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE;
    info.fState = MFS_HILITE;
    ::SetMenuItemInfoW(this->menu, 1, TRUE, &info);
    EXPECT_EQ(0x80u, this->calls.State(this->menu, 1, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_TellsSeparator)
{
    this->menu.Add(0, nullptr, MF_SEPARATOR);
    EXPECT_EQ(0x800u, this->calls.State(this->menu, 3, MF_BYPOSITION) & 0x960);   // some systems gray it, too
}

TYPED_TEST(Menu, GetMenuState_TellsOwnerDrawn)
{
    this->menu.Add(14, nullptr, MF_OWNERDRAW);
    EXPECT_EQ(0x100u, this->calls.State(this->menu, 3, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_TellsBreaks)
{
    this->menu.Add(14, L"x", MF_MENUBARBREAK).Add(15, L"y", MF_MENUBREAK);
    EXPECT_EQ(0x20u, this->calls.State(this->menu, 3, MF_BYPOSITION));
    EXPECT_EQ(0x40u, this->calls.State(this->menu, 4, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_TellsNothingElse)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_FTYPE;
    info.fType = MFT_RADIOCHECK | MFT_RIGHTJUSTIFY;
    info.fState = MFS_DEFAULT;
    ::SetMenuItemInfoW(this->menu, 1, TRUE, &info);
    EXPECT_EQ(0u, this->calls.State(this->menu, 1, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_SubMenu_IsNotMarkedAsOne)
{
    this->menu.AddPopup(L"sub");
    EXPECT_EQ(0u, this->calls.State(this->menu, 3, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuState_WithoutByPosition_GoesByCommand)
{
    this->menu.Add(1, L"x", MF_CHECKED);
    EXPECT_EQ(0x8u, this->calls.State(this->menu, 1, 0));
}

TYPED_TEST(Menu, GetMenuState_ByPositionAmongOtherFlags_GoesByPosition)
{
    this->menu.Add(1, L"x", MF_CHECKED);
    EXPECT_EQ(0u, this->calls.State(this->menu, 1, MF_BYPOSITION | MF_GRAYED));
}

TYPED_TEST(Menu, GetMenuStringW_ReadsByPosition)
{
    wchar_t text[20];
    EXPECT_EQ(3, this->calls.String(this->menu, 1, text, 20, MF_BYPOSITION));
    EXPECT_STREQ(L"two", text);
}

TYPED_TEST(Menu, GetMenuStringW_ReadsByCommand)
{
    wchar_t text[20];
    EXPECT_EQ(5, this->calls.String(this->menu, 13, text, 20, MF_BYCOMMAND));
    EXPECT_STREQ(L"three", text);
}

TYPED_TEST(Menu, GetMenuStringW_NullBuffer_TellsTheLength)
{
    EXPECT_EQ(5, this->calls.String(this->menu, 2, nullptr, 0, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuStringW_ShortBuffer_GetsTheBeginning)
{
    wchar_t text[] = L"xxxxxxxx";
    this->calls.String(this->menu, 2, text, 4, MF_BYPOSITION);
    EXPECT_STREQ(L"thr", text);
}

TYPED_TEST(Menu, GetMenuStringW_LongText_IsReadWhole)
{
    const std::wstring text(250, L'x');
    this->menu.Add(14, text.c_str());
    EXPECT_EQ(ustring(text), this->Text(this->menu, 3, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuStringW_ByPositionAmongOtherFlags_GoesByCommand)
{
    this->menu.Add(1, L"command 1");
    EXPECT_EQ(ustring(L"command 1"), this->Text(this->menu, 1, MF_BYPOSITION | MF_CHECKED));
}

TYPED_TEST(Menu, GetMenuStringW_EmptyMenu_IsZeroWithoutAnotherQuery)
{
    const CTestMenu empty;
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    EXPECT_EQ(0, this->calls.String(empty, 0, nullptr, 0, MF_BYPOSITION));
    EXPECT_EQ(1u, g_queries.size());
}

TYPED_TEST(Menu, GetMenuStringW_NoMenu_IsZero)
{
    wchar_t text[20];
    EXPECT_EQ(0, this->calls.String(nullptr, 0, text, 20, MF_BYPOSITION));
}

TYPED_TEST(Menu, GetMenuStringW_ProbesTheFirstItemThenAsksForTheType)
{
    wchar_t text[20];
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    this->calls.String(this->menu, 2, text, 20, MF_BYPOSITION);
    ASSERT_EQ(2u, g_queries.size());
    EXPECT_EQ(0u, g_queries[0].mask);
    EXPECT_EQ(0u, g_queries[0].item);
    EXPECT_TRUE(g_queries[0].byPosition);
    EXPECT_EQ(static_cast<UINT>(MIIM_TYPE), g_queries[1].mask);
    EXPECT_EQ(2u, g_queries[1].item);
    EXPECT_EQ(text, g_queries[1].buffer);
    EXPECT_EQ(20u, g_queries[1].bufferSize);
}

TYPED_TEST(Menu, GetMenuItemID_ReadsByPosition)
{
    EXPECT_EQ(12u, this->calls.ItemID(this->menu, 1));
}

TYPED_TEST(Menu, GetMenuItemID_AsksForTheId)
{
    const CImportPatch patch(&::GetMenuItemInfoW, &RecordingGetMenuItemInfo);
    this->calls.ItemID(this->menu, 1);
    ASSERT_EQ(1u, g_queries.size());
    EXPECT_EQ(static_cast<UINT>(MIIM_ID), g_queries[0].mask);
    EXPECT_TRUE(g_queries[0].byPosition);
}

TYPED_TEST(Menu, ModifyMenuW_ByPosition_ReplacesTheItem)
{
    EXPECT_TRUE(this->calls.Modify(this->menu, 1, MF_BYPOSITION | MF_CHECKED, 99, L"new"));
    EXPECT_EQ(3, ::GetMenuItemCount(this->menu));
    EXPECT_EQ(ustring(L"new"), ItemText(this->menu, 1));
    EXPECT_EQ(99u, ItemInfo(this->menu, 1).wID);
    EXPECT_EQ(static_cast<UINT>(MFS_CHECKED), ItemInfo(this->menu, 1).fState);
}

TYPED_TEST(Menu, ModifyMenuW_ByCommand_ReplacesTheItemInItsPlace)
{
    EXPECT_TRUE(this->calls.Modify(this->menu, 12, MF_BYCOMMAND, 99, L"new"));
    EXPECT_EQ(ustring(L"one"), ItemText(this->menu, 0));
    EXPECT_EQ(ustring(L"new"), ItemText(this->menu, 1));
    EXPECT_EQ(ustring(L"three"), ItemText(this->menu, 2));
}

TYPED_TEST(Menu, ModifyMenuW_CommandTwice_ReplacesTheFirst)
{
    this->menu.Add(12, L"two again");
    this->calls.Modify(this->menu, 12, MF_BYCOMMAND, 99, L"new");
    EXPECT_EQ(ustring(L"new"), ItemText(this->menu, 1));
    EXPECT_EQ(ustring(L"two again"), ItemText(this->menu, 3));
}

TYPED_TEST(Menu, ModifyMenuW_LastItem_StaysTheLast)
{
    EXPECT_TRUE(this->calls.Modify(this->menu, 2, MF_BYPOSITION, 99, L"new"));
    EXPECT_EQ(ustring(L"new"), ItemText(this->menu, 2));
}

TYPED_TEST(Menu, ModifyMenuW_UnknownCommand_FailsAndChangesNothing)
{
    EXPECT_FALSE(this->calls.Modify(this->menu, 999, MF_BYCOMMAND, 99, L"new"));
    ASSERT_EQ(3, ::GetMenuItemCount(this->menu));
    EXPECT_EQ(ustring(L"three"), ItemText(this->menu, 2));
}

TYPED_TEST(Menu, ModifyMenuW_CommandInASubMenu_IsUnknown)
{
    ::AppendMenuW(this->menu.AddPopup(L"sub"), MF_STRING, 20, L"inner");
    EXPECT_FALSE(this->calls.Modify(this->menu, 20, MF_BYCOMMAND, 99, L"new"));
}

TYPED_TEST(Menu, ModifyMenuW_UnknownPosition_Fails)
{
    EXPECT_FALSE(this->calls.Modify(this->menu, 3, MF_BYPOSITION, 99, L"new"));
    EXPECT_EQ(3, ::GetMenuItemCount(this->menu));
}

TYPED_TEST(Menu, ModifyMenuW_DeleteFails_InsertsNothing)
{
    const CImportPatch patch(&::DeleteMenu, &FailingDeleteMenu);
    EXPECT_FALSE(this->calls.Modify(this->menu, 1, MF_BYPOSITION, 99, L"new"));
    EXPECT_EQ(3, ::GetMenuItemCount(this->menu));
}

TYPED_TEST(Menu, ModifyMenuW_InsertFails_Fails)
{
    const CImportPatch patch(&::InsertMenuW, &FailingInsertMenu);
    EXPECT_FALSE(this->calls.Modify(this->menu, 1, MF_BYPOSITION, 99, L"new"));
}
