#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/predict/PredictOptions.h"
#include "app/predict/PredictPosition.h"
#include "app/predict/PredictPrint.h"
#include "settings/SettingsRange.h"
#include "support/TempFolder.h"
#include "system/NumberLib.h"

namespace {

using Words = std::vector<std::string>;

struct BadCase {
    const char* sName;
    Words asWords;
    const char* sExpected;
};
std::ostream& operator<<(std::ostream& stm, const BadCase& c) { return stm << c.sName; }
class PredictBad : public testing::TestWithParam<BadCase> {};
TEST_P(PredictBad, IsOneLineThatNamesTheOption)
{
    const auto res = PredictOptionsGet(GetParam().asWords);
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(), GetParam().sExpected);
}
INSTANTIATE_TEST_SUITE_P(
    All, PredictBad,
    testing::Values(
        BadCase{"unknown", {"--colour", "3"}, "unknown option --colour (see --help)"},
        BadCase{"word", {"38,-122"}, "unknown option 38,-122 (see --help)"},
        BadCase{"value_missing_at_end", {"--month"}, "--month: a value is missing"},
        BadCase{"value_missing_before_option",
                {"--month", "--ssn", "3"},
                "--month: a value is missing"},
        BadCase{"value_empty", {"--output="}, "--output: a value is missing"},
        BadCase{"twice", {"--ssn", "1", "--ssn=2"}, "--ssn: given twice"},
        BadCase{"day_without_area", {"--day"}, "--day: goes with --area only"},
        BadCase{"day_with_value", {"--area", "1,2,0,3", "--day=1"}, "--day: takes no value"},
        BadCase{"day_with_hour",
                {"--area", "1,2,0,3", "--day", "--hour", "3"},
                "--hour: does not go with --day"},
        BadCase{"day_with_frequency",
                {"--area", "1,2,0,3", "--frequency", "7000", "--day"},
                "--frequency: does not go with --day"},
        BadCase{"jobs_without_day",
                {"--area", "1,2,0,3", "--hour", "3", "--frequency", "7000", "--jobs", "2"},
                "--jobs: goes with --day only"},
        BadCase{
            "frequencies_with_one_hour",
            {"--area", "1,2,0,3", "--hour", "3", "--frequency", "7000", "--frequencies", "1000"},
            "--frequencies: does not go with --area"},
        BadCase{"latitude_91", {"--tx", "91,0"}, "--tx: latitude 91 is outside -90 to 90"},
        BadCase{"longitude_181", {"--rc", "0,-181"}, "--rc: longitude -181 is outside -180 to 180"},
        BadCase{"position_word",
                {"--rc", "home"},
                "--rc: \"home\" is not a position; give LAT,LON in degrees (38,-122), "
                "38°30.00'N,122°15.00'W, a grid square (FN42), airmail or a station (ham:KEY)"},
        BadCase{"month_0", {"--month", "0"}, "--month: \"0\" is not a month, 1 to 12"},
        BadCase{"month_13", {"--month=13"}, "--month: \"13\" is not a month, 1 to 12"},
        BadCase{"month_half", {"--month", "1.5"}, "--month: \"1.5\" is not a whole number"},
        BadCase{"sixteen",
                {"--frequencies",
                 "1000,2000,3000,4000,5000,6000,7000,8000,9000,10000,11000,12000,13000,14000,15000,"
                 "16000"},
                "--frequencies: 16 frequencies given; at most 15 are taken"},
        BadCase{"frequency_0",
                {"--frequencies", "14000,0"},
                "--frequencies: \"0\" is not a frequency in kHz, 100 to 45000"},
        BadCase{"frequency_text",
                {"--frequencies", "14000,x"},
                "--frequencies: \"x\" is not a frequency in kHz, 100 to 45000"},
        BadCase{"frequency_empty",
                {"--frequencies", "14000,"},
                "--frequencies: \"\" is not a frequency in kHz, 100 to 45000"},
        BadCase{
            "ssn", {"--ssn", "312"}, "--ssn: \"312\" is not a smoothed sunspot number, 0 to 311"},
        BadCase{"ssn_word",
                {"--ssn", "noaa"},
                "--ssn: \"noaa\" is not a smoothed sunspot number, 0 to 311"},
        BadCase{"forecast_file_and_number",
                {"--ssn", "50", "--ssn-file", "x"},
                "--ssn-file: goes with --ssn forecast only"},
        BadCase{"forecast_file_and_airmail",
                {"--ssn-file", "x", "--ssn", "airmail"},
                "--ssn-file: goes with --ssn forecast only"},
        BadCase{"power", {"--power", "1e7"}, "--power: \"1e7\" is not a power in W, 0 to 1000000"},
        BadCase{"need_great",
                {"--need", "200"},
                "--need: The need of 200 is outside -50 to 150 dB in 1 Hz."},
        BadCase{"need_area",
                {"--area", "1,2,0,3", "--hour", "3", "--frequency", "7000", "--need", "40"},
                "--need: does not go with --area"},
        BadCase{"reach_list",
                {"--reach", "ham,cb"},
                "--reach: \"cb\" is not a list: ham, sailmail, other or places"},
        BadCase{"reach_empty_list",
                {"--reach", "ham,"},
                "--reach: \"\" is not a list: ham, sailmail, other or places"},
        BadCase{
            "reach_with_tx", {"--reach", "ham", "--tx", "1,1"}, "--tx: does not go with --reach"},
        BadCase{"reach_with_area",
                {"--reach", "ham", "--area", "1,2,0,3"},
                "--area: does not go with --reach"},
        BadCase{"reach_json",
                {"--reach", "ham", "--format", "json"},
                "--format: lists of stations are csv"},
        BadCase{"reach_hours",
                {"--reach", "ham", "--hours", "25"},
                "--hours: \"25\" is not a number of hours, 1 to 24"},
        BadCase{"reach_from",
                {"--reach", "ham", "--from", "24"},
                "--from: \"24\" is not an hour, 0 to 23"},
        BadCase{"from_alone", {"--from", "3"}, "--from: goes with --reach only"},
        BadCase{"all_in_an_area",
                {"--area", "1,2,0,3", "--day", "--all"},
                "--all: does not go with --area"},
        BadCase{"stations_with_need",
                {"--list-stations", "--need", "40"},
                "--need: does not go with --list-stations"},
        BadCase{"stations_with_reach",
                {"--reach", "ham", "--list-stations"},
                "--reach: does not go with --list-stations"},
        BadCase{"noise",
                {"--noise", "145"},
                "--noise: \"145\" is not a noise level in dBW, -200 to -100"},
        BadCase{
            "takeoff", {"--takeoff", "41"}, "--takeoff: \"41\" is not a takeoff angle, 0 to 40"},
        BadCase{"reliability",
                {"--reliability", "100"},
                "--reliability: \"100\" is not a reliability in %, 1 to 99"},
        BadCase{"antenna", {"--antenna", "3"}, "--antenna: \"3\" is not an antenna type, 0 to 2"},
        BadCase{"coefficients",
                {"--coefficients", "ITU"},
                "--coefficients: \"ITU\" is not a coefficient set: CCIR, URSI or MEAN"},
        BadCase{
            "layers_three", {"--layers", "1,1,1"}, "--layers: give four layer factors: E,F1,F2,Es"},
        BadCase{"layers_ten",
                {"--layers", "1,1,1,10"},
                "--layers: \"10\" is not a layer factor, 0 to 9.99"},
        BadCase{"model",
                {"--model", "p533"},
                "--model: \"p533\" is not an engine: icepac, voacap or rec533"},
        BadCase{"compare",
                {"--compare", "p533"},
                "--compare: \"p533\" is not an engine: icepac, voacap or rec533"},
        BadCase{"compare_json",
                {"--compare", "voacap", "--format", "json"},
                "--format: a comparison is csv"},
        BadCase{"compare_in_an_area",
                {"--area", "1,2,0,3", "--hour", "3", "--frequency", "7000", "--compare", "voacap"},
                "--compare: does not go with --area"},
        BadCase{
            "format", {"--format", "xml"}, "--format: \"xml\" is not a format: table, csv or json"},
        BadCase{
            "profile", {"--profile", "/no/such.ini"}, "--profile: File not found, /no/such.ini"},
        BadCase{"mixed_tx",
                {"--area", "50,0,40,10", "--hour", "1", "--frequency", "3600", "--tx", "1,1"},
                "--tx: does not go with --area"},
        BadCase{
            "mixed_frequencies",
            {"--area", "50,0,40,10", "--hour", "1", "--frequency", "3600", "--frequencies", "3600"},
            "--frequencies: does not go with --area"},
        BadCase{"hour_alone", {"--hour", "1"}, "--hour: goes with --area only"},
        BadCase{"grid_alone", {"--grid", "20"}, "--grid: goes with --area only"},
        BadCase{"area_without_hour",
                {"--area", "50,0,40,10", "--frequency", "3600"},
                "--hour: is needed with --area (or --day)"},
        BadCase{"area_without_frequency",
                {"--area", "50,0,40,10", "--hour", "1"},
                "--frequency: is needed with --area (or --day)"},
        BadCase{"area_table",
                {"--area", "50,0,40,10", "--hour", "1", "--frequency", "3600", "--format", "table"},
                "--format: an area has no table; give csv or json"},
        BadCase{"area_three",
                {"--area", "50,0,40", "--hour", "1", "--frequency", "3600"},
                "--area: give four bounds: NORTH,WEST,SOUTH,EAST"},
        BadCase{"area_upside_down",
                {"--area", "40,0,50,10", "--hour", "1", "--frequency", "3600"},
                "--area: the north bound must lie north of the south bound"},
        BadCase{"area_90",
                {"--area", "90,0,50,10", "--hour", "1", "--frequency", "3600"},
                "--area: \"90\" is not a latitude, -89.9 to 89.9"},
        BadCase{"area_no_width",
                {"--area", "50,10,40,10", "--hour", "1", "--frequency", "3600"},
                "--area: the area has no width"},
        BadCase{"hour_24",
                {"--area", "50,0,40,10", "--hour", "24", "--frequency", "3600"},
                "--hour: \"24\" is not an hour, 0 to 23"},
        BadCase{"grid_1",
                {"--area", "50,0,40,10", "--hour", "1", "--frequency", "3600", "--grid", "1"},
                "--grid: \"1\" is not a number of grid points a side, 2 to 999"}),
    [](const testing::TestParamInfo<BadCase>& prm) { return std::string(prm.param.sName); });

