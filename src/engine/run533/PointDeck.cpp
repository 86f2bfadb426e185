#include <algorithm>
#include <array>
#include <cmath>

#include "engine/run533/Decks.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

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
    sName = std::string(rdr.TextGet(station_row::kName));
    dLat = rdr.SignedGet(station_row::kLat, station_row::kLatLetter, "N", "S", 90.0);
    dLon = rdr.SignedGet(station_row::kLon, station_row::kLonLetter, "E", "W", 180.0);
    if (rdr.TextGet(station_row::kWay) != "S")
        rdr.Fail(station_row::kWay, "only the short path is known");
}

void FrequenciesRead(CardReader& rdr, std::string_view sLine, PointDeck& pointDeck)
{
    const auto nLength = static_cast<int>(sLine.find_last_not_of(" \t") + 1);
    for (int i = 0; FieldAt(freq_row::kFirst, i).nCol <= nLength; ++i) {
        const Field fld = FieldAt(freq_row::kFirst, i);
        if (pointDeck.aFrequencies.size() == kFrequenciesMost) {
            rdr.Fail(fld, "more than 10 frequencies");
            return;
        }
        rdr.EndCheck(fld);
        pointDeck.aFrequencies.push_back(rdr.NumberGet(fld, -1e6, 1e6));
    }
    if (pointDeck.aFrequencies.empty())
        rdr.Fail(freq_row::kFirst, "no frequency");
}

void AntennaRead(CardReader& rdr, DeckCommon& deckCommon)
{
    const int nSide = rdr.IntegerGet(antenna_row::kSide, 1, 2);
    auto& card = nSide == 1 ? deckCommon.txAntenna : deckCommon.rxAntenna;
    if (card)
        rdr.Fail(antenna_row::kSide, "given twice");
    AntennaCard deckCard{"ANTENNA " + NumberToText(nSide), antenna_row::kName,
                         rdr.BracketGet(antenna_row::kName)};
    deckCard.dAzimuth = rdr.NumberGet(antenna_row::kTurn, -360.0, 360.0);
    rdr.EndCheck(antenna_row::kPower);
    deckCard.dPowerKw = rdr.NumberGet(antenna_row::kPower, 0.0, kPowerMost);
    if (nSide == 1 && deckCard.dPowerKw <= 0.0)
        rdr.Fail(antenna_row::kPower, "no power");
    card = deckCard;
}

void TimeRead(CardReader& rdr)
{
    const int nFirst = rdr.IntegerGet(time_row::kFirst, 0, 24);
    const int nLast = rdr.IntegerGet(time_row::kLast, 0, 24);
    rdr.EndCheck(time_row::kStep);
    const int nStep = rdr.IntegerGet(time_row::kStep, 1, 24);
    if (nFirst != 0 || nLast != 23 || nStep != 1)
        rdr.Fail({time_row::kFirst.nCol, 15, kText},
                 "only the hours 0 to 23 in steps of 1 are known");
}

void NoiseRead(CardReader& rdr, DeckCommon& deckCommon)
{
    deckCommon.dNoise = -std::abs(rdr.NumberGet(nois_row::kNoise, -999.0, 999.0));
    deckCommon.dBandwidth = rdr.NumberGet(nois_row::kBandwidth, 1.0, 99999.0);
    deckCommon.dRequiredSnr = rdr.NumberGet(nois_row::kRequiredSnr, -200.0, 200.0);
    rdr.EndCheck(nois_row::kReliability);
    deckCommon.dReliability = rdr.NumberGet(nois_row::kReliability, -999.0, 9999.0);
}

void CardRead(Card eCard, CardReader& rdr, std::string_view sLine, PointDeck& pointDeck)
{
    DeckCommon& common = pointDeck.common;
    switch (eCard) {
        case kCoeffs:
            common.eMaps = static_cast<rec533::MapSet>(rdr.ChoiceGet(coeffs_row::kMaps, kMapNames));
            break;
        case kSsn:
            rdr.EndCheck(sunspot_row::kSunSpot);
            common.dSsn = rdr.NumberGet(sunspot_row::kSunSpot, 0.0, rec533::kSsnMost);
            break;
        case kTime:
            TimeRead(rdr);
            break;
        case kDate:
            pointDeck.nYear = rdr.IntegerGet(month_row::kYear, 0, 9999);
            rdr.EndCheck(month_row::kMonth);
            common.nMonth = rdr.IntegerGet(month_row::kMonth, 1, 12);
            break;
        case kTrans:
            StationRead(rdr, pointDeck.sTxName, common.dTxLat, common.dTxLon);
            break;
        case kRecvr:
            StationRead(rdr, pointDeck.sRxName, pointDeck.dRxLat, pointDeck.dRxLon);
            break;
        case kSyst:
            pointDeck.dPowerKw = rdr.NumberGet(syst_row::kPower, 1e-6, kPowerMost);
            rdr.EndCheck(syst_row::kTakeoff);
            common.dLeastElevation = rdr.NumberGet(syst_row::kTakeoff, -99.0, 99.0);
            break;
        case kNois:
            NoiseRead(rdr, common);
            break;
        case kFreq:
            FrequenciesRead(rdr, sLine, pointDeck);
            break;
        default:
            break;
    }
}

}  // namespace

Result<PointDeck> PointDeckRead(std::string_view sDeck)
{
    PointDeck pointDeck;
    std::array<bool, kCards> aSeen{};
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (TextTrim(sLine).empty())
            continue;
        const std::string_view sName = TextColumns(sLine, kCardLabel.nCol, kCardLabel.nWidth);
        const std::string_view sCard = sName.substr(0, sName.find_last_not_of(' ') + 1);
        CardReader rdr(sCard, sLine);
        if (sCard == "ANTENNA") {
            AntennaRead(rdr, pointDeck.common);
        } else {
            const auto itName = std::find(kCardNames.begin(), kCardNames.end(), sCard);
            if (itName == kCardNames.end())
                return DeckErrorMake(TextQuote(TextTrim(sName)), kCardLabel,
                                     "not a card of this deck");
            const auto nCard = static_cast<std::size_t>(itName - kCardNames.begin());
            if (aSeen[nCard])
                return DeckErrorMake(sCard, kCardLabel, "given twice");
            aSeen[nCard] = true;
            CardRead(static_cast<Card>(nCard), rdr, sLine, pointDeck);
        }
        if (rdr.Failed())
            return rdr.ErrorGet();
        if (aSeen[kQuit])
            break;
    }
    for (std::size_t i = 0; i < aSeen.size(); ++i)
        if (!aSeen[i])
            return DeckErrorMake(kCardNames[i], "the card is missing");
    return pointDeck;
}

}  // namespace run533
