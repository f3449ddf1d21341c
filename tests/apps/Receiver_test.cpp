#include <Receiver.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace
{
using rxsim::CReceiver;

std::vector<std::string> Lines(const std::string& answer)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at <= answer.size();)
    {
        const std::size_t end = std::min(answer.find("\r\n", at), answer.size());
        lines.push_back(answer.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

struct CReading
{
    std::string mark;
    long index = -1;
    long frequency = -1;
    double level = 0;
};

CReading Next(CReceiver& receiver)
{
    std::istringstream words(receiver.NextReading());
    CReading reading;
    words >> reading.mark >> reading.index >> reading.frequency >> reading.level;
    EXPECT_TRUE(words && words.eof()) << words.str();
    return reading;
}

std::vector<std::string> Sweep(CReceiver& receiver, int count)
{
    receiver.Execute("sweep start");
    std::vector<std::string> readings;
    while (count-- > 0)
        readings.push_back(receiver.NextReading());
    receiver.Execute("sweep stop");
    return readings;
}

// ------------------------------------------------------------------------------------------------------- commands

TEST(Receiver, Ident_NamesMakerVersionAndNumber)
{
    EXPECT_EQ(CReceiver(1).Execute("ident"), "OK RXSIM,1.0,0042");
}

TEST(Receiver, Commands_ManyBlanks_AreOneSeparator)
{
    EXPECT_EQ(CReceiver(1).Execute("  get   points  "), "OK 11");
}

TEST(Receiver, Commands_Unknown_IsWrongCommand)
{
    EXPECT_EQ(CReceiver(1).Execute("frobnicate"), "{2,,wrong command}");
}

TEST(Receiver, Commands_Empty_IsWrongCommand)
{
    EXPECT_EQ(CReceiver(1).Execute(""), "{2,,wrong command}");
}

TEST(Receiver, Commands_InUpperCase_AreWrongCommands)
{
    EXPECT_EQ(CReceiver(1).Execute("IDENT"), "{2,,wrong command}");
}

TEST(Receiver, Echo_AnswersTheWord)
{
    EXPECT_EQ(CReceiver(1).Execute("echo sync17"), "OK sync17");
}

TEST(Receiver, Echo_WithoutAWord_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("echo"), "{2,,1st parameter missed}");
}

// ----------------------------------------------------------------------------------------------------- parameters

TEST(Receiver, Get_Unset_IsTheDefault)
{
    CReceiver receiver(1);
    EXPECT_EQ(receiver.Execute("get start"), "OK 88000");
    EXPECT_EQ(receiver.Execute("get stop"), "OK 108000");
    EXPECT_EQ(receiver.Execute("get points"), "OK 11");
    EXPECT_EQ(receiver.Execute("get interval"), "OK 100");
}

TEST(Receiver, Get_WithoutAName_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("get"), "{2,,1st parameter missed}");
}

TEST(Receiver, Get_UnknownName_IsWrong)
{
    EXPECT_EQ(CReceiver(1).Execute("get colour"), "{2,,wrong 1st parameter}");
}

TEST(Receiver, Set_ChangesWhatGetAnswers)
{
    CReceiver receiver(1);
    EXPECT_EQ(receiver.Execute("set points 401"), "OK");
    EXPECT_EQ(receiver.Execute("get points"), "OK 401");
}

TEST(Receiver, Set_WithoutAName_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("set"), "{2,,1st parameter missed}");
}

TEST(Receiver, Set_UnknownName_IsWrong)
{
    EXPECT_EQ(CReceiver(1).Execute("set colour 3"), "{2,,wrong 1st parameter}");
}

TEST(Receiver, Set_WithoutAValue_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("set points"), "{2,,value missed}");
}

TEST(Receiver, Set_ValueThatIsNoWholeNumber_IsWrong)
{
    CReceiver receiver(1);
    for (const char* value : {"many", "12x", "-5", "1.5", "1234567890"})
        EXPECT_EQ(receiver.Execute("set points " + std::string(value)), "{2,,wrong 2nd parameter}") << value;
}

TEST(Receiver, Set_LimitsThemselves_AreInRange)
{
    CReceiver receiver(1);
    for (const char* words : {"points 2", "points 1001", "interval 1", "interval 10000", "start 9", "start 6000000",
                              "stop 9", "stop 6000000"})
        EXPECT_EQ(receiver.Execute("set " + std::string(words)), "OK") << words;
}

