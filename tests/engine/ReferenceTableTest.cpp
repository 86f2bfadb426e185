// The method as the ITU program carries it out, compared with that program's own tables: every row,
// every column.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "engine/ReferenceData.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

constexpr std::size_t kRows = 1800;

// Within 0.01, or within 0.01 % for large values.
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
        const Hour& hour = run.m_tblHour;
        ExpectLike(tbl, i, "dist_km", run.m_tblPath.way.dKm);
        ExpectLike(tbl, i, "dmax_km", hour.dRangeMost);
        EXPECT_EQ(tbl.IntegerGet(i, "n0_f2"), hour.nOrderF2);
        EXPECT_EQ(tbl.IntegerGet(i, "n0_e"), hour.nOrderE);
        ExpectLike(tbl, i, "bmuf", hour.dMuf);
        ExpectLike(tbl, i, "muf10", hour.dMuf10);
        ExpectLike(tbl, i, "muf90", hour.dMuf90);
        ExpectLike(tbl, i, "opmuf50", hour.dOperational);
        ExpectLike(tbl, i, "opmuf10", hour.dOperational10);
        ExpectLike(tbl, i, "opmuf90", hour.dOperational90);
    });
}

TEST(ReferenceTable, FieldPowerAndModeAgree)
{
    RowsVisit([](const DataTable& tbl, std::size_t i, CircuitRun&, const Prediction& prediction) {
        EXPECT_EQ(ModeName(prediction.nHops, prediction.bE), tbl.TextGet(i, "mode"))
            << tbl.TextGet(i, "id");
        ExpectLike(tbl, i, "ele", prediction.dElevation * kDegrees);
        ExpectLike(tbl, i, "es", prediction.dFieldShort);
        ExpectLike(tbl, i, "el", prediction.dFieldLong);
        ExpectLike(tbl, i, "ei", prediction.dField);
        ExpectLike(tbl, i, "e", prediction.dField);
        ExpectLike(tbl, i, "pr", prediction.dPower);
    });
}

TEST(ReferenceTable, LongMethodAgrees)
{
    std::size_t nLong = 0;
    RowsVisit(
        [&](const DataTable& tbl, std::size_t i, CircuitRun& run, const Prediction& prediction) {
            if (run.m_tblPath.way.dKm < kShortOnly)
                return;
            ++nLong;
            const LongPath& longPath = run.m_tblPath.longPath;
            const LongHour& hour = run.m_tblHour.longPath;
            ExpectLike(tbl, i, "e0", LongFreeGet(longPath));
            ExpectLike(tbl, i, "gap", longPath.dGap);
            ExpectLike(tbl, i, "fm", hour.dUpper);
            ExpectLike(tbl, i, "fl", hour.dLower);
            ExpectLike(tbl, i, "k1", hour.dK1);
            ExpectLike(tbl, i, "k2", hour.dK2);
            ExpectLike(tbl, i, "fh", longPath.dGyro);
            ExpectLike(tbl, i, "f_factor", prediction.dLongShare);
        });
    EXPECT_GT(nLong, 400u);
}

TEST(ReferenceTable, NoiseSnrAndReliabilityAgree)
{
    RowsVisit(
        [](const DataTable& tbl, std::size_t i, CircuitRun& run, const Prediction& prediction) {
            const double dFrequency = tbl.NumberGet(i, "freq");
            const Circuit& circuit = run.m_tblPath.circuit;
            const Noise one = NoiseAtmosphericGet(run.m_tblIonosphere, run.m_tblPath.noise,
                                                  run.m_tblHour.nLabel, dFrequency);
            const Noise middles =
                NoiseManMadeGet(circuit.eNoise, circuit.dNoiseLevel, dFrequency, true);
            const Noise galactic = NoiseGalacticGet(dFrequency);
            const Noise total = NoiseTotalGet(one, middles, galactic);
            ExpectLike(tbl, i, "faa", one.dFa);
            ExpectLike(tbl, i, "dua", one.dUpper);
            ExpectLike(tbl, i, "dla", one.dLower);
            ExpectLike(tbl, i, "fam", middles.dFa);
            ExpectLike(tbl, i, "dum", middles.dUpper);
            ExpectLike(tbl, i, "dlm", middles.dLower);
            ExpectLike(tbl, i, "fag", galactic.dFa);
            ExpectLike(tbl, i, "fat", total.dFa);
            ExpectLike(tbl, i, "dut", total.dUpper);
            ExpectLike(tbl, i, "dlt", total.dLower);
            ExpectLike(tbl, i, "snr50", prediction.dSnr);
            ExpectLike(tbl, i, "dusn", prediction.dSnrUpper);
            ExpectLike(tbl, i, "dlsn", prediction.dSnrLower);
            ExpectLike(tbl, i, "snrxx", prediction.dSnrExceeded);
            ExpectLike(tbl, i, "rel", prediction.dReliability);
        });
}

