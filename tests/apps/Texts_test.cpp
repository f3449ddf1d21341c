// The test program is the module that is gathered: its resources are apps_test.rc.

#include "Texts.h"
#include "support/Failure.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace vantor;
using support::CTempFolder;
using support::FailsWith;

namespace
{
ustring ThisModule()
{
    ustring path;
    CFile::GetModuleFileNameW(nullptr, path, true);
    return path;
}

CLanguageFile Table(std::initializer_list<std::pair<const ustring, ustring>> entries)
{
    CLanguageFile table;
    table.insert(entries.begin(), entries.end());
    return table;
}

std::vector<ustring> Sources(const CLanguageFile& table)
{
    std::vector<ustring> result;
    for (const auto& entry : table)
        result.push_back(entry.first);
    return result;
}
}   // namespace

TEST(Gather, FindsEveryTextOfTheModuleOnce)
{
    CLanguageFile table;
    lng::Gather(ThisModule(), table);
    const std::vector<ustring> expected = {
        L"&Open...\tCtrl+O", L"&Span:", L"&Trace", L"Cancel", L"Gr\u00F6\u00DFe: %d \u00B5m", L"OK", L"Ready",
        L"Settings"};
    EXPECT_EQ(Sources(table), expected);
}

TEST(Gather, EachText_IsItsOwnTranslation)
{
    CLanguageFile table;
    lng::Gather(ThisModule(), table);
    for (const auto& [source, translation] : table)
        EXPECT_EQ(translation, source);
}

TEST(Gather, CountsATextWhereItIsMetFirst)
{
    CLanguageFile table;
    const lng::Counts counts = lng::Gather(ThisModule(), table);
    EXPECT_EQ(counts.strings, 3u);   // "Ready" once, "Cancel" here and not with the dialogs
    EXPECT_EQ(counts.dialogs, 2u);
    EXPECT_EQ(counts.menus, 3u);
}

TEST(Gather, EmptyTextOfADialog_IsLeftOut)
{
    CLanguageFile table;
    lng::Gather(ThisModule(), table);
    EXPECT_EQ(table.count(L""), 0u);
}

TEST(Gather, TextWithATranslation_KeepsIt)
{
    CLanguageFile table = Table({{L"Ready", L"Bereit"}});
    lng::Gather(ThisModule(), table);
    EXPECT_EQ(table[L"Ready"], L"Bereit");
}

TEST(Gather, OtherEntries_Stay)
{
    CLanguageFile table = Table({{L"elsewhere", L"anderswo"}});
    lng::Gather(ThisModule(), table);
    EXPECT_EQ(table[L"elsewhere"], L"anderswo");
}

TEST(Gather, MissingModule_FailsWithTheSystemsError)
{
    const CTempFolder folder;
    CLanguageFile table;
    EXPECT_TRUE(FailsWith(1, L".\\lng", L"LoadLibraryEx", ERROR_FILE_NOT_FOUND,
                          [&] { lng::Gather(folder.File(L"missing.dll"), table); }));
}

TEST(Gather, FileThatIsNoModule_FailsWithTheSystemsError)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"text.dll", "no module");
    CLanguageFile table;
    EXPECT_TRUE(FailsWith(1, L".\\lng", L"LoadLibraryEx", ERROR_BAD_EXE_FORMAT, [&] { lng::Gather(path, table); }));
}

TEST(Gather, ModuleThatCannotBeLoaded_LeavesTheTableAsItWas)
{
    const CTempFolder folder;
    CLanguageFile table = Table({{L"a", L"b"}});
    EXPECT_THROW(lng::Gather(folder.File(L"missing.dll"), table), CWinException);
    EXPECT_EQ(table, Table({{L"a", L"b"}}));
}

TEST(Load, MissingFile_IsAFailureUnlikeInTheLibrary)
{
    const CTempFolder folder;
    EXPECT_TRUE(FailsWith(41, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND,
                          [&] { lng::Load(folder.File(L"missing.lng")); }));
}

