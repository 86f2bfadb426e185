/// What docs/files.md says about files, their lines and keys is what the code reads and writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "airmail/AirMailLib.h"
#include "house/DocumentTable.h"
#include "house/HouseFiles.h"
#include "house/SourceTexts.h"
#include "places/OwnPlaces.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "settings/ForecastFile.h"
#include "settings/ForecastReader.h"
#include "support/MsgRecorder.h"
#include "system/FileLib.h"
#include "system/LeftoverLib.h"
#include "system/NumberLib.h"
#include "system/UserFolders.h"

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

const std::regex kQuoted("`([^`\n]+)`");

/// The names in backticks in one column of a table.
std::vector<std::string> NamedIn(const std::vector<TableRow>& aRow, std::size_t iColumn)
{
    std::vector<std::string> asName;
    for (const TableRow& asCell : aRow)
        for (const std::string& sName : MatchesGet(asCell.at(iColumn), kQuoted))
            asName.push_back(sName);
    return asName;
}

/// "RUN\sound.dat" of "c:\itshfbc\RUN\sound.dat" without its folders.
std::string LeafGet(const std::string& sPath)
{
    const std::size_t nSlash = sPath.find_last_of("\\/");
    return nSlash == std::string::npos ? sPath : sPath.substr(nSlash + 1);
}

const char* const kGlance = "| file | read | written | by |";

TEST(DocumentsFiles, EveryFileOfTheEnginesIsToldAtAGlance)
{
    Names asTold;
    for (const std::string& sName : NamedIn(TableRead("files.md", kGlance), 0)) {
        asTold.insert(LeafGet(sName));
        if (sName.starts_with("."))
            asTold.insert("working" + sName);
    }
    Names asWanted{kManifest,
                   "hopcast-engines.lock",
                   "hopcast.lock.next",
                   "NAME.ini",
                   OwnPlacesPath("NAME.ini"),
                   ForecastFilePath("NAME.ini"),
                   kAirMailIniFile,
                   "Install.log",
                   "user.reg"};
    for (const std::string_view sPath : {kSoundDeck, kSoundOutput, kEngineConsole, kEngineLock})
        asWanted.insert(LeafGet(std::string(sPath)));
    for (const int iModel : {kEngineIcepac, kEngineVoacap, kEngineRec533}) {
        const EngineProgram& engine = *EngineFind(iModel);
        for (const std::string_view sName : {engine.sProgram, engine.sAreaDeck, engine.sAreaGrid})
            asWanted.insert(std::string(sName));
    }
    for (const std::string& sName : asWanted) EXPECT_TRUE(asTold.contains(sName)) << sName;
    EXPECT_GT(asWanted.size(), 20U);
}

/// The fixed parts of a documented name, between placeholders and separators.
std::vector<std::string> FixedParts(const std::string& sName)
{
    static const std::regex kAny("PID|NAME|XX+|\\bN\\b|[*]|[.][.][.]|[\\\\/]");
    std::vector<std::string> asPart;
    for (std::sregex_token_iterator it(sName.begin(), sName.end(), kAny, -1), itEnd; it != itEnd;
         ++it)
        if (const std::string sPart = *it; sPart.size() > 1)
            asPart.push_back(sPart);
    return asPart;
}

TEST(DocumentsFiles, NamesAtAGlanceAreThoseOfTheSources)
{
    int nParts = 0;
    for (const std::string& sName : NamedIn(TableRead("files.md", kGlance), 0)) {
        if (sName.starts_with("hopcast-"))  // command lines of programs
            continue;
        for (std::string sPart : FixedParts(sName)) {
            if (sPart == "hopcast.lock.next")  // any lock may be waited for
                sPart = ".next";
            EXPECT_TRUE(SourceTextsHave(sPart)) << sName << ": " << sPart;
            ++nParts;
        }
    }
    EXPECT_GT(nParts, 30);
}

