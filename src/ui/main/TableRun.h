/// @file TableRun.h
/// The main window's prediction: the table shown, and the run that makes the next one.
///
/// Errors:  a failure is shown in a message box where it occurs; TroubleGet says what to do. A
///          failed run leaves the table unchanged.
/// Tests:   tests/ui/main/FrmMainUpdateTest.cpp
#pragma once

#include <optional>
#include <string>

#include "propagation/PropagationTable.h"
#include "settings/Settings.h"
#include "settings/SunSpotLib.h"
#include "ui/main/StatusText.h"

class GridControl;

class TableRun {
public:
    /// @param grd  its first column holds the labels of the frequencies to predict
    TableRun(Settings& settings, const GridControl& grd);

    bool Make();
    /// The table of the last successful run; without rows before the first one.
    [[nodiscard]] PropagationTable& TableGet() { return m_table; }
    [[nodiscard]] const PropagationTable& TableGet() const { return m_table; }
    [[nodiscard]] bool TableIs() const { return m_table.nData > 0; }
    /// True if the last run failed: the table is from an earlier one.
    [[nodiscard]] bool OldIs() const { return m_bOld; }
    /// The table's input; before the first table, the input that it would have.
    [[nodiscard]] Request InputGet() const;
    /// The request that the settings make; only the run knows the source of its sunspot number.
    [[nodiscard]] Request RequestGet() const;
    /// What went wrong in the last run, in one line; empty if it fully succeeded.
    [[nodiscard]] const std::string& TroubleGet() const { return m_sTrouble; }
    /// A warning about the table's sunspot number in one line; empty for none.
    [[nodiscard]] const std::string& WarningGet() const { return m_sWarning; }
    [[nodiscard]] std::string InForceGet(StatusForm eForm) const;
    /// Scale, date and age of the table's sunspot number, or where Airmail has it; empty if it was
    /// typed.
    [[nodiscard]] std::string SunSpotDetailGet() const;
    /// The row with the highest SNR of an hour, the first of equals; -1 if none has a value.
    [[nodiscard]] int BestRowGet(int iHour) const;

private:
    bool ListTake();
    bool TableMake();
    bool TroubleSet(RunTrouble eTrouble, const std::optional<Failure>& failure = {});

    Settings& m_settings;
    const GridControl& m_grd;
    PropagationTable m_table;
    std::string m_sTrouble;
    bool m_bSunSpotNumber = true;  ///< the last run had a sunspot number
    SunSpotRun m_ssn;              ///< of the last run
    std::string m_sSunSpotDetail;  ///< of the table
    std::string m_sWarning;        ///< of the table
    std::string m_sAirMail;  ///< Airmail's number at the last run, if another source was in force
    bool m_bOld = false;
};
