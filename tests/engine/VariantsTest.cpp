// Field strengths of the three behaviours and coefficient sets, against a separate program.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "engine/ReferenceData.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

struct Variant {
    const char* sColumn;
    Behaviour eBehaviour;
    MapSet eMaps;
};
std::ostream& operator<<(std::ostream& stm, const Variant& c) { return stm << c.sColumn; }

class Variants : public testing::TestWithParam<Variant> {};

TEST_P(Variants, FieldAgreesInEveryRow)
{
    const DataTable tbl("p533_variants.csv");
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

INSTANTIATE_TEST_SUITE_P(
    Columns, Variants,
    testing::Values(Variant{"e_reference_ccir", Behaviour::Reference, MapSet::Ccir},
                    Variant{"e_corrected_ccir", Behaviour::Corrected, MapSet::Ccir},
                    Variant{"e_corrected_ursi", Behaviour::Corrected, MapSet::Ursi},
                    Variant{"e_corrected_mean", Behaviour::Corrected, MapSet::Mean},
                    Variant{"e_best_ccir", Behaviour::Best, MapSet::Ccir},
                    Variant{"e_best_ursi", Behaviour::Best, MapSet::Ursi},
                    Variant{"e_best_mean", Behaviour::Best, MapSet::Mean}),
    [](const auto& tbl) { return std::string(tbl.param.sColumn); });

}  // namespace