/// A name of that form: numbers for numbers, letters for random characters.
std::string NameLike(std::string sName)
{
    sName = std::regex_replace(sName, std::regex("PID|\\bN\\b"), "12");
    std::replace(sName.begin(), sName.end(), 'X', 'a');
    return sName;
}

/// Makes files and folders, last changed two days ago, with the names of a table's first column.
std::vector<fs::path> OldMake(const fs::path& pthFolder, const std::vector<std::string>& asName)
{
    std::vector<fs::path> aPath;
    for (std::string sName : asName) {
        const bool bFolder = sName.ends_with(".run") || sName.ends_with("XXXXXX");
        fs::path pth = pthFolder / NameLike(sName);
        if (sName == ".new") {
            pth = aPath.back();
            pth.replace_extension(sName);
        }
        if (bFolder || sName == ".new")
            fs::create_directory(pth);
        else
            std::ofstream(pth) << "x";
        fs::last_write_time(pth, fs::file_time_type::clock::now() - 2 * kLeftoverAge);
        aPath.push_back(pth);
    }
    return aPath;
}

const char* const kMoment = "| name | where | what it is |";

/// LeftoversRemove leaves the others alone: the next output or engine replaces them, and
/// TemporaryRootsRemove clears $TMPDIR.
TEST(DocumentsFiles, FilesThatLiveForAMomentGoWhenTheyAreOld)
{
    const TempFolder folder;
    const std::vector<std::string> asName = NamedIn(TableRead("files.md", kMoment), 0);
    const std::vector<fs::path> aPath = OldMake(folder.Path(), asName);
    LeftoversRemove(folder.Path());
    std::vector<std::string> asGone;
    for (std::size_t n = 0; n < asName.size(); ++n)
        if (!fs::exists(aPath[n]))
            asGone.push_back(asName[n]);
    EXPECT_EQ(asGone,
              (std::vector<std::string>{".hopcast-PID-N", "voacapw.XXXXXXXXXXXX.run", ".new"}));
}

TEST(DocumentsFiles, NamesThatLiveForAMomentAreThoseOfTheSources)
{
    Names asPart;
    for (const std::string& sName : NamedIn(TableRead("files.md", kMoment), 0))
        for (const std::string& sPart : FixedParts(sName)) asPart.insert(sPart);
    // The built-in engine renames its outputs into place.
    for (const char* sOutput : {"sound.out", "working.rg1"}) {
        const std::string sPart = std::string(sOutput) + ".part";
        EXPECT_EQ(asPart.erase(sPart), 1U) << sPart;
        EXPECT_TRUE(SourceTextsHave(sOutput)) << sOutput;
    }
    EXPECT_TRUE(SourceTextsGet().contains(".part"));
    EXPECT_EQ(asPart,
              (Names{".hopcast-", ".hopcast-engine-", ".new", ".run", "hopcast-", "voacapw."}));
    for (const std::string& sPart : asPart) EXPECT_TRUE(SourceTextsHave(sPart)) << sPart;
}

/// A row of the table of Airmail.ini.
struct IniRow {
    std::string sSection;
    std::vector<std::string> asKey;
    std::string sUse;
};

std::vector<IniRow> IniRows()
{
    std::vector<IniRow> aRow;
    for (const TableRow& asCell : TableRead("files.md", "| section | key | used for |")) {
        const auto asSection = MatchesGet(asCell.at(0), kQuoted);
        aRow.push_back({asSection.empty() ? aRow.back().sSection : asSection.front(),
                        MatchesGet(asCell.at(1), kQuoted), asCell.at(2)});
    }
    return aRow;
}

/// Writes an Airmail.ini with some of the rows; each position has a different latitude.
class AirMailIniFile {
public:
    AirMailIniFile() { AirMailDataFolderSet(m_folder.Path()); }
    ~AirMailIniFile() { AirMailFoldersReset(); }
    AirMailIniFile(const AirMailIniFile&) = delete;
    AirMailIniFile& operator=(const AirMailIniFile&) = delete;

