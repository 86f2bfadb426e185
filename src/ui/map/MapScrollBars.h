/// @file MapScrollBars.h
/// The scroll bars of the map, which show the centre of the view and move it by tenths of a degree
/// or shares of the view.
///
/// Tests:   tests/ui/map/MapScrollBarsTest.cpp
#pragma once

#include <QObject>

#include "ui/map/MapForm.h"

class MapNavigation;
class QWheelEvent;

class MapScrollBars final : public QObject {
    Q_OBJECT
public:
    MapScrollBars(MapForm& form, MapNavigation& navigation);
    /// Takes ranges, steps and values from the view.
    void ViewFollow();

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void hscMapChange();
    void vscMapChange();
    void BarAct(QScrollBar* pBar, int nAction);
    void BarWheel(QScrollBar* pBar, QWheelEvent* pEvent);
    void BarShift(const QScrollBar* pBar, double dShare);

    MapForm& m_form;
    MapNavigation& m_navigation;
};
