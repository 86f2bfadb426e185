#include "engine/run533/PointDay.h"

namespace run533 {

void PointDayFill(PointDay& tbl, const PointDeck& deck, const RunParts& parts,
                  rec533::DayWork& work)
{
    constexpr double kSameEast = 0.01;  // degrees
    const DeckCommon& common = deck.common;
    rec533::Circuit circuit = CircuitMake(common, parts, deck.dPowerKw);
    const bool bSame = common.dTxLat == deck.dRxLat && common.dTxLon == deck.dRxLon;
    tbl.dRxLon = deck.dRxLon + (bSame ? kSameEast : 0.0);
    circuit.dRxLat = deck.dRxLat;
    circuit.dRxLon = tbl.dRxLon;
    std::vector<double> aUsable;
    tbl.abUsable.clear();
    for (const double dFrequency : deck.aFrequencies) {
        tbl.abUsable.push_back(rec533::FrequencyUsable(dFrequency));
        if (tbl.abUsable.back())
            aUsable.push_back(dFrequency);
    }
    const rec533::Ionosphere& iono = *parts.pIonosphere;
    const rec533::Frequencies frequencies(iono, circuit, aUsable);
    tbl.aCells.resize(tbl.aHours.size() * aUsable.size());
    PredictDay(work, iono, frequencies, circuit, rec533::DayParts::Page, tbl.aHours, tbl.aCells);
    const rec533::DayPath path = work.PathGet();
    tbl.way = path.way;
    tbl.circuit = path.circuit;
    tbl.dTxAzimuth = BearingGet(tbl.way.placeFrom, tbl.way.placeTo) * rec533::kDegrees;
    tbl.dRxAzimuth = BearingGet(tbl.way.placeTo, tbl.way.placeFrom) * rec533::kDegrees;
}

}  // namespace run533
