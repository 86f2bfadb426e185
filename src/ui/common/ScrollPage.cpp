#include "ui/common/ScrollPage.h"

#include <QApplication>

ScrollPage::ScrollPage(QWidget* pPage, QWidget* pParent) : QScrollArea(pParent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);  // Tab goes from field to field
    setWidgetResizable(true);
    setWidget(pPage);
    // The background shows through as it would without scrolling.
    pPage->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*pOld*/, QWidget* pNow) {
        if (pNow != nullptr && widget()->isAncestorOf(pNow))
            ensureWidgetVisible(pNow);
    });
}

QSize ScrollPage::sizeHint() const { return widget()->sizeHint(); }
