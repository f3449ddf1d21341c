// Binary data as text.

#include <vantor/LogFile.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using vantor::CLogFile;

namespace
{
std::string AllBytes()
{
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    return bytes;
}
}   // namespace

TEST(LogFileBin2Str, ZeroAndBlank_BecomeDollars)
{
    EXPECT_EQ("A$$z", CLogFile::Bin2Str("A\0 z", 4));
}

TEST(LogFileBin2Str, AllBytes_TheFirst33BecomeDollarsTheOthersStay)
{
    const std::string bytes = AllBytes();
    EXPECT_EQ(std::string(33, '$') + bytes.substr(33), CLogFile::Bin2Str(bytes.data(), 256));
}

TEST(LogFileBin2Str, DollarItself_Stays)
{
    EXPECT_EQ("$", CLogFile::Bin2Str("$", 1));
}

TEST(LogFileBin2Str, SizeCounts_NotATerminator)
{
    EXPECT_EQ("ab", CLogFile::Bin2Str("abcd", 2));
}

TEST(LogFileBin2Str, SizeZero_Empty)
{
    EXPECT_EQ("", CLogFile::Bin2Str("abc", 0));
}

TEST(LogFileBin2Str, SizeZeroOfNoData_Empty)
{
    EXPECT_EQ("", CLogFile::Bin2Str(nullptr, 0));
}

TEST(LogFileBin2Str, TheData_IsNotChanged)
{
    const char data[] = {'\1', '\2'};
    CLogFile::Bin2Str(data, 2);
    EXPECT_EQ('\1', data[0]);
}

TEST(LogFileBin2Hex, ThreeBytes_TwoDigitsEachAndABlankBetween)
{
    EXPECT_EQ("0A 1B FF", CLogFile::Bin2Hex("\x0A\x1B\xFF", 3));
}

TEST(LogFileBin2Hex, OneByte_NoBlank)
{
    EXPECT_EQ("00", CLogFile::Bin2Hex("", 1));
}

TEST(LogFileBin2Hex, AllBytes_AsPrintf)
{
    std::string expected;
    for (unsigned int value = 0; value < 256; ++value)
    {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X ", value);
        expected += digits;
    }
    expected.pop_back();
    EXPECT_EQ(expected, CLogFile::Bin2Hex(AllBytes().data(), 256));
}

TEST(LogFileBin2Hex, SizeZero_Empty)
{
    EXPECT_EQ("", CLogFile::Bin2Hex("abc", 0));
}

TEST(LogFileBin2Hex, SizeZeroOfNoData_Empty)
{
    EXPECT_EQ("", CLogFile::Bin2Hex(nullptr, 0));
}
