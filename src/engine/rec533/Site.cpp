#include "engine/rec533/Site.h"

namespace rec533 {

void SiteFill(Site& site, const Place& place)
{
    site.place = place;
    site.bMap = false;
    const MagneticField low = MagneticFieldGet(place, FieldHeight::Absorption);
    site.dGyroDip = std::abs(low.dGyro * low.dSinDip);
    site.dGeomagneticSin = GeomagneticSinGet(place);
}

double SiteFoeGet(const FoeHour& hour, const Place& place)
{
    return FoeGet(hour, place, SunZenithCosGet(*hour.pSun, place));
}

F2Layer SiteLayerGet(const Ionosphere& ionosphere, const FoeHour& hour, Site& site, int nLabel)
{
    if (!site.bMap) {
        const MagneticField field = MagneticFieldGet(site.place, FieldHeight::Maps);
        site.dGyro300 = field.dGyro;
        MapPlaceFill(site.map, site.place, field, ionosphere.quirks.bGriddedMaps);
        site.bMap = true;
    }
    const int nHour = MapHourGet(nLabel);
    return F2LayerMake(
        std::max(MapFof2Get(ionosphere.maps, site.map, nHour), ionosphere.dFof2Least),
        std::max(MapM3Get(ionosphere.maps, site.map, nHour), kM3Least),
        SiteFoeGet(hour, site.place), site.dGyro300);
}

}  // namespace rec533
