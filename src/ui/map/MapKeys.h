/// @file MapKeys.h
/// The keys of the map window, all of them; a focused marker or bar of hours takes its arrow keys
/// before.
///
/// Keys:    arrows move the view, + - 0 zoom, Enter is OK, Esc ends what the mouse does, then work
///          and play of the day, else it is Cancel; the menu key and Shift+F10 open the menu of
///          what has the focus.
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
