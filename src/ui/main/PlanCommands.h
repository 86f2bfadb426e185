/// @file PlanCommands.h
/// The Plan menu's commands on the path itself: a path taken from a planning window, the way back
/// to the one before, and the ends exchanged.
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

    void Take(const PlanTaking& taking);
    /// One step; nothing where there is none.
    void Back();
    void Exchange();
    /// A taken path is in force, or is being put in force.
    [[nodiscard]] bool TakenIs() const { return m_bOwn || m_back.has_value(); }

Q_SIGNALS:
    void RowTaken(int iRow);                    ///< before an update: 0 receiver, 1 transmitter
    void TitleTaken(const QString& sTitle);     ///< behind it
    void CellTaken(int iFrequency, int iHour);  ///< behind it: the cell to select
    void BackPossible(bool bPossible);

private:
    /// What a taking changes.
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
    void FrequenciesTake(const PlanTaking& taking);
    [[nodiscard]] int RowOf(float fFrequency) const;
    void SettingsSee();

    PlanHost& m_host;
    std::optional<Step> m_back;
    Circuit m_taken{};  // what was in force behind the taking; another one is a change by hand
    bool m_bOwn = false;
};
