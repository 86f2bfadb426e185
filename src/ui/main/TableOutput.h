/// @file TableOutput.h
/// Copy and export of the main window's table, and the keys for copying and printing in every
/// window.
///
/// Keys:    Ctrl+Shift+C copies the grid that has the focus; in the main window, its table. Ctrl+P
///          belongs to the menu.
/// Errors:  shown in a message box.
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
    /// Prints from the planning window that has the focus; otherwise opens Print Card.
    void Print();

Q_SIGNALS:
    void CardInput();

private:
    void FocusCopy() const;

    QWidget& m_window;
    const GridControl& m_grd;
    PlanHost& m_host;
};
