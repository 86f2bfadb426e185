/// @file TableRun.h
/// The main window's prediction: the table that is shown, and the run that makes the next one.
///
/// Errors:  a failure is told in a box where it is met; TroubleGet says what to do. A failed run
///          leaves the table as it was.
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
    /// @param grd  whose first column holds the labels of the frequencies to predict
    TableRun(Settings& settings, const GridControl& grd);

    bool Make();
    /// The table of the last run that succeeded; without rows before the first one.
    [[nodiscard]] PropagationTable& TableGet() { return m_table; }
    [[nodiscard]] const PropagationTable& TableGet() const { return m_table; }
    [[nodiscard]] bool TableIs() const { return m_table.nData > 0; }
    /// The table is that of an earlier run than the last one.
    [[nodiscard]] bool OldIs() const { return m_bOld; }
    /// What the table was made for; before the first one, what it would be made for.
    [[nodiscard]] Request InputGet() const;
    /// What the settings ask for; only the run knows which source its sunspot number came from.
    [[nodiscard]] Request RequestGet() const;
    /// What went wrong at the last run, in one line; empty when all of it succeeded.
    [[nodiscard]] const std::string& TroubleGet() const { return m_sTrouble; }
    /// What is worth telling of the table's sunspot number, in one line; empty for nothing.
    [[nodiscard]] const std::string& WarningGet() const { return m_sWarning; }
    [[nodiscard]] std::string InForceGet(StatusForm eForm) const;
    /// Scale, date and age of the table's sunspot number, or Airmail's place of it; empty where it
    /// was typed.
    [[nodiscard]] std::string SunSpotDetailGet() const;
    /// The row with the highest SNR of an hour, the first of equal ones; -1 where none has a value.
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
    std::string m_sAirMail;        ///< Airmail's number at the last run, where it was not asked
    bool m_bOld = false;
};
