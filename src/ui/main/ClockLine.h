/// @file ClockLine.h
/// The clock of the main window: the time in the time system in which the table labels its hours.
///
/// Tests:   tests/ui/main/FrmMainTableTest.cpp
#pragma once

#include <QLabel>
#include <QTimer>

#include "settings/Settings.h"

class ClockLine final : public QObject {
    Q_OBJECT
public:
    /// @param settings  of the owner; outlive the clock, as the label does
    ClockLine(QTimer& tmr, QLabel& lbl, const Settings& settings, QObject* pParent);
    void Start();
    /// Shows the present time. Under a time code that is neither Zulu nor local it stays.
    void Tick();

private:
    QTimer& m_tmr;
    QLabel& m_lbl;
    const Settings& m_settings;
};
