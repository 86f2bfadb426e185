#include "propagation/Request.h"

#include <cstring>
#include <type_traits>

namespace {

/// A number's bytes; -0.0 and 0.0 print alike in every deck, so they are one.
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

std::string RequestKey(const Request& request)
{
    std::string sKey = request.sIonCoefficients;
    sKey += '\0';
    for (const int n :
         {request.iModel, request.nMonth, request.nYear, request.iAntennaType, request.nData})
        KeyAppend(sKey, n);
    for (const float f :
         {request.fSunSpotNumber, request.fNoiseLevel, request.fTakeoffAngle, request.fReliability,
          request.fMultipathPower, request.fMultipathDelay, request.fLayerAdjustE,
          request.fLayerAdjustF1, request.fLayerAdjustF2, request.fLayerAdjustEs, request.fQIndex})
        KeyAppend(sKey, f);
    for (const double d : {request.dTxLat, request.dTxLon, request.dRcLat, request.dRcLon})
        KeyAppend(sKey, d);
    for (int i = 1; i <= request.nData; ++i) KeyAppend(sKey, request.FrequencyGet(i));
    return sKey;
}
