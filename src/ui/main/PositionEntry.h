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

    /// Shows the settings' positions; nothing waits after that.
    void Show(const Settings& settings);
    /// Positions were typed that no update has taken yet.
    [[nodiscard]] bool WaitingIs() const;
    /// Takes over what waits, where it decodes and is in range. Nobody is asked, nothing is told. A
    /// row whose position in the settings is not the one shown keeps that: a command set it.
    void WaitingTake(Settings& settings);
    /// A command sets this row itself: what waits there is given up.
    /// @param iRow  0 the receiver, 1 the transmitter
    void RowDrop(int iRow);
    void RowsDrop();
    /// Takes the fields over one after the other: what was decoded before a text that cannot be is
    /// kept. @return false when one was refused
    bool Take(Settings& settings);

Q_SIGNALS:
    void Edited();                        ///< after each accepted key, paste or undo
    void Entered();                       ///< Return was pressed
    void Hinted(const QString& sAdvice);  ///< after a key or paste was dropped
    void TransmitterChanged();            ///< also when the program set it
    void Refused(
        const QString& sWhy);  ///< "Receiver latitude 90°00.01'N is out of range, 90° at most"

private:
    bool FieldTake(std::size_t iField, double& dValue);
    [[nodiscard]] bool FieldWaits(std::size_t iField) const;

    Fields m_apField;
    std::array<QString, 4> m_asShown;   ///< the fields' texts as the program set them
    std::array<double, 4> m_adShown{};  ///< and the settings' values behind them
};
