/// What holds for every input: either a deck's numbers are in their columns and read back to the
/// rounded values, or there is no deck.
#include <gtest/gtest.h>

#include <cmath>
#include <span>
#include <vector>

#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/DeckLib.h"
#include "settings/SettingsRange.h"
#include "support/PropertyRandom.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr int kCases = 3000;  // for each deck of about ten cards and thirty fields
constexpr int kYear = 2026;

std::string CardOf(const std::string& sDeck, const std::string& sLabel)
{
    const std::size_t nAt = ("\n" + sDeck).find("\n" + sLabel);
    EXPECT_NE(nAt, std::string::npos) << sLabel;
    return nAt == std::string::npos ? "" : sDeck.substr(nAt, sDeck.find("\r\n", nAt) - nAt);
}

double UnitGet(std::string_view sFormat)
{
    return std::pow(10.0, -NumberFromText(sFormat.find('.') == std::string_view::npos
                                              ? "0"
                                              : sFormat.substr(sFormat.find('.') + 1))
                               .ValueGet());
}

/// The card's numbers are the values in their order, with nothing between or after the fields.
void CardCheck(const std::string& sDeck, const std::string& sLabel, std::span<const Field> aFields,
               const std::vector<double>& adValues)
{
    std::string sCard = CardOf(sDeck, sLabel);
    sCard.replace(0, sLabel.size(), sLabel.size(), ' ');
    std::size_t nValue = 0;
    std::size_t nEnd = 0;
    for (const Field& fld : aFields) {
        const std::string sField(TextColumns(sCard, fld.nCol, fld.nWidth));
        const auto nCol = static_cast<std::size_t>(fld.nCol - 1);
        if (fld.sFormat != kText) {
            ASSERT_LT(nValue, adValues.size());
            ASSERT_EQ(sField.size(), static_cast<std::size_t>(fld.nWidth)) << sLabel;
            const auto resNumber = NumberFromText(sField);
            ASSERT_TRUE(resNumber) << sField << " in " << sLabel << sCard;
            const double dValue = adValues[nValue++];
            EXPECT_NEAR(resNumber.ValueGet(), dValue,
                        UnitGet(fld.sFormat) / 2 + std::abs(dValue) * 1e-7 + 1e-9)
                << sLabel;
        }
        if (nCol < sCard.size())
            sCard.replace(nCol, sField.size(), std::string(sField.size(), ' '));
        nEnd = nCol + static_cast<std::size_t>(fld.nWidth);
    }
    EXPECT_EQ(nValue, adValues.size());
    EXPECT_LE(sCard.size(), nEnd);
    EXPECT_EQ(TextTrim(sCard), "") << "outside of the fields of " << sLabel;
}

/// Values that fit their fields; in one deck of ten some may not.
class Values {
public:
    explicit Values(PropertyRandom& random) : m_random(random), m_bWild(random.Chance(10)) {}
    float Single(double dMost) { return static_cast<float>(Double(dMost)); }
    double Double(double dMost)
    {
        return m_random.Number(m_bWild && m_random.Chance(10) ? dMost * 1000.0 : dMost);
    }

private:
    PropertyRandom& m_random;
    bool m_bWild;
};

void ModelFill(PropertyRandom& random, RequestModel& model)
{
    Values values(random);
    model.nMonth = random.Whole(1, 12);
    model.sIonCoefficients = random.Chance(2) ? "CCIR" : "URSI";
    model.fSunSpotNumber = values.Single(99.9);
    model.fNoiseLevel = values.Single(999.0);
    model.fTakeoffAngle = values.Single(9.9);
    model.fReliability = values.Single(99.9);
    model.fMultipathPower = values.Single(99.9);
    model.fMultipathDelay = values.Single(99.9);
    model.fLayerAdjustE = values.Single(9.9);
    model.fLayerAdjustF1 = values.Single(9.9);
    model.fLayerAdjustF2 = values.Single(9.9);
    model.fLayerAdjustEs = values.Single(9.9);
    model.iAntennaType = random.Whole(-1, 3);
}

Request InputRandom(PropertyRandom& random)
{
    Request input;
    ModelFill(random, input);
    Values values(random);
    input.fQIndex = values.Single(9.9);
    input.dTxLat = values.Double(90.0);
    input.dTxLon = values.Double(180.0);
    input.dRcLat = values.Double(90.0);
    input.dRcLon = values.Double(180.0);
    input.nData = random.Whole(1, kChunkMax);
    for (int i = 1; i <= input.nData; ++i)
        input.afFrequency.push_back(std::abs(values.Single(30000.0)));
    return input;
}

std::vector<double> MegahertzOf(const Request& input)
{
    std::vector<double> adMhz;
    for (int i = 1; i <= input.nData; ++i)
        adMhz.push_back(static_cast<double>(input.FrequencyGet(i)) / 1000.0);
    return adMhz;
}

template <std::size_t nFields>
std::span<const Field> FieldsFirst(const std::array<Field, nFields>& aFields, int nCount)
{
    return std::span(aFields).first(static_cast<std::size_t>(nCount));
}

/// Some decks must have been written and some refused, or the cases would prove nothing.
void CountsCheck(int nWritten)
{
    EXPECT_GT(nWritten, kCases / 2);
    EXPECT_LT(nWritten, kCases);
}

