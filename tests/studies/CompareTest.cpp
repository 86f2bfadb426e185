#include <gtest/gtest.h>

#include <cmath>

#include "propagation/PowerTable.h"
#include "studies/compare/Compare.h"

namespace {

/// Two frequencies; every cell without an SNR.
PropagationTable TableMake()
{
    PropagationTable table(2);
    table.PresentSet(1, 2, true);
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        for (int i = 1; i <= 2; ++i) table.fSnr(iHour, i) = -999.0F;
    return table;
}

TEST(Compare, OfATableWithItselfIsAllZeroAndFullAgreement)
{
    PropagationTable table = TableMake();
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        table.fSnr(iHour, 1) = 2.0F * static_cast<float>(iHour);
    const CompareTable compare = CompareGet(table, table, 40.0F);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        EXPECT_EQ(compare.fDifference(iHour, 1), 0.0F);
        EXPECT_TRUE(std::isnan(compare.fDifference(iHour, 2)));
    }
    EXPECT_EQ(compare.figures.nOpenEither, 5);  // hours 20 to 24
    EXPECT_EQ(compare.figures.AgreementGet(), 1.0);
    EXPECT_EQ(compare.figures.nOpenOnlyA + compare.figures.nOpenOnlyB, 0);
    EXPECT_EQ(compare.figures.dRms, 0.0);
}

TEST(Compare, CountsTheOpenCellsAndTheirAgreement)
{
    PropagationTable tableA = TableMake();
    PropagationTable tableB = TableMake();
    const auto CellSet = [&](int iHour, float fA, float fB) {
        tableA.fSnr(iHour, 1) = fA;
        tableB.fSnr(iHour, 1) = fB;
    };
    CellSet(1, 50.0F, 44.0F);    // just agree
    CellSet(2, 50.0F, 43.9F);    // just disagree
    CellSet(3, 41.0F, 39.0F);    // only A is open, and they agree
    CellSet(4, 20.0F, 60.0F);    // only B is open
    CellSet(5, 55.0F, -999.0F);  // only A is open; no difference
    CellSet(6, 10.0F, 12.0F);    // both closed
    const CompareTable compare = CompareGet(tableA, tableB, 40.0F);
    EXPECT_EQ(compare.fDifference(1, 1), 6.0F);
    EXPECT_EQ(compare.fDifference(4, 1), -40.0F);
    EXPECT_EQ(compare.fDifference(6, 1), -2.0F);
    EXPECT_TRUE(std::isnan(compare.fDifference(5, 1)));
    const CompareFigures& figures = compare.figures;
    EXPECT_EQ(figures.nOpenEither, 5);
    EXPECT_EQ(figures.nBoth, 4);
    EXPECT_EQ(figures.nAgree, 2);
    EXPECT_EQ(figures.AgreementGet(), 0.5);
    EXPECT_EQ(figures.nOpenOnlyA, 2);
    EXPECT_EQ(figures.nOpenOnlyB, 1);
    EXPECT_NEAR(figures.dMean, (6.0 + 6.1 + 2.0 - 40.0) / 4, 1e-5);
    EXPECT_NEAR(figures.dRms, std::sqrt((36.0 + 37.21 + 4.0 + 1600.0) / 4), 1e-4);
}

TEST(Compare, LeavesOutAFrequencyWithoutValues)
{
    PropagationTable tableA = TableMake();
    PropagationTable tableB = TableMake();
    tableA.fSnr(1, 1) = tableB.fSnr(1, 1) = 60.0F;
    tableB.PresentSet(1, 1, false);
    const CompareTable compare = CompareGet(tableA, tableB, 40.0F);
    EXPECT_TRUE(std::isnan(compare.fDifference(1, 1)));
    EXPECT_EQ(compare.figures.nBoth, 0);
    EXPECT_EQ(compare.figures.nOpenOnlyA, 1);
    EXPECT_EQ(compare.figures.AgreementGet(), 0.0);
}

