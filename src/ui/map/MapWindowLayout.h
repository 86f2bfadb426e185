/// @file MapWindowLayout.h
/// The layout of the map window: the read-out, the map with its scroll bars, the bar of hours if it
/// is shown, and the row of buttons.
///
/// Units:   pixels.
/// Tests:   tests/ui/map/MapWindowLayoutTest.cpp, tests/ui/screen/ScreenTest.cpp
#pragma once

#include <QObject>
#include <vector>

#include "ui/map/MapForm.h"

class MapWindowLayout final : public QObject {
    Q_OBJECT
public:
    MapWindowLayout(QWidget& window, MapForm& form);

    /// Lays out the window at its present size.
    void LayoutSet();
    /// Scrolls the row of buttons if it is wider than the window.
    void RowScroll(int nBy);

private:
    void ButtonsPlace(int nTop);
    void ButtonShow(const QWidget* pButton);
    void FrameFill();
    void CursorFit();

    QWidget& m_window;
    MapForm& m_form;
    std::vector<int> m_aContent;  // widths in the row of buttons, see MapButtonRow.h
    int m_nRowShift = 0;          // how far the row of buttons is scrolled
};
