/// @file CardPage.h
/// The card for the chart table: a path's ends, range and bearings, the table of a day in UTC and
/// in ship's time, each hour's best frequency, the day curves, and what the numbers are.
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

/// What a card tells beside its table.
struct CardAsked {
    QString sTx;                ///< name of the transmitter; empty: its position names it
    QStringList asNote = {};    ///< lines on where the ends come from
    HourLabels asShip = {};     ///< the hours 0 to 23 of UTC in ship's time
    int iTimeCode = kTimeZulu;  ///< TimeCode: the hours that come first
    Need need;                  ///< what is bold
    int nYear = 0;              ///< of the run, for a request that leaves it to the clock
    bool bOld = false;          ///< the settings have changed since
};

/// The table of a card: 24 rows of hours, one column for each frequency.
[[nodiscard]] PageGrid CardGridGet(const PropagationTable& table, const CardAsked& asked);

/// Before the first prediction it says so and no more.
[[nodiscard]] Page CardPageGet(const PropagationTable& table, const CardAsked& asked);
