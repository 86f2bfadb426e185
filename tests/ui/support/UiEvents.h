/// @file UiEvents.h
/// Real mouse events for the grid.
#pragma once

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTest>

#include "ui/common/GridControl.h"

/// The widget that receives the mouse at a place: cells, hour header or frequency labels.
inline QWidget* CellWidget(GridControl& grd, GridPlace place)
{
    if (place.iRow == 0 && place.iCol > 0)
        return grd.horizontalHeader()->viewport();
    if (place.iCol == 0 && place.iRow > 0)
        return grd.verticalHeader()->viewport();
    return grd.viewport();
}

/// Middle of a cell in that widget's coordinates.
inline QPoint CellPoint(GridControl& grd, GridPlace place)
{
    return CellWidget(grd, place)->mapFrom(&grd, grd.PlaceRect(place).center());
}

inline void CellMouse(GridControl& grd, GridPlace place, Qt::MouseButton eButton = Qt::LeftButton)
{
    QTest::mouseClick(CellWidget(grd, place), eButton, {}, CellPoint(grd, place));
}

/// Moves the mouse to a point of a widget.
inline void MouseMoveTo(QWidget& widget, const QPoint& pnt)
{
    QMouseEvent event(QEvent::MouseMove, QPointF(pnt), QPointF(widget.mapToGlobal(pnt)),
                      Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void CellMouseMove(GridControl& grd, GridPlace place, const QPoint& pntOff = {})
{
    MouseMoveTo(*CellWidget(grd, place), CellPoint(grd, place) + pntOff);
}

/// Records every tooltip that a widget is given, in order.
class ToolTipRecorder final : public QObject {
public:
    explicit ToolTipRecorder(QWidget* pWidget) : m_pWidget(pWidget)
    {
        pWidget->installEventFilter(this);
    }
    bool eventFilter(QObject* pObject, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::ToolTipChange)
            m_asText.append(m_pWidget->toolTip());
        return QObject::eventFilter(pObject, pEvent);
    }
    QStringList m_asText;

private:
    QWidget* m_pWidget;
};
