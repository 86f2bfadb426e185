#include "engine/rec533/Site.h"

namespace rec533 {

void SiteFill(Site& tbl, const Ionosphere& tblIonosphere, const Place& tblPlace)
{
    tbl.tblPlace = tblPlace;
    MapPlaceFill(tbl.tblMap, tblPlace, tblIonosphere.bReference);
    const MagneticField tblLow = MagneticFieldGet(tblPlace, FieldHeight::Absorption);
    tbl.dGyroDip = std::abs(tblLow.dGyro * tblLow.dSinDip);
    tbl.dGyro300 = MagneticFieldGet(tblPlace, FieldHeight::Maps).dGyro;
    tbl.dGeomagneticSin = GeomagneticSinGet(tblPlace);
}

double SiteFoeGet(const FoeHour& tblHour, const Place& tblPlace)
{
    return FoeGet(tblHour, tblPlace, SunZenithCosGet(*tblHour.pSun, tblPlace));
}

F2Layer SiteLayerGet(const Ionosphere& tbl, const FoeHour& tblHour, const Site& tblSite, int nLabel)
{
    constexpr double kFof2Least = 0.1;  // MHz; the maps do not come near it
    constexpr double kM3Least = 1.5;
    const int nHour = MapHourGet(nLabel);
    return F2LayerMake(std::max(MapFof2Get(tbl.tblMaps, tblSite.tblMap, nHour), kFof2Least),
                       std::max(MapM3Get(tbl.tblMaps, tblSite.tblMap, nHour), kM3Least),
                       SiteFoeGet(tblHour, tblSite.tblPlace), tblSite.dGyro300);
}

}  // namespace rec533
