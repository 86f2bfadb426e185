#include "propagation/PropagationInput.h"

#include <algorithm>

namespace {

void ModelFill(const Settings& settings, PropagationModel& model)
{
    model.iModel = settings.m_iPropagationModel;
    model.nMonth = settings.m_iPropagationMonth;
    model.sIonCoefficients = settings.m_sPropagationIonCoefficients;
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
}

}  // namespace

PropagationInput PropagationInputFromSettings(const Settings& settings)
{
    PropagationInput input;
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

PropagationAreaInput PropagationAreaInputFromSettings(const Settings& settings)
{
    PropagationAreaInput input;
    ModelFill(settings, input);
    // The engines want the area deck's noise without its sign; with it they run all the same and
    // give an SNR that is 7 to 14 dB too high.
    input.fNoiseLevel = -input.fNoiseLevel;
    input.dFixedLat = settings.m_dRcLat;
    input.dFixedLon = settings.m_dRcLon;
    input.nGridSize = std::clamp(settings.m_iMapOverlayGridSize, kGridSizeMin, kGridSizeMax);
    return input;
}
