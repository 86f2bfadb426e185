#include "engine/run533/PointDay.h"

namespace run533 {

void PointDayFill(PointDay& tbl, const PointDeck& tblDeck, const RunParts& tblParts,
                  rec533::DayWork& tblWork)
{
    constexpr double kSameEast = 0.01;  // degrees
    const DeckCommon& tblCommon = tblDeck.tblCommon;
    rec533::Circuit tblCircuit = CircuitMake(tblCommon, tblParts, tblDeck.dPowerKw);
    const bool bSame = tblCommon.dTxLat == tblDeck.dRxLat && tblCommon.dTxLon == tblDeck.dRxLon;
    tbl.dRxLon = tblDeck.dRxLon + (bSame ? kSameEast : 0.0);
    tblCircuit.dRxLat = tblDeck.dRxLat;
    tblCircuit.dRxLon = tbl.dRxLon;
    std::vector<double> aUsable;
    tbl.abUsable.clear();
    for (const double dFrequency : tblDeck.aFrequencies) {
        tbl.abUsable.push_back(rec533::FrequencyUsable(dFrequency));
        if (tbl.abUsable.back())
            aUsable.push_back(dFrequency);
    }
    const rec533::Ionosphere& tblIono = *tblParts.pIonosphere;
    const rec533::Frequencies tblFrequencies(tblIono, tblCircuit, aUsable);
    tbl.aCells.resize(tbl.aHours.size() * aUsable.size());
    PredictDay(tblWork, tblIono, tblFrequencies, tblCircuit, rec533::DayParts::Page, tbl.aHours,
               tbl.aCells);
    const rec533::DayPath tblPath = tblWork.PathGet();
    tbl.tblWay = tblPath.tblWay;
    tbl.tblCircuit = tblPath.tblCircuit;
    tbl.dTxAzimuth = BearingGet(tbl.tblWay.tblFrom, tbl.tblWay.tblTo) * rec533::kDegrees;
    tbl.dRxAzimuth = BearingGet(tbl.tblWay.tblTo, tbl.tblWay.tblFrom) * rec533::kDegrees;
}

}  // namespace run533
