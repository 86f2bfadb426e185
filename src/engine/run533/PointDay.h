/// @file PointDay.h
/// A point-to-point deck computed: what its page is printed from, and what the engine of this
/// process answers with.
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
    std::vector<bool> abUsable;              ///< of the deck's frequencies: the method takes them
    std::vector<rec533::Prediction> aCells;  ///< [hour][usable frequency]
    double dRxLon = 0.0;  ///< both ends at one place are told apart by a hundredth of a degree
    double dTxAzimuth = 0.0, dRxAzimuth = 0.0;
};

void PointDayFill(PointDay& pointDay, const PointDeck& deck, const RunParts& parts,
                  rec533::DayWork& work);

}  // namespace run533
