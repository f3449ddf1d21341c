// What the tests of the tip share.

#ifndef VANTOR_TEST_TIP_H
#define VANTOR_TEST_TIP_H

#include "Bar.h"

#include <vantor/TipDlg.h>

namespace bar
{
// Too long for the tip.
inline std::wstring LongText()
{
    std::wstring text;
    for (int i = 0; i < 100; ++i)
        text += L"MMM ";
    return text;
}

inline HWND TextControl(const vantor::CTipDlg& tip)
{
    return ::GetDlgItem(tip.m_hWnd, 1012);
}
}   // namespace bar

#endif
