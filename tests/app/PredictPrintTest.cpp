#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <sstream>
#include <string>

#include "app/predict/PredictPrint.h"

namespace {

class PredictPrint : public testing::Test {
protected:
    PredictPrint()
    {
        m_settings.m_nData = 2;
        m_settings.FrequencySet(1, 7050.6F);
        m_settings.FrequencySet(2, 14000.0F);
        m_settings.m_iPropagationMonth = 11;
        m_settings.m_fPropagationSunSpotNumber = 100.5F;
        for (int iHour = 1; iHour <= 24; ++iHour) {
            m_table.fMUF[iHour] = 22600;
            m_table.fLUF[iHour] = 3250;
            for (int i = 1; i <= 2; ++i) {
                m_table.sLayer(iHour, i) = "  1F2";
                m_table.fTakeoffAngle(iHour, i) = 7.5F;
                m_table.fTimeDelay(iHour, i) = -1;
                m_table.fVirtualHeight(iHour, i) = -1;
                m_table.fSdBW(iHour, i) = -110;
                m_table.fNdBW(iHour, i) = -156.25F;
                m_table.fSnr(iHour, i) = i == 1 ? -2532.0F : 46.5F;
            }
        }
        m_table.PresentSet(1, 2, true);
        m_table.request.sIonCoefficients = "MEAN";
        m_table.fAzimuthTxRc = 139.6F;
        m_table.fAzimuthRcTx = 325.4F;
        m_table.fRange = 1041.7F;
    }
    [[nodiscard]] PredictRun Run() const
    {
        return {&m_settings,         &m_table, 2026,
                "REC533 (built-in)", "given",  "Receiver: Airmail, 3 days old\n"};
    }

    /// Gives one cell a reliability and deciles.
    void DaysSet()
    {
        m_table.fReliability(1, 2) = 0.9F;
        m_table.fSnrLower(1, 2) = 7.34F;
        m_table.fSnrUpper(1, 2) = 10.16F;
    }

