#include "ui/common/LocationText.h"

#include <QRegularExpression>

#include "airmail/GridSquareLib.h"
#include "geo/MathLib.h"
#include "system/NumberLib.h"

namespace {

constexpr double kMinutes = 60.0;

std::optional<double> NumberOf(const QString& sText)
{
    const auto res = NumberFromText(sText.toStdString());
    if (!res)
        return {};
    return res.ValueGet();
}

/// One coordinate of a grid square's middle. A square is known by the range of its letters, which
/// the conversion does not check.
std::optional<double> GridSquareOf(LocationKind eKind, const QString& sText)
{
    static const QRegularExpression kSquare(
        QStringLiteral("^\\s*([A-Ra-r]{2}[0-9]{2}(?:[A-Xa-x]{2})?)\\s*$"));
    const auto match = kSquare.match(sText);
    std::string sGrid = match.captured(1).toStdString();
    double dLat = 0.0;
    double dLon = 0.0;
    if (!match.hasMatch() || !GridSquareToPosition(sGrid, dLat, dLon, nullptr))
        return {};
    return eKind == LocationKind::Latitude ? dLat : dLon;
}

}  // namespace

std::optional<double> LocationFromText(LocationKind eKind, const QString& sText)
{
    if (const auto dSquare = GridSquareOf(eKind, sText))
        return dSquare;
    // sign, degrees, degree sign or blanks, minutes, minute sign, hemisphere
    static const QRegularExpression kForm(QStringLiteral(
        "^\\s*([+-]?)(\\d{1,3}(?:\\.\\d*)?)\\s*(?:°|\\s)?\\s*(?:(\\d{1,2}(?:\\.\\d*)?)\\s*['′’]?)?"
        "\\s*([NSEWnsew]?)\\s*$"));
    const auto match = kForm.match(sText);
    if (!match.hasMatch())
        return {};
    const bool bLatitude = eKind == LocationKind::Latitude;
    const QString sLetter = match.captured(4).toUpper();
    const QString sLetters = bLatitude ? QStringLiteral("NS") : QStringLiteral("EW");
    if (!sLetter.isEmpty() && (!sLetters.contains(sLetter) || !match.captured(1).isEmpty()))
        return {};
    const bool bMinutes = !match.captured(3).isEmpty();
    if (bMinutes && match.captured(2).contains(QLatin1Char('.')))
        return {};
    const auto dDegrees = NumberOf(match.captured(2));
    const auto dMinutes = bMinutes ? NumberOf(match.captured(3)) : 0.0;
    if (!dDegrees || !dMinutes || *dMinutes >= kMinutes)
        return {};
    const double dValue = *dDegrees + *dMinutes / kMinutes;
    if (dValue > (bLatitude ? 90.0 : 180.0))
        return {};
    const bool bNegative = match.captured(1) == QStringLiteral("-")
                           || sLetter == QStringLiteral("S") || sLetter == QStringLiteral("W");
    return bNegative ? -dValue : dValue;
}

QString LocationToText(LocationKind eKind, double dValue)
{
    return QString::fromStdString(eKind == LocationKind::Latitude ? LatitudeToText(dValue)
                                                                  : LongitudeToText(dValue));
}
