#include <algorithm>
#include <array>
#include <cmath>

#include "engine/run533/Decks.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

// clang-format off
constexpr Columns kName         {1,  10};
constexpr Columns kCoefficients {11,  6};
constexpr Columns kSunspot      {11,  5};
constexpr Columns kFirstHour    {11,  5};
constexpr Columns kLastHour     {16,  5};
constexpr Columns kHourStep     {21,  5};
constexpr Columns kYear         {11,  5};
constexpr Columns kMonth        {16,  5};
constexpr Columns kStation      {11, 20};
constexpr Columns kLat          {32,  6};
constexpr Columns kLatLetter    {38,  1};
constexpr Columns kLon          {43,  6};
constexpr Columns kLonLetter    {49,  1};
constexpr Columns kWay          {50,  3};
constexpr Columns kPower        {11, 11};
constexpr Columns kElevation    {22,  5};
constexpr Columns kAntennaSide  {11,  5};
constexpr Columns kAntennaName  {42, 21};
constexpr Columns kAntennaTurn  {64,  5};
constexpr Columns kAntennaPower {69, 10};
constexpr Columns kNoise        {11,  5};
constexpr Columns kBandwidth    {16,  5};
constexpr Columns kSnr          {21,  5};
constexpr Columns kReliability  {26,  5};
constexpr int kFrequencyCol   = 11;
constexpr int kFrequencyWidth = 7;
// clang-format on

enum Card {
    kOutput,
    kCoeffs,
    kSsn,
    kTime,
    kDate,
    kTrans,
    kRecvr,
    kSyst,
    kNois,
    kFreq,
    kExec,
    kQuit,
    kCards
};
constexpr std::array<std::string_view, kCards> kCardNames{"OUTPUT", "COEFFS", "SUNSPOT", "TIME",
                                                          "MONTH",  "TRANS",  "RECVR",   "SYST",
                                                          "NOIS",   "FREQ",   "EXEC",    "QUIT"};

void StationRead(CardReader& rdr, std::string& sName, double& dLat, double& dLon)
{
    sName = std::string(rdr.TextGet(kStation));
    dLat = rdr.SignedGet(kLat, kLatLetter, "N", "S", 90.0);
    dLon = rdr.SignedGet(kLon, kLonLetter, "E", "W", 180.0);
    if (rdr.TextGet(kWay) != "S")
        rdr.Fail(kWay, "only the short path is known");
}

void FrequenciesRead(CardReader& rdr, std::string_view sLine, PointDeck& tbl)
{
    const auto nLength = static_cast<int>(sLine.find_last_not_of(" \t") + 1);
    for (int nCol = kFrequencyCol; nCol <= nLength; nCol += kFrequencyWidth) {
        const Columns fld{nCol, kFrequencyWidth};
        if (tbl.aFrequencies.size() == kFrequenciesMost) {
            rdr.Fail(fld, "more than 10 frequencies");
            return;
        }
        rdr.EndCheck(fld);
        tbl.aFrequencies.push_back(rdr.NumberGet(fld, -1e6, 1e6));
    }
    if (tbl.aFrequencies.empty())
        rdr.Fail({kFrequencyCol, kFrequencyWidth}, "no frequency");
}

void AntennaRead(CardReader& rdr, DeckCommon& tbl)
{
    const int nSide = rdr.IntegerGet(kAntennaSide, 1, 2);
    AntennaCard tblCard{"ANTENNA " + NumberToText(nSide), kAntennaName,
                        rdr.BracketGet(kAntennaName)};
    tblCard.dAzimuth = rdr.NumberGet(kAntennaTurn, -360.0, 360.0);
    rdr.EndCheck(kAntennaPower);
    tblCard.dPowerKw = rdr.NumberGet(kAntennaPower, 0.0, kPowerMost);
    if (nSide == 1 && tblCard.dPowerKw <= 0.0)
        rdr.Fail(kAntennaPower, "no power");
    (nSide == 1 ? tbl.tblTxAntenna : tbl.tblRxAntenna) = tblCard;
}

