#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/PropagationLib.h"
#include "support/MsgRecorder.h"
#include "system/ClockLib.h"
#include "system/ProcessLib.h"
#include "system/RunErrorText.h"

namespace {

constexpr const char* kNotFound =
    " not found.\r\n\r\nPlease check that ITS HF propagation prediction software has been "
    "installed.";

std::string FrequencyCard(const std::string& sDeck)
{
    const std::size_t nAt = sDeck.find("FREQ");
    return sDeck.substr(nAt, sDeck.find('\r', nAt) - nAt);
}

/// A request for nCount frequencies: 1000, 2000 ... kHz.
Request InputOf(int iModel, int nCount)
{
    Request input = InputMake(CircuitCaseGet("rec533/p2p_01"));
    input.iModel = iModel;
    input.nData = nCount;
    input.afFrequency.assign(1, 0.0F);
    for (int i = 1; i <= nCount; ++i) input.afFrequency.push_back(static_cast<float>(i) * 1000.0F);
    return input;
}

struct EngineCase {
    int iModel;
    const char* sProgram;
    const char* sName;
    const char* sExecute;
    const char* sCaptured;  // an output that its reader reads
    std::string sPrefix;
};

const EngineCase kEngineCases[] = {
    {kEngineIcepac, "icepacw.exe", "ICEPAC", "ICEPACW", "voacap/p2p_01",
     "PropagationIcepacVoacap, "},
    {kEngineVoacap, "voacapw.exe", "VOACAP", "VOACAP", "voacap/p2p_01",
     "PropagationIcepacVoacap, "},
    {kEngineRec533, "rec533w.exe", "REC533", "REC533", "rec533/p2p_01", "PropagationRec533, "},
};

std::ostream& operator<<(std::ostream& stm, const EngineCase& c) { return stm << c.sName; }

class EachEngine : public testing::TestWithParam<EngineCase> {
protected:
    const EngineCase& m_case = GetParam();
    FakeRoot m_root;
    MsgRecorder m_msg;
    PropagationTable m_table{15};
};

INSTANTIATE_TEST_SUITE_P(Engines, EachEngine, testing::ValuesIn(kEngineCases),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST_P(EachEngine, MissingProgramIsToldOncePerChunkAndStopsNothing)
{
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 15), m_table, ToldFailures()));
    ASSERT_EQ(m_msg.m_aShown.size(), 2U);
    for (const MsgShown& shown : m_msg.m_aShown)
        EXPECT_EQ(shown.sText, std::string("Propagation Model ") + m_case.sName + kNotFound);
    EXPECT_TRUE(m_root.Names("RUN").empty());
}

TEST_P(EachEngine, CheckInstalledTellsOnlyWhenAsked)
{
    EXPECT_FALSE(EngineCheckInstalled(m_case.iModel, nullptr));
    EXPECT_TRUE(m_msg.m_aShown.empty());
    EXPECT_FALSE(EngineCheckInstalled(m_case.iModel, CallMessages()));
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    m_root.Engine(m_case.sProgram, "");
    EXPECT_TRUE(EngineCheckInstalled(m_case.iModel, CallMessages()));
    EXPECT_EQ(m_msg.m_aShown.size(), 1U);
}

TEST_P(EachEngine, StartsWithTheTwoFileNamesInTheRootFolder)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 3), m_table, ToldFailures()));
    const std::string sRoot = m_root.Path("");
    EXPECT_EQ(BytesRead(m_root.Path("calls")),
              std::string(m_case.sProgram) + "|" + sRoot + "|" + sRoot + " sound.dat sound.out\n");
    EXPECT_TRUE(m_msg.m_aShown.empty());
}

