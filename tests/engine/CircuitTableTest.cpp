// The table of circuits: columns found by name, rows computed, rubbish named.

#include <gtest/gtest.h>

#include "engine/run533/CircuitTable.h"

namespace {

using rec533::Behaviour;
using rec533::MapSet;
using run533::CircuitTableMake;

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

}  // namespace
