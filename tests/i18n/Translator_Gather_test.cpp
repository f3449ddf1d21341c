// Gathering: this program's own resources against a list made by hand, and those of the system's programs against an
// independent reader.

#include "ResourceTexts.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"
#include "support/MessagePump.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include <ostream>
#include <set>
#include <string>
#include <vector>

using namespace vantor;

namespace
{
constexpr auto NoMode = static_cast<CTranslator::EMode>(2);

HINSTANCE Program()
{
    return ::GetModuleHandleW(nullptr);
}

// What i18n_test.rc holds under numbers from 1 to 65535, as far as it can be gathered.
CLanguageFile OwnTexts()
{
    CLanguageFile texts;
    for (const std::wstring& text : {std::wstring(L"string first"),
                                     std::wstring(L"string 15"),
                                     std::wstring(L"string 16"),
                                     std::wstring(L"string in Greek: \u03c0"),
                                     std::wstring(L"string with a line\nbreak"),
                                     std::wstring(255, L'x'),
                                     std::wstring(L"string last"),
                                     std::wstring(L"dialog first"),
                                     std::wstring(L"dialog first text"),
                                     std::wstring(L"dialog plain"),
                                     std::wstring(L"dialog plain label"),
                                     std::wstring(L""),
                                     std::wstring(L"dialog plain group"),
                                     std::wstring(L"dialog plain check"),
                                     std::wstring(L"dialog plain &OK"),
                                     std::wstring(L"dialog extended"),
                                     std::wstring(L"dialog extended label"),
                                     std::wstring(L"dialog extended button"),
                                     std::wstring(L"dialog visible"),
                                     std::wstring(L"dialog visible label"),
                                     std::wstring(L"dialog extended visible"),
                                     std::wstring(L"dialog extended visible label"),
                                     std::wstring(L"dialog last"),
                                     std::wstring(L"menu first"),
                                     std::wstring(L"menu file"),
                                     std::wstring(L"menu open\tCtrl+O"),
                                     std::wstring(L"menu recent"),
                                     std::wstring(L"menu recent one"),
                                     std::wstring(L"menu help"),
                                     std::wstring(L"menu extended"),
                                     std::wstring(L"menu extended item"),
                                     std::wstring(L"menu last")})
        texts[text] = text;
    return texts;
}

std::vector<std::wstring> g_shown;   // captions of dialogs that were visible at any message
unsigned g_dialogMessages;

LRESULT CALLBACK WatchMessages(int code, WPARAM wParam, LPARAM lParam)
{
    const CWPSTRUCT& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    wchar_t name[20] = {};
    if (code == HC_ACTION && ::GetClassNameW(message.hwnd, name, 20) && std::wstring(name) == L"#32770")
    {
        ++g_dialogMessages;
        if (::IsWindowVisible(message.hwnd) || (message.message == WM_SHOWWINDOW && message.wParam))
        {
            wchar_t caption[100] = {};
            ::GetWindowTextW(message.hwnd, caption, 100);
            g_shown.push_back(caption);
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

struct CDialogOrder
{
    HINSTANCE module;
    HWND owner;
    DLGPROC proc;
};
std::vector<CDialogOrder> g_orders;

HWND WINAPI RecordingCreateDialog(HINSTANCE module, LPCDLGTEMPLATEW dialog, HWND owner, DLGPROC proc, LPARAM param)
{
    g_orders.push_back({module, owner, proc});
    return ::CreateDialogIndirectParamW(module, dialog, owner, proc, param);
}

class TranslatorGather : public ::testing::Test
{
protected:
    TranslatorGather()
    {
        support::UseOwnDesktop();
        const INITCOMMONCONTROLSEX controls = {sizeof controls, 0xFFFF};
        ::InitCommonControlsEx(&controls);
    }

    CTranslator m_translator;
};

struct CSystemModule
{
    const char* name;
    const wchar_t* path;   // below the system's folder
    std::size_t strings;   // it has at least so many different texts of each kind
    std::size_t dialogs;
    std::size_t menus;
};

void PrintTo(const CSystemModule& module, std::ostream* out)
{
    *out << module.name;
}

class GatherSystemModule : public TranslatorGather, public ::testing::WithParamInterface<CSystemModule>
{
protected:
    GatherSystemModule()
    {
        wchar_t folder[MAX_PATH] = {};
        ::GetWindowsDirectoryW(folder, MAX_PATH);
        m_module =
            ::LoadLibraryExW((folder + std::wstring(GetParam().path)).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }
    ~GatherSystemModule() override { ::FreeLibrary(m_module); }

    HMODULE m_module;
};

// Those of the texts that are not in the table.
std::vector<ustring> Missing(const std::set<std::wstring>& texts, const CLanguageFile& table)
{
    std::vector<ustring> missing;
    for (const std::wstring& text : texts)
    {
        if (table.count(text) == 0)
            missing.push_back(text);
    }
    return missing;
}
}   // namespace

TEST_F(TranslatorGather, OwnResources_AreFoundAllAndNothingElse)
{
    m_translator.Gather(Program());
    EXPECT_EQ(OwnTexts(), m_translator.m_langFile);
}

TEST_F(TranslatorGather, Texts_AreTheirOwnTranslationsAfterSavingAndLoading)
{
    const support::CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    m_translator.Gather(Program());
    m_translator.m_langFile.SaveLanguageFile(path.c_str());
    CLanguageFile loaded;
    ASSERT_TRUE(loaded.LoadLanguageFile(path.c_str()));
    EXPECT_EQ(OwnTexts(), loaded);
}

TEST_F(TranslatorGather, Dialogs_NeverShow)
{
    const HHOOK hook = ::SetWindowsHookExW(WH_CALLWNDPROC, WatchMessages, nullptr, ::GetCurrentThreadId());
    m_translator.Gather(Program());
    ::UnhookWindowsHookEx(hook);
    EXPECT_LT(0u, g_dialogMessages);
    EXPECT_TRUE(g_shown.empty());
}

TEST_F(TranslatorGather, Dialogs_BelongToTheDesktopAndRunTheTranslatorsProcedure)
{
    const support::CImportPatch patch(&::CreateDialogIndirectParamW, &RecordingCreateDialog);
    m_translator.Gather(Program());
    ASSERT_EQ(7u, g_orders.size());
    for (const CDialogOrder& order : g_orders)
    {
        EXPECT_EQ(Program(), order.module);
        EXPECT_EQ(::GetDesktopWindow(), order.owner);
        EXPECT_EQ(&CTranslator::DialogProc, order.proc);
    }
}

TEST_F(TranslatorGather, KnownTexts_KeepTheirTranslations)
{
    m_translator.m_langFile[L"menu help"] = L"Hilfe";
    m_translator.Gather(Program());
    EXPECT_EQ(ustring(L"Hilfe"), m_translator.m_langFile[L"menu help"]);
}

TEST_F(TranslatorGather, ModeBeforeWasGathering_DeliberatelyEndsTranslating)
{
    m_translator.SetMode(CTranslator::eGather);
    m_translator.Gather(Program());
    EXPECT_EQ(CTranslator::eTranslate, m_translator.SetMode(NoMode));
}

TEST_F(TranslatorGather, ModeBeforeWasAnother_DeliberatelyEndsTranslating)
{
    m_translator.SetMode(NoMode);
    m_translator.Gather(Program());
    EXPECT_EQ(CTranslator::eTranslate, m_translator.SetMode(NoMode));
}

TEST_F(TranslatorGather, ModeBeforeWasTranslating_StillGathers)
{
    m_translator.Gather(Program());
    EXPECT_FALSE(m_translator.m_langFile.empty());
    EXPECT_EQ(CTranslator::eTranslate, m_translator.SetMode(NoMode));
}

TEST_F(TranslatorGather, LeavesNothingBehind)
{
    CTranslator().Gather(Program());
    support::CResources();   // counting opens things of its own
    CTranslator().Gather(Program());
    const support::CResources before;
    CTranslator().Gather(Program());
    EXPECT_EQ(before, support::CResources());
}

TEST_P(GatherSystemModule, EveryStringIsFound)
{
    const CResourceTexts texts(m_module);
    m_translator.Gather(m_module);
    EXPECT_LE(GetParam().strings, texts.strings.size());
    EXPECT_EQ(std::vector<ustring>(), Missing(texts.strings, m_translator.m_langFile));
}

TEST_P(GatherSystemModule, EveryTextOfADialogIsFound)
{
    const CResourceTexts texts(m_module);
    m_translator.Gather(m_module);
    EXPECT_LE(GetParam().dialogs, texts.dialogs.size());
    EXPECT_EQ(std::vector<ustring>(), Missing(texts.dialogs, m_translator.m_langFile));
}

TEST_P(GatherSystemModule, EveryTextOfAMenuIsFound)
{
    const CResourceTexts texts(m_module);
    m_translator.Gather(m_module);
    EXPECT_LE(GetParam().menus, texts.menus.size());
    EXPECT_EQ(std::vector<ustring>(), Missing(texts.menus, m_translator.m_langFile));
}

// Controls make up texts that no resource holds: a picture has the number of its icon.
TEST_P(GatherSystemModule, NothingElseIsFound)
{
    const CResourceTexts texts(m_module);
    m_translator.Gather(m_module);
    std::vector<ustring> others;
    for (const auto& entry : m_translator.m_langFile)
    {
        const ustring& text = entry.first;
        const bool made = text.empty() || text[0] == L'#';
        if (!made && !texts.strings.count(text) && !texts.dialogs.count(text) && !texts.menus.count(text))
            others.push_back(text);
    }
    EXPECT_EQ(std::vector<ustring>(), others);
}

INSTANTIATE_TEST_SUITE_P(Modules, GatherSystemModule,
                         ::testing::Values(CSystemModule{"Notepad", L"\\notepad.exe", 10, 5, 20},
                                           CSystemModule{"Regedit", L"\\regedit.exe", 50, 20, 20},
                                           CSystemModule{"Comdlg32", L"\\system32\\comdlg32.dll", 20, 30, 0}),
                         [](const auto& test) { return test.param.name; });
