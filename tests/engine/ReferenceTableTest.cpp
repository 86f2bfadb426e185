// The method as the ITU program carries it out, against its own tables: every row, every column.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "engine/ReferenceData.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

constexpr std::size_t kRows = 1800;

// Within 0.01, or 0.01 % of large values.
void ExpectLike(const DataTable& tbl, std::size_t nRow, const char* sColumn, double dValue)
{
    if (tbl.Empty(nRow, sColumn))
        return;
    const double dExpected = tbl.NumberGet(nRow, sColumn);
    EXPECT_NEAR(dValue, dExpected, std::max(0.01, 1e-4 * std::abs(dExpected)))
        << sColumn << " of " << tbl.TextGet(nRow, "id") << " at " << tbl.TextGet(nRow, "hour")
        << " h, " << tbl.TextGet(nRow, "freq") << " MHz";
}

template <class RowFn>
void RowsVisit(RowFn fnRow)
{
    const DataTable tbl("p533_reference.csv");
    ASSERT_EQ(tbl.CountGet(), kRows);
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Reference, MapSet::Ccir);
    for (std::size_t i = 0; i < kRows; ++i) {
        pRun->Go(tbl.TextGet(i, "id"), tbl.IntegerGet(i, "hour"));
        fnRow(tbl, i, *pRun, pRun->PredictionGet(tbl.NumberGet(i, "freq")));
    }
}

TEST(ReferenceTable, PathAndMufAgree)
{
    RowsVisit([](const DataTable& tbl, std::size_t i, CircuitRun& run, const Prediction&) {
        const Hour& tblHour = run.m_tblHour;
        ExpectLike(tbl, i, "dist_km", run.m_tblPath.tblWay.dKm);
        ExpectLike(tbl, i, "dmax_km", tblHour.dRangeMost);
        EXPECT_EQ(tbl.IntegerGet(i, "n0_f2"), tblHour.nOrderF2);
        EXPECT_EQ(tbl.IntegerGet(i, "n0_e"), tblHour.nOrderE);
        ExpectLike(tbl, i, "bmuf", tblHour.dMuf);
        ExpectLike(tbl, i, "muf10", tblHour.dMuf10);
        ExpectLike(tbl, i, "muf90", tblHour.dMuf90);
        ExpectLike(tbl, i, "opmuf50", tblHour.dOperational);
        ExpectLike(tbl, i, "opmuf10", tblHour.dOperational10);
        ExpectLike(tbl, i, "opmuf90", tblHour.dOperational90);
    });
}

TEST(ReferenceTable, FieldPowerAndModeAgree)
{
    RowsVisit(
        [](const DataTable& tbl, std::size_t i, CircuitRun&, const Prediction& tblPrediction) {
            EXPECT_EQ(ModeName(tblPrediction.nHops, tblPrediction.bE), tbl.TextGet(i, "mode"))
                << tbl.TextGet(i, "id");
            ExpectLike(tbl, i, "ele", tblPrediction.dElevation * kDegrees);
            ExpectLike(tbl, i, "es", tblPrediction.dFieldShort);
            ExpectLike(tbl, i, "el", tblPrediction.dFieldLong);
            ExpectLike(tbl, i, "ei", tblPrediction.dField);
            ExpectLike(tbl, i, "e", tblPrediction.dField);
            ExpectLike(tbl, i, "pr", tblPrediction.dPower);
        });
}

TEST(ReferenceTable, LongMethodAgrees)
{
    std::size_t nLong = 0;
    RowsVisit(
        [&](const DataTable& tbl, std::size_t i, CircuitRun& run, const Prediction& tblPrediction) {
            if (run.m_tblPath.tblWay.dKm < kShortOnly)
                return;
            ++nLong;
            const LongPath& tblLong = run.m_tblPath.tblLong;
            const LongHour& tblHour = run.m_tblHour.tblLong;
            ExpectLike(tbl, i, "e0", LongFreeGet(tblLong));
            ExpectLike(tbl, i, "gap", tblLong.dGap);
            ExpectLike(tbl, i, "fm", tblHour.dUpper);
            ExpectLike(tbl, i, "fl", tblHour.dLower);
            ExpectLike(tbl, i, "k1", tblHour.dK1);
            ExpectLike(tbl, i, "k2", tblHour.dK2);
            ExpectLike(tbl, i, "fh", tblLong.dGyro);
            ExpectLike(tbl, i, "f_factor", tblPrediction.dLongShare);
        });
    EXPECT_GT(nLong, 400u);
}

