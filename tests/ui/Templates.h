// Dialog templates in memory, as InitModalIndirect takes them.

#ifndef VANTOR_TEST_UI_TEMPLATES_H
#define VANTOR_TEST_UI_TEMPLATES_H

#include <vantor/Platform.h>

#include <cstring>
#include <string>
#include <vector>

// A block of LocalAlloc with the template of an invisible window without controls.
class CTemplate
{
public:
    explicit CTemplate(const std::wstring& title)
    {
        DLGTEMPLATE head = {};
        head.style = WS_POPUP | WS_CAPTION;
        head.cx = 100;
        head.cy = 50;
        std::vector<WORD> words(sizeof head / sizeof(WORD) + 2);   // no menu, the system's own class
        std::memcpy(words.data(), &head, sizeof head);
        words.insert(words.end(), title.begin(), title.end());
        words.push_back(0);
        m_size = words.size() * sizeof(WORD);
        m_block = ::LocalAlloc(LMEM_FIXED, m_size);
        std::memcpy(m_block, words.data(), m_size);
    }
    CTemplate(const CTemplate&) = delete;
    CTemplate& operator=(const CTemplate&) = delete;
    ~CTemplate() { ::LocalFree(m_block); }

    void* Block() const { return m_block; }
    std::size_t Size() const { return m_size; }

private:
    std::size_t m_size;
    HLOCAL m_block;
};

inline std::wstring TitleOf(HWND window)
{
    wchar_t text[100] = {};
    ::GetWindowTextW(window, text, 100);
    return text;
}

#endif
