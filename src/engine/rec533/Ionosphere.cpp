#include "engine/rec533/Ionosphere.h"

namespace rec533 {

void IonosphereFill(Ionosphere& tbl, Behaviour eBehaviour, MapSet eMaps, int nMonth, double dSsn)
{
    constexpr double kSsnMapsMost = 160.0;
    tbl.eBehaviour = eBehaviour;
    tbl.bReference = eBehaviour == Behaviour::Reference;
    tbl.nMonth = nMonth;
    tbl.dSsn = std::clamp(dSsn, 0.0, kSsnMost);
    tbl.dSsnLimited = std::min(tbl.dSsn, kSsnMapsMost);
    MapHoursFill(tbl.tblMaps, eMaps, nMonth, tbl.dSsnLimited);
    tbl.tblSun = SunDayMake(nMonth);
    tbl.tblNoise = FiguresNoise(nMonth);
}

}  // namespace rec533
