/// @file ReaderFields.h
/// What the readers have in common: lines, strict numbers in fields, and the azimuth row.
#pragma once

#include <string>
#include <string_view>

#include "propagation/PropagationTable.h"
#include "propagation/deck/DeckLayout.h"
#include "system/FileLib.h"
#include "system/Result.h"

/// The next line; "Input past end of file" when there is none.
Result<void> LineNext(TextFile& file, std::string& sLine);

/// Strict number in a field.
Result<float> FieldSingle(std::string_view sLine, const Field& fld);
/// Strict number in MHz as kHz, converted in double precision.
Result<float> FieldKilohertz(std::string_view sLine, const Field& fld);
/// Text of a field, neither trimmed nor converted. A byte outside ASCII, which no engine writes,
/// cannot break the program's UTF-8.
std::string FieldText(std::string_view sLine, const Field& fld);

/// Finds "AZIMUTHS"; the values are in the line below.
Result<void> AzimuthsRead(TextFile& file, PropagationTable& table);

/// Numbers of the chunk's frequencies from a row.
Result<void> RowRead(std::string_view sLine, const Field& fldFirst, int iHour, int iFirst,
                     int iLast, CellArray<float>& afCells);
/// The same for a row that not every engine prints: a number that cannot be read becomes
/// kNotPrinted, so that all numbers are of the last row with this label.
void OptionalRowRead(std::string_view sLine, const Field& fldFirst, int iHour, int iFirst,
                     int iLast, CellArray<float>& afCells);
/// Mode texts of the chunk's frequencies.
void LayersRead(std::string_view sLine, const Field& fldFirst, int iHour, int iFirst, int iLast,
                CellArray<std::string>& asCells);
