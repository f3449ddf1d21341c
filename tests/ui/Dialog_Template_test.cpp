// Dialogs from a template in memory.

#include "Dialogs.h"
#include "Templates.h"

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

using namespace vantor;
using support::CImportPatch;

namespace
{
std::vector<HLOCAL> g_freed;

HLOCAL WINAPI RecordingLocalFree(HLOCAL block)
{
    g_freed.push_back(block);
    return ::LocalFree(block);
}

bool IsFreed(const void* block)
{
    return std::find(g_freed.begin(), g_freed.end(), block) != g_freed.end();
}

class DialogTemplate : public ::testing::Test
{
protected:
    DialogTemplate()
    {
        support::UseOwnDesktop();
        g_freed.clear();
    }

    // The title of the dialog's window.
    static std::wstring TitleOfCreated(CFormDialog& dialog)
    {
        EXPECT_TRUE(dialog.Create());
        return TitleOf(dialog.m_hWnd);
    }

    const CTemplate m_template = CTemplate(L"memory");
    CFormDialog m_dialog;
};
}   // namespace

TEST_F(DialogTemplate, InitModalIndirect_IsTrue)
{
    EXPECT_TRUE(m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr));
}

TEST_F(DialogTemplate, InitModalIndirect_TakesTheModuleAndTheParent)
{
    const auto module = reinterpret_cast<HINSTANCE>(0x1234);
    const auto parent = reinterpret_cast<HWND>(0x5678);
    m_dialog.InitModalIndirect(module, m_template.Block(), parent);
    EXPECT_EQ(module, m_dialog.Instance());
    EXPECT_EQ(parent, m_dialog.m_hWndParent);
}

TEST_F(DialogTemplate, InitModalIndirect_MakesNoWindow)
{
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    EXPECT_EQ(nullptr, m_dialog.m_hWnd);
    EXPECT_EQ("", m_dialog.calls);
}

TEST_F(DialogTemplate, InitModalIndirect_CopiesTheWholeBlock)
{
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    ASSERT_NE(nullptr, m_dialog.Template());
    EXPECT_NE(m_template.Block(), m_dialog.Template());
    EXPECT_EQ(::LocalSize(m_template.Block()), ::LocalSize(m_dialog.Template()));
    EXPECT_EQ(0, std::memcmp(m_template.Block(), m_dialog.Template(), m_template.Size()));
}

TEST_F(DialogTemplate, Create_UsesItInsteadOfTheResource)
{
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    EXPECT_EQ(L"memory", TitleOfCreated(m_dialog));
}

TEST_F(DialogTemplate, DoModal_UsesItInsteadOfTheResource)
{
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    std::wstring title;
    m_dialog.whenShown = [&]
    {
        title = TitleOf(m_dialog.m_hWnd);
        ::PostMessageW(m_dialog.m_hWnd, WM_COMMAND, IDYES, 0);
    };
    EXPECT_EQ(IDYES, m_dialog.DoModal());
    EXPECT_EQ(L"memory", title);
}

TEST_F(DialogTemplate, Create_NeedsNoResource)
{
    CFormDialog dialog(IDD_MISSING);
    dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    EXPECT_EQ(L"memory", TitleOfCreated(dialog));
}

TEST_F(DialogTemplate, CallersBlockOverwritten_ChangesNothing)
{
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    std::memset(m_template.Block(), 0, m_template.Size());
    EXPECT_EQ(L"memory", TitleOfCreated(m_dialog));
}

TEST_F(DialogTemplate, CallersBlockFreed_ChangesNothing)
{
    {
        const CTemplate shortLived(L"gone");
        m_dialog.InitModalIndirect(Module(), shortLived.Block(), nullptr);
    }
    EXPECT_EQ(L"gone", TitleOfCreated(m_dialog));
}

TEST_F(DialogTemplate, CallersBlock_StaysTheCallers)
{
    const CImportPatch patch(&::LocalFree, &RecordingLocalFree);
    {
        CFormDialog dialog;
        dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    }
    EXPECT_FALSE(IsFreed(m_template.Block()));
}

TEST_F(DialogTemplate, Copy_IsFreedWithTheObject)
{
    const CImportPatch patch(&::LocalFree, &RecordingLocalFree);
    const void* copy = nullptr;
    {
        CFormDialog dialog;
        dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
        copy = dialog.Template();
        EXPECT_FALSE(IsFreed(copy));
    }
    EXPECT_TRUE(IsFreed(copy));
}

TEST_F(DialogTemplate, SecondCall_TheNewestIsShown)
{
    const CTemplate second(L"second");
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    m_dialog.InitModalIndirect(Module(), second.Block(), nullptr);
    EXPECT_EQ(L"second", TitleOfCreated(m_dialog));
}

// The call is meant to be made once.
TEST_F(DialogTemplate, SecondCall_DoesNotFreeTheFirstCopy)
{
    const CImportPatch patch(&::LocalFree, &RecordingLocalFree);
    void* first = nullptr;
    void* second = nullptr;
    {
        CFormDialog dialog;
        dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
        first = dialog.Template();
        dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
        second = dialog.Template();
    }
    EXPECT_FALSE(IsFreed(first));
    EXPECT_TRUE(IsFreed(second));
    ::LocalFree(first);
}

TEST_F(DialogTemplate, Null_IsFalse)
{
    EXPECT_FALSE(m_dialog.InitModalIndirect(Module(), nullptr, nullptr));
}

TEST_F(DialogTemplate, Null_KeepsTheEarlierCopy)
{
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    EXPECT_FALSE(m_dialog.InitModalIndirect(Module(), nullptr, nullptr));
    EXPECT_EQ(L"memory", TitleOfCreated(m_dialog));
}

TEST_F(DialogTemplate, Null_KeepsTheModuleAndTheParent)
{
    const auto parent = reinterpret_cast<HWND>(0x5678);
    CFormDialog dialog(IDD_FORM, parent);
    dialog.InitModalIndirect(nullptr, nullptr, nullptr);
    EXPECT_EQ(Module(), dialog.Instance());
    EXPECT_EQ(parent, dialog.m_hWndParent);
}

TEST_F(DialogTemplate, Null_WithoutAnEarlierCopy_LeavesTheResource)
{
    m_dialog.InitModalIndirect(Module(), nullptr, nullptr);
    EXPECT_EQ(L"form", TitleOfCreated(m_dialog));
}

TEST_F(DialogTemplate, OneTemplate_ServesTwoDialogsAtOnce)
{
    CFormDialog second;
    m_dialog.InitModalIndirect(Module(), m_template.Block(), nullptr);
    second.InitModalIndirect(Module(), m_template.Block(), nullptr);
    EXPECT_EQ(L"memory", TitleOfCreated(m_dialog));
    EXPECT_EQ(L"memory", TitleOfCreated(second));
}

TEST_F(DialogTemplate, DoModal_WithAParentThatIsNoWindow_ReturnsWhatTheSystemSays)
{
    CFormDialog dialog(IDD_FORM, reinterpret_cast<HWND>(0x5678));
    dialog.InitModalIndirect(Module(), m_template.Block(), dialog.m_hWndParent);
    const int result = dialog.DoModal();
    EXPECT_TRUE(result == -1 || result == 0) << result;
}
