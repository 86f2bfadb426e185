/// @file ElidedLabel.h
/// A line of text that never asks for more room than there is. A text that does not fit is replaced
/// by a shorter form; if that does not fit either, it ends in an ellipsis.
///
/// Tests:   tests/ui/main/FrmMainStatusTest.cpp
#pragma once

#include <QLabel>

class ElidedLabel final : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    /// The text to show when the full one does not fit; empty for none.
    void ShorterSet(const QString& sShorter);
    [[nodiscard]] const QString& ShorterGet() const { return m_sShorter; }
    /// The text painted at the present width.
    [[nodiscard]] QString TextShown() const;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QString m_sShorter;
};
