/// @file RunParts.h
/// What the point-to-point and the area run share.
#pragma once

#include <memory>

#include "engine/rec533/Circuit.h"
#include "engine/rec533/Units.h"
#include "engine/run533/AntennaFile.h"
#include "engine/run533/Decks.h"

namespace run533 {

/// The deck's antennas, loaded; none: isotropic.
struct Antennas {
    std::unique_ptr<AntennaLoaded> pTx, pRx;
};
/// sTxCard, sRxCard: the cards' names for errors; nCol, nWidth: where they name the antenna.
[[nodiscard]] Result<Antennas> AntennasLoad(const DeckCommon& tbl, std::string_view sRoot,
                                            std::string_view sTxCard, std::string_view sRxCard,
                                            int nCol, int nWidth);

/// The circuit without its receiver's place.
[[nodiscard]] rec533::Circuit CircuitMake(const DeckCommon& tbl, const Antennas& tblAntennas,
                                          double dPowerKw);

/// How the page head and the grid's first line name the method.
[[nodiscard]] std::string_view MethodNameGet(rec533::Behaviour eBehaviour);
/// "JAN" ... "DEC".
[[nodiscard]] std::string_view MonthNameGet(int nMonth);

}  // namespace run533
