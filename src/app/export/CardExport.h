/// @file CardExport.h
/// hopcast --export FILE: the card of a prediction, or the map of an area's, as a file, without a
/// window, a display or a writable home.
///
/// Errors:  on standard error; exit status as hopcast-predict.
/// Tests:   tests/app/HopcastExportTest.cpp
#pragma once

#include <string>
#include <vector>

/// @param asWords  the command line without the program's name: --export FILE and options of
///                 hopcast-predict
/// @return the exit status
int CardExportRun(const std::vector<std::string>& asWords);
