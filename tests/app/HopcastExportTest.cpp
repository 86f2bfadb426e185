/// hopcast --export from its command line, without a display and without a writable home.
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <filesystem>

#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

const Words kPath = {"--tx",          "48.5417,-123.0125",
                     "--rc",          "15.375,-132.6875",
                     "--ssn",         "62",
                     "--month",       "11",
                     "--power",       "100",
                     "--frequencies", "5000,7100,10100,14100"};

class HopcastExport : public testing::Test {
protected:
    ProgramResult Export(const std::string& sFile, const Words& asMore = {}) const
    {
        Words asWords{TEST_BIN "/hopcast", "--export", sFile};
        asWords.insert(asWords.end(), kPath.begin(), kPath.end());
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        return ProgramRun(asWords);
    }
    static Words CsvCells(const std::string& sLine)
    {
        Words asCell(1);
        for (const char c : sLine) {
            if (c == ',')
                asCell.emplace_back();
            else if (c != '\r')
                asCell.back() += c;
        }
        return asCell;
    }
    static std::vector<Words> CsvLines(const std::string& sText)
    {
        std::vector<Words> aLine;
        for (std::size_t nFrom = 0, nEnd; (nEnd = sText.find('\n', nFrom)) != std::string::npos;
             nFrom = nEnd + 1)
            aLine.push_back(CsvCells(sText.substr(nFrom, nEnd - nFrom)));
        return aLine;
    }
    TempFolder m_folder;

private:
    // Nobody can make a folder below a file, not even the superuser.
    std::string m_sNoFolder = m_folder.Write("file", "") + "/home";
    EnvironmentSet m_envHome{"HOME", m_sNoFolder};
    EnvironmentSet m_envConfig{"XDG_CONFIG_HOME", m_sNoFolder + "/config"};
    EnvironmentSet m_envData{"XDG_DATA_HOME", m_sNoFolder + "/data"};
    EnvironmentSet m_envCache{"XDG_CACHE_HOME", m_sNoFolder + "/cache"};
    EnvironmentSet m_envRoot{"HOPCAST_ITSHFBC", std::nullopt};
    EnvironmentSet m_envWine{"WINEPREFIX", m_sNoFolder + "/wine"};
    EnvironmentSet m_envDisplay{"DISPLAY", std::nullopt};
    EnvironmentSet m_envWayland{"WAYLAND_DISPLAY", std::nullopt};
    EnvironmentSet m_envPlatform{"QT_QPA_PLATFORM", "xcb"};
};

TEST_F(HopcastExport, TheCardHasThePalettesColoursAndInNightTheStandardOnes)
{
    const auto Card = [this](const std::string& sPalette) {
        const std::string sProfile =
            m_folder.Write(sPalette + ".ini", "[Colour Data]\nPalette=" + sPalette + "\n");
        const std::string sFile = m_folder.Path(sPalette + ".png");
        const ProgramResult res = Export(sFile, {"--profile", sProfile});
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        return BytesRead(sFile);
    };
    const std::string sStandard = Card("Standard");
    EXPECT_FALSE(sStandard.empty());
    EXPECT_NE(Card("Safe"), sStandard);
    EXPECT_EQ(Card("Night"), sStandard);
}

TEST_F(HopcastExport, WritesThePdfCardWithoutADisplayAndWithoutAHome)
{
    const std::string sFile = m_folder.Path("card.pdf");
    const ProgramResult res = Export(sFile);
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sOut, "");
    const ProgramResult text = ProgramRun({"/usr/bin/pdftotext", "-layout", sFile, "-"});
    ASSERT_EQ(text.nStatus, 0) << text.sError;
    for (const char* sPart : {"48\xC2\xB0"
                              "32.50'N 123\xC2\xB0"
                              "00.75'W",
                              "Range 20", "14100", "UTC", "Ship", "REC533 (built-in)", "November",
                              "SSN 62", "100 W", "E-mail, normal, 40 dB"})
        EXPECT_NE(text.sOut.find(sPart), std::string::npos) << sPart << "\n" << text.sOut;
    EXPECT_EQ(std::count(text.sOut.begin(), text.sOut.end(), '\f'), 1) << "one page";
    EXPECT_FALSE(fs::exists(m_folder.Path("home")));
}

