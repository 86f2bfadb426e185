/// @file Run.h
/// A run of the program: deck in, output out.
///
/// Paths:   ROOT/RUN/DECK to ROOT/RUN/OUTPUT; ROOT/areadata/DECK to the same name ending in .rg1.
/// Errors:  one line for the user; then no output file is left, not even an old one.
/// Tests:   tests/engine/OutputTest.cpp (library), tests/engine/Rec533ProgramTest.cpp (program)
#pragma once

#include <string>
#include <string_view>

#include "engine/rec533/Units.h"
#include "engine/run533/Decks.h"
#include "system/Result.h"

namespace run533 {

/// The whole page for a point-to-point deck's text.
[[nodiscard]] Result<std::string> PointOutputMake(std::string_view sDeck, std::string_view sRoot,
                                                  rec533::Behaviour eBehaviour);
/// The whole grid for an area deck's text. nThreads 0: as many as the machine has cores.
[[nodiscard]] Result<std::string> AreaOutputMake(std::string_view sDeck, std::string_view sRoot,
                                                 rec533::Behaviour eBehaviour, int nThreads = 0);

/// The same from file to file.
Result<void> PointRun(const std::string& sRoot, const std::string& sDeck,
                      const std::string& sOutput);
Result<void> AreaRun(const std::string& sRoot, const std::string& sDeck);

}  // namespace run533
