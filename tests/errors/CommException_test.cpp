#include "support/Print.h"

#include <vantor/Exceptions.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <type_traits>

using namespace vantor;

namespace
{
struct CRow
{
    const wchar_t* replyText;
    const wchar_t* uiText;
};

constexpr CRow Published[] = {
    /*  0 */ {L"{2,,wrong command}", L"Wrong command"},
    /*  1 */ {L"{2,,1st parameter missed}", L"1st parameter missed"},
    /*  2 */ {L"{2,,wrong 1st parameter}", L"Wrong 1st parameter"},
    /*  3 */ {L"{2,,2nd parameter missed}", L"2nd parameter missed"},
    /*  4 */ {L"{2,,wrong 2nd parameter}", L"Wrong 2nd parameter"},
    /*  5 */ {L"{2,,value missed}", L"Value missed"},
    /*  6 */ {L"{2,,value out of range}", L"Value out of range"},
    /*  7 */ {L"{2,,wrong file name}", L"Wrong file name"},
    /*  8 */ {L"{2,,file open error}", L"File open error"},
    /*  9 */ {L"{2,,file system not mounted}", L"File system not mounted"},
    /* 10 */ {L"{2,,file read error}", L"File read error"},
    /* 11 */ {L"{2,,file already exists}", L"File already exists"},
    /* 12 */ {L"{2,,can't create file}", L"Can't create file"},
    /* 13 */ {L"{2,,can't remove file}", L"Can't remove file"},
    /* 14 */ {L"{2,,broken file}", L"Broken file"},
    /* 15 */ {L"{2,,incompatible file version}", L"Incompatible file version"},
    /* 16 */ {L"{2,,file write error}", L"File write error"},
    /* 17 */ {L"{2,,data transfer open}", L"Data transfer open"},
    /* 18 */ {L"{2,,data transfer error}", L"Data transfer error"},
    /* 19 */ {L"{2,,wrong option name}", L"Wrong option name"},
    /* 20 */ {L"{2,,bad option date}", L"Bad option date"},
    /* 21 */ {L"{2,,bad option value}", L"Bad option value"},
    /* 22 */ {L"{2,,option disabled}", L"Option disabled"},
    /* 23 */ {L"{2,,terminated by user}", L"Terminated by user"},
    /* 24 */ {L"{2,,wrong receiver id}", L"Wrong receiver id"},
    /* 25 */ {L"{2,,access denied}", L"Access denied"},
    /* 26 */ {L"{2,,operation in progress}", L"Operation in progress"},
    /* 27 */ {L"{2,,no file system device}", L"No file system device"},
    /* 28 */ {L"{2,,dup loop}", L"Dup loop"},
    /* 29 */ {L"{2,,not supported}", L"Not supported"},
    /* 30 */ {L"{2,,device is not accessible}", L"Device is not accessible"},
    /* 31 */ {L"{2,,wrong hardware version}", L"Wrong hardware version"},
    /* 32 */ {L"{2,,incompatible file version}", L"Incompatible file version"},
    /* 33 */ {L"{2,,can't lock}", L"Can't lock"},
    /* 34 */ {L"{2,,memory card is busy}", L"Memory card is busy"},
};
static_assert(std::size(Published) == 35);

CCommException Reply(const wchar_t* text)
{
    return CCommException(1, L".\\Receiver", L"app::Send", text, L"COM1");
}

ustring UserMessage(const CStdException& e)
{
    ustring text(L"old");
    EXPECT_TRUE(e.GetErrorMessageUI(text));
    return text;
}

// Decodes its reply only when it is asked for the message.
class CDecoded : public CCommException
{
public:
    using CCommException::CCommException;

    bool GetErrorMessage(ustring& out) const override
    {
        out = message;
        return result;
    }

    const wchar_t* message = L"{2,,dup loop}";
    bool result = true;
};
}   // namespace

TEST(CommException, Table_Has35Rows)
{
    EXPECT_EQ(35u, std::size(CCommException::m_aINT2UI));
}

TEST(CommException, Table_IsAsPublishedInTextAndOrder)
{
    for (std::size_t i = 0; i < std::size(Published); ++i)
    {
        EXPECT_EQ(ustring(Published[i].replyText), ustring(CCommException::m_aINT2UI[i].replyText)) << "row " << i;
        EXPECT_EQ(ustring(Published[i].uiText), ustring(CCommException::m_aINT2UI[i].uiText)) << "row " << i;
    }
}

TEST(CommException, Table_KeepsTheDuplicateInRow32)
{
    const CCommException::INT2UI& first = CCommException::m_aINT2UI[15];
    const CCommException::INT2UI& second = CCommException::m_aINT2UI[32];
    EXPECT_EQ(ustring(first.replyText), ustring(second.replyText));
    EXPECT_EQ(ustring(first.uiText), ustring(second.uiText));
}

TEST(CommException, Table_IsConstant)
{
    EXPECT_TRUE(std::is_const_v<std::remove_reference_t<decltype(CCommException::m_aINT2UI[0])>>);
}

TEST(CommException, Construct_KeepsReplyAndSourceAndTheRootsFields)
{
    const CCommException e(7, L".\\Receiver", L"app::Send", L"reply", L"COM1");
    ustring message, source;
    EXPECT_TRUE(e.GetErrorMessage(message));
    EXPECT_TRUE(e.GetSource(source));
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\Receiver"), e.GetFileName());
    EXPECT_EQ(ustring(L"app::Send"), e.GetFunction());
    EXPECT_EQ(ustring(L"reply"), message);
    EXPECT_EQ(ustring(L"COM1"), source);
}

