#include "engine/builtin/BuiltInTable.h"

#include <algorithm>
#include <array>

#include "engine/run533/FieldText.h"
#include "geo/Earth.h"
#include "geo/MathLib.h"
#include "propagation/PowerTable.h"

namespace {

constexpr int kWidth = 5;           // columns of every value of an hour's block
constexpr double kUnused = -999.0;  // printed for frequencies outside the method's range

/// A value without decimals.
float WholeGet(double dValue)
{
    return static_cast<float>(run533::FieldValueGet(dValue, kWidth, 0));
}

/// MHz with one decimal, as kHz.
float KilohertzGet(double dMegahertz)
{
    return static_cast<float>(run533::FieldValueGet(dMegahertz, kWidth, 1) * 1000.0);
}

std::string LayerGet(const rec533::Prediction* pCell)
{
    if (pCell == nullptr)
        return "  0  ";
    if (pCell->nHops == 0)
        return "   - ";
    std::string sName = "     ";
    sName[1] = pCell->nHops >= 10 ? static_cast<char>('0' + pCell->nHops / 10) : ' ';
    sName[2] = static_cast<char>('0' + pCell->nHops % 10);
    sName[3] = pCell->bE ? 'E' : 'F';
    sName[4] = pCell->bE ? ' ' : '2';
    return sName;
}

void CellFill(PropagationTable& table, int iHour, int j, const rec533::Prediction* pCell)
{
    constexpr int kDecimalsOfShare = 2;
    const double dFrequency = table.request.FrequencyGet(j);
    const auto ValueOf = [pCell](double rec533::Prediction::*pValue) {
        return pCell != nullptr ? pCell->*pValue : kUnused;
    };
    table.sLayer(iHour, j) = LayerGet(pCell);
    table.fTakeoffAngle(iHour, j) = pCell != nullptr && pCell->nHops > 0
                                        ? WholeGet(pCell->dElevation * rec533::kDegrees)
                                        : 0.0F;
    table.fTimeDelay(iHour, j) = -1.0F;
    table.fVirtualHeight(iHour, j) = -1.0F;
    const float fField = WholeGet(ValueOf(&rec533::Prediction::dField));
    table.fSdBW(iHour, j) =
        static_cast<float>((fField - 137.0) - 20.0 * Log10(dFrequency / 20000.0));
    table.fNdBW(iHour, j) = table.fSdBW(iHour, j) - WholeGet(ValueOf(&rec533::Prediction::dSnr));
    table.fSnr(iHour, j) = WholeGet(ValueOf(&rec533::Prediction::dSnrExceeded));
    table.fReliability(iHour, j) = static_cast<float>(run533::FieldValueGet(
        pCell != nullptr ? std::clamp(pCell->dReliability / 100.0, 0.01, 0.99) : 0.0, kWidth,
        kDecimalsOfShare));
    if (pCell == nullptr)
        return;
    table.fSnrLower(iHour, j) = static_cast<float>(pCell->dSnrLower);
    table.fSnrUpper(iHour, j) = static_cast<float>(pCell->dSnrUpper);
    table.fSnrMedian(iHour, j) = static_cast<float>(pCell->dSnr);
}

void PathFill(const run533::PointDay& day, PropagationTable& table)
{
    table.fAzimuthTxRc = static_cast<float>(run533::FieldValueGet(day.dTxAzimuth, 10, 2));
    table.fAzimuthRcTx = static_cast<float>(run533::FieldValueGet(day.dRxAzimuth, 8, 2));
    table.fRange = static_cast<float>(run533::FieldValueGet(day.way.dKm / kKmPerMile, 10, 1));
}

}  // namespace

void BuiltInTableFill(const run533::PointDay& day, const std::vector<int>& aiFrequency,
                      PropagationTable& table)
{
    PathFill(day, table);
    std::size_t iCell = 0;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {  // the page begins with 24 UT
        const rec533::DayHour& hour = day.aHours[static_cast<std::size_t>(iHour - 1)];
        table.fMUF[iHour] = KilohertzGet(hour.dMuf);
        table.fLUF[iHour] = KilohertzGet(hour.dLuf);
        table.fFOT[iHour] = KilohertzGet(hour.dFot);
        for (std::size_t n = 0; n < aiFrequency.size(); ++n)
            CellFill(table, iHour, aiFrequency[n],
                     day.abUsable[n] ? &day.aCells[iCell++] : nullptr);
    }
    for (const int i : aiFrequency) {
        PowerShiftTable(table.request, i, i, table);
        table.PresentSet(i, i, true);
    }
    table.bBuiltIn = true;
}
