// The table of powers compared with the decks that are written, with what the built-in engine reads
// in them, and with what the ITS engines made of them.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <ostream>
#include <sstream>

#include "engine/run533/Decks.h"
#include "propagation/EngineCases.h"
#include "propagation/PowerTable.h"
#include "propagation/deck/DeckLib.h"
#include "support/TempFolder.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr double kDecibelHalf = 0.5;  // rounding to whole dB may hide this much

std::string DeckMake(int iModel, int iAntennaType, DeckKind eKind)
{
    if (eKind == DeckKind::Area) {
        AreaRequest input = AreaInputMake(AreaCases().front());
        input.iModel = iModel;
        input.iAntennaType = iAntennaType;
        return DeckArea(input).ValueGet();
    }
    Request input = InputMake(CircuitCases().front());
    input.iModel = iModel;
    input.iAntennaType = iAntennaType;
    return (iModel == kEngineRec533 ? DeckRec533(input, 1, input.nData, kCapturedYear)
                                    : DeckIcepacVoacap(input, 1, input.nData, kCapturedYear))
        .ValueGet();
}

/// The power on the transmitter's antenna card, W; nothing without a card.
std::optional<double> PowerOfDeck(const std::string& sDeck)
{
    struct Card {
        const char* sStart;
        int nCol, nWidth;
    };
    std::optional<double> optPower;
    for (const std::string_view sLine : TextLines(sDeck)) {
        for (const Card& card : {Card{"ANTENNA       1", 69, 10}, Card{"Tx Ants  :", 47, 11}}) {
            if (!sLine.starts_with(card.sStart))
                continue;
            EXPECT_FALSE(optPower) << "two transmitters' cards";
            const auto res = NumberFromText(TextColumns(sLine, card.nCol, card.nWidth));
            EXPECT_TRUE(res) << sLine;
            optPower = res.ValueGet() * 1000.0;
        }
    }
    return optPower;
}

/// The numbers in nCount fields of nWidth columns each, from column nFrom (counted from 1).
std::vector<double> NumbersOfRow(std::string_view sLine, int nFrom, int nCount, int nWidth)
{
    std::vector<double> adValue;
    for (int i = 0; i < nCount; ++i) {
        const auto res = NumberFromText(TextColumns(sLine, nFrom + i * nWidth, nWidth));
        adValue.push_back(res ? res.ValueGet() : std::numeric_limits<double>::quiet_NaN());
    }
    return adValue;
}

TEST(CardPower, IsTheOneOnTheCardOfEveryDeckThatIsWritten)
{
    for (const int iModel : {kEngineIcepac, kEngineVoacap, kEngineRec533}) {
        for (const DeckKind eKind : {DeckKind::PointToPoint, DeckKind::Area}) {
            for (const int iType : {-1, 0, 1, 2, 3, 99}) {
                const auto optCard = PowerOfDeck(DeckMake(iModel, iType, eKind));
                EXPECT_NEAR(CardPowerGet(iModel, iType, eKind), optCard.value_or(1000.0), 1e-6)
                    << iModel << " type " << iType << (eKind == DeckKind::Area ? " area" : "");
            }
        }
    }
}

TEST(CardPower, OfTheTypesIsTheWrittenTable)
{
    using enum DeckKind;
    for (const int iModel : {kEngineIcepac, kEngineVoacap}) {
        EXPECT_EQ(CardPowerGet(iModel, 0, PointToPoint), 100.0);
        EXPECT_EQ(CardPowerGet(iModel, 1, PointToPoint), 100.0);
        EXPECT_EQ(CardPowerGet(iModel, 2, PointToPoint), 5000.0);
        EXPECT_EQ(CardPowerGet(iModel, 3, PointToPoint), 1000.0);
    }
    EXPECT_EQ(CardPowerGet(kEngineRec533, 0, PointToPoint), 100.0);
    EXPECT_EQ(CardPowerGet(kEngineRec533, 1, PointToPoint), 5000.0);
    EXPECT_EQ(CardPowerGet(kEngineRec533, 2, PointToPoint), 1000.0);
    for (const int iModel : {kEngineIcepac, kEngineVoacap, kEngineRec533}) {
        EXPECT_EQ(CardPowerGet(iModel, 0, Area), 100.0);
        EXPECT_EQ(CardPowerGet(iModel, 1, Area), 5000.0);
        EXPECT_EQ(CardPowerGet(iModel, 2, Area), 1000.0);
    }
    EXPECT_EQ(CardPowerGet(9, 1, PointToPoint), 1000.0);
}

