// Any text as a position: in the entry fields' form, as people paste it, and on the command line.
#include <cmath>

#include "app/predict/PredictPosition.h"
#include "fuzz/FuzzPrefix.h"
#include "geo/MathLib.h"
#include "geo/PositionText.h"

namespace {

constexpr double kLatMost = 90.0;
constexpr double kLonMost = 180.0;

using ToTextFn = std::string (*)(double);
using FromTextFn = bool (*)(std::string_view, double&, Messages*);

/// Text to value; a value within dMost reads back from its own text to within half a hundredth of a
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
        return;  // checking ranges is left to the caller
    double dAgain = kUntouched;
    Check(fnFromText(fnToText(dValue), dAgain, nullptr));
    Check(std::abs(dAgain - dValue) <= kHalfHundredth);
}

/// Whatever is read is on the globe, and its text is read as the same place.
void PastedCheck(std::string_view sText, PositionAxis eAxis)
{
    constexpr double kHalfHundredth = 0.005 / 60.0 + 1e-9;  // degrees
    const auto res = PositionFromText(sText, eAxis);
    Check(static_cast<bool>(res) != !res.TextGet().empty());
    if (!res)
        return;
    const PositionRead& pos = res.ValueGet();
    Check(pos.dLat || pos.dLon);
    Check(!pos.dLat || std::abs(*pos.dLat) <= kLatMost);
    Check(!pos.dLon || std::abs(*pos.dLon) <= kLonMost);
    if (!pos.dLat || !pos.dLon)
        return;
    // A pasted text must not have 60 minutes, which rounding may give.
    const std::string sPair = LatitudeToText(*pos.dLat) + " " + LongitudeToText(*pos.dLon);
    if (sPair.find("60.00") != std::string::npos)
        return;
    const auto resAgain = PositionFromText(sPair, eAxis);
    Check(static_cast<bool>(resAgain));
    Check(std::abs(*resAgain.ValueGet().dLat - *pos.dLat) <= kHalfHundredth);
    Check(std::abs(*resAgain.ValueGet().dLon - *pos.dLon) <= kHalfHundredth);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;  // without stations and Airmail, which a position may name
    const std::string_view sText = FuzzText(pBytes, nBytes);
    EntryCheck(sText, LatitudeToText, TextToLatitude, kLatMost);
    EntryCheck(sText, LongitudeToText, TextToLongitude, kLonMost);
    for (const PositionAxis eAxis : {PositionAxis::Latitude, PositionAxis::Longitude})
        PastedCheck(sText, eAxis);
    if (const auto res = PredictPositionGet(sText)) {
        Check(std::abs(res.ValueGet().dLat) <= kLatMost);
        Check(std::abs(res.ValueGet().dLon) <= kLonMost);
    }
    return 0;
}
