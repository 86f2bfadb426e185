#include "geo/MathLib.h"

#include <cmath>

#include "geo/PositionText.h"
#include "geo/SphereLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

std::string PositionToText(double dAngle, std::string_view sDegreePattern, char chrPositive,
                           char chrNegative)
{
    const double dAbsolute = std::abs(dAngle);
    const double dDegrees = std::trunc(dAbsolute);
    std::string sText = NumberFormat(dDegrees, sDegreePattern);
    sText += kDegreeSign;
    sText += NumberFormat((dAbsolute - dDegrees) * 60.0, "00.00");
    sText += '\'';
    sText += dAngle < 0.0 ? chrNegative : chrPositive;
    return sText;
}

bool TextToPosition(std::string_view sText, double& dAngle, Messages* paMessages,
                    PositionAxis eAxis, const char* sPrefix)
{
    const auto resAngle = AngleFromText(sText, eAxis, PositionForm::Entry);
    if (resAngle) {
        dAngle = resAngle.ValueGet();
        return true;
    }
    return MessageFail(paMessages, MsgIcon::Exclamation, sPrefix + TextForMessage(sText));
}

}  // namespace

std::string LatitudeToText(double dLatitude) { return PositionToText(dLatitude, "00", 'N', 'S'); }

std::string LongitudeToText(double dLongitude)
{
    return PositionToText(dLongitude, "000", 'E', 'W');
}

bool TextToLatitude(std::string_view sText, double& dLatitude, Messages* paMessages)
{
    return TextToPosition(sText, dLatitude, paMessages, PositionAxis::Latitude,
                          "Unable for decode Latitude ");
}

bool TextToLongitude(std::string_view sText, double& dLongitude, Messages* paMessages)
{
    return TextToPosition(sText, dLongitude, paMessages, PositionAxis::Longitude,
                          "Unable for decode Longitude ");
}

double GreatCircleAngle(double dLat1, double dLon1, double dLat2, double dLon2)
{
    const Vector3 vec1 = VectorFrom({dLat1, dLon1});
    const Vector3 vec2 = VectorFrom({dLat2, dLon2});
    const double dHalfChord = std::sqrt((vec1.dX - vec2.dX) * (vec1.dX - vec2.dX)
                                        + (vec1.dY - vec2.dY) * (vec1.dY - vec2.dY)
                                        + (vec1.dZ - vec2.dZ) * (vec1.dZ - vec2.dZ))
                              / 2.0;
    if (dHalfChord >= 1.0)
        return kPi;
    return 2.0 * ArcSin(dHalfChord).ValueGet();
}

Result<double> ArcSin(double dX)
{
    const double dRest = 1.0 - dX * dX;
    if (dRest == 0.0)
        return RunError{kDivisionByZero};
    if (dRest < 0.0)
        return RunError{kInvalidCall};
    return std::atan(dX / std::sqrt(dRest));
}

double MercatorY(double dLatitude)
{
    return std::log(std::tan(kPi / 4.0 + dLatitude * kRadiansPerDegree / 2.0));
}

double MercatorLatitude(double dY)
{
    return (2.0 * std::atan(std::exp(dY)) - kPi / 2.0) * 180.0 / kPi;
}

double Log10(double dX) { return std::log(dX) / std::log(10.0); }

double Min(double dA, double dB) { return dB > dA ? dA : dB; }

double Max(double dA, double dB) { return dB < dA ? dA : dB; }