TEST(CardPower, IsWhatTheBuiltInEngineReads)
{
    for (const int iType : {0, 1, 2, 3}) {
        const auto resPoint =
            run533::PointDeckRead(DeckMake(kEngineRec533, iType, DeckKind::PointToPoint));
        ASSERT_TRUE(resPoint) << resPoint.TextGet();
        const auto& optPoint = resPoint.ValueGet().common.txAntenna;
        EXPECT_NEAR(CardPowerGet(kEngineRec533, iType, DeckKind::PointToPoint),
                    1000.0 * (optPoint ? optPoint->dPowerKw : resPoint.ValueGet().dPowerKw), 1e-6);
        const auto resArea = run533::AreaDeckRead(DeckMake(kEngineRec533, iType, DeckKind::Area));
        ASSERT_TRUE(resArea) << resArea.TextGet();
        const auto& optArea = resArea.ValueGet().common.txAntenna;
        EXPECT_NEAR(CardPowerGet(kEngineRec533, iType, DeckKind::Area),
                    1000.0 * (optArea ? optArea->dPowerKw : run533::kPowerWithoutAntenna), 1e-6);
    }
}

// In VOACAP's outputs signal (dBW) plus loss (dB) equals the transmitter's power.
TEST(CardPower, IsSignalPlusLossInEveryOutputOfVoacap)
{
    int nCases = 0;
    for (const CircuitCase& c : CircuitCases()) {
        if (c.iModel != kEngineVoacap)
            continue;
        ++nCases;
        const double dExpected =
            10.0 * std::log10(CardPowerGet(c.iModel, c.iAntenna, DeckKind::PointToPoint));
        const std::string sOutput = BytesRead(CapturedPath(c.sName, ".out"));
        std::string_view sLoss;
        int nValues = 0;
        for (const std::string_view sLine : TextLines(sOutput)) {
            if (sLine.find(" LOSS") == 66)
                sLoss = sLine;
            if (sLine.find(" S DBW") != 66)
                continue;
            const std::vector<double> adLoss = NumbersOfRow(sLoss, 12, 10, 5);
            const std::vector<double> adSignal = NumbersOfRow(sLine, 12, 10, 5);
            for (std::size_t n = 0; n < c.adKilohertz.size(); ++n, ++nValues)
                EXPECT_NEAR(adLoss[n] + adSignal[n], dExpected, 2.0 * kDecibelHalf) << c << sLine;
        }
        EXPECT_EQ(nValues, 24 * static_cast<int>(c.adKilohertz.size())) << c;
    }
    EXPECT_EQ(nCases, 13);
}

TEST(CardPower, IsSignalPlusLossInEveryGridOfVoacap)
{
    constexpr int kFieldWidth = 6;
    int nPoints = 0;
    for (const AreaCase& c : AreaCases()) {
        if (c.iModel != kEngineVoacap)
            continue;
        const double dExpected =
            10.0 * std::log10(CardPowerGet(c.iModel, c.iAntenna, DeckKind::Area));
        const std::string sGrid = BytesRead(CapturedPath(c.sName, AreaGridExtension(c.iModel)));
        int nLoss = 0;
        int nSignal = 0;
        for (const std::string_view sLine : TextLines(sGrid)) {
            if (sLine.find("Latitude") != std::string_view::npos) {
                nLoss = static_cast<int>(sLine.find("  LOSS")) + 1;
                nSignal = static_cast<int>(sLine.find("  SDBW")) + 1;
                continue;
            }
            if (nLoss == 0)
                continue;
            const double dLoss = NumbersOfRow(sLine, nLoss, 1, kFieldWidth)[0];
            const double dSignal = NumbersOfRow(sLine, nSignal, 1, kFieldWidth)[0];
            if (!(std::abs(dLoss) < 900.0 && std::abs(dSignal) < 900.0))
                continue;  // a point without a result, or with numbers that run together
            EXPECT_NEAR(dLoss + dSignal, dExpected, 0.11) << c << sLine;
            ++nPoints;
        }
    }
    EXPECT_GT(nPoints, 3000);
}

// The two captured circuits have the same path and conditions, but other antennas and power. At the
// MUF the whip has a gain of -0.6 to 0 dB, and both field strengths are of the same mode.
TEST(CardPower, OfRec533WithoutCardsIsAFifthOfTheWhips)
{
    const auto FieldsGet = [](std::string_view sName) {
        std::vector<double> adField;
        const std::string sOutput = BytesRead(CapturedPath(sName, ".out"));
        for (const std::string_view sLine : TextLines(sOutput))
            if (sLine.find("DBU ") == 59)
                adField.push_back(NumbersOfRow(sLine, 4, 1, 5)[0]);
        return adField;
    };
    const std::vector<double> adWhip = FieldsGet("rec533/p2p_01");
    const std::vector<double> adNone = FieldsGet("rec533/p2p_13");
    ASSERT_EQ(adWhip.size(), 24U);
    ASSERT_EQ(adNone.size(), 24U);
    double dSum = 0.0;
    for (std::size_t n = 0; n < adWhip.size(); ++n) dSum += adWhip[n] - adNone[n];
    const double dExpected = 10.0
                             * std::log10(CardPowerGet(kEngineRec533, 1, DeckKind::PointToPoint)
                                          / CardPowerGet(kEngineRec533, 2, DeckKind::PointToPoint));
    EXPECT_NEAR(dSum / 24.0, dExpected, 0.6);
}