TEST(Compare, IsToldInWordsWithoutWhatIsZero)
{
    CompareFigures figures;
    EXPECT_EQ(CompareText(figures, "VOACAP", "REC533"), "no cell is open");
    figures.nOpenEither = 100;
    figures.nBoth = 100;
    figures.nAgree = 71;
    figures.nOpenOnlyB = 22;
    EXPECT_EQ(CompareText(figures, "VOACAP", "REC533"),
              "within 6 dB in 71 %; only REC533 open: 22");
    figures.nOpenOnlyA = 3;
    EXPECT_EQ(CompareText(figures, "VOACAP", "REC533"),
              "within 6 dB in 71 %; only VOACAP open: 3; only REC533 open: 22");
    figures.nBoth = 0;
    figures.nOpenOnlyB = 0;
    EXPECT_EQ(CompareText(figures, "VOACAP", "REC533"), "only VOACAP open: 3");
}

TEST(Compare, AsksAnotherEngineForTheSamePowerInTheMapsThatItKnows)
{
    Settings settings;
    settings.m_iPropagationModel = kEngineRec533;
    settings.m_iPropagationAntennaType = 0;
    settings.m_fStationPower = 0.0F;
    settings.m_bPropagationMapsMean = true;
    const Request own = CompareRequestGet(settings, SunSpotSource::Noaa, kEngineRec533);
    const Request other = CompareRequestGet(settings, SunSpotSource::Noaa, kEngineVoacap);
    EXPECT_EQ(other.iModel, kEngineVoacap);
    EXPECT_EQ(own.iModel, kEngineRec533);
    EXPECT_EQ(other.eSunSpotSource, SunSpotSource::Noaa);
    const auto fCard = static_cast<float>(
        CardPowerGet(kEngineRec533, 0, DeckKind::PointToPoint));  // the power of REC533's choice
    EXPECT_EQ(own.fPower, fCard);
    EXPECT_EQ(other.fPower, fCard);
    EXPECT_NE(other.sIonCoefficients, kCoefficientsMean);
    EXPECT_EQ(own.iAntennaType, 0);
    settings.m_iPropagationAntennaType = 1;  // VOACAP's choice of this number has another power
    ASSERT_NE(CardPowerGet(kEngineRec533, 1, DeckKind::PointToPoint),
              CardPowerGet(kEngineVoacap, 1, DeckKind::PointToPoint));
    EXPECT_EQ(CompareRequestGet(settings, SunSpotSource::Noaa, kEngineVoacap).fPower,
              static_cast<float>(CardPowerGet(kEngineRec533, 1, DeckKind::PointToPoint)));
    settings.m_fStationPower = 70.0F;
    EXPECT_EQ(CompareRequestGet(settings, SunSpotSource::Noaa, kEngineVoacap).fPower, 70.0F);
}

TEST(Compare, AsksAnotherEngineForTheSameAntennas)
{
    Settings settings;
    const auto AntennaGet = [&settings](int iModelFrom, int iAntenna, int iModelTo) {
        settings.m_iPropagationModel = iModelFrom;
        settings.m_iPropagationAntennaType = iAntenna;
        return CompareRequestGet(settings, SunSpotSource::Typed, iModelTo).iAntennaType;
    };
    EXPECT_EQ(AntennaGet(kEngineVoacap, 0, kEngineRec533), 0) << "the station has its gain";
    EXPECT_EQ(AntennaGet(kEngineVoacap, 1, kEngineRec533), 0) << "station with gain, whip";
    EXPECT_EQ(AntennaGet(kEngineIcepac, 2, kEngineRec533), 1) << "whips";
    EXPECT_EQ(AntennaGet(kEngineRec533, 0, kEngineVoacap), 1);
    EXPECT_EQ(AntennaGet(kEngineRec533, 1, kEngineIcepac), 2);
    EXPECT_GT(AntennaGet(kEngineRec533, 2, kEngineVoacap), 2) << "plain antennas: no cards";
    for (int iAntenna = 0; iAntenna <= 2; ++iAntenna) {
        EXPECT_EQ(AntennaGet(kEngineVoacap, iAntenna, kEngineIcepac), iAntenna);
        EXPECT_EQ(AntennaGet(kEngineRec533, iAntenna, kEngineRec533), iAntenna);
    }
}

}  // namespace