void TimeRead(CardReader& rdr)
{
    const int nFirst = rdr.IntegerGet(kFirstHour, 0, 24);
    const int nLast = rdr.IntegerGet(kLastHour, 0, 24);
    rdr.EndCheck(kHourStep);
    const int nStep = rdr.IntegerGet(kHourStep, 1, 24);
    if (nFirst != 0 || nLast != 23 || nStep != 1)
        rdr.Fail({kFirstHour.nCol, 15}, "only the hours 0 to 23 in steps of 1 are known");
}

void NoiseRead(CardReader& rdr, DeckCommon& tbl)
{
    tbl.dNoise = -std::abs(rdr.NumberGet(kNoise, -999.0, 999.0));
    tbl.dBandwidth = rdr.NumberGet(kBandwidth, 1.0, 99999.0);
    tbl.dRequiredSnr = rdr.NumberGet(kSnr, -200.0, 200.0);
    rdr.EndCheck(kReliability);
    tbl.dReliability = rdr.NumberGet(kReliability, -999.0, 9999.0);
}

void CardRead(Card eCard, CardReader& rdr, std::string_view sLine, PointDeck& tbl)
{
    DeckCommon& tblCommon = tbl.tblCommon;
    switch (eCard) {
        case kCoeffs:
            tblCommon.eMaps = static_cast<rec533::MapSet>(rdr.ChoiceGet(kCoefficients, kMapNames));
            break;
        case kSsn:
            rdr.EndCheck(kSunspot);
            tblCommon.dSsn = rdr.NumberGet(kSunspot, 0.0, rec533::kSsnMost);
            break;
        case kTime:
            TimeRead(rdr);
            break;
        case kDate:
            tbl.nYear = rdr.IntegerGet(kYear, 0, 9999);
            rdr.EndCheck(kMonth);
            tblCommon.nMonth = rdr.IntegerGet(kMonth, 1, 12);
            break;
        case kTrans:
            StationRead(rdr, tbl.sTxName, tblCommon.dTxLat, tblCommon.dTxLon);
            break;
        case kRecvr:
            StationRead(rdr, tbl.sRxName, tbl.dRxLat, tbl.dRxLon);
            break;
        case kSyst:
            tbl.dPowerKw = rdr.NumberGet(kPower, 1e-6, kPowerMost);
            rdr.EndCheck(kElevation);
            tblCommon.dLeastElevation = rdr.NumberGet(kElevation, -99.0, 99.0);
            break;
        case kNois:
            NoiseRead(rdr, tblCommon);
            break;
        case kFreq:
            FrequenciesRead(rdr, sLine, tbl);
            break;
        default:
            break;
    }
}

}  // namespace

Result<PointDeck> PointDeckRead(std::string_view sDeck)
{
    PointDeck tbl;
    std::array<bool, kCards> aSeen{};
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (TextTrim(sLine).empty())
            continue;
        const std::string_view sName = TextColumns(sLine, kName.nCol, kName.nWidth);
        const std::string_view sCard = sName.substr(0, sName.find_last_not_of(' ') + 1);
        CardReader rdr(sCard, sLine);
        if (sCard == "ANTENNA") {
            AntennaRead(rdr, tbl.tblCommon);
        } else {
            const auto itName = std::find(kCardNames.begin(), kCardNames.end(), sCard);
            if (itName == kCardNames.end())
                return DeckErrorMake(TextQuote(TextTrim(sName)), kName, "not a card of this deck");
            const auto nCard = static_cast<std::size_t>(itName - kCardNames.begin());
            if (aSeen[nCard])
                return DeckErrorMake(sCard, kName, "given twice");
            aSeen[nCard] = true;
            CardRead(static_cast<Card>(nCard), rdr, sLine, tbl);
        }
        if (rdr.Failed())
            return rdr.ErrorGet();
        if (aSeen[kQuit])
            break;
    }
    for (std::size_t i = 0; i < aSeen.size(); ++i)
        if (!aSeen[i])
            return DeckErrorMake(kCardNames[i], "the card is missing");
    return tbl;
}

}  // namespace run533
