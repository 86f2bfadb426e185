/// @file PropagationLib.h
/// The road to a point-to-point prediction: deck, engine, output, table.
///
/// Errors:  told in one box per failure, by the run that met it: the procedure's name, the stage,
///          and the error's description. No failure ends the program; the table keeps what was
///          read.
/// Threads: one; a run blocks up to 5 seconds an attempt, 10 a chunk.
/// Tests:   tests/propagation/PropagationRunTest.cpp, EngineFaultTest.cpp
#pragma once

#include "propagation/PropagationInput.h"
#include "propagation/PropagationTable.h"

/// Runs the input's engine on the frequency list in chunks of at most 10, each at most twice:
/// silently first, then with messages. A chunk that fails twice leaves its cells as they are and
/// its frequencies absent (PropagationTable::PresentIs), and the next one runs all the same. A
/// frequency out of range is left out of the chunks and absent too. The table keeps the input.
/// @param table  at least input.nData frequencies wide
/// @return the result of the last chunk; false at once without frequencies in range.
bool PropagationRun(const PropagationInput& input, PropagationTable& table);

/// One chunk on ICEPAC or VOACAP.
bool PropagationIcepacVoacap(const PropagationInput& input, int iFirst, int iLast, bool bShowError,
                             PropagationTable& table);

/// One chunk on REC533.
bool PropagationRec533(const PropagationInput& input, int iFirst, int iLast, bool bShowError,
                       PropagationTable& table);
