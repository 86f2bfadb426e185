/// @file Spoil.h
/// Spoils files as happens in practice: cut, mixed up, with flipped bits, overflowing numbers, or
/// the line ends and byte order marks of other systems. The same random numbers spoil in the same
/// way.
#pragma once

#include <string>

#include "support/PropertyRandom.h"

struct Spoilt {
    std::string sBytes;
    std::string sHow;  ///< each change with its line, for a failure's message
};

/// One to three changes.
[[nodiscard]] Spoilt SpoiltMake(const std::string& sSample, PropertyRandom& random);