TEST(CommException, Construct_WithANullReply_LeavesItEmpty)
{
    ustring message(L"old"), source;
    const CCommException e(7, L".\\Receiver", L"app::Send", nullptr, L"COM1");
    EXPECT_TRUE(e.GetErrorMessage(message));
    e.GetSource(source);
    EXPECT_EQ(ustring(), message);
    EXPECT_EQ(ustring(L"COM1"), source);
}

TEST(CommException, Construct_WithANullSource_LeavesItEmpty)
{
    ustring message, source(L"old");
    const CCommException e(7, L".\\Receiver", L"app::Send", L"reply", nullptr);
    EXPECT_TRUE(e.GetSource(source));
    e.GetErrorMessage(message);
    EXPECT_EQ(ustring(), source);
    EXPECT_EQ(ustring(L"reply"), message);
}

TEST(CommException, Construct_WithoutArguments_IsZeroAndEmpty)
{
    const CCommException e;
    ustring message(L"old"), source(L"old");
    EXPECT_TRUE(e.GetErrorMessage(message));
    EXPECT_TRUE(e.GetSource(source));
    EXPECT_EQ(0u, e.GetLine());
    EXPECT_EQ(ustring(), e.GetFileName());
    EXPECT_EQ(ustring(), e.GetFunction());
    EXPECT_EQ(ustring(), message);
    EXPECT_EQ(ustring(), source);
}

TEST(CommException, Copy_KeepsAllFields)
{
    const CCommException copy(CCommException(7, L".\\Receiver", L"app::Send", L"reply", L"COM1"));
    ustring message, source;
    copy.GetErrorMessage(message);
    copy.GetSource(source);
    EXPECT_EQ(7u, copy.GetLine());
    EXPECT_EQ(ustring(L".\\Receiver"), copy.GetFileName());
    EXPECT_EQ(ustring(L"app::Send"), copy.GetFunction());
    EXPECT_EQ(ustring(L"reply"), message);
    EXPECT_EQ(ustring(L"COM1"), source);
}

TEST(CommException, Assign_ReplacesAllFields)
{
    CCommException e(1, L"a", L"b", L"c", L"d");
    e = CCommException(7, L".\\Receiver", L"app::Send", L"reply", L"COM1");
    ustring message, source;
    e.GetErrorMessage(message);
    e.GetSource(source);
    EXPECT_EQ(7u, e.GetLine());
    EXPECT_EQ(ustring(L".\\Receiver"), e.GetFileName());
    EXPECT_EQ(ustring(L"app::Send"), e.GetFunction());
    EXPECT_EQ(ustring(L"reply"), message);
    EXPECT_EQ(ustring(L"COM1"), source);
}

TEST(CommException, GetErrorMessage_IsTheReplyAsReceived)
{
    ustring message;
    EXPECT_TRUE(Reply(L"{2,,dup loop}").GetErrorMessage(message));
    EXPECT_EQ(ustring(L"{2,,dup loop}"), message);
}

TEST(CommException, GetErrorMessageUI_OfEachKnownReply_IsItsText)
{
    for (const CRow& row : Published)
        EXPECT_EQ(ustring(row.uiText), UserMessage(Reply(row.replyText)));
}

TEST(CommException, GetErrorMessageUI_OfDupLoop_IsItsText)
{
    EXPECT_EQ(ustring(L"Dup loop"), UserMessage(Reply(L"{2,,dup loop}")));
}

TEST(CommException, GetErrorMessageUI_OfAReplyInAnotherCase_IsTheRawReply)
{
    EXPECT_EQ(ustring(L"{2,,Dup loop}"), UserMessage(Reply(L"{2,,Dup loop}")));
}

TEST(CommException, GetErrorMessageUI_OfAReplyWithATrailingBlank_IsTheRawReply)
{
    EXPECT_EQ(ustring(L"{2,,dup loop} "), UserMessage(Reply(L"{2,,dup loop} ")));
}

TEST(CommException, GetErrorMessageUI_OfThePlainText_IsTheRawReply)
{
    EXPECT_EQ(ustring(L"dup loop"), UserMessage(Reply(L"dup loop")));
}

TEST(CommException, GetErrorMessageUI_OfAnUnknownReply_IsTheRawReply)
{
    EXPECT_EQ(ustring(L"{2,,no such reply}"), UserMessage(Reply(L"{2,,no such reply}")));
}

TEST(CommException, GetErrorMessageUI_WithoutAReply_IsEmpty)
{
    EXPECT_EQ(ustring(), UserMessage(Reply(nullptr)));
}

TEST(CommException, GetErrorMessageUI_IsNotYetTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"Dup loop"] = L"Schleife";
    EXPECT_EQ(ustring(L"Dup loop"), UserMessage(Reply(L"{2,,dup loop}")));
}

TEST(CommException, GetErrorMessageUI_LooksUpWhatTheVirtualMessageSays)
{
    const CDecoded e(1, nullptr, nullptr, L"{2,,can't lock}", nullptr);
    EXPECT_EQ(ustring(L"Dup loop"), UserMessage(e));
}

TEST(CommException, GetErrorMessageUI_WhenTheVirtualMessageFails_IsFalseAndKeepsWhatItWrote)
{
    CDecoded e;
    e.result = false;
    ustring text(L"old");
    EXPECT_FALSE(e.GetErrorMessageUI(text));
    EXPECT_EQ(ustring(L"{2,,dup loop}"), text);
}

TEST(CommException, Snapshot_HoldsReplyAndUserText)
{
    const CStdException::CExInfo info(Reply(L"{2,,dup loop}"));
    EXPECT_EQ(ustring(L"COM1"), info.GetSource());
    EXPECT_EQ(ustring(L"{2,,dup loop}"), info.GetErrorMessage());
    EXPECT_EQ(ustring(L"Dup loop"), info.GetErrorMessageUI());
}
