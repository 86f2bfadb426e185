/// @file AirmailCommands.h
/// The two letter buttons: the receiver from Airmail's own position, the transmitter from its
/// stations.
///
/// Errors:  a failure is told in a box, and changes nothing.
/// Tests:   tests/ui/main/FrmMainStationsTest.cpp
#pragma once

#include <QObject>

#include "ui/main/StationMenu.h"

class MainWindowHost;
class QWidget;

class AirmailCommands final : public QObject {
    Q_OBJECT
public:
    /// @param menu  the pop-up tree of the stations
    AirmailCommands(MainWindowHost& host, StationMenu& menu, QObject* pParent);

    void ReceiverTake();
    /// @param button  the menu opens at the pointer, or below the button where a key pressed it
    void StationsShow(const QWidget& button);
    void StationTake(const Station& station);

Q_SIGNALS:
    void Noticed(const std::string& sNotice);  ///< how old the position is
    void RowTaken(int iRow);                   ///< before the update: 0 receiver, 1 transmitter
    void StationTaken(const QString& sName);   ///< behind the update: the transmitter is this one

private:
    MainWindowHost& m_host;
    StationMenu& m_menu;
};
