/// @file RecordingHost.h
/// A main window that only records what a secondary window asks of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "settings/SettingsTable.h"
#include "system/NumberLib.h"
#include "ui/common/MainWindowHost.h"

class RecordingHost final : public MainWindowHost {
public:
    Settings& SettingsGet() override { return m_settings; }
    void Initialize() override
    {
        m_asCalls.emplace_back("Initialize");
        SettingsDefaultSet(m_settings);
    }
    /// Keeps a copy of the settings, then lets the test act like the real window.
    bool Update() override
    {
        m_asCalls.emplace_back("Update");
        m_atUpdate = m_settings;
        if (m_fnUpdate)
            m_fnUpdate();
        return m_bUpdateResult;
    }
    void DataSetSelected(int /*iRow*/, int /*iColumn*/) override
    {
        m_asCalls.emplace_back("DataSetSelected");
    }
    [[nodiscard]] SelectedCell DataGetSelected() const override { return m_settings.m_selected; }
    [[nodiscard]] std::uint32_t SnrGetColor(float /*fSnr*/) const override { return 0; }
    [[nodiscard]] float FrequencyGet(int iIndex) const override
    {
        return m_settings.FrequencyGet(iIndex);
    }
    void FrequencySet(int iIndex, float fKhz) override
    {
        m_asCalls.push_back("FrequencySet " + NumberToText(iIndex) + " " + NumberToText(fKhz));
        m_settings.FrequencySet(iIndex, fKhz);
    }
    [[nodiscard]] Request TableInputGet() const override { return RequestFromSettings(m_settings); }
    [[nodiscard]] bool TakenIs() const override { return false; }
    void OverlayFailedSet(const std::optional<Failure>& /*failure*/) override {}

    Settings m_settings;
    Settings m_atUpdate;                 ///< at the last Update
    std::vector<std::string> m_asCalls;  ///< in order, without those that only read
    std::function<void()> m_fnUpdate;
    bool m_bUpdateResult = true;
};
