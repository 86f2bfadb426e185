// Any text as a position: the entry fields' form, what people paste, and the console's.
#include <cmath>

#include "app/predict/PredictPosition.h"
#include "fuzz/FuzzPrefix.h"
#include "geo/MathLib.h"
#include "ui/common/LocationText.h"

namespace {

using ToTextFn = std::string (*)(double);
using FromTextFn = bool (*)(std::string_view, double&, Messages*);

/// Text to value; a value within dMost comes back from its text within half a hundredth of a
/// minute.
void EntryCheck(std::string_view sText, ToTextFn fnToText, FromTextFn fnFromText, double dMost)
{
    constexpr double kUntouched = -777.0;
    constexpr double kHalfHundredth = 0.005 / 60.0 + 1e-9;  // degrees
    double dValue = kUntouched;
    Messages aMessages;
    if (!fnFromText(sText, dValue, &aMessages)) {
        Check(dValue == kUntouched);
        return;
    }
    Check(std::isfinite(dValue));
    if (std::abs(dValue) > dMost)
        return;  // ranges are the caller's
    double dAgain = kUntouched;
    Check(fnFromText(fnToText(dValue), dAgain, nullptr));
    Check(std::abs(dAgain - dValue) <= kHalfHundredth);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr double kLatMost = 90.0;
    constexpr double kLonMost = 180.0;
    static const FuzzPrefix prefix;  // stations and Airmail's own position are asked for: none
    const std::string_view sText = FuzzText(pBytes, nBytes);
    EntryCheck(sText, LatitudeToText, TextToLatitude, kLatMost);
    EntryCheck(sText, LongitudeToText, TextToLongitude, kLonMost);
    const QString sPasted = QString::fromUtf8(sText.data(), static_cast<qsizetype>(sText.size()));
    if (const auto dLat = LocationFromText(LocationKind::Latitude, sPasted))
        Check(std::abs(*dLat) <= kLatMost);
    if (const auto dLon = LocationFromText(LocationKind::Longitude, sPasted))
        Check(std::abs(*dLon) <= kLonMost);
    if (const auto res = PredictPositionGet(sText)) {
        Check(std::abs(res.ValueGet().dLat) <= kLatMost);
        Check(std::abs(res.ValueGet().dLon) <= kLonMost);
    }
    return 0;
}
