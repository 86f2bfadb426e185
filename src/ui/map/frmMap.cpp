#include "ui/map/frmMap.h"

#include <QPointer>
#include <memory>
#include <utility>

#include "ui/map/MapDayLayer.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapMarkLayers.h"
#include "ui/map/MapOverlayLayer.h"
#include "ui/map/MapSkyLayers.h"
#include "ui/map/WorldImage.h"

namespace {

constexpr QSize kSizeAtFirst(1000, 660);  // fits 1024 x 700 with the window's frame

}  // namespace

frmMap::frmMap(MainWindowHost& host, MapEngineFn fnEngine, QWidget* pParent)
    : QWidget(pParent, Qt::Window),
      MapForm(this),
      m_host(host),
      m_layout(*this, *this),
      m_navigation(*this),
      m_bars(*this, m_navigation),
      m_markers(*this),
      m_mouse(*this, m_navigation, m_markers, m_layers),
      m_stations(*this, m_markers),
      m_overlayMenu(*this, host),
      m_reach(*this, m_stations, host, m_overlayMenu),
      m_overlay(*this, host, m_overlayMenu),
      m_day(*this, host, m_overlayMenu, m_overlay, fnEngine),
      m_dayMenu(*this, host, m_day),
      m_export(*this, *this, host, m_overlay, m_day),
      m_keys(*this, *this, m_navigation, m_mouse, m_day)
{
    setObjectName(QStringLiteral("frmMap"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QObject::tr("Hopcast - World Map"));
    m_reach.EnginesSet(std::move(fnEngine));
    PartsConnect();
    LayersAdd();
    pctMap->setFocus();  // not a flag, which would take the arrow keys
    resize(kSizeAtFirst);
}

void frmMap::PartsConnect()
{
    connect(cmdOk, &QPushButton::clicked, this, &frmMap::cmdOkClick);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { close(); });
    connect(cmdApply, &QPushButton::clicked, this, &frmMap::Apply);
    connect(&m_navigation, &MapNavigation::ViewChanged, this, &frmMap::ViewPaint);
    connect(&m_markers, &MapMarkers::MenuRequested, &m_navigation, &MapNavigation::mnuMapShow);
    connect(&m_overlay, &MapOverlayControl::PictureNeeded, this, &frmMap::ViewPaint);
    // The overlay is for the receiver; the transmitter does not change it.
    connect(&m_markers, &MapMarkers::ReceiverMoved, &m_overlay, &MapOverlayControl::Later);
    connect(&m_markers, &MapMarkers::ReceiverDropped, this, [this] {
        if (m_overlay.IsShown())
            OverlayAgain();
    });
    connect(&m_mouse, &MapMouse::ViewMoved, &m_overlay, &MapOverlayControl::Later);
    connect(&m_overlay, &MapOverlayControl::Due, this, &frmMap::OverlayAgain);
    connect(pctMap, &PctMap::DensityChanged, this, &frmMap::OverlayAgain);
    connect(&m_day, &MapDayControl::PictureNeeded, this, &frmMap::ViewPaint);
    connect(&m_day, &MapDayControl::Painted, this, [this] { m_mouse.PictureForget(); });
    connect(&m_day, &MapDayControl::BarShown, this, [this] {
        m_layout.LayoutSet();
        m_navigation.ViewFit();
    });
    connect(&m_navigation, &MapNavigation::ViewChanged, this, [this] {
        if (m_day.IsOn())
            m_overlay.Later();
    });
}

