// Field strengths of the three behaviours and coefficient sets, compared with a separate program,
// and the parts of the long-path rule.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "engine/ReferenceData.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

struct Variant {
    const char* sTable;
    const char* sColumn;
    Behaviour eBehaviour;
    MapSet eMaps;
};
std::ostream& operator<<(std::ostream& stm, const Variant& c) { return stm << c.sColumn; }

class Variants : public testing::TestWithParam<Variant> {};

TEST_P(Variants, FieldAgreesInEveryRow)
{
    const DataTable tbl(GetParam().sTable);
    ASSERT_EQ(tbl.CountGet(), 1800u);
    const auto pRun = std::make_unique<CircuitRun>(GetParam().eBehaviour, GetParam().eMaps);
    double dWorst = 0.0;
    for (std::size_t i = 0; i < tbl.CountGet(); ++i) {
        pRun->Go(tbl.TextGet(i, "id"), tbl.IntegerGet(i, "hour"));
        const double dField = pRun->PredictionGet(tbl.NumberGet(i, "freq")).dField;
        const double dExpected = tbl.NumberGet(i, GetParam().sColumn);
        dWorst = std::max(dWorst, std::abs(dField - dExpected));
        EXPECT_NEAR(dField, dExpected, 0.01)
            << tbl.TextGet(i, "id") << " at " << tbl.TextGet(i, "hour") << " h, "
            << tbl.TextGet(i, "freq") << " MHz";
    }
    RecordProperty("worst_db", std::to_string(dWorst));
}

constexpr const char* kFirst = "p533_variants.csv";
constexpr const char* kSecond = "p533_variants2.csv";
INSTANTIATE_TEST_SUITE_P(
    Columns, Variants,
    testing::Values(Variant{kFirst, "e_reference_ccir", Behaviour::Reference, MapSet::Ccir},
                    Variant{kFirst, "e_corrected_ccir", Behaviour::Corrected, MapSet::Ccir},
                    Variant{kFirst, "e_corrected_ursi", Behaviour::Corrected, MapSet::Ursi},
                    Variant{kFirst, "e_corrected_mean", Behaviour::Corrected, MapSet::Mean},
                    Variant{kSecond, "e_best2_ccir", Behaviour::Best, MapSet::Ccir},
                    Variant{kSecond, "e_best2_ursi", Behaviour::Best, MapSet::Ursi},
                    Variant{kSecond, "e_best2_mean", Behaviour::Best, MapSet::Mean}),
    [](const auto& column) { return std::string(column.param.sColumn); });

// One unit in the tables' last digit, plus rounding.
constexpr double kDigit = 0.00151;

class Parts {
public:
    explicit Parts(const DataTable& tbl) : m_tbl(tbl) {}
    void RowSet(std::size_t nRow) { m_nRow = nRow; }
    void Expect(const char* sColumn, double dValue) const
    {
        ASSERT_FALSE(m_tbl.Empty(m_nRow, sColumn));
        EXPECT_NEAR(dValue, m_tbl.NumberGet(m_nRow, sColumn), kDigit)
            << sColumn << " of " << m_tbl.TextGet(m_nRow, "id") << " at "
            << m_tbl.TextGet(m_nRow, "hour") << " h, " << m_tbl.TextGet(m_nRow, "freq");
    }

private:
    const DataTable& m_tbl;
    std::size_t m_nRow = 0;
};

double WorstMost(const WayHour& wayHour)
{
    double dMost = 0.0;
    for (int i = 0; i < wayHour.nModes; ++i)
        dMost = std::max(dMost, wayHour.aModes[static_cast<std::size_t>(i)].dWorst);
    return dMost;
}

void WaysExpect(const Parts& parts, const CircuitRun& run, double dFrequency)
{
    const Path& path = run.m_tblPath;
    const auto pWork = std::make_unique<PredictionWork>();
    const auto pHour = std::make_unique<Hour>(run.m_tblHour);
    PredictionRows rows;
    FrequencySet set;
    FrequencySetFill(set, run.m_tblIonosphere, path.circuit, {&dFrequency, 1});
    PredictionRowsFill(rows, *pWork, *pHour, set);
    const auto& aWays = pWork->aWays;
    const std::size_t nRight = path.nBent > 0 ? 1 : 0;
    const std::size_t nLeft = path.nBent > 0 ? 2 : 0;
    parts.Expect("lambda_deg", path.dBend * 180.0 / kPi);
    parts.Expect("half_km", path.nBent > 0 ? path.aBent[0].way.dKm / 2.0 : path.way.dKm / 2.0);
    parts.Expect("gap_db", path.longPath.dGap);
    parts.Expect("muf_worst_max", WorstMost(run.m_tblHour));
    parts.Expect("fm_mid", run.m_tblHour.longPath.dUpper);
    parts.Expect("fl_mid", run.m_tblHour.longPath.dLower);
    parts.Expect("s_mid", aWays[0].aHops[0]);
    parts.Expect("el_mid", aWays[0].aLong[0]);
    parts.Expect("s_right", aWays[nRight].aHops[0]);
    parts.Expect("el_right", aWays[nRight].aLong[0]);
    parts.Expect("s_left", aWays[nLeft].aHops[0]);
    parts.Expect("el_left", aWays[nLeft].aLong[0]);
    parts.Expect("x_mean", rows.aFieldLong[0]);
}