    Settings m_settings;
    PropagationTable m_table{2};
};

TEST_F(PredictPrint, TheTableTellsTheRunAndEveryHour)
{
    const std::string sText = PredictTableGet(Run(), false);
    EXPECT_TRUE(sText.starts_with(
        "Hopcast prediction: REC533 (built-in), month 11, sunspot number 100.5 (given)\n"
        "Coefficients MEAN\n"
        "Power 5 kW, as the antenna choice\n"
        "Transmitter 38°00.00'N 122°00.00'W   Receiver 24°00.00'N 110°00.00'W\n"
        "Range 1042 nmi   bearing Tx to Rc 140 deg   Rc to Tx 325 deg\n"
        "Receiver: Airmail, 3 days old\n\n"
        "Predicted SNR (dB in 1 Hz) by UTC hour and frequency (MHz); MUF and LUF in MHz\n"
        "UTC 7.051    14   MUF   LUF\n"
        " 00   -99    47  22.6   3.3\n"
        " 01   -99    47  22.6   3.3\n"))
        << sText;
    EXPECT_TRUE(sText.ends_with(" 23   -99    47  22.6   3.3\n")) << sText;
}

TEST_F(PredictPrint, TheDefaultTableFitsEightyColumns)
{
    const Settings settings;
    const PropagationTable table(15);
    std::istringstream stm(
        PredictTableGet({&settings, &table, 2026, "REC533 (built-in)", "Airmail", ""}, false));
    for (std::string sLine; std::getline(stm, sLine);)
        EXPECT_LE(sLine.size(), 86u) << sLine;  // two bytes for each of four degree signs
}

TEST_F(PredictPrint, ColoursFollowTheScale)
{
    const std::string sText = PredictTableGet(Run(), true);
    EXPECT_NE(sText.find("\x1b[30;48;2;128;128;128m   -99\x1b[0m"), std::string::npos) << sText;
    EXPECT_NE(sText.find("\x1b[97;48;2;0;0;192m    47\x1b[0m"), std::string::npos);
}

TEST_F(PredictPrint, ColourAndNumberOfACellAgree)
{
    m_table.fSnr(1, 2) = 49.8F;
    m_table.fSnr(2, 2) = 49.4F;
    const std::string sText = PredictTableGet(Run(), true);
    EXPECT_NE(sText.find("\x1b[97;48;2;0;0;255m    50\x1b[0m"), std::string::npos) << sText;
    EXPECT_NE(sText.find("\x1b[97;48;2;0;0;192m    49\x1b[0m"), std::string::npos);
}

TEST_F(PredictPrint, CsvHasARowAnHourAndFrequency)
{
    DaysSet();
    const std::string sText = PredictCsvGet(Run());
    EXPECT_EQ(std::count(sText.begin(), sText.end(), '\n'), 1 + 24 * 2);
    EXPECT_TRUE(
        sText.starts_with("hour,utc,muf_khz,luf_khz,khz,mode,takeoff_deg,delay_ms,height_km,signal_"
                          "dbw,noise_dbw,snr_db,engine,month,ssn,ssn_source,power_w,coefficients,"
                          "rel,snr_lower_db,snr_upper_db\n"
                          "1,0,22600,3250,7050.6,  1F2,7.5,-1,-1,-110,-156.25,-2532,REC533 "
                          "(built-in),11,100.5,given,5000,MEAN,,,\n"
                          "1,0,22600,3250,14000,  1F2,7.5,-1,-1,-110,-156.25,46.5,REC533 "
                          "(built-in),11,100.5,given,5000,MEAN,0.90,7.3,10.2\n"
                          "2,1,"))
        << sText;
}

TEST_F(PredictPrint, JsonHasReliabilityAndDecilesWhereTheEngineToldThem)
{
    DaysSet();
    EXPECT_NE(PredictJsonGet(Run()).find("\"snr_db\": 46.5, \"rel\": 0.90, \"snr_lower_db\": 7.3, "
                                         "\"snr_upper_db\": 10.2}"),
              std::string::npos)
        << PredictJsonGet(Run());
}

TEST_F(PredictPrint, CsvQuotesAModeThatWouldBreakTheRowAndHasNoControlCharacters)
{
    m_table.sLayer(1, 1) = "1,\"F2";
    m_table.sLayer(1, 2) = "\r\x1b[m\x7f";
    const std::string sText = PredictCsvGet(Run());
    EXPECT_NE(sText.find("7050.6,\"1,\"\"F2\",7.5,"), std::string::npos) << sText;
    EXPECT_NE(sText.find("14000,  [m ,7.5,"), std::string::npos) << sText;
}

TEST_F(PredictPrint, JsonNamesEveryValue)
{
    m_table.sLayer(1, 1) = " \"\\\x01\x7f";
    const std::string sText = PredictJsonGet(Run());
    EXPECT_TRUE(sText.starts_with(
        "{\n  \"model\": \"REC533 (built-in)\",\n  \"year\": 2026,\n  \"month\": 11,\n  \"ssn\": "
        "100.5,\n"
        "  \"tx\": {\"lat\": 38, \"lon\": -122},\n  \"rc\": {\"lat\": 24, \"lon\": -110},\n"
        "  \"azimuth_tx_rc\": 139.6,\n  \"azimuth_rc_tx\": 325.4,\n  \"range_nmi\": 1041.7,\n  "
        "\"hours\": [\n"
        "    {\"hour\": 1, \"utc\": 0, \"muf_khz\": 22600, \"luf_khz\": 3250,\n     \"cells\": [\n"
        "      {\"khz\": 7050.6, \"mode\": \" \\\"\\\\\\u0001\\u007f\", \"takeoff_deg\": 7.5, "
        "\"delay_ms\": null, "
        "\"height_km\": null, \"signal_dbw\": -110, \"noise_dbw\": -156.25, \"snr_db\": -2532"
        ", \"rel\": null, \"snr_lower_db\": null, \"snr_upper_db\": null},\n"
        "      {\"khz\": 14000, \"mode\": \"  1F2\""))
        << sText;
    EXPECT_TRUE(
        sText.ends_with("\"snr_db\": 46.5, \"rel\": null, \"snr_lower_db\": null, "
                        "\"snr_upper_db\": null}]}\n  ],\n  \"engine\": \"REC533 (built-in)\",\n  "
                        "\"ssn_source\": \"given\",\n  \"power_w\": 5000,\n  \"coefficients\": "
                        "\"MEAN\"\n}\n"))
        << sText;
}

TEST_F(PredictPrint, CoefficientsOfAProfileAreQuotedAndHaveNoControlCharacters)
{
    m_table.request.sIonCoefficients = "\x1b[m\"";
    EXPECT_NE(PredictTableGet(Run(), false).find("\nCoefficients  [m\"\n"), std::string::npos);
    EXPECT_NE(PredictJsonGet(Run()).find("\"coefficients\": \"\\u001b[m\\\"\"\n"),
              std::string::npos);
}

TEST_F(PredictPrint, AFrequencyWithoutValuesIsBlankEmptyAndNull)
{
    m_table.PresentSet(1, 1, false);
    EXPECT_NE(PredictTableGet(Run(), false).find("\n 00          47  22.6   3.3\n"),
              std::string::npos)
        << PredictTableGet(Run(), false);
    EXPECT_EQ(PredictTableGet(Run(), true).find("\x1b[30;"), std::string::npos)
        << "no colour either";
    EXPECT_NE(
        PredictCsvGet(Run()).find("\n1,0,22600,3250,7050.6,,,,,,,,REC533 (built-in),11,100.5,given,"
                                  "5000,MEAN,,,\n1,0,22600,3250,14000,"),
        std::string::npos)
        << PredictCsvGet(Run());
    EXPECT_NE(PredictJsonGet(Run()).find(
                  "{\"khz\": 7050.6, \"mode\": null, \"takeoff_deg\": null, \"delay_ms\": null, "
                  "\"height_km\": null, \"signal_dbw\": null, \"noise_dbw\": null, \"snr_db\": "
                  "null, \"rel\": null, \"snr_lower_db\": null, \"snr_upper_db\": null},\n      "
                  "{\"khz\": 14000, \"mode\": \"  1F2\", \"takeoff_deg\": 7.5, "),
              std::string::npos)
        << PredictJsonGet(Run());
}

TEST(PredictArea, PrintsPointsInGridOrder)
{
    const std::vector<AreaPoint> aPoint{{10, 179.5, 12.5F}, {10, -179.5, -999.0F}};
    EXPECT_EQ(PredictAreaCsvGet(aPoint), "lat,lon,snr_db\n10,179.5,12.5\n10,-179.5,-999\n");
    EXPECT_EQ(PredictAreaJsonGet(aPoint),
              "{\n  \"points\": [\n    {\"lat\": 10, \"lon\": 179.5, \"snr_db\": 12.5},\n"
              "    {\"lat\": 10, \"lon\": -179.5, \"snr_db\": null}\n  ]\n}\n")
        << "what an engine writes for no value is null";
}

TEST_F(PredictPrint, ANeedMarksTheCellsThatMeetItAndAddsTheMarginAsTheLastColumn)
{
    PredictRun run = Run();
    run.need = Need{"Voice", 46.5F, "own"};
    m_table.fSnr(2, 2) = 46.4F;  // shown as 46, and below the need
    m_table.fSnr(3, 2) = 46.6F;
    m_table.fSnr(4, 1) = -99.0F;
    const std::string sTable = PredictTableGet(run, false);
    EXPECT_NE(sTable.find("MHz\nCells with * meet the need (Voice: 46.5 dB in 1 Hz)\nUTC"),
              std::string::npos)
        << sTable;
    EXPECT_NE(sTable.find("\n 00   -99   *47  22.6"), std::string::npos) << sTable;
    EXPECT_NE(sTable.find("\n 01   -99    46  22.6"), std::string::npos) << sTable;
    EXPECT_NE(sTable.find("\n 02   -99   *47  22.6"), std::string::npos) << sTable;
    const std::string sCsv = PredictCsvGet(run);
    EXPECT_NE(sCsv.find(",coefficients,rel,snr_lower_db,snr_upper_db,margin_db\n"),
              std::string::npos);
    EXPECT_NE(sCsv.find(",46.5,REC533 (built-in),11,100.5,given,5000,MEAN,,,,0\n"),
              std::string::npos)
        << sCsv;
    EXPECT_NE(sCsv.find(",MEAN,,,,-0.1\n"), std::string::npos) << "no noise of binary numbers";
    EXPECT_NE(sCsv.find(",-99,REC533 (built-in),11,100.5,given,5000,MEAN,,,,\n"), std::string::npos)
        << "-99 is no value, so it has no margin";
    const std::string sJson = PredictJsonGet(run);
    EXPECT_NE(sJson.find("\"snr_db\": 46.6, \"rel\": null, \"snr_lower_db\": null, "
                         "\"snr_upper_db\": null, \"margin_db\": 0.1}"),
              std::string::npos);
    EXPECT_NE(sJson.find("\"snr_db\": null, \"rel\": null, \"snr_lower_db\": null, "
                         "\"snr_upper_db\": null, \"margin_db\": null}"),
              std::string::npos);
    m_table.PresentSet(1, 1, false);
    EXPECT_NE(
        PredictCsvGet(run).find(",7050.6,,,,,,,,REC533 (built-in),11,100.5,given,5000,MEAN,,,,\n"),
        std::string::npos);
}

TEST_F(PredictPrint, ADefaultTableWithEveryCellMarkedStillFitsEightyColumns)
{
    const Settings settings;
    PropagationTable table(15);
    table.PresentSet(1, 15, true);
    for (int iHour = 1; iHour <= 24; ++iHour)
        for (int i = 1; i <= 15; ++i) table.fSnr(iHour, i) = 100.0F;
    const PredictRun run{&settings, &table, 2026, "REC533 (built-in)",
                         "Airmail", "",     "",   Need{"", 40.0F, "typed"}};
    std::istringstream stm(PredictTableGet(run, false));
    std::size_t nMarked = 0;
    for (std::string sLine; std::getline(stm, sLine);) {
        EXPECT_LE(sLine.size(), 86U) << sLine;
        nMarked += sLine.find("*100*100") != std::string::npos ? 1U : 0U;
    }
    EXPECT_EQ(nMarked, 24U);
}

TEST_F(PredictPrint, TheOwnPowerAndADatedForecastAreTold)
{
    m_settings.m_fStationPower = 100.0F;
    PredictRun run = Run();
    run.sSunSpotSource = "NOAA forecast";
    run.sSunSpotDetail = "version-2 number 87.9 times 0.7, 1 day old";
    const std::string sText = PredictTableGet(run, false);
    EXPECT_NE(sText.find("sunspot number 100.5 (NOAA forecast)\nSunspot number: version-2 number "
                         "87.9 times 0.7, 1 day old\nCoefficients MEAN\nPower 100 W\n"),
              std::string::npos)
        << sText;
    EXPECT_NE(PredictCsvGet(run).find(",100.5,NOAA forecast,100,MEAN,,,\n"), std::string::npos);
    EXPECT_NE(PredictJsonGet(run).find("\"ssn_source\": \"NOAA forecast\",\n  \"power_w\": 100,\n"),
              std::string::npos);
}

TEST_F(PredictPrint, APowerHasTheDigitsThatItsOwnerTyped)
{
    m_settings.m_fStationPower = 0.1F;
    EXPECT_NE(PredictTableGet(Run(), false).find("\nPower 0.1 W\n"), std::string::npos);
    EXPECT_NE(PredictCsvGet(Run()).find(",given,0.1,MEAN,,,\n"), std::string::npos);
    EXPECT_NE(PredictJsonGet(Run()).find("\"power_w\": 0.1,\n"), std::string::npos);
    m_settings.m_fStationPower = 1500.0F;
    EXPECT_NE(PredictTableGet(Run(), false).find("\nPower 1.5 kW\n"), std::string::npos);
}

TEST_F(PredictPrint, JsonHasNullForALimitThatTheEngineDoesNotTell)
{
    m_table.fMUF[1] = 0.0F;
    m_table.fLUF[1] = -50.0F;
    m_table.fLUF[2] = 0.0F;
    m_table.fLUF[3] = std::numeric_limits<float>::quiet_NaN();
    const std::string sText = PredictJsonGet(Run());
    EXPECT_NE(sText.find("\"utc\": 0, \"muf_khz\": null, \"luf_khz\": null,\n"), std::string::npos)
        << sText;
    EXPECT_NE(sText.find("\"utc\": 1, \"muf_khz\": 22600, \"luf_khz\": null,\n"),
              std::string::npos);
    EXPECT_NE(sText.find("\"utc\": 2, \"muf_khz\": 22600, \"luf_khz\": null,\n"),
              std::string::npos);
    EXPECT_NE(PredictCsvGet(Run()).find("\n1,0,0,-50,"), std::string::npos)
        << "csv has what the engine writes";
}

}  // namespace
