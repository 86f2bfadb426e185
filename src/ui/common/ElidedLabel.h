/// @file ElidedLabel.h
/// A line of text that never asks for more room than there is: where it does not fit, a shorter
/// form takes its place, and what does not fit then is cut at its end with an ellipsis.
///
/// Tests:   tests/ui/main/FrmMainStatusTest.cpp
#pragma once

#include <QLabel>

class ElidedLabel final : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    /// What stands for a text that does not fit; empty for none.
    void ShorterSet(const QString& sShorter);
    [[nodiscard]] const QString& ShorterGet() const { return m_sShorter; }
    /// What is painted at the present width.
    [[nodiscard]] QString TextShown() const;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QString m_sShorter;
};
