#include "Picture.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <string>

using namespace vantor;
using pictures::CSurface;
using pictures::Screen;
using support::CImportPatch;

namespace
{
constexpr SIZE Size = {6, 4};

HDC WINAPI NoDC(HDC)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

HBITMAP WINAPI NoSection(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

struct CSectionCall
{
    HDC dc = reinterpret_cast<HDC>(1);
    BITMAPINFOHEADER header = {};
    UINT usage = 99;
    HANDLE section = reinterpret_cast<HANDLE>(1);
    DWORD offset = 99;
} g_section;

HBITMAP WINAPI RecordingSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset)
{
    g_section.dc = dc;
    g_section.header = info->bmiHeader;
    g_section.usage = usage;
    g_section.section = section;
    g_section.offset = offset;
    return ::CreateDIBSection(dc, info, usage, bits, section, offset);
}

HDC g_compatibleWith;

HDC WINAPI RecordingCompatible(HDC dc)
{
    g_compatibleWith = dc;
    return ::CreateCompatibleDC(dc);
}

// What is given back, in its order.
std::string g_givenBack;
HGDIOBJ g_selected;

HGDIOBJ WINAPI RecordingSelect(HDC dc, HGDIOBJ object)
{
    g_givenBack += "select ";
    g_selected = object;
    return ::SelectObject(dc, object);
}

BOOL WINAPI RecordingDeleteDC(HDC dc)
{
    g_givenBack += "dc ";
    return ::DeleteDC(dc);
}

BOOL WINAPI RecordingDelete(HGDIOBJ object)
{
    g_givenBack += "bitmap ";
    return ::DeleteObject(object);
}

testing::AssertionResult IsEmpty(const CCompatibleDC& surface)
{
    const SIZE size = surface.GetBitmapSize();
    const RECT rect = surface.GetBitmapRect();
    if (surface.GetDC() != nullptr || static_cast<HDC>(surface) != nullptr)
        return testing::AssertionFailure() << "it has a device context";
    if (size.cx != 0 || size.cy != 0 || rect.left != 0 || rect.top != 0 || rect.right != 0 || rect.bottom != 0)
        return testing::AssertionFailure() << "it has a size";
    const auto* const words = reinterpret_cast<const void* const*>(&surface);
    for (int i = 0; i < 4; ++i)
    {
        if (words[i] != nullptr)
            return testing::AssertionFailure() << "member " << i << " is set";
    }
    return testing::AssertionSuccess();
}

void ExpectFailureToLeaveItEmpty(HDC hdc, const SIZE& size)
{
    CCompatibleDC surface;
    EXPECT_FALSE(surface.Create(hdc, size));
    EXPECT_TRUE(IsEmpty(surface));
    ASSERT_TRUE(surface.Create(Screen(), Size));
    EXPECT_FALSE(surface.Create(hdc, size));
    EXPECT_TRUE(IsEmpty(surface)) << "after a surface";
}
}   // namespace

TEST(DrawingCreate, Default_IsEmpty)
{
    EXPECT_TRUE(IsEmpty(CCompatibleDC()));
}

TEST(DrawingCreate, MakesAMemoryDeviceContext)
{
    CCompatibleDC surface;
    EXPECT_TRUE(surface.Create(Screen(), Size));
    EXPECT_EQ(OBJ_MEMDC, ::GetObjectType(surface.GetDC()));
    EXPECT_EQ(surface.GetDC(), static_cast<HDC>(surface));
}

TEST(DrawingCreate, TakesTheSize)
{
    CCompatibleDC surface;
    ASSERT_TRUE(surface.Create(Screen(), Size));
    EXPECT_EQ(6, surface.GetBitmapSize().cx);
    EXPECT_EQ(4, surface.GetBitmapSize().cy);
    const RECT rect = surface.GetBitmapRect();
    EXPECT_EQ(0, rect.left);
    EXPECT_EQ(0, rect.top);
    EXPECT_EQ(6, rect.right);
    EXPECT_EQ(4, rect.bottom);
}

TEST(DrawingCreate, IsCompatibleWithTheGivenContext)
{
    CCompatibleDC surface;
    const CImportPatch patch(&::CreateCompatibleDC, &RecordingCompatible);
    ASSERT_TRUE(surface.Create(Screen(), Size));
    EXPECT_EQ(Screen(), g_compatibleWith);
}

TEST(DrawingCreate, DescribesABitmapFromTheTopDown)
{
    CCompatibleDC surface;
    const CImportPatch patch(&::CreateDIBSection, &RecordingSection);
    ASSERT_TRUE(surface.Create(Screen(), Size));
    EXPECT_EQ(40u, g_section.header.biSize);
    EXPECT_EQ(6, g_section.header.biWidth);
    EXPECT_EQ(-4, g_section.header.biHeight);
    EXPECT_EQ(1, g_section.header.biPlanes);
    EXPECT_EQ(32, g_section.header.biBitCount);
    EXPECT_EQ(static_cast<DWORD>(BI_RGB), g_section.header.biCompression);
    EXPECT_EQ(0u, g_section.header.biSizeImage);
    EXPECT_EQ(0, g_section.header.biXPelsPerMeter);
    EXPECT_EQ(0, g_section.header.biYPelsPerMeter);
    EXPECT_EQ(0u, g_section.header.biClrUsed);
    EXPECT_EQ(0u, g_section.header.biClrImportant);
}

