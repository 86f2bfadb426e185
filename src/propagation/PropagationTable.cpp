#include "propagation/PropagationTable.h"

#include <utility>

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
