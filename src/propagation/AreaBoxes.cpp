#include "propagation/AreaBoxes.h"

#include "geo/SphereLib.h"
#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/FortranFormat.h"
#include "system/NumberLib.h"

namespace {

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
    // Shifted by full circles so that the west bound is in [-180, 180).
    const double dTurns = LonTurns(area.dLeft);
    const double dLeft = area.dLeft - dTurns;
    const double dRight = area.dRight - dTurns;
    if (dRight <= kLongitudeMost)
        return {{area.dBottom, area.dTop, dLeft, dRight}};
    return {{area.dBottom, area.dTop, dLeft, kLongitudeMost},
            {area.dBottom, area.dTop, -kLongitudeMost, dRight - kFullCircle}};
}

AreaBox AreaBoxPrinted(const AreaBox& box)
{
    using namespace area_bounds_row;
    return {BoundPrinted(box.dBottom, kSouth), BoundPrinted(box.dTop, kNorth),
            BoundPrinted(box.dLeft, kWest), BoundPrinted(box.dRight, kEast)};
}
