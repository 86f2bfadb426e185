#include "ui/main/TableView.h"

#include <QString>

#include "propagation/SnrColor.h"
#include "system/NumberLib.h"
#include "ui/common/GridControl.h"

void TableShow(PropagationTable& table, GridControl& grd)
{
    for (int i = 1; i <= table.nData; ++i) {
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            float& fSnr = table.fSnr(iHour, i);
            fSnr = SnrShownGet(fSnr);
            const QColor clrBack = ColorFromBgr(SnrGetColor(fSnr));
            grd.TextSet(i, iHour, QString::fromStdString(NumberFormat(fSnr, "0")));
            grd.ColorSet(i, iHour, clrBack, TextColorOn(clrBack));
        }
    }
}
