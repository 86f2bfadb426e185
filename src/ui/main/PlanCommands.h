/// @file PlanCommands.h
/// The Plan menu's commands for the path: take over one from a planning window, go back to the one
/// before, exchange the ends.
///
/// Tests:   tests/ui/plan/FrmReachTest.cpp
#pragma once

#include <QObject>
#include <optional>
#include <vector>

#include "ui/plan/PlanHost.h"

class PlanCommands final : public QObject {
    Q_OBJECT
public:
    PlanCommands(PlanHost& host, QObject* pParent);

    void Take(const PlanChoice& choice);
    /// Goes back one step; does nothing if there is none.
    void Back();
    void Exchange();
    /// True while a path that was taken over is in force, or is being put in force.
    [[nodiscard]] bool TakenIs() const { return m_bOwn || m_back.has_value(); }

Q_SIGNALS:
    void RowTaken(int iRow);  ///< emitted before an update: 0 receiver, 1 transmitter
    void TitleTaken(const QString& sTitle);     ///< emitted after it
    void CellTaken(int iFrequency, int iHour);  ///< emitted after it: the cell to select
    void BackPossible(bool bPossible);

private:
    /// What taking a path over changes.
    struct Circuit {
        double dTxLat, dTxLon, dRcLat, dRcLon;
        std::vector<float> afFrequency;

        bool operator==(const Circuit&) const = default;
    };
    struct Step {
        Circuit circuit;
        SelectedCell cell;
        QString sTitle;
    };

    [[nodiscard]] Circuit CircuitGet() const;
    void FrequenciesSet(const std::vector<float>& afFrequency);
    void FrequenciesTake(const PlanChoice& choice);
    [[nodiscard]] int RowOf(float fFrequency) const;
    void SettingsFollow();

    PlanHost& m_host;
    std::optional<Step> m_back;
    Circuit m_taken{};  // in force after the take-over; if it differs, the user has changed it
    bool m_bOwn = false;
};