TEST_F(HopcastExport, ItsCsvHasTheNumbersOfHopcastPredict)
{
    const std::string sFile = m_folder.Path("card.csv");
    ASSERT_EQ(Export(sFile, {"--need", "FT8"}).nStatus, 0);
    const std::vector<Words> aCard = CsvLines(BytesRead(sFile));
    ASSERT_EQ(aCard.size(), 25U);
    EXPECT_EQ(aCard[0], (Words{"UTC", "Ship", "Best", "5000", "7100", "10100", "14100"}));

    Words asWords{TEST_BIN "/hopcast-predict", "--format", "csv"};
    asWords.insert(asWords.end(), kPath.begin(), kPath.end());
    const ProgramResult predict = ProgramRun(asWords);
    ASSERT_EQ(predict.nStatus, 0) << predict.sError;
    const std::vector<Words> aPredict = CsvLines(predict.sOut);
    ASSERT_EQ(aPredict.size(), 1U + 24 * 4);
    const auto Column = [&aPredict](const char* sName) {
        const auto it = std::find(aPredict[0].begin(), aPredict[0].end(), sName);
        return static_cast<std::size_t>(it - aPredict[0].begin());
    };
    int nSeen = 0;
    for (std::size_t n = 1; n < aPredict.size(); ++n) {
        const Words& asRow = aPredict[n];
        const auto iLine = static_cast<std::size_t>(std::stoi(asRow.at(Column("hour"))));
        const auto itColumn = std::find(aCard[0].begin(), aCard[0].end(), asRow.at(Column("khz")));
        ASSERT_NE(itColumn, aCard[0].end());
        const double dCard =
            std::stod(aCard[iLine].at(static_cast<std::size_t>(itColumn - aCard[0].begin())));
        const double dPredict = std::max(-99.0, std::stod(asRow.at(Column("snr_db"))));
        EXPECT_NEAR(dCard, dPredict, 0.501) << n;
        ++nSeen;
    }
    EXPECT_EQ(nSeen, 24 * 4);
}

TEST_F(HopcastExport, APictureBySuffix)
{
    const std::string sFile = m_folder.Path("card.PNG");
    ASSERT_EQ(Export(sFile).nStatus, 0);
    EXPECT_EQ(BytesRead(sFile).substr(0, 4), "\x89PNG");
}

TEST_F(HopcastExport, AnAreaIsAMapWithACaption)
{
    const std::string sFile = m_folder.Path("map.png");
    const auto MapExport = [](const std::string& sTo, const char* sHour, const char* sModel) {
        return ProgramRun({TEST_BIN "/hopcast",
                           "--export",
                           sTo,
                           "--area",
                           "60,150,-10,-100",
                           "--hour",
                           sHour,
                           "--rc",
                           "15.375,-132.6875",
                           "--frequency",
                           "14100",
                           "--grid",
                           "20",
                           "--ssn",
                           "62",
                           "--month",
                           "11",
                           "--power",
                           "100",
                           "--model",
                           sModel});
    };
    const ProgramResult res = MapExport(sFile, "6", "rec533");
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sOut, "");
    const std::string sPng = BytesRead(sFile);
    ASSERT_EQ(sPng.substr(0, 4), "\x89PNG");
    // The line below the map is also stored in the file as its description.
    const std::string sText =
        QImage(QString::fromStdString(sFile)).text(QStringLiteral("Description")).toStdString();
    for (const char* sPart :
         {"Receiver 15\xC2\xB0"
          "22.50'N 132\xC2\xB0"
          "41.25'W",
          "14100 kHz", "06:00 UTC", "dB in 1 Hz", "100 W", "REC533", "November", "SSN 62"})
        EXPECT_NE(sText.find(sPart), std::string::npos) << sPart << "\n" << sText;
    // Another hour gives another picture.
    ASSERT_EQ(MapExport(m_folder.Path("other.png"), "18", "rec533").nStatus, 0);
    EXPECT_NE(BytesRead(m_folder.Path("other.png")), sPng);
    const ProgramResult resEngine = MapExport(m_folder.Path("none.png"), "6", "icepac");
    EXPECT_EQ(resEngine.nStatus, 1);
    EXPECT_FALSE(fs::exists(m_folder.Path("none.png")));
}

