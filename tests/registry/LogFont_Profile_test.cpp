// A font that is kept in the registry: what is stored for each field, and what comes back.

#include "Calls.h"
#include "OwnKey.h"

#include <vantor/LogFont.h>

#include <algorithm>
#include <climits>
#include <cstring>

using namespace vantor;
using namespace registry_test;

namespace
{
struct CNumberField
{
    const wchar_t* name;
    LONG LOGFONTW::*field;
};

struct CByteField
{
    const wchar_t* name;
    BYTE LOGFONTW::*field;
};

constexpr CNumberField NumberFields[] = {
    {L"lfHeight", &LOGFONTW::lfHeight},         {L"lfWidth", &LOGFONTW::lfWidth},
    {L"lfEscapement", &LOGFONTW::lfEscapement}, {L"lfOrientation", &LOGFONTW::lfOrientation},
    {L"lfWeight", &LOGFONTW::lfWeight},
};
constexpr CByteField ByteFields[] = {
    {L"lfItalic", &LOGFONTW::lfItalic},
    {L"lfUnderline", &LOGFONTW::lfUnderline},
    {L"lfStrikeOut", &LOGFONTW::lfStrikeOut},
    {L"lfCharSet", &LOGFONTW::lfCharSet},
    {L"lfOutPrecision", &LOGFONTW::lfOutPrecision},
    {L"lfClipPrecision", &LOGFONTW::lfClipPrecision},
    {L"lfQuality", &LOGFONTW::lfQuality},
    {L"lfPitchAndFamily", &LOGFONTW::lfPitchAndFamily},
};

// Each field has a value of its own, none of them 0.
CLogFont SomeFont()
{
    CLogFont font;
    LONG number = -100;
    for (const CNumberField& field : NumberFields)
        font.*field.field = ++number;
    BYTE byte = 200;
    for (const CByteField& field : ByteFields)
        font.*field.field = ++byte;
    std::wcscpy(font.lfFaceName, L"Tahoma");
    return font;
}

CLogFont FilledFont(LONG number, BYTE byte, const std::wstring& face)
{
    CLogFont font;
    for (const CNumberField& field : NumberFields)
        font.*field.field = number;
    for (const CByteField& field : ByteFields)
        font.*field.field = byte;
    std::copy(face.begin(), face.end(), font.lfFaceName);
    return font;
}

bool Same(const LOGFONTW& a, const LOGFONTW& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;   // the record has no gaps
}

class LogFontProfile : public RegistryTest
{
protected:
    void ExpectComesBack(const CLogFont& font) const
    {
        EXPECT_TRUE(font.WriteProfile(m_path));
        CLogFont read;
        EXPECT_TRUE(read.GetProfile(m_path));
        EXPECT_TRUE(Same(font, read));
    }

    // The font that was SomeFont before.
    CLogFont Read() const
    {
        CLogFont font = SomeFont();
        EXPECT_TRUE(font.GetProfile(m_path));
        return font;
    }

    // Between words that show a write beyond its ends.
    std::wstring ReadFace(const std::wstring& stored) const
    {
        struct CGuarded
        {
            unsigned long before = 0x600DF00D;
            CLogFont font;
            unsigned long after[16];
        };
        CGuarded guarded;
        std::fill(std::begin(guarded.after), std::end(guarded.after), 0x600DF00D);
        Store(L"lfFaceName", REG_SZ, Utf16Sz(stored));
        EXPECT_TRUE(guarded.font.GetProfile(m_path));
        EXPECT_EQ(0x600DF00Du, guarded.before);
        EXPECT_EQ(16, std::count(std::begin(guarded.after), std::end(guarded.after), 0x600DF00D));
        return std::wstring(guarded.font.lfFaceName, LF_FACESIZE);
    }
};
}   // namespace

// ---- What is stored

TEST_F(LogFontProfile, Values_AreWrittenInTheRecordsOrder)
{
    const CCalls calls;
    EXPECT_TRUE(SomeFont().WriteProfile(m_path));
    std::vector<std::wstring> names;
    for (const CCall& call : calls.Of("RegSetValueEx"))
        names.push_back(call.name);
    EXPECT_EQ((std::vector<std::wstring>{L"lfHeight", L"lfWidth", L"lfEscapement", L"lfOrientation", L"lfWeight",
                                         L"lfItalic", L"lfUnderline", L"lfStrikeOut", L"lfCharSet", L"lfOutPrecision",
                                         L"lfClipPrecision", L"lfQuality", L"lfPitchAndFamily", L"lfFaceName"}),
              names);
}

TEST_F(LogFontProfile, Fourteen_AndNothingElseIsWritten)
{
    EXPECT_TRUE(SomeFont().WriteProfile(m_path));
    EXPECT_EQ(15u, Snapshot(m_path).size());   // with the key
}

