#include "ui/main/StatusLine.h"

#include <QEvent>
#include <QRegularExpression>
#include <QStatusBar>
#include <algorithm>
#include <utility>

#include "ui/common/ElidedLabel.h"

// The window does not grow for any of them.
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
}

bool StatusLine::HintSet(const std::string& sHint)
{
    return std::exchange(m_sHint, sHint) != sHint;
}

std::string StatusLine::TroubleGet(const std::string& sNotice) const
{
    for (const std::string* pText : {&m_sHint, &m_sTrouble, &m_sOverlayTrouble})
        if (!pText->empty())
            return *pText;
    return sNotice;
}

void StatusLine::Show(const std::string& sInForce, const std::string& sDetail)
{
    const std::string sTrouble = TroubleGet(std::exchange(m_sNotice, {}));
    const QString sLong = QString::fromStdString(sInForce);
    static const QRegularExpression kBrackets(QStringLiteral(" \\([^)]*\\)"));
    static const QRegularExpression kBuiltIn(QStringLiteral(" \\(built-in[^)]*\\)"));
    const QString sShort =
        QString(sLong).replace(kBuiltIn, QStringLiteral(" built-in")).remove(kBrackets);
    lblInForce->setToolTip(
        sDetail.empty() ? sLong : sLong + QStringLiteral("\n") + QString::fromStdString(sDetail));
    lblInForce->setText(sTrouble.empty() ? sLong : sShort);
    lblInForce->ShorterSet(sShort);
    lblTrouble->setText(QString::fromStdString(sTrouble));
    lblTrouble->setVisible(!sTrouble.empty());
    lblTrouble->setToolTip(lblTrouble->text());
    RoomShare();
}

void StatusLine::BestSet(const std::string& sBest)
{
    lblBest->setText(QString::fromStdString(sBest));
    RoomShare();
}

bool StatusLine::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::Resize)
        RoomShare();
    return QObject::eventFilter(pObject, pEvent);
}

/// What went wrong is cut where it would hide what is in force: its tooltip has all of it.
void StatusLine::RoomShare()
{
    constexpr int kGaps = 10;  // size grip and spaces, in average letters
    const QFontMetrics metrics = m_bar.fontMetrics();
    const int nInForce = metrics.horizontalAdvance(lblInForce->ShorterGet());
    const int nRight = m_pRight != nullptr ? m_pRight->sizeHint().width() : 0;
    const int nLeft = m_bar.width() - nInForce - nRight - kGaps * metrics.averageCharWidth();
    lblTrouble->setMaximumWidth(std::max(nLeft, m_bar.width() / 3));
    lblBest->setVisible(lblTrouble->text().isEmpty() && !lblBest->text().isEmpty()
                        && metrics.horizontalAdvance(lblBest->text()) <= nLeft);
}
