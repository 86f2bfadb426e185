#include "ui/main/StatusLine.h"

#include <QRegularExpression>
#include <QStatusBar>
#include <utility>

#include "ui/common/ElidedLabel.h"

// What went wrong comes first: where both do not fit, what is in force is cut. The window does not
// grow for either.
StatusLine::StatusLine(QStatusBar& bar, QObject* pParent)
    : QObject(pParent), lblTrouble(new ElidedLabel(&bar)), lblInForce(new ElidedLabel(&bar))
{
    lblTrouble->setObjectName(QStringLiteral("lblTrouble"));
    lblTrouble->setContentsMargins(bar.fontMetrics().averageCharWidth(), 0, 0, 0);
    lblInForce->setObjectName(QStringLiteral("lblInForce"));
    lblInForce->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblInForce->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bar.addWidget(lblTrouble);
    bar.addWidget(lblInForce, 1);
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

void StatusLine::Show(const std::string& sInForce)
{
    const std::string sTrouble = TroubleGet(std::exchange(m_sNotice, {}));
    QString sShown = QString::fromStdString(sInForce);
    lblInForce->setToolTip(sShown);
    // What went wrong comes first where there is no room for both: what stands in brackets goes.
    static const QRegularExpression kBrackets(QStringLiteral(" \\([^)]*\\)"));
    lblInForce->setText(sTrouble.empty() ? sShown : sShown.remove(kBrackets));
    lblTrouble->setText(QString::fromStdString(sTrouble));
    lblTrouble->setVisible(!sTrouble.empty());
    lblTrouble->setToolTip(lblTrouble->text());
}
