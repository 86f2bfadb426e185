/// @file PropagationLib.h
/// Point-to-point predictions by an engine program: deck, engine, output, table.
///
/// Errors:  each a Failure with the procedure's name, the stage, and the error's description. The
///          caller shows them. No failure ends the program; the table keeps what was read.
/// Threads: a run blocks its thread for up to 5 seconds per attempt, 10 per chunk.
/// Tests:   tests/propagation/PropagationRunTest.cpp, EngineFaultTest.cpp
#pragma once

#include <optional>
#include <vector>

#include "propagation/Prediction.h"
#include "propagation/itshfbc/EngineRun.h"

/// Runs the request's engine on the frequency list in chunks of at most 10, each at most twice. A
/// chunk that fails twice leaves its cells as they are and its frequencies absent
/// (PropagationTable::PresentIs), and the next one runs all the same. A frequency out of range is
/// left out of the chunks and is absent too. The table keeps the request.
/// @param table      at least request.nData frequencies wide
/// @param aFailures  gets what the user has to know, in order: the second failure of each chunk,
///                   and the first one if it has bShowAlways
/// @return the result of the last chunk; false at once if no frequency is in range.
bool PropagationRun(const Request& request, PropagationTable& table,
                    std::vector<Failure>& aFailures, const EngineWay& way = {});

/// One chunk on ICEPAC or VOACAP. @return nothing when the table has its values.
[[nodiscard]] std::optional<Failure> PropagationIcepacVoacap(const Request& request, int iFirst,
                                                             int iLast, PropagationTable& table,
                                                             const EngineWay& way = {});

/// One chunk on REC533.
[[nodiscard]] std::optional<Failure> PropagationRec533(const Request& request, int iFirst,
                                                       int iLast, PropagationTable& table,
                                                       const EngineWay& way = {});