    void Write(const std::vector<IniRow>& aRow) const
    {
        std::map<std::string, std::string> sectionLines;
        for (const IniRow& row : aRow)
            for (const std::string& sKey : row.asKey)
                sectionLines[row.sSection] += sKey + "=" + ValueGet(row, sKey) + "\n";
        std::string sText;
        for (const auto& [sSection, sLines] : sectionLines)
            sText += "[" + sSection + "]\n" + sLines;
        (void)m_folder.Write(kAirMailIniFile, sText);
    }
    /// The latitude read, or 0 without a position, and whether it has a time.
    static std::pair<double, bool> PositionRead()
    {
        double dLat = 0.0;
        double dLon = 0.0;
        DateTime dtTime;
        Messages aMessages;
        const auto res = AirMailPositionGet(dLat, dLon, dtTime, &aMessages);
        return {res && res.ValueGet() ? dLat : 0.0, !dtTime.IsZero()};
    }
    /// 10 for the first choice, 20 for the second ...
    static int LatitudeOf(const IniRow& row)
    {
        const std::vector<std::string> asChoice{"first", "second", "third"};
        for (std::size_t n = 0; n < asChoice.size(); ++n)
            if (row.sUse.find(asChoice[n] + " choice") != std::string::npos)
                return 10 * (static_cast<int>(n) + 1);
        return 0;
    }

private:
    static std::string ValueGet(const IniRow& row, const std::string& sKey)
    {
        if (sKey.ends_with("Latitude"))
            return std::to_string(LatitudeOf(row)) + "\xB0" "00.00'N";
        if (sKey.ends_with("Longitude"))
            return "020\xB0"
                   "15.00'W";
        return sKey.find("Time") != std::string::npos ? "2026-11-21 11:02" : "3.1.936";
    }
    TempFolder m_folder;
};

TEST(DocumentsFiles, KeysOfAirmailsPositionAreThoseThatAreRead)
{
    const AirMailIniFile file;
    std::vector<IniRow> aPlace = IniRows();
    std::erase_if(aPlace, [](const IniRow& row) { return AirMailIniFile::LatitudeOf(row) == 0; });
    ASSERT_EQ(aPlace.size(), 3U);
    for (std::size_t n = 0; n < aPlace.size(); ++n) {
        const IniRow& row = aPlace[n];
        const double dLat = 10.0 * (static_cast<double>(n) + 1.0);
        const bool bTime = row.sUse.ends_with("; needs its time");
        EXPECT_NE(bTime, row.sUse.ends_with("; no time")) << row.sUse;
        // A position is read if those before it are missing, and precedes those after it.
        file.Write({aPlace.begin() + static_cast<std::ptrdiff_t>(n), aPlace.end()});
        EXPECT_EQ(AirMailIniFile::PositionRead(), (std::pair{dLat, bTime})) << row.sUse;
        // All of its keys are needed, and no others.
        file.Write({row});
        EXPECT_EQ(AirMailIniFile::PositionRead(), (std::pair{dLat, bTime})) << row.sUse;
        for (std::size_t nKey = 0; nKey < row.asKey.size(); ++nKey) {
            IniRow rowLess = row;
            rowLess.asKey.erase(rowLess.asKey.begin() + static_cast<std::ptrdiff_t>(nKey));
            file.Write({rowLess});
            EXPECT_EQ(AirMailIniFile::PositionRead().first, 0.0) << row.asKey[nKey];
        }
    }
}

TEST(DocumentsFiles, OtherKeysOfAirmailAreThoseThatAreRead)
{
    const AirMailIniFile file;
    int nRead = 0;
    for (const IniRow& row : IniRows()) {
        file.Write({row});
        if (row.sUse == "sunspot number") {
            EXPECT_EQ(AirMailSunSpotNumberGet(CallMessages()), "3.1.936");
            ++nRead;
        }
        if (row.sUse.starts_with("shown in the options; ")) {
            // There is no notice that another version was tested.
            EXPECT_EQ(AirMailVersionText(), "Airmail 3.1.936");
            EXPECT_NE(row.sUse.find("; 3.1.936 is the one "), std::string::npos) << row.sUse;
            ++nRead;
        }
    }
    EXPECT_EQ(nRead, 2);
}

