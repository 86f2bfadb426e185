#include "ui/map/MapDayMenu.h"

#include "ui/common/MainWindowHost.h"
#include "ui/map/MapDayControl.h"

MapDayMenu::MapDayMenu(MapForm& form, MainWindowHost& host, MapDayControl& day)
    : m_form(form), m_host(host), m_day(day)
{
    form.mnuOverlay->addSeparator();
    for (std::size_t n = 0; n < m_aItems.size(); ++n) {
        QAction* pItem =
            MapForm::ItemMake(form.mnuOverlay, QStringLiteral("mnuOverlayLayer%1").arg(n), {});
        pItem->setCheckable(true);
        connect(pItem, &QAction::triggered, this,
                [&day, n] { day.LayerChoose(static_cast<MapDayLayerKind>(n)); });
        m_aItems.at(n) = pItem;
    }
    connect(form.mnuOverlay, &QMenu::aboutToShow, this, &MapDayMenu::mnuOverlayOpen);
    mnuOverlayOpen();
}

void MapDayMenu::mnuOverlayOpen()
{
    const Settings& settings = m_host.SettingsGet();
    const QString sNeed =
        QString::fromStdString(NeedInForce(settings.m_aNeed, settings.m_sNeedSelected).sName)
            .replace(u'&', QStringLiteral("&&"));
    const std::array<QString, kMapDayLayers> asText{
        tr("Snr of the Frequency"), tr("Best Frequency of the List"),
        tr("Days in Ten for %1").arg(sNeed), tr("Hours Open a Day for %1").arg(sNeed)};
    for (std::size_t n = 0; n < m_aItems.size(); ++n) {
        m_aItems.at(n)->setText(asText.at(n));
        m_aItems.at(n)->setChecked(m_form.mnuOverlayDraw->isChecked()
                                   && m_day.LayerGet() == static_cast<MapDayLayerKind>(n));
    }
}
