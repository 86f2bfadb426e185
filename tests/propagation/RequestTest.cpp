#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "propagation/Request.h"

namespace {

Request RequestOf()
{
    Request request;
    request.sIonCoefficients = "URSI";
    request.nData = 2;
    request.afFrequency = {0.0F, 5000.0F, 7000.0F};
    return request;
}

using Change = std::function<void(Request&)>;

/// A change of each member that a prediction depends on.
const std::vector<Change>& Changes()
{
    static const std::vector<Change> aChanges{
        [](Request& r) { r.iModel = kEngineVoacap; },
        [](Request& r) { r.nMonth = 2; },
        [](Request& r) { r.nYear = 2026; },
        [](Request& r) { r.sIonCoefficients = "CCIR"; },
        [](Request& r) { r.fSunSpotNumber = 1.0F; },
        [](Request& r) { r.fNoiseLevel = 1.0F; },
        [](Request& r) { r.fTakeoffAngle = 1.0F; },
        [](Request& r) { r.fReliability = 1.0F; },
        [](Request& r) { r.fMultipathPower = 1.0F; },
        [](Request& r) { r.fMultipathDelay = 1.0F; },
        [](Request& r) { r.fLayerAdjustE = 2.0F; },
        [](Request& r) { r.fLayerAdjustF1 = 2.0F; },
        [](Request& r) { r.fLayerAdjustF2 = 2.0F; },
        [](Request& r) { r.fLayerAdjustEs = 2.0F; },
        [](Request& r) { r.iAntennaType = 1; },
        [](Request& r) { r.fQIndex = 1.0F; },
        [](Request& r) { r.fPower = 100.0F; },
        [](Request& r) { r.dTxLat = 1.0; },
        [](Request& r) { r.dTxLon = 1.0; },
        [](Request& r) { r.dRcLat = 1.0; },
        [](Request& r) { r.dRcLon = 1.0; },
        [](Request& r) { r.nData = 1; },
        [](Request& r) { r.afFrequency[2] = 9000.0F; },
    };
    return aChanges;
}

TEST(RequestKey, IsAnotherOneForEveryMemberThatAPredictionDependsOn)
{
    std::set<std::string> asKeys{RequestKey(RequestOf())};
    for (const Change& fnChange : Changes()) {
        Request request = RequestOf();
        fnChange(request);
        EXPECT_NE(request, RequestOf());
        EXPECT_TRUE(asKeys.insert(RequestKey(request)).second) << "change " << asKeys.size();
    }
    EXPECT_EQ(asKeys.size(), Changes().size() + 1);
}

TEST(RequestKey, IsTheSameWhereTheNumbersAre)
{
    Request request = RequestOf();
    request.eSunSpotSource = SunSpotSource::AirMail;  // the number itself did not change
    request.dTxLon = -0.0;
    request.afFrequency.push_back(9999.0F);  // beyond the count
    EXPECT_EQ(RequestKey(request), RequestKey(RequestOf()));
}

}  // namespace
