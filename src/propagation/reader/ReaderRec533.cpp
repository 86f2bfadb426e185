#include <string>

#include "geo/MathLib.h"
#include "propagation/reader/ReaderFields.h"
#include "propagation/reader/ReaderLib.h"
#include "system/RunErrorText.h"

namespace {

struct Chunk {
    const Request& m_input;
    int iFirst;
    int iLast;
};

Result<void> FrequencyRowRead(TextFile& file, int iHour, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "FREQ", sLine); !resFound)
        return resFound;
    const Result<float> resMuf = FieldKilohertz(sLine, hour_row_rec533::kMuf);
    if (!resMuf)
        return resMuf.ErrorGet();
    table.fMUF[iHour] = resMuf.ValueGet();
    // A LUF with a minus sign means "required reliability not reached". The sign of a two-digit LUF
    // is one column before the field and is ignored; the value is kept as it is read.
    const Result<float> resLuf = FieldKilohertz(sLine, hour_row_rec533::kLuf);
    if (!resLuf)
        return resLuf.ErrorGet();
    table.fLUF[iHour] = resLuf.ValueGet();
    if (const auto resFot = FieldKilohertz(sLine, hour_row_rec533::kFot))
        table.fFOT[iHour] = resFot.ValueGet();
    return {};
}

Result<void> LayerRowsRead(TextFile& file, const Chunk& chunk, int iHour, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "MODE", sLine); !resFound)
        return resFound;
    LayersRead(sLine, hour_row_rec533::kFirst, iHour, chunk.iFirst, chunk.iLast, table.sLayer);
    if (auto resFound = FindLine(file, "ANGL", sLine); !resFound)
        return resFound;
    for (int j = chunk.iFirst; j <= chunk.iLast; ++j) {
        // Beyond 7000 km the row has dashes.
        const auto resAngle =
            FieldSingle(sLine, FieldAt(hour_row_rec533::kFirst, j - chunk.iFirst));
        table.fTakeoffAngle(iHour, j) = resAngle ? resAngle.ValueGet() : 0.0F;
        table.fTimeDelay(iHour, j) = -1.0F;
        table.fVirtualHeight(iHour, j) = -1.0F;
    }
    return {};
}

/// Power from an isotropic receiving antenna, dBW, at a field strength in dB above 1 uV/m.
Result<void> SignalRowRead(TextFile& file, const Chunk& chunk, int iHour, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "DBU", sLine); !resFound)
        return resFound;
    auto resRow =
        RowRead(sLine, hour_row_rec533::kFirst, iHour, chunk.iFirst, chunk.iLast, table.fSdBW);
    if (!resRow)
        return resRow;
    for (int j = chunk.iFirst; j <= chunk.iLast; ++j) {
        const double dFrequency = chunk.m_input.FrequencyGet(j);
        if (!(dFrequency > 0.0))
            return RunError{kInvalidCall};  // it has no logarithm
        float& fSdBW = table.fSdBW(iHour, j);
        fSdBW = static_cast<float>((fSdBW - 137.0) - 20.0 * Log10(dFrequency / 20000.0));
    }
    return {};
}

Result<void> NoiseRowsRead(TextFile& file, const Chunk& chunk, int iHour, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "S/N", sLine); !resFound)
        return resFound;
    auto resRow =
        RowRead(sLine, hour_row_rec533::kFirst, iHour, chunk.iFirst, chunk.iLast, table.fNdBW);
    if (!resRow)
        return resRow;
    for (int j = chunk.iFirst; j <= chunk.iLast; ++j)
        table.fNdBW(iHour, j) = table.fSdBW(iHour, j) - table.fNdBW(iHour, j);
    const auto fnPassed = [&](const std::string& sPassed) {
        if (sPassed.find("FS/N") != std::string::npos)
            OptionalRowRead(sPassed, hour_row_rec533::kFirst, iHour, chunk.iFirst, chunk.iLast,
                            table.fReliability);
    };
    if (auto resFound = FindLine(file, "SNxx", sLine, fnPassed); !resFound)
        return resFound;
    return RowRead(sLine, hour_row_rec533::kFirst, iHour, chunk.iFirst, chunk.iLast, table.fSnr);
}

}  // namespace

Result<void> ReaderRec533(TextFile& file, const Request& input, int iFirst, int iLast,
                          PropagationTable& table)
{
    if (iFirst < 1 || iLast > table.nData || iLast > input.nData)
        return RunError{kSubscriptOutOfRange};
    const Chunk chunk{input, iFirst, iLast};
    if (auto resAzimuths = AzimuthsRead(file, table); !resAzimuths)
        return resAzimuths;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        if (auto resRow = FrequencyRowRead(file, iHour, table); !resRow)
            return resRow;
        if (auto resRows = LayerRowsRead(file, chunk, iHour, table); !resRows)
            return resRows;
        if (auto resRow = SignalRowRead(file, chunk, iHour, table); !resRow)
            return resRow;
        if (auto resRows = NoiseRowsRead(file, chunk, iHour, table); !resRows)
            return resRows;
    }
    return {};
}
