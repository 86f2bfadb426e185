#include "propagation/Request.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string>
#include <type_traits>

#include "geo/SphereLib.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"

namespace {

constexpr NumberRange kRangeHour{0, 23};
constexpr NumberRange kRangeGridSize{kGridSizeMin, kGridSizeMax};

void ModelFill(const Settings& settings, RequestModel& model)
{
    model.iModel = settings.m_iPropagationModel;
    model.nMonth = settings.m_iPropagationMonth;
    model.sIonCoefficients =
        settings.m_bPropagationMapsMean && EngineIsHopcasts(settings.m_iPropagationModel)
            ? kCoefficientsMean
            : settings.m_sPropagationIonCoefficients;
    model.fSunSpotNumber = settings.m_fPropagationSunSpotNumber;
    model.eSunSpotSource =
        settings.m_bPropagationSunSpotNumber ? SunSpotSource::AirMail : SunSpotSource::Typed;
    model.fNoiseLevel = settings.m_fPropagationNoiseLevel;
    model.fTakeoffAngle = settings.m_fPropagationTakeoffAngle;
    model.fReliability = settings.m_fPropagationReliability;
    model.fMultipathPower = settings.m_fPropagationMultipathPower;
    model.fMultipathDelay = settings.m_fPropagationMultipathDelay;
    model.fLayerAdjustE = settings.m_fPropagationLayerAdjustE;
    model.fLayerAdjustF1 = settings.m_fPropagationLayerAdjustF1;
    model.fLayerAdjustF2 = settings.m_fPropagationLayerAdjustF2;
    model.fLayerAdjustEs = settings.m_fPropagationLayerAdjustEs;
    model.iAntennaType = settings.m_iPropagationAntennaType;
    model.fPower = settings.m_fStationPower;
}

/// One number of a run with its name.
struct Ranged {
    Ranged(const char* sOf, double dOf, const NumberRange& rangeOf)
        : sName(sOf), bHolds(rangeOf.Holds(dOf)), sFault(bHolds ? "" : RangeFaultText(dOf, rangeOf))
    {
    }
    Ranged(const char* sOf, float fOf, const NumberRange& rangeOf)
        : sName(sOf), bHolds(rangeOf.Holds(fOf)), sFault(bHolds ? "" : RangeFaultText(fOf, rangeOf))
    {
    }
    const char* sName;
    bool bHolds;
    std::string sFault;
};

Result<void> RangedCheck(std::initializer_list<Ranged> aNumber)
{
    for (const Ranged& num : aNumber) {
        if (!num.bHolds)
            return RunError{std::string(num.sName) + " " + num.sFault};
    }
    return {};
}

/// @param fNoise  dBW, negative
Result<void> ModelCheck(const RequestModel& model, float fNoise)
{
    return RangedCheck({{"month", static_cast<double>(model.nMonth), kRangeMonth},
                        {"sunspot number", model.fSunSpotNumber, kRangeSunSpot},
                        {"noise level", fNoise, kRangeNoise},
                        {"takeoff angle", model.fTakeoffAngle, kRangeTakeoff},
                        {"reliability", model.fReliability, kRangeReliability},
                        {"multipath power", model.fMultipathPower, kRangeMultipathPower},
                        {"multipath delay", model.fMultipathDelay, kRangeMultipathDelay},
                        {"layer factor", model.fLayerAdjustE, kRangeLayer},
                        {"layer factor", model.fLayerAdjustF1, kRangeLayer},
                        {"layer factor", model.fLayerAdjustF2, kRangeLayer},
                        {"layer factor", model.fLayerAdjustEs, kRangeLayer}});
}

/// A number's bytes; -0.0 and 0.0 print alike in every deck, so they count as equal.
template <class T>
void KeyAppend(std::string& sKey, T value)
{
    static_assert(std::is_arithmetic_v<T>);
    if (value == T{})
        value = T{};
    char aBytes[sizeof value];
    std::memcpy(aBytes, &value, sizeof value);
    sKey.append(aBytes, sizeof aBytes);
}

}  // namespace

