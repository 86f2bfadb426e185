/// @file PlanHost.h
/// What the planning windows ask of the main window besides what every window does: engines for
/// many predictions, the table that is shown, and the way back to it with a row of their own.
///
/// Units:   degrees, kHz.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "propagation/Engine.h"
#include "ui/common/MainWindowHost.h"

/// A row of a planning window that becomes the main window's path.
struct PlanTaking {
    double dTxLat = 0.0;
    double dTxLon = 0.0;
    QString sTitle;                       ///< of the transmitter, for the window's title; or empty
    std::vector<float> afFrequency = {};  ///< the new list; empty: it stays
    float fFrequency = 0.0F;              ///< to be selected; 0: the row that is
    int iHour = -1;                       ///< to be selected, 1 to 24; -1: the column that is
};

class PlanHost : public MainWindowHost {
public:
    /// The engine of a model for many predictions.
    [[nodiscard]] virtual std::shared_ptr<const Engine> EngineGet(int iModel) const = 0;
    /// What the settings ask for now, with the source of the sunspot number.
    [[nodiscard]] virtual Request RequestGet() const = 0;
    /// The table that is shown; without rows before the first one.
    [[nodiscard]] virtual const PropagationTable& TableGet() const = 0;
    /// There are newer settings than those of the table: its run failed, or they are still typed.
    [[nodiscard]] virtual bool TableOldIs() const = 0;
    /// Selects a cell; the table's current cell and open details go with it.
    virtual void CellTake(int iFrequency, int iHour) = 0;
    /// Brings the main window to the front.
    virtual void FrontTake() = 0;
    /// Puts a path in force and predicts it; what was in force comes back by Plan, Back.
    virtual void PlanTake(const PlanTaking& taking) = 0;
    /// The name of the transmitter, as the main window's title has it; empty without one.
    [[nodiscard]] virtual QString TransmitterNameGet() const = 0;
    /// A row that was taken is in force: the list of frequencies may be its own.
    [[nodiscard]] virtual bool TakenIs() const = 0;
};