TEST(DeckProperty, ColumnsOfIcepacAndVoacapNeverShift)
{
    PropertyRandom random;
    int nWritten = 0;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const Request in = InputRandom(random);
        const auto res = DeckIcepacVoacap(in, 1, in.nData, kYear);
        if (!res)
            continue;
        ++nWritten;
        const std::string& sDeck = res.ValueGet();
        CardCheck(sDeck, "TIME ", time_row::kAll, {0, 23, 1, 1});
        CardCheck(sDeck, "MONTH ", month_row::kAll, {kYear, static_cast<double>(in.nMonth)});
        CardCheck(sDeck, "SUNSPOT ", sunspot_row::kAll, {in.fSunSpotNumber, in.fQIndex});
        CardCheck(sDeck, "CIRCUIT ", circuit_row::kAll,
                  {std::abs(in.dTxLat), std::abs(in.dTxLon), std::abs(in.dRcLat),
                   std::abs(in.dRcLon), 0});
        CardCheck(sDeck, "SYSTEM ", system_row::kAll,
                  {1, -in.fNoiseLevel, in.fTakeoffAngle, in.fReliability, 40, in.fMultipathPower,
                   in.fMultipathDelay});
        CardCheck(sDeck, "FPROB ", fprob_row::kAll,
                  {in.fLayerAdjustE, in.fLayerAdjustF1, in.fLayerAdjustF2, in.fLayerAdjustEs});
        CardCheck(sDeck, "FREQUENCY ", FieldsFirst(frequency_row::kAll, in.nData), MegahertzOf(in));
    }
    CountsCheck(nWritten);
}

TEST(DeckProperty, ColumnsOfRec533NeverShift)
{
    PropertyRandom random;
    int nWritten = 0;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const Request in = InputRandom(random);
        const auto res = DeckRec533(in, 1, in.nData, kYear);
        if (!res)
            continue;
        ++nWritten;
        const std::string& sDeck = res.ValueGet();
        CardCheck(sDeck, "SUNSPOT ", FieldsFirst(sunspot_row::kAll, 2), {in.fSunSpotNumber});
        CardCheck(sDeck, "TIME ", FieldsFirst(time_row::kAll, 4), {0, 23, 1});
        CardCheck(sDeck, "MONTH ", month_row::kAll, {kYear, static_cast<double>(in.nMonth)});
        CardCheck(sDeck, "TRANS ", station_row::kAll, {std::abs(in.dTxLat), std::abs(in.dTxLon)});
        CardCheck(sDeck, "RECVR ", station_row::kAll, {std::abs(in.dRcLat), std::abs(in.dRcLon)});
        CardCheck(sDeck, "SYST ", syst_row::kAll, {in.fTakeoffAngle});
        CardCheck(sDeck, "NOIS ", nois_row::kAll, {in.fNoiseLevel, 1, 40, in.fReliability});
        CardCheck(sDeck, "FREQ ", FieldsFirst(freq_row::kAll, in.nData), MegahertzOf(in));
    }
    CountsCheck(nWritten);
}

AreaRequest AreaInputRandom(PropertyRandom& random)
{
    AreaRequest input;
    ModelFill(random, input);
    Values values(random);
    input.iModel = random.Whole(kEngineIcepac, kEngineRec533);
    input.iHour = random.Whole(0, 23);
    input.nGridSize = random.Whole(kGridSizeMin, kGridSizeMax);
    input.dWest = values.Double(360.0);
    input.dEast = values.Double(360.0);
    input.dSouth = values.Double(90.0);
    input.dNorth = values.Double(90.0);
    input.dFixedLat = values.Double(90.0);
    input.dFixedLon = values.Double(180.0);
    input.fFrequency = values.Single(30.0);
    return input;
}

void AreaSystemCheck(const std::string& sDeck, const AreaRequest& in)
{
    using namespace area_system_row;
    if (in.iModel == kEngineRec533) {
        CardCheck(sDeck, "System   :", kRec533,
                  {in.fNoiseLevel, in.fTakeoffAngle, in.fReliability, 40, 1});
        return;
    }
    CardCheck(sDeck, "System   :", kAll,
              {in.fNoiseLevel, in.fTakeoffAngle, in.fReliability, 40, in.fMultipathPower,
               in.fMultipathDelay});
    CardCheck(sDeck, "Fprob    :", fprob_row::kAll,
              {in.fLayerAdjustE, in.fLayerAdjustF1, in.fLayerAdjustF2, in.fLayerAdjustEs});
}

TEST(DeckProperty, ColumnsOfAreasNeverShift)
{
    PropertyRandom random;
    int nWritten = 0;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const AreaRequest in = AreaInputRandom(random);
        const auto res = DeckArea(in);
        if (!res)
            continue;
        ++nWritten;
        const std::string& sDeck = res.ValueGet();
        using namespace area_value_row;
        const auto fnValue = [&](const char* sLabel, const Field& fld, double dValue) {
            CardCheck(sDeck, sLabel, std::array{kCardLabel, fld}, {dValue});
        };
        const std::vector<double> adPlace{std::abs(in.dFixedLat), std::abs(in.dFixedLon)};
        CardCheck(sDeck, "Transmit :", area_place_row::kAll, adPlace);
        CardCheck(sDeck, "PCenter  :", area_place_row::kAll, adPlace);
        CardCheck(sDeck, "Area     :", area_bounds_row::kAll,
                  {in.dWest, in.dEast, in.dSouth, in.dNorth});
        CardCheck(sDeck, "Gridsize :", kGrid, {static_cast<double>(in.nGridSize), 1});
        fnValue("Months   :", kMonth, in.nMonth);
        fnValue("Sssns    :", kSunSpot, in.fSunSpotNumber);
        fnValue("Hours    :", kHour, in.iHour);
        fnValue("Freqs    :", kFrequency, in.fFrequency);
        AreaSystemCheck(sDeck, in);
    }
    CountsCheck(nWritten);
}

}  // namespace
