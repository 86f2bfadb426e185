/// @file VoacapSample.h
/// The captured decks and outputs of VOACAP.
#pragma once

#include <string>

#include "support/TempFolder.h"

inline std::string Sample(const std::string& sName)
{
    return BytesRead(std::string(ENGINE_DATA) + "/voacap/" + sName);
}

/// Without its extension; i is 1 to 13.
inline std::string PointName(int i) { return (i < 10 ? "p2p_0" : "p2p_") + std::to_string(i); }
