#include "engine/rec533/Site.h"

namespace rec533 {

void SiteFill(Site& tbl, const Place& tblPlace)
{
    tbl.tblPlace = tblPlace;
    tbl.bMap = false;
    const MagneticField tblLow = MagneticFieldGet(tblPlace, FieldHeight::Absorption);
    tbl.dGyroDip = std::abs(tblLow.dGyro * tblLow.dSinDip);
    tbl.dGeomagneticSin = GeomagneticSinGet(tblPlace);
}

double SiteFoeGet(const FoeHour& tblHour, const Place& tblPlace)
{
    return FoeGet(tblHour, tblPlace, SunZenithCosGet(*tblHour.pSun, tblPlace));
}

F2Layer SiteLayerGet(const Ionosphere& tbl, const FoeHour& tblHour, Site& tblSite, int nLabel)
{
    if (!tblSite.bMap) {
        const MagneticField tblField = MagneticFieldGet(tblSite.tblPlace, FieldHeight::Maps);
        tblSite.dGyro300 = tblField.dGyro;
        MapPlaceFill(tblSite.tblMap, tblSite.tblPlace, tblField, tbl.quirks.bGriddedMaps);
        tblSite.bMap = true;
    }
    const int nHour = MapHourGet(nLabel);
    return F2LayerMake(std::max(MapFof2Get(tbl.tblMaps, tblSite.tblMap, nHour), tbl.dFof2Least),
                       std::max(MapM3Get(tbl.tblMaps, tblSite.tblMap, nHour), kM3Least),
                       SiteFoeGet(tblHour, tblSite.tblPlace), tblSite.dGyro300);
}

}  // namespace rec533
