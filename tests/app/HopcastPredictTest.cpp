/// The console program as a user runs it: real program, real engines, fake engines for failures.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/HopcastPredictRig.h"
#include "propagation/EngineCases.h"
#include "support/Faults.h"
#include "support/NeedVoacapl.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

TEST_F(HopcastPredict, ColoursAreForTerminalsUnlessTheyAreForced)
{
    const EnvironmentSet root(
        "HOPCAST_ITSHFBC",
        RootMake("cp '" + CapturedPath("rec533/p2p_09", ".out") + "' \"$1/RUN/$3\"\n"));
    const auto Colours = [&](std::optional<std::string> sForced, std::optional<std::string> sNone) {
        const EnvironmentSet forced("CLICOLOR_FORCE", std::move(sForced));
        const EnvironmentSet none("NO_COLOR", std::move(sNone));
        const ProgramResult res = Predict({"--ssn", "70", "--frequencies", "14100"});
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        return res.sOut.find('\x1b') != std::string::npos;
    };
    EXPECT_FALSE(Colours(std::nullopt, std::nullopt)) << "the output is a file here";
    EXPECT_TRUE(Colours("1", std::nullopt));
    EXPECT_FALSE(Colours("0", std::nullopt));
    EXPECT_FALSE(Colours("1", "1"));
    EXPECT_TRUE(Colours("1", "")) << "an empty NO_COLOR counts as none";
}

TEST_F(HopcastPredict, WrongUsageIsOneLineAndStatus2AndRunsNothing)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("touch \"$1/ran\"\n"));
    for (const Words& asWords :
         {Words{"--colour"}, Words{"--month"}, Words{"--tx", "91,0"}, Words{"--month", "13"},
          Words{"--hour", "3"}, Words{"--frequencies", "0"}}) {
        const ProgramResult res = Predict(asWords);
        EXPECT_EQ(res.nStatus, 2) << asWords[0];
        EXPECT_EQ(res.sOut, "");
        EXPECT_TRUE(res.sError.starts_with("hopcast-predict: ")) << res.sError;
        EXPECT_NE(res.sError.find(asWords[0]), std::string::npos) << res.sError;
        EXPECT_EQ(res.sError.find('\n'), res.sError.size() - 1) << res.sError;
    }
    EXPECT_FALSE(fs::exists(m_tmp.Path("root/ran")));
    EXPECT_FALSE(fs::exists(m_tmp.Path("root/RUN/sound.dat")));
}

TEST_F(HopcastPredict, HelpAndVersionGoToStandardOutput)
{
    const ProgramResult resHelp = Predict({"--help"});
    EXPECT_EQ(resHelp.nStatus, 0);
    EXPECT_EQ(resHelp.sError, "");
    EXPECT_NE(resHelp.sOut.find("Usage:"), std::string::npos);
    const ProgramResult resVersion = Predict({"--version"});
    EXPECT_EQ(resVersion.nStatus, 0);
    EXPECT_EQ(resVersion.sOut, "hopcast-predict " HOPCAST_VERSION "\n");
}

