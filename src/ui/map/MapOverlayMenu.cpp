#include "ui/map/MapOverlayMenu.h"

#include <QObject>

#include "propagation/PropagationTable.h"
#include "propagation/Request.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/MainWindowHost.h"

QString OverlayHourText(int iHour)
{
    return QString::fromStdString(NumberFormat(static_cast<double>(iHour), "00") + ":00");
}

MapOverlayMenu::MapOverlayMenu(MapForm& form, MainWindowHost& host) : m_form(form), m_host(host)
{
    connect(form.cmdOverlay, &QPushButton::clicked, this,
            [this] { m_form.mnuOverlay->popup(m_form.cmdOverlay->mapToGlobal(QPoint(0, 0))); });
    connect(form.mnuOverlay, &QMenu::aboutToShow, this, &MapOverlayMenu::mnuOverlayOpen);
}

void MapOverlayMenu::SelectionFollow()
{
    if (m_bChosen)
        return;
    const Request input = m_host.TableInputGet();
    const SelectedCell cell = m_host.DataGetSelected();
    const bool bSelected = cell.iHour >= 1 && cell.iHour <= kHourCount && cell.iFrequency >= 1
                           && cell.iFrequency <= input.nData;
    m_choice.iFrequency = bSelected ? cell.iFrequency : 1;
    m_choice.fKhz = input.nData > 0 ? input.FrequencyGet(m_choice.iFrequency)
                                    : m_host.FrequencyGet(m_choice.iFrequency);
    m_choice.iHour = bSelected ? cell.iHour - 1 : UtcNow().nHour;
}

void MapOverlayMenu::mnuOverlayOpen()
{
    SelectionFollow();
    mnuOverlayFrequencyFill();
    mnuOverlayTimeFill();
    m_form.mnuOverlayDraw->setText(
        QObject::tr("Display, %1 Khz, @ %2")
            .arg(QString::fromStdString(NumberFormat(m_choice.fKhz, "0")),
                 OverlayHourText(m_choice.iHour)));
}

void MapOverlayMenu::mnuOverlayFrequencyFill()
{
    constexpr int kShortText = 4;
    m_form.mnuOverlayFrequency->clear();
    m_form.mnuOverlayFrequencyData.clear();
    const Request input = m_host.TableInputGet();
    for (int i = 0; i < input.nData; ++i) {
        QString sText = QString::fromStdString(NumberFormat(input.FrequencyGet(i + 1), "0"));
        if (sText.size() == kShortText)
            sText += QStringLiteral("  ");  // aligns the list
        QAction* pItem = MapForm::ItemMake(
            m_form.mnuOverlayFrequency, QStringLiteral("mnuOverlayFrequencyData%1").arg(i), sText);
        pItem->setCheckable(true);
        pItem->setChecked(i + 1 == m_choice.iFrequency);
        connect(pItem, &QAction::triggered, this, [this, i] { mnuOverlayFrequencyDataClick(i); });
        m_form.mnuOverlayFrequencyData.push_back(pItem);
    }
    m_form.mnuOverlayFrequency->setEnabled(input.nData > 0);
}

void MapOverlayMenu::mnuOverlayTimeFill()
{
    m_form.mnuOverlayTime->clear();
    m_form.mnuOverlayTimeData.clear();
    for (int i = 0; i < kHourCount; ++i) {
        QAction* pItem =
            MapForm::ItemMake(m_form.mnuOverlayTime, QStringLiteral("mnuOverlayTimeData%1").arg(i),
                              OverlayHourText(i));
        pItem->setCheckable(true);
        pItem->setChecked(i == m_choice.iHour);
        connect(pItem, &QAction::triggered, this, [this, i] { mnuOverlayTimeDataClick(i); });
        m_form.mnuOverlayTimeData.push_back(pItem);
    }
}

void MapOverlayMenu::mnuOverlayFrequencyDataClick(int iIndex)
{
    const Request input = m_host.TableInputGet();
    if (iIndex >= input.nData)
        return;  // the table has changed while the menu was open
    m_choice.iFrequency = iIndex + 1;
    m_choice.fKhz = input.FrequencyGet(m_choice.iFrequency);
    ChoiceReport();
}

void MapOverlayMenu::mnuOverlayTimeDataClick(int iHour)
{
    m_choice.iHour = iHour;
    ChoiceReport();
}

void MapOverlayMenu::HourTake(int iHour)
{
    m_choice.iHour = iHour;
    ChoiceKeep();
}

void MapOverlayMenu::FrequencyTake(int iFrequency)
{
    m_choice.iFrequency = iFrequency;
    m_choice.fKhz = m_host.TableInputGet().FrequencyGet(iFrequency);
    ChoiceKeep();
}

/// The main window's selection follows, and so does the line between day and night.
void MapOverlayMenu::ChoiceKeep()
{
    m_bChosen = true;
    m_host.DataSetSelected(m_choice.iFrequency, m_choice.iHour + 1);
    m_form.pctMap->update();
}

void MapOverlayMenu::ChoiceReport()
{
    ChoiceKeep();
    Q_EMIT Chosen();
}
