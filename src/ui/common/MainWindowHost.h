/// @file MainWindowHost.h
/// What the other windows (map, options, details) need from the main window, which owns the
/// settings, the selected cell and the way to run a prediction. frmMain implements it. The other
/// windows know only this interface, so no window includes another.
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

    /// The one set of settings. The other windows change its members and then call Update.
    [[nodiscard]] virtual Settings& SettingsGet() = 0;
    /// Sent by Update before its prediction.
    [[nodiscard]] SettingsSignal& SettingsSignalGet() { return m_settingsSignal; }
    /// Which stations can be reached, from the last search of the planning window.
    [[nodiscard]] ReachBoard& ReachBoardGet() { return m_reachBoard; }
    /// Resets every setting to its default; runs no prediction.
    virtual void Initialize() = 0;
    /// Lays out the table and runs a prediction.
    /// @return true when it succeeded
    virtual bool Update() = 0;
    /// Selects a cell of the table: frequency row from 1, hour column 1..24; -1, -1 for none.
    virtual void DataSetSelected(int iRow, int iColumn) = 0;
    [[nodiscard]] virtual SelectedCell DataGetSelected() const = 0;
    /// Colour of an SNR in dB.
    [[nodiscard]] virtual std::uint32_t SnrGetColor(float fSnr) const = 0;
    /// Entry of the frequency list, kHz, index from 1.
    [[nodiscard]] virtual float FrequencyGet(int iIndex) const = 0;
    virtual void FrequencySet(int iIndex, float fKhz) = 0;
    /// The input of the table that is shown. It may differ from the settings, for example after a
    /// failed run. Before the first table: the input that the table would have.
    [[nodiscard]] virtual Request TableInputGet() const = 0;
    /// True while a row that was taken over from a planning window is in force: the list of
    /// frequencies may be the row's own.
    [[nodiscard]] virtual bool TakenIs() const = 0;
    /// Shows in the status line why the map's overlay could not be drawn; nothing when it could.
    virtual void OverlayFailedSet(const std::optional<Failure>& failure) = 0;

private:
    SettingsSignal m_settingsSignal;
    ReachBoard m_reachBoard;
};
