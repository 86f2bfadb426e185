#include <algorithm>
#include <array>
#include <cmath>

#include "engine/run533/Decks.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

enum Line {
    kModelLine,
    kColors,
    kCities,
    kNparms,
    kParameter,
    kTransmit,
    kCenter,
    kArea,
    kGridsize,
    kCoeffs,
    kMonths,
    kSsns,
    kHours,
    kFreqs,
    kSystem,
    kLines
};
constexpr std::array<std::string_view, kLines> kLabels{
    "Model",    "Colors", "Cities", "Nparms", "Parameter", "Transmit", "PCenter", "Area",
    "Gridsize", "Coeffs", "Months", "Sssns",  "Hours",     "Freqs",    "System"};

void PlaceRead(CardReader& rdr, double& dLat, double& dLon)
{
    dLat = rdr.SignedGet(area_place_row::kLat, area_place_row::kLatLetter, "N", "S", 90.0);
    dLon = rdr.SignedGet(area_place_row::kLon, area_place_row::kLonLetter, "E", "W", 180.0);
}

void AreaRead(CardReader& rdr, AreaDeck& areaDeck)
{
    areaDeck.dWest = rdr.NumberGet(area_bounds_row::kWest, -360.0, 360.0);
    areaDeck.dEast = rdr.NumberGet(area_bounds_row::kEast, -360.0, 360.0);
    areaDeck.dSouth = rdr.NumberGet(area_bounds_row::kSouth, -90.0, 90.0);
    rdr.EndCheck(area_bounds_row::kNorth);
    areaDeck.dNorth = rdr.NumberGet(area_bounds_row::kNorth, -90.0, 90.0);
}

void SystemRead(CardReader& rdr, DeckCommon& deckCommon)
{
    deckCommon.dNoise = -std::abs(rdr.NumberGet(area_system_row::kNoise, -999.0, 999.0));
    deckCommon.dLeastElevation = rdr.NumberGet(area_system_row::kTakeoff, -99.0, 99.0);
    deckCommon.dReliability = rdr.NumberGet(area_system_row::kReliability, -999.0, 9999.0);
    deckCommon.dRequiredSnr = rdr.NumberGet(area_system_row::kRequiredSnr, -200.0, 200.0);
    rdr.EndCheck(area_system_row::kBandwidth);
    deckCommon.dBandwidth = rdr.NumberGet(area_system_row::kBandwidth, 1.0, 1e6);
}

void AntennaRead(CardReader& rdr, std::string_view sLabel, DeckCommon& deckCommon)
{
    const bool bTx = sLabel == "Tx Ants";
    auto& card = bTx ? deckCommon.txAntenna : deckCommon.rxAntenna;
    if (card)
        rdr.Fail(kCardLabel, "given twice");
    AntennaCard deckCard{std::string(sLabel), area_antenna_row::kName,
                         rdr.BracketGet(area_antenna_row::kName)};
    if (bTx) {
        deckCard.dAzimuth = rdr.NumberGet(area_antenna_row::kTurn, -360.0, 360.0);
        rdr.EndCheck(area_antenna_row::kPower);
        deckCard.dPowerKw = rdr.NumberGet(area_antenna_row::kPower, 1e-6, kPowerMost);
    }
    card = deckCard;
}

void LineRead(Line eLine, CardReader& rdr, AreaDeck& areaDeck)
{
    DeckCommon& common = areaDeck.common;
    double dLat, dLon;
    switch (eLine) {
        case kModelLine:
            if (rdr.TextGet(area_model_row::kModel) != "REC533")
                rdr.Fail(area_model_row::kModel, "not REC533");
            break;
        case kTransmit:
            PlaceRead(rdr, common.dTxLat, common.dTxLon);
            areaDeck.sTxName = std::string(rdr.TextGet(area_place_row::kStation));
            if (rdr.TextGet(area_place_row::kWay) != "Short")
                rdr.Fail(area_place_row::kWay, "only the short path is known");
            break;
        case kCenter:
            PlaceRead(rdr, dLat, dLon);
            break;
        case kArea:
            AreaRead(rdr, areaDeck);
            break;
        case kGridsize:
            rdr.EndCheck(area_value_row::kGridSize);
            areaDeck.nGrid = rdr.IntegerGet(area_value_row::kGridSize, kGridLeast, kGridMost);
            break;
        case kCoeffs:
            common.eMaps = static_cast<rec533::MapSet>(rdr.ChoiceGet(coeffs_row::kMaps, kMapNames));
            break;
        case kMonths:
            rdr.EndCheck(area_value_row::kMonth);
            common.nMonth = rdr.IntegerGet(area_value_row::kMonth, 1, 12);
            break;
        case kSsns:
            rdr.EndCheck(area_value_row::kSunSpot);
            common.dSsn = rdr.NumberGet(area_value_row::kSunSpot, 0.0, rec533::kSsnMost);
            break;
        case kHours:
            rdr.EndCheck(area_value_row::kHour);
            areaDeck.nHour = rdr.IntegerGet(area_value_row::kHour, 0, 24);
            break;
        case kFreqs:
            rdr.EndCheck(area_value_row::kFrequency);
            areaDeck.dFrequency =
                rdr.NumberGet(area_value_row::kFrequency, kFrequencyLeast, kFrequencyMost);
            break;
        case kSystem:
            SystemRead(rdr, common);
            break;
        default:
            break;
    }
}

}  // namespace

Result<AreaDeck> AreaDeckRead(std::string_view sDeck)
{
    AreaDeck areaDeck;
    std::array<bool, kLines> aSeen{};
    if (!sDeck.empty() && sDeck.back() != '\n')
        return RunError{"the deck ends within a line"};
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (TextTrim(sLine).empty())
            continue;
        const std::string_view sHead = TextColumns(sLine, kCardLabel.nCol, kCardLabel.nWidth);
        const bool bLabel = sHead.size() == std::size_t{kCardLabel.nWidth} && sHead.back() == ':';
        const std::string_view sName = sHead.substr(0, sHead.size() - (bLabel ? 1 : 0));
        const std::string_view sLabel = sName.substr(0, sName.find_last_not_of(' ') + 1);
        CardReader rdr(sLabel, sLine);
        if (!bLabel)
            return DeckErrorMake(TextQuote(sLabel), kCardLabel, "no label of this deck");
        if (sLabel == "Tx Ants" || sLabel == "Rec Ants") {
            AntennaRead(rdr, sLabel, areaDeck.common);
        } else {
            const auto itLabel = std::find(kLabels.begin(), kLabels.end(), sLabel);
            if (itLabel == kLabels.end())
                return DeckErrorMake(TextQuote(sLabel), kCardLabel, "no label of this deck");
            const auto nLine = static_cast<std::size_t>(itLabel - kLabels.begin());
            if (aSeen[nLine])
                return DeckErrorMake(sLabel, kCardLabel, "given twice");
            aSeen[nLine] = true;
            LineRead(static_cast<Line>(nLine), rdr, areaDeck);
        }
        if (rdr.Failed())
            return rdr.ErrorGet();
    }
    for (std::size_t i = 0; i < aSeen.size(); ++i)
        if (!aSeen[i])
            return DeckErrorMake(kLabels[i], "the line is missing");
    if (areaDeck.common.txAntenna.has_value() != areaDeck.common.rxAntenna.has_value())
        return DeckErrorMake(areaDeck.common.txAntenna ? "Rec Ants" : "Tx Ants",
                             "the line is missing");
    return areaDeck;
}

}  // namespace run533
