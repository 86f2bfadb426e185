#include "propagation/AntennaPower.h"

#include <string>

#include "propagation/deck/AntennaCards.h"
#include "settings/Settings.h"
#include "system/NumberLib.h"

std::optional<double> AntennaPowerGet(int iModel, int iAntennaType)
{
    constexpr double kWattsOfKilowatt = 1000.0;
    const std::string_view sCard = TxCardGet(iModel == kEngineRec533, iAntennaType);
    const auto nPower = sCard.find_last_of(' ');
    if (nPower == std::string_view::npos)
        return std::nullopt;
    const auto res = NumberFromText(std::string(sCard.substr(nPower + 1)));
    return res ? std::optional<double>(res.ValueGet() * kWattsOfKilowatt) : std::nullopt;
}