TEST_F(HopcastPredict, AMissingEngineIsToldOnceAChunk)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_tmp.Path("empty"));
    const ProgramResult res =
        Predict({"--ssn", "100", "--model", "icepac", "--frequencies", "7100"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(res.sError,
              "hopcast-predict: Propagation Model ICEPAC not found.\n\n"
              "Please check that ITS HF propagation prediction software has been installed.\n");
}

TEST_F(HopcastPredict, PredictsWithoutAWritableHomeAndLeavesNothing)
{
    const EnvironmentSet data("XDG_DATA_HOME", m_tmp.Write("file", "no folder") + "/data");
    const std::string sTemporary = m_tmp.Path("tmp/");
    const EnvironmentSet temporary("TMPDIR", sTemporary);
    const ProgramResult res = Predict({"--tx", "38,-122", "--rc", "24,-110", "--ssn", "100"});
    EXPECT_EQ(res.nStatus, 0);
    EXPECT_EQ(res.sError, "");
    EXPECT_GT(res.sOut.size(), 1000u);
    EXPECT_TRUE(fs::is_empty(sTemporary));
}

TEST_F(HopcastPredict, AFailingEngineGivesStatus1AndNoTable)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("exit 1\n"));
    const ProgramResult res = Predict({"--ssn", "100", "--frequencies", "7100"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(res.sError, "hopcast-predict: PropagationRec533, Shell do not finish.\n");
}

TEST_F(HopcastPredict, AChunkThatFailsIsEmptyNamedAndTellsByItsStatus)
{
    // The fake fails on the first chunk and returns the captured output for all others.
    const EnvironmentSet root(
        "HOPCAST_ITSHFBC", RootMake("grep -q 'FREQ *2.0' \"$1/RUN/$2\" && exit 1\ncp '"
                                    + CapturedPath("rec533/p2p_01", ".out") + "' \"$1/RUN/$3\"\n"));
    const ProgramResult res = Predict({"--ssn", "100", "--format", "csv"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sError,
              "hopcast-predict: PropagationRec533, Shell do not finish.\n"
              "hopcast-predict: No values for 2000, 4000, 6000, 8000, 10000, 12000, 14000, 16000, "
              "18000, 20000 kHz.\n");
    EXPECT_EQ(std::count(res.sOut.begin(), res.sOut.end(), '\n'), 1 + 24 * 15);
    EXPECT_NE(res.sOut.find(",20000,,,,,,,,REC533,"), std::string::npos);
    EXPECT_EQ(res.sOut.find(",22000,,"), std::string::npos);
    const ProgramResult resFile =
        Predict({"--ssn", "100", "--format", "csv", "--output", m_tmp.Path("out.csv")});
    EXPECT_EQ(resFile.nStatus, 1);
    EXPECT_EQ(BytesRead(m_tmp.Path("out.csv")), res.sOut);
}

TEST_F(HopcastPredict, ControlCharactersOfForeignTextsReachNoTerminal)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("sed '/MODE/s/ 2E  / \\x1b[2J/' '"
                                                          + CapturedPath("rec533/p2p_01", ".out")
                                                          + "' > \"$1/RUN/$3\"\n"));
    m_tmp.Write("mail/System.ham.ini", "[Station Info]\nA\x1b[2J\x07=FN31:Newington;\n");
    const std::string sProfile =
        m_tmp.Write("hopcast.ini", "[AirMail Data]\nDirectory Data=" + m_tmp.Path("mail") + "\n");
    const Words asWords{"--profile", sProfile,   "--ssn", "100",  "--frequencies",
                        "7100",      "--format", "csv",   "--tx", "ham:A\x1b[2J\x07"};
    const ProgramResult resCsv = Predict(asWords);
    EXPECT_EQ(resCsv.nStatus, 0) << resCsv.sError;
    EXPECT_NE(resCsv.sOut.find(",7100,"), std::string::npos);
    EXPECT_NE(resCsv.sOut.find("   [2,"), std::string::npos) << "a mode text";
    EXPECT_EQ(resCsv.sOut.find('\x1b'), std::string::npos);
    Words asTable = asWords;
    asTable[7] = "table";
    const ProgramResult resTable = Predict(asTable);
    EXPECT_NE(resTable.sOut.find("Airmail's station A [2J  (ham)"), std::string::npos)
        << resTable.sOut;
    EXPECT_EQ(resTable.sOut.find_first_of("\x1b\x07"), std::string::npos);
    Words asMissing = asWords;
    asMissing[9] = "ham:B\x1b[2J\x07";
    const ProgramResult resMissing = Predict(asMissing);
    EXPECT_NE(resMissing.nStatus, 0);
    EXPECT_NE(resMissing.sError.find("no station \"B [2J \""), std::string::npos)
        << resMissing.sError;
    EXPECT_EQ(resMissing.sError.find_first_of("\x1b\x07"), std::string::npos);
}

