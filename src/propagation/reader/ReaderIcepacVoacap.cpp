#include <string>
#include <string_view>

#include "propagation/reader/ReaderFields.h"
#include "propagation/reader/ReaderLib.h"
#include "system/RunErrorText.h"

namespace {

Result<void> MufTableRead(TextFile& file, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "MUF    LUF", sLine); !resFound)
        return resFound;
    if (auto resNext = LineNext(file, sLine); !resNext)  // the blank line under the head
        return resNext;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        if (auto resNext = LineNext(file, sLine); !resNext)
            return resNext;
        const Result<float> resMuf = FieldKilohertz(sLine, muf_row::kMuf);
        if (!resMuf)
            return resMuf.ErrorGet();
        table.fMUF[iHour] = resMuf.ValueGet();
        const Result<float> resLuf = FieldKilohertz(sLine, muf_row::kLuf);
        if (!resLuf)
            return resLuf.ErrorGet();
        table.fLUF[iHour] = resLuf.ValueGet();
        if (const auto resFot = FieldKilohertz(sLine, muf_row::kFot))
            table.fFOT[iHour] = resFot.ValueGet();
    }
    return {};
}

struct NumberRow {
    std::string_view sLabel;
    CellArray<float> PropagationTable::*pCells;
};

// In the order of the block, as the search runs forward only.
constexpr NumberRow kNumberRows[] = {
    {"ANGLE", &PropagationTable::fTakeoffAngle},   {"DELAY", &PropagationTable::fTimeDelay},
    {"V HITE", &PropagationTable::fVirtualHeight}, {"S DBW", &PropagationTable::fSdBW},
    {"N DBW", &PropagationTable::fNdBW},           {"SNRxx", &PropagationTable::fSnr},
};

// Printed between those rows, but not by every engine and method.
constexpr NumberRow kOptionalRows[] = {
    {"REL", &PropagationTable::fReliability},
    {"SNR LW", &PropagationTable::fSnrLower},
    {"SNR UP", &PropagationTable::fSnrUpper},
};

Result<void> HourRead(TextFile& file, int iHour, int iFirst, int iLast, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "MODE", sLine); !resFound)
        return resFound;
    LayersRead(sLine, hour_row::kFirst, iHour, iFirst, iLast, table.sLayer);
    const auto fnPassed = [&](const std::string& sPassed) {
        for (const NumberRow& row : kOptionalRows)
            if (sPassed.find(row.sLabel) != std::string::npos)
                OptionalRowRead(sPassed, hour_row::kFirst, iHour, iFirst, iLast, table.*row.pCells);
    };
    for (const NumberRow& row : kNumberRows) {
        if (auto resFound = FindLine(file, row.sLabel, sLine, fnPassed); !resFound)
            return resFound;
        auto resRow = RowRead(sLine, hour_row::kFirst, iHour, iFirst, iLast, table.*row.pCells);
        if (!resRow)
            return resRow;
    }
    return {};
}

}  // namespace

Result<void> ReaderIcepacVoacap(TextFile& file, int iFirst, int iLast, PropagationTable& table)
{
    if (iFirst < 1 || iLast > table.nData)
        return RunError{kSubscriptOutOfRange};
    if (auto resMuf = MufTableRead(file, table); !resMuf)
        return resMuf;
    if (auto resAzimuths = AzimuthsRead(file, table); !resAzimuths)
        return resAzimuths;
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        if (auto resHour = HourRead(file, iHour, iFirst, iLast, table); !resHour)
            return resHour;
    return {};
}
