// Two objects on one file against the slow reference: random operations on random files, the changes of a third
// program between them. After each, what it answers, what the file holds and what a look at it shows must agree.

#include "IniModel.h"
#include "IniTest.h"

#include <climits>
#include <random>

using namespace vantor;
using namespace settings_test;

namespace
{
constexpr int Files = 2500;   // of each encoding
constexpr int Steps = 15;

class CRandom
{
public:
    explicit CRandom(unsigned int seed) : m_engine(seed) {}

    std::size_t Below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_engine); }
    bool OneIn(std::size_t chance) { return Below(chance) == 0; }

    template <class T, std::size_t N>
    const T& Of(const T (&choice)[N])
    {
        return choice[Below(N)];
    }

private:
    std::mt19937 m_engine;
};

// Of names and values null is one.
const wchar_t* const SectionNames[] = {L"",   L"A", L"a",      L"B",      L"b",   L"y",
                                       L"A ", L"C", L"\u00C4", L"\u00E4", L"A]B", nullptr};
const wchar_t* const Keys[] = {L"",  L"k",  L"K",      L"k ",     L" k",  L"a",    L"x",    L"]x[",
                               L"[", L"ab", L"\u00DC", L"\u00FC", L"a;b", L"a\nb", nullptr, L"\xFEFFk"};
const wchar_t* const Values[] = {L"",       L"1",   L" v ", L"-7x", L"a=b",        L"a;b",          L"[q]", L"x\r\ny",
                                 L"\u20AC", L"v\r", L"]",   L"=",   L"5000000000", L"\xD83D\xDE00", L"\n",  nullptr};
const int Numbers[] = {0, 1, -1, 42, INT_MIN, INT_MAX};

// clang-format off
const wchar_t* const WholeLines[] = {
    L"", L"", L"[A]", L"[a]", L"[A]", L"[B]", L"[\u00C4]", L"[]", L"x[y]z", L"a=[b]", L"[A];c", L";[A]", L"[A;]", L"]x[",
    L"[", L"]", L"[A][B]", L"[[B]]", L"k=v", L"K=w", L"k = v", L" k=v", L"k=v ;n", L"k=a=b", L"k==b", L"=v", L"k", L"k=",
    L"=", L"==", L";", L"; k=v", L"a=12", L"a=-3 m", L"x=y", L"a\rb=1", L"\r", L"\t", L"\u00DC=\u20AC",
    L"k=\xD83D\xDE00", L"\xFEFFk=v", L"words alone"};
const std::wstring_view LinesWithANul[] = {
    {L"k\0=v", 4}, {L"k=v\0w", 5}, {L"[A\0B]", 5}, {L"\0", 1}, {L"\0[B]", 4}, {L"k=1\0;[A]", 7}};
// clang-format on

std::wstring RandomLine(CRandom& random)
{
    if (!random.OneIn(6))
        return random.Of(WholeLines);
    std::wstring line(random.Below(7), L' ');
    for (wchar_t& ch : line)
        ch = L"[];=kA "[random.Below(7)];
    return line;
}

// A NUL ends a text in UTF-8: there it is rare.
std::wstring RandomText(CRandom& random, bool unicode)
{
    std::wstring text;
    const std::size_t lines = random.Below(13);
    for (std::size_t line = 0; line < lines; ++line)
    {
        text += random.OneIn(unicode ? 12 : 60) ? std::wstring(random.Of(LinesWithANul)) : RandomLine(random);
        if (line + 1 < lines || !random.OneIn(3))
            text += random.OneIn(3) ? L"\n" : random.OneIn(20) ? L"\r\r\n" : L"\r\n";
    }
    return text;
}

std::string RandomFile(CRandom& random, bool unicode)
{
    const std::wstring text = RandomText(random, unicode);
    if (unicode)
        return MarkedUtf16(text) + (random.OneIn(8) ? "x" : "");
    return (random.OneIn(8) ? "\xEF\xBB\xBF" : "") + ToUtf8(text);
}