TEST(DrawingCreate, AsksForMemoryOfTheSystems)
{
    CCompatibleDC surface;
    const CImportPatch patch(&::CreateDIBSection, &RecordingSection);
    ASSERT_TRUE(surface.Create(Screen(), Size));
    EXPECT_EQ(nullptr, g_section.dc);
    EXPECT_EQ(static_cast<UINT>(DIB_RGB_COLORS), g_section.usage);
    EXPECT_EQ(nullptr, g_section.section);
    EXPECT_EQ(0u, g_section.offset);
}

TEST(DrawingCreate, Again_ReplacesTheSurface)
{
    CCompatibleDC surface;
    ASSERT_TRUE(surface.Create(Screen(), Size));
    EXPECT_TRUE(surface.Create(Screen(), {9, 1}));
    EXPECT_EQ(9, surface.GetBitmapSize().cx);
    EXPECT_EQ(1, surface.GetBitmapSize().cy);
}

TEST(DrawingCreate, WithoutADeviceContext_Fails)
{
    ExpectFailureToLeaveItEmpty(nullptr, Size);
}

TEST(DrawingCreate, WithoutAWidth_Fails)
{
    ExpectFailureToLeaveItEmpty(Screen(), {0, 4});
}

TEST(DrawingCreate, WithoutAHeight_Fails)
{
    ExpectFailureToLeaveItEmpty(Screen(), {6, 0});
}

TEST(DrawingCreate, WithANegativeWidth_Fails)
{
    ExpectFailureToLeaveItEmpty(Screen(), {-6, 4});
}

TEST(DrawingCreate, WithANegativeHeight_Fails)
{
    ExpectFailureToLeaveItEmpty(Screen(), {6, -4});
}

TEST(DrawingCreate, WhenThereIsNoDeviceContext_LeavesItEmpty)
{
    CCompatibleDC surface;
    ASSERT_TRUE(surface.Create(Screen(), Size));
    const CImportPatch patch(&::CreateCompatibleDC, &NoDC);
    EXPECT_FALSE(surface.Create(Screen(), Size));
    EXPECT_TRUE(IsEmpty(surface));
}

TEST(DrawingCreate, WhenThereIsNoBitmap_LeavesItEmpty)
{
    CCompatibleDC surface;
    ASSERT_TRUE(surface.Create(Screen(), Size));
    const CImportPatch patch(&::CreateDIBSection, &NoSection);
    EXPECT_FALSE(surface.Create(Screen(), Size));
    EXPECT_TRUE(IsEmpty(surface));
}

TEST(DrawingCreate, WhenThereIsNoBitmap_GivesTheDeviceContextBack)
{
    const CImportPatch patch(&::CreateDIBSection, &NoSection);
    CCompatibleDC().Create(Screen(), Size);
    const support::CResources before;
    CCompatibleDC().Create(Screen(), Size);
    EXPECT_EQ(before, support::CResources());
}

TEST(DrawingCreate, AfterAFailure_Works)
{
    CCompatibleDC surface;
    EXPECT_FALSE(surface.Create(Screen(), {0, 0}));
    EXPECT_TRUE(surface.Create(Screen(), Size));
    surface.SetPixel(5, 3, RGB(1, 2, 3));
    EXPECT_EQ(RGB(1, 2, 3), surface.GetPixel(5, 3));
}

TEST(DrawingDestroy, LeavesItEmpty)
{
    CCompatibleDC surface;
    ASSERT_TRUE(surface.Create(Screen(), Size));
    surface.Destroy();
    EXPECT_TRUE(IsEmpty(surface));
}

TEST(DrawingDestroy, OfNothing_DoesNothing)
{
    CCompatibleDC surface;
    g_givenBack.clear();
    const CImportPatch select(&::SelectObject, &RecordingSelect);
    const CImportPatch context(&::DeleteDC, &RecordingDeleteDC);
    const CImportPatch object(&::DeleteObject, &RecordingDelete);
    surface.Destroy();
    EXPECT_EQ("", g_givenBack);
    EXPECT_TRUE(IsEmpty(surface));
}

TEST(DrawingDestroy, SelectsTheOldBitmapAndFreesTheContextFirst)
{
    CCompatibleDC surface;
    ASSERT_TRUE(surface.Create(Screen(), Size));
    const HGDIOBJ bitmap = ::GetCurrentObject(surface, OBJ_BITMAP);
    g_givenBack.clear();
    const CImportPatch select(&::SelectObject, &RecordingSelect);
    const CImportPatch context(&::DeleteDC, &RecordingDeleteDC);
    const CImportPatch object(&::DeleteObject, &RecordingDelete);
    surface.Destroy();
    EXPECT_EQ("select dc bitmap ", g_givenBack);
    EXPECT_NE(bitmap, g_selected);
    EXPECT_NE(nullptr, g_selected);
    EXPECT_EQ(0u, ::GetObjectType(bitmap));
}

TEST(DrawingDestroy, IsDoneByTheDestructor)
{
    HDC dc;
    {
        CSurface surface(6, 4);
        dc = surface;
    }
    EXPECT_EQ(0u, ::GetObjectType(dc));
}

TEST(DrawingDestroy, AThousandTimes_LeavesNothingBehind)
{
    const auto use = []
    {
        CCompatibleDC surface;
        EXPECT_TRUE(surface.Create(Screen(), {240, 320}));
        EXPECT_TRUE(surface.Create(Screen(), {24, 32}));
        surface.Destroy();
        EXPECT_TRUE(surface.Create(Screen(), {480, 640}));
    };
    use();
    const support::CResources before;
    for (int i = 0; i < 1000; ++i)
        use();
    EXPECT_EQ(before, support::CResources());
}
