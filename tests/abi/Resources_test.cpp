// The strings, icons and version block of vantor.dll. Icons and version are taken apart field by field, so that the
// device's narrower readers are satisfied, not only the desktop's.

#include "ResourceReader.h"

#include <vantor/Version.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace resources;

namespace
{

struct Image
{
    int width = 0;
    int height = 0;
    unsigned bits = 0;
    unsigned resource = 0;
};

std::vector<Image> ImagesOf(unsigned group)
{
    Reader reader = Open(TypeGroupIcon, group);
    reader.Skip(4);
    std::vector<Image> images(reader.Take<std::uint16_t>());
    for (Image& image : images)
    {
        image.width = reader.Take<std::uint8_t>();
        image.height = reader.Take<std::uint8_t>();
        reader.Skip(4);
        image.bits = reader.Take<std::uint16_t>();
        reader.Skip(4);
        image.resource = reader.Take<std::uint16_t>();
    }
    return images;
}

struct Bitmap
{
    BITMAPINFOHEADER header{};
    std::vector<std::uint8_t> alpha;  // one a pixel, rows from the bottom
    std::vector<bool> masked;         // one a pixel, rows from the bottom
};

Bitmap LoadBitmapOf(const Image& image)
{
    Reader reader = Open(TypeIcon, image.resource);
    Bitmap bitmap;
    bitmap.header = reader.Take<BITMAPINFOHEADER>();
    if (bitmap.header.biSize != 40 || bitmap.header.biBitCount != 32)
        throw std::runtime_error("the image is not a plain 32-bit bitmap");
    const int pixels = image.width * image.height;
    for (int i = 0; i < pixels; ++i)
        bitmap.alpha.push_back(static_cast<std::uint8_t>(reader.Take<DWORD>() >> 24));
    for (int y = 0; y < image.height; ++y)
    {
        const std::uint8_t* const row = reader.Skip(static_cast<std::size_t>((image.width + 31) / 32 * 4));
        for (int x = 0; x < image.width; ++x)
            bitmap.masked.push_back((row[x / 8] >> (7 - x % 8) & 1) != 0);
    }
    return bitmap;
}

// Adds the strings below one block of a version resource, each under its key.
void CollectVersionTexts(Reader& reader, std::map<std::wstring, std::wstring>& texts)
{
    reader.Align();
    const std::size_t start = reader.At();
    const std::size_t length = reader.Take<std::uint16_t>();
    const std::size_t valueLength = reader.Take<std::uint16_t>();
    const bool isText = reader.Take<std::uint16_t>() == 1;
    const std::wstring key = reader.TakeText();
    reader.Align();
    if (isText && valueLength)
        texts[key] = reader.TakeText();
    else
        reader.Skip(valueLength);
    while (reader.At() + 4 < start + length)
        CollectVersionTexts(reader, texts);
}

std::map<std::wstring, std::wstring> VersionTexts()
{
    Reader reader = Open(TypeVersion, 1);
    std::map<std::wstring, std::wstring> texts;
    CollectVersionTexts(reader, texts);
    return texts;
}

VS_FIXEDFILEINFO FixedVersion()
{
    Reader reader = Open(TypeVersion, 1);
    reader.Skip(6);
    reader.TakeText();
    reader.Align();
    return reader.Take<VS_FIXEDFILEINFO>();
}

std::wstring VersionText()
{
    return std::to_wstring(VANTOR_VERSION_MAJOR) + L"." + std::to_wstring(VANTOR_VERSION_MINOR) + L"." +
           std::to_wstring(VANTOR_VERSION_PATCH) + L".0";
}

std::wstring LoadText(unsigned id)
{
    wchar_t buffer[100];
    const int length = ::LoadStringW(Module(), id, buffer, 100);
    return {buffer, static_cast<std::size_t>(length)};
}

}  // namespace

// Strings

struct StringRow
{
    unsigned id;
    const wchar_t* text;
};

class StringResource : public ::testing::TestWithParam<StringRow>
{
};

TEST_P(StringResource, HoldsItsText)
{
    EXPECT_EQ(GetParam().text, LoadText(GetParam().id));
}

