/// @file FortranFormat.h
/// Numbers as the engines' cards need them: fixed-width fields, padded with blanks on the left.
///
/// Rounding: half away from zero on the shortest decimal text of the value in its own precision, so
///           a single must be passed as a single (1.85F with "F5.1" is "  1.9").
/// Errors:   a text longer than the field, and a value that is not finite, is "Invalid procedure
///           call or argument": an engine would compute a shifted card without complaint.
/// Tests:    tests/propagation/FortranFormatTest.cpp
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "system/Message.h"
#include "system/Result.h"

struct FortranEntry {
    std::string_view sFormat;
    std::string_view sPattern;  ///< of NumberFormat
    int nWidth;                 ///< columns
};

inline constexpr std::array kFortranFormats{
    FortranEntry{"I5", "0", 5},       FortranEntry{"I7", "0", 7},
    FortranEntry{"I10", "0", 10},     FortranEntry{"F5.0", "0.", 5},
    FortranEntry{"F5.1", ".0", 5},    FortranEntry{"F5.2", ".00", 5},
    FortranEntry{"F6.2", ".00", 6},   FortranEntry{"F7.1", ".0", 7},
    FortranEntry{"F7.2", ".00", 7},   FortranEntry{"F7.3", ".000", 7},
    FortranEntry{"F10.2", ".00", 10}, FortranEntry{"F10.3", ".000", 10},
};

/// Width of a format; 0 when there is no such format.
constexpr int FortranWidth(std::string_view sFormat)
{
    for (const FortranEntry& entry : kFortranFormats)
        if (entry.sFormat == sFormat)
            return entry.nWidth;
    return 0;
}

/// The field of a value. A value below 1 has no digit before the point (".5"), except that the
/// position field "F6.2" prints an exact 0 as "  0.00". An unknown format gives an empty text and
/// the message "FortranFormat, Unknown format " followed by the format; the formats of all layouts
/// are checked at compile time.
Result<std::string> FortranFormat(double dValue, std::string_view sFormat,
                                  Messages* paMessages = nullptr);
Result<std::string> FortranFormat(float fValue, std::string_view sFormat,
                                  Messages* paMessages = nullptr);
Result<std::string> FortranFormat(int nValue, std::string_view sFormat,
                                  Messages* paMessages = nullptr);
