/// @file Luf.h
/// The lowest usable frequency of an hour.
///
/// Source:  Recommendation ITU-R P.533-14, section 9.
/// Tests:   tests/engine/OutputTest.cpp
#pragma once

#include "engine/rec533/Prediction.h"

namespace rec533 {

/// Lowest frequency from 2.0 MHz up to the path's MUF, in steps of 0.1 MHz, at which the required
/// SNR is reached with the required reliability, searched coarse to fine. If there is none: the MUF
/// rounded up to a tenth, so that the usable band is empty.
[[nodiscard]] double LufGet(Hour& hour, PredictionWork& work);

}  // namespace rec533
