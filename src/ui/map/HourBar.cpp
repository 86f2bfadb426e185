#include "ui/map/HourBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>

#include "system/NumberLib.h"

bool HourCombo::event(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::ShortcutOverride) {
        const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
        if (nKey == Qt::Key_Up || nKey == Qt::Key_Down) {
            pEvent->accept();
            return true;
        }
    }
    return QComboBox::event(pEvent);
}

HourBar::HourBar(QWidget* pParent)
    : QWidget(pParent),
      cmdPlay(new QToolButton(this)),
      hscHour(new HourSlider(this)),
      lblHour(new QLabel(this)),
      cmbFrequency(new HourCombo(this)),
      lblWork(new QLabel(this))
{
    setObjectName(QStringLiteral("barHour"));
    cmdPlay->setObjectName(QStringLiteral("cmdPlay"));
    cmdPlay->setFocusPolicy(Qt::NoFocus);  // Space on the hours does the same
    lblHour->setObjectName(QStringLiteral("lblHour"));
    cmbFrequency->setObjectName(QStringLiteral("cmbFrequency"));
    cmbFrequency->setAccessibleName(tr("Frequency of the map"));
    cmbFrequency->setToolTip(tr("The frequency that the map shows"));
    cmbFrequency->setSizeAdjustPolicy(QComboBox::AdjustToContents);  // it is filled later
    lblWork->setObjectName(QStringLiteral("lblWork"));
    auto* pRow = new QHBoxLayout(this);
    pRow->setContentsMargins(0, 0, 0, 0);
    pRow->addWidget(cmdPlay);
    pRow->addWidget(hscHour, 1);
    for (QWidget* pWidget : {static_cast<QWidget*>(lblHour), static_cast<QWidget*>(cmbFrequency),
                             static_cast<QWidget*>(lblWork)})
        pRow->addWidget(pWidget);
    setFocusProxy(hscHour);
    connect(cmdPlay, &QToolButton::clicked, this, &HourBar::PlayRequested);
    connect(hscHour, &HourSlider::PlayRequested, this, &HourBar::PlayRequested);
    connect(hscHour, &HourSlider::valueChanged, this, &HourBar::HourChosen);
    connect(hscHour, &HourSlider::FrequencyStep, this, &HourBar::FrequencyStep);
    connect(cmbFrequency, &QComboBox::currentIndexChanged, this, [this](int iFrequency) {
        if (iFrequency >= 0)
            Q_EMIT FrequencyChosen(static_cast<std::size_t>(iFrequency));
    });
    PlayShow(false);
    WorkShow({});
    resize(sizeHint());
}

void HourBar::HourShow(int iHour, int iTimeCode)
{
    const HourLabels asHour = HourLabelsGet(iTimeCode);
    hscHour->LabelsSet(asHour);
    hscHour->HourShow(iHour);
    lblHour->setText(HourTimeGet(asHour.at(static_cast<std::size_t>(iHour))) + u' '
                     + HourZoneGet(iTimeCode));
    hscHour->setAccessibleDescription(lblHour->text());
}

void HourBar::FrequenciesShow(const std::vector<float>& afFrequency, std::size_t iShown)
{
    const QSignalBlocker blocker(cmbFrequency);
    if (afFrequency != m_afFrequency) {
        m_afFrequency = afFrequency;
        cmbFrequency->clear();
        for (const float fKhz : afFrequency)
            cmbFrequency->addItem(
                tr("%1 kHz").arg(QString::fromStdString(NumberFormat(fKhz, "0"))));
    }
    cmbFrequency->setCurrentIndex(static_cast<int>(iShown));
}

void HourBar::FrequencyEnable(bool bEnable) { cmbFrequency->setEnabled(bEnable); }

void HourBar::FrequencyStep(int nBy)
{
    const int iFrequency = cmbFrequency->currentIndex() + nBy;
    if (cmbFrequency->isEnabled() && iFrequency >= 0 && iFrequency < cmbFrequency->count())
        cmbFrequency->setCurrentIndex(iFrequency);
}

void HourBar::PlayShow(bool bPlaying)
{
    cmdPlay->setIcon(
        style()->standardIcon(bPlaying ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    cmdPlay->setAccessibleName(bPlaying ? tr("Pause") : tr("Play"));
    cmdPlay->setToolTip(bPlaying ? tr("Pause (Space)") : tr("Play the day (Space)"));
}

void HourBar::WorkShow(const QString& sText)
{
    if (lblWork->text() == sText && lblWork->isHidden() == sText.isEmpty())
        return;
    lblWork->setText(sText);
    lblWork->setVisible(!sText.isEmpty());
}
