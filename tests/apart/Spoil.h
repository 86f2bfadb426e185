/// @file Spoil.h
/// Files spoilt in the ways in which files get spoilt: cut, mixed up, with bits flipped, numbers
/// overflown, line ends and marks of other systems. The same random numbers spoil the same way.
#pragma once

#include <string>

#include "support/PropertyRandom.h"

struct Spoilt {
    std::string sBytes;
    std::string sHow;  ///< each change with its place, for the message of a failure
};

/// One to three changes.
[[nodiscard]] Spoilt SpoiltMake(const std::string& sSample, PropertyRandom& random);
