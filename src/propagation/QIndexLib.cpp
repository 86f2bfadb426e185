#include "propagation/QIndexLib.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kQuietSlope = 0.964;
constexpr double kQuietOffset = -0.3;
constexpr double kStormSlope = 2.04;
constexpr double kStormOffset = -2.7;
constexpr double kKpBreak = 2.23;
// The lines are 0.0005 apart at the break; the quiet one is used up to here.
constexpr double kQBreak = kQuietSlope * kKpBreak + kQuietOffset;
constexpr double kKpMost = 9.0;

}  // namespace

float PropagationQtoK(float fQ)
{
    if (std::isnan(fQ))
        return fQ;
    const double dKp =
        fQ <= kQBreak ? (fQ - kQuietOffset) / kQuietSlope : (fQ - kStormOffset) / kStormSlope;
    return static_cast<float>(std::clamp(dKp, 0.0, kKpMost));
}
