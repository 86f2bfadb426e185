/// @file GridMouse.h
/// The mouse and tooltips of a grid, headers included: which cell is pressed, which one the mouse
/// is over, and one tooltip for all of them.
///
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <QObject>
#include <QPoint>
#include <QTableView>
#include <optional>

class QHelpEvent;

class GridMouse final : public QObject {
    Q_OBJECT
public:
    /// REQUIRES: the view already has its final headers.
    explicit GridMouse(QTableView& view);

    /// Reports the cell under a point of the view, unless the point is the last one reported.
    void PointReport(const QPoint& pnt);
    void ToolTipShow(const QHelpEvent* pEvent);
    /// Shows the tooltip afresh; an empty text removes it.
    void ToolTipRenew(const QString& sText);

Q_SIGNALS:
    void HeaderPressed(int iRow, int iCol, Qt::MouseButton eButton);
    void Moved(int iRow, int iCol);

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    QTableView& m_view;
    std::optional<QPoint> m_pntSeen;
};
