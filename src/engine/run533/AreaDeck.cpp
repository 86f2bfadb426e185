#include <algorithm>
#include <array>
#include <cmath>

#include "engine/run533/Decks.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

// clang-format off
constexpr Columns kLabel       {1,  10};
constexpr Columns kModel       {11, 10};
constexpr Columns kLat         {11,  6};
constexpr Columns kLatLetter   {17,  1};
constexpr Columns kLon         {21,  6};
constexpr Columns kLonLetter   {27,  1};
constexpr Columns kStation     {31, 20};
constexpr Columns kWay         {52,  8};
constexpr Columns kWest        {11, 10};
constexpr Columns kEast        {21, 10};
constexpr Columns kSouth       {31, 10};
constexpr Columns kNorth       {41, 10};
constexpr Columns kGrid        {11,  5};
constexpr Columns kCoefficients{11,  6};
constexpr Columns kMonth       {11,  7};
constexpr Columns kSunspot     {11,  7};
constexpr Columns kHour        {11,  7};
constexpr Columns kFrequency   {11,  7};
constexpr Columns kNoise       {11,  5};
constexpr Columns kElevation   {16, 10};
constexpr Columns kReliability {26,  5};
constexpr Columns kSnr         {31,  5};
constexpr Columns kBandwidth   {36, 10};
constexpr Columns kAntennaName {12, 21};
constexpr Columns kTxTurn      {41,  6};
constexpr Columns kTxPower     {47, 11};
// clang-format on

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
    dLat = rdr.SignedGet(kLat, kLatLetter, "N", "S", 90.0);
    dLon = rdr.SignedGet(kLon, kLonLetter, "E", "W", 180.0);
}

void AreaRead(CardReader& rdr, AreaDeck& tbl)
{
    tbl.dWest = rdr.NumberGet(kWest, -360.0, 360.0);
    tbl.dEast = rdr.NumberGet(kEast, -360.0, 360.0);
    tbl.dSouth = rdr.NumberGet(kSouth, -90.0, 90.0);
    rdr.EndCheck(kNorth);
    tbl.dNorth = rdr.NumberGet(kNorth, -90.0, 90.0);
}

void SystemRead(CardReader& rdr, DeckCommon& tbl)
{
    tbl.dNoise = -std::abs(rdr.NumberGet(kNoise, -999.0, 999.0));
    tbl.dLeastElevation = rdr.NumberGet(kElevation, -99.0, 99.0);
    tbl.dReliability = rdr.NumberGet(kReliability, -999.0, 9999.0);
    tbl.dRequiredSnr = rdr.NumberGet(kSnr, -200.0, 200.0);
    rdr.EndCheck(kBandwidth);
    tbl.dBandwidth = rdr.NumberGet(kBandwidth, 1.0, 1e6);
}

void AntennaRead(CardReader& rdr, std::string_view sLabel, DeckCommon& tbl)
{
    const bool bTx = sLabel == "Tx Ants";
    AntennaCard tblCard{std::string(sLabel), kAntennaName, rdr.BracketGet(kAntennaName)};
    if (bTx) {
        tblCard.dAzimuth = rdr.NumberGet(kTxTurn, -360.0, 360.0);
        rdr.EndCheck(kTxPower);
        tblCard.dPowerKw = rdr.NumberGet(kTxPower, 1e-6, kPowerMost);
    }
    (bTx ? tbl.tblTxAntenna : tbl.tblRxAntenna) = tblCard;
}

void LineRead(Line eLine, CardReader& rdr, AreaDeck& tbl)
{
    DeckCommon& tblCommon = tbl.tblCommon;
    double dLat, dLon;
    switch (eLine) {
        case kModelLine:
            if (rdr.TextGet(kModel) != "REC533")
                rdr.Fail(kModel, "not REC533");
            break;
        case kTransmit:
            PlaceRead(rdr, tblCommon.dTxLat, tblCommon.dTxLon);
            tbl.sTxName = std::string(rdr.TextGet(kStation));
            if (rdr.TextGet(kWay) != "Short")
                rdr.Fail(kWay, "only the short path is known");
            break;
        case kCenter:
            PlaceRead(rdr, dLat, dLon);
            break;
        case kArea:
            AreaRead(rdr, tbl);
            break;
        case kGridsize:
            rdr.EndCheck(kGrid);
            tbl.nGrid = rdr.IntegerGet(kGrid, kGridLeast, kGridMost);
            break;
        case kCoeffs:
            tblCommon.eMaps = static_cast<rec533::MapSet>(rdr.ChoiceGet(kCoefficients, kMapNames));
            break;
        case kMonths:
            rdr.EndCheck(kMonth);
            tblCommon.nMonth = rdr.IntegerGet(kMonth, 1, 12);
            break;
        case kSsns:
            rdr.EndCheck(kSunspot);
            tblCommon.dSsn = rdr.NumberGet(kSunspot, 0.0, rec533::kSsnMost);
            break;
        case kHours:
            rdr.EndCheck(kHour);
            tbl.nHour = rdr.IntegerGet(kHour, 0, 24);
            break;
        case kFreqs:
            rdr.EndCheck(kFrequency);
            tbl.dFrequency = rdr.NumberGet(kFrequency, kFrequencyLeast, kFrequencyMost);
            break;
        case kSystem:
            SystemRead(rdr, tblCommon);
            break;
        default:
            break;
    }
}

}  // namespace

Result<AreaDeck> AreaDeckRead(std::string_view sDeck)
{
    AreaDeck tbl;
    std::array<bool, kLines> aSeen{};
    if (!sDeck.empty() && sDeck.back() != '\n')
        return RunError{"the deck ends within a line"};
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (TextTrim(sLine).empty())
            continue;
        const std::string_view sHead = TextColumns(sLine, kLabel.nCol, kLabel.nWidth);
        const std::string_view sLabel = TextTrim(sHead.substr(0, sHead.find(':')));
        CardReader rdr(sLabel, sLine);
        if (sHead.size() < 10 || sHead.back() != ':')
            return DeckErrorMake(TextQuote(sLabel), kLabel, "no label of this deck");
        if (sLabel == "Tx Ants" || sLabel == "Rec Ants") {
            AntennaRead(rdr, sLabel, tbl.tblCommon);
        } else {
            const auto itLabel = std::find(kLabels.begin(), kLabels.end(), sLabel);
            if (itLabel == kLabels.end())
                return DeckErrorMake(TextQuote(sLabel), kLabel, "no label of this deck");
            const auto nLine = static_cast<std::size_t>(itLabel - kLabels.begin());
            if (aSeen[nLine])
                return DeckErrorMake(sLabel, kLabel, "given twice");
            aSeen[nLine] = true;
            LineRead(static_cast<Line>(nLine), rdr, tbl);
        }
        if (rdr.Failed())
            return rdr.ErrorGet();
    }
    for (std::size_t i = 0; i < aSeen.size(); ++i)
        if (!aSeen[i])
            return DeckErrorMake(kLabels[i], "the line is missing");
    if (tbl.tblCommon.tblTxAntenna.has_value() != tbl.tblCommon.tblRxAntenna.has_value())
        return DeckErrorMake(tbl.tblCommon.tblTxAntenna ? "Rec Ants" : "Tx Ants",
                             "the line is missing");
    return tbl;
}

}  // namespace run533
