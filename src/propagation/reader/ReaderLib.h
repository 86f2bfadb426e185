/// @file ReaderLib.h
/// Readers of the engines' point-to-point outputs: rows are found by their labels, values read from
/// fixed columns.
///
/// Errors:  the conversion is strict, because the engines end with status 0 after most failures and
///          only a strict reader can tell a complete output from a cut one. The description is
///          returned; what was read before stays in the table. FOT, reliability and deciles are
///          read if they are printed; it is no error if they are not.
/// Tests:   tests/propagation/ReaderTest.cpp
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "propagation/PropagationTable.h"
#include "propagation/Request.h"
#include "system/FileLib.h"
#include "system/Result.h"

using LinePassedFn = std::function<void(const std::string& sLine)>;

/// Reads lines until one contains the label anywhere, and gives that line, or an empty text at the
/// end of the file. Lines before it are passed to fnPassed, if it is given.
Result<void> FindLine(TextFile& file, std::string_view sLabel, std::string& sLine,
                      const LinePassedFn& fnPassed = {});

/// Reads the output of ICEPAC and VOACAP into the cells iFirst..iLast of each hour. Rows are stored
/// in the order printed: MUF and LUF begin with 01 UT, the blocks with 24 UT.
Result<void> ReaderIcepacVoacap(TextFile& file, int iFirst, int iLast, PropagationTable& table);

/// Reads the output of REC533. It gives field strength, which is converted to signal power with the
/// input's frequency (kHz): P = (E - 137) - 20 log10(f / 20000).
Result<void> ReaderRec533(TextFile& file, const Request& input, int iFirst, int iLast,
                          PropagationTable& table);
