/// @file PropagationLib.h
/// The road to a point-to-point prediction by an engine program: deck, engine, output, table.
///
/// Errors:  each a Failure, made by the run that met it: the procedure's name, the stage, and the
///          error's description. The caller shows them. No failure ends the program; the table
///          keeps what was read.
/// Threads: a run blocks its thread up to 5 seconds an attempt, 10 a chunk.
/// Tests:   tests/propagation/PropagationRunTest.cpp, EngineFaultTest.cpp
#pragma once

#include <optional>
#include <vector>

#include "propagation/Prediction.h"
#include "propagation/itshfbc/EngineRun.h"

/// Runs the request's engine on the frequency list in chunks of at most 10, each at most twice. A
/// chunk that fails twice leaves its cells as they are and its frequencies absent
/// (PropagationTable::PresentIs), and the next one runs all the same. A frequency out of range is
/// left out of the chunks and absent too. The table keeps the request.
/// @param table      at least request.nData frequencies wide
/// @param aFailures  gets what the user has to be told, in its order: the second failure of each
///                   chunk, and of the first what is told in any case
/// @return the result of the last chunk; false at once without frequencies in range.
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