// A file that stays open, read and written as bytes.
class CDisk
{
public:
    explicit CDisk(const ustring& path)
        : m_file(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                 0, nullptr)
    {
    }

    std::string Bytes()
    {
        char block[8192];
        DWORD done = 0;
        ::SetFilePointer(m_file, 0, nullptr, FILE_BEGIN);
        EXPECT_TRUE(::ReadFile(m_file, block, sizeof block, &done, nullptr));
        EXPECT_LT(done, sizeof block);
        return std::string(block, done);
    }

    void SetBytes(const std::string& bytes)
    {
        DWORD done = 0;
        ::SetFilePointer(m_file, 0, nullptr, FILE_BEGIN);
        EXPECT_TRUE(::WriteFile(m_file, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr));
        EXPECT_TRUE(::SetEndOfFile(m_file));
    }

private:
    CFile m_file;
};

enum EOperation
{
    eEnumSections,
    eEnumEntries,
    eGetString,
    eGetInt,
    eWriteString,
    eWriteInt,
    eDeleteSection,
    eDeleteEntry,
    eLoad,
    eSave,
    eForeignChange,
    eOperations
};

struct COperation
{
    std::size_t object;
    EOperation what;
    const wchar_t *section, *key, *value;
    int number;
    std::string bytes;
};

std::string Visible(const std::string& bytes)
{
    std::string text;
    for (const char ch : bytes)
    {
        char code[5];
        std::snprintf(code, sizeof code, ch >= ' ' && ch < 0x7F && ch != '\\' ? "%c" : "\\x%02X",
                      static_cast<unsigned char>(ch));
        text += code;
    }
    return "\"" + text + "\"";
}

std::string Visible(const std::wstring& text)
{
    return Visible(ToUtf8(text));
}

template <class String>
std::string Visible(const std::vector<String>& texts)
{
    std::string all;
    for (const String& text : texts)
        all += Visible(static_cast<const std::wstring&>(text)) + " ";
    return all;
}

std::string Visible(const COperation& operation)
{
    constexpr const char* names[] = {"EnumSections", "EnumEntries", "GetString",       "GetInt",
                                     "WriteString",  "WriteInt",    "DeleteSection",   "DeleteEntry",
                                     "Load",         "Save",        "a foreign change"};
    std::string text = "\n" + std::to_string(operation.object) + ": " + names[operation.what];
    for (const wchar_t* const argument : {operation.section, operation.key, operation.value})
        text += argument ? " " + Visible(std::wstring(argument)) : std::string(" null");
    return text + " " + std::to_string(operation.number) +
           (operation.bytes.empty() ? "" : " " + Visible(operation.bytes));
}

COperation RandomOperation(CRandom& random, bool unicode)
{
    COperation operation = {random.Below(2),
                            static_cast<EOperation>(random.Below(eOperations)),
                            random.Of(SectionNames),
                            random.Of(Keys),
                            random.Of(Values),
                            random.Of(Numbers),
                            ""};
    if (operation.what == eForeignChange)
        operation.bytes = RandomFile(random, random.OneIn(3) ? !unicode : unicode);
    else if (operation.what > eForeignChange - 3 && random.OneIn(2))
        operation.what = eWriteString;
    return operation;
}

std::string Do(CIniFile& ini, const COperation& operation, CDisk& disk)
{
    Texts texts = {L"old"};
    switch (operation.what)
    {
    case eEnumSections:
        ini.EnumSections(texts);
        return Visible(texts);
    case eEnumEntries:
        ini.EnumEntries(operation.section, texts);
        return Visible(texts);
    case eGetString:
        return Visible(ini.GetString(operation.section, operation.key, operation.value));
    case eGetInt:
        return std::to_string(ini.GetInt(operation.section, operation.key, operation.number));
    case eWriteString:
        return std::to_string(ini.WriteString(operation.section, operation.key, operation.value));
    case eWriteInt:
        return std::to_string(ini.WriteInt(operation.section, operation.key, operation.number));
    case eDeleteSection:
        return std::to_string(ini.DeleteSection(operation.section));
    case eDeleteEntry:
        return std::to_string(ini.DeleteEntry(operation.section, operation.key));
    case eLoad:
        ini.Load();
        return "";
    case eSave:
        ini.Save();
        return "";
    default:
        disk.SetBytes(operation.bytes);
        return "";
    }
}

