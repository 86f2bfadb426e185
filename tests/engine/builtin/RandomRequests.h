/// @file RandomRequests.h
/// Requests of all kinds within the ranges, the same on every machine.
#pragma once

#include <algorithm>
#include <cmath>
#include <random>

#include "propagation/Request.h"

class RandomRequests {
public:
    explicit RandomRequests(unsigned nSeed) : m_random(nSeed) {}

    Request PointGet()
    {
        Request request;
        ModelFill(request);
        request.nYear = 2026;
        request.dTxLat = Real(-90, 90);
        request.dTxLon = Real(-180, 180);
        request.dRcLat = Real(-90, 90);
        request.dRcLon = Real(-180, 180);
        if (Whole(0, 9) == 0) {  // close together, or at the same place
            request.dRcLat = std::clamp(request.dTxLat + Real(-1, 1) * Whole(0, 1), -90.0, 90.0);
            request.dRcLon = request.dTxLon;
        }
        request.nData = Whole(1, 15);
        request.afFrequency.assign(1, 0.0F);
        for (int i = 1; i <= request.nData; ++i)
            request.afFrequency.push_back(static_cast<float>(Whole(1000, 32000)));
        return request;
    }
    AreaRequest AreaGet()
    {
        AreaRequest request;
        ModelFill(request);
        request.fNoiseLevel = -request.fNoiseLevel;
        request.iHour = Whole(0, 23);
        request.nGridSize = Whole(2, 9);
        request.dSouth = Real(-89, 80);
        request.dNorth = Real(request.dSouth + 1, 89.9);
        request.dWest = Real(-180, 170);
        request.dEast = Real(request.dWest + 1, 180);
        request.dFixedLat = Real(-90, 90);
        request.dFixedLon = Real(-180, 180);
        request.fFrequency = static_cast<float>(Whole(2000, 30000)) / 1000.0F;
        return request;
    }

private:
    double Real(double dLeast, double dMost)
    {
        return std::uniform_real_distribution<double>(dLeast, dMost)(m_random);
    }
    int Whole(int nLeast, int nMost)
    {
        return std::uniform_int_distribution<int>(nLeast, nMost)(m_random);
    }
    void ModelFill(RequestModel& model)
    {
        model.iModel = kEngineRec533;
        model.nMonth = Whole(1, 12);
        model.sIonCoefficients = Whole(0, 1) == 0 ? "CCIR" : "URSI";
        model.fSunSpotNumber = static_cast<float>(Whole(0, 200));
        model.fNoiseLevel = static_cast<float>(-Whole(120, 165));
        model.fTakeoffAngle = static_cast<float>(Whole(0, 20));
        model.fReliability = static_cast<float>(Whole(10, 90));
        model.iAntennaType = Whole(0, 1);
    }

    std::mt19937 m_random;
};
