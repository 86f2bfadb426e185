/// @file SettingsSignal.h
/// Tells every window that shows settings that they changed, so that who changes them needs to know
/// none of the windows.
#pragma once

#include <QObject>

class SettingsSignal final : public QObject {
    Q_OBJECT
Q_SIGNALS:
    /// Settings may have changed; a prediction with them follows.
    void Changed();
    /// Another need was chosen; nothing is predicted.
    void NeedChosen();
    /// The user's own places are other ones.
    void PlacesChanged();
    /// An update is over: the table that is shown, or whether it is an old one, may be new.
    void TableRenewed();
    /// Whether the table that is shown is an old one may have changed, as by a typed position.
    void TableMarked();
    /// Another cell of the table is selected, or none.
    void CellSelected();
};
