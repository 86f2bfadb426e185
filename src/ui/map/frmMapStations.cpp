// Airmail's stations on the map window.
#include "airmail/AirMailStations.h"
#include "system/MsgLib.h"
#include "system/TextLib.h"
#include "ui/map/frmMap.h"

namespace {

/// Station lists are the user's files: an ampersand is no mnemonic, a "<" no markup.
QString MenuText(const std::string& sText)
{
    return QString::fromStdString(TextForMessage(sText))
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QString TipText(const QString& sText)
{
    return Qt::mightBeRichText(sText) ? sText.toHtmlEscaped() : sText;
}

}  // namespace

void frmMap::cmdStationsClick()
{
    if (const Result<void> resLoaded = StationsLoad(); !resLoaded)
        MsgBox(MsgIcon::None, "Airmail's stations: " + resLoaded.TextGet());
    if (m_nSystem > 0)
        mnuStations->popup(cmdStations->mapToGlobal(QPoint(0, 0)));
}

/// @return the first error that no box has told; the stations that have none are loaded all the
///         same.
Result<void> frmMap::StationsLoad()
{
    if (m_nSystem > 0)
        return {};
    TextList asSystem;
    Messages aMessages;
    if (!AirMailGetSystems(m_nSystem, asSystem, &aMessages)) {
        MsgShow(aMessages);
        return {};
    }
    Result<void> resFirst;
    for (int i = 1; i <= m_nSystem; ++i) {
        QAction* pItem =
            ItemMake(mnuStations, ("mnuStationsSystem" + std::to_string(i - 1)).c_str(),
                     QStringLiteral(" Display %1 Stations").arg(MenuText(asSystem[i])));
        pItem->setCheckable(true);
        mnuStationsSystem.push_back(pItem);
        const Result<void> resSystem = SystemLoad(asSystem[i], i);
        if (!resSystem && resFirst)
            resFirst = resSystem;
    }
    return resFirst;
}

Result<void> frmMap::SystemLoad(const std::string& sSystem, int iSystem)
{
    int nStation = 0;
    TextList asKey;
    Messages aMessages;
    if (!AirMailGetStations(sSystem, nStation, asKey, &aMessages)) {
        MsgShow(aMessages);
        return {};
    }
    Result<void> resFirst;
    for (int i = 1; i <= nStation; ++i) {
        MapStation station;
        station.iSystem = iSystem;
        const Result<bool> resPosition =
            AirMailStationPosition(sSystem, asKey[i], station.dLat, station.dLon, false, aMessages);
        if (!resPosition && resFirst)
            resFirst = resPosition.ErrorGet();
        if (!resPosition || !resPosition.ValueGet())
            continue;
        const std::string sDescription = AirMailStationDescription(sSystem, asKey[i], nullptr);
        StationAdd(station, QString::fromStdString(TextForMessage(
                                sDescription.empty() ? asKey[i] : asKey[i] + ", " + sDescription)));
    }
    MsgShow(aMessages);
    return resFirst;
}

void frmMap::StationAdd(const MapStation& station, const QString& sTip)
{
    m_aStation.push_back(station);
    const int iStation = static_cast<int>(m_aStation.size());
    auto* pDot = new StationDot(station.iSystem, pctMap);
    pDot->setObjectName(QStringLiteral("imgStation%1").arg(iStation - 1));
    pDot->setToolTip(TipText(sTip));
    pDot->setAccessibleName(sTip);
    pDot->hide();
    connect(pDot, &StationDot::MouseUp, this,
            [this, iStation](QMouseEvent* pEvent) { imgStationMouseUp(iStation, pEvent); });
    imgStation.push_back(pDot);
}

void frmMap::StationsDraw()
{
    bool bAnyShown = false;
    for (std::size_t i = 0; i < m_aStation.size(); ++i) {
        const MapStation& station = m_aStation[i];
        StationDot* pDot = imgStation[i];
        const bool bShown =
            mnuStationsSystem[static_cast<std::size_t>(station.iSystem - 1)]->isChecked();
        const QPoint pt = LatLonGetPoint(station.dLat, station.dLon);
        pDot->move(pt.x() - pDot->width() / 2, pt.y() - pDot->height() / 2);
        pDot->setVisible(bShown);
        bAnyShown = bAnyShown || bShown;
    }
    // Symbols stay clickable where they overlap a marker.
    for (MarkerLabel* pMarker : {lblRc, lblTx}) {
        if (bAnyShown)
            pMarker->lower();
        else
            pMarker->raise();
    }
}

void frmMap::imgStationMouseUp(int iStation, const QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::RightButton)
        return;
    m_iStation = iStation;
    mnuStation->popup(pEvent->globalPosition().toPoint());
}

void frmMap::mnuStationSet(LatLon& pos)
{
    if (m_iStation < 1 || m_iStation > static_cast<int>(m_aStation.size()))
        return;
    const MapStation& station = m_aStation[static_cast<std::size_t>(m_iStation - 1)];
    pos = {station.dLat, station.dLon};
    DrawRc();
    DrawTx();
    pctMap->update();
    if (&pos == &m_posRc)
        OverlayLater();
}
