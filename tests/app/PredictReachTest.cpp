/// Stations on the command line: real program, real engines, Airmail's lists and own places.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/HopcastPredictRig.h"
#include "support/NeedVoacapl.h"
#include "support/TempFolder.h"

namespace {

using Row = std::map<std::string, std::string>;  // by column name

std::vector<std::string> FieldsOf(const std::string& sLine)
{
    std::vector<std::string> asField(1);
    bool bQuoted = false;
    for (const char chr : sLine) {
        if (chr == '"')
            bQuoted = !bQuoted;
        else if (chr == ',' && !bQuoted)
            asField.emplace_back();
        else
            asField.back() += chr;
    }
    return asField;
}

std::vector<Row> RowsOf(const std::string& sCsv)
{
    std::istringstream stm(sCsv);
    std::string sLine;
    std::getline(stm, sLine);
    const std::vector<std::string> asName = FieldsOf(sLine);
    std::vector<Row> aRow;
    while (std::getline(stm, sLine)) {
        const std::vector<std::string> asField = FieldsOf(sLine);
        EXPECT_EQ(asField.size(), asName.size()) << sLine;
        Row& row = aRow.emplace_back();
        for (std::size_t n = 0; n < asName.size() && n < asField.size(); ++n)
            row[asName[n]] = asField[n];
    }
    return aRow;
}

/// The number after a name in the program's JSON, as it is written.
std::string JsonNumber(const std::string& sJson, const std::string& sName)
{
    const std::size_t nFrom = sJson.find('"' + sName + "\": ") + sName.size() + 4;
    return sJson.substr(nFrom, sJson.find_first_of(",\n}", nFrom) - nFrom);
}

constexpr const char* kHam =
    "[Station Info]\nXX1NYC=FN30AS:New York, 24 h;3590,7103,14098\n"
    "XX3OSL=JO59JW:Malm\xF8ya, Norge\nXX5BAD=FN4:grid cut short;14109\n"
    "XX6OLD=CN87\n";
constexpr const char* kSail = "[Station Info]\nXX1NYC=EM02QU:Texas, USA;5876,7961,10317\n";
constexpr const char* kPlaces =
    "name,position,frequencies,note\nHome,\"52.5, 13.4\",7050 14100,with us\n"
    "Here,\"24.0, -110.0\",,\nAntipode,\"-24.0, 70.0\",,\nNowhere,somewhere,,\n";

class PredictReach : public HopcastPredict {
protected:
    PredictReach()
        : m_sProfile(
            m_tmp.Write("boat.ini", "[AirMail Data]\nDirectory Data=" + m_tmp.Path("mail") + "\n"))
    {
    }
    void ListsWrite() const
    {
        m_tmp.Write("mail/System.HAM.ini", kHam);
        m_tmp.Write("mail/System.SailMail.ini", kSail);
    }
    void PlacesWrite() const { m_tmp.Write("boat.places.csv", kPlaces); }
    [[nodiscard]] ProgramResult Run(const Words& asMore) const
    {
        Words asWords{"--profile", m_sProfile};
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        return Predict(asWords);
    }
    [[nodiscard]] ProgramResult ReachRun(const std::string& sLists, const Words& asMore) const
    {
        Words asWords{"--reach", sLists, "--ssn", "62", "--month", "11", "--rc", "24,-110"};
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        return Run(asWords);
    }
    /// The rows of a place's single prediction.
    [[nodiscard]] std::vector<Row> SingleGet(const Row& row, const std::string& sModel,
                                             const std::string& sFrequencies,
                                             const std::string& sFormat = "csv") const
    {
        const ProgramResult res =
            Run({"--tx=" + row.at("lat") + "," + row.at("lon"), "--rc", "24,-110", "--ssn", "62",
                 "--month", "11", "--need", "40", "--format", sFormat, "--model", sModel,
                 "--frequencies", sFrequencies});
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        if (sFormat == "csv")
            return RowsOf(res.sOut);
        return {{{"range_nmi", JsonNumber(res.sOut, "range_nmi")},
                 {"bearing_deg", JsonNumber(res.sOut, "azimuth_rc_tx")}}};
    }
    /// Compares every row with the single prediction of its circuit, as text.
    void SinglesExpect(const std::vector<Row>& aRow, const std::string& sModel,
                       const std::string& sFrequencies) const
    {
        std::map<std::string, std::vector<Row>> mapSingle;
        std::map<std::string, Row> mapHead;
        for (const Row& row : aRow) {
            const std::string sPlace = row.at("system") + ":" + row.at("key");
            if (!mapSingle.contains(sPlace)) {
                mapSingle[sPlace] = SingleGet(row, sModel, sFrequencies);
                mapHead[sPlace] = SingleGet(row, sModel, sFrequencies, "json").front();
            }
            EXPECT_EQ(row.at("range_nmi"), mapHead[sPlace].at("range_nmi")) << sPlace;
            EXPECT_EQ(row.at("bearing_deg"), mapHead[sPlace].at("bearing_deg")) << sPlace;
            bool bFound = false;
            for (const Row& single : mapSingle[sPlace]) {
                if (single.at("utc") != row.at("utc"))
                    continue;
                if (single.at("khz") == row.at("khz")) {
                    bFound = true;
                    EXPECT_EQ(row.at("snr_db"), single.at("snr_db")) << sPlace;
                    EXPECT_EQ(row.at("margin_db"), single.at("margin_db")) << sPlace;
                }
                if (!row.at("snr_db").empty()) {
                    EXPECT_LE(std::stod(single.at("snr_db")), std::stod(row.at("snr_db")))
                        << sPlace << ": not the best of the hour";
                }
            }
            EXPECT_TRUE(bFound || row.at("khz").empty()) << sPlace;
        }
    }