TEST_P(EachEngine, TwentyFiveFrequenciesAreThreeRuns)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    PropagationTable table(25);
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 25), table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 3);
    const bool bRec533 = m_case.iModel == kEngineRec533;
    EXPECT_EQ(
        FrequencyCard(m_root.DeckGet(1)),
        bRec533 ? "FREQ          1.0    2.0    3.0    4.0    5.0    6.0    7.0    8.0    9.0   10.0"
                : "FREQUENCY   1.0  2.0  3.0  4.0  5.0  6.0  7.0  8.0  9.0 10.0");
    EXPECT_EQ(
        FrequencyCard(m_root.DeckGet(2)),
        bRec533 ? "FREQ         11.0   12.0   13.0   14.0   15.0   16.0   17.0   18.0   19.0   20.0"
                : "FREQUENCY  11.0 12.0 13.0 14.0 15.0 16.0 17.0 18.0 19.0 20.0");
    EXPECT_EQ(FrequencyCard(m_root.DeckGet(3)),
              bRec533 ? "FREQ         21.0   22.0   23.0   24.0   25.0"
                      : "FREQUENCY  21.0 22.0 23.0 24.0 25.0");
    for (int iHour = 1; iHour <= 24; ++iHour)
        for (int j = 1; j <= 5; ++j) {
            EXPECT_EQ(table.fSnr(iHour, j), table.fSnr(iHour, 10 + j));
            EXPECT_EQ(table.fSnr(iHour, j), table.fSnr(iHour, 20 + j));
        }
}

TEST_P(EachEngine, OneToElevenFrequenciesAreOneOrTwoRuns)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    int nBefore = 0;
    for (const auto& [nCount, nRuns] :
         {std::pair{1, 1}, std::pair{10, 1}, std::pair{11, 2}, std::pair{15, 2}}) {
        EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, nCount), m_table, ToldFailures()));
        EXPECT_EQ(m_root.CallCount() - nBefore, nRuns) << nCount;
        nBefore = m_root.CallCount();
    }
}

TEST_P(EachEngine, AnEmptyListReturnsFalseAndTouchesNothing)
{
    m_root.Engine(m_case.sProgram, "");
    for (const int nCount : {0, -1}) {
        Request input = InputOf(m_case.iModel, 1);
        input.nData = nCount;
        EXPECT_FALSE(PropagationRun(input, m_table, ToldFailures()));
    }
    EXPECT_EQ(m_root.CallCount(), 0);
    EXPECT_TRUE(m_root.Names("RUN").empty());
    EXPECT_TRUE(m_msg.m_aShown.empty());
}

TEST_P(EachEngine, FirstFailureIsSilentAndTheSecondAttemptMaySucceed)
{
    m_root.Engine(m_case.sProgram, "[ $n -eq 1 ] && exit 3\ncp '"
                                       + CapturedPath(m_case.sCaptured, ".out") + "' $out");
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 2);
    EXPECT_EQ(m_root.DeckGet(1), m_root.DeckGet(2));
    EXPECT_TRUE(m_msg.m_aShown.empty());
}

TEST_P(EachEngine, SecondFailureIsToldInItsOwnWords)
{
    // The first attempt fails at the output, the second at the status: only the second is reported.
    m_root.Engine(m_case.sProgram, "[ $n -eq 2 ] && exit 1\nexit 0");
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 2);
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_msg.m_aShown[0].sText, m_case.sPrefix + "Shell do not finish.");
}

TEST_P(EachEngine, AFailedChunkKeepsItsCellsAndTheLastChunkDecides)
{
    m_root.Engine(m_case.sProgram, "grep -q 'FREQ.* 11.0' $deck || exit 1\ncp '"
                                       + CapturedPath(m_case.sCaptured, ".out") + "' $out");
    m_table.fSnr(5, 2) = 33.5F;
    m_table.sLayer(5, 2) = "kept";
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 12), m_table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 3);
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_table.fSnr(5, 2), 33.5F);
    EXPECT_EQ(m_table.sLayer(5, 2), "kept");
    EXPECT_NE(m_table.fSnr(5, 11), 0.0F);
    for (int i = 1; i <= 15; ++i) EXPECT_EQ(m_table.PresentIs(i), i == 11 || i == 12) << i;
}

#ifndef _WIN32  // the program that runs the scripts on Windows cannot cut files
TEST_P(EachEngine, AChunkReadInPartIsAbsent)
{
    const std::string sOutput = "'" + CapturedPath(m_case.sCaptured, ".out") + "'";
    m_root.Engine(m_case.sProgram, "cp " + sOutput
                                       + " $out\n"
                                         "grep -q 'FREQ.* 11.0' $deck && exit 0\n"
                                         "head -c $(($(wc -c < $out) / 2)) "
                                       + sOutput + " > $out.half\nmv $out.half $out");
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 12), m_table, ToldFailures()));
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(PropagationAbsentText(m_table),
              "1000, 2000, 3000, 4000, 5000, 6000, 7000, 8000, 9000, 10000");
}
#endif