/// The lowest first; the tips are composed in the same order.
void frmMap::LayersAdd()
{
    m_layers.Add(std::make_unique<TwilightLayer>(*this, m_host, m_overlayMenu));
    m_layers.Add(std::make_unique<NightLayer>(*this, m_host, m_overlayMenu));
    m_layers.Add(std::make_unique<PathLayer>(*this));
    m_layers.Add(std::make_unique<ScaleBarLayer>(m_view));
    m_layers.Add(std::make_unique<MapOverlayLayer>(*this, m_host, m_overlay));
    m_layers.Add(std::make_unique<MapDayLayer>(*this, m_day));
    m_layers.Add(std::make_unique<EdgeArrowLayer>(*this));
    for (QToolButton* pToggle : {chkPath, chkNight, chkTwilight})
        connect(pToggle, &QToolButton::toggled, pctMap, [this] { pctMap->update(); });
}

/// Paints the view without changing it.
void frmMap::ViewPaint()
{
    m_mouse.PictureForget();
    m_overlay.PictureForget();
    m_day.PictureForget();
    pctMap->PictureSize();
    if (m_view.IsBeyondImage())
        pctMap->m_img.fill(kMapBackground);
    WorldImagePaint(pctMap->m_img, m_view.m_rctSource, m_view.m_dEdge);
    m_bars.ViewFollow();
    pctMap->m_bOverlay = m_overlay.IsShown();
    if (m_overlay.IsShown())
        m_overlay.MapOutline();
    GraticulePaint(pctMap->m_img, m_view, m_overlay.IsShown(), font());
    m_stations.StationsDraw();
    DrawRc();
    DrawTx();
    setWindowTitle(QObject::tr("Hopcast - World Map"));
    pctMap->update();
}

/// Renews the view's picture, and the overlay if it is shown; not while the mouse is in use.
void frmMap::OverlayAgain()
{
    if (m_overlay.IsShown() && m_mouse.IsBusy()) {
        m_overlay.Later();
        return;
    }
    ViewPaint();
    if (m_day.IsOn())
        m_day.Show();
    else if (m_overlay.IsShown())
        m_overlay.Show();
}

void frmMap::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    m_layout.LayoutSet();
    if (!m_bActivated)
        return;
    m_navigation.ViewRestore();
    m_overlay.Later();
}

void frmMap::closeEvent(QCloseEvent* pEvent)
{
    m_overlay.FailureForget();
    QWidget::closeEvent(pEvent);
}

void frmMap::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    if (!m_bActivated)
        Activate();
}

void frmMap::wheelEvent(QWheelEvent* pEvent)
{
    m_layout.RowScroll(-pEvent->angleDelta().y() / 2);
    pEvent->accept();
}

void frmMap::Activate()
{
    cmdOverlay->setIcon(MapPictureGet(QStringLiteral("Overlay")));
    cmdStations->setIcon(MapPictureGet(QStringLiteral("Stations")));
    LocationsTake();
    m_overlayMenu.SelectionFollow();
    m_layout.LayoutSet();
    m_bActivated = true;
    pctMap->m_fnLayersPaint = [this](QPainter& painter) { m_layers.Paint(painter); };
    m_navigation.WorldShow(m_host.SettingsGet());
}

void frmMap::LocationsTake()
{
    const Settings& settings = m_host.SettingsGet();
    m_posRc = {settings.m_dRcLat, settings.m_dRcLon};
    m_posTx = {settings.m_dTxLat, settings.m_dTxLon};
}

void frmMap::Update()
{
    if (!m_bActivated)
        return;
    LocationsTake();
    m_navigation.EdgeFollowSetting(m_host.SettingsGet());
    m_reach.Show();
    OverlayAgain();
}

/// @return false if nothing was applied
bool frmMap::Apply()
{
    if (!m_markers.PlacesCheck())
        return false;
    Settings& settings = m_host.SettingsGet();
    settings.m_dRcLat = m_posRc.dLat;
    settings.m_dRcLon = m_posRc.dLon;
    settings.m_dTxLat = m_posTx.dLat;
    settings.m_dTxLon = m_posTx.dLon;
    m_host.Update();
    return true;
}

void frmMap::cmdOkClick()
{
    const QPointer<frmMap> pThis(this);  // the user may close the window during the update
    if (Apply() && pThis)
        close();
}
