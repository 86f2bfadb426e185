/// REC533's and VOACAP's decks, whole and spoilt, read by the program and by independently written
/// readers: both get the same values, or both refuse.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apart/ApartDecks.h"
#include "engine/run533/Decks.h"
#include "engine/voacap/VoacapDeck.h"
#include "support/TempFolder.h"

namespace {

/// Every captured deck "BEGIN_01EXTENSION", "BEGIN_02EXTENSION" ...
std::vector<std::string> DecksGet(const std::string& sBegin, int nCount,
                                  const std::string& sExtension,
                                  const std::string& sEngine = "rec533")
{
    std::vector<std::string> asDeck;
    for (int i = 1; i <= nCount; ++i)
        asDeck.push_back(BytesRead(CAPTURED + ("/" + sEngine + "/" + sBegin) + (i < 10 ? "_0" : "_")
                                   + std::to_string(i) + sExtension));
    return asDeck;
}

std::string MapsName(const run533::DeckCommon& common)
{
    return std::string(run533::MapNameGet(common.eMaps));
}

void AntennaCollect(const run533::AntennaCard& card, double dEnd, Outcome& to)
{
    to.Add("end", dEnd);
    to.Add("antenna", card.sName);
    to.Add("bearing", card.dAzimuth);
    to.Add("power", card.dPowerKw);
}

Outcome PointRead(const std::string& sBytes)
{
    Outcome outcome;
    const auto res = run533::PointDeckRead(sBytes);
    if (!res) {
        outcome.Refuse();
        return outcome;
    }
    const run533::PointDeck& deck = res.ValueGet();
    const run533::DeckCommon& common = deck.common;
    outcome.Add("maps", MapsName(common));
    outcome.Add("sunspot number", common.dSsn);
    outcome.Add("first hour", 0);
    outcome.Add("last hour", 23);
    outcome.Add("step", 1);
    outcome.Add("year", deck.nYear);
    outcome.Add("month", common.nMonth);
    outcome.Add("name", deck.sTxName);
    outcome.Add("latitude", common.dTxLat);
    outcome.Add("longitude", common.dTxLon);
    outcome.Add("name", deck.sRxName);
    outcome.Add("latitude", deck.dRxLat);
    outcome.Add("longitude", deck.dRxLon);
    outcome.Add("power", deck.dPowerKw);
    outcome.Add("least elevation", common.dLeastElevation);
    outcome.Add("noise", common.dNoise);
    outcome.Add("bandwidth", common.dBandwidth);
    outcome.Add("required ratio", common.dRequiredSnr);
    outcome.Add("reliability", common.dReliability);
    for (const double dMhz : deck.aFrequencies) outcome.Add("frequency", dMhz);
    if (common.txAntenna)
        AntennaCollect(*common.txAntenna, 1, outcome);
    if (common.rxAntenna)
        AntennaCollect(*common.rxAntenna, 2, outcome);
    return outcome;
}

Outcome AreaRead(const std::string& sBytes)
{
    Outcome outcome;
    const auto res = run533::AreaDeckRead(sBytes);
    if (!res) {
        outcome.Refuse();
        return outcome;
    }
    const run533::AreaDeck& deck = res.ValueGet();
    const run533::DeckCommon& common = deck.common;
    outcome.Add("latitude", common.dTxLat);
    outcome.Add("longitude", common.dTxLon);
    outcome.Add("name", deck.sTxName);
    outcome.Add("west", deck.dWest);
    outcome.Add("east", deck.dEast);
    outcome.Add("south", deck.dSouth);
    outcome.Add("north", deck.dNorth);
    outcome.Add("points", deck.nGrid);
    outcome.Add("maps", MapsName(common));
    outcome.Add("month", common.nMonth);
    outcome.Add("sunspot number", common.dSsn);
    outcome.Add("hour", deck.nHour);
    outcome.Add("frequency", deck.dFrequency);
    outcome.Add("noise", common.dNoise);
    outcome.Add("least elevation", common.dLeastElevation);
    outcome.Add("reliability", common.dReliability);
    outcome.Add("required ratio", common.dRequiredSnr);
    outcome.Add("bandwidth", common.dBandwidth);
    if (common.txAntenna) {
        outcome.Add("antenna", common.txAntenna->sName);
        outcome.Add("bearing", common.txAntenna->dAzimuth);
        outcome.Add("power", common.txAntenna->dPowerKw);
    }
    if (common.rxAntenna)
        outcome.Add("antenna", common.rxAntenna->sName);
    return outcome;
}

Outcome VoacapRead(const Result<VoacapDeck>& res)
{
    Outcome outcome;
    if (!res) {
        outcome.Refuse();
        return outcome;
    }
    const VoacapDeck& deck = res.ValueGet();
    for (const VoacapAntenna& antenna : deck.aAntennas) {
        outcome.Add("antenna", antenna.sFolder);
        outcome.Add("antenna", antenna.sFile);
    }
    outcome.Add("text", deck.sText);
    for (const double dMhz : deck.aFrequencies) outcome.Add("frequency", dMhz);
    if (deck.aFrequencies.empty())
        outcome.Add("points", deck.nGrid);
    return outcome;
}

TEST(DecksApart, DecksOfAPathAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        DecksGet("p2p", 13, ".dat"),
        [](const std::string& sBytes, std::size_t) { return PointRead(sBytes); },
        [](const std::string& sBytes, std::size_t) { return ApartPointDeck(sBytes); }, 100, 400);
}

TEST(DecksApart, DecksOfAnAreaAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        DecksGet("area", 5, ".rec"),
        [](const std::string& sBytes, std::size_t) { return AreaRead(sBytes); },
        [](const std::string& sBytes, std::size_t) { return ApartAreaDeck(sBytes); }, 100, 400);
}

TEST(DecksApart, VoacapsDecksOfAPathAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        DecksGet("p2p", 13, ".dat", "voacap"),
        [](const std::string& sBytes, std::size_t) { return VoacapRead(VoacapDeckPoint(sBytes)); },
        [](const std::string& sBytes, std::size_t) { return ApartVoacapPoint(sBytes); }, 300, 100);
}

TEST(DecksApart, VoacapsDecksOfAnAreaAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        DecksGet("area", 5, ".voa", "voacap"),
        [](const std::string& sBytes, std::size_t) { return VoacapRead(VoacapDeckArea(sBytes)); },
        [](const std::string& sBytes, std::size_t) { return ApartVoacapArea(sBytes); }, 300, 100);
}

}  // namespace