TEST_F(HopcastPredict, WithoutAnySunspotNumberTheRunIsRefused)
{
    const ProgramResult res = Predict({});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(
        res.sError,
        "hopcast-predict: Unable to find AirMail's Propagation, SSN in \"Airmail.ini\".\n\n"
        "Please check that the AirMail Data folder \"C:\\Program Files\\AirMail\" is correct. "
        "(or give --ssn N)\n");
}

TEST_F(HopcastPredict, WritesToAFileAndSaysWhereItCannot)
{
    const EnvironmentSet root(
        "HOPCAST_ITSHFBC",
        RootMake("cp '" + CapturedPath("rec533/p2p_09", ".out") + "' \"$1/RUN/$3\"\n"));
    const Words asWords{"--ssn", "70", "--frequencies", "14100", "--format", "json", "--output"};
    Words asGood = asWords;
    asGood.push_back(m_tmp.Path("out.json"));
    ProgramResult res = Predict(asGood);
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sOut + res.sError, "");
    EXPECT_TRUE(BytesRead(m_tmp.Path("out.json")).starts_with("{\n  \"model\": \"REC533\""));
    Words asBad = asWords;
    asBad.push_back(m_tmp.Path("none") + "/sub/out.json");
    res = Predict(asBad);
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sError, "hopcast-predict: --output: " + asBad.back() + ": Path not found\n");
}