TEST(Receiver, Set_BeyondTheLimits_IsOutOfRange)
{
    CReceiver receiver(1);
    for (const char* words : {"points 1", "points 1002", "interval 0", "interval 10001", "start 8", "start 6000001",
                              "stop 8", "stop 6000001"})
        EXPECT_EQ(receiver.Execute("set " + std::string(words)), "{2,,value out of range}") << words;
}

TEST(Receiver, Set_Refused_KeepsTheValue)
{
    CReceiver receiver(1);
    receiver.Execute("set points 5000");
    EXPECT_EQ(receiver.Execute("get points"), "OK 11");
}

TEST(Receiver, Set_DuringASweep_IsRefused)
{
    CReceiver receiver(1);
    receiver.Execute("sweep start");
    EXPECT_EQ(receiver.Execute("set points 5"), "{2,,operation in progress}");
}

TEST(Receiver, Set_Interval_IsThatOfTheReadings)
{
    CReceiver receiver(1);
    receiver.Execute("set interval 250");
    EXPECT_EQ(receiver.Interval(), 250U);
}

// ----------------------------------------------------------------------------------------------------------- sweep

TEST(Receiver, Sweep_StartAndStop_CountsTheReadings)
{
    CReceiver receiver(1);
    EXPECT_EQ(receiver.Execute("sweep start"), "OK");
    EXPECT_TRUE(receiver.IsSweeping());
    receiver.NextReading();
    receiver.NextReading();
    EXPECT_EQ(receiver.Execute("sweep stop"), "OK 2");
    EXPECT_FALSE(receiver.IsSweeping());
}

TEST(Receiver, Sweep_StartedAnew_CountsFromZero)
{
    CReceiver receiver(1);
    Sweep(receiver, 5);
    receiver.Execute("sweep start");
    EXPECT_EQ(receiver.Execute("sweep stop"), "OK 0");
}

TEST(Receiver, Sweep_WithoutAWord_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("sweep"), "{2,,1st parameter missed}");
}

TEST(Receiver, Sweep_UnknownWord_IsWrong)
{
    EXPECT_EQ(CReceiver(1).Execute("sweep pause"), "{2,,wrong 1st parameter}");
}

TEST(Receiver, Sweep_StartedTwice_IsInProgress)
{
    CReceiver receiver(1);
    receiver.Execute("sweep start");
    EXPECT_EQ(receiver.Execute("sweep start"), "{2,,operation in progress}");
}

TEST(Receiver, Sweep_StopWithoutOne_IsNotSupported)
{
    EXPECT_EQ(CReceiver(1).Execute("sweep stop"), "{2,,not supported}");
}

TEST(Receiver, Readings_RunFromStartToStopAndBeginAgain)
{
    CReceiver receiver(1);
    receiver.Execute("set points 3");
    receiver.Execute("sweep start");
    for (const auto& [index, frequency] : {std::pair(0L, 88000L), {1, 98000}, {2, 108000}, {0, 88000}})
    {
        const CReading reading = Next(receiver);
        EXPECT_EQ(reading.mark, "L");
        EXPECT_EQ(reading.index, index);
        EXPECT_EQ(reading.frequency, frequency);
    }
}

TEST(Receiver, Readings_LastPointOfTheWidestSweep_IsTheStopFrequency)
{
    CReceiver receiver(1);
    receiver.Execute("set start 9");
    receiver.Execute("set stop 6000000");
    receiver.Execute("set points 1001");
    receiver.Execute("sweep start");
    for (int i = 0; i < 1000; ++i)
        receiver.NextReading();
    EXPECT_EQ(Next(receiver).frequency, 6000000);
}

TEST(Receiver, Readings_SameSeed_AreTheSame)
{
    CReceiver one(7);
    CReceiver other(7);
    EXPECT_EQ(Sweep(one, 50), Sweep(other, 50));
}

TEST(Receiver, Readings_OtherSeed_AreOthers)
{
    CReceiver one(7);
    CReceiver other(8);
    EXPECT_NE(Sweep(one, 50), Sweep(other, 50));
}