TEST_P(EachEngine, TheTableKeepsTheInputThatItWasMadeFor)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    Request input = InputOf(m_case.iModel, 3);
    input.eSunSpotSource = SunSpotSource::AirMail;
    EXPECT_TRUE(PropagationRun(input, m_table, ToldFailures()));
    input.afFrequency[2] = 9999.0F;
    input.iModel = 9;
    EXPECT_EQ(m_table.request.iModel, m_case.iModel);
    EXPECT_EQ(m_table.request.nData, 3);
    EXPECT_EQ(m_table.request.FrequencyGet(2), 2000.0F);
    EXPECT_EQ(m_table.request.eSunSpotSource, SunSpotSource::AirMail);
    EXPECT_FALSE(m_table.bBuiltIn) << "a program that Hopcast did not bring";
    EXPECT_EQ(PropagationAbsentText(m_table), "");
}

TEST_P(EachEngine, AFailureOfTheLastChunkIsTheResultThoughOthersWereRead)
{
    m_root.Engine(m_case.sProgram, "grep -q 'FREQ.* 11.0' $deck && exit 1\ncp '"
                                       + CapturedPath(m_case.sCaptured, ".out") + "' $out");
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 12), m_table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 3);
    EXPECT_NE(m_table.fSnr(5, 2), 0.0F);
    EXPECT_EQ(m_table.fSnr(5, 11), 0.0F);
    EXPECT_TRUE(m_table.PresentIs(2));
    EXPECT_FALSE(m_table.PresentIs(11));
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
}

TEST_P(EachEngine, AStartWithoutAProcessIdIsAlwaysTold)
{
    m_root.Engine(m_case.sProgram, "");
    auto fnBefore = ProcessSetHandler([](const ProcessCommand&) { return Result<int>(0); });
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    ProcessSetHandler(std::move(fnBefore));
    ASSERT_EQ(m_msg.m_aShown.size(), 2U);  // also in the first attempt, which is otherwise silent
    for (const MsgShown& shown : m_msg.m_aShown)
        EXPECT_EQ(shown.sText, std::string("Unable to execute ") + m_case.sExecute + " program.");
}

TEST_P(EachEngine, CommandNamesTheProgramItsRootAndTheTwoFiles)
{
    m_root.Engine(m_case.sProgram, "");
    ProcessCommand command;
    auto fnBefore = ProcessSetHandler([&](const ProcessCommand& commandGiven) {
        command = commandGiven;
        return Result<int>(0);
    });
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 1), m_table, ToldFailures()));
    ProcessSetHandler(std::move(fnBefore));
    const EngineRoot root = EngineRootGet();
    const std::string sProgram = root.Path("c:\\itshfbc\\bin_win\\" + std::string(m_case.sProgram));
    const std::vector<std::string> asExpected{sProgram, root.sFolder, "sound.dat", "sound.out"};
    EXPECT_EQ(command.asWords, asExpected);
    EXPECT_EQ(command.sProgram, sProgram);
    EXPECT_EQ(command.sWorkFolder, root.sFolder);
}

TEST_P(EachEngine, DeckHoldsTheYearOfTheComputersClock)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    ClockSource source;
    source.fnLocal = [] { return DateTime{2031, 1, 1, 0, 30, 0}; };
    source.fnUtc = [] { return DateTime{2030, 12, 31, 23, 30, 0}; };
    const ClockSource sourceBefore = ClockSetHandler(source);
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 1), m_table, ToldFailures()));
    ClockSetHandler(sourceBefore);
    EXPECT_NE(m_root.DeckGet(1).find("MONTH      2031   11\r\n"), std::string::npos);
}

TEST_P(EachEngine, AnOldOutputIsGoneWhenTheEngineStarts)
{
    m_root.Engine(m_case.sProgram, "test ! -e $out");
    TempFolder folder;
    std::filesystem::copy_file(CapturedPath(m_case.sCaptured, ".out"),
                               m_root.Path("RUN/sound.out"));
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_TRUE(m_msg.m_aShown[0].sText.starts_with(m_case.sPrefix + "Input"));
    EXPECT_TRUE(m_msg.m_aShown[0].sText.ends_with(kFileNotFound));
}

