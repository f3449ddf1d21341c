// The path routines on chosen texts. Path_Oracle_test.cpp has the random ones.

#include "support/Print.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <ostream>

using namespace vantor;

namespace
{
struct CParts
{
    ustring drive, dir, fname, ext;

    bool operator==(const CParts& b) const
    {
        return drive == b.drive && dir == b.dir && fname == b.fname && ext == b.ext;
    }
};

void PrintTo(const CParts& parts, std::ostream* out)
{
    for (const ustring* part : {&parts.drive, &parts.dir, &parts.fname, &parts.ext})
    {
        PrintTo(*part, out);
        *out << ' ';
    }
}

CParts Split(const wchar_t* path)
{
    CParts parts = {L"old", L"old", L"old", L"old"};
    CFile::SplitPath(path, parts.drive, parts.dir, parts.fname, parts.ext);
    return parts;
}

ustring Make(const wchar_t* drive, const wchar_t* dir, const wchar_t* fname, const wchar_t* ext)
{
    ustring out = L"old";
    CFile::MakePath(out, drive, dir, fname, ext);
    return out;
}

ustring Update(const wchar_t* path, const wchar_t* newName)
{
    ustring out = L"old";
    CFile::UpdateFileName(path, newName, out);
    return out;
}
}   // namespace

TEST(SplitPath, AFullPath_GivesAllFourParts)
{
    EXPECT_EQ(Split(L"C:/data/file.tar.gz"), (CParts{L"C:", L"\\data\\", L"file.tar", L".gz"}));
}

TEST(SplitPath, ADotInAFolderName_IsNoExtension)
{
    EXPECT_EQ(Split(L"\\a.b\\c"), (CParts{L"", L"\\a.b\\", L"c", L""}));
}

TEST(SplitPath, AFileName_GivesNothingElse)
{
    EXPECT_EQ(Split(L"file"), (CParts{L"", L"", L"file", L""}));
}

TEST(SplitPath, ADrive_GivesNothingElse)
{
    EXPECT_EQ(Split(L"C:"), (CParts{L"C:", L"", L"", L""}));
}

TEST(SplitPath, ATrailingSeparator_GivesAnEmptyFileName)
{
    EXPECT_EQ(Split(L"\\dir\\"), (CParts{L"", L"\\dir\\", L"", L""}));
}

TEST(SplitPath, AnEmptyPath_EmptiesAllParts)
{
    EXPECT_EQ(Split(L""), CParts());
}

TEST(SplitPath, ANullPath_EmptiesAllParts)
{
    EXPECT_EQ(Split(nullptr), CParts());
}

TEST(SplitPath, ADotAtTheEnd_IsTheWholeExtension)
{
    EXPECT_EQ(Split(L"a."), (CParts{L"", L"", L"a", L"."}));
}

TEST(SplitPath, ADotAtTheStart_BeginsTheExtension)
{
    EXPECT_EQ(Split(L"\\dir\\.cfg"), (CParts{L"", L"\\dir\\", L"", L".cfg"}));
}

TEST(SplitPath, ADotInFrontOfTheDrivesColon_BelongsToTheDrive)
{
    EXPECT_EQ(Split(L"a.b:c"), (CParts{L"a.b:", L"", L"c", L""}));
}

TEST(SplitPath, ASeparatorInFrontOfTheDrivesColon_BelongsToTheDrive)
{
    EXPECT_EQ(Split(L"\\a:b.c"), (CParts{L"\\a:", L"", L"b", L".c"}));
}

TEST(SplitPath, ASecondColon_IsAnOrdinaryCharacter)
{
    EXPECT_EQ(Split(L"a:\\b:c"), (CParts{L"a:", L"\\", L"b:c", L""}));
}

TEST(SplitPath, EverySlash_BecomesABackslash)
{
    EXPECT_EQ(Split(L"/a//b/c.d"), (CParts{L"", L"\\a\\\\b\\", L"c", L".d"}));
}

TEST(SplitPath, AnOutputThatIsTheInput_IsReadFirst)
{
    const CParts expected = {L"C:", L"\\data\\", L"file", L".txt"};
    for (ustring CParts::*input : {&CParts::drive, &CParts::dir, &CParts::fname, &CParts::ext})
    {
        CParts parts;
        parts.*input = L"C:\\data\\file.txt";
        CFile::SplitPath((parts.*input).c_str(), parts.drive, parts.dir, parts.fname, parts.ext);
        EXPECT_EQ(parts, expected);
    }
}

