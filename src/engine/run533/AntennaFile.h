/// @file AntennaFile.h
/// The antenna that a deck names: a file of the engine root, or a built-in default.
///
/// Format:  title; number of parameters; maximum gain (dBi); type, 11 (91 gains in dB for
///          elevations 0 to 90 degrees); efficiency, not used; the gains. ITS packages contain such
///          files.
/// Errors:  a text without the card's name.
/// Tests:   tests/engine/OutputTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "engine/rec533/Circuit.h"
#include "system/Result.h"

namespace run533 {

struct AntennaLoaded {
    std::string sTitle;  ///< first ten characters of its title, as grids show it
    rec533::Antenna antenna;
};

/// sName as between a deck's brackets ("DEFAULT \SWWHIP.VOA  "). ROOT/antennas is searched without
/// regard to case; CONST17.VOA and SWWHIP.VOA are built in if there is no such file.
[[nodiscard]] Result<AntennaLoaded> AntennaLoad(std::string_view sRoot, std::string_view sName);

/// The text of an antenna file.
[[nodiscard]] Result<AntennaLoaded> AntennaRead(std::string_view sText);

}  // namespace run533