std::string Do(CIniModel& ini, const COperation& operation, std::string& disk)
{
    const std::wstring section = OrEmpty(operation.section), key = OrEmpty(operation.key),
                       value = OrEmpty(operation.value);
    switch (operation.what)
    {
    case eEnumSections:
        return Visible(ini.EnumSections());
    case eEnumEntries:
        return Visible(ini.EnumEntries(section));
    case eGetString:
        return Visible(ini.GetString(section, key, value));
    case eGetInt:
        return std::to_string(ini.GetInt(section, key, operation.number));
    case eWriteString:
        ini.WriteString(section, key, value);
        return "1";
    case eWriteInt:
        ini.WriteInt(section, key, operation.number);
        return "1";
    case eDeleteSection:
        return std::to_string(ini.DeleteSection(section));
    case eDeleteEntry:
        return std::to_string(ini.DeleteEntry(section, key));
    case eLoad:
        ini.Load();
        return "";
    case eSave:
        ini.Save();
        return "";
    default:
        disk = operation.bytes;
        return "";
    }
}

class IniFileRandom : public IniTest
{
protected:
    void Run(bool unicode)
    {
        CRandom random(unicode ? 20260301u : 20260302u);
        CIniFile* const objects[] = {&OpenAsItIs(), &OpenAsItIs()};
        CDisk disk(m_path);
        std::string modelDisk;
        CIniModel models[] = {CIniModel(modelDisk), CIniModel(modelDisk)};
        std::vector<COperation> done;
        const auto doBoth = [&](const COperation& operation)
        {
            done.push_back(operation);
            const std::string wanted = Do(models[operation.object], operation, modelDisk);
            const std::string answer = Do(*objects[operation.object], operation, disk);
            const std::string bytes = disk.Bytes();
            if (answer == wanted && bytes == modelDisk)
                return true;
            std::string history;
            for (const COperation& before : done)
                history += Visible(before);
            ADD_FAILURE() << history << "\nanswers " << answer << "\nwanted  " << wanted << "\nleaves  "
                          << Visible(bytes) << "\nwanted  " << Visible(modelDisk);
            return false;
        };
        for (int file = 0; file < Files; ++file)
        {
            done.clear();
            // Behind it, nothing of the files before is left.
            ASSERT_TRUE(doBoth({0, eForeignChange, L"", L"", L"", 0, RandomFile(random, unicode)}));
            ASSERT_TRUE(doBoth({0, eLoad, L"", L"", L"", 0, ""}));
            ASSERT_TRUE(doBoth({1, eLoad, L"", L"", L"", 0, ""}));
            for (int step = 0; step < Steps; ++step)
            {
                ASSERT_TRUE(doBoth(RandomOperation(random, unicode)));
                const std::size_t object = random.Below(2);
                const wchar_t* const section = random.Of(SectionNames);
                ASSERT_TRUE(doBoth({object, eEnumSections, L"", L"", L"", 0, ""}));
                ASSERT_TRUE(doBoth({object, eEnumEntries, section, L"", L"", 0, ""}));
                ASSERT_TRUE(doBoth({object, eGetString, section, random.Of(Keys), L"default", 0, ""}));
            }
        }
    }
};
}   // namespace

TEST_F(IniFileRandom, Utf8Files_AgreeWithTheReferenceAfterEveryStep)
{
    Run(false);
}

TEST_F(IniFileRandom, Utf16Files_AgreeWithTheReferenceAfterEveryStep)
{
    Run(true);
}