TEST(MakePath, FourNulls_MakeTheEmptyString)
{
    EXPECT_EQ(Make(nullptr, nullptr, nullptr, nullptr), L"");
}

TEST(MakePath, AnExtensionWithoutADot_GetsOne)
{
    EXPECT_EQ(Make(nullptr, L"\\a\\", L"b", L"txt"), L"\\a\\b.txt");
}

TEST(MakePath, AnExtensionWithADot_GetsNoOther)
{
    EXPECT_EQ(Make(nullptr, L"\\a\\", L"b", L".txt"), L"\\a\\b.txt");
}

TEST(MakePath, AnExtensionOfADotAlone_IsKept)
{
    EXPECT_EQ(Make(nullptr, nullptr, L"b", L"."), L"b.");
}

TEST(MakePath, AnExtensionAlone_GetsItsDot)
{
    EXPECT_EQ(Make(nullptr, nullptr, nullptr, L"txt"), L".txt");
}

TEST(MakePath, AFolder_IsRootedOnTheDrive)
{
    EXPECT_EQ(Make(L"C:", L"data", nullptr, nullptr), L"C:\\data");
}

TEST(MakePath, AFileName_IsRootedOnTheDrive)
{
    EXPECT_EQ(Make(L"C:", nullptr, L"f", nullptr), L"C:\\f");
}

TEST(MakePath, ANetworkPath_LosesOneOfItsTwoBackslashes)
{
    EXPECT_EQ(Make(nullptr, L"\\\\server\\share", L"f", nullptr), L"\\server\\share\\f");
}

TEST(MakePath, LongRunsOfSeparators_BecomeOne)
{
    EXPECT_EQ(Make(nullptr, L"a\\\\\\\\\\", L"\\\\\\b", nullptr), L"a\\b");
}

TEST(MakePath, EverySlash_BecomesABackslash)
{
    EXPECT_EQ(Make(L"C:/", L"/a/b/", L"/c", L"d/e"), L"C:\\a\\b\\c.d\\e");
}

TEST(MakePath, MixedSlashes_AreReducedTogether)
{
    EXPECT_EQ(Make(nullptr, L"a/\\/\\b", nullptr, nullptr), L"a\\b");
}

TEST(MakePath, AnEmptyFolder_StillAddsItsSeparator)
{
    EXPECT_EQ(Make(L"C:", L"", nullptr, nullptr), L"C:\\");
}

TEST(MakePath, AnEmptyFileName_StillAddsItsSeparator)
{
    EXPECT_EQ(Make(nullptr, L"a", L"", nullptr), L"a\\");
}

TEST(MakePath, AnEmptyDrive_AddsNoSeparator)
{
    EXPECT_EQ(Make(L"", L"a", nullptr, nullptr), L"a");
}

TEST(MakePath, AnEmptyExtension_AddsNoDot)
{
    EXPECT_EQ(Make(nullptr, nullptr, L"a", L""), L"a");
}

TEST(MakePath, AnOutputThatIsAnInput_IsReadFirst)
{
    ustring out = L"C:";
    CFile::MakePath(out, out.c_str(), L"a", L"b", L"c");
    EXPECT_EQ(out, L"C:\\a\\b.c");

    out = L"a";
    CFile::MakePath(out, L"C:", out.c_str(), L"b", L"c");
    EXPECT_EQ(out, L"C:\\a\\b.c");

    out = L"b";
    CFile::MakePath(out, L"C:", L"a", out.c_str(), L"c");
    EXPECT_EQ(out, L"C:\\a\\b.c");

    out = L"c";
    CFile::MakePath(out, L"C:", L"a", L"b", out.c_str());
    EXPECT_EQ(out, L"C:\\a\\b.c");
}

TEST(UpdateFileName, APath_KeepsItsFolderAndDropsTheOldExtension)
{
    EXPECT_EQ(Update(L"\\a\\b.txt", L"c.log"), L"\\a\\c.log");
}

TEST(UpdateFileName, ADrive_IsKept)
{
    EXPECT_EQ(Update(L"C:\\a\\b.txt", L"c.log"), L"C:\\a\\c.log");
}

TEST(UpdateFileName, ANewNameWithoutExtension_GetsNone)
{
    EXPECT_EQ(Update(L"\\a\\b.txt", L"c"), L"\\a\\c");
}