TEST(DocumentsFiles, ColumnsOfMyPlacesAreThoseOfTheFile)
{
    const auto Most = [](std::size_t n) { return std::to_string(n); };
    std::vector<TableRow> aWanted{
        {"column", "content"},
        {"`name`", "1 to " + Most(kOwnNameMost) + " characters; two places may have one name"},
        {"`position`",
         "in any spelling that can be pasted into a position field, or a grid square"},
        {"`frequencies`", "up to " + Most(kOwnFrequenciesMost) + " of "
                              + NumberToText(kOwnFrequencyLeast) + " to "
                              + NumberToText(kOwnFrequencyMost)
                              + " kHz, separated by blanks, commas, semicolons or slashes; may be "
                                "empty"},
        {"`note`", "up to " + Most(kOwnNoteMost) + " characters; may be empty"}};
    TableCheck("files.md", aWanted);
    std::string sHead;
    for (std::size_t n = 1; n < aWanted.size(); ++n) {
        const std::string sName = aWanted[n][0].substr(1, aWanted[n][0].size() - 2);
        sHead += (n == 1 ? "" : ",") + sName;
    }
    EXPECT_EQ(sHead, kOwnPlacesHead);
}

std::string ForecastLineTold(const std::string& sLine)
{
    for (const TableRow& asCell : TableRead("files.md", "| line | content |"))
        if (asCell.at(0) == sLine)
            return asCell.at(1);
    return "";
}

TEST(DocumentsFiles, WordsOfTheForecastsFileAreThoseThatAreWritten)
{
    Names asWord;
    for (const auto eSource : {ForecastSource::Noaa, ForecastSource::Silso, ForecastSource::Wwv})
        for (const auto eDating :
             {ForecastDating::Issued, ForecastDating::Mailed, ForecastDating::Read}) {
            const SunSpotForecast forecast{eSource, eDating, {2026, 11, 20}, {{2026, 11, 87.9}}};
            const std::string sText = ForecastFileText(forecast);
            const std::size_t nLine = sText.find('\n') + 1;
            const std::size_t nBlank = sText.find(' ', nLine);
            asWord.insert(sText.substr(nLine, nBlank - nLine));
            asWord.insert(sText.substr(nBlank + 1, sText.find(' ', nBlank + 1) - nBlank - 1));
        }
    EXPECT_EQ(asWord.size(), 6U);
    const auto asTold = MatchesGet(ForecastLineTold("second"), kQuoted);
    EXPECT_EQ(Names(asTold.begin(), asTold.end()), asWord);
}

TEST(DocumentsFiles, TheHashOfTheForecastsFileIsTheOneThatIsTold)
{
    EXPECT_EQ(
        ForecastLineTold("last"),
        "`end` and a hash of all lines before: FNV-1a, 32 bits, hexadecimal, each line with LF");
    const std::string sLines = "one\ntwo\n";
    std::uint32_t nHash = 2166136261U;
    for (const char c : sLines) nHash = (nHash ^ static_cast<unsigned char>(c)) * 16777619U;
    std::ostringstream stm;
    stm << "end " << std::hex << nHash << "\n";
    EXPECT_EQ(ForecastFileEnded(sLines), sLines + stm.str());
}

TEST(DocumentsFiles, TheExampleOfAForecastIsOneThatIsKept)
{
    const std::string sDocument = DocumentRead("files.md");
    const std::size_t nFrom = sDocument.find("Hopcast sunspot forecast 1\n");
    ASSERT_NE(nFrom, std::string::npos);
    const std::string sExample = sDocument.substr(nFrom, sDocument.find("```", nFrom) - nFrom);
    const auto res = ForecastFileParse(sExample);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_EQ(ForecastFileText(res.ValueGet()), sExample);
}

