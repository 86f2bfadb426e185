#include "app/predict/PredictAreaOptions.h"

#include <array>

#include "app/predict/PredictValue.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"

namespace {

/// Checks height and width with the bounds as the deck prints them, in hundredths of a degree.
Result<void> AreaCheck(PredictArea& area)
{
    const auto Printed = [](double dDegrees) { return NumberFormat(dDegrees, "0.00"); };
    if (Printed(area.dNorth) == Printed(area.dSouth))
        return RunError{"the area has no height"};
    if (area.dNorth < area.dSouth)
        return RunError{"the north bound must lie north of the south bound"};
    // Longitude 180 has two names; an area that begins or ends there does not cross it.
    if (area.dWest > area.dEast && Printed(area.dWest) == Printed(kLongitudeMost))
        area.dWest = -kLongitudeMost;
    if (area.dWest > area.dEast && Printed(area.dEast) == Printed(-kLongitudeMost))
        area.dEast = kLongitudeMost;
    if (Printed(area.dWest) == Printed(area.dEast))
        return RunError{"the area has no width"};
    return {};
}

}  // namespace

Result<void> AreaBoundsApply(PredictOptions& options, const std::string& sValue)
{
    const std::vector<std::string> asPiece = ValueListGet(sValue);
    if (asPiece.size() != 4)
        return RunError{"give four bounds: NORTH,WEST,SOUTH,EAST"};
    struct Bound {
        double* pValue;
        double dMost;
        const char* sWhat;
    };
    const std::array<Bound, 4> aBound{{{&options.area.dNorth, 89.9, "a latitude"},
                                       {&options.area.dWest, 180, "a longitude"},
                                       {&options.area.dSouth, 89.9, "a latitude"},
                                       {&options.area.dEast, 180, "a longitude"}}};
    for (std::size_t n = 0; n < aBound.size(); ++n) {
        const auto res =
            ValueBoundedGet(asPiece[n], {-aBound[n].dMost, aBound[n].dMost}, aBound[n].sWhat);
        if (!res)
            return res.ErrorGet();
        *aBound[n].pValue = res.ValueGet();
    }
    return AreaCheck(options.area);
}

Result<void> AreaHourApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(ValueWholeGet(sValue, {0, 23}, "an hour"), options.area.iHour);
}

Result<void> AreaFrequencyApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(ValueBoundedGet(sValue, kRangeFrequency, "a frequency in kHz"),
                     options.area.fFrequency);
}
