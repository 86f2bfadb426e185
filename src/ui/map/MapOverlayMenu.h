/// @file MapOverlayMenu.h
/// The overlay's menu: its frequency and hour. They follow the main window's selection until the
/// user chooses here.
///
/// Units:   kHz, UTC hours 0..23.
/// Tests:   tests/ui/map/MapOverlayMenuTest.cpp
#pragma once

#include <QObject>
#include <QString>

#include "ui/map/MapForm.h"

class MainWindowHost;

struct OverlayChoice {
    float fKhz = 0.0F;
    int iFrequency = 1;  ///< row of the table, from 1
    int iHour = 0;
};

class MapOverlayMenu final : public QObject {
    Q_OBJECT
public:
    MapOverlayMenu(MapForm& form, MainWindowHost& host);

    [[nodiscard]] const OverlayChoice& ChoiceGet() const { return m_choice; }
    /// Takes the main window's selection, unless the user has chosen here.
    void SelectionFollow();
    /// To be called when another hour or row of the table is shown by other means; the overlay
    /// stays.
    void HourTake(int iHour);
    void FrequencyTake(int iFrequency);

Q_SIGNALS:
    void Chosen();

private:
    void mnuOverlayOpen();
    void mnuOverlayFrequencyFill();
    void mnuOverlayTimeFill();
    void mnuOverlayFrequencyDataClick(int iIndex);
    void mnuOverlayTimeDataClick(int iHour);
    void ChoiceKeep();
    void ChoiceReport();

    MapForm& m_form;
    MainWindowHost& m_host;
    OverlayChoice m_choice;
    bool m_bChosen = false;
};

/// "06:00"
[[nodiscard]] QString OverlayHourText(int iHour);