TEST_P(EachEngine, ValueThatDoesNotFitFailsTheDeckAndStartsNothing)
{
    m_root.Engine(m_case.sProgram, "");
    Request input = InputOf(m_case.iModel, 10);
    input.fSunSpotNumber = 12345.0F;
    EXPECT_FALSE(PropagationRun(input, m_table, ToldFailures()));
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_msg.m_aShown[0].sText,
              m_case.sPrefix + "Output Invalid procedure call or argument");
    EXPECT_EQ(m_root.CallCount(), 0);
}

TEST_P(EachEngine, OutputOfAnEarlierRunIsForgottenByOneThatStartsNoEngine)
{
    m_root.Engine(m_case.sProgram, "echo no map");
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().sDetail, "no map");
    Request input = InputOf(m_case.iModel, 10);
    input.fNoiseLevel = -123456.0F;  // too wide for its field in the deck
    EXPECT_FALSE(PropagationRun(input, m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().sDetail, "");
}

TEST_P(EachEngine, FirstPrintableLineThatItSaysIsKept)
{
    m_root.Engine(m_case.sProgram,
                  "echo\nprintf 'STOP \\001\\377no  map \\033[1m\\n' >&2\necho more");
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().sDetail, "STOP no  map [1m");
    EXPECT_EQ(FailureLast().sDetail, "STOP no  map [1m");
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    EXPECT_TRUE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().sDetail, "");
}

#ifndef _WIN32
TEST_P(EachEngine, AFailureForWantOfWines32BitHalfNamesThePackage)
{
    // Wine without that half runs it so: status 0 and no output.
    const TempFolder folder;
    const EnvironmentSet prefix("WINEPREFIX", folder.Path());
    std::filesystem::create_directories(folder.Path("drive_c/windows/syswow64"));
    folder.Write(".update-timestamp", "1");
    std::filesystem::permissions(folder.Write("path/wine", "#!/bin/sh\nexit 0\n"),
                                 std::filesystem::perms::owner_all);
    const EnvironmentSet path("PATH", folder.Path("path"));
    std::string sProgram("MZ");
    sProgram.resize(0x3C);
    sProgram.append("\x40\0\0\0PE\0\0\x4C\x01", 10);
    TempFolder rootFolder;
    const EnvironmentSet root("HOPCAST_ITSHFBC", rootFolder.Path());
    rootFolder.Write("bin_win/" + std::string(m_case.sProgram), sProgram);
    std::filesystem::create_directory(rootFolder.Path("RUN"));
    EXPECT_FALSE(PropagationRun(InputOf(m_case.iModel, 10), m_table, ToldFailures()));
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_TRUE(m_msg.m_aShown[0].sText.ends_with(kFileNotFound)) << m_msg.m_aShown[0].sText;
    EXPECT_EQ(FailureLast().sDetail,
              std::string(m_case.sProgram)
                  + " is a 32-bit program, and Wine's 32-bit half is missing: install the package "
                    "wine32:i386, then run wineboot -u");
}
#endif

TEST(EngineCheckInstalled, AnUnknownModelHasNoNameAndIsNotInstalled)
{
    const FakeRoot root;
    root.Engine("rec533w.exe", "");
    MsgRecorder msg;
    EXPECT_EQ(EngineProgramPath(4), "c:\\itshfbc\\bin_win\\");
    EXPECT_FALSE(EngineCheckInstalled(4, CallMessages()));
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, std::string("Propagation Model ") + kNotFound);
}

TEST(PropagationRun, AnUnknownModelFailsAndRunsNothing)
{
    const FakeRoot root;
    const MsgRecorder msg;
    PropagationTable table(15);
    for (const int iModel : {0, 4, -1, 9})
        EXPECT_FALSE(PropagationRun(InputOf(iModel, 15), table, ToldFailures()));
    EXPECT_TRUE(msg.m_aShown.empty());
    EXPECT_TRUE(root.Names("RUN").empty());
}

