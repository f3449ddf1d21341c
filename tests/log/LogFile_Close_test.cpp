// Closing a log, and the place of its operations among those of a file.

#include "log/Log.h"
#include "support/Failure.h"
#include "support/Slots.h"

#include <memory>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;
using support::ExpectSlots;

namespace
{
int g_closed;

BOOL WINAPI CountingCloseHandle(HANDLE handle)
{
    ++g_closed;
    return ::CloseHandle(handle);
}

class LogFileClose : public testing::Test
{
protected:
    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    const std::unique_ptr<CLogFile> m_log = std::make_unique<CLogFile>();
    HANDLE m_protected = nullptr;

    ~LogFileClose() override { UnprotectAndClose(); }

    void SetUp() override { ASSERT_TRUE(m_log->Open(m_path.c_str())); }

    // Closing the handle fails with ERROR_INVALID_HANDLE from here on.
    void Protect()
    {
        m_protected = *m_log;
        ::SetHandleInformation(m_protected, HANDLE_FLAG_PROTECT_FROM_CLOSE, HANDLE_FLAG_PROTECT_FROM_CLOSE);
    }

    void UnprotectAndClose()
    {
        if (!m_protected)
            return;
        ::SetHandleInformation(m_protected, HANDLE_FLAG_PROTECT_FROM_CLOSE, 0);
        ::CloseHandle(m_protected);
        m_protected = nullptr;
    }
};
}   // namespace

TEST_F(LogFileClose, ReleasesTheFile)
{
    m_log->Close();
    EXPECT_TRUE(log_test::IsOpenNowhere(m_path));
}

TEST_F(LogFileClose, LeavesTheLogEmpty)
{
    m_log->Close();
    EXPECT_FALSE(m_log->IsCreated());
    EXPECT_EQ(INVALID_HANDLE_VALUE, static_cast<void*>(*m_log));
}

TEST_F(LogFileClose, Twice_TheSecondDoesNothing)
{
    const CImportPatch patch(&::CloseHandle, &CountingCloseHandle);
    g_closed = 0;
    m_log->Close();
    m_log->Close();
    EXPECT_EQ(1, g_closed);
}

TEST_F(LogFileClose, NeverOpened_DoesNothing)
{
    const CImportPatch patch(&::CloseHandle, &CountingCloseHandle);
    g_closed = 0;
    CLogFile log;
    log.Close();
    EXPECT_EQ(0, g_closed);
}

TEST_F(LogFileClose, ThroughTheBase_ClosesTheLog)
{
    CHandle& base = *m_log;
    base.Close();
    EXPECT_FALSE(m_log->Write(L"text"));
    EXPECT_TRUE(log_test::IsOpenNowhere(m_path));
}

TEST_F(LogFileClose, OnFailure_Throws)
{
    Protect();
    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, m_log->Close());
}

TEST_F(LogFileClose, OnFailure_LeavesTheLogEmpty)
{
    Protect();
    EXPECT_THROW(m_log->Close(), CWinException);
    EXPECT_FALSE(m_log->IsCreated());
    EXPECT_FALSE(m_log->Write(L"text"));
}

TEST_F(LogFileClose, AfterAFailure_DoesNothing)
{
    Protect();
    EXPECT_THROW(m_log->Close(), CWinException);
    EXPECT_NO_THROW(m_log->Close());
}

TEST_F(LogFileClose, AfterAFailure_TheLogCanBeOpenedAgain)
{
    Protect();
    EXPECT_THROW(m_log->Close(), CWinException);
    ASSERT_TRUE(m_log->Open(m_path.c_str()));
    EXPECT_TRUE(m_log->Write(L"text"));
}

TEST_F(LogFileClose, Destructor_ReleasesTheFile)
{
    {
        CLogFile log;
        ASSERT_TRUE(log.Open(m_folder.File(L"y.log").c_str()));
    }
    EXPECT_TRUE(log_test::IsOpenNowhere(m_folder.File(L"y.log")));
}

TEST_F(LogFileClose, DestructorThroughTheBase_ReleasesTheFile)
{
    const ustring path = m_folder.File(L"y.log");
    auto log = std::make_unique<CLogFile>();
    ASSERT_TRUE(log->Open(path.c_str()));
    std::unique_ptr<CHandle> base = std::move(log);
    base.reset();
    EXPECT_TRUE(log_test::IsOpenNowhere(path));
}

TEST_F(LogFileClose, DestructorOnFailure_Throws)
{
    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, {
        CLogFile log;
        log.Attach(m_log->Detach());
        m_protected = log;
        ::SetHandleInformation(m_protected, HANDLE_FLAG_PROTECT_FROM_CLOSE, HANDLE_FLAG_PROTECT_FROM_CLOSE);
    });
}

TEST(LogFileSlots, AreThoseOfFile_WithACloseOfItsOwn)
{
    ExpectSlots("_ZTVN6vantor8CLogFileE",
                {"_ZN6vantor8CLogFileD1Ev", "_ZN6vantor8CLogFileD0Ev", "_ZNK6vantor7CHandle9IsCreatedEv",
                 "_ZN6vantor8CLogFile5CloseEv", "_ZN6vantor5CFile4OpenEPKwmmP20_SECURITY_ATTRIBUTESmmPv",
                 "_ZN6vantor5CFile4ReadEPvjRjP11_OVERLAPPED", "_ZN6vantor5CFile5WriteEPKvjRjP11_OVERLAPPED",
                 "_ZN6vantor5CFile5FlushEv", "_ZNK6vantor5CFile11GetPositionEv", "_ZN6vantor5CFile4SeekExm",
                 "_ZNK6vantor5CFile9GetLengthEv", "_ZN6vantor5CFile9SetLengthEy"});
}
