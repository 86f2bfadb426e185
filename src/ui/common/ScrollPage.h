/// @file ScrollPage.h
/// A page that scrolls when the window is too small for it and otherwise looks as it would without
/// scrolling. A widget that gets the focus is scrolled into view.
///
/// Tests:   tests/ui/screen/ScreenTest.cpp, tests/ui/options/FrmOptionsKeyTest.cpp
#pragma once

#include <QScrollArea>

class ScrollPage final : public QScrollArea {
    Q_OBJECT
public:
    /// @param pParent  in the page's own window, so that the tab order is kept
    ScrollPage(QWidget* pPage, QWidget* pParent);

    /// The size that the page asks for; the base class would limit it to a few lines.
    [[nodiscard]] QSize sizeHint() const override;
};
