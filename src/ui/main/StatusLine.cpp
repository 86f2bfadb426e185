#include "ui/main/StatusLine.h"

#include <QEvent>
#include <QStatusBar>
#include <algorithm>
#include <utility>

#include "ui/common/ElidedLabel.h"

// No text makes the window grow.
StatusLine::StatusLine(QStatusBar& bar, QObject* pParent)
    : QObject(pParent),
      lblTrouble(new ElidedLabel(&bar)),
      lblBest(new ElidedLabel(&bar)),
      lblInForce(new ElidedLabel(&bar)),
      m_bar(bar)
{
    lblTrouble->setObjectName(QStringLiteral("lblTrouble"));
    lblBest->setObjectName(QStringLiteral("lblBest"));
    lblBest->setToolTip(tr("Ctrl+Home in the table goes there"));
    for (ElidedLabel* pLabel : {lblTrouble, lblBest})
        pLabel->setContentsMargins(bar.fontMetrics().averageCharWidth(), 0, 0, 0);
    lblInForce->setObjectName(QStringLiteral("lblInForce"));
    lblInForce->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblInForce->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bar.addWidget(lblTrouble);
    bar.addWidget(lblBest);
    bar.addWidget(lblInForce, 1);
    bar.installEventFilter(this);
}

void StatusLine::RightSet(QWidget& widget)
{
    m_pRight = &widget;
    m_bar.addPermanentWidget(m_pRight);
}

void StatusLine::RunBegin()
{
    m_sOverlayTrouble.clear();
    m_sHint.clear();
    m_sRefused.clear();
}

bool StatusLine::HintSet(const std::string& sHint)
{
    return std::exchange(m_sHint, sHint) != sHint;
}

/// The text to show; a notice is shown only once.
std::string StatusLine::TroubleTake()
{
    for (const std::string* pText : {&m_sHint, &m_sRefused, &m_sTrouble, &m_sOverlayTrouble})
        if (!pText->empty())
            return *pText;
    return std::exchange(m_sNotice, {});
}

void StatusLine::Show(const std::string& sInForce, const std::string& sShort,
                      const std::string& sDetail)
{
    const std::string sTrouble = TroubleTake();
    const QString sLong = QString::fromStdString(sInForce);
    lblInForce->setToolTip(
        sDetail.empty() ? sLong : sLong + QStringLiteral("\n") + QString::fromStdString(sDetail));
    lblInForce->setText(sTrouble.empty() ? sLong : QString::fromStdString(sShort));
    lblInForce->ShorterSet(QString::fromStdString(sShort));
    m_bWarning = sTrouble.empty();
    lblTrouble->setText(QString::fromStdString(m_bWarning ? m_sWarning : sTrouble));
    lblTrouble->setToolTip(lblTrouble->text());
    WidthShare();
}

void StatusLine::BestSet(const std::string& sBest)
{
    const QString sNew = QString::fromStdString(sBest);
    if (sNew == lblBest->text())
        return;
    lblBest->setText(sNew);
    WidthShare();
}

bool StatusLine::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::Resize)
        WidthShare();
    return QObject::eventFilter(pObject, pEvent);
}

/// The text of a failure is cut where it would hide what is in force; its tooltip has all of it.
void StatusLine::WidthShare()
{
    constexpr int kGaps = 10;  // size grip and spaces, in average letters
    const QFontMetrics metrics = m_bar.fontMetrics();
    const int nInForce = metrics.horizontalAdvance(lblInForce->ShorterGet());
    const int nRight = m_pRight != nullptr ? m_pRight->sizeHint().width() : 0;
    const int nLeft = m_bar.width() - nInForce - nRight - kGaps * metrics.averageCharWidth();
    const int nBest = metrics.horizontalAdvance(lblBest->text());
    const bool bBest = (lblTrouble->text().isEmpty() || m_bWarning) && !lblBest->text().isEmpty()
                       && nBest <= nLeft;
    // A few words of a warning at least, or nothing: the tooltip of what is in force has it too.
    const int nWarning = bBest ? nLeft - nBest - kGaps * metrics.averageCharWidth() : nLeft;
    const int nLeast = 2 * kGaps * metrics.averageCharWidth();
    lblTrouble->setMaximumWidth(m_bWarning ? std::max(nWarning, nLeast)
                                           : std::max(nLeft, m_bar.width() / 3));
    lblTrouble->setVisible(!lblTrouble->text().isEmpty() && (!m_bWarning || nWarning >= nLeast));
    lblBest->setVisible(bBest);
}
