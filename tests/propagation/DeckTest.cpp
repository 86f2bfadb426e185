#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "propagation/EngineCases.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/deck/DeckWriter.h"
#include "support/TempFolder.h"
#include "system/RunErrorText.h"

namespace {

Result<std::string> DeckMake(const Request& input, int iFirst, int iLast)
{
    return input.iModel == kEngineRec533 ? DeckRec533(input, iFirst, iLast, kCapturedYear)
                                         : DeckIcepacVoacap(input, iFirst, iLast, kCapturedYear);
}

/// Lines without their ends; a line end other than CR LF fails.
std::vector<std::string> Lines(const std::string& sDeck)
{
    std::vector<std::string> asLines;
    std::istringstream stm(sDeck);
    for (std::string sLine; std::getline(stm, sLine);) {
        EXPECT_TRUE(!sLine.empty() && sLine.back() == '\r') << sLine;
        if (!sLine.empty())
            sLine.pop_back();
        asLines.push_back(sLine);
    }
    return asLines;
}

std::string LineOf(const std::string& sDeck, std::string_view sStart)
{
    for (const std::string& sLine : Lines(sDeck))
        if (sLine.starts_with(sStart))
            return sLine;
    return {};
}

class CircuitDeck : public testing::TestWithParam<CircuitCase> {};
class AreaDeck : public testing::TestWithParam<AreaCase> {};

TEST_P(CircuitDeck, IsTheCapturedOneByteForByte)
{
    const Request input = InputMake(GetParam());
    const auto resDeck = DeckMake(input, 1, input.nData);
    ASSERT_TRUE(resDeck) << resDeck.TextGet();
    EXPECT_EQ(resDeck.ValueGet(), BytesRead(CapturedPath(GetParam().sName, ".dat")));
}

TEST_P(AreaDeck, IsTheCapturedOneByteForByte)
{
    const auto resDeck = DeckArea(AreaInputMake(GetParam()));
    ASSERT_TRUE(resDeck) << resDeck.TextGet();
    EXPECT_EQ(resDeck.ValueGet(),
              BytesRead(CapturedPath(GetParam().sName, AreaDeckExtension(GetParam().iModel))));
}

INSTANTIATE_TEST_SUITE_P(Captured, CircuitDeck, testing::ValuesIn(CircuitCases()),
                         [](const auto& test) { return CaseName(test.param.sName); });
INSTANTIATE_TEST_SUITE_P(Captured, AreaDeck, testing::ValuesIn(AreaCases()),
                         [](const auto& test) { return CaseName(test.param.sName); });

TEST(EngineCases, HoldAllCapturedDecks)
{
    EXPECT_EQ(CircuitCases().size(), 26U);
    EXPECT_EQ(AreaCases().size(), 10U);
}

TEST(DeckIcepacVoacap, IcepacGetsTheDeckOfVoacap)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    input.iModel = kEngineIcepac;
    EXPECT_EQ(DeckIcepacVoacap(input, 1, 10, kCapturedYear).ValueGet(),
              BytesRead(CapturedPath("voacap/p2p_01", ".dat")));
}

TEST(DeckIcepacVoacap, EquatorIsSouthAndPrimeMeridianWest)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    input.dTxLat = input.dTxLon = input.dRcLat = input.dRcLon = 0.0;
    EXPECT_EQ(LineOf(DeckIcepacVoacap(input, 1, 10, 2026).ValueGet(), "CIRCUIT"),
              "CIRCUIT    0.00S     0.00W     0.00S     0.00W        0");
}

TEST(DeckIcepacVoacap, TenFrequenciesFillColumns11To60)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    input.afFrequency = {0.0F,    14100.0F, 500.0F,  30000.0F, 2000.0F, 2000.0F,
                         2000.0F, 2000.0F,  2000.0F, 2000.0F,  2000.0F};
    const std::string sLine = LineOf(DeckIcepacVoacap(input, 1, 10, 2026).ValueGet(), "FREQUENCY");
    EXPECT_EQ(sLine, "FREQUENCY  14.1   .5 30.0  2.0  2.0  2.0  2.0  2.0  2.0  2.0");
    EXPECT_EQ(sLine.size(), 60U);
}

