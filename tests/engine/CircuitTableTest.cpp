// The table of circuits: columns are found by name, rows computed, invalid cells named.

#include <gtest/gtest.h>

#include "engine/run533/CircuitTable.h"
#include "engine/run533/PointTable.h"

namespace {

using rec533::Behaviour;
using rec533::MapSet;
using run533::CircuitTableMake;
using run533::PointTableMake;

constexpr const char* kHead =
    "freq,id,class,tx_lat,tx_lon,rx_lat,rx_lon,path,month,ssn,pwr_w,noise,req_snr,req_rel,hour\n";

std::string RowOf(const std::string& sFrequency)
{
    return sFrequency + ",D01,short,12.72,-119.84,13.7,-119.23,SHORT,1,120,1,CITY,17,99,4\n";
}

TEST(CircuitTable, GivesInputsAndComputedColumns)
{
    const auto res = CircuitTableMake(kHead + RowOf("2.58") + "\r\n" + RowOf("4.81"),
                                      Behaviour::Reference, MapSet::Ccir);
    ASSERT_TRUE(res) << res.TextGet();
    const std::string& sOut = res.ValueGet();
    EXPECT_EQ(sOut.find("id,tx_lat,tx_lon,rx_lat,rx_lon,path,month,ssn,pwr_w,noise,req_snr,req_rel,"
                        "hour,freq,dist_km,"),
              0u);
    EXPECT_NE(
        sOut.find(
            "\nD01,12.72,-119.84,13.7,-119.23,SHORT,1,120,1,CITY,17,99,4,2.58,127.417,4000.000,1,1,"
            "10.714,"
            "13.736,7.936,13.928,17.857,10.317,1F2,78.791,7.771,,,7.771,-107.662,58.924,65.398,"),
        std::string::npos);
    EXPECT_EQ(std::count(sOut.begin(), sOut.end(), '\n'), 3);
}

TEST(CircuitTable, TakesTheMarkThatSpreadsheetsPutBeforeUtf8)
{
    EXPECT_TRUE(
        CircuitTableMake("\xEF\xBB\xBF" + (kHead + RowOf("2.58")), Behaviour::Best, MapSet::Ccir));
}

TEST(CircuitTable, NamesLineAndColumnOfRubbish)
{
    EXPECT_EQ(CircuitTableMake(kHead + RowOf("2.58") + RowOf("x"), Behaviour::Best, MapSet::Ccir)
                  .TextGet(),
              "line 3, freq: \"x\" cannot be used");
    EXPECT_EQ(CircuitTableMake("id,freq\n", Behaviour::Best, MapSet::Ccir).TextGet(),
              "no column tx_lat");
    EXPECT_EQ(CircuitTableMake("", Behaviour::Best, MapSet::Ccir).TextGet(), "no column id");
    EXPECT_EQ(
        CircuitTableMake(std::string(kHead) + "1,2\n", Behaviour::Best, MapSet::Ccir).TextGet(),
        "line 2: fewer columns than the head has");
}

TEST(CircuitTable, OnlyTheReferenceKeepsTheItuProgramsLimits)
{
    EXPECT_FALSE(CircuitTableMake(kHead + RowOf("0.5"), Behaviour::Reference, MapSet::Ccir));
    EXPECT_TRUE(CircuitTableMake(kHead + RowOf("0.5"), Behaviour::Corrected, MapSet::Ccir));
    EXPECT_TRUE(CircuitTableMake(kHead + RowOf("45"), Behaviour::Best, MapSet::Mean));
    EXPECT_FALSE(CircuitTableMake(kHead + RowOf("45.1"), Behaviour::Best, MapSet::Mean));
}

TEST(CircuitTable, MeasuredIndexMovesTheMapsOfItsRowAlone)
{
    const std::string sHead = "ig," + std::string(kHead);
    const auto fnMuf = [&](const std::string& sIndex) {
        const auto res =
            CircuitTableMake(sHead + sIndex + "," + RowOf("5"), Behaviour::Best, MapSet::Mean);
        EXPECT_TRUE(res) << res.TextGet();
        const std::string sText = res ? res.ValueGet() : std::string();
        EXPECT_NE(sText.find(",freq,ig,dist_km,"), std::string::npos);
        return sText.substr(sText.find(",1,1,") + 5, 6);  // after n0_f2 and n0_e
    };
    const std::string sFormula = fnMuf("");
    EXPECT_EQ(sFormula, fnMuf("125.298"));
    EXPECT_NE(sFormula, fnMuf("60"));
    EXPECT_EQ(fnMuf("-15"), fnMuf("-99"));  // no index is lower
    EXPECT_EQ(CircuitTableMake(sHead + "x," + RowOf("5"), Behaviour::Best, MapSet::Mean).TextGet(),
              "line 2, ig: \"x\" cannot be used");
}

TEST(PointTable, GivesTheIonosphereOverPlaces)
{
    const auto res = PointTableMake(
        "hour,id,lat,lon,month,ssn,note\n0,Juliusruh,54.6,13.4,3,8,x\n24,Juliusruh,54.6,13.4,3,8,"
        "y\n",
        Behaviour::Best, MapSet::Mean);
    ASSERT_TRUE(res) << res.TextGet();
    const std::string& s = res.ValueGet();
    EXPECT_EQ(s.find("id,lat,lon,month,ssn,hour,fof2,m3000,foe,fh,dip,modip\nJuliusruh,54.6,13.4,3,"
                     "8,0,"),
              0u);
    const std::size_t nSecond = s.find("8,24,") + 5;
    const std::size_t nFirst = s.find("8,0,") + 4;
    EXPECT_EQ(s.substr(nFirst, s.find('\n', nFirst) - nFirst),
              s.substr(nSecond, s.find('\n', nSecond) - nSecond));
}

TEST(PointTable, AgreesWithTheControlPointOfACircuit)
{
    // Mid-path of the first row of the comparison tables: foF2 8.901 MHz, M(3000)F2 2.891.
    const auto res = PointTableMake("id,lat,lon,month,ssn,hour\nD01,13.2105,-119.5356,1,120,4\n",
                                    Behaviour::Best, MapSet::Mean);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_NE(res.ValueGet().find("120,4,8.901,2.891,"), std::string::npos) << res.ValueGet();
}

TEST(PointTable, TakesAMeasuredIndexAndNamesRubbish)
{
    const std::string sHead = "id,lat,lon,month,ssn,hour,ig\n";
    const auto fnOf = [&](const std::string& sIndex) {
        const auto res = PointTableMake(sHead + "a,10,20,6,0,12," + sIndex + "\n", Behaviour::Best,
                                        MapSet::Mean);
        return res ? res.ValueGet().substr(res.ValueGet().find("0,12,") + 5 + sIndex.size())
                   : res.TextGet();
    };
    EXPECT_EQ(fnOf(""), fnOf("-12.349"));
    EXPECT_NE(fnOf(""), fnOf("0"));
    EXPECT_EQ(fnOf("high"), "line 2, ig: \"high\" cannot be used");
    EXPECT_EQ(PointTableMake("id,lat\n", Behaviour::Best, MapSet::Mean).TextGet(), "no column lon");
}

}  // namespace
