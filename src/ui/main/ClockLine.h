/// @file ClockLine.h
/// The main window's clock: the present time in the time system of the table's hours.
///
/// Tests:   tests/ui/main/FrmMainTableTest.cpp
#pragma once

#include <QLabel>
#include <QTimer>

#include "settings/Settings.h"

class ClockLine final : public QObject {
    Q_OBJECT
public:
    /// @param settings  must outlive the clock, as must the label
    ClockLine(QTimer& tmr, QLabel& lbl, const Settings& settings, QObject* pParent);
    void Start();
    /// Shows the present time; does nothing if the time code is neither Zulu nor local.
    void Tick();

private:
    QTimer& m_tmr;
    QLabel& m_lbl;
    const Settings& m_settings;
};
