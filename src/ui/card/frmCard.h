/// @file frmCard.h
/// The window "Print Card": a preview of the card of the main window's table, and the choice of
/// paper and looks.
///
/// Keys:    as in every planning window.
/// Tests:   tests/ui/plan/FrmCardTest.cpp
#pragma once

#include <QImage>

#include "ui/plan/PlanWindow.h"

class QComboBox;

/// The sheet, as large as fits.
class CardPreview final : public QWidget {
    Q_OBJECT
public:
    explicit CardPreview(QWidget* pParent);
    void SheetSet(const QImage& imgSheet);
    [[nodiscard]] const QImage& SheetGet() const { return m_imgSheet; }

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QImage m_imgSheet;
};

class frmCard final : public PlanWindow {
    Q_OBJECT
public:
    /// @param form  the choices, which must outlive the window
    frmCard(PlanHost& host, PageForm& form);

    [[nodiscard]] Page PageGet() const override;
    [[nodiscard]] PageForm FormGet() const override { return m_form; }

    QComboBox* cmbPaper;
    QComboBox* cmbOrientation;
    QComboBox* cmbLook;
    CardPreview* picPreview;

protected:
    [[nodiscard]] QString FileNameGet() const override;

private:
    void ChoicesShow();
    void ChoicesTake();
    void SheetShow();

    PageForm& m_form;
};
