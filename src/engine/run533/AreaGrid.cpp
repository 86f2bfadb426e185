#include "engine/run533/AreaGrid.h"

#include <algorithm>
#include <cmath>

namespace run533 {
namespace {

constexpr double kFixedEast = 0.05;  // degrees: a point on the fixed end is moved this far east
constexpr double kSame = 1e-9;       // degrees

double LonWrap(double dLon, bool bEastOnly)
{
    while (dLon > (bEastOnly ? 360.0 : 180.0)) dLon -= 360.0;
    while (dLon < (bEastOnly ? 0.0 : -180.0)) dLon += 360.0;
    return dLon;
}

}  // namespace

GridPlace GridPlaceGet(const AreaDeck& deck, int nRow, int nColumn)
{
    const int nSteps = deck.nGrid - 1;
    const bool bEastOnly = deck.dWest >= 0.0;
    GridPlace gridPlace;
    gridPlace.dLat = deck.dSouth + (deck.dNorth - deck.dSouth) * nRow / nSteps;
    gridPlace.dLon = LonWrap(deck.dWest + (deck.dEast - deck.dWest) * nColumn / nSteps, bEastOnly);
    const double dApart = std::remainder(gridPlace.dLon - deck.common.dTxLon, 360.0);
    if (std::abs(gridPlace.dLat - deck.common.dTxLat) < kSame && std::abs(dApart) < kSame)
        gridPlace.dLon = LonWrap(gridPlace.dLon + kFixedEast, bEastOnly);
    gridPlace.dLonOfPath = std::remainder(gridPlace.dLon, 360.0);
    return gridPlace;
}

double GridValueClamp(double dValue)
{
    constexpr double kMost = 999.9;
    constexpr double kLeast = -99.9;
    return std::clamp(dValue, kLeast, kMost);
}

}  // namespace run533