TEST(PredictOptions, WithoutWordsAreTheDefaults)
{
    const auto res = PredictOptionsGet({});
    ASSERT_TRUE(res);
    const PredictOptions& options = res.ValueGet();
    const Settings settingsDefault;
    EXPECT_EQ(options.settings.m_iPropagationModel, settingsDefault.m_iPropagationModel);
    EXPECT_TRUE(options.settings.m_bPropagationMonth);
    EXPECT_TRUE(options.settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(options.settings.m_nData, 15);
    EXPECT_EQ(options.eFormat, PredictFormat::Table);
    EXPECT_FALSE(options.bArea);
    EXPECT_TRUE(options.sOutput.empty());
}

TEST(PredictOptions, SetEveryMemberTheyName)
{
    // clang-format off
    const auto res = PredictOptionsGet(Words{
        "--tx", "51.5,-0.13", "--rc=-33.87,151.21", "--model", "VoaCap", "--month", "3",
        "--ssn", "100.5", "--frequencies", "1850, 3600,10125", "--noise", "-163",
        "--takeoff", "0.1", "--reliability", "90", "--multipath-power", "3",
        "--multipath-delay", "0.85", "--q-index", "4.5", "--antenna", "2",
        "--coefficients", "ccir", "--layers", "0.8,1.2,1.1,0.5", "--format", "json",
        "--output", "x.json"});
    // clang-format on
    ASSERT_TRUE(res) << res.TextGet();
    const Settings& settings = res.ValueGet().settings;
    EXPECT_EQ(settings.m_dTxLat, 51.5);
    EXPECT_EQ(settings.m_dTxLon, -0.13);
    EXPECT_EQ(settings.m_dRcLat, -33.87);
    EXPECT_EQ(settings.m_dRcLon, 151.21);
    EXPECT_EQ(settings.m_iPropagationModel, kEngineVoacap);
    EXPECT_FALSE(settings.m_bPropagationMonth);
    EXPECT_EQ(settings.m_iPropagationMonth, 3);
    EXPECT_FALSE(settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(settings.m_fPropagationSunSpotNumber, 100.5F);
    EXPECT_EQ(settings.m_nData, 3);
    EXPECT_EQ(settings.FrequencyGet(1), 1850.0F);
    EXPECT_EQ(settings.FrequencyGet(3), 10125.0F);
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -163.0F);
    EXPECT_EQ(settings.m_fPropagationTakeoffAngle, 0.1F);
    EXPECT_EQ(settings.m_fPropagationReliability, 90.0F);
    EXPECT_EQ(settings.m_fPropagationMultipathPower, 3.0F);
    EXPECT_EQ(settings.m_fPropagationMultipathDelay, 0.85F);
    EXPECT_EQ(settings.m_fPropagationQIndex, 4.5F);
    EXPECT_EQ(settings.m_iPropagationAntennaType, 2);
    EXPECT_EQ(settings.m_sPropagationIonCoefficients, "CCIR");
    EXPECT_EQ(settings.m_fPropagationLayerAdjustE, 0.8F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF1, 1.2F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF2, 1.1F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustEs, 0.5F);
    EXPECT_EQ(res.ValueGet().eFormat, PredictFormat::Json);
    EXPECT_EQ(res.ValueGet().sOutput, "x.json");
}

TEST(PredictOptions, TheSunspotNumberHasOneSourceWhateverTheProfileSays)
{
    const TempFolder tmp;
    const std::string sForecast =
        tmp.Write("f.ini", "[Propagation Model]\nSunSpot Option=False\nForecast Option=True\n");
    struct Case {
        Words asWords;
        bool bAirMail;
        bool bForecast;
    };
    for (const Case& c :
         {Case{{}, true, false}, Case{{"--ssn", "50"}, false, false},
          Case{{"--ssn", "Forecast"}, false, true}, Case{{"--ssn", "AIRMAIL"}, true, false},
          Case{{"--ssn-file", "x.txt"}, false, true},
          Case{{"--ssn", "forecast", "--ssn-file", "x.txt"}, false, true},
          Case{{"--profile", sForecast}, false, true},
          Case{{"--profile", sForecast, "--ssn", "50"}, false, false},
          Case{{"--profile", sForecast, "--ssn", "airmail"}, true, false}}) {
        const auto res = PredictOptionsGet(c.asWords);
        ASSERT_TRUE(res) << res.TextGet();
        const std::string sLast = c.asWords.empty() ? "" : c.asWords.back();
        EXPECT_EQ(res.ValueGet().settings.m_bPropagationSunSpotNumber, c.bAirMail) << sLast;
        EXPECT_EQ(res.ValueGet().settings.m_bPropagationForecast, c.bForecast) << sLast;
        EXPECT_EQ(res.ValueGet().sForecastFile, sLast == "x.txt" ? "x.txt" : "");
    }
}

TEST(PredictOptions, ANeedIsANumberOrANameOfTheProfilesList)
{
    const TempFolder tmp;
    const std::string sProfile =
        tmp.Write("n.ini", "[Need Data]\nCount=1\nName 1=Chat\nSnr 1=33.5\nSource 1=own\n");
    const auto Get = [](Words asWords) { return PredictOptionsGet(asWords); };
    EXPECT_FALSE(Get({}).ValueGet().need) << "none is taken unless it is asked for";
    EXPECT_EQ(Get({"--need", "42.5"}).ValueGet().need->fSnr, 42.5F);
    EXPECT_EQ(Get({"--need", "ssb, CLEAR"}).ValueGet().need->fSnr, 55.0F);
    EXPECT_EQ(Get({"--need", "chat", "--profile", sProfile}).ValueGet().need->fSnr, 33.5F);
    const auto res = Get({"--need", "SSB, clear", "--profile", sProfile});
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(),
              "--need: \"SSB, clear\" is neither a number of dB nor a need of the list: Chat.");
}