TEST_F(HopcastExport, WrongUsageIsRefusedBeforeAnythingIsPredicted)
{
    struct Case {
        Words asWords;
        std::string sWhy;
    };
    const std::string sFile = m_folder.Path("card.pdf");
    const std::string sMap = m_folder.Path("map.png");
    for (const Case& wrong :
         {Case{{"--export"}, "--export: a file is missing"},
          Case{{"--export="}, "--export: a file is missing"},
          Case{{"--export", "--tx"}, "--export: a file is missing"},
          Case{{"--export", sFile, "--export=" + sFile}, "--export: given twice"},
          Case{{"--export", m_folder.Path("card.txt")}, ".csv, .png or .pdf"},
          Case{{"--export", sFile, "--area", "1,2,0,3"},
               "--export: a map (--area) is written as .png, not as " + sFile},
          Case{{"--export", sMap, "--area=1,2,0,3", "--day"}, "--day: does not go with --export"},
          Case{{"--export", sMap, "--area", "1,2,0,3", "--hour", "6"}, "--frequency"},
          Case{{"--export", sFile, "--compare", "voacap"}, "--compare: does not go with --export"},
          Case{{"--export", sFile, "--format=csv"}, "--format: does not go with --export"},
          Case{{"--export", sFile, "--frobnicate"}, "unknown option --frobnicate"},
          Case{{"--export", sFile, "--month", "13"}, "--month: "}}) {
        Words asWords{TEST_BIN "/hopcast"};
        asWords.insert(asWords.end(), wrong.asWords.begin(), wrong.asWords.end());
        const ProgramResult res = ProgramRun(asWords);
        EXPECT_EQ(res.nStatus, 2) << wrong.sWhy;
        EXPECT_TRUE(res.sError.starts_with("hopcast: ")) << res.sError;
        EXPECT_NE(res.sError.find(wrong.sWhy), std::string::npos) << res.sError;
        EXPECT_FALSE(fs::exists(sFile) || fs::exists(sMap));
    }
}

TEST_F(HopcastExport, AFailureIsToldOnStandardErrorWithStatusOne)
{
    const ProgramResult resFile = Export(m_folder.Path("file/card.pdf"));
    EXPECT_EQ(resFile.nStatus, 1);
    EXPECT_TRUE(resFile.sError.find("hopcast: --export: ") != std::string::npos) << resFile.sError;
    const std::string sFile = m_folder.Path("card.pdf");
    const ProgramResult resEngine = Export(sFile, {"--model", "icepac"});
    EXPECT_EQ(resEngine.nStatus, 1);
    EXPECT_NE(resEngine.sError.find("hopcast: "), std::string::npos);
    EXPECT_FALSE(fs::exists(sFile));
}

TEST_F(HopcastExport, AFullDiskLeavesTheOldFileWhole)
{
    // A writable home, so that the engine root is provisioned before the disk is full. The limit
    // still leaves room for the engine's 16 KB.
    const EnvironmentSet envData("XDG_DATA_HOME", m_folder.Path("data"));
    ASSERT_EQ(Export(m_folder.Path("first.csv")).nStatus, 0);
    for (const std::string sSuffix : {"png", "pdf"}) {
        const std::string sFile = m_folder.Write("out/card." + sSuffix, "what was there before");
        Words asWords{
            "/bin/sh",           "-c",       "trap '' XFSZ; ulimit -f 40; exec \"$0\" \"$@\"",
            TEST_BIN "/hopcast", "--export", sFile};
        asWords.insert(asWords.end(), kPath.begin(), kPath.end());
        const ProgramResult res = ProgramRun(asWords);
        EXPECT_EQ(res.nStatus, 1);
        EXPECT_TRUE(res.sError.ends_with("hopcast: --export: " + sFile + ": Disk full\n"))
            << res.sError;
        EXPECT_EQ(BytesRead(sFile), "what was there before");
        EXPECT_EQ(std::distance(fs::directory_iterator(m_folder.Path("out")), {}), 1);
        fs::remove(sFile);
    }
}

TEST_F(HopcastExport, HelpBesideItIsHelp)
{
    const ProgramResult res = Export(m_folder.Path("card.pdf"), {"--help"});
    EXPECT_EQ(res.nStatus, 0);
    EXPECT_NE(res.sOut.find("--export FILE"), std::string::npos);
    EXPECT_FALSE(fs::exists(m_folder.Path("card.pdf")));
}

}  // namespace
