/// @file AntennaPower.h
/// The transmitter's power that comes with the choice of an antenna.
///
/// Units:   W.
/// Tests:   tests/propagation/AntennaPowerTest.cpp
#pragma once

#include <optional>

/// The power on the transmitter's antenna card of a path's deck. With REC533 the types mean other
/// antennas than with ICEPAC and VOACAP. Nothing where the deck gets no card.
/// @param iModel  EngineModel
[[nodiscard]] std::optional<double> AntennaPowerGet(int iModel, int iAntennaType);
