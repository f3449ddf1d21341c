// Texts of a dialog's controls.

#include "Dialogs.h"

#include "support/MessagePump.h"
#include "support/Print.h"

#include <gtest/gtest.h>

#include <string>

using namespace vantor;

namespace
{
// Says another length of its texts.
class CBoastingDialog : public CFormDialog
{
public:
    unsigned int GetDlgItemTextLength(int id) override
    {
        asked = id;
        return length;
    }

    unsigned int length = 0;
    int asked = 0;
};

class DialogItems : public ::testing::Test
{
protected:
    DialogItems()
    {
        support::UseOwnDesktop();
        for (CFormDialog* const dialog : {&m_dialog, static_cast<CFormDialog*>(&m_boasting)})
        {
            EXPECT_TRUE(dialog->Create());
            ::SetDlgItemTextW(dialog->m_hWnd, IDC_FILLED, L"abc");
        }
    }

    ustring TextOf(int id) const
    {
        wchar_t text[100] = {};
        ::GetDlgItemTextW(m_dialog.m_hWnd, id, text, 100);
        return text;
    }

    CFormDialog m_dialog;
    CBoastingDialog m_boasting;
    ustring m_text = L"before";
};
}   // namespace

TEST_F(DialogItems, Set_SetsTheText)
{
    EXPECT_TRUE(m_dialog.SetDlgItemTextW(IDC_EMPTY, L"x \u20ac"));
    EXPECT_EQ(ustring(L"x \u20ac"), TextOf(IDC_EMPTY));
}

TEST_F(DialogItems, Set_OfNull_EmptiesTheText)
{
    EXPECT_TRUE(m_dialog.SetDlgItemTextW(IDC_FILLED, nullptr));
    EXPECT_EQ(ustring(), TextOf(IDC_FILLED));
}

TEST_F(DialogItems, Set_OfAMissingControl_IsFalse)
{
    EXPECT_FALSE(m_dialog.SetDlgItemTextW(IDC_MISSING, L"x"));
}

TEST_F(DialogItems, Set_WithoutAWindow_IsFalse)
{
    CFormDialog dialog;
    EXPECT_FALSE(dialog.SetDlgItemTextW(IDC_EMPTY, L"x"));
}

TEST_F(DialogItems, Length_IsThatOfTheText)
{
    EXPECT_EQ(3u, m_dialog.GetDlgItemTextLength(IDC_FILLED));
}

TEST_F(DialogItems, Length_OfAnEmptyControl_IsZero)
{
    EXPECT_EQ(0u, m_dialog.GetDlgItemTextLength(IDC_EMPTY));
}

TEST_F(DialogItems, Length_OfAMissingControl_IsZero)
{
    EXPECT_EQ(0u, m_dialog.GetDlgItemTextLength(IDC_MISSING));
}

TEST_F(DialogItems, Get_IsTheTextWithoutATerminator)
{
    EXPECT_EQ(3u, m_dialog.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_EQ(ustring(L"abc"), m_text);
    EXPECT_EQ(3u, m_text.size());
}

TEST_F(DialogItems, Get_OfOneCharacter)
{
    ::SetDlgItemTextW(m_dialog.m_hWnd, IDC_FILLED, L"a");
    EXPECT_EQ(1u, m_dialog.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_EQ(ustring(L"a"), m_text);
}

TEST_F(DialogItems, Get_OfALongText)
{
    const std::wstring text(5000, L'\u20ac');
    ::SetDlgItemTextW(m_dialog.m_hWnd, IDC_FILLED, text.c_str());
    EXPECT_EQ(5000u, m_dialog.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_TRUE(text == m_text);
}

TEST_F(DialogItems, Get_OfAnEmptyControl_IsZeroAndEmpty)
{
    EXPECT_EQ(0u, m_dialog.GetDlgItemTextW(IDC_EMPTY, m_text));
    EXPECT_TRUE(m_text.empty());
}

TEST_F(DialogItems, Get_OfAMissingControl_IsZeroAndEmpty)
{
    EXPECT_EQ(0u, m_dialog.GetDlgItemTextW(IDC_MISSING, m_text));
    EXPECT_TRUE(m_text.empty());
}

TEST_F(DialogItems, Get_WithoutAWindow_IsZeroAndEmpty)
{
    CFormDialog dialog;
    EXPECT_EQ(0u, dialog.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_TRUE(m_text.empty());
}

TEST_F(DialogItems, Get_AsksTheDialogsOwnLength)
{
    m_boasting.GetDlgItemTextW(IDC_FILLED, m_text);
    EXPECT_EQ(IDC_FILLED, m_boasting.asked);
}

TEST_F(DialogItems, Get_WithAShorterLength_CutsTheText)
{
    m_boasting.length = 2;
    EXPECT_EQ(2u, m_boasting.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_EQ(ustring(L"ab"), m_text);
}

TEST_F(DialogItems, Get_WithALongerLength_IsTheTextAlone)
{
    m_boasting.length = 50;
    EXPECT_EQ(3u, m_boasting.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_EQ(ustring(L"abc"), m_text);
}

TEST_F(DialogItems, Get_WithALengthOfZero_ReadsNothing)
{
    m_boasting.length = 0;
    EXPECT_EQ(0u, m_boasting.GetDlgItemTextW(IDC_FILLED, m_text));
    EXPECT_TRUE(m_text.empty());
}

TEST_F(DialogItems, Get_WithALengthForAMissingControl_IsZeroAndEmpty)
{
    m_boasting.length = 5;
    EXPECT_EQ(0u, m_boasting.GetDlgItemTextW(IDC_MISSING, m_text));
    EXPECT_TRUE(m_text.empty());
}