TEST_F(HopcastPredict, AFullDiskOnStandardOutputIsAFailure)
{
    const ProgramResult res =
        ProgramRun({"/bin/sh", "-c", "exec \"$0\" --help >/dev/full", TEST_BIN "/hopcast-predict"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sError, "hopcast-predict: the output could not be written\n");
}

TEST_F(HopcastPredict, AnAreaRunsOnceOrTwiceOverLongitude180)
{
    NEED_VOACAPL();
    const Words asArea{"--ssn",       "100",  "--model",       "voacap", "--month",
                       "3",           "--rc", "-18.14,178.44", "--hour", "6",
                       "--frequency", "7100", "--grid",        "3",      "--area"};
    Words asOne = asArea;
    asOne.push_back("0,170,-30,179");
    const ProgramResult resOne = Predict(asOne);
    EXPECT_EQ(resOne.nStatus, 0) << resOne.sError;
    EXPECT_TRUE(resOne.sOut.starts_with("lat,lon,snr_db\n-30,170,")) << resOne.sOut;
    EXPECT_EQ(std::count(resOne.sOut.begin(), resOne.sOut.end(), '\n'), 10);
    Words asTwo = asArea;
    asTwo.push_back("0,170,-30,-170");
    const ProgramResult resTwo = Predict(asTwo);
    EXPECT_EQ(resTwo.nStatus, 0) << resTwo.sError;
    EXPECT_EQ(std::count(resTwo.sOut.begin(), resTwo.sOut.end(), '\n'), 19) << resTwo.sOut;
    EXPECT_NE(resTwo.sOut.find("\n-30,-170,"), std::string::npos) << resTwo.sOut;
}

/// A Wine prefix on whose drive C the sample Airmail is installed.
class HopcastPredictAirmail : public HopcastPredict {
protected:
    HopcastPredictAirmail()
    {
        const std::string sFolder = m_tmp.Path("wine/drive_c/Program Files/AirMail");
        fs::create_directories(sFolder);
        fs::copy(AIRMAIL_DATA, sFolder, fs::copy_options::recursive);
        m_tmp.Write("wine/drive_c/Program Files/AirMail/Airmail3.exe", "MZ");
        m_engine.emplace("HOPCAST_ITSHFBC",
                         RootMake("cp \"$1/RUN/$2\" \"$1/deck\"\ncp '"
                                  + CapturedPath("rec533/p2p_09", ".out") + "' \"$1/RUN/$3\"\n"));
    }
    std::optional<EnvironmentSet> m_engine;
};

TEST_F(HopcastPredictAirmail, TakesTheSunspotNumberFromAirmail)
{
    const ProgramResult res = Predict({"--frequencies", "14100", "--month", "4"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_TRUE(res.sOut.starts_with(
        "Hopcast prediction: REC533, month 4, sunspot number 112.5 (Airmail)\n"))
        << res.sOut;
    EXPECT_NE(BytesRead(m_tmp.Path("root/deck")).find("SUNSPOT   112.5\r\n"), std::string::npos);
}

TEST_F(HopcastPredictAirmail, ASunspotNumberThatIsNoneIsToldAndNothingRuns)
{
    m_tmp.Write("wine/drive_c/Program Files/AirMail/Airmail.ini", "[Propagation]\r\nSSN=high\r\n");
    const ProgramResult res = Predict({"--frequencies", "14100"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(res.sError,
              "hopcast-predict: Airmail's sunspot number: Type mismatch (or give --ssn N)\n");
    EXPECT_FALSE(fs::exists(m_tmp.Path("root/deck")));
}

TEST_F(HopcastPredictAirmail, TakesTheReceiverFromAirmailAndSaysHowOldItIs)
{
    const ProgramResult res = Predict({"--frequencies", "14100", "--rc", "airmail"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_NE(res.sOut.find("Receiver 17°41.25'N 063°05.50'W\n"), std::string::npos) << res.sOut;
    const std::size_t nNote = res.sOut.find("Receiver: Airmail's position, ");
    ASSERT_NE(nNote, std::string::npos) << res.sOut;
    const std::string sNote = res.sOut.substr(nNote, res.sOut.find('\n', nNote) - nNote);
    EXPECT_TRUE(sNote.ends_with(" days old")) << sNote;
}

TEST_F(HopcastPredictAirmail, TakesTheTransmitterFromAStation)
{
    const ProgramResult res = Predict({"--frequencies", "14100", "--tx", "ham:xx2mia"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    // EL95: 25 degrees 30.8 minutes north by the sub-square scale of station lists.
    EXPECT_NE(res.sOut.find("Transmitter 25°30.78'N 080°58.43'W"), std::string::npos) << res.sOut;
    EXPECT_NE(res.sOut.find("\nTransmitter: Airmail's station xx2mia (ham)\n"), std::string::npos)
        << res.sOut;
}

TEST_F(HopcastPredictAirmail, AnUnknownStationOrABadOneIsAClearError)
{
    const auto Error = [&](const std::string& sPlace) {
        const ProgramResult res = Predict({"--frequencies", "14100", "--tx", sPlace});
        EXPECT_EQ(res.nStatus, 2) << sPlace;
        EXPECT_EQ(res.sOut, "");
        return res.sError;
    };
    EXPECT_EQ(
        Error("ham:NOBODY"),
        "hopcast-predict: --tx: Airmail's list \"ham\" has no station \"NOBODY\" (data folder "
        "\"C:\\Program Files\\AirMail\")\n");
    EXPECT_EQ(Error("cb:XX2MIA"),
              "hopcast-predict: --tx: Airmail's list \"cb\" has no station \"XX2MIA\" (data folder "
              "\"C:\\Program Files\\AirMail\")\n");
    EXPECT_EQ(Error("ham:XX6OLD"), "hopcast-predict: --tx: Invalid procedure call or argument\n");
    EXPECT_EQ(Error("ham:XX5BAD"),
              "hopcast-predict: --tx: Unable to Convert Grid FN4 to Lat/Lon\n");
}

TEST_F(HopcastPredict, AirmailsPositionIsAClearErrorWhereThereIsNoAirmail)
{
    const ProgramResult res = Predict({"--rc", "airmail"});
    EXPECT_EQ(res.nStatus, 2);
    EXPECT_EQ(res.sError,
              "hopcast-predict: --rc: Unable to find AirMail's Propagation, Latitude in "
              "\"Airmail.ini\".\n\nPlease check that the AirMail Data folder \"C:\\Program "
              "Files\\AirMail\" is correct.\n");
}

TEST_F(HopcastPredict, AProfileThatCannotBeReadIsRefusedWithTheReason)
{
    const auto Error = [](const std::string& sProfile) {
        const ProgramResult res = Predict({"--ssn", "70", "--profile", sProfile});
        EXPECT_EQ(res.nStatus, 2);
        EXPECT_EQ(res.sOut, "");
        return res.sError;
    };
    const std::string sFolder = m_tmp.Path();
    EXPECT_EQ(Error(sFolder), "hopcast-predict: --profile: it is a folder, " + sFolder + "\n");
    EXPECT_EQ(Error("/dev/null"), "hopcast-predict: --profile: it is a device, /dev/null\n");
    const std::string sNone = m_tmp.Path() + "/none.ini";
    EXPECT_EQ(Error(sNone), "hopcast-predict: --profile: File not found, " + sNone + "\n");
    const std::string sGreat = m_tmp.Write("great.ini", "");
    fs::resize_file(sGreat, (std::uintmax_t{64} << 20) + 1);
    EXPECT_EQ(Error(sGreat),
              "hopcast-predict: --profile: it is larger than 64 MB, " + sGreat + "\n");
    const std::string sSecret = m_tmp.Write("secret.ini", "");
    fs::permissions(sSecret, fs::perms::none);
    fs::permissions(m_tmp.Path(), fs::perms::all);
    AsUnprivileged([&] {
        EXPECT_EQ(Error(sSecret),
                  "hopcast-predict: --profile: Permission denied, " + sSecret + "\n");
    });
}

TEST_F(HopcastPredict, AProfileMayComeThroughAPipe)
{
    const EnvironmentSet root(
        "HOPCAST_ITSHFBC",
        RootMake("cp '" + CapturedPath("rec533/p2p_09", ".out") + "' \"$1/RUN/$3\"\n"));
    const std::string sProfile =
        m_tmp.Write("a.ini",
                    "[Propagation Data]\nCount=1\nFrequency 1=14100\n[Propagation Model]\nSunSpot "
                    "Option=False\nSunSpot Number=55\n");
    const ProgramResult res =
        ProgramRun({"/bin/sh", "-c", "cat \"$1\" | \"$0\" --profile /dev/stdin --output -",
                    TEST_BIN "/hopcast-predict", sProfile});
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_NE(res.sOut.find("sunspot number 55"), std::string::npos) << res.sOut;
}

TEST_F(HopcastPredict, AValueOutOfRangeInAProfileIsRefusedWithFileAndKey)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("touch \"$1/called\"\n"));
    struct Case {
        const char* sText;
        const char* sFault;
    };
    for (const Case& c :
         {Case{"[Propagation Model]\nModel Reliability=150\n",
               "[Propagation Model] Model Reliability: 150 is outside 1 to 99"},
          Case{"[Propagation Model]\nNoise Level=1e99\n",
               "[Propagation Model] Noise Level: 340282346638528859811704183484516925440 is "
               "outside -200 to -100"},
          Case{"[Propagation Model]\nModel=9\n", "[Propagation Model] Model: 9 is outside 1 to 3"},
          Case{"[Transmitter Data]\nLatitude=95\n",
               "[Transmitter Data] Latitude: 95 is outside -90 to 90"},
          Case{"[Propagation Data]\nCount=2\nFrequency 2=50\n",
               "[Propagation Data] Frequency 2: 50 is outside 100 to 45000"}}) {
        const std::string sProfile = m_tmp.Write("a.ini", c.sText);
        const ProgramResult res = Predict({"--ssn", "70", "--profile", sProfile});
        EXPECT_EQ(res.nStatus, 1) << c.sText;
        EXPECT_EQ(res.sOut, "");
        EXPECT_EQ(res.sError, "hopcast-predict: " + sProfile + ", " + c.sFault + "\n");
    }
    EXPECT_FALSE(fs::exists(m_tmp.Path("root/called")));
}

TEST_F(HopcastPredict, AnOptionWinsOverAValueOutOfRange)
{
    const EnvironmentSet root(
        "HOPCAST_ITSHFBC",
        RootMake("cp '" + CapturedPath("rec533/p2p_09", ".out") + "' \"$1/RUN/$3\"\n"));
    const std::string sProfile =
        m_tmp.Write("a.ini", "[Propagation Model]\nModel Reliability=150\n");
    const ProgramResult res = Predict(
        {"--ssn", "70", "--frequencies", "14100", "--profile", sProfile, "--reliability", "90"});
    EXPECT_EQ(res.nStatus, 0) << res.sError;
}

TEST_F(HopcastPredict, WritesToStandardOutputPipesAndFilesInLockedFolders)
{
    const EnvironmentSet root(
        "HOPCAST_ITSHFBC",
        RootMake("cp '" + CapturedPath("rec533/p2p_09", ".out") + "' \"$1/RUN/$3\"\n"));
    const Words asWords{"--ssn", "70", "--frequencies", "14100", "--format", "JSON", "--output"};
    for (const char* sOutput : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        Words asAll = asWords;
        asAll.emplace_back(sOutput);
        const ProgramResult res = Predict(asAll);
        EXPECT_EQ(res.nStatus, 0) << sOutput << ": " << res.sError;
        EXPECT_TRUE(res.sOut.starts_with("{\n  \"model\": \"REC533\"")) << sOutput;
    }
    const std::string sAppended = m_tmp.Write("log", "before\n");
    const ProgramResult res = ProgramRun(
        {"/bin/sh", "-c",
         "exec \"$0\" --ssn 70 --frequencies 14100 --format csv --output /dev/stdout >>\"$1\"",
         TEST_BIN "/hopcast-predict", sAppended});
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_TRUE(BytesRead(sAppended).starts_with("before\nhour,utc")) << BytesRead(sAppended);
}

TEST_F(HopcastPredict, AHomeThatIsNoFullPathIsRefusedInWords)
{
    const EnvironmentSet home("HOME", "somewhere");
    const ProgramResult res = Predict({"--ssn", "70"});
    EXPECT_EQ(res.nStatus, 2);
    EXPECT_EQ(res.sError,
              "hopcast-predict: HOME is \"somewhere\", which is no full path; set it to one that "
              "begins with /\n");
    EXPECT_FALSE(fs::exists("somewhere"));
}

TEST_F(HopcastPredictAirmail, WhatIsOutOfRangeIsRefusedWithFileAndKey)
{
    const std::string sIni = "wine/drive_c/Program Files/AirMail/Airmail.ini";
    m_tmp.Write(sIni, "[Propagation]\r\nSSN=400\r\n");
    ProgramResult res = Predict({"--frequencies", "14100"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sError,
              "hopcast-predict: Airmail's sunspot number: C:\\Program "
              "Files\\AirMail\\Airmail.ini, [Propagation] SSN: 400 is outside 0 to 311 (or give "
              "--ssn N)\n");
    // A valid position further down does not count: the user asked for the current one.
    m_tmp.Write(sIni,
                "[Position Report]\r\nCurrent Latitude=95\xB0"
                "00.00'N\r\n[Propagation]\r\nLatitude=10\xB0"
                "00.00'N\r\nLongitude=010\xB0"
                "00.00'E\r\n");
    res = Predict({"--ssn", "70", "--frequencies", "14100", "--rc", "airmail"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sError,
              "hopcast-predict: C:\\Program Files\\AirMail\\Airmail.ini, [Position Report] Current "
              "Latitude: 95°00.00'N is out of range\n");
    EXPECT_FALSE(fs::exists(m_tmp.Path("root/deck")));
}

}  // namespace