TEST_F(LogFontProfile, Numbers_AreStoredAsTheir32Bits)
{
    const CLogFont font = SomeFont();
    font.WriteProfile(m_path);
    for (const CNumberField& field : NumberFields)
    {
        EXPECT_EQ((CStored{REG_DWORD, DwordBytes(static_cast<unsigned long>(font.*field.field))}), Stored(field.name));
    }
}

TEST_F(LogFontProfile, NegativeHeight_IsStoredAsItsBitPattern)
{
    CLogFont font;
    font.lfHeight = -14;
    font.WriteProfile(m_path);
    EXPECT_EQ((CStored{REG_DWORD, std::string("\xF2\xFF\xFF\xFF", 4)}), Stored(L"lfHeight"));
}

TEST_F(LogFontProfile, Bytes_AreStoredAsNumbersWithoutASign)
{
    const CLogFont font = SomeFont();
    font.WriteProfile(m_path);
    for (const CByteField& field : ByteFields)
        EXPECT_EQ((CStored{REG_DWORD, DwordBytes(font.*field.field)}), Stored(field.name));
}

TEST_F(LogFontProfile, FaceName_IsStoredAsText)
{
    SomeFont().WriteProfile(m_path);
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"Tahoma")}), Stored(L"lfFaceName"));
}

TEST_F(LogFontProfile, FaceNameOf32Characters_IsStoredWithATerminator)
{
    FilledFont(1, 2, std::wstring(32, L'f')).WriteProfile(m_path);
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(std::wstring(32, L'f'))}), Stored(L"lfFaceName"));
}

TEST_F(LogFontProfile, Key_IsCreatedWithItsParents)
{
    EXPECT_TRUE(SomeFont().WriteProfile(m_own.Below(L"a\\b").c_str()));
    EXPECT_TRUE(HasValue(m_own.Below(L"a\\b"), L"lfFaceName"));
}

// ---- What comes back

TEST_F(LogFontProfile, WrittenFont_ComesBackWithItsNegativeHeight)
{
    ExpectComesBack(SomeFont());
}

TEST_F(LogFontProfile, ZeroedFont_ComesBackOverAnother)
{
    CLogFont().WriteProfile(m_path);
    EXPECT_TRUE(Same(CLogFont(), Read()));
}

TEST_F(LogFontProfile, SmallestValues_ComeBack)
{
    ExpectComesBack(FilledFont(LONG_MIN, 0, L""));
}

TEST_F(LogFontProfile, LargestValues_ComeBack)
{
    ExpectComesBack(FilledFont(LONG_MAX, 255, std::wstring(31, L'\uFFFD')));
}

TEST_F(LogFontProfile, EmptyFaceName_ReplacesTheFontsName)
{
    Store(L"lfFaceName", REG_SZ, Utf16Sz(L""));
    EXPECT_STREQ(L"", Read().lfFaceName);
}

TEST_F(LogFontProfile, FaceNameOf31Characters_ComesBack)
{
    ExpectComesBack(FilledFont(1, 2, std::wstring(31, L'f')));
}

TEST_F(LogFontProfile, FaceNameOf32CharactersWithoutTerminator_ComesBack)
{
    ExpectComesBack(FilledFont(1, 2, L"abcdefghijklmnopqrstuvwxyz012345"));
}

TEST_F(LogFontProfile, UnicodeFaceName_ComesBack)
{
    ExpectComesBack(FilledFont(1, 2, L"\uFF2D\uFF33 \u30B4\u30B7\u30C3\u30AF \u00E4 \xD83D\xDD11"));
}

TEST_F(LogFontProfile, StoredFaceNameOf31Characters_HasItsTerminator)
{
    EXPECT_EQ(std::wstring(31, L'f') + L'\0', ReadFace(std::wstring(31, L'f')));
}

TEST_F(LogFontProfile, StoredFaceNameOf32Characters_HasNoTerminator)
{
    EXPECT_EQ(std::wstring(32, L'f'), ReadFace(std::wstring(32, L'f')));
}

TEST_F(LogFontProfile, StoredFaceNameOf40Characters_IsCutTo32WithoutTerminator)
{
    EXPECT_EQ(L"abcdefghijklmnopqrstuvwxyz012345", ReadFace(L"abcdefghijklmnopqrstuvwxyz0123456789ABCD"));
}

TEST_F(LogFontProfile, StoredFaceNameOf100000Characters_IsCutTo32)
{
    EXPECT_EQ(std::wstring(32, L'f'), ReadFace(std::wstring(100000, L'f')));
}

TEST_F(LogFontProfile, ShorterFaceName_LeavesNothingOfTheOldOne)
{
    CLogFont font = FilledFont(1, 2, std::wstring(32, L'o'));
    Store(L"lfFaceName", REG_SZ, Utf16Sz(L"new"));
    font.GetProfile(m_path);
    EXPECT_EQ(L"new" + std::wstring(29, L'\0'), std::wstring(font.lfFaceName, LF_FACESIZE));
}

