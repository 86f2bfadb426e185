#include "ui/common/ScrollPage.h"

#include <QApplication>

ScrollPage::ScrollPage(QWidget* pPage, QWidget* pParent) : QScrollArea(pParent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);  // the Tab key goes from field to field
    setWidgetResizable(true);
    setWidget(pPage);
    // What the page stands on shines through, as without the scrolling.
    pPage->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*pOld*/, QWidget* pNow) {
        if (pNow != nullptr && widget()->isAncestorOf(pNow))
            ensureWidgetVisible(pNow);
    });
}

QSize ScrollPage::sizeHint() const { return widget()->sizeHint(); }
