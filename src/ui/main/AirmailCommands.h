/// @file AirmailCommands.h
/// The two Airmail buttons: the receiver from Airmail's own position, the transmitter from
/// Airmail's stations.
///
/// Errors:  a failure is shown in a message box and changes nothing.
/// Tests:   tests/ui/main/FrmMainStationsTest.cpp
#pragma once

#include <QObject>

#include "ui/main/StationMenu.h"

class MainWindowHost;
class QWidget;

class AirmailCommands final : public QObject {
    Q_OBJECT
public:
    /// @param menu  the menu of the stations
    AirmailCommands(MainWindowHost& host, StationMenu& menu, QObject* pParent);

    void ReceiverTake();
    /// @param button  the menu opens at the pointer, or below the button if a key pressed it
    void StationsShow(const QWidget& button);
    void StationTake(const Station& station);

Q_SIGNALS:
    void Noticed(const std::string& sNotice);  ///< the age of the position
    void RowTaken(int iRow);  ///< emitted before the update: 0 receiver, 1 transmitter
    void StationTaken(const QString& sName);  ///< emitted after it: the new transmitter

private:
    MainWindowHost& m_host;
    StationMenu& m_menu;
};