TEST_F(LogFontProfile, ExpandableFaceName_IsTakenUnexpanded)
{
    Store(L"lfFaceName", REG_EXPAND_SZ, Utf16Sz(L"%x%"));
    EXPECT_STREQ(L"%x%", Read().lfFaceName);
}

TEST_F(LogFontProfile, ItalicOf0x101_IsRead1)
{
    Store(L"lfItalic", REG_DWORD, DwordBytes(0x101));
    EXPECT_EQ(1, Read().lfItalic);
}

TEST_F(LogFontProfile, LowByte_IsUsedForEachByteField)
{
    for (const CByteField& field : ByteFields)
        Store(field.name, REG_DWORD, DwordBytes(0xFFFFFF07));
    const CLogFont font = Read();
    for (const CByteField& field : ByteFields)
        EXPECT_EQ(7, font.*field.field);
}

// ---- What does not come

TEST_F(LogFontProfile, MissingKey_IsTrueAndLeavesTheFont)
{
    EXPECT_TRUE(Same(SomeFont(), Read()));
}

TEST_F(LogFontProfile, MissingKey_IsNotCreated)
{
    Read();
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(LogFontProfile, EmptyKey_LeavesTheFont)
{
    MakeKey(m_path);
    EXPECT_TRUE(Same(SomeFont(), Read()));
}

TEST_F(LogFontProfile, WeightAlone_ChangesTheWeightAndNothingElse)
{
    Store(L"lfWeight", REG_DWORD, DwordBytes(700));
    CLogFont expected = SomeFont();
    expected.lfWeight = 700;
    EXPECT_TRUE(Same(expected, Read()));
}

TEST_F(LogFontProfile, EachNumberAlone_ChangesItsField)
{
    for (const CNumberField& field : NumberFields)
    {
        Store(field.name, REG_DWORD, DwordBytes(123456));
        CLogFont expected = SomeFont();
        expected.*field.field = 123456;
        EXPECT_TRUE(Same(expected, Read()));
        const COpenKey key(m_path);
        ::RegDeleteValueW(key, field.name);
    }
}

TEST_F(LogFontProfile, EachByteAlone_ChangesItsField)
{
    for (const CByteField& field : ByteFields)
    {
        Store(field.name, REG_DWORD, DwordBytes(77));
        CLogFont expected = SomeFont();
        expected.*field.field = 77;
        EXPECT_TRUE(Same(expected, Read()));
        const COpenKey key(m_path);
        ::RegDeleteValueW(key, field.name);
    }
}

TEST_F(LogFontProfile, NumbersOfOtherTypes_LeaveTheirFields)
{
    for (const CNumberField& field : NumberFields)
        Store(field.name, REG_BINARY, DwordBytes(7));
    for (const CByteField& field : ByteFields)
        Store(field.name, REG_SZ, Utf16Sz(L"7"));
    EXPECT_TRUE(Same(SomeFont(), Read()));
}

TEST_F(LogFontProfile, FaceNameOfAnotherType_LeavesTheFontsName)
{
    Store(L"lfFaceName", REG_MULTI_SZ, Utf16Sz(L"other") + Utf16Sz(L""));
    EXPECT_TRUE(Same(SomeFont(), Read()));
}

TEST_F(LogFontProfile, FullFaceName_StaysWithoutTerminatorWhereNoneIsStored)
{
    CLogFont font = FilledFont(1, 2, std::wstring(32, L'f'));
    font.GetProfile(m_path);
    EXPECT_TRUE(Same(FilledFont(1, 2, std::wstring(32, L'f')), font));
}

TEST_F(LogFontProfile, OtherValues_DoNotMatter)
{
    SomeFont().WriteProfile(m_path);
    Store(L"lfSize", REG_DWORD, DwordBytes(7));
    Store(nullptr, REG_DWORD, DwordBytes(7));
    EXPECT_TRUE(Same(SomeFont(), Read()));
}

TEST_F(LogFontProfile, Reading_ChangesNothing)
{
    SomeFont().WriteProfile(m_path);
    const std::vector<std::string> before = Snapshot(m_path);
    Read();
    EXPECT_EQ(before, Snapshot(m_path));
}

TEST_F(LogFontProfile, FontThatComesBack_IsTakenByThePlatform)
{
    CLogFont font;
    font.lfHeight = -14;
    font.lfWeight = FW_BOLD;
    std::wcscpy(font.lfFaceName, L"Tahoma");
    font.WriteProfile(m_path);
    CLogFont read;
    read.GetProfile(m_path);
    const HFONT made = ::CreateFontIndirectW(read);
    LOGFONTW record = {};
    EXPECT_EQ(static_cast<int>(sizeof record), ::GetObjectW(made, sizeof record, &record));
    EXPECT_EQ(-14, record.lfHeight);
    EXPECT_EQ(FW_BOLD, record.lfWeight);
    EXPECT_STREQ(L"Tahoma", record.lfFaceName);
    ::DeleteObject(made);
}
