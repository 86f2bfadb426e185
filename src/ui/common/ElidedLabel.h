/// @file ElidedLabel.h
/// A line of text that never asks for more room than there is: what does not fit is cut at its end
/// with an ellipsis.
///
/// Tests:   tests/ui/main/FrmMainUpdateTest.cpp
#pragma once

#include <QLabel>

class ElidedLabel final : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    /// What is painted at the present width.
    [[nodiscard]] QString TextShown() const;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;
};
