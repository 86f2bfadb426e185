#include "propagation/PowerTable.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "propagation/SnrScale.h"
#include "settings/Settings.h"
#include "system/NumberLib.h"

namespace {

constexpr double kConst17 = 100.0;  // W, the card of CONST17.VOA
constexpr double kWhip = 5000.0;    // W, the card of SWWHIP.VOA
constexpr double kNoCard = 1000.0;  // W

struct Row {
    int iModel;
    DeckKind eKind;
    std::array<double, 3> adPower;  ///< antenna types 0, 1, 2; any other has no card
};

// clang-format off
constexpr std::array kRows{
    Row{kEngineIcepac, DeckKind::PointToPoint, {kConst17, kConst17, kWhip}},
    Row{kEngineVoacap, DeckKind::PointToPoint, {kConst17, kConst17, kWhip}},
    Row{kEngineRec533, DeckKind::PointToPoint, {kConst17, kWhip,    kNoCard}},
    Row{kEngineIcepac, DeckKind::Area,         {kConst17, kWhip,    kNoCard}},
    Row{kEngineVoacap, DeckKind::Area,         {kConst17, kWhip,    kNoCard}},
    Row{kEngineRec533, DeckKind::Area,         {kConst17, kWhip,    kNoCard}},
};
// clang-format on

bool OwnIs(double dOwn) { return dOwn > 0.0 && std::isfinite(dOwn); }

}  // namespace

double CardPowerGet(int iModel, int iAntennaType, DeckKind eKind)
{
    const auto itRow = std::ranges::find_if(
        kRows, [&](const Row& row) { return row.iModel == iModel && row.eKind == eKind; });
    if (itRow == kRows.end() || iAntennaType < 0
        || iAntennaType >= static_cast<int>(itRow->adPower.size()))
        return kNoCard;
    return itRow->adPower.at(static_cast<std::size_t>(iAntennaType));
}

double PowerInForceGet(double dOwn, int iModel, int iAntennaType, DeckKind eKind)
{
    return OwnIs(dOwn) ? dOwn : CardPowerGet(iModel, iAntennaType, eKind);
}

std::string PowerText(double dPower)
{
    constexpr double kWattsOfKilowatt = 1000.0;
    // The setting is in single precision: print "0.1 W", not all the digits of a double.
    return dPower >= kWattsOfKilowatt
               ? NumberToText(static_cast<float>(dPower / kWattsOfKilowatt)) + " kW"
               : NumberToText(static_cast<float>(dPower)) + " W";
}

double PowerShiftGet(double dOwn, int iModel, int iAntennaType, DeckKind eKind)
{
    return OwnIs(dOwn) ? 10.0 * std::log10(dOwn / CardPowerGet(iModel, iAntennaType, eKind)) : 0.0;
}

bool SnrIsGiven(float fSnr)
{
    constexpr float kNoneRec533 = -999.0F;
    constexpr float kNoneVoacap = -999.9F;
    return !std::isnan(fSnr) && fSnr != kSnrLeast && fSnr != kNoneRec533 && fSnr != kNoneVoacap;
}

float PowerShiftSnr(float fSnr, double dShift)
{
    constexpr float kGridLeast = -99.9F;
    return SnrIsGiven(fSnr) && fSnr != kGridLeast ? static_cast<float>(fSnr + dShift) : fSnr;
}

void PowerShiftTable(const Request& request, int iFirst, int iLast, PropagationTable& table)
{
    const double dShift =
        PowerShiftGet(request.fPower, request.iModel, request.iAntennaType, DeckKind::PointToPoint);
    if (dShift == 0.0)
        return;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        for (int i = iFirst; i <= iLast; ++i) {
            if (!SnrIsGiven(table.fSnr(iHour, i)))
                continue;
            table.fSnr(iHour, i) = PowerShiftSnr(table.fSnr(iHour, i), dShift);
            table.fSdBW(iHour, i) = static_cast<float>(table.fSdBW(iHour, i) + dShift);
            table.fSnrMedian(iHour, i) = static_cast<float>(table.fSnrMedian(iHour, i) + dShift);
        }
    }
}

double PowerShiftGet(const AreaRequest& request)
{
    return PowerShiftGet(request.fPower, request.iModel, request.iAntennaType, DeckKind::Area);
}