TEST(Receiver, Readings_TransmittersStandOutOfTheNoise)
{
    CReceiver receiver(1);
    receiver.Execute("set start 94300");
    receiver.Execute("set stop 101100");
    receiver.Execute("set points 3");
    receiver.Execute("sweep start");
    EXPECT_GT(Next(receiver).level, -60);   // 94.3 MHz
    EXPECT_LT(Next(receiver).level, -85);   // between them
    EXPECT_GT(Next(receiver).level, -60);   // 101.1 MHz
}

TEST(Receiver, Readings_OfATrace_AreItsLevelsAgainAndAgain)
{
    CReceiver receiver({-50.0, -60.5, -70.3});
    EXPECT_EQ(Sweep(receiver, 4),
              (std::vector<std::string>{"L 0 88000 -50.0", "L 1 90000 -60.5", "L 2 92000 -70.3", "L 3 94000 -50.0"}));
}

// ------------------------------------------------------------------------------------------------------------ card

TEST(Receiver, List_EmptyCard_AnnouncesNoLines)
{
    EXPECT_EQ(CReceiver(1).Execute("list"), "OK *0");
}

TEST(Receiver, Read_GivesWhatSaveWrote)
{
    CReceiver receiver({-50.0, -60.0});
    receiver.Execute("set points 2");
    EXPECT_EQ(receiver.Execute("save NOON.CSV"), "OK");
    EXPECT_EQ(receiver.Execute("read NOON.CSV"), "OK *2\r\n88000;-50.0\r\n108000;-60.0");
}

TEST(Receiver, List_NamesFilesAndTheirBytes)
{
    CReceiver receiver(std::vector<double>{-50.0});
    receiver.Execute("set points 2");
    receiver.Execute("save B.CSV");
    receiver.Execute("save A.CSV");
    // "88000;-50.0\r\n" and "108000;-50.0\r\n" are 13 and 14 bytes.
    EXPECT_EQ(Lines(receiver.Execute("list")), (std::vector<std::string>{"OK *2", "A.CSV;27", "B.CSV;27"}));
}

TEST(Receiver, Read_AnnouncesAsManyLinesAsPoints)
{
    CReceiver receiver(1);
    receiver.Execute("set points 1001");
    receiver.Execute("save LONG.CSV");
    const std::vector<std::string> lines = Lines(receiver.Execute("read LONG.CSV"));
    EXPECT_EQ(lines.front(), "OK *1001");
    EXPECT_EQ(lines.size(), 1002U);
}

TEST(Receiver, Read_WithoutAName_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("read"), "{2,,1st parameter missed}");
}

TEST(Receiver, Read_FileThatIsNotThere_CannotBeOpened)
{
    EXPECT_EQ(CReceiver(1).Execute("read NOON.CSV"), "{2,,file open error}");
}

TEST(Receiver, Save_WithoutAName_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("save"), "{2,,1st parameter missed}");
}

TEST(Receiver, Save_NamesOfEightAndThree_AreTaken)
{
    CReceiver receiver(1);
    for (const char* name : {"A", "EIGHT-88.CSV", "A_1.C"})
        EXPECT_EQ(receiver.Execute("save " + std::string(name)), "OK") << name;
}

TEST(Receiver, Save_OtherNames_AreWrong)
{
    CReceiver receiver(1);
    for (const char* name : {"NINEBYTES.CSV", "A.FOUR", ".CSV", "A.B.C", "A\\B.CSV", "K\xC3\xB6.CSV"})
        EXPECT_EQ(receiver.Execute("save " + std::string(name)), "{2,,wrong file name}") << name;
}

TEST(Receiver, Save_NameThatIsTaken_IsRefused)
{
    CReceiver receiver(1);
    receiver.Execute("save NOON.CSV");
    EXPECT_EQ(receiver.Execute("save NOON.CSV"), "{2,,file already exists}");
}

TEST(Receiver, Remove_FileIsGone)
{
    CReceiver receiver(1);
    receiver.Execute("save NOON.CSV");
    EXPECT_EQ(receiver.Execute("remove NOON.CSV"), "OK");
    EXPECT_EQ(receiver.Execute("list"), "OK *0");
}

TEST(Receiver, Remove_WithoutAName_MissesIt)
{
    EXPECT_EQ(CReceiver(1).Execute("remove"), "{2,,1st parameter missed}");
}

TEST(Receiver, Remove_FileThatIsNotThere_CannotBeRemoved)
{
    EXPECT_EQ(CReceiver(1).Execute("remove NOON.CSV"), "{2,,can't remove file}");
}
}   // namespace
