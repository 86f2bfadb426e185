/// @file SettingsSignal.h
/// Notifies the windows that settings have changed. Whoever changes settings need not know the
/// windows that show them.
#pragma once

#include <QObject>

class SettingsSignal final : public QObject {
    Q_OBJECT
Q_SIGNALS:
    /// Settings may have changed; a prediction with them follows.
    void Changed();
    /// Another need was chosen; no prediction follows.
    void NeedChosen();
    /// The user's own places have changed.
    void PlacesChanged();
    /// An update has finished: the table shown, or its mark as old, may have changed.
    void TableRenewed();
    /// The mark of the shown table as old may have changed, for example by a typed position.
    void TableMarked();
    /// Another cell of the table was selected, or none.
    void CellSelected();
};