TEST(DeckIcepacVoacap, ALaterChunkHoldsItsOwnFrequenciesFromColumn11)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    input.afFrequency.resize(13, 21000.0F);
    input.nData = 12;
    EXPECT_EQ(LineOf(DeckIcepacVoacap(input, 11, 12, 2026).ValueGet(), "FREQUENCY"),
              "FREQUENCY  21.0 21.0");
}

TEST(DeckIcepacVoacap, YearIsTheGivenOneWhateverTheMonth)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    input.nMonth = 1;
    EXPECT_EQ(LineOf(DeckIcepacVoacap(input, 1, 1, 2031).ValueGet(), "MONTH"),
              "MONTH      2031    1");
}

TEST(DeckIcepacVoacap, CoefficientsAreWrittenAsTheyAre)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    input.sIonCoefficients = "other text";
    EXPECT_EQ(LineOf(DeckIcepacVoacap(input, 1, 1, 2026).ValueGet(), "COEFFS"),
              "COEFFS    other text");
    EXPECT_EQ(LineOf(DeckRec533(input, 1, 1, 2026).ValueGet(), "COEFFS"), "COEFFS    other text");
}

TEST(Decks, AntennaTypesChooseTheirCardsAndOthersNone)
{
    Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
    AreaRequest area = AreaInputMake(AreaCases().front());
    const auto fnCards = [](const std::string& sDeck, std::string_view sText) {
        std::string sCards;
        for (const std::string& sLine : Lines(sDeck))
            if (sLine.find(sText) != std::string::npos)
                sCards += sLine.substr(14) + "|";
        return sCards;
    };
    const std::string sTxConst =
        "1    1    2   30     0.000[DEFAULT\\CONST17.VOA  ]  0.0    0.1000|";
    const std::string sTxWhip =
        "1    1    2   30     0.000[DEFAULT\\SWWHIP.VOA   ]  0.0    5.0000|";
    const std::string sRcConst =
        "2    2    2   30     0.000[DEFAULT\\CONST17.VOA  ]  0.0    0.1000|";
    const std::string sRcWhip =
        "2    2    2   30     0.000[DEFAULT\\SWWHIP.VOA   ]  0.0    0.0000|";
    struct Row {
        int iType;
        std::string sVoacap, sRec533;
        bool bArea;
    };
    for (const Row& row :
         {Row{-1, "", "", false}, Row{0, sTxConst + sRcConst, sTxConst + sRcWhip, true},
          Row{1, sTxConst + sRcWhip, sTxWhip + sRcWhip, true}, Row{2, sTxWhip + sRcWhip, "", false},
          Row{3, "", "", false}}) {
        input.iAntennaType = row.iType;
        EXPECT_EQ(fnCards(DeckIcepacVoacap(input, 1, 1, 2026).ValueGet(), "ANTENNA"), row.sVoacap)
            << row.iType;
        EXPECT_EQ(fnCards(DeckRec533(input, 1, 1, 2026).ValueGet(), "ANTENNA"), row.sRec533)
            << row.iType;
        area.iAntennaType = row.iType;
        const std::string sArea = DeckArea(area).ValueGet();
        EXPECT_EQ(LineOf(sArea, "Rec Ants :").empty(), !row.bArea) << row.iType;
        EXPECT_EQ(LineOf(sArea, "Tx Ants  :").empty(), !row.bArea) << row.iType;
    }
}

