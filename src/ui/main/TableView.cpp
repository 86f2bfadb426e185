#include "ui/main/TableView.h"

#include <QString>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "ui/common/GridControl.h"

namespace {

QString LabelGet(const Request& input, int iFrequency)
{
    return iFrequency <= input.nData
               ? QString::fromStdString(NumberFormat(input.FrequencyGet(iFrequency), "0"))
               : QString();
}

void RowEmpty(GridControl& grd, int iRow, bool bHatch)
{
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        grd.TextSet(iRow, iHour, {});
        grd.ColorSet(iRow, iHour, {}, {});
        grd.HatchSet(iRow, iHour, bHatch);
        grd.MetSet(iRow, iHour, false);
    }
}

void CellShow(GridControl& grd, int iRow, int iHour, float fSnr, float fPower)
{
    const SnrBand& band = SnrBandOfTable(fSnr, fPower);
    grd.TextSet(iRow, iHour, QString::fromStdString(NumberFormat(fSnr, "0")));
    grd.ColorSet(iRow, iHour, ColorFromBgr(band.nColor), ColorFromBgr(band.nText));
    grd.HatchSet(iRow, iHour, false);
}

}  // namespace

void TableRowsLayout(const Request& input, const PropagationTable& table, GridControl& grd)
{
    grd.RowsSet(input.nData + 1);
    for (int i = 1; i <= input.nData; ++i) {
        const QString sLabel = LabelGet(input, i);
        grd.TextSet(i, 0, sLabel);
        if (sLabel != LabelGet(table.request, i))
            RowEmpty(grd, i, false);
    }
}

void TableShow(PropagationTable& table, GridControl& grd)
{
    for (int i = 1; i <= table.nData; ++i) {
        if (!table.PresentIs(i)) {
            RowEmpty(grd, i, true);
            continue;
        }
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            float& fSnr = table.fSnr(iHour, i);
            fSnr = SnrShownGet(fSnr);
            CellShow(grd, i, iHour, fSnr, table.request.fPower);
        }
    }
}

void TableNeedShow(const PropagationTable& table, const Need* pNeed, GridControl& grd)
{
    for (int i = 1; i <= table.nData; ++i)
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            grd.MetSet(
                i, iHour,
                pNeed != nullptr && table.PresentIs(i) && table.fSnr(iHour, i) >= pNeed->fSnr);
}
