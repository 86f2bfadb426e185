/// @file PositionEntry.h
/// The four position fields of the main window, as one: receiver and transmitter, latitude and
/// longitude.
///
/// Units:   degrees, north and east positive.
/// Errors:  a text that is no number is told by a box; one out of range at its field, and by
///          Refused.
/// Tests:   tests/ui/main/FrmMainEntryTest.cpp, FrmMainUpdateTest.cpp, FrmMainBeyondTest.cpp
#pragma once

#include <QObject>
#include <array>
#include <string>

#include "settings/Settings.h"

class LocationField;

class PositionEntry final : public QObject {
    Q_OBJECT
public:
    /// In the order in which they are decoded: receiver's latitude and longitude, transmitter's.
    using Fields = std::array<LocationField*, 4>;
    PositionEntry(const Fields& apField, QObject* pParent);

    void Show(const Settings& settings);
    /// Takes the fields over one after the other: what was decoded before a text that cannot be is
    /// kept. @return false when one was refused
    bool Take(Settings& settings);

Q_SIGNALS:
    void Edited();                        ///< after each accepted key, paste or undo
    void Hinted(const QString& sAdvice);  ///< after a key or paste was dropped
    void TransmitterChanged();            ///< also when the program set it
    void Refused(const QString& sWhy);    ///< "Receiver Latitude 90°00.01'N lies beyond 90°"

private:
    bool FieldTake(std::size_t iField, double& dValue);

    Fields m_apField;
};
