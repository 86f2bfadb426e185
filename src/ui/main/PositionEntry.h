/// @file PositionEntry.h
/// The four position fields of the main window as a unit: latitude and longitude of receiver and
/// transmitter.
///
/// Units:   degrees, north and east positive.
/// Errors:  a text that is not a position is reported in a message box; one out of range is marked
///          in its field and reported by Refused.
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
    /// In the order of decoding: latitude and longitude of the receiver, then of the transmitter.
    using Fields = std::array<LocationField*, 4>;
    PositionEntry(const Fields& apField, QObject* pParent);

    /// Shows the settings' positions and drops what was typed.
    void Show(const Settings& settings);
    /// True if positions were typed that no update has taken over yet.
    [[nodiscard]] bool WaitingIs() const;
    /// Takes over typed positions that decode and are in range, without messages. If a command has
    /// since set a row in the settings, its value is kept.
    void WaitingTake(Settings& settings);
    /// Call when a command sets a row: drops what was typed in it.
    /// @param iRow  0 receiver, 1 transmitter
    void RowDrop(int iRow);
    void RowsDrop();
    /// Takes the fields over one after another; those before one that cannot be decoded are kept.
    /// @return false if one was refused
    bool Take(Settings& settings);

Q_SIGNALS:
    void Edited();                        ///< after each accepted key, paste or undo
    void Entered();                       ///< Return was pressed
    void Hinted(const QString& sAdvice);  ///< after a key or paste was dropped
    void TransmitterChanged();            ///< also when the program sets it
    void Refused(
        const QString& sWhy);  ///< "Receiver latitude 90°00.01'N is out of range, 90° at most"

private:
    bool FieldTake(std::size_t iField, double& dValue);
    [[nodiscard]] bool FieldWaits(std::size_t iField) const;

    Fields m_apField;
    std::array<QString, 4> m_asShown;   ///< the fields' texts as last set by the program
    std::array<double, 4> m_adShown{};  ///< and the settings' values for them
};
