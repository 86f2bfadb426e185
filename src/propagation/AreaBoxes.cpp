#include "propagation/AreaBoxes.h"

#include <cmath>

#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/FortranFormat.h"
#include "system/NumberLib.h"

namespace {

constexpr double kDateLine = 180.0;
constexpr double kCircle = 360.0;

double BoundPrinted(double dBound, const Field& fld)
{
    const auto resField = FortranFormat(dBound, fld.sFormat);
    if (!resField)
        return dBound;
    const auto resNumber = NumberFromText(resField.ValueGet());
    return resNumber ? resNumber.ValueGet() : dBound;
}

}  // namespace

std::vector<AreaBox> AreaBoxesGet(const AreaBox& area)
{
    if (!(area.dBottom < area.dTop && area.dLeft < area.dRight))
        return {};
    // The turn of the scale on which the west bound lies in [-180, 180).
    const double dTurn = std::floor((area.dLeft + kDateLine) / kCircle) * kCircle;
    const double dLeft = area.dLeft - dTurn;
    const double dRight = area.dRight - dTurn;
    if (dRight <= kDateLine)
        return {{area.dBottom, area.dTop, dLeft, dRight}};
    return {{area.dBottom, area.dTop, dLeft, kDateLine},
            {area.dBottom, area.dTop, -kDateLine, dRight - kCircle}};
}

AreaBox AreaBoxPrinted(const AreaBox& box)
{
    using namespace area_bounds_row;
    return {BoundPrinted(box.dBottom, kSouth), BoundPrinted(box.dTop, kNorth),
            BoundPrinted(box.dLeft, kWest), BoundPrinted(box.dRight, kEast)};
}
