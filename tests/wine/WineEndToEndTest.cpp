/// The Windows programs under Wine, and Windows engines started by the native program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "support/NeedVoacapl.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

const std::string kPredictExe = WINDOWS_BIN "/hopcast-predict.exe";
const std::string kRec533Exe = WINDOWS_BIN "/rec533w.exe";

bool IsThere()
{
    return fs::exists(kPredictExe) && fs::exists(kRec533Exe)
           && ProgramRun({"/bin/sh", "-c", "command -v wine"}).nStatus == 0;
}

std::string CarriageReturnsDrop(std::string sText)
{
    std::erase(sText, '\r');
    return sText;
}

/// Rows of csv without their last two columns.
std::string DecilesDrop(const std::string& sCsv)
{
    std::string sText;
    std::istringstream stm(sCsv);
    for (std::string sLine; std::getline(stm, sLine);) {
        const std::size_t nLast = sLine.rfind(',');
        sText += sLine.substr(0, sLine.rfind(',', nLast - 1)) + "\n";
    }
    return sText;
}

/// One throw-away prefix for all tests here; each test starts with a clean drive C.
class WineEndToEnd : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        if (!IsThere())
            return;
        s_pFolder = new TempFolder;
        EXPECT_EQ(Prefix({"make"}).nStatus, 0);
    }
    static void TearDownTestSuite()
    {
        if (s_pFolder != nullptr) {
            EXPECT_EQ(Prefix({"remove"}).nStatus, 0);
        }
        delete s_pFolder;
        s_pFolder = nullptr;
    }
    void SetUp() override
    {
        NEED_WINE(IsThere());
        fs::remove_all(Drive("itshfbc"));
        fs::remove_all(UserRoot());
    }

    static std::string PrefixPath() { return s_pFolder->Path("wine"); }
    static std::string Drive(const std::string& sName)
    {
        return PrefixPath() + "/prefix/drive_c/" + sName;
    }
    /// The engine root of the prefix's user.
    static std::string UserRoot()
    {
        for (const auto& entry : fs::directory_iterator(Drive("users")))
            if (fs::exists(entry.path() / "AppData/Local"))
                return (entry.path() / "AppData/Local/Hopcast/itshfbc").string();
        ADD_FAILURE() << "the prefix has no user";
        return Drive("none");
    }
    static ProgramResult Prefix(Words asWords)
    {
        asWords.insert(asWords.begin() + 1, PrefixPath());
        asWords.insert(asWords.begin(), WINE_PREFIX_SCRIPT);
        return ProgramRun(asWords);
    }
    /// Runs a Windows program in the prefix.
    static ProgramResult Run(Words asWords)
    {
        asWords.insert(asWords.begin(), "run");
        ProgramResult res = Prefix(std::move(asWords));
        res.sOut = CarriageReturnsDrop(res.sOut);
        res.sError = CarriageReturnsDrop(res.sError);
        return res;
    }
    static ProgramResult WindowsPredict(Words asWords)
    {
        asWords.insert(asWords.begin(), kPredictExe);
        return Run(std::move(asWords));
    }
    /// Runs the native program with its built-in engine, or with the engines of the prefix.
    static ProgramResult HostPredict(Words asWords, bool bWine)
    {
        const TempFolder home;
        const EnvironmentSet data("XDG_DATA_HOME", home.Path("data"));
        const EnvironmentSet config("XDG_CONFIG_HOME", home.Path("config"));
        const EnvironmentSet root("HOPCAST_ITSHFBC", std::nullopt);
        const EnvironmentSet prefix("WINEPREFIX",
                                    bWine ? PrefixPath() + "/prefix" : home.Path("wine"));
        asWords.insert(asWords.begin(), TEST_BIN "/hopcast-predict");
        return ProgramRun(asWords);
    }
    /// Installs the engine where the ITS package has it.
    static void EngineInstall(const std::string& sName = "rec533w.exe")
    {
        for (const char* sFolder : {"itshfbc/bin_win", "itshfbc/RUN", "itshfbc/areadata"})
            fs::create_directories(Drive(sFolder));
        fs::copy_file(kRec533Exe, Drive("itshfbc/bin_win/" + sName));
    }
    static void FileWrite(const std::string& sName, const std::string& sBytes)
    {
        fs::create_directories(fs::path(Drive(sName)).parent_path());
        s_pFolder->Write("wine/prefix/drive_c/" + sName, sBytes);
    }

    static inline TempFolder* s_pFolder = nullptr;
};

const Words kCircuit{
    "--ssn", "100",           "--month",
    "11",    "--tx",          "38,-76",
    "--rc",  "51.5,0",        "--coefficients",
    "URSI",  "--frequencies", "3500,7100,10120,14200,18100,21200,24900,28200,5300,9000,12000"};