TEST(PredictOptions, ReachTakesListsHoursAndTheOptionsOfAPath)
{
    const auto res = PredictOptionsGet(Words{"--reach", "Ham, places", "--from", "22", "--hours",
                                             "3", "--all", "--need", "40", "--q-index", "4", "--rc",
                                             "15,-132", "--frequencies", "7000"});
    ASSERT_TRUE(res) << res.TextGet();
    const PredictOptions& options = res.ValueGet();
    EXPECT_TRUE(options.bReach);
    EXPECT_EQ(options.reach.aLists, (std::set{PlaceKind::Ham, PlaceKind::Own}));
    EXPECT_EQ(options.reach.iFrom, 22);
    EXPECT_EQ(options.reach.nHours, 3);
    EXPECT_TRUE(options.reach.bAll);
    EXPECT_TRUE(options.reach.bFrequencies);
    EXPECT_EQ(options.eFormat, PredictFormat::Csv);
    const auto resPlain = PredictOptionsGet(Words{"--reach", "sailmail,other"});
    ASSERT_TRUE(resPlain) << resPlain.TextGet();
    EXPECT_EQ(resPlain.ValueGet().reach.iFrom, -1);
    EXPECT_EQ(resPlain.ValueGet().reach.nHours, 24);
    EXPECT_FALSE(resPlain.ValueGet().reach.bFrequencies);
    EXPECT_EQ(resPlain.ValueGet().reach.aLists, (std::set{PlaceKind::SailMail, PlaceKind::Other}));
}

