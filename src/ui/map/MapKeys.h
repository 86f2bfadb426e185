/// @file MapKeys.h
/// All keys of the map window. A focused marker or bar of hours takes the arrow keys first.
///
/// Keys:    arrows move the view; + - 0 zoom; Enter is OK; Esc ends what the mouse is doing, else
///          the work or play of the day, else it is Cancel; the menu key and Shift+F10 open the
///          menu of the focused control.
/// Tests:   tests/ui/map/MapKeysTest.cpp
#pragma once

#include <QObject>

#include "ui/map/MapForm.h"

class MapDayControl;
class MapMouse;
class MapNavigation;

class MapKeys final : public QObject {
    Q_OBJECT
public:
    MapKeys(QWidget& window, MapForm& form, MapNavigation& navigation, MapMouse& mouse,
            MapDayControl& day);

private:
    void EnterPress();
    void EscapePress();
    void ArrowPress(int nByX, int nByY);
    void MenuPress();

    QWidget& m_window;
    MapForm& m_form;
    MapNavigation& m_navigation;
    MapMouse& m_mouse;
    MapDayControl& m_day;
};
