#include "ui/common/NeedChooser.h"

#include <QMenu>

#include "system/NumberLib.h"

namespace {

constexpr int kLettersMost = 16;  // the status line has little room

QString EntryText(const Need& need)
{
    return NeedChooser::tr("%1, %2 dB in 1 Hz")
        .arg(QString::fromStdString(need.sName), QString::fromStdString(NumberToText(need.fSnr)));
}

}  // namespace

NeedChooser::NeedChooser(Settings& settings, QWidget* pParent)
    : QToolButton(pParent), m_settings(settings)
{
    setObjectName(QStringLiteral("cmdNeed"));
    setPopupMode(QToolButton::InstantPopup);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setMenu(new QMenu(this));
    connect(menu(), &QMenu::aboutToShow, this, &NeedChooser::MenuFill);
    Show();
}

const Need* NeedChooser::NeedGet() const
{
    return m_settings.m_sNeedSelected.empty()
               ? nullptr
               : NeedFind(m_settings.m_aNeed, m_settings.m_sNeedSelected);
}

void NeedChooser::Show()
{
    const Need* pNeed = NeedGet();
    const QString sName = pNeed != nullptr ? QString::fromStdString(pNeed->sName) : QString();
    const int nRoom = kLettersMost * fontMetrics().averageCharWidth();
    // An ampersand in a name is not a mnemonic.
    setText(pNeed == nullptr ? tr("Need")
                             : fontMetrics()
                                   .elidedText(sName, Qt::ElideRight, nRoom)
                                   .replace(u'&', QStringLiteral("&&")));
    const QString sFor = pNeed == nullptr ? tr("What contacts are for: none chosen")
                                          : tr("What contacts are for: %1").arg(EntryText(*pNeed));
    setToolTip(pNeed == nullptr ? sFor
                                : tr("%1\nCells that meet it have a marked corner").arg(sFor));
    setAccessibleName(sFor);
}

void NeedChooser::ShowInForce()
{
    Show();
    if (NeedGet() == nullptr)
        setText(QString::fromStdString(NeedInForce(m_settings.m_aNeed, {}).sName)
                    .replace(u'&', QStringLiteral("&&")));
}

void NeedChooser::MenuFill()
{
    menu()->clear();
    const Need* pNeed = NeedGet();
    EntryAdd(tr("None"), {}, pNeed == nullptr);
    menu()->addSeparator();
    for (const Need& need : m_settings.m_aNeed)
        EntryAdd(EntryText(need).replace(u'&', QStringLiteral("&&")), need.sName, &need == pNeed);
}

void NeedChooser::EntryAdd(const QString& sText, const std::string& sName, bool bChosen)
{
    QAction* pEntry = menu()->addAction(sText);
    pEntry->setCheckable(true);
    pEntry->setChecked(bChosen);
    connect(pEntry, &QAction::triggered, this, [this, sName] {
        m_settings.m_sNeedSelected = sName;
        Show();
        Q_EMIT Chosen();
    });
}
