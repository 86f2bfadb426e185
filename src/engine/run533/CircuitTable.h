/// @file CircuitTable.h
/// The method for a table of circuits: comma-separated text in, comma-separated text out.
///
/// Input:   columns id, tx_lat, tx_lon, rx_lat, rx_lon, path, month, ssn, pwr_w, noise, req_snr,
///          req_rel, hour, freq in any order, others ignored; path SHORT or LONG; noise CITY,
///          RESIDENTIAL, RURAL, QUIETRURAL, QUIET, NOISY or dBW in 1 Hz at 3 MHz; isotropic
///          antennas, 1 Hz. An optional column ig has a measured IG12, else it comes from ssn.
/// Output:  these columns and the computed ones (see docs/model.md); empty if not defined.
/// Errors:  line and column that cannot be used.
/// Tests:   tests/engine/CircuitTableTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "engine/rec533/Units.h"
#include "system/Result.h"

namespace run533 {

[[nodiscard]] Result<std::string> CircuitTableMake(std::string_view sTable,
                                                   rec533::Behaviour eBehaviour,
                                                   rec533::MapSet eMaps);

}  // namespace run533