TEST(ReferenceTable, NoiseSnrAndReliabilityAgree)
{
    RowsVisit(
        [](const DataTable& tbl, std::size_t i, CircuitRun& run, const Prediction& tblPrediction) {
            const double dFrequency = tbl.NumberGet(i, "freq");
            const Circuit& tblCircuit = run.m_tblPath.tblCircuit;
            const Noise tblA = NoiseAtmosphericGet(run.m_tblIonosphere, run.m_tblPath.tblNoise,
                                                   run.m_tblHour.nLabel, dFrequency);
            const Noise tblM =
                NoiseManMadeGet(tblCircuit.eNoise, tblCircuit.dNoiseLevel, dFrequency, true);
            const Noise tblG = NoiseGalacticGet(dFrequency);
            const Noise tblT = NoiseTotalGet(tblA, tblM, tblG);
            ExpectLike(tbl, i, "faa", tblA.dFa);
            ExpectLike(tbl, i, "dua", tblA.dUpper);
            ExpectLike(tbl, i, "dla", tblA.dLower);
            ExpectLike(tbl, i, "fam", tblM.dFa);
            ExpectLike(tbl, i, "dum", tblM.dUpper);
            ExpectLike(tbl, i, "dlm", tblM.dLower);
            ExpectLike(tbl, i, "fag", tblG.dFa);
            ExpectLike(tbl, i, "fat", tblT.dFa);
            ExpectLike(tbl, i, "dut", tblT.dUpper);
            ExpectLike(tbl, i, "dlt", tblT.dLower);
            ExpectLike(tbl, i, "snr50", tblPrediction.dSnr);
            ExpectLike(tbl, i, "dusn", tblPrediction.dSnrUpper);
            ExpectLike(tbl, i, "dlsn", tblPrediction.dSnrLower);
            ExpectLike(tbl, i, "snrxx", tblPrediction.dSnrExceeded);
            ExpectLike(tbl, i, "rel", tblPrediction.dReliability);
        });
}

TEST(ReferenceTable, EveryModeAgrees)
{
    const DataTable tbl("p533_modes.csv");
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Reference, MapSet::Ccir);
    const auto pRows = std::make_unique<ModesRows>();
    FrequencySet tblSet;
    for (std::size_t i = 0; i < tbl.CountGet(); ++i) {
        pRun->Go(tbl.TextGet(i, "id"), tbl.IntegerGet(i, "hour"));
        const double dFrequency = tbl.NumberGet(i, "freq");
        FrequencySetFill(tblSet, pRun->m_tblIonosphere, pRun->m_tblPath.tblCircuit,
                         {&dFrequency, 1});
        ModesRowsFill(*pRows, pRun->m_tblHour, tblSet);
        std::size_t nMode = 0;
        const auto nModes = static_cast<std::size_t>(pRun->m_tblHour.nModes);
        while (nMode < nModes
               && ModeName(pRun->m_tblHour.aModes[nMode].nHops, pRun->m_tblHour.aModes[nMode].bE)
                      != tbl.TextGet(i, "mode"))
            ++nMode;
        ASSERT_LT(nMode, nModes) << tbl.TextGet(i, "id") << " lacks " << tbl.TextGet(i, "mode");
        const Mode& tblMode = pRun->m_tblHour.aModes[nMode];
        const ModeRows& tblRows = (*pRows)[nMode];
        const bool bUsed = tblRows.aUsed[0] > 0.0;
        ExpectLike(tbl, i, "bmuf", tblMode.dMuf);
        ExpectLike(tbl, i, "opmuf", tblMode.dOperational);
        ExpectLike(tbl, i, "dl", tblMode.tblDeciles.dLower);
        ExpectLike(tbl, i, "du", tblMode.tblDeciles.dUpper);
        ExpectLike(tbl, i, "fs", tblRows.aScreening[0]);
        EXPECT_EQ(bUsed, tbl.IntegerGet(i, "used") == 1);
        if (!tblMode.bE)
            ExpectLike(tbl, i, "hr", tblRows.aMirror[0]);
        if (!bUsed)
            continue;
        ExpectLike(tbl, i, "ele", tblMode.dElevation * kDegrees);
        ExpectLike(tbl, i, "lb", tblRows.aLoss[0]);
        ExpectLike(tbl, i, "ew", tblRows.aField[0]);
    }
}

