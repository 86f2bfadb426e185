/// @file CardPage.h
/// The card for the chart table: the two ends of a path, range and bearings, a day's table in UTC
/// and ship's time, the best frequency of each hour, the day curves, and what the numbers are.
///
/// Units:   as in PropagationTable.
/// Tests:   tests/ui/plan/CardPageTest.cpp
#pragma once

#include <QString>
#include <QStringList>

#include "propagation/PropagationTable.h"
#include "settings/Need.h"
#include "ui/common/HourLabels.h"
#include "ui/page/Page.h"

/// What a card shows besides its table.
struct CardInput {
    QString sTx;                ///< name of the transmitter; empty: its position is used
    QStringList asNote = {};    ///< lines on where the two ends come from
    HourLabels asShip = {};     ///< the hours 0 to 23 UTC in ship's time
    int iTimeCode = kTimeZulu;  ///< TimeCode: which hours come first
    Need need;                  ///< values that meet it are bold
    int nYear = 0;              ///< year of the run, for a request that leaves it to the clock
    bool bOld = false;          ///< the settings have changed since
};

/// The table of a card: 24 rows of hours, one column for each frequency.
[[nodiscard]] PageGrid CardGridGet(const PropagationTable& table, const CardInput& input);

/// The card as a page. Before the first prediction it says only that there is none.
[[nodiscard]] Page CardPageGet(const PropagationTable& table, const CardInput& input);