TEST(PredictOptions, CoefficientsAreOneSetOrTheMean)
{
    const TempFolder tmp;
    const std::string sProfile =
        tmp.Write("maps.ini", "[Propagation Model]\nIon Coeficients=CCIR\nMaps Option=False\n");
    struct Case {
        Words asWords;
        const char* sCoefficients;
        bool bMean;
    };
    for (const Case& c : {
             Case{{}, "URSI", true},
             Case{{"--coefficients", "CCIR"}, "CCIR", false},
             Case{{"--coefficients", "ursi"}, "URSI", false},
             Case{{"--coefficients", "Mean"}, "URSI", true},
             Case{{"--profile", sProfile}, "CCIR", false},
             Case{{"--profile", sProfile, "--coefficients", "URSI"}, "URSI", false},
             Case{{"--profile", sProfile, "--coefficients", "MEAN"}, "CCIR", true},
         }) {
        const auto res = PredictOptionsGet(c.asWords);
        ASSERT_TRUE(res) << res.TextGet();
        EXPECT_EQ(res.ValueGet().settings.m_sPropagationIonCoefficients, c.sCoefficients);
        EXPECT_EQ(res.ValueGet().settings.m_bPropagationMapsMean, c.bMean);
    }
}

TEST(PredictOptions, AnAreaTakesItsBoundsAndMayCrossLongitude180)
{
    const auto res =
        PredictOptionsGet(Words{"--area", "10,170,-30,-160", "--hour", "0", "--frequency", "7100",
                                "--grid", "21", "--rc", "RG37"});
    ASSERT_TRUE(res) << res.TextGet();
    const PredictOptions& options = res.ValueGet();
    EXPECT_TRUE(options.bArea);
    EXPECT_EQ(options.eFormat, PredictFormat::Csv);
    EXPECT_EQ(options.area.dNorth, 10);
    EXPECT_EQ(options.area.dWest, 170);
    EXPECT_EQ(options.area.dSouth, -30);
    EXPECT_EQ(options.area.dEast, -160);
    EXPECT_EQ(options.area.iHour, 0);
    EXPECT_EQ(options.area.fFrequency, 7100.0F);
    EXPECT_EQ(options.settings.m_iMapOverlayGridSize, 21);
}