TEST(UpdateFileName, ANullPath_GivesTheNewName)
{
    EXPECT_EQ(Update(nullptr, L"c.log"), L"c.log");
}

TEST(UpdateFileName, AnEmptyPath_GivesTheNewName)
{
    EXPECT_EQ(Update(L"", L"c.log"), L"c.log");
}

TEST(UpdateFileName, AnEmptyPathAndANullName_GiveTheEmptyString)
{
    EXPECT_EQ(Update(L"", nullptr), L"");
}

TEST(UpdateFileName, ANullPathAndANullName_GiveTheEmptyString)
{
    EXPECT_EQ(Update(nullptr, nullptr), L"");
}

TEST(UpdateFileName, ANullName_LeavesTheFolder)
{
    EXPECT_EQ(Update(L"C:/a/b.txt", nullptr), L"C:\\a\\");
}

TEST(UpdateFileName, AFileNameAlone_GivesTheNewName)
{
    EXPECT_EQ(Update(L"b.txt", L"c.log"), L"c.log");
}

TEST(UpdateFileName, AFileOnADriveWithoutFolder_IsRootedOnTheDrive)
{
    EXPECT_EQ(Update(L"C:b.txt", L"c.log"), L"C:\\c.log");
}

TEST(UpdateFileName, AnOutputThatIsThePath_IsReadFirst)
{
    ustring out = L"\\a\\b.txt";
    CFile::UpdateFileName(out.c_str(), L"c.log", out);
    EXPECT_EQ(out, L"\\a\\c.log");
}

TEST(UpdateFileName, AnOutputThatIsTheNewName_IsReadFirst)
{
    ustring out = L"c.log";
    CFile::UpdateFileName(L"\\a\\b.txt", out.c_str(), out);
    EXPECT_EQ(out, L"\\a\\c.log");
}

TEST(UpdateFileName, AnOutputThatIsTheNewNameOfAnEmptyPath_IsKept)
{
    ustring out = L"c.log";
    CFile::UpdateFileName(L"", out.c_str(), out);
    EXPECT_EQ(out, L"c.log");
}

TEST(IsParentFolder, AnAncestor_IsFoundWithoutRegardToCaseAndTrailingSeparator)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"\\Storage\\Data\\x.txt", L"\\storage\\data\\"));
}

TEST(IsParentFolder, AFolderBelow_IsNone)
{
    EXPECT_FALSE(CFile::IsParentFolder(L"\\a", L"\\a\\b"));
}

TEST(IsParentFolder, ThePathItself_IsOne)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"\\a\\b.txt", L"\\a\\b.txt"));
}

TEST(IsParentFolder, TheEmptyPathItself_IsOne)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"", L""));
}

TEST(IsParentFolder, ANameThatOnlyBeginsAlike_IsNone)
{
    EXPECT_FALSE(CFile::IsParentFolder(L"\\a\\bc", L"\\a\\b"));
}

TEST(IsParentFolder, TheFirstDifference_Decides)
{
    EXPECT_FALSE(CFile::IsParentFolder(L"\\x\\b\\c", L"\\a\\b"));
}

TEST(IsParentFolder, ATrailingSeparatorOfThePath_DoesNotMatter)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"\\a\\b\\", L"\\a\\b"));
}

TEST(IsParentFolder, ATrailingSeparatorOfTheFolder_DoesNotMatter)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"\\a\\b", L"\\a\\b\\"));
}

TEST(IsParentFolder, Slashes_AreSeparators)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"/a/b/c", L"\\a\\b"));
}

TEST(IsParentFolder, TheRoot_IsTheParentOfARootedPath)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"\\a", L"\\"));
}

TEST(IsParentFolder, TheRoot_IsNotTheParentOfARelativePath)
{
    EXPECT_FALSE(CFile::IsParentFolder(L"a\\b", L"\\"));
}

TEST(IsParentFolder, AnEmptyFolder_IsTheParentOfARootedPath)
{
    EXPECT_TRUE(CFile::IsParentFolder(L"\\a", L"")) << "both begin with an empty component";
}

TEST(IsParentFolder, ADoubledSeparator_IsAComponentOfItsOwn)
{
    EXPECT_FALSE(CFile::IsParentFolder(L"\\a\\\\b", L"\\a\\b"));
}