INSTANTIATE_TEST_SUITE_P(Table, StringResource,
                         ::testing::Values(StringRow{101, L"Win32"}, StringRow{102, L"Receiver"},
                                           StringRow{103, L"XML"}, StringRow{104, L"Matrix Library"},
                                           StringRow{105, L"Success"}, StringRow{106, L"OK"}, StringRow{107, L"Cancel"},
                                           StringRow{108, L"Abort"}, StringRow{109, L"Retry"},
                                           StringRow{110, L"Ignore"}, StringRow{111, L"Yes"}, StringRow{112, L"No"},
                                           StringRow{113, L"Invalid Matrix Dimension"},
                                           StringRow{114, L"Incompatible Matrix Dimension"},
                                           StringRow{115, L"Invalid Index"}, StringRow{116, L"Division by Zero"}),
                         [](const auto& info) { return std::to_string(info.param.id); });

TEST(StringTable, BeginsAt101)
{
    EXPECT_EQ(L"", LoadText(100));
}

TEST(StringTable, EndsAt116)
{
    EXPECT_EQ(L"", LoadText(117));
}

TEST(StringTable, IsInTheNeutralLanguageOnly)
{
    // Sixteen strings a block: 96 to 111 are block 7, 112 to 127 are block 8.
    EXPECT_EQ(std::set<WORD>{0}, LanguagesOf(TypeString, 7));
    EXPECT_EQ(std::set<WORD>{0}, LanguagesOf(TypeString, 8));
}

// Icons

class IconGroup : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(IconGroup, Holds16And32And48Pixels)
{
    std::multiset<std::pair<int, int>> sizes;
    for (const Image& image : ImagesOf(GetParam()))
        sizes.insert({image.width, image.height});
    EXPECT_EQ((std::multiset<std::pair<int, int>>{{16, 16}, {32, 32}, {48, 48}}), sizes);
}

TEST_P(IconGroup, AnnouncesItsImagesAs32Bits_SoThatNoneIsPassedOver)
{
    for (const Image& image : ImagesOf(GetParam()))
        EXPECT_EQ(32u, image.bits) << image.width;
}

TEST_P(IconGroup, HoldsPlainBitmaps_AsTheDeviceReadsNoOther)
{
    for (const Image& image : ImagesOf(GetParam()))
    {
        const auto header = Open(TypeIcon, image.resource).Take<BITMAPINFOHEADER>();
        EXPECT_EQ(40u, header.biSize) << image.width;
        EXPECT_EQ(image.width, header.biWidth) << image.width;
        EXPECT_EQ(2 * image.height, header.biHeight) << image.width;
        EXPECT_EQ(32u, header.biBitCount) << image.width;
        EXPECT_EQ(static_cast<DWORD>(BI_RGB), header.biCompression) << image.width;
    }
}

TEST_P(IconGroup, HasClearCorners)
{
    for (const Image& image : ImagesOf(GetParam()))
    {
        const Bitmap bitmap = LoadBitmapOf(image);
        const auto width = static_cast<std::size_t>(image.width);
        // Rounded corners may leave a trace of colour, but none that is seen.
        EXPECT_GT(128, bitmap.alpha[0]) << image.width;
        EXPECT_GT(128, bitmap.alpha[width - 1]) << image.width;
        EXPECT_GT(128, bitmap.alpha[bitmap.alpha.size() - width]) << image.width;
        EXPECT_GT(128, bitmap.alpha[bitmap.alpha.size() - 1]) << image.width;
    }
}

TEST_P(IconGroup, IsOpaqueOnAThirdOfItsSquareAtLeast)
{
    for (const Image& image : ImagesOf(GetParam()))
    {
        std::size_t opaque = 0;
        const Bitmap bitmap = LoadBitmapOf(image);
        for (const std::uint8_t alpha : bitmap.alpha)
            opaque += alpha == 255;
        EXPECT_LE(bitmap.alpha.size() / 3, opaque) << image.width;
    }
}

TEST_P(IconGroup, HasSmoothEdges)
{
    for (const Image& image : ImagesOf(GetParam()))
    {
        std::size_t partial = 0;
        for (const std::uint8_t alpha : LoadBitmapOf(image).alpha)
            partial += alpha > 0 && alpha < 255;
        EXPECT_LT(0u, partial) << image.width;
    }
}

