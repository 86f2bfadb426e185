/// @file PlanHost.h
/// What the planning windows need from the main window beyond MainWindowHost: engines for many
/// predictions, the table that is shown, and a way to put one of their rows in force and to go
/// back.
///
/// Units:   degrees, kHz.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "propagation/Engine.h"
#include "ui/common/MainWindowHost.h"

/// A row of a planning window that becomes the main window's path.
struct PlanChoice {
    double dTxLat = 0.0;
    double dTxLon = 0.0;
    QString sTitle;  ///< the transmitter's, for the window's title; may be empty
    std::vector<float> afFrequency = {};  ///< the new list; empty: unchanged
    float fFrequency = 0.0F;              ///< to be selected; 0: as before
    int iHour = -1;                       ///< to be selected, 1 to 24; -1: as before
};

class PlanHost : public MainWindowHost {
public:
    /// The engine for a model, for many predictions.
    [[nodiscard]] virtual std::shared_ptr<const Engine> EngineGet(int iModel) const = 0;
    /// The request that the present settings make, with the source of the sunspot number.
    [[nodiscard]] virtual Request RequestGet() const = 0;
    /// The table that is shown; without rows before the first prediction.
    [[nodiscard]] virtual const PropagationTable& TableGet() const = 0;
    /// True when the settings are newer than the table: its run failed, or a position is being
    /// typed.
    [[nodiscard]] virtual bool TableOldIs() const = 0;
    /// Selects a cell; the table's current cell and open details follow.
    virtual void CellTake(int iFrequency, int iHour) = 0;
    /// Brings the main window to the front.
    virtual void MainWindowRaise() = 0;
    /// Puts a path in force and predicts it; Plan, Back restores what was in force before.
    virtual void PlanApply(const PlanChoice& choice) = 0;
    /// The transmitter's name as in the main window's title; empty if it has none.
    [[nodiscard]] virtual QString TransmitterNameGet() const = 0;
};
