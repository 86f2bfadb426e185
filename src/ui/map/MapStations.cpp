#include "ui/map/MapStations.h"

#include <QMouseEvent>

#include "airmail/AirMailStations.h"
#include "system/MsgLib.h"
#include "system/TextLib.h"
#include "ui/common/Words.h"
#include "ui/map/MapMarkers.h"

namespace {

/// Station lists are the user's files: an ampersand is not a mnemonic, a "<" is not markup.
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

MapStations::MapStations(MapForm& form, MapMarkers& markers) : m_form(form), m_markers(markers)
{
    connect(form.cmdStations, &QPushButton::clicked, this, &MapStations::cmdStationsClick);
    // A menu hides before its item is triggered; the symbols must follow both.
    connect(form.mnuStations, &QMenu::aboutToHide, this, &MapStations::StationsDraw,
            Qt::QueuedConnection);
    connect(form.mnuStationSetRc, &QAction::triggered, this,
            [this] { mnuStationSet(m_form.lblRc); });
    connect(form.mnuStationSetTx, &QAction::triggered, this,
            [this] { mnuStationSet(m_form.lblTx); });
}

void MapStations::cmdStationsClick()
{
    if (const Result<void> resLoaded = StationsLoad(); !resLoaded)
        MsgBox(MsgIcon::None, WordsPut(tr("Airmail's stations: %1"), resLoaded.TextGet()));
    if (m_nSystem > 0)
        m_form.mnuStations->popup(m_form.cmdStations->mapToGlobal(QPoint(0, 0)));
}

/// @return the first error not yet shown in a message box; stations without errors are loaded all
/// the same
Result<void> MapStations::StationsLoad()
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
            MapForm::ItemMake(m_form.mnuStations, QStringLiteral("mnuStationsSystem%1").arg(i - 1),
                              QObject::tr(" Display %1 Stations").arg(MenuText(asSystem[i])));
        pItem->setCheckable(true);
        m_form.mnuStationsSystem.push_back(pItem);
        const Result<void> resSystem = SystemLoad(asSystem[i], i);
        if (!resSystem && resFirst)
            resFirst = resSystem;
    }
    Q_EMIT Loaded();
    return resFirst;
}

Result<void> MapStations::SystemLoad(const std::string& sSystem, int iSystem)
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
        station.sSystem = sSystem;
        station.sKey = asKey[i];
        const Result<bool> resPosition = AirMailStationPosition(sSystem, asKey[i], station.pos.dLat,
                                                                station.pos.dLon, false, aMessages);
        if (!resPosition && resFirst)
            resFirst = resPosition.ErrorGet();
        if (!resPosition || !resPosition.ValueGet())
            continue;
        const std::string sDescription = AirMailStationDescription(sSystem, asKey[i], nullptr);
        station.sTip = QString::fromStdString(
            TextForMessage(sDescription.empty() ? asKey[i] : asKey[i] + ", " + sDescription));
        StationAdd(station);
    }
    MsgShow(aMessages);
    return resFirst;
}

void MapStations::StationAdd(const MapStation& station)
{
    m_aStation.push_back(station);
    const int iStation = static_cast<int>(m_aStation.size());
    auto* pDot = new StationDot(station.iSystem, m_form.pctMap);
    pDot->setObjectName(QStringLiteral("imgStation%1").arg(iStation - 1));
    pDot->setToolTip(TipText(station.sTip));
    pDot->setAccessibleName(station.sTip);
    pDot->hide();
    connect(pDot, &StationDot::Entered, this,
            [this, iStation] { Q_EMIT Reached(static_cast<std::size_t>(iStation - 1)); });
    connect(pDot, &StationDot::MouseUp, this,
            [this, iStation](QMouseEvent* pEvent) { imgStationMouseUp(iStation, pEvent); });
    m_form.imgStation.push_back(pDot);
}

void MapStations::StationShow(std::size_t iStation, const QColor& clrSymbol, const QString& sMore)
{
    m_form.imgStation[iStation]->ColorSet(clrSymbol);
    TipShow(iStation, sMore);
}

void MapStations::TipShow(std::size_t iStation, const QString& sMore)
{
    const QString sAll = m_aStation[iStation].sTip + (sMore.isEmpty() ? QString() : u'\n' + sMore);
    StationDot& dot = *m_form.imgStation[iStation];
    dot.setToolTip(TipText(sAll).replace(
        u'\n', Qt::mightBeRichText(sAll) ? QStringLiteral("<br>") : QStringLiteral("\n")));
    dot.setAccessibleName(sAll);
}

void MapStations::StationsDraw()
{
    bool bAnyShown = false;
    for (std::size_t i = 0; i < m_aStation.size(); ++i) {
        const MapStation& station = m_aStation[i];
        StationDot* pDot = m_form.imgStation[i];
        const bool bShown =
            m_form.mnuStationsSystem[static_cast<std::size_t>(station.iSystem - 1)]->isChecked();
        const QPoint pt = m_form.LatLonGetPoint(station.pos.dLat, station.pos.dLon);
        pDot->move(pt.x() - pDot->width() / 2, pt.y() - pDot->height() / 2);
        pDot->setVisible(bShown);
        bAnyShown = bAnyShown || bShown;
    }
    // Symbols that overlap a marker can still be clicked.
    for (MarkerLabel* pMarker : {m_form.lblRc, m_form.lblTx}) {
        if (bAnyShown)
            pMarker->lower();
        else
            pMarker->raise();
    }
}

void MapStations::imgStationMouseUp(int iStation, const QMouseEvent* pEvent)
{
    const StationDot* pDot = m_form.imgStation[static_cast<std::size_t>(iStation - 1)];
    const bool bClick =
        pEvent->button() == Qt::LeftButton && pDot->rect().contains(pEvent->position().toPoint());
    if (pEvent->button() != Qt::RightButton && !bClick)
        return;
    m_iStation = iStation;
    if (bClick)
        return mnuStationSet(m_form.lblTx);
    m_form.mnuStation->popup(pEvent->globalPosition().toPoint());
}

void MapStations::mnuStationSet(MarkerLabel* pMarker)
{
    if (m_iStation >= 1 && m_iStation <= static_cast<int>(m_aStation.size()))
        m_markers.PlaceSet(pMarker, m_aStation[static_cast<std::size_t>(m_iStation - 1)].pos);
}
