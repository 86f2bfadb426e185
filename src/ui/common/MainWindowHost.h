/// @file MainWindowHost.h
/// What the secondary windows (map, options, details) ask of the main window, which owns the
/// settings, the selected cell and the road to a prediction. frmMain implements it; the other
/// windows know only this, so that no window includes another's insides.
///
/// Units:   as in Settings; colours 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "propagation/Prediction.h"
#include "settings/Settings.h"
#include "ui/common/ReachBoard.h"
#include "ui/common/SettingsSignal.h"

class MainWindowHost {
public:
    virtual ~MainWindowHost() = default;

    /// The one set of settings; the other windows change members directly and then call Update.
    [[nodiscard]] virtual Settings& SettingsGet() = 0;
    /// Sent by Update, before its prediction.
    [[nodiscard]] SettingsSignal& SettingsSignalGet() { return m_settingsSignal; }
    /// What stations can be reached, as the planning window found it last.
    [[nodiscard]] ReachBoard& ReachBoardGet() { return m_reachBoard; }
    /// Every setting back to its default; no prediction is run.
    virtual void Initialize() = 0;
    /// Lays out the table and runs a prediction. @return true when it succeeded.
    virtual bool Update() = 0;
    /// Selects a cell of the table: frequency row from 1, hour column 1..24; -1, -1 for none.
    virtual void DataSetSelected(int iRow, int iColumn) = 0;
    [[nodiscard]] virtual SelectedCell DataGetSelected() const = 0;
    /// Colour of an SNR in dB.
    [[nodiscard]] virtual std::uint32_t SnrGetColor(float fSnr) const = 0;
    /// Entry of the frequency list, kHz, index from 1.
    [[nodiscard]] virtual float FrequencyGet(int iIndex) const = 0;
    virtual void FrequencySet(int iIndex, float fKhz) = 0;
    /// What the table that is shown was made for. It may differ from the settings, after a failed
    /// run for example. Before the first table, what that would be made for.
    [[nodiscard]] virtual Request TableInputGet() const = 0;
    /// For the status line: why the map's overlay could not be drawn; nothing when it is all right.
    virtual void OverlayFailedSet(const std::optional<Failure>& failure) = 0;

private:
    SettingsSignal m_settingsSignal;
    ReachBoard m_reachBoard;
};