TEST(Decks, EveryValueThatDoesNotFitIsAnError)
{
    const auto fnTry = [](auto fnChange) {
        Request input = InputMake(CircuitCaseGet("voacap/p2p_01"));
        fnChange(input);
        return DeckIcepacVoacap(input, 1, 10, 2026).TextGet();
    };
    EXPECT_EQ(fnTry([](auto&) {}), "");
    EXPECT_EQ(fnTry([](auto& input) { input.fSunSpotNumber = 1000.0F; }), kInvalidCall);
    EXPECT_EQ(fnTry([](auto& input) { input.fNoiseLevel = -99999.0F; }), kInvalidCall);
    EXPECT_EQ(fnTry([](auto& input) { input.dTxLon = 1000.0; }), kInvalidCall);
    EXPECT_EQ(fnTry([](auto& input) { input.nMonth = 123456; }), kInvalidCall);
    EXPECT_EQ(fnTry([](auto& input) { input.afFrequency[10] = 1e6F; }), kInvalidCall);
    EXPECT_EQ(fnTry([](auto& input) { input.fLayerAdjustEs = -10.0F; }), kInvalidCall);
    EXPECT_EQ(fnTry([](auto& input) { input.dRcLat = std::numeric_limits<double>::quiet_NaN(); }),
              kInvalidCall);
}

TEST(DeckRec533, NoiseKeepsItsSign)
{
    const Request input = InputMake(CircuitCaseGet("rec533/p2p_01"));
    EXPECT_EQ(LineOf(DeckRec533(input, 1, 10, 2026).ValueGet(), "NOIS"),
              "NOIS       -145    1   40   50");
}

TEST(DeckArea, IcepacHasTheLinesOfVoacapUnderItsName)
{
    AreaRequest area = AreaInputMake(AreaCases().front());
    const std::string sVoacap = DeckArea(area).ValueGet();
    area.iModel = kEngineIcepac;
    const std::string sIcepac = DeckArea(area).ValueGet();
    EXPECT_EQ(LineOf(sIcepac, "Model"), "Model    :ICEPAC");
    EXPECT_EQ(sIcepac.substr(sIcepac.find('\n')), sVoacap.substr(sVoacap.find('\n')));
}

TEST(DeckArea, Rec533HasNoMethodQIndexAndFprobLine)
{
    AreaRequest area = AreaInputMake(AreaCases().front());
    area.iModel = kEngineRec533;
    const std::string sDeck = DeckArea(area).ValueGet();
    EXPECT_EQ(LineOf(sDeck, "Method"), "");
    EXPECT_EQ(LineOf(sDeck, "Qindexs"), "");
    EXPECT_EQ(LineOf(sDeck, "Fprob"), "");
    EXPECT_EQ(Lines(sDeck).size(), 17U);
}

TEST(DeckArea, QIndexIsFixedAtZero)
{
    EXPECT_EQ(LineOf(DeckArea(AreaInputMake(AreaCases().front())).ValueGet(), "Qindexs"),
              "Qindexs  :   0.00");
}

TEST(DeckArea, NoiseIsWrittenAsItIsHandedOver)
{
    AreaRequest area = AreaInputMake(AreaCases().front());
    area.fNoiseLevel = -145.0F;
    EXPECT_EQ(LineOf(DeckArea(area).ValueGet(), "System").substr(0, 15), "System   : -145");
}

TEST(DeckArea, AnUnknownModelHasNoDeck)
{
    AreaRequest area = AreaInputMake(AreaCases().front());
    area.iModel = 4;
    EXPECT_EQ(DeckArea(area).TextGet(), kInvalidCall);
}

TEST(DeckLayout, ChecksOrderOverlapWidthAndFormat)
{
    static_assert(LayoutCheck(std::array{Field{1, 5, "I5"}, Field{6, 5, "F5.1"}}, 10));
    static_assert(!LayoutCheck(std::array{Field{1, 5, "I5"}, Field{5, 5, "F5.1"}}, 10), "overlap");
    static_assert(!LayoutCheck(std::array{Field{6, 5, "I5"}, Field{1, 5, "F5.1"}}, 10), "order");
    static_assert(!LayoutCheck(std::array{Field{1, 5, "I5"}, Field{7, 5, "F5.1"}}, 10),
                  "past the end");
    static_assert(!LayoutCheck(std::array{Field{1, 6, "I5"}}, 10), "width of the format");
    static_assert(!LayoutCheck(std::array{Field{1, 0, kText}}, 10), "empty field");
    SUCCEED();
}

}  // namespace
