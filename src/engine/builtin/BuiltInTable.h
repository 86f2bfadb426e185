/// @file BuiltInTable.h
/// A computed day as a prediction table, each value as the page prints it and the reader reads it.
///
/// Tests:   tests/engine/builtin/BuiltInEngineTest.cpp
#pragma once

#include <vector>

#include "engine/run533/PointDay.h"
#include "propagation/PropagationTable.h"

/// @param aiFrequency  the table's indices of the day's frequencies, in order
/// @param table        with its request; the frequencies become present
void BuiltInTableFill(const run533::PointDay& day, const std::vector<int>& aiFrequency,
                      PropagationTable& table);
