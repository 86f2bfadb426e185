#include "propagation/PropagationTable.h"

#include <algorithm>
#include <utility>

#include "system/NumberLib.h"

bool PropagationTable::PresentIs(int iFrequency) const
{
    return iFrequency >= 1 && iFrequency <= nData
           && m_abPresent[static_cast<std::size_t>(iFrequency)];
}

void PropagationTable::PresentSet(int iFirst, int iLast, bool bPresent)
{
    for (int i = std::max(iFirst, 1); i <= std::min(iLast, nData); ++i)
        m_abPresent[static_cast<std::size_t>(i)] = bPresent;
}

std::string PropagationAbsentText(const PropagationTable& table)
{
    std::string sList;
    for (int i = 1; i <= table.request.nData; ++i)
        if (!table.PresentIs(i))
            sList += (sList.empty() ? "" : ", ") + NumberFormat(table.request.FrequencyGet(i), "0");
    return sList;
}

PropagationRecord PropagationRecordGet(const PropagationTable& table, int iHour, int iFrequency,
                                       std::string sTime, float fFrequency)
{
    PropagationRecord record;
    record.sTime = std::move(sTime);
    record.fFrequency = fFrequency;
    record.fMUF = table.fMUF[iHour];
    record.fLUF = table.fLUF[iHour];
    record.sLayer = table.sLayer(iHour, iFrequency);
    record.fTakeoffAngle = table.fTakeoffAngle(iHour, iFrequency);
    record.fTimeDelay = table.fTimeDelay(iHour, iFrequency);
    record.fVirtualHeight = table.fVirtualHeight(iHour, iFrequency);
    record.fSdBW = table.fSdBW(iHour, iFrequency);
    record.fNdBW = table.fNdBW(iHour, iFrequency);
    record.fSnr = table.fSnr(iHour, iFrequency);
    return record;
}

std::size_t TableBytesGet(const PropagationTable& table)
{
    constexpr std::size_t kNumbersACell = 10;
    constexpr std::size_t kNumbersAnHour = 3;
    const std::size_t nCells =
        std::size_t{kHourCount + 1} * (static_cast<std::size_t>(table.nData) + 1);
    return sizeof(PropagationTable) + nCells * (sizeof(std::string) + kNumbersACell * sizeof(float))
           + std::size_t{kHourCount + 1} * kNumbersAnHour * sizeof(float);
}
