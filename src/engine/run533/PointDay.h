/// @file PointDay.h
/// The results of a point-to-point deck, from which the program prints its page and the engine in
/// this process makes its answer.
///
/// Units:   those of engine/rec533/Prediction.h; azimuths in degrees.
/// Tests:   tests/engine/OutputTest.cpp, tests/engine/builtin/BuiltInEngineTest.cpp
#pragma once

#include <array>
#include <vector>

#include "engine/rec533/Day.h"
#include "engine/run533/RunParts.h"

namespace run533 {

struct PointDay {
    rec533::Way way;
    rec533::Circuit circuit;
    std::array<rec533::DayHour, 24> aHours;
    std::vector<bool> abUsable;              ///< of the deck's frequencies: in the method's range
    std::vector<rec533::Prediction> aCells;  ///< [hour][usable frequency]
    double dRxLon = 0.0;  ///< moved by a hundredth of a degree if both ends are at one place
    double dTxAzimuth = 0.0, dRxAzimuth = 0.0;
};

void PointDayFill(PointDay& pointDay, const PointDeck& deck, const RunParts& parts,
                  rec533::DayWork& work);

}  // namespace run533