Request RequestFromSettings(const Settings& settings)
{
    Request input;
    ModelFill(settings, input);
    input.fQIndex = settings.m_fPropagationQIndex;
    input.dTxLat = settings.m_dTxLat;
    input.dTxLon = settings.m_dTxLon;
    input.dRcLat = settings.m_dRcLat;
    input.dRcLon = settings.m_dRcLon;
    input.nData = std::clamp(settings.m_nData, 0, kFrequencyMax);
    for (int i = 1; i <= input.nData; ++i) input.afFrequency.push_back(settings.FrequencyGet(i));
    return input;
}

AreaRequest AreaRequestFromSettings(const Settings& settings)
{
    AreaRequest input;
    ModelFill(settings, input);
    // The engines expect the area deck's noise without its sign; with it they run all the same and
    // give an SNR that is 7 to 14 dB too high.
    input.fNoiseLevel = -input.fNoiseLevel;
    input.dFixedLat = settings.m_dRcLat;
    input.dFixedLon = settings.m_dRcLon;
    input.nGridSize = std::clamp(settings.m_iMapOverlayGridSize, kGridSizeMin, kGridSizeMax);
    return input;
}

Result<void> RangeCheck(const Request& input)
{
    if (auto res = RangedCheck({{"latitude", input.dTxLat, kRangeLatitude},
                                {"longitude", input.dTxLon, kRangeLongitude},
                                {"latitude", input.dRcLat, kRangeLatitude},
                                {"longitude", input.dRcLon, kRangeLongitude},
                                {"Q index", input.fQIndex, kRangeQIndex}});
        !res)
        return res;
    return ModelCheck(input, input.fNoiseLevel);
}

Result<void> RangeCheck(const AreaRequest& input)
{
    constexpr double kKhzPerMhz = 1000.0;
    // In single-precision MHz even the bounds may be off in the last digit.
    const auto dKhz = static_cast<double>(RoundHalfEven(input.fFrequency * kKhzPerMhz));
    if (auto res = RangedCheck({{"latitude", input.dFixedLat, kRangeLatitude},
                                {"longitude", input.dFixedLon, kRangeLongitude},
                                {"frequency", dKhz, kRangeFrequency},
                                {"hour", static_cast<double>(input.iHour), kRangeHour},
                                {"grid size", static_cast<double>(input.nGridSize), kRangeGridSize},
                                {"south bound", input.dSouth, kRangeLatitude},
                                {"north bound", input.dNorth, {input.dSouth, kLatitudeMost}},
                                {"west bound", input.dWest, {-kLongitudeMost, kFullCircle}},
                                {"east bound", input.dEast, {input.dWest, kFullCircle}}});
        !res)
        return res;
    return ModelCheck(input, -input.fNoiseLevel);
}

std::vector<int> FrequenciesInRangeGet(const Request& input)
{
    std::vector<int> aiFrequency;
    for (int i = 1; i <= input.nData; ++i) {
        if (kRangeFrequency.Holds(input.FrequencyGet(i)))
            aiFrequency.push_back(i);
    }
    return aiFrequency;
}

std::string RequestKey(const Request& request)
{
    std::string sKey = request.sIonCoefficients;
    sKey += '\0';
    for (const int n :
         {request.iModel, request.nMonth, request.nYear, request.iAntennaType, request.nData})
        KeyAppend(sKey, n);
    for (const float f : {request.fSunSpotNumber, request.fNoiseLevel, request.fTakeoffAngle,
                          request.fReliability, request.fMultipathPower, request.fMultipathDelay,
                          request.fLayerAdjustE, request.fLayerAdjustF1, request.fLayerAdjustF2,
                          request.fLayerAdjustEs, request.fQIndex, request.fPower})
        KeyAppend(sKey, f);
    for (const double d : {request.dTxLat, request.dTxLon, request.dRcLat, request.dRcLon})
        KeyAppend(sKey, d);
    for (int i = 1; i <= request.nData; ++i) KeyAppend(sKey, request.FrequencyGet(i));
    return sKey;
}
