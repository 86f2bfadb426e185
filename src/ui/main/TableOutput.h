/// @file TableOutput.h
/// What leaves the main window: its table by clipboard and file, and the keys of every window that
/// copy a grid and print.
///
/// Keys:    Ctrl+Shift+C copies the grid that has the focus, in the main window its table; Ctrl+P
///          is the menu's.
/// Errors:  told in a box.
/// Tests:   tests/ui/plan/TableOutputTest.cpp
#pragma once

#include <QObject>

class GridControl;
class PlanHost;
class QWidget;

class TableOutput final : public QObject {
    Q_OBJECT
public:
    /// @param window  the main window
    /// @param grd     its table
    TableOutput(QWidget& window, const GridControl& grd, PlanHost& host, QObject* pParent);

    void Copy() const;
    void Export();
    /// The planning window that has the focus; without one the card is asked for.
    void Print();

Q_SIGNALS:
    void CardAsked();

private:
    void FocusCopy() const;

    QWidget& m_window;
    const GridControl& m_grd;
    PlanHost& m_host;
};
