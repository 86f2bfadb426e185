#include "settings/SettingsRange.h"

#include <array>
#include <limits>

#include "system/NumberLib.h"

namespace {

struct Row {
    float Settings::*pMember;
    NumberRange range;
};

constexpr std::array<Row, 11> kRows{{
    {&Settings::m_fPropagationReliability, kRangeReliability},
    {&Settings::m_fPropagationNoiseLevel, kRangeNoise},
    {&Settings::m_fPropagationTakeoffAngle, kRangeTakeoff},
    {&Settings::m_fPropagationSunSpotNumber, kRangeSunSpot},
    {&Settings::m_fPropagationMultipathPower, kRangeMultipathPower},
    {&Settings::m_fPropagationMultipathDelay, kRangeMultipathDelay},
    {&Settings::m_fPropagationQIndex, kRangeQIndex},
    {&Settings::m_fPropagationLayerAdjustE, kRangeLayer},
    {&Settings::m_fPropagationLayerAdjustF1, kRangeLayer},
    {&Settings::m_fPropagationLayerAdjustF2, kRangeLayer},
    {&Settings::m_fPropagationLayerAdjustEs, kRangeLayer},
}};

std::string FaultText(const std::string& sValue, const NumberRange& range)
{
    return sValue + " lies outside " + NumberToText(range.dLeast) + " to "
           + NumberToText(range.dMost);
}

}  // namespace

NumberRange SettingsRangeGet(float Settings::*pMember)
{
    for (const Row& row : kRows) {
        if (row.pMember == pMember)
            return row.range;
    }
    return {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()};
}

std::string RangeFaultText(double dValue, const NumberRange& range)
{
    return FaultText(NumberToText(dValue), range);
}

std::string RangeFaultText(float fValue, const NumberRange& range)
{
    return FaultText(NumberToText(fValue), range);
}
