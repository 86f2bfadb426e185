#include "engine/run533/PointDay.h"

#include <cmath>

namespace run533 {

void PointDayFill(PointDay& pointDay, const PointDeck& deck, const RunParts& parts,
                  rec533::DayWork& work)
{
    constexpr double kSameEast = 0.01;  // degrees
    const DeckCommon& common = deck.common;
    rec533::Circuit circuit = CircuitMake(common, parts, deck.dPowerKw);
    const bool bSame = common.dTxLat == deck.dRxLat && common.dTxLon == deck.dRxLon;
    pointDay.dRxLon = bSame ? std::remainder(deck.dRxLon + kSameEast, 360.0) : deck.dRxLon;
    circuit.dRxLat = deck.dRxLat;
    circuit.dRxLon = pointDay.dRxLon;
    std::vector<double> aUsable;
    pointDay.abUsable.clear();
    for (const double dFrequency : deck.aFrequencies) {
        pointDay.abUsable.push_back(rec533::FrequencyUsable(dFrequency));
        if (pointDay.abUsable.back())
            aUsable.push_back(dFrequency);
    }
    const rec533::Ionosphere& iono = *parts.pIonosphere;
    const rec533::Frequencies frequencies(iono, circuit, aUsable);
    pointDay.aCells.resize(pointDay.aHours.size() * aUsable.size());
    PredictDay(work, iono, frequencies, circuit, rec533::DayParts::Page, pointDay.aHours,
               pointDay.aCells);
    const rec533::DayPath path = work.PathGet();
    pointDay.way = path.way;
    pointDay.circuit = path.circuit;
    pointDay.dTxAzimuth =
        BearingGet(pointDay.way.placeFrom, pointDay.way.placeTo) * rec533::kDegrees;
    pointDay.dRxAzimuth =
        BearingGet(pointDay.way.placeTo, pointDay.way.placeFrom) * rec533::kDegrees;
}

}  // namespace run533
