#include "engine/run533/PointTable.h"

#include <array>
#include <cmath>
#include <memory>

#include "engine/rec533/Site.h"
#include "engine/run533/TableText.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

enum Input : std::size_t {
    kId,
    kLat,
    kLon,
    kMonth,
    kSsn,
    kHour,
    kActivity,  // may be missing
    kInputs
};
constexpr std::array<std::string_view, kInputs> kInputNames{"id",  "lat",  "lon", "month",
                                                            "ssn", "hour", "ig"};

// Reads a row and appends its results; nothing if the row fails.
void RowAppend(std::string& sOut, TableRow& rdr, rec533::Ionosphere& iono,
               rec533::Behaviour eBehaviour, rec533::MapSet eMaps)
{
    constexpr double kActivityMost = 400.0;
    const rec533::Place place = rec533::PlaceFromDegrees(rdr.NumberGet(kLat, -90.0, 90.0),
                                                         rdr.NumberGet(kLon, -180.0, 180.0));
    const int nMonth = rdr.IntegerGet(kMonth, 1, 12);
    const double dSsn = rdr.NumberGet(kSsn, 0.0, rec533::kSsnMost);
    const int nHour = rdr.IntegerGet(kHour, 0, 24);
    const auto dActivity = rdr.OptionalGet(kActivity, -kActivityMost, kActivityMost);
    if (rdr.Failed())
        return;
    const int nLabel = nHour == 0 ? 24 : nHour;
    IonosphereFill(iono, eBehaviour, eMaps, nMonth, dSsn, dActivity);
    rec533::Site site;
    SiteFill(site, place);
    const rec533::F2Layer layer = SiteLayerGet(iono, FoeHourGet(iono, nLabel), site, nLabel);
    const double dDip = MagneticFieldGet(place, rec533::FieldHeight::Maps).dDip;
    for (const double dValue :
         {layer.dFof2, layer.dM3, layer.dFoe, layer.dGyro, dDip * rec533::kDegrees,
          std::atan(dDip / std::sqrt(place.dCosLat)) * rec533::kDegrees})
        TableAppend(sOut, dValue);
}

}  // namespace

Result<std::string> PointTableMake(std::string_view sTable, rec533::Behaviour eBehaviour,
                                   rec533::MapSet eMaps)
{
    const auto pIono = std::make_unique<rec533::Ionosphere>();
    return TableExtend(sTable, kInputNames, kActivity, "fof2,m3000,foe,fh,dip,modip",
                       [&](TableRow& rdr, std::string& sOut) {
                           RowAppend(sOut, rdr, *pIono, eBehaviour, eMaps);
                           sOut += '\n';
                       });
}

}  // namespace run533
