/// @file Settings.h
/// The one set of user choices that drives every prediction. The owner (the main window, or the
/// console program) holds the single instance; members are read and written directly.
///
/// Units:   with each member. Positions in degrees, north and east positive; frequencies in kHz.
/// Domain:  no member is range-checked here, save that the frequency list holds 15 entries.
/// Tests:   tests/settings/SettingsTest.cpp
#pragma once

#include <array>
#include <string>

/// Entries of the frequency list that can be in use (slot 0 is never shown).
inline constexpr int kFrequencyMax = 15;

/// Engines as stored in Settings::m_iPropagationModel. Any other value selects none.
enum EngineModel { kEngineIcepac = 1, kEngineVoacap = 2, kEngineRec533 = 3 };

/// What the hours of the table are labelled in.
enum TimeCode { kTimeZulu = 0, kTimeLocal = 1 };

/// The selected cell of the prediction table; -1 means none.
struct SelectedCell {
    int iFrequency = 1;  ///< row: index into the frequency list, from 1
    int iHour = -1;      ///< column: 1..24
};

class Settings {
public:
    /// Every member at its default (Initialize).
    Settings();
    /// Every member back to its default, the Airmail folders too; the month becomes the current UTC
    /// month. No prediction is run.
    void Initialize();
    /// Entry iIndex (0..15) of the frequency list, kHz; 0 for an index outside it.
    [[nodiscard]] float FrequencyGet(int iIndex) const;
    /// Stores fValue (kHz) at entry iIndex (0..15); an index outside it stores nothing.
    void FrequencySet(int iIndex, float fValue);

    std::string m_sProfileFile;         ///< full path of the profile file
    int m_nData = kFrequencyMax;        ///< frequencies in use, entries 1..m_nData
    int m_iMapOverlayGridSize = 40;     ///< points a side of the map's SNR overlay
    float m_fMapOverlayMinSnr = 20.0F;  ///< dB, lowest SNR drawn by the overlay
    int m_iMapWorldBegins = 0;          ///< longitude of the map's left edge, 0 or -180
    int m_iPropagationAntennaType = 1;  ///< code of the deck's antenna cards
    std::string m_sPropagationIonCoefficients = "URSI";  ///< foF2 coefficient set named in the deck
    float m_fPropagationLayerAdjustE = 1.0F;             ///< factor on foE
    float m_fPropagationLayerAdjustEs = 0.7F;            ///< factor on foEs
    float m_fPropagationLayerAdjustF1 = 1.0F;            ///< factor on foF1
    float m_fPropagationLayerAdjustF2 = 1.0F;            ///< factor on foF2
    bool m_bPropagationMapsMean = true;                  ///< own engine: mean of CCIR and URSI
    int m_iPropagationModel = kEngineRec533;             ///< EngineModel
    bool m_bPropagationMonth = true;                     ///< the current UTC month at each run
    int m_iPropagationMonth = 1;                         ///< 1..12
    float m_fPropagationMultipathDelay = 10.0F;          ///< ms
    float m_fPropagationMultipathPower = 0.0F;           ///< dB
    float m_fPropagationNoiseLevel = -145.0F;            ///< dBW in 1 Hz at 3 MHz, negative
    float m_fPropagationQIndex = 3.0F;                   ///< geomagnetic Q index
    float m_fPropagationReliability = 50.0F;             ///< %
    bool m_bPropagationSunSpotNumber = true;             ///< Airmail's number at each run
    float m_fPropagationSunSpotNumber = 170.0F;          ///< smoothed sunspot number
    float m_fPropagationTakeoffAngle = 3.0F;             ///< degrees, least takeoff angle
    double m_dRcLat = 24.0;                              ///< receiver
    double m_dRcLon = -110.0;
    int m_iTimeCode = 0;     ///< TimeCode
    double m_dTxLat = 38.0;  ///< transmitter
    double m_dTxLon = -122.0;

    SelectedCell m_selected;

private:
    struct DefaultsTag {};
    explicit Settings(DefaultsTag /*tag*/) {}

    std::array<float, kFrequencyMax + 1> m_afFrequency{};  // kHz, slot 0 unused
};