Words With(Words asWords, const Words& asMore)
{
    asWords.insert(asWords.end(), asMore.begin(), asMore.end());
    return asWords;
}

TEST_F(WineEndToEnd, TheWindowsProgramPredictsAsTheOneOfThisMachineDigitForDigit)
{
    EngineInstall();
    for (const char* sFormat : {"csv", "json", "table"}) {
        const Words asWords = With(kCircuit, {"--format", sFormat});
        const ProgramResult resHere = HostPredict(asWords, false);
        ASSERT_EQ(resHere.nStatus, 0) << resHere.sError;
        const ProgramResult res = WindowsPredict(asWords);
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        EXPECT_EQ(res.sError, "");
        EXPECT_EQ(res.sOut, resHere.sOut) << sFormat;
    }
    EXPECT_FALSE(fs::exists(Drive("itshfbc/hopcast-engines.txt")))
        << "an installed root is left alone";
    EXPECT_FALSE(fs::exists(Drive("itshfbc/hopcast.lock")));
    EXPECT_FALSE(fs::exists(Drive("itshfbc/RUN/hopcast.txt")));
}

TEST_F(WineEndToEnd, TheProgramOfThisMachineStartsAWindowsEngineThroughWine)
{
    EngineInstall();
    const Words asWords = With(kCircuit, {"--format", "csv"});
    const ProgramResult resHere = HostPredict(asWords, false);
    ASSERT_EQ(resHere.nStatus, 0) << resHere.sError;
    const ProgramResult res = HostPredict(asWords, true);
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sError, "");
    // To the native program this is a foreign engine: it has another name, and only the values of
    // its output, which has no deciles.
    const std::string sOurs = ",REC533 (built-in),";
    std::string sExpected = resHere.sOut;
    for (std::size_t n = 0; (n = sExpected.find(sOurs, n)) != std::string::npos;)
        sExpected.replace(n, sOurs.size(), ",REC533,");
    EXPECT_NE(sExpected, resHere.sOut);
    EXPECT_EQ(DecilesDrop(res.sOut), DecilesDrop(sExpected));
    EXPECT_TRUE(res.sOut.ends_with(",,\n")) << res.sOut.substr(res.sOut.size() - 80);
    EXPECT_TRUE(fs::exists(Drive("itshfbc/RUN/sound.out"))) << "made by the engine of drive C";
    EXPECT_FALSE(fs::exists(Drive("itshfbc/RUN/hopcast.txt")));
}

TEST_F(WineEndToEnd, AnAreaIsTheSameOnBothSides)
{
    EngineInstall();
    // With a named map, since a Windows engine on drive C counts as foreign here and never gets the
    // mean.
    const Words asWords{"--ssn",  "100",          "--month",        "6",     "--rc",   "51.5,0",
                        "--hour", "18",           "--frequency",    "14200", "--grid", "5",
                        "--area", "60,-20,30,20", "--coefficients", "URSI"};
    const ProgramResult resHere = HostPredict(asWords, false);
    ASSERT_EQ(resHere.nStatus, 0) << resHere.sError;
    const ProgramResult res = WindowsPredict(asWords);
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sOut, resHere.sOut);
    const ProgramResult resWine = HostPredict(asWords, true);
    EXPECT_EQ(resWine.nStatus, 0) << resWine.sError;
    EXPECT_EQ(resWine.sOut, resHere.sOut);
}

TEST_F(WineEndToEnd, WithoutThePackageTheBuiltInEngineIsPutIntoTheUsersFolder)
{
    const Words asWords = With(kCircuit, {"--format", "table"});
    const ProgramResult resHere = HostPredict(asWords, false);
    const std::string sEngine = UserRoot() + "/bin_win/rec533w.exe";
    for (int i = 0; i < 2; ++i) {
        const ProgramResult res = WindowsPredict(asWords);
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        EXPECT_EQ(res.sOut, resHere.sOut);
        EXPECT_EQ(BytesRead(sEngine), BytesRead(kRec533Exe));
    }
    EXPECT_TRUE(fs::exists(UserRoot() + "/hopcast-engines.txt"));
    EXPECT_FALSE(fs::exists(Drive("itshfbc"))) << "every account of the machine may write there";
    fs::remove(sEngine);
    EXPECT_EQ(WindowsPredict(asWords).nStatus, 0);
}

TEST_F(WineEndToEnd, WhatAnOlderHopcastLeftOnDriveCIsNoLongerUsed)
{
    const Words asWords = With(kCircuit, {"--format", "csv"});
    const ProgramResult resFirst = WindowsPredict(asWords);
    ASSERT_EQ(resFirst.nStatus, 0) << resFirst.sError;
    EngineInstall();
    FileWrite("itshfbc/hopcast-engines.txt", BytesRead(UserRoot() + "/hopcast-engines.txt"));
    const ProgramResult res = WindowsPredict(asWords);
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sOut, resFirst.sOut);
    EXPECT_FALSE(fs::exists(Drive("itshfbc/RUN/sound.out")));
    EXPECT_TRUE(fs::exists(Drive("itshfbc/bin_win/rec533w.exe"))) << "left as it is";
}