TEST(Load, FileThatIsNoLanguageFile_FailsWithInvalidData)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"notes.txt", "some notes");
    EXPECT_TRUE(FailsWith(57, L".\\Translator", L"vantor::CLanguageFile::LoadLanguageFile", ERROR_INVALID_DATA,
                          [&] { lng::Load(path); }));
}

TEST(Load, LanguageFile_GivesItsTable)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", support::Utf16(L"\uFEFF[Open]\n[\u00D6ffnen]\n"));
    EXPECT_EQ(lng::Load(path), Table({{L"Open", L"\u00D6ffnen"}}));
}

TEST(NotStorable, CarriageReturnInASource_IsReported)
{
    EXPECT_EQ(lng::NotStorable(Table({{L"a\r\nb", L"x"}})), std::vector<ustring>{L"a\r\nb"});
}

TEST(NotStorable, CarriageReturnInATranslation_IsReportedByItsSource)
{
    EXPECT_EQ(lng::NotStorable(Table({{L"a", L"x\ry"}})), std::vector<ustring>{L"a"});
}

TEST(NotStorable, LineBreakBetweenBrackets_IsReported)
{
    EXPECT_EQ(lng::NotStorable(Table({{L"a]\n[b", L"x"}})), std::vector<ustring>{L"a]\n[b"});
}

TEST(NotStorable, WhatIsNotReported_SurvivesAFile)
{
    const CTempFolder folder;
    CLanguageFile table =
        Table({{L"a]\nb", L"]"}, {L"[", L"x\n[y"}, {L"\n", L"]\n"}, {L"two\nlines", L"[z]"}, {L"q", L""}});
    ASSERT_TRUE(lng::NotStorable(table).empty());
    lng::Save(table, folder.File(L"x.lng"));
    EXPECT_EQ(lng::Load(folder.File(L"x.lng")), table);
}

TEST(Count, EmptyTable_IsAllZero)
{
    const lng::Statistics result = lng::Count(CLanguageFile());
    EXPECT_EQ(result.entries + result.translated + result.untranslated + result.empty + result.characters +
                  result.longest,
              0u);
}

TEST(Count, Entries_AreTranslatedUntranslatedOrEmpty)
{
    const lng::Statistics result =
        lng::Count(Table({{L"Open", L"\u00D6ffnen"}, {L"Save", L"Save"}, {L"Print", L""}, {L"Exit", L"Ende"}}));
    EXPECT_EQ(result.entries, 4u);
    EXPECT_EQ(result.translated, 2u);
    EXPECT_EQ(result.untranslated, 1u);
    EXPECT_EQ(result.empty, 1u);
}

TEST(Count, Characters_AreThoseOfTheSources)
{
    const lng::Statistics result = lng::Count(Table({{L"Open", L"\u00D6ffnen"}, {L"Properties", L""}}));
    EXPECT_EQ(result.characters, 14u);
    EXPECT_EQ(result.longest, 10u);
}

TEST(Count, PlaceholderThatIsMissing_IsBroken)
{
    EXPECT_EQ(lng::Count(Table({{L"%d of %d", L"%d"}})).brokenPlaceholders, std::vector<ustring>{L"%d of %d"});
}

TEST(Count, PlaceholdersInAnotherOrder_AreBroken)
{
    EXPECT_EQ(lng::Count(Table({{L"%s: %d", L"%d: %s"}})).brokenPlaceholders, std::vector<ustring>{L"%s: %d"});
}

TEST(Count, PlaceholdersInTheSameOrder_AreNotBroken)
{
    EXPECT_TRUE(lng::Count(Table({{L"%s has %d points", L"%s hat %d Punkte"}})).brokenPlaceholders.empty());
}

TEST(Count, EmptyTranslation_IsNotBroken)
{
    EXPECT_TRUE(lng::Count(Table({{L"%s", L""}})).brokenPlaceholders.empty());
}
