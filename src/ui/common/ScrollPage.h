/// @file ScrollPage.h
/// A page that scrolls where the window is too small for it, and looks as before where it is not.
/// What gets the focus comes into view.
///
/// Tests:   tests/ui/screen/ScreenTest.cpp, tests/ui/options/FrmOptionsKeyTest.cpp
#pragma once

#include <QScrollArea>

class ScrollPage final : public QScrollArea {
    Q_OBJECT
public:
    /// @param pParent  in the page's own window, whose order of the Tab key then stays
    ScrollPage(QWidget* pPage, QWidget* pParent);

    /// As large as the page would like; the base class stops at a few lines.
    [[nodiscard]] QSize sizeHint() const override;
};