TEST_F(WineEndToEnd, FailuresHaveTheirTextsAndStatuses)
{
    EngineInstall("icepacw.exe");
    ProgramResult res = WindowsPredict({"--ssn", "100"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_TRUE(
        res.sError.starts_with("hopcast-predict: Propagation Model REC533 not found.\n\nPlease "
                               "check that ITS HF propagation "
                               "prediction software has been installed.\n"))
        << res.sError;
    // The program of REC533 cannot read ICEPAC's deck: it says so and ends with status 2.
    res = WindowsPredict({"--ssn", "100", "--model", "icepac", "--frequencies", "7100"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_TRUE(res.sError.starts_with(
        "hopcast-predict: PropagationIcepacVoacap, Shell do not finish.\nhopcast-predict: "))
        << res.sError;
    res = WindowsPredict({"--month", "13"});
    EXPECT_EQ(res.nStatus, 2);
    EXPECT_EQ(std::count(res.sError.begin(), res.sError.end(), '\n'), 1) << res.sError;
    res = WindowsPredict({"--version"});
    EXPECT_EQ(res.nStatus, 0);
    EXPECT_EQ(res.sOut, "hopcast-predict " HOPCAST_VERSION "\n");
}

TEST_F(WineEndToEnd, AirmailIsFoundThroughTheRegistry)
{
    EngineInstall();
    ASSERT_EQ(Run({"reg", "add", "HKCU\\Software\\Sirius Cybernetics\\AirMail\\Installation", "/v",
                   "Install Folder", "/d",
                   "C:\\Funk B\xC3\xBC"
                   "cher\\",
                   "/f"})
                  .nStatus,
              0);
    for (const auto& entry : fs::directory_iterator(AIRMAIL_DATA))
        FileWrite(
            "Funk B\xC3\xBC"
            "cher/"
                + entry.path().filename().string(),
            BytesRead(entry.path()));
    fs::remove(
        Drive("Funk B\xC3\xBC"
              "cher/Install.log"));
    const Words asWords{"--frequencies", "14100",   "--month", "4",
                        "--rc",          "airmail", "--tx",    "ham:xx2mia"};
    const ProgramResult res = WindowsPredict(asWords);
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_TRUE(res.sOut.starts_with(
        "Hopcast prediction: REC533 (built-in), month 4, sunspot number 112.5 (Airmail)\n"))
        << res.sOut;
    EXPECT_NE(res.sOut.find("Receiver 17\xC2\xB0"
                            "41.25'N 063\xC2\xB0"
                            "05.50'W\n"),
              std::string::npos)
        << res.sOut;
    EXPECT_NE(res.sOut.find("Transmitter 25\xC2\xB0"
                            "30.78'N 080\xC2\xB0"
                            "58.43'W"),
              std::string::npos)
        << res.sOut;
    // Wine saves the registry a moment after its last program ends; until then only Windows
    // programs see the value.
    ASSERT_EQ(Run({"reg", "delete", "HKCU\\Software\\Sirius Cybernetics\\AirMail", "/f"}).nStatus,
              0);
    EXPECT_NE(WindowsPredict(asWords).nStatus, 0);
    fs::remove_all(
        Drive("Funk B\xC3\xBC"
              "cher"));
}

TEST_F(WineEndToEnd, AProfileMayLieInAnyFolder)
{
    EngineInstall();
    const std::string sProfile =
        "[Propagation Data]\r\nCount=2\r\nFrequency 1=7100\r\nFrequency 2=14200\r\n"
        "[Propagation Model]\r\nSunSpot Option=False\r\nSunSpot Number=42\r\nMonth Option=False\r\n"
        "Month Number=7\r\n";
    for (const char* sFolder : {"Gr\xC3\xB6\xC3\x9F"
                                "e",
                                "\xCE\x9A\xCF\x8D\xCE\xBC\xCE\xB1 \xE6\xB3\xA2"}) {
        FileWrite(std::string(sFolder) + "/mein Profil.ini", sProfile);
        const ProgramResult res =
            WindowsPredict({"--profile", "C:\\" + std::string(sFolder) + "\\mein Profil.ini"});
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        EXPECT_TRUE(res.sOut.starts_with(
            "Hopcast prediction: REC533 (built-in), month 7, sunspot number 42 (given)\n"))
            << sFolder << "\n"
            << res.sOut;
        fs::remove_all(Drive(sFolder));
    }
}

}  // namespace