TEST(PowerShift, Is10DecibelFrom100To1000WattsForAllEnginesAntennasAndDecks)
{
    for (const int iModel : {kEngineIcepac, kEngineVoacap, kEngineRec533}) {
        for (const DeckKind eKind : {DeckKind::PointToPoint, DeckKind::Area}) {
            for (const int iType : {0, 1, 2, 7}) {
                const double dLow = PowerShiftGet(100.0, iModel, iType, eKind);
                const double dHigh = PowerShiftGet(1000.0, iModel, iType, eKind);
                EXPECT_NEAR(dHigh - dLow, 10.0, 1e-12);
                EXPECT_NEAR(PowerShiftSnr(30.0F, dHigh) - PowerShiftSnr(30.0F, dLow), 10.0, 1e-5);
                EXPECT_NEAR(std::pow(10.0, dLow / 10.0) * CardPowerGet(iModel, iType, eKind), 100.0,
                            1e-9);
            }
        }
    }
    EXPECT_NEAR(PowerShiftGet(100.0, kEngineRec533, 1, DeckKind::PointToPoint), -16.9897, 1e-4);
}

TEST(PowerShift, IsNothingWithoutAnOwnPower)
{
    for (const double dOwn : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(PowerShiftGet(dOwn, kEngineRec533, 1, DeckKind::PointToPoint), 0.0);
        EXPECT_EQ(PowerInForceGet(dOwn, kEngineRec533, 1, DeckKind::PointToPoint), 5000.0);
    }
    EXPECT_EQ(PowerShiftGet(5000.0, kEngineRec533, 1, DeckKind::PointToPoint), 0.0);
    EXPECT_EQ(PowerInForceGet(25.0, kEngineRec533, 1, DeckKind::PointToPoint), 25.0);
}

TEST(PowerShift, ValuesThatSayThereIsNoneStay)
{
    for (const float fNone : {-99.0F, -999.0F, -999.9F})
        for (const double dShift : {-16.99, 10.0}) EXPECT_EQ(PowerShiftSnr(fNone, dShift), fNone);
    EXPECT_TRUE(std::isnan(PowerShiftSnr(std::numeric_limits<float>::quiet_NaN(), 10.0)));
    for (const double dShift : {-16.99, 16.99})
        EXPECT_EQ(PowerShiftSnr(-99.9F, dShift), -99.9F) << "the least of a grid's column";
    EXPECT_FLOAT_EQ(PowerShiftSnr(-99.8F, 10.0), -89.8F);
    EXPECT_EQ(PowerShiftSnr(-98.0F, 10.0), -88.0F);
    EXPECT_EQ(PowerShiftSnr(-120.0F, 10.0), -110.0F);
}

TEST(SnrGiven, IsFalseForTheEnginesNumbersOfNoneAndForNoNumberAlone)
{
    for (const float fNone : {-99.0F, -999.0F, -999.9F, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_FALSE(SnrIsGiven(fNone)) << fNone;
    for (const float fSnr : {-98.0F, -100.0F, -998.0F, 0.0F, 99.0F})
        EXPECT_TRUE(SnrIsGiven(fSnr)) << fSnr;
}

TEST(PowerShift, OfATableMovesSignalAndSnrOfTheChunkAlone)
{
    Request request;
    request.iModel = kEngineRec533;
    request.iAntennaType = 1;
    request.fPower = 50.0F;  // 20 dB below the power of the whip
    PropagationTable table(3);
    for (int i = 1; i <= 3; ++i) {
        table.fSdBW(24, i) = -120.0F;
        table.fNdBW(24, i) = -163.0F;
        table.fSnr(24, i) = 41.0F;
        table.fSnrMedian(24, i) = 43.25F;
        table.fReliability(24, i) = 0.5F;
    }
    table.fSnr(24, 2) = -999.0F;
    table.fSdBW(1, 1) = -99.0F;  // an ordinary value for a signal
    table.fLUF[24] = 4500.0F;
    PowerShiftTable(request, 1, 2, table);
    EXPECT_NEAR(table.fSnr(24, 1), 21.0F, 1e-4);
    EXPECT_NEAR(table.fSnrMedian(24, 1), 23.25F, 1e-4);
    EXPECT_TRUE(std::isnan(table.fSnrMedian(1, 1)));
    EXPECT_NEAR(table.fSdBW(24, 1), -140.0F, 1e-4);
    EXPECT_NEAR(table.fSdBW(1, 1), -119.0F, 1e-4);
    EXPECT_EQ(table.fNdBW(24, 1), -163.0F);
    EXPECT_EQ(table.fReliability(24, 1), 0.5F);
    EXPECT_EQ(table.fLUF[24], 4500.0F);
    EXPECT_EQ(table.fSnr(24, 2), -999.0F);
    EXPECT_EQ(table.fSdBW(24, 2), -120.0F) << "without an SNR";
    EXPECT_EQ(table.fSnr(24, 3), 41.0F) << "of another chunk";
    EXPECT_EQ(table.fSdBW(24, 3), -120.0F);
}

}  // namespace