TEST(PredictOptions, AProfileIsReadFirstWhereverItStands)
{
    const TempFolder tmp;
    const std::string sProfile =
        tmp.Write("a.ini",
                  "[Propagation Model]\r\nSunSpot Option=False\r\nSunSpot Number=55\r\n"
                  "Month Option=False\r\nMonth Number=2\r\n");
    const auto res = PredictOptionsGet(Words{"--month", "7", "--profile", sProfile});
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_FALSE(res.ValueGet().settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(res.ValueGet().settings.m_fPropagationSunSpotNumber, 55.0F);
    EXPECT_EQ(res.ValueGet().settings.m_iPropagationMonth, 7);
}

TEST(PredictOptions, HelpAndVersionWinOverAnythingElse)
{
    EXPECT_TRUE(PredictOptionsGet(Words{"--rubbish", "--help"}).ValueGet().bHelp);
    EXPECT_TRUE(PredictOptionsGet(Words{"--version", "--month", "99"}).ValueGet().bVersion);
}

struct PlaceCase {
    const char* sText;
    double dLat;
    double dLon;
};
std::ostream& operator<<(std::ostream& stm, const PlaceCase& c) { return stm << c.sText; }
class PredictPlace : public testing::TestWithParam<PlaceCase> {};
TEST_P(PredictPlace, Reads)
{
    const auto res = PredictPositionGet(GetParam().sText);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_NEAR(res.ValueGet().dLat, GetParam().dLat, 1e-5);
    EXPECT_NEAR(res.ValueGet().dLon, GetParam().dLon, 1e-5);
}
INSTANTIATE_TEST_SUITE_P(All, PredictPlace,
                         testing::Values(PlaceCase{"38,-122", 38, -122},
                                         PlaceCase{" -33.87 , 151.21 ", -33.87, 151.21},
                                         PlaceCase{"38°30.00'N,122°15.00'W", 38.5, -122.25},
                                         PlaceCase{"5°30'S, 7°30'e", -5.5, 7.5},
                                         PlaceCase{"5°30' S, 7°30' W", -5.5, -7.5},
                                         PlaceCase{"FN42", 42.51304, -70.97391},
                                         PlaceCase{"fn42mm", 42.51304, -70.97391},
                                         PlaceCase{"90,180", 90, 180}));

class PredictPlaceBad : public testing::TestWithParam<const char*> {};
TEST_P(PredictPlaceBad, IsRefused) { EXPECT_FALSE(PredictPositionGet(GetParam())); }
INSTANTIATE_TEST_SUITE_P(All, PredictPlaceBad,
                         testing::Values("", "38", "38,", ",1", "38,-122,3", "x,y", "FN4", "FN42M",
                                         "ZZ42", "FN42ZZ", "FN42MM99", "91,0", "0,181",
                                         "38°70.00'N,1°00.00'E", "38°30.00'X,1°00.00'E",
                                         "38°30.00'E,1°00.00'N", "-38°30.00'N,1°00.00'E",
                                         "38°30.00,1°00.00'E", "38°30'xS,1°00.00'E", "1e1,2"));

TEST(PredictHelp, NamesEveryOption)
{
    const std::string sHelp = PredictHelpGet();
    // clang-format off
    for (const char* sOption :
         {"--profile", "--tx", "--rc", "--model", "--month", "--ssn", "--frequencies", "--noise",
          "--takeoff", "--reliability", "--multipath-power", "--multipath-delay", "--q-index",
          "--antenna", "--coefficients", "--layers", "--format", "--output", "--area", "--hour",
          "--frequency", "--grid", "--help", "--version"})
        // clang-format on
        EXPECT_NE(sHelp.find(sOption), std::string::npos) << sOption;
}

TEST(PredictHelp, TellsTheOneTableOfRanges)
{
    const std::string sHelp = PredictHelpGet();
    const auto Expect = [&](const char* sOption, const NumberRange& range) {
        const std::size_t nAt = sHelp.find(std::string("  --") + sOption);
        ASSERT_NE(nAt, std::string::npos) << sOption;
        const std::string sLine = sHelp.substr(nAt, sHelp.find('\n', nAt) - nAt);
        EXPECT_NE(sLine.find(NumberToText(range.dLeast) + " to " + NumberToText(range.dMost)),
                  std::string::npos)
            << sLine;
    };
    Expect("frequencies", kRangeFrequency);
    Expect("ssn", kRangeSunSpot);
    Expect("noise", kRangeNoise);
    Expect("takeoff", kRangeTakeoff);
    Expect("reliability", kRangeReliability);
    Expect("multipath-power", kRangeMultipathPower);
    Expect("multipath-delay", kRangeMultipathDelay);
    Expect("q-index", kRangeQIndex);
    Expect("layers", kRangeLayer);
    Expect("power", kRangePower);
    Expect("need", kRangeNeed);
}

TEST(PredictHelp, TellsEveryColumnWithItsUnit)
{
    const std::string sHelp = PredictHelpGet();
    const std::size_t nFrom = sHelp.find("\nColumns");
    ASSERT_NE(nFrom, std::string::npos);
    const std::string sColumns = sHelp.substr(nFrom);
    const std::map<std::string, std::string> mapUnit{{"hour", "1 to 24"},
                                                     {"utc", "0 to 23"},
                                                     {"muf_khz", "kHz"},
                                                     {"luf_khz", "kHz"},
                                                     {"khz", "kHz"},
                                                     {"mode", "text"},
                                                     {"takeoff_deg", "degrees"},
                                                     {"delay_ms", "ms"},
                                                     {"height_km", "km"},
                                                     {"signal_dbw", "dBW"},
                                                     {"noise_dbw", "dBW in 1 Hz"},
                                                     {"snr_db", "dB in 1 Hz"},
                                                     {"engine", "text"},
                                                     {"month", "1 to 12"},
                                                     {"ssn", "sunspot number"},
                                                     {"ssn_source", "text"},
                                                     {"power_w", "W"},
                                                     {"coefficients", "text"},
                                                     {"rel", "0 to 1"},
                                                     {"snr_lower_db", "dB"},
                                                     {"snr_upper_db", "dB"},
                                                     {"snr_db_A", "dB in 1 Hz"},
                                                     {"snr_db_B", "dB in 1 Hz"},
                                                     {"difference_db", "dB"},
                                                     {"margin_db", "dB"},
                                                     {"lat", "degrees"},
                                                     {"lon", "degrees"},
                                                     {"system", "text"},
                                                     {"key", "text"},
                                                     {"description", "text"},
                                                     {"range_nmi", "nautical miles"},
                                                     {"bearing_deg", "degrees"},
                                                     {"azimuth_tx_rc", "degrees"},
                                                     {"azimuth_rc_tx", "degrees"},
                                                     {"model", "text"},
                                                     {"year", "year"}};
    for (const auto& [sColumn, sUnit] : mapUnit) {
        const std::size_t nAt = sColumns.find("\n  " + sColumn + " ");
        ASSERT_NE(nAt, std::string::npos) << sColumn;
        const std::string sLine = sColumns.substr(nAt + 1, sColumns.find('\n', nAt + 1) - nAt - 1);
        EXPECT_NE(sLine.find(sUnit), std::string::npos) << sLine;
    }
    // Every column in the header of a path's csv is described.
    const Settings settings;
    const PropagationTable table(1);
    PredictRun run{&settings, &table, 2026, "", "", ""};
    run.need = Need{"", 40.0F, ""};
    std::istringstream stm(PredictCsvGet(run).substr(0, PredictCsvGet(run).find('\n')));
    for (std::string sColumn; std::getline(stm, sColumn, ',');)
        EXPECT_TRUE(mapUnit.contains(sColumn)) << sColumn;
}

TEST(PredictHelp, TellsWhatTheAntennaTypesMeanWithEachEngine)
{
    const std::string sHelp = PredictHelpGet();
    const std::size_t nVoacap = sHelp.find("--antenna with ICEPAC and VOACAP:");
    const std::size_t nRec533 = sHelp.find("--antenna with REC533");
    ASSERT_LT(nVoacap, nRec533);
    ASSERT_NE(nRec533, std::string::npos);
    EXPECT_LT(sHelp.find("2 whips 5 kW", nVoacap), nRec533);
    EXPECT_NE(sHelp.find("1 whips 5 kW; 2 plain antennas 1 kW", nRec533), std::string::npos);
}

TEST(PredictOptions, TheFormatMayBeInAnyCase)
{
    EXPECT_EQ(PredictOptionsGet(Words{"--format", "JSON"}).ValueGet().eFormat, PredictFormat::Json);
    EXPECT_EQ(PredictOptionsGet(Words{"--format", "Csv"}).ValueGet().eFormat, PredictFormat::Csv);
    EXPECT_EQ(PredictOptionsGet(Words{"--format", "tablE"}).ValueGet().eFormat,
              PredictFormat::Table);
}

TEST(PredictOptions, ADashIsStandardOutput)
{
    EXPECT_EQ(PredictOptionsGet(Words{"--output", "-"}).ValueGet().sOutput, "");
}

TEST(PredictOptions, AnAreaWithoutHeightOrWidthIsRefusedInWords)
{
    const auto Error = [](const std::string& sArea) {
        return PredictOptionsGet(Words{"--area", sArea, "--hour", "1", "--frequency", "7000"})
            .TextGet();
    };
    EXPECT_EQ(Error("10,5,10,6"), "--area: the area has no height");
    EXPECT_EQ(Error("10.001,5,10,6"), "--area: the area has no height") << "as the deck prints it";
    EXPECT_EQ(Error("10,5,9,5"), "--area: the area has no width");
    EXPECT_EQ(Error("10,5.001,9,5"), "--area: the area has no width");
    EXPECT_EQ(Error("10,180,9,-180"), "--area: the area has no width");
    EXPECT_EQ(Error("9,5,10,6"), "--area: the north bound must lie north of the south bound");
    EXPECT_EQ(Error("10,-180,9,180"), "");
}

TEST(PredictOptions, AnAreaThatEndsAtLongitude180IsOneBox)
{
    const auto Area = [](const std::string& sArea) {
        return PredictOptionsGet(Words{"--area", sArea, "--hour", "1", "--frequency", "7000"})
            .ValueGet()
            .area;
    };
    EXPECT_EQ(Area("10,180,0,-170").dWest, -180.0);
    EXPECT_EQ(Area("10,170,0,-180").dEast, 180.0);
    EXPECT_EQ(Area("10,170,0,-170").dWest, 170.0);
}

}  // namespace
