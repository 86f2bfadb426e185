#include "propagation/reader/ReaderFields.h"

#include "propagation/reader/ReaderLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

Result<void> LineNext(TextFile& file, std::string& sLine)
{
    const Result<bool> resRead = file.LineRead(sLine);
    if (!resRead)
        return resRead.ErrorGet();
    if (!resRead.ValueGet())
        return RunError{kInputPastEnd};
    return {};
}

Result<void> FindLine(TextFile& file, std::string_view sLabel, std::string& sLine,
                      const LinePassedFn& fnPassed)
{
    for (;;) {
        const Result<bool> resRead = file.LineRead(sLine);
        if (!resRead)
            return resRead.ErrorGet();
        if (!resRead.ValueGet()) {
            sLine.clear();
            return {};
        }
        if (sLine.find(sLabel) != std::string::npos)
            return {};
        if (fnPassed)
            fnPassed(sLine);
    }
}

Result<float> FieldSingle(std::string_view sLine, const Field& fld)
{
    return NumberFromTextSingle(TextColumns(sLine, fld.nCol, fld.nWidth));
}

Result<float> FieldKilohertz(std::string_view sLine, const Field& fld)
{
    const Result<double> resNumber = NumberFromText(TextColumns(sLine, fld.nCol, fld.nWidth));
    if (!resNumber)
        return resNumber.ErrorGet();
    return static_cast<float>(resNumber.ValueGet() * 1000.0);
}

std::string FieldText(std::string_view sLine, const Field& fld)
{
    return Utf8FromWindows1252(TextColumns(sLine, fld.nCol, fld.nWidth));
}

Result<void> AzimuthsRead(TextFile& file, PropagationTable& table)
{
    std::string sLine;
    if (auto resFound = FindLine(file, "AZIMUTHS", sLine); !resFound)
        return resFound;
    if (auto resNext = LineNext(file, sLine); !resNext)
        return resNext;
    const Result<float> resTxRc = FieldSingle(sLine, azimuth_row::kTxRc);
    if (!resTxRc)
        return resTxRc.ErrorGet();
    table.fAzimuthTxRc = resTxRc.ValueGet();
    const Result<float> resRcTx = FieldSingle(sLine, azimuth_row::kRcTx);
    if (!resRcTx)
        return resRcTx.ErrorGet();
    table.fAzimuthRcTx = resRcTx.ValueGet();
    const Result<float> resRange = FieldSingle(sLine, azimuth_row::kRange);
    if (!resRange)
        return resRange.ErrorGet();
    table.fRange = resRange.ValueGet();
    return {};
}

Result<void> RowRead(std::string_view sLine, const Field& fldFirst, int iHour, int iFirst,
                     int iLast, CellArray<float>& afCells)
{
    for (int j = iFirst; j <= iLast; ++j) {
        const Result<float> resNumber = FieldSingle(sLine, FieldAt(fldFirst, j - iFirst));
        if (!resNumber)
            return resNumber.ErrorGet();
        afCells(iHour, j) = resNumber.ValueGet();
    }
    return {};
}

void OptionalRowRead(std::string_view sLine, const Field& fldFirst, int iHour, int iFirst,
                     int iLast, CellArray<float>& afCells)
{
    for (int j = iFirst; j <= iLast; ++j) {
        const auto resNumber = FieldSingle(sLine, FieldAt(fldFirst, j - iFirst));
        afCells(iHour, j) = resNumber ? resNumber.ValueGet() : PropagationTable::kNotPrinted;
    }
}

void LayersRead(std::string_view sLine, const Field& fldFirst, int iHour, int iFirst, int iLast,
                CellArray<std::string>& asCells)
{
    for (int j = iFirst; j <= iLast; ++j)
        asCells(iHour, j) = FieldText(sLine, FieldAt(fldFirst, j - iFirst));
}
