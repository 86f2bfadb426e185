/// @file FuzzTable.h
/// What a point-to-point reader promises of the table that it filled.
#pragma once

#include <cmath>
#include <string>

#include "fuzz/FuzzCheck.h"
#include "propagation/reader/ReaderLib.h"
#include "system/TextLib.h"

inline constexpr int kFuzzFrequencies = 3;  ///< few, so that small inputs can be whole outputs

/// A request with a few usual frequencies, kHz.
inline Request FuzzInput()
{
    Request input;
    input.nData = kFuzzFrequencies;
    input.afFrequency = {0.0F, 2000.0F, 7000.0F, 14000.0F};
    return input;
}

/// Numbers are finite whether the output was whole or not, mode texts are no longer than their
/// field, and an error has a text.
inline void TableCheck(const PropagationTable& table, const Result<void>& res)
{
    constexpr std::size_t kFieldMost = 5;
    Check(res || !res.TextGet().empty());
    Check(std::isfinite(table.fAzimuthTxRc) && std::isfinite(table.fAzimuthRcTx)
          && std::isfinite(table.fRange));
    for (int iHour = 0; iHour <= kHourCount; ++iHour) {
        Check(std::isfinite(table.fMUF[iHour]) && std::isfinite(table.fLUF[iHour]));
        for (int i = 0; i <= table.nData; ++i) {
            for (const auto* pCells :
                 {&table.fTakeoffAngle, &table.fTimeDelay, &table.fVirtualHeight, &table.fSdBW,
                  &table.fNdBW, &table.fSnr})
                Check(std::isfinite((*pCells)(iHour, i)));
            Check(Windows1252FromUtf8(table.sLayer(iHour, i)).size() <= kFieldMost);
        }
    }
}