    std::string m_sProfile;
};

TEST_F(PredictReach, EveryHourIsTheBestOfTheSinglePredictionToTheDigit)
{
    ListsWrite();
    PlacesWrite();
    const std::string sFrequencies = "3600,7100,10100,14100,18100,21100";
    const ProgramResult res =
        ReachRun("ham,sailmail,places", {"--need", "40", "--frequencies", sFrequencies});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_TRUE(
        res.sOut.starts_with("system,key,lat,lon,range_nmi,bearing_deg,utc,khz,snr_db,margin_db\n"))
        << res.sOut;
    const std::vector<Row> aRow = RowsOf(res.sOut);
    EXPECT_EQ(aRow.size(), 6U * 24) << "two stations of one name, here and the antipode, too";
    SinglesExpect(aRow, "rec533", sFrequencies);
    EXPECT_TRUE(res.sError.starts_with(
        "hopcast-predict: 3 places cannot be used: HAM XX5BAD (its grid square \"FN4\" cannot be "
        "read), HAM XX6OLD (it has no grid square), line 5 ("))
        << res.sError;
    EXPECT_EQ(std::count(res.sError.begin(), res.sError.end(), '\n'), 1) << res.sError;
}

TEST_F(PredictReach, RowsOfVoacapAreThoseOfSinglePredictions)
{
    NEED_VOACAPL();
    ListsWrite();
    const ProgramResult res = ReachRun(
        "ham,sailmail", {"--need", "40", "--frequencies", "7100,14100", "--model", "voacap"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    const std::vector<Row> aRow = RowsOf(res.sOut);
    EXPECT_EQ(aRow.size(), 3U * 24);
    SinglesExpect(aRow, "voacap", "7100,14100");
}

TEST_F(PredictReach, AllGivesEveryFrequencyOfTheHoursInTheirOrder)
{
    ListsWrite();
    const ProgramResult res =
        ReachRun("sailmail", {"--need", "40", "--from", "23", "--hours", "2", "--all"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sError, "") << "the ham list's faults are none of this list's";
    const std::vector<Row> aRow = RowsOf(res.sOut);
    ASSERT_EQ(aRow.size(), 6U);
    const std::vector<Row> aSingle = SingleGet(aRow[0], "rec533", "5876,7961,10317");
    for (std::size_t n = 0; n < 6; ++n) {
        const Row& single = aSingle.at(n < 3 ? 23 * 3 + n : n - 3);
        for (const char* sName : {"utc", "khz", "snr_db", "margin_db"})
            EXPECT_EQ(aRow[n].at(sName), single.at(sName)) << n << " " << sName;
    }
}

TEST_F(PredictReach, OwnFrequenciesAreTakenUnlessTheUserGivesSome)
{
    ListsWrite();
    const auto FrequenciesGet = [&](const Words& asMore) {
        Words asWords{"--need", "40", "--all", "--hours", "1"};
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        std::map<std::string, std::set<std::string>> mapFrequencies;
        for (const Row& row : RowsOf(ReachRun("ham", asWords).sOut))
            mapFrequencies[row.at("key")].insert(row.at("khz"));
        return mapFrequencies;
    };
    auto mapOwn = FrequenciesGet({});
    EXPECT_EQ(mapOwn["XX1NYC"], (std::set<std::string>{"3590", "7103", "14098"}));
    EXPECT_EQ(mapOwn["XX3OSL"].size(), 15U) << "a list without any: those of the settings";
    auto mapGiven = FrequenciesGet({"--frequencies", "7000"});
    EXPECT_EQ(mapGiven["XX1NYC"], (std::set<std::string>{"7000"}));
    EXPECT_EQ(mapGiven["XX3OSL"], (std::set<std::string>{"7000"}));
}

TEST_F(PredictReach, WithoutANeedOneIsTakenAndNamed)
{
    PlacesWrite();
    const Words asHour{"--from", "12", "--hours", "1"};
    const ProgramResult res = ReachRun("places", asHour);
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_TRUE(res.sError.starts_with(
        "hopcast-predict: No need is given; using E-mail, normal: 40 dB in 1 Hz\n"))
        << res.sError;
    Words asNeed = asHour;
    asNeed.insert(asNeed.end(), {"--need", "e-mail, NORMAL"});
    const ProgramResult resNeed = ReachRun("places", asNeed);
    EXPECT_EQ(resNeed.sOut, res.sOut);
    EXPECT_EQ(resNeed.sError.find("No need"), std::string::npos);
    m_tmp.Write("boat.ini", "[Need Data]\nSelected=SSB, clear\n");
    EXPECT_TRUE(ReachRun("places", asHour)
                    .sError.starts_with(
                        "hopcast-predict: No need is given; using SSB, clear: 55 dB in 1 Hz\n"));
}

TEST_F(PredictReach, WithoutAirmailMyPlacesAreThere)
{
    PlacesWrite();
    const ProgramResult res = ReachRun("places", {"--need", "40", "--from", "12", "--hours", "1"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(RowsOf(res.sOut).size(), 3U);
    EXPECT_EQ(res.sError.find("System.*.ini"), std::string::npos)
        << "nobody asked for Airmail's lists: " << res.sError;
    const ProgramResult resBoth =
        ReachRun("ham,places", {"--need", "40", "--from", "12", "--hours", "1"});
    EXPECT_EQ(resBoth.nStatus, 0);
    EXPECT_EQ(resBoth.sOut, res.sOut);
    EXPECT_NE(resBoth.sError.find("Unable to find AirMail's \"System.*.ini\" files."),
              std::string::npos)
        << resBoth.sError;
}

TEST_F(PredictReach, WhereNoPlaceIsLeftTheStatusIs1AndNothingIsPrinted)
{
    const auto Fails = [&](const ProgramResult& res) {
        EXPECT_EQ(res.nStatus, 1);
        EXPECT_EQ(res.sOut, "");
        EXPECT_TRUE(
            res.sError.ends_with("hopcast-predict: The lists have no place that can be used.\n"))
            << res.sError;
    };
    Fails(ReachRun("places", {}));
    Fails(Run({"--list-stations"}));
    m_tmp.Write("mail/System.HAM.ini", "[Station Info]\n");
    Fails(ReachRun("ham", {}));
    m_tmp.Write("mail/System.HAM.ini", "[Station Info]\nXX5BAD=FN4:grid cut short;14109\n");
    const ProgramResult res = ReachRun("ham", {});
    Fails(res);
    EXPECT_NE(res.sError.find("1 place cannot be used: HAM XX5BAD ("), std::string::npos);
}

TEST_F(PredictReach, AnEngineThatIsNotThereIsToldOnce)
{
    PlacesWrite();
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_tmp.Path("empty"));
    const ProgramResult res = ReachRun("places", {"--model", "icepac", "--need", "40"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_TRUE(res.sError.starts_with("hopcast-predict: Propagation Model ICEPAC not found."))
        << res.sError;
    EXPECT_EQ(res.sError.find("not found", res.sError.find("not found") + 1), std::string::npos);
}

TEST_F(PredictReach, APlaceWhosePredictionFailsIsNamedAndTheOthersStay)
{
    // The settings have no frequencies, so a place without its own has none.
    m_tmp.Write(
        "boat.places.csv",
        "name,position,frequencies,note\nHome,\"52.5, 13.4\",7050,\nBare,\"10.0, 10.0\",,\n");
    m_tmp.Write("boat.ini", "[Propagation Data]\nCount=0\n");
    const ProgramResult res = ReachRun("places", {"--need", "40", "--hours", "1"});
    EXPECT_EQ(res.nStatus, 0);
    const std::vector<Row> aRow = RowsOf(res.sOut);
    ASSERT_EQ(aRow.size(), 1U);
    EXPECT_EQ(aRow[0].at("key"), "Home");
    EXPECT_EQ(res.sError,
              "hopcast-predict: 1 place cannot be used: places Bare (No frequency is within the "
              "engine's range.)\n");
}

TEST_F(PredictReach, TheStationsAreListedWithTheirOwnFrequencies)
{
    ListsWrite();
    PlacesWrite();
    const ProgramResult res = Run({"--list-stations", "--output", m_tmp.Path("stations.csv")});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sOut, "");
    EXPECT_TRUE(res.sError.starts_with("hopcast-predict: 3 places cannot be used: ")) << res.sError;
    const std::string sCsv = BytesRead(m_tmp.Path("stations.csv"));
    EXPECT_TRUE(
        sCsv.starts_with("system,key,description,lat,lon,khz\n"
                         "HAM,XX1NYC,\"New York, 24 h\",40.7"))
        << sCsv;
    const std::vector<Row> aRow = RowsOf(sCsv);
    ASSERT_EQ(aRow.size(), 6U);
    EXPECT_EQ(aRow[0].at("khz"), "3590 7103 14098");
    EXPECT_EQ(aRow[1].at("description"), "Malm\xC3\xB8ya, Norge");
    EXPECT_EQ(aRow[1].at("khz"), "");
    EXPECT_EQ(aRow[2].at("system"), "SailMail");
    EXPECT_EQ(aRow[2].at("key"), "XX1NYC") << "two of one name are two stations";
    EXPECT_EQ(aRow[3].at("system"), "places");
    EXPECT_EQ(aRow[3].at("lat"), "52.5");
    EXPECT_EQ(aRow[3].at("description"), "with us");
}

}  // namespace
