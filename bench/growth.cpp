// Shows how the time of what walks a text grows with the text: eight times the hits or records should take about eight
// times as long, not 64 times. Prints milliseconds for each size, and the growth from the smallest to the largest.

#include <vantor/vantor.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <iterator>

namespace
{
using namespace vantor;
using Clock = std::chrono::steady_clock;

constexpr std::size_t Sizes[] = {12500, 25000, 50000, 100000};
constexpr double EnoughSeconds = 0.05;   // for one figure; what is faster is done again and again

std::wstring Repeated(const std::wstring& unit, std::size_t count)
{
    std::wstring result;
    result.reserve(unit.size() * count);
    while (count-- > 0)
        result += unit;
    return result;
}

double Seconds(Clock::time_point since)
{
    return std::chrono::duration<double>(Clock::now() - since).count();
}

// Of the fastest of three rounds: other programs run as well.
double SecondsOf(const std::function<void()>& work)
{
    double best = 1e9;
    for (int round = 0; round < 3; ++round)
    {
        const Clock::time_point start = Clock::now();
        std::size_t times = 0;
        do
        {
            work();
            ++times;
        } while (Seconds(start) < EnoughSeconds);
        const double each = Seconds(start) / static_cast<double>(times);
        best = each < best ? each : best;
    }
    return best;
}

// `prepare` makes the input for a size, outside of what is timed, and returns the work.
void Measure(const char* name, const std::function<std::function<void()>(std::size_t)>& prepare)
{
    double seconds[std::size(Sizes)];
    std::printf("%-34s", name);
    for (std::size_t i = 0; i < std::size(Sizes); ++i)
    {
        seconds[i] = SecondsOf(prepare(Sizes[i]));
        std::printf(" %9.3f", seconds[i] * 1000);
    }
    std::printf(" %8.1f\n", seconds[std::size(Sizes) - 1] / seconds[0]);
    std::fflush(stdout);
}

// Work on a text of its own, which is a copy of this unit so many times.
std::function<std::function<void()>(std::size_t)> OnCopies(const wchar_t* unit,
                                                           const std::function<void(ustring&)>& work)
{
    return [unit, work](std::size_t size)
    {
        const ustring text = Repeated(unit, size);
        return [text, work]
        {
            ustring copy = text;
            work(copy);
        };
    };
}

void MeasureStrings()
{
    Measure("trim", OnCopies(L" ", [](ustring& text) { text.trim(L' '); }));
    Measure("trim by a set", OnCopies(L" \t", [](ustring& text) { text.trim({L'\r', L'\n', L'\t', L' '}); }));
    Measure("replace, longer", OnCopies(L"ab", [](ustring& text) { text.replace(L"a", L"xyz"); }));
    Measure("replace, shorter", OnCopies(L"ab", [](ustring& text) { text.replace(L"ab", L"x"); }));
    Measure("replaceForbiddenSymbols", OnCopies(L"a/", [](ustring& text) { text.replaceForbiddenSymbols(L"%/:"); }));
    Measure("split into a vector", OnCopies(L"ab,",
                                            [](ustring& text)
                                            {
                                                std::vector<ustring> pieces;
                                                ustring::split(text.c_str(), L',', pieces, false);
                                            }));
    Measure("sprintf", OnCopies(L"0123456789",
                                [](ustring& text)
                                {
                                    ustring out;
                                    out.sprintf(L"<%s>", text.c_str());
                                }));
    Measure("MakePath, many folders",
            OnCopies(L"\\ab\\", [](ustring& text) { CFile::MakePath(text, L"C:", text.c_str(), L"x", L"txt"); }));
    Measure("MakePath, one run of backslashes",
            OnCopies(L"\\", [](ustring& text) { CFile::MakePath(text, L"C:", text.c_str(), L"x", L"txt"); }));
    Measure("mask that matches", OnCopies(L"ab", [](ustring& text) { text.compareWithMask(L"*a*b*ab"); }));
    Measure("mask that does not match", OnCopies(L"ab", [](ustring& text) { text.compareWithMask(L"*a*b*a?c"); }));
}

void WriteBytes(const ustring& path, const std::wstring& text)
{
    CFile file(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    unsigned int done = 0;
    file.Write(text.data(), static_cast<unsigned int>(text.size() * sizeof(wchar_t)), done, nullptr);
}

// The library looks for this file beside its DLL, so the program takes a copy of the DLL along.
void MeasureErrorTexts()
{
    constexpr unsigned long nobodys = 0x2BADC0DE;   // a code that neither the system nor the file knows
    ustring library, path;
    CFile::GetModuleFileNameW(::GetModuleHandleW(L"vantor.dll"), library, true);
    CFile::UpdateFileName(library.c_str(), L"Win32Errors.txt", path);
    const auto lookUp = []
    {
        ustring text;
        CWinException(0, nullptr, nullptr, nobodys).GetErrorMessage(text);
    };
    Measure("Win32Errors.txt, many lines",
            [&](std::size_t size)
            {
                WriteBytes(path, L"\uFEFF" + Repeated(L"0x20000001, \"A message\\r\\n\"\r\n", size));
                return lookUp;
            });
    Measure("Win32Errors.txt, one long line",
            [&](std::size_t size)
            {
                WriteBytes(path, L"\uFEFF1," + Repeated(L"0123456789", size) + L"\n");
                return lookUp;
            });
    CFile::Remove(path.c_str());
}

void MeasureLanguageFiles()
{
    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"lng", 0, path);
    CLanguageFile table;
    const auto fill = [&table](std::size_t size)
    {
        table.clear();
        for (std::size_t i = 0; i < size; ++i)
        {
            ustring source, translation;
            source.sprintf(L"Source text %06u", static_cast<unsigned int>(i));
            translation.sprintf(L"Translated text %06u", static_cast<unsigned int>(i));
            table[source] = translation;
        }
    };
    Measure("language file, save",
            [&](std::size_t size)
            {
                fill(size);
                return [&] { table.SaveLanguageFile(path.c_str()); };
            });
    Measure("language file, load",
            [&](std::size_t size)
            {
                fill(size);
                table.SaveLanguageFile(path.c_str());
                return [&] { CLanguageFile().LoadLanguageFile(path.c_str()); };
            });
    Measure("language file, load, \"]\" in a text",
            [&](std::size_t size)
            {
                table.clear();
                table[L"Source"] = Repeated(L"text]\n", size);
                table.SaveLanguageFile(path.c_str());
                return [&] { CLanguageFile().LoadLanguageFile(path.c_str()); };
            });
    CFile::Remove(path.c_str());
}

// Of a file with so many entries; the last one is wanted. Beside it what the system itself offers for that.
void MeasureIniFiles()
{
    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"ini", 0, path);
    const auto onFile = [&path](const std::function<void()>& work)
    {
        return [&path, work](std::size_t size)
        {
            WriteBytes(path, L"\uFEFF[Sweep]\r\n" + Repeated(L"key=value ; comment\r\n", size) + L"last=1\r\n");
            return work;
        };
    };
    Measure("INI file, get", onFile([&path] { CIniFile(path.c_str()).GetString(L"Sweep", L"last", L""); }));
    Measure("INI file, get, by the system",
            onFile(
                [&path]
                {
                    wchar_t value[16];
                    ::WritePrivateProfileStringW(nullptr, nullptr, nullptr, path.c_str());   // forgets what it has kept
                    ::GetPrivateProfileStringW(L"Sweep", L"last", L"", value, 16, path.c_str());
                }));
    Measure("INI file, write", onFile([&path] { CIniFile(path.c_str()).WriteString(L"Sweep", L"last", L"2"); }));
    CFile::Remove(path.c_str());
}
}   // namespace

int main()
{
    std::printf("%-34s", "milliseconds for so many");
    for (const std::size_t size : Sizes)
        std::printf(" %9u", static_cast<unsigned int>(size));
    std::printf(" %8s\n", "growth");
    MeasureStrings();
    MeasureErrorTexts();
    MeasureLanguageFiles();
    MeasureIniFiles();
}