TEST(DocumentsFiles, ForecastsHaveTheScalesOfTheirReaders)
{
    const std::string sVersion2 = "version 2, 0 to " + NumberToText(kVersion2Most);
    const std::string sTimes = "times " + NumberToText(kVersion2Factor);
    TableCheck(
        "files.md",
        {{"source", "format", "scale", "sunspot number"},
         {"NOAA's predicted solar cycle",
          "a JSON array of objects with `time-tag` (`2026-11`) and `predicted_ssn`", sVersion2,
          sTimes},
         {"SILSO's KFprediCM",
          "rows of year, month, year as a decimal, number, and mostly its error", sVersion2,
          sTimes},
         {"bulletin of WWV", "`:Issued: 2026 Nov 21`, `Solar flux 123 and`",
          "10.7 cm flux of one day, " + NumberToText(kFluxLeast) + " to " + NumberToText(kFluxMost),
          "R from F = 63.7 + 0.728 R + 0.00089 R^2; for the current month alone"}});
    // The formula of the last row, and the texts that the first and the last one name.
    EXPECT_NEAR(SunSpotFromFlux(63.7 + 0.728 * 100.0 + 0.00089 * 100.0 * 100.0), 100.0, 1e-9);
    const DateTime dtToday{2026, 11, 22};
    const auto resNoaa =
        ForecastFromText(R"([{"time-tag":"2026-11","predicted_ssn":80}])", dtToday);
    ASSERT_TRUE(resNoaa) << resNoaa.TextGet();
    EXPECT_EQ(resNoaa.ValueGet().eSource, ForecastSource::Noaa);
    const auto resWwv =
        ForecastFromText(":Issued: 2026 Nov 21 1505 UTC\nSolar flux 123 and estimated\n", dtToday);
    ASSERT_TRUE(resWwv) << resWwv.TextGet();
    EXPECT_EQ(resWwv.ValueGet().eSource, ForecastSource::Wwv);
}

/// With EveryVariableOfTheEnvironmentIsNamed this makes the two lists equal.
TEST(DocumentsFiles, OtherInputsAreNamesThatTheSourcesHave)
{
    int nNames = 0;
    for (const std::string& sTold : NamedIn(TableRead("files.md", "| name | what it does |"), 0)) {
        const std::string sName = sTold.substr(0, sTold.find('='));
        // The C++ library reads TMPDIR for the folder of temporary files.
        EXPECT_TRUE(sName == "TMPDIR" || SourceTextsGet().contains(sName)) << sName;
        ++nNames;
    }
    EXPECT_GT(nNames, 12);
}

TEST(DocumentsFiles, ThePrivateRootIsWhereTheTableSays)
{
    const auto aRow = TableRead("files.md", "| platform | place |");
    ASSERT_EQ(aRow.size(), 2U);
    EXPECT_EQ(aRow[0].at(1), "`%LOCALAPPDATA%\\Hopcast\\itshfbc`");
    for (const char* sPart : {"LOCALAPPDATA", "Hopcast", "itshfbc"})
        EXPECT_TRUE(SourceTextsGet().contains(sPart)) << sPart;
    std::vector<std::string> asWanted;
    const EnvironmentSet home("HOME", "/h");
    for (const char* sData : {"/d", ""}) {
        const EnvironmentSet data("XDG_DATA_HOME", sData);
        std::string sFolder = PrivateRootFolders().at(0);
        if (sFolder.starts_with("/d/"))
            sFolder.replace(0, 2, "$XDG_DATA_HOME");
        else if (sFolder.starts_with("/h/"))
            sFolder.replace(0, 2, "~");
        asWanted.push_back(sFolder);
    }
    EXPECT_EQ(MatchesGet(aRow[1].at(1), kQuoted), asWanted);
}

}  // namespace
