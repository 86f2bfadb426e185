#include "ui/common/LocationText.h"

#include "geo/MathLib.h"

Result<PositionRead> LocationFromText(LocationKind eKind, const QString& sText)
{
    return PositionFromText(sText.toStdString(), eKind);
}

QString LocationToText(LocationKind eKind, double dValue)
{
    return QString::fromStdString(eKind == LocationKind::Latitude ? LatitudeToText(dValue)
                                                                  : LongitudeToText(dValue));
}

QString PositionToText(double dLat, double dLon)
{
    return LocationToText(LocationKind::Latitude, dLat) + u' '
           + LocationToText(LocationKind::Longitude, dLon);
}
