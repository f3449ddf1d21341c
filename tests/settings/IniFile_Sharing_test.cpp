// Two programs that edit one file in turn.

#include "IniTest.h"
#include "support/ChildProcess.h"

#include <thread>

using namespace vantor;
using namespace settings_test;

namespace
{
constexpr int Turns = 100;
constexpr DWORD Patience = 20000;   // milliseconds

class IniFileSharing : public IniTest
{
protected:
    // Runs the editor, which has its turn after each call of `turn`.
    template <class Turn>
    void EditInTurn(const Turn& turn)
    {
        const ustring stem = L"vantor.settings." + ustring(std::to_wstring(::GetCurrentProcessId()));
        CEvent mine(nullptr, FALSE, FALSE, (stem + L".test").c_str());
        CEvent its(nullptr, FALSE, FALSE, (stem + L".editor").c_str());
        const std::wstring command = L"\"" + support::ModuleFolder() + L"\\settings_editor.exe\" \"" + m_path + L"\" " +
                                     stem + L" " + std::to_wstring(Turns);
        std::string output;
        DWORD exitCode = ~0u;
        std::thread editor(
            [&]
            {
                const CChildProcess process(command);
                output = process.output;
                exitCode = process.exitCode;
            });
        for (int i = 1; i <= Turns; ++i)
        {
            turn(i);
            its.Set();
            if (::WaitForSingleObject(mine, Patience) != WAIT_OBJECT_0)
            {
                ADD_FAILURE() << "no answer in turn " << i;
                break;
            }
        }
        editor.join();
        EXPECT_EQ("", output);
        EXPECT_EQ(0u, exitCode);
    }
};
}   // namespace

TEST_F(IniFileSharing, TwoProcesses_EachSeesTheOthersChangeInTheNextTurn)
{
    CIniFile& ini = Open("; shared by two programs\r\n[Shared]\r\n");
    EditInTurn(
        [&](int turn)
        {
            EXPECT_EQ(turn - 1, ini.GetInt(L"Shared", L"Editor", 0));
            ini.WriteInt(L"Shared", L"Test", turn);
        });

    EXPECT_EQ("; shared by two programs\r\n[Shared]\r\nTest=100\r\nEditor=100\r\n", Bytes());
}

TEST_F(IniFileSharing, TwoProcesses_TheEncodingIsThatOfTheFile)
{
    CIniFile& ini = Open(MarkedUtf16(L"[Shared]\r\n"));
    EditInTurn([&](int turn) { ini.WriteInt(L"Shared", L"Test", turn); });

    EXPECT_EQ(MarkedUtf16(L"[Shared]\r\nTest=100\r\nEditor=100\r\n"), Bytes());
}