TEST(LongPathRule, EveryPartAgreesInEveryRow)
{
    const DataTable tbl(kSecond);
    Parts parts(tbl);
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Best, MapSet::Mean);
    int nBent = 0;
    for (std::size_t i = 0; i < tbl.CountGet(); ++i) {
        parts.RowSet(i);
        const double dFrequency = tbl.NumberGet(i, "freq");
        pRun->Go(tbl.TextGet(i, "id"), tbl.IntegerGet(i, "hour"));
        const Prediction prediction = pRun->PredictionGet(dFrequency);
        parts.Expect("ig12", pRun->m_tblIonosphere.dActivity);
        parts.Expect("fof2_mid", pRun->m_tblHour.mid.dFof2);
        parts.Expect("m3000_mid", pRun->m_tblHour.mid.dM3);
        if (pRun->m_tblPath.way.dKm <= kLongOnly)
            parts.Expect("es", prediction.dFieldShort);
        EXPECT_EQ(tbl.Empty(i, "x_mean"), pRun->m_tblPath.way.dKm <= kShortOnly);
        if (pRun->m_tblPath.way.dKm > kShortOnly)
            WaysExpect(parts, *pRun, dFrequency);
        nBent += pRun->m_tblPath.nBent > 0 ? 1 : 0;
    }
    EXPECT_GT(nBent, 150);
}

// The worked example of the rule's description.
TEST(LongPathRule, GivesTheWorkedRow)
{
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Best, MapSet::Mean);
    pRun->Go("D41", 3);
    const Path& path = pRun->m_tblPath;
    const Hour& hour = pRun->m_tblHour;
    ASSERT_EQ(path.nBent, 2u);
    const Place& right = path.aBent[0].mid.place;
    const Place& left = path.aBent[1].mid.place;
    EXPECT_NEAR(right.dLat * kDegrees, -36.5176, 1e-4);
    EXPECT_NEAR(right.dLon * kDegrees, -131.6699, 1e-4);
    EXPECT_NEAR(left.dLat * kDegrees, -24.5355, 1e-4);
    EXPECT_NEAR(left.dLon * kDegrees, -121.1781, 1e-4);
    EXPECT_EQ(hour.nOrderF2, 6);
    const double aMuf[]{9.033, 8.341, 7.733, 7.211};
    const double aElevation[]{8.208, 11.235, 14.009, 16.595};
    const double aSlant[]{15975.309, 16148.675, 16343.203, 16559.074};
    ASSERT_EQ(hour.nModes, 4);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(hour.aModes[i].nHops, 6 + static_cast<int>(i));
        EXPECT_NEAR(hour.aModes[i].dWorst, aMuf[i], kDigit);
        EXPECT_NEAR(hour.aModes[i].dElevation * kDegrees, aElevation[i], kDigit);
        EXPECT_NEAR(hour.aModes[i].dSlant, aSlant[i], kDigit);
    }
    const double aBentMuf[]{8.924, 9.214};
    const double aBentSlant[]{16026.509, 16007.629};
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(hour.aBent[i].nOrderF2, 6);
        EXPECT_NEAR(hour.aBent[i].aModes[0].dWorst, aBentMuf[i], kDigit);
        EXPECT_NEAR(hour.aBent[i].aModes[0].dSlant, aBentSlant[i], kDigit);
    }
    EXPECT_NEAR(pRun->PredictionGet(9.01).dField, -9.023, kDigit);
}

TEST(Activity, IndexFollowsTheSunspotNumber)
{
    const double aSsn[]{0.0, 1.0, 10.0, 50.0, 100.0, 150.0, 160.0, 311.0};
    const double aIndex[]{-12.349, -10.883, 2.066, 54.373, 107.711, 147.663, 154.048, 154.048};
    for (std::size_t i = 0; i < 8; ++i) EXPECT_NEAR(ActivityOfSsn(aSsn[i]), aIndex[i], 0.0006);
}

TEST(Activity, MeasuredIndexServesTheBestBehaviourAlone)
{
    const auto pIono = std::make_unique<Ionosphere>();
    const auto fnActivity = [&](Behaviour eBehaviour, double dMeasured) {
        IonosphereFill(*pIono, eBehaviour, MapSet::Mean, 5, 80.0, dMeasured);
        return pIono->dActivity;
    };
    EXPECT_EQ(fnActivity(Behaviour::Best, 33.0), 33.0);
    EXPECT_EQ(fnActivity(Behaviour::Best, -40.0), -15.0);
    EXPECT_EQ(fnActivity(Behaviour::Best, 170.0), 160.0);
    EXPECT_EQ(fnActivity(Behaviour::Corrected, 33.0), 80.0);
    EXPECT_EQ(fnActivity(Behaviour::Reference, 33.0), 80.0);
}

}  // namespace