TEST(ReferenceTable, EveryModeAgrees)
{
    const DataTable tbl("p533_modes.csv");
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Reference, MapSet::Ccir);
    const auto pRows = std::make_unique<ModesRows>();
    FrequencySet set;
    for (std::size_t i = 0; i < tbl.CountGet(); ++i) {
        pRun->Go(tbl.TextGet(i, "id"), tbl.IntegerGet(i, "hour"));
        const double dFrequency = tbl.NumberGet(i, "freq");
        FrequencySetFill(set, pRun->m_tblIonosphere, pRun->m_tblPath.circuit, {&dFrequency, 1});
        ModesRowsFill(*pRows, pRun->m_tblHour, set);
        std::size_t nMode = 0;
        const auto nModes = static_cast<std::size_t>(pRun->m_tblHour.nModes);
        while (nMode < nModes
               && ModeName(pRun->m_tblHour.aModes[nMode].nHops, pRun->m_tblHour.aModes[nMode].bE)
                      != tbl.TextGet(i, "mode"))
            ++nMode;
        ASSERT_LT(nMode, nModes) << tbl.TextGet(i, "id") << " lacks " << tbl.TextGet(i, "mode");
        const Mode& mode = pRun->m_tblHour.aModes[nMode];
        const ModeRows& rows = (*pRows)[nMode];
        const bool bUsed = rows.aUsed[0] > 0.0;
        ExpectLike(tbl, i, "bmuf", mode.dMuf);
        ExpectLike(tbl, i, "opmuf", mode.dOperational);
        ExpectLike(tbl, i, "dl", mode.deciles.dLower);
        ExpectLike(tbl, i, "du", mode.deciles.dUpper);
        ExpectLike(tbl, i, "fs", rows.aScreening[0]);
        EXPECT_EQ(bUsed, tbl.IntegerGet(i, "used") == 1);
        if (!mode.bE)
            ExpectLike(tbl, i, "hr", rows.aMirror[0]);
        if (!bUsed)
            continue;
        ExpectLike(tbl, i, "ele", mode.dElevation * kDegrees);
        ExpectLike(tbl, i, "lb", rows.aLoss[0]);
        ExpectLike(tbl, i, "ew", rows.aField[0]);
    }
}

// One unit in the last printed digit (0.001) of a control point's values.
constexpr double kPoint = 0.00101;

TEST(ReferencePoints, MapsFieldAndSunAgree)
{
    const DataTable tbl("p533_points.csv");
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Reference, MapSet::Ccir);
    Site site;
    for (std::size_t i = 0; i < tbl.CountGet(); ++i) {
        const int nLabel = tbl.IntegerGet(i, "hour");
        const auto fnNumber = [&](const char* sName) { return tbl.NumberGet(i, sName); };
        pRun->Go(tbl.TextGet(i, "id"), nLabel);
        const Ionosphere& iono = pRun->m_tblIonosphere;
        const Way& way = pRun->m_tblPath.way;
        SiteFill(site, WayPlace(way, fnNumber("dist") / way.dKm));
        const FoeHour foe = FoeHourGet(iono, nLabel);
        const std::string sWhere = tbl.TextGet(i, "id") + " " + tbl.TextGet(i, "point");
        const MagneticField low = MagneticFieldGet(site.place, FieldHeight::Absorption);
        const MagneticField high = MagneticFieldGet(site.place, FieldHeight::Maps);
        EXPECT_NEAR(site.place.dLat * kDegrees, fnNumber("lat"), kPoint) << sWhere;
        EXPECT_NEAR(site.place.dLon * kDegrees, fnNumber("lon"), kPoint) << sWhere;
        EXPECT_NEAR(low.dDip * kDegrees, fnNumber("dip100"), kPoint) << sWhere;
        EXPECT_NEAR(high.dDip * kDegrees, fnNumber("dip300"), kPoint) << sWhere;
        EXPECT_NEAR(low.dGyro, fnNumber("fh100"), kPoint) << sWhere;
        EXPECT_NEAR(high.dGyro, fnNumber("fh300"), kPoint) << sWhere;
        const SunHour& sun = *foe.pSun;
        EXPECT_NEAR(sun.dDeclination * kDegrees, fnNumber("decl"), kPoint) << sWhere;
        EXPECT_NEAR(sun.dEquation, fnNumber("eot"), kPoint) << sWhere;
        EXPECT_NEAR(std::acos(SunZenithCosGet(sun, site.place)) * kDegrees, fnNumber("sza"), kPoint)
            << sWhere;
        EXPECT_NEAR(SunHourAngleGet(sun, site.place.dLon) * kDegrees, fnNumber("ha"), kPoint)
            << sWhere;
        const F2Layer layer = SiteLayerGet(iono, foe, site, nLabel);
        EXPECT_NEAR(layer.dFof2, fnNumber("fof2"), kPoint) << sWhere;
        EXPECT_NEAR(layer.dM3, fnNumber("m3000"), kPoint) << sWhere;
        if (fnNumber("foe") > 0.0) {
            EXPECT_NEAR(layer.dFoe, fnNumber("foe"), kPoint) << sWhere;
        }
    }
}

}  // namespace
