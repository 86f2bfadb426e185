/// @file GridMouse.h
/// The mouse and the tooltips over a grid, its headers included: which place is pressed, over which
/// one the mouse has come, and one tooltip for all of them.
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
    /// The view's headers are those that it will keep.
    explicit GridMouse(QTableView& view);

    /// Tells the place under a point of the view, unless it is the point seen last.
    void PointSee(const QPoint& pnt);
    void ToolTipShow(const QHelpEvent* pEvent);
    /// Clears the tooltip and sets it anew, so that it shows afresh; an empty text clears it.
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
