/// @file RunParts.h
/// What the point-to-point and the area run have in common.
#pragma once

#include <memory>

#include "engine/rec533/Circuit.h"
#include "engine/rec533/Ionosphere.h"
#include "engine/run533/AntennaFile.h"
#include "engine/run533/Decks.h"

namespace run533 {

struct RunParts {
    std::unique_ptr<AntennaLoaded> pTx, pRx;  ///< none: isotropic
    std::shared_ptr<const rec533::Ionosphere> pIonosphere;
};
/// @param pIonosphere  for the deck's maps, month and number, if the caller has it already
[[nodiscard]] Result<RunParts> RunPartsMake(
    const DeckCommon& deckCommon, std::string_view sRoot, rec533::Behaviour eBehaviour,
    std::shared_ptr<const rec533::Ionosphere> pIonosphere = nullptr);
/// The ionosphere for a deck's maps, month and number.
[[nodiscard]] std::shared_ptr<const rec533::Ionosphere> IonosphereMake(
    const DeckCommon& deckCommon, rec533::Behaviour eBehaviour);

/// The circuit without its receiver's place. dPowerKw: used if no antenna card gives a power.
[[nodiscard]] rec533::Circuit CircuitMake(const DeckCommon& deckCommon, const RunParts& parts,
                                          double dPowerKw);

/// The method's name in the page head and in the grid's first line.
[[nodiscard]] std::string_view MethodNameGet(rec533::Behaviour eBehaviour);
/// "JAN" ... "DEC".
[[nodiscard]] std::string_view MonthNameGet(int nMonth);

}  // namespace run533