// One digit of the printed control-point value, or 0.001.
constexpr double kPoint = 0.00101;

TEST(ReferencePoints, MapsFieldAndSunAgree)
{
    const DataTable tbl("p533_points.csv");
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Reference, MapSet::Ccir);
    Site tblSite;
    for (std::size_t i = 0; i < tbl.CountGet(); ++i) {
        const int nLabel = tbl.IntegerGet(i, "hour");
        const auto fnNumber = [&](const char* sName) { return tbl.NumberGet(i, sName); };
        pRun->Go(tbl.TextGet(i, "id"), nLabel);
        const Ionosphere& tblIono = pRun->m_tblIonosphere;
        const Way& tblWay = pRun->m_tblPath.tblWay;
        SiteFill(tblSite, WayPlace(tblWay, fnNumber("dist") / tblWay.dKm));
        const FoeHour tblFoe = FoeHourGet(tblIono, nLabel);
        const std::string sWhere = tbl.TextGet(i, "id") + " " + tbl.TextGet(i, "point");
        const MagneticField tblLow = MagneticFieldGet(tblSite.tblPlace, FieldHeight::Absorption);
        const MagneticField tblHigh = MagneticFieldGet(tblSite.tblPlace, FieldHeight::Maps);
        EXPECT_NEAR(tblSite.tblPlace.dLat * kDegrees, fnNumber("lat"), kPoint) << sWhere;
        EXPECT_NEAR(tblSite.tblPlace.dLon * kDegrees, fnNumber("lon"), kPoint) << sWhere;
        EXPECT_NEAR(tblLow.dDip * kDegrees, fnNumber("dip100"), kPoint) << sWhere;
        EXPECT_NEAR(tblHigh.dDip * kDegrees, fnNumber("dip300"), kPoint) << sWhere;
        EXPECT_NEAR(tblLow.dGyro, fnNumber("fh100"), kPoint) << sWhere;
        EXPECT_NEAR(tblHigh.dGyro, fnNumber("fh300"), kPoint) << sWhere;
        const SunHour& tblSun = *tblFoe.pSun;
        EXPECT_NEAR(tblSun.dDeclination * kDegrees, fnNumber("decl"), kPoint) << sWhere;
        EXPECT_NEAR(tblSun.dEquation, fnNumber("eot"), kPoint) << sWhere;
        EXPECT_NEAR(std::acos(SunZenithCosGet(tblSun, tblSite.tblPlace)) * kDegrees,
                    fnNumber("sza"), kPoint)
            << sWhere;
        EXPECT_NEAR(SunHourAngleGet(tblSun, tblSite.tblPlace.dLon) * kDegrees, fnNumber("ha"),
                    kPoint)
            << sWhere;
        const F2Layer tblLayer = SiteLayerGet(tblIono, tblFoe, tblSite, nLabel);
        EXPECT_NEAR(tblLayer.dFof2, fnNumber("fof2"), kPoint) << sWhere;
        EXPECT_NEAR(tblLayer.dM3, fnNumber("m3000"), kPoint) << sWhere;
        if (fnNumber("foe") > 0.0) {
            EXPECT_NEAR(tblLayer.dFoe, fnNumber("foe"), kPoint) << sWhere;
        }
    }
}

}  // namespace