TEST_P(IconGroup, MasksExactlyTheClearPixels_ForDisplaysWithoutAlpha)
{
    for (const Image& image : ImagesOf(GetParam()))
    {
        const Bitmap bitmap = LoadBitmapOf(image);
        std::size_t wrong = 0;
        for (std::size_t i = 0; i < bitmap.alpha.size(); ++i)
            wrong += bitmap.masked[i] != (bitmap.alpha[i] == 0);
        EXPECT_EQ(0u, wrong) << image.width;
    }
}

TEST_P(IconGroup, IsInTheNeutralLanguageOnly)
{
    EXPECT_EQ(std::set<WORD>{0}, LanguagesOf(TypeGroupIcon, GetParam()));
}

TEST_P(IconGroup, LoadsInEachOfItsSizes)
{
    for (const int size : {16, 32, 48})
    {
        const auto icon =
            static_cast<HICON>(::LoadImageW(Module(), MAKEINTRESOURCEW(GetParam()), IMAGE_ICON, size, size, 0));
        ICONINFO info{};
        EXPECT_TRUE(::GetIconInfo(icon, &info)) << size;
        BITMAP colours{};
        ::GetObjectW(info.hbmColor, sizeof colours, &colours);
        EXPECT_EQ(size, colours.bmWidth);
        ::DeleteObject(info.hbmColor);
        ::DeleteObject(info.hbmMask);
        ::DestroyIcon(icon);
    }
}

INSTANTIATE_TEST_SUITE_P(Icons, IconGroup, ::testing::Values(105u, 106u, 107u, 108u, 111u, 112u),
                         [](const auto& info) { return std::to_string(info.param); });

TEST(IconGroups, AreSixDifferentPictures)
{
    std::set<std::vector<std::uint8_t>> pictures;
    for (const unsigned group : {105u, 106u, 107u, 108u, 111u, 112u})
    {
        Reader reader = Open(TypeIcon, ImagesOf(group).at(0).resource);
        const std::size_t size = reader.Left();
        const std::uint8_t* const data = reader.Skip(size);
        pictures.insert({data, data + size});
    }
    EXPECT_EQ(6u, pictures.size());
}

// Version

TEST(VersionResource, FileVersionIsTheLibrarysVersion)
{
    const VS_FIXEDFILEINFO fixed = FixedVersion();
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(VANTOR_VERSION_MINOR, VANTOR_VERSION_MAJOR)), fixed.dwFileVersionMS);
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(0, VANTOR_VERSION_PATCH)), fixed.dwFileVersionLS);
}

TEST(VersionResource, ProductVersionIsTheLibrarysVersion)
{
    const VS_FIXEDFILEINFO fixed = FixedVersion();
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(VANTOR_VERSION_MINOR, VANTOR_VERSION_MAJOR)), fixed.dwProductVersionMS);
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(0, VANTOR_VERSION_PATCH)), fixed.dwProductVersionLS);
}

TEST(VersionResource, FileVersionTextIsTheLibrarysVersion)
{
    EXPECT_EQ(VersionText(), VersionTexts()[L"FileVersion"]);
}

TEST(VersionResource, ProductVersionTextIsTheLibrarysVersion)
{
    EXPECT_EQ(VersionText(), VersionTexts()[L"ProductVersion"]);
}

TEST(VersionResource, SaysThatTheFileIsADynamicLibrary)
{
    EXPECT_EQ(static_cast<DWORD>(VFT_DLL), FixedVersion().dwFileType);
}

TEST(VersionResource, NamesTheProduct)
{
    EXPECT_EQ(L"vantor", VersionTexts()[L"ProductName"]);
}

TEST(VersionResource, NamesTheFile)
{
    EXPECT_EQ(L"vantor.dll", VersionTexts()[L"OriginalFilename"]);
}

TEST(VersionResource, DescribesTheFile)
{
    EXPECT_NE(L"", VersionTexts()[L"FileDescription"]);
}

TEST(VersionResource, NamesTheLicence)
{
    EXPECT_NE(std::wstring::npos, VersionTexts()[L"LegalCopyright"].find(L"MIT"));
}

TEST(VersionResource, CopyrightSignSurvivesTheResourceCompiler)
{
    EXPECT_EQ(0u, VersionTexts()[L"LegalCopyright"].find(L"Copyright \x00A9 2026"));
}
