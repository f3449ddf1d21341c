#include "Picture.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"

using namespace vantor;
using support::CImportPatch;

namespace
{
HINSTANCE Library()
{
    return ::GetModuleHandleW(L"vantor.dll");
}

struct CImageCall
{
    HINSTANCE module = nullptr;
    LPCWSTR name = nullptr;
    UINT type = 0;
    int cx = 0;
    int cy = 0;
    UINT flags = 0;
} g_image;

HANDLE WINAPI RecordingImage(HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags)
{
    g_image = {module, name, type, cx, cy, flags};
    return reinterpret_cast<HANDLE>(0x1234);
}

int g_iconWidth;
SIZE g_screen;

int WINAPI Metrics(int index)
{
    switch (index)
    {
    case SM_CXICON:
        return g_iconWidth;
    case SM_CXSCREEN:
        return g_screen.cx;
    case SM_CYSCREEN:
        return g_screen.cy;
    default:
        return -1;
    }
}

bool IsHighDPIAt(int iconWidth)
{
    const CImportPatch patch(&::GetSystemMetrics, &Metrics);
    g_iconWidth = iconWidth;
    return IsHighDPI();
}

bool IsWideScreenAt(int width, int height)
{
    const CImportPatch patch(&::GetSystemMetrics, &Metrics);
    g_screen = {width, height};
    return IsWideScreen();
}
}   // namespace

TEST(DrawingIcons, AreLoadedAsAsked)
{
    const CImportPatch patch(&::LoadImageW, &RecordingImage);
    EXPECT_EQ(reinterpret_cast<HICON>(0x1234), LoadIconW(Library(), 107, 20, 30, LR_SHARED | LR_MONOCHROME));
    EXPECT_EQ(Library(), g_image.module);
    EXPECT_EQ(MAKEINTRESOURCEW(107), g_image.name);
    EXPECT_EQ(static_cast<UINT>(IMAGE_ICON), g_image.type);
    EXPECT_EQ(20, g_image.cx);
    EXPECT_EQ(30, g_image.cy);
    EXPECT_EQ(static_cast<UINT>(LR_SHARED | LR_MONOCHROME), g_image.flags);
}

TEST(DrawingIcons, AreNamedByTheLowerHalfOfTheId)
{
    const CImportPatch patch(&::LoadImageW, &RecordingImage);
    LoadIconW(Library(), 0xABCD006B, 16, 16, 0);
    EXPECT_EQ(MAKEINTRESOURCEW(107), g_image.name);
}

TEST(DrawingIcons, HaveTheSizeAskedFor)
{
    for (const int size : {16, 32, 64})
    {
        const HICON icon = LoadIconW(Library(), 107, size, size, 0);
        ICONINFO info = {};
        ASSERT_TRUE(::GetIconInfo(icon, &info)) << size;
        BITMAP bitmap = {};
        ::GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
        EXPECT_EQ(size, bitmap.bmWidth);
        EXPECT_EQ(size, bitmap.bmHeight);
        ::DeleteObject(info.hbmColor);
        ::DeleteObject(info.hbmMask);
        ::DestroyIcon(icon);
    }
}

TEST(DrawingIcons, ThatDoNotExist_AreNull)
{
    EXPECT_EQ(nullptr, LoadIconW(Library(), 4711, 16, 16, 0));
}

TEST(DrawingIcons, AreTheCallers)
{
    ::DestroyIcon(LoadIconW(Library(), 107, 16, 16, 0));
    const support::CResources before;
    ::DestroyIcon(LoadIconW(Library(), 107, 16, 16, 0));
    EXPECT_EQ(before, support::CResources());
}

TEST(DrawingScreen, IsHighDPI_WithIconsOf64Pixels)
{
    EXPECT_FALSE(IsHighDPIAt(32));
    EXPECT_FALSE(IsHighDPIAt(63));
    EXPECT_TRUE(IsHighDPIAt(64));
    EXPECT_TRUE(IsHighDPIAt(96));
}

TEST(DrawingScreen, IsWide_WhenWiderThanHigh)
{
    EXPECT_TRUE(IsWideScreenAt(640, 480));
    EXPECT_TRUE(IsWideScreenAt(481, 480));
    EXPECT_FALSE(IsWideScreenAt(479, 480));
    EXPECT_FALSE(IsWideScreenAt(240, 320));
}

TEST(DrawingScreen, IsNotWide_WhenSquare)
{
    EXPECT_FALSE(IsWideScreenAt(480, 480));
}