TEST(PropagationRun, ATableTooNarrowFailsAtTheInput)
{
    const FakeRoot root;
    root.EngineCopying("rec533w.exe", CapturedPath("rec533/p2p_01", ".out"));
    const MsgRecorder msg;
    PropagationTable table(9);
    EXPECT_FALSE(PropagationRun(InputOf(kEngineRec533, 10), table, ToldFailures()));
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, "PropagationRec533, Input Subscript out of range");
}

TEST(PropagationRun, CapturedOutputsFillTheTable)
{
    for (const char* sName : {"voacap/p2p_04", "rec533/p2p_04"}) {
        const FakeRoot root;
        const CircuitCase& c = CircuitCaseGet(sName);
        root.EngineCopying(c.iModel == kEngineVoacap ? "voacapw.exe" : "rec533w.exe",
                           CapturedPath(sName, ".out"));
        PropagationTable table(static_cast<int>(c.adKilohertz.size()));
        EXPECT_TRUE(PropagationRun(InputMake(c), table, ToldFailures()));
        TableCompare(c, table, 1);
    }
}

TEST_P(EachEngine, AFrequencyOutOfRangeIsInNoDeckAndTheOthersKeepTheirRows)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    Request input = InputOf(m_case.iModel, 4);
    PropagationTable tableWhole(4);
    ASSERT_TRUE(PropagationRun(input, tableWhole, ToldFailures()));
    input.afFrequency[1] = 99.9F;
    input.afFrequency[3] = 45001.0F;
    ASSERT_TRUE(PropagationRun(input, m_table, ToldFailures()));
    const std::string sCard = FrequencyCard(m_root.DeckGet(2));
    EXPECT_NE(sCard.find(" 2.0 "), std::string::npos) << sCard;
    EXPECT_TRUE(sCard.ends_with(" 4.0")) << sCard;
    EXPECT_EQ(sCard.find("45"), std::string::npos) << sCard;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        // The fake's columns are the same whatever is asked for.
        EXPECT_EQ(m_table.fSnr(iHour, 2), tableWhole.fSnr(iHour, 1));
        EXPECT_EQ(m_table.sLayer(iHour, 4), tableWhole.sLayer(iHour, 2));
        EXPECT_EQ(m_table.fSnr(iHour, 1), 0.0F);
        EXPECT_EQ(m_table.fSnr(iHour, 3), 0.0F);
        EXPECT_EQ(m_table.fMUF[iHour], tableWhole.fMUF[iHour]);
    }
    EXPECT_EQ(m_table.fRange, tableWhole.fRange);
    EXPECT_TRUE(m_msg.m_aShown.empty());
}

TEST_P(EachEngine, FailuresNameTheirFrequenciesAndKeepThoseThatWereThere)
{
    m_root.Engine(m_case.sProgram, "exit 1");
    Request input = InputOf(m_case.iModel, 4);
    input.afFrequency[1] = 99.9F;
    const Failure before{FailureKind::File, "An earlier run's", {}, 3, 4};
    std::vector<Failure> aFailures{before};
    EXPECT_FALSE(PropagationRun(input, m_table, aFailures));
    ASSERT_EQ(aFailures.size(), 2U);
    EXPECT_EQ(aFailures[0], before);
    EXPECT_EQ(aFailures[1].iFirst, 2);
    EXPECT_EQ(aFailures[1].iLast, 4);
}

TEST_P(EachEngine, WithoutAFrequencyInRangeNothingRuns)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    Request input = InputOf(m_case.iModel, 1);
    input.afFrequency[1] = -1.0F;
    EXPECT_FALSE(PropagationRun(input, m_table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 0);
    EXPECT_TRUE(m_msg.m_aShown.empty());
}

TEST_P(EachEngine, APositionOrNumberOutOfRangeReachesNoEngine)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sCaptured, ".out"));
    Request input = InputOf(m_case.iModel, 1);
    input.dTxLat = 95.0;
    EXPECT_FALSE(PropagationRun(input, m_table, ToldFailures()));
    EXPECT_EQ(m_root.CallCount(), 0);
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_msg.m_aShown[0].sText, m_case.sPrefix + "Output latitude 95 is outside -90 to 90");
}

}  // namespace
