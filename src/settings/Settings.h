/// @file Settings.h
/// The one set of user choices that drives every prediction. The owner (the main window, or the
/// console program) holds the single instance; members are read and written directly.
///
/// Units:   with each member. Positions in degrees, north and east positive; frequencies in kHz.
/// Domain:  no member is range-checked here, but the frequency list is limited to 15 entries.
/// Tests:   tests/settings/SettingsTest.cpp
#pragma once

#include <array>
#include <string>
#include <vector>

#include "settings/Need.h"
#include "settings/Palette.h"
#include "settings/WindowData.h"

/// Usable entries of the frequency list (slot 0 is never shown).
inline constexpr int kFrequencyMax = 15;

/// Engines as stored in Settings::m_iPropagationModel. Any other value selects none.
enum EngineModel { kEngineIcepac = 1, kEngineVoacap = 2, kEngineRec533 = 3 };

/// The time in which the table's hours are labelled.
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

    // Section, key, default and range of each: SettingsTable.cpp.
    std::string m_sProfileFile;                 ///< full path of the profile file
    int m_nData{};                              ///< frequencies in use, entries 1..m_nData
    int m_iMapOverlayGridSize{};                ///< points per side of the map's SNR overlay
    float m_fMapOverlayMinSnr{};                ///< dB, lowest SNR drawn by the overlay
    int m_iMapWorldBegins{};                    ///< longitude of the map's left edge, 0 or -180
    int m_iPropagationAntennaType{};            ///< code of the deck's antenna cards
    std::string m_sPropagationIonCoefficients;  ///< foF2 coefficient set named in the deck
    float m_fPropagationLayerAdjustE{};         ///< factor on foE
    float m_fPropagationLayerAdjustEs{};        ///< factor on foEs
    float m_fPropagationLayerAdjustF1{};        ///< factor on foF1
    float m_fPropagationLayerAdjustF2{};        ///< factor on foF2
    bool m_bPropagationMapsMean{};              ///< own engine: mean of CCIR and URSI
    int m_iPropagationModel{};                  ///< EngineModel
    bool m_bPropagationMonth{};                 ///< the current UTC month at each run
    int m_iPropagationMonth{};                  ///< 1..12
    float m_fPropagationMultipathDelay{};       ///< ms
    float m_fPropagationMultipathPower{};       ///< dB
    float m_fPropagationNoiseLevel{};           ///< dBW in 1 Hz at 3 MHz, negative
    float m_fPropagationQIndex{};               ///< geomagnetic Q index
    float m_fPropagationReliability{};          ///< %
    bool m_bPropagationSunSpotNumber{};         ///< Airmail's number at each run
    bool m_bPropagationForecast{};              ///< without Airmail's, the forecast's number
    float m_fPropagationSunSpotNumber{};        ///< smoothed sunspot number
    float m_fPropagationTakeoffAngle{};         ///< degrees, least takeoff angle
    float m_fStationPower{};                    ///< W; 0: the power of the antenna choice
    std::string m_sNeedSelected;                ///< name of an entry of m_aNeed; empty: none
    std::vector<Need> m_aNeed;                  ///< the list of needs
    Palette m_ePalette{};                       ///< colours of the SNR
    double m_dRcLat{};                          ///< receiver
    double m_dRcLon{};
    int m_iTimeCode{};  ///< TimeCode
    double m_dTxLat{};  ///< transmitter
    double m_dTxLon{};

    SelectedCell m_selected;
    PlanPlaces m_aPlanWindow;  ///< kept by Initialize, as the main window's place is

private:
    std::array<float, kFrequencyMax + 1> m_afFrequency{};  // kHz, slot 0 unused
};
