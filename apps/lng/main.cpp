// lng: the translators' tool. Gathers the texts of programs into language files, counts them, makes
// pseudo-translations.

#include "CommandLine.h"
#include "Pseudo.h"
#include "Texts.h"

#include <vantor/vantor.h>

#include <commctrl.h>

#include <chrono>
#include <cstdio>
#include <iterator>

namespace
{
using namespace vantor;
using Clock = std::chrono::steady_clock;

std::string Narrow(const ustring& text)
{
    return ustring::WideCharToMultiByte(text, CP_UTF8, 0);
}

ustring Wide(const std::string& text)
{
    return ustring(text, CP_UTF8, 0);
}

double Seconds(Clock::time_point since)
{
    return std::chrono::duration<double>(Clock::now() - since).count();
}

// One line for a text that may have several.
std::string OneLine(ustring text)
{
    text.replace(L"\r", L"\\r");
    text.replace(L"\n", L"\\n");
    return Narrow(text);
}

void Report(const CStdException& e)
{
    const CStdException::CExInfo info(e);
    ustring message = info.GetErrorMessageUI();
    CTranslatorInstance::Ref().XlateEx(message);
    message.trim({L'\r', L'\n', L' '});
    std::fprintf(stderr, "lng: %s: %s (%s, %s, line %u)\n", Narrow(info.GetSource()).c_str(), Narrow(message).c_str(),
                 Narrow(info.GetFunction()).c_str(), Narrow(info.GetFileName()).c_str(), info.GetLine());
}

// The file that an operation is about goes in front of what the library says of the failure.
template <class Operation>
auto About(const std::string& path, Operation operation)
{
    try
    {
        return operation();
    }
    catch (const CStdException&)
    {
        std::fprintf(stderr, "lng: %s\n", path.c_str());
        throw;
    }
}

void WarnOfNotStorable(const CLanguageFile& table)
{
    const std::vector<ustring> texts = lng::NotStorable(table);
    if (texts.empty())
        return;
    std::fprintf(
        stderr,
        "lng: warning: %zu texts hold carriage returns, or line breaks between brackets, which a language file does "
        "not keep; they will not be found when a program runs:\n",
        texts.size());
    for (const ustring& text : texts)
        std::fprintf(stderr, "    %s\n", OneLine(text).c_str());
}

// Says what is being done once it takes long enough for somebody to wonder.
class CProgress
{
public:
    void Say(const std::string& what, std::size_t number, std::size_t of) const
    {
        if (Seconds(m_start) > 1.0)
            std::fprintf(stderr, "lng: %s (%zu of %zu)\n", what.c_str(), number, of);
    }

private:
    const Clock::time_point m_start = Clock::now();
};

void GatherAll(const std::vector<std::string>& modules, const std::string& output)
{
    CLanguageFile table;
    const CProgress progress;
    std::printf("%-20s %8s %8s %8s %9s\n", "module", "strings", "dialogs", "menus", "seconds");
    for (std::size_t i = 0; i < modules.size(); ++i)
    {
        progress.Say(modules[i], i + 1, modules.size());
        const Clock::time_point start = Clock::now();
        const ustring path = Wide(modules[i]);
        const lng::Counts counts = About(modules[i], [&] { return lng::Gather(path, table); });
        ustring drive, dir, fname, ext;
        CFile::SplitPath(path.c_str(), drive, dir, fname, ext);
        std::printf("%-20s %8zu %8zu %8zu %9.2f\n", Narrow(fname + ext).c_str(), counts.strings, counts.dialogs,
                    counts.menus, Seconds(start));
    }
    About(output, [&] { lng::Save(table, Wide(output)); });
    std::printf("%zu texts in %s\n", table.size(), output.c_str());
    WarnOfNotStorable(table);
}

void PrintStatistics(const std::string& file)
{
    const lng::Statistics statistics = About(file, [&] { return lng::Count(lng::Load(Wide(file))); });
    std::printf("entries       %8zu\n"
                "translated    %8zu\n"
                "untranslated  %8zu\n"
                "empty         %8zu\n"
                "characters    %8zu\n"
                "longest text  %8zu\n"
                "placeholders differ in %zu\n",
                statistics.entries, statistics.translated, statistics.untranslated, statistics.empty,
                statistics.characters, statistics.longest, statistics.brokenPlaceholders.size());
    for (const ustring& text : statistics.brokenPlaceholders)
        std::printf("    %s\n", OneLine(text).c_str());
}

void MakePseudo(const std::string& file, const std::string& output)
{
    CLanguageFile table = About(file, [&] { return lng::Load(Wide(file)); });
    for (auto& [source, translation] : table)
        translation = lng::Pseudo(source);
    About(output, [&] { lng::Save(table, Wide(output)); });
    std::printf("%zu texts in %s\n", table.size(), output.c_str());
    WarnOfNotStorable(table);
}

int Run(int count, wchar_t** arguments)
{
    CLI::App app{"Gathers the user-interface texts of programs into language files, and works on such files.", "lng"};
    app.set_version_flag("--version", std::to_string(VANTOR_VERSION_MAJOR) + "." +
                                          std::to_string(VANTOR_VERSION_MINOR) + "." +
                                          std::to_string(VANTOR_VERSION_PATCH));
    app.require_subcommand(1);
    std::vector<std::string> modules;
    std::string file;
    std::string output;

    CLI::App* gather =
        app.add_subcommand("gather", "Collect all texts of programs or libraries, each as its own translation");
    gather->add_option("MODULE", modules, "Programs or libraries: their string tables, dialogs and menus")->required();
    gather->add_option("-o", output, "The language file to write")->required()->type_name("FILE.lng");
    gather->callback([&] { GatherAll(modules, output); });

    CLI::App* stats = app.add_subcommand("stats", "Count a language file's texts and find broken placeholders");
    stats->add_option("FILE", file, "The language file")->required();
    stats->callback([&] { PrintStatistics(file); });

    CLI::App* pseudo = app.add_subcommand("pseudo", "Make a pseudo-translation: accents, brackets, 40 % longer");
    pseudo->add_option("FILE", file, "The language file")->required();
    pseudo->add_option("-o", output, "The language file to write")->required()->type_name("OUT.lng");
    pseudo->callback([&] { MakePseudo(file, output); });

    const int result = command_line::Parse(app, count, arguments);
    return result < 0 ? 0 : result;
}
}   // namespace

int wmain(int count, wchar_t** arguments)
{
    ::SetConsoleOutputCP(CP_UTF8);
    // Dialogs with the common controls can only be built once these are known.
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_USEREX_CLASSES};
    ::InitCommonControlsEx(&controls);
    try
    {
        return Run(count, arguments);
    }
    catch (const CStdException& e)
    {
        Report(e);
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "lng: %s\n", e.what());
    }
    return 1;
}
