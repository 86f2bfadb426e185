/// @file PointTable.h
/// The ionosphere over a table of places: comma-separated text in, comma-separated text out.
///
/// Input:   columns id, lat, lon, month, ssn, hour in any order, others ignored; optionally ig, a
///          measured IG12. hour 0 to 24 UTC.
/// Output:  these columns and fof2, m3000, foe, fh, dip, modip: MHz and degrees, field at 300 km.
/// Errors:  line and column that cannot be used.
/// Tests:   tests/engine/CircuitTableTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "engine/rec533/Units.h"
#include "system/Result.h"

namespace run533 {

[[nodiscard]] Result<std::string> PointTableMake(std::string_view sTable,
                                                 rec533::Behaviour eBehaviour,
                                                 rec533::MapSet eMaps);

}  // namespace run533
