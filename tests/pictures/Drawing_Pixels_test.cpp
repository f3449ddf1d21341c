#include "Picture.h"

#include <cstring>
#include <limits>
#include <type_traits>

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;

namespace
{
template <class T>
T At(const void* object, std::size_t offset)
{
    T value;
    std::memcpy(&value, static_cast<const unsigned char*>(object) + offset, sizeof value);
    return value;
}

constexpr std::size_t Pointer = sizeof(void*);
}   // namespace

TEST(DrawingPixels, SetPixel_StoresRedAboveBlue)
{
    CSurface surface(4, 3);
    surface.SetPixel(2, 1, RGB(1, 2, 3));
    EXPECT_EQ(0x00010203u, surface.Words()[1 * 4 + 2]);
}

TEST(DrawingPixels, SetPixel_ClearsTheTopByte)
{
    CSurface surface(1, 1);
    surface.SetPixel(0, 0, 0xFF000000 | RGB(1, 2, 3));
    EXPECT_EQ(0x00010203u, surface.Words()[0]);
}

TEST(DrawingPixels, GetPixel_IsWhatWasSet)
{
    CSurface surface(4, 3);
    surface.SetPixel(3, 2, RGB(1, 2, 3));
    EXPECT_EQ(RGB(1, 2, 3), surface.GetPixel(3, 2));
}

TEST(DrawingPixels, GetPixel_LeavesTheTopByteOut)
{
    CSurface surface(1, 1);
    surface.Words()[0] = 0xFF010203;
    EXPECT_EQ(RGB(1, 2, 3), surface.GetPixel(0, 0));
}

TEST(DrawingPixels, RowsStandFromTheTopDownWithoutGaps)
{
    CSurface surface(3, 5);
    for (int y = 0; y < 5; ++y)
    {
        for (int x = 0; x < 3; ++x)
            surface.SetPixel(x, y, RGB(0, y, x));
    }
    for (unsigned int i = 0; i < 15; ++i)
        EXPECT_EQ(i / 3 << 8 | i % 3, surface.Words()[i]) << i;
}

TEST(DrawingPixels, Outside_AreBlack)
{
    CSurface surface(4, 3);
    std::memset(surface.Words(), 0x7F, 4 * 3 * sizeof(uint32_t));
    for (const int outside : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(0u, surface.GetPixel(outside, 1)) << outside;
    for (const int outside : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(0u, surface.GetPixel(1, outside)) << outside;
}

TEST(DrawingPixels, Outside_AreNotSet)
{
    CSurface surface(4, 3);
    const CSlowPicture black(4, 3);
    black.CopyTo(surface);
    for (const int outside : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        surface.SetPixel(outside, 1, RGB(255, 255, 255));
    for (const int outside : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        surface.SetPixel(1, outside, RGB(255, 255, 255));
    EXPECT_TRUE(Same(black, surface));
}

TEST(DrawingPixels, WithoutASurface_AreBlackAndNotSet)
{
    CCompatibleDC surface;
    surface.SetPixel(0, 0, RGB(255, 255, 255));
    EXPECT_EQ(0u, surface.GetPixel(0, 0));
}

TEST(DrawingPixels, OfTheSystemsDrawing_CanBeRead)
{
    CSurface surface(8, 8);
    CSlowPicture(8, 8).CopyTo(surface);
    const HBRUSH brush = ::CreateSolidBrush(RGB(10, 20, 30));
    const RECT area = {2, 3, 4, 6};
    ::FillRect(surface, &area, brush);
    ::DeleteObject(brush);
    ::GdiFlush();
    EXPECT_EQ(RGB(10, 20, 30), surface.GetPixel(2, 3));
    EXPECT_EQ(RGB(10, 20, 30), surface.GetPixel(3, 5));
    EXPECT_EQ(0u, surface.GetPixel(4, 3));
    EXPECT_EQ(0u, surface.GetPixel(2, 6));
}

TEST(DrawingPixels, CanBeReadByTheSystem)
{
    CSurface surface(8, 8);
    CSlowPicture(8, 8).CopyTo(surface);
    surface.SetPixel(5, 6, RGB(10, 20, 30));
    EXPECT_EQ(RGB(10, 20, 30), ::GetPixel(surface, 5, 6));
}

TEST(DrawingLayout, OfASurface)
{
    const CSurface surface(5, 7);
    EXPECT_EQ(surface.GetDC(), At<HDC>(&surface, 0));
    EXPECT_EQ(OBJ_BITMAP, ::GetObjectType(At<HGDIOBJ>(&surface, Pointer)));
    EXPECT_EQ(::GetCurrentObject(surface, OBJ_BITMAP), At<HBITMAP>(&surface, 2 * Pointer));
    EXPECT_EQ(surface.Words(), At<uint32_t*>(&surface, 3 * Pointer));
    EXPECT_EQ(5, At<SIZE>(&surface, 4 * Pointer).cx);
    EXPECT_EQ(7, At<SIZE>(&surface, 4 * Pointer).cy);
    EXPECT_EQ(4 * Pointer + sizeof(SIZE), sizeof(CCompatibleDC));
}

TEST(DrawingLayout, OfTheDrawingClass_IsTheSurfacesAddress)
{
    CSurface surface(1, 1);
    const CDCEx draw(surface);
    EXPECT_EQ(static_cast<const CCompatibleDC*>(&surface), At<const CCompatibleDC*>(&draw, 0));
    EXPECT_EQ(Pointer, sizeof(CDCEx));
}

TEST(DrawingLayout, HasNoVirtualTables)
{
    EXPECT_FALSE(std::is_polymorphic_v<CCompatibleDC>);
    EXPECT_FALSE(std::is_polymorphic_v<CDCEx>);
}

TEST(DrawingLayout, ASurfaceCannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CCompatibleDC>);
    EXPECT_FALSE(std::is_copy_assignable_v<CCompatibleDC>);
}
