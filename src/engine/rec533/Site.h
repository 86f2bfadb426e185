/// @file Site.h
/// A control point: a place with its map functions and magnetic field.
#pragma once

#include "engine/rec533/Ionosphere.h"
#include "engine/rec533/Layers.h"
#include "engine/rec533/MagneticField.h"
#include "engine/rec533/Muf.h"

namespace rec533 {

inline constexpr double kM3Least = 1.5;

struct Site {
    Place place;
    MapPlace map;  ///< only with bMap
    bool bMap = false;
    double dGyroDip = 0.0;         ///< |fH sin I| at 100 km, MHz
    double dGyro300 = 0.0;         ///< gyrofrequency at 300 km, MHz
    double dGeomagneticSin = 0.0;  ///< sine of the geomagnetic latitude
};

/// Fills everything except the map functions, which SiteLayerGet makes when it first needs them.
void SiteFill(Site& site, const Place& place);

/// foE at a place and label, MHz.
[[nodiscard]] double SiteFoeGet(const FoeHour& hour, const Place& place);
/// The F2 layer at a site and label.
[[nodiscard]] F2Layer SiteLayerGet(const Ionosphere& ionosphere, const FoeHour& hour, Site& site,
                                   int nLabel);

}  // namespace rec533
