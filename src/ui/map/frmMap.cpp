#include "ui/map/frmMap.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/MathLib.h"
#include "ui/map/MapButtonRow.h"

namespace {

constexpr int kMargin = 10;
constexpr int kPictureSide = 20;
constexpr QSize kSizeAtFirst(1000, 660);  // with the window's frame it fits 1024 x 700
constexpr int kHeightMin = 360;
constexpr int kRightButtons = 3;    // OK, Cancel, Apply
constexpr int kCursorPadding = 12;  // beside the text of the read-out

double EdgeOfSetting(const Settings& settings)
{
    return settings.m_iMapWorldBegins == -180 ? kEdgeDateLine : kEdgeGreenwich;
}

}  // namespace

frmMap::frmMap(MainWindowHost& host, QWidget* pParent) : QWidget(pParent, Qt::Window), m_host(host)
{
    setObjectName(QStringLiteral("frmMap"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Hopcast - World Map"));
    MapMake();
    ButtonsMake();
    MenusMake();
    SignalsConnect();
    KeysConnect();
    hscMap->setFocus();  // not a flag, which would take the arrow keys
    resize(kSizeAtFirst);
}

frmMap::~frmMap() { disconnect(qApp, nullptr, this, nullptr); }

void frmMap::MapMake()
{
    pctFrame = new QFrame(this);
    pctFrame->setObjectName(QStringLiteral("pctFrame"));
    pctFrame->setFrameShape(QFrame::Box);
    pctFrame->move(kMargin, kMargin);
    pctMap = new PctMap(pctFrame);
    pctMap->setObjectName(QStringLiteral("pctMap"));
    pctMap->m_fnLayersPaint = [this](QPainter& painter) { LayersPaint(painter); };
    lblRc = new MarkerLabel(QStringLiteral("Rc"), true, pctMap);
    lblRc->setObjectName(QStringLiteral("lblRc"));
    lblRc->setAccessibleName(QStringLiteral("Receiver"));
    lblTx = new MarkerLabel(QStringLiteral("Tx"), false, pctMap);
    lblTx->setObjectName(QStringLiteral("lblTx"));
    lblTx->setAccessibleName(QStringLiteral("Transmitter"));
    hscMap = new QScrollBar(Qt::Horizontal, pctFrame);
    hscMap->setObjectName(QStringLiteral("hscMap"));
    vscMap = new QScrollBar(Qt::Vertical, pctFrame);
    vscMap->setObjectName(QStringLiteral("vscMap"));
    vscMap->setRange(-840, 840);  // tenths of a degree, to the image's edges
    for (QScrollBar* pBar : {hscMap, vscMap}) {
        pBar->setFocusPolicy(Qt::StrongFocus);
        pBar->installEventFilter(this);
    }
    txtCursor = new QLineEdit(pctFrame);
    txtCursor->setObjectName(QStringLiteral("txtCursor"));
    txtCursor->setAccessibleName(QStringLiteral("Position"));
    txtCursor->setReadOnly(true);
    txtCursor->setFocusPolicy(Qt::NoFocus);
    txtCursor->setAlignment(Qt::AlignCenter);
    txtCursor->resize(0, txtCursor->sizeHint().height());
    txtCursor->hide();
}

QPushButton* frmMap::ButtonMake(const char* sName, const QString& sText)
{
    auto* pButton = new QPushButton(sText, this);
    pButton->setObjectName(QLatin1String(sName));
    pButton->resize(fontMetrics().horizontalAdvance(sText), pButton->sizeHint().height());
    return pButton;
}

QToolButton* frmMap::ToggleMake(const char* sName, const QString& sPicture, const QString& sTip)
{
    auto* pToggle = new QToolButton(this);
    pToggle->setObjectName(QLatin1String(sName));
    pToggle->setCheckable(true);
    pToggle->setIcon(MapPictureGet(sPicture));
    pToggle->setIconSize(QSize(kPictureSide, kPictureSide));
    pToggle->setFocusPolicy(Qt::StrongFocus);
    pToggle->setToolTip(sTip);
    pToggle->setAccessibleName(sTip);
    pToggle->resize(kPictureSide, cmdZoomOff->height());
    return pToggle;
}

void frmMap::ButtonsMake()
{
    cmdZoomIn = ButtonMake("cmdZoomIn", QStringLiteral("Zoom In"));
    cmdZoomOut = ButtonMake("cmdZoomOut", QStringLiteral("Zoom Out"));
    cmdZoomOff = ButtonMake("cmdZoomOff", QStringLiteral("Zoom Off"));
    cmdZoomTxRc = ButtonMake("cmdZoomTxRc", QStringLiteral("Zoom to Transmitter and Receiver"));
    cmdOverlay = ButtonMake("cmdOverlay", {});
    cmdOverlay->setToolTip(QStringLiteral("Display Snr Overlay (Snr vs Range from Rc)"));
    cmdStations = ButtonMake("cmdStations", {});
    cmdStations->setToolTip(QStringLiteral("Display AirMail Stations"));
    for (QPushButton* pButton : {cmdOverlay, cmdStations}) {
        pButton->setAccessibleName(pButton->toolTip());
        pButton->setIconSize(QSize(kPictureSide, kPictureSide));
        pButton->resize(kPictureSide, cmdZoomOff->height());
    }
    chkPath = ToggleMake("chkPath", QStringLiteral("Path"),
                         QStringLiteral("Great-circle path between transmitter and receiver"));
    chkNight = ToggleMake("chkNight", QStringLiteral("Night"),
                          QStringLiteral("Day/night line at the overlay's hour and month"));
    cmdOk = ButtonMake("cmdOk", QStringLiteral("OK"));
    cmdCancel = ButtonMake("cmdCancel", QStringLiteral("Cancel"));
    cmdApply = ButtonMake("cmdApply", QStringLiteral("Apply"));
    for (QPushButton* pButton : {cmdOk, cmdApply})
        pButton->resize(cmdCancel->width(), cmdCancel->height());
    for (const QAbstractButton* pButton : RowGet()) m_aContent.push_back(pButton->width());
    const int nTightest = ButtonRowGet(m_aContent, kRightButtons, 0, 0).nOver;
    // The row scrolls where large fonts need more than the screen has.
    setMinimumSize(std::min(nTightest, screen()->availableGeometry().width() - 4 * kMargin),
                   kHeightMin);
}

std::vector<QAbstractButton*> frmMap::RowGet() const
{
    return {cmdZoomIn, cmdZoomOut, cmdZoomOff, cmdZoomTxRc, cmdOverlay, cmdStations,
            chkPath,   chkNight,   cmdOk,      cmdCancel,   cmdApply};
}

QAction* frmMap::ItemMake(QMenu* pMenu, const char* sName, const QString& sText)
{
    QAction* pItem = pMenu->addAction(sText);
    pItem->setObjectName(QLatin1String(sName));
    return pItem;
}

void frmMap::MenusMake()
{
    const auto MenuMake = [this](const char* sName) {
        auto* pMenu = new QMenu(this);
        pMenu->setObjectName(QLatin1String(sName));
        return pMenu;
    };
    mnuMap = MenuMake("mnuMap");
    mnuMapCenter = ItemMake(mnuMap, "mnuMapCenter", QStringLiteral("Center"));
    mnuMapZoomIn = ItemMake(mnuMap, "mnuMapZoomIn", QStringLiteral("Center, Zoom In"));
    mnuMapZoomOut = ItemMake(mnuMap, "mnuMapZoomOut", QStringLiteral("Center, Zoom Out"));
    mnuOverlay = MenuMake("mnuOverlay");
    mnuOverlayFrequency = mnuOverlay->addMenu(QStringLiteral("Select Frequency"));
    mnuOverlayFrequency->setObjectName(QStringLiteral("mnuOverlayFrequency"));
    mnuOverlayTime = mnuOverlay->addMenu(QStringLiteral("Select Time"));
    mnuOverlayTime->setObjectName(QStringLiteral("mnuOverlayTime"));
    mnuOverlaySeparator = mnuOverlay->addSeparator();
    mnuOverlaySeparator->setObjectName(QStringLiteral("mnuOverlaySeparator"));
    mnuOverlayDraw =
        ItemMake(mnuOverlay, "mnuOverlayDraw", QStringLiteral("Display 1000.0 Khz @ 10:00"));
    mnuOverlayDraw->setCheckable(true);
    mnuStations = MenuMake("mnuStations");
    mnuStation = MenuMake("mnuStation");
    mnuStationSetRc = ItemMake(mnuStation, "mnuStationSetRc", QStringLiteral("Set as Receiver"));
    mnuStationSetTx = ItemMake(mnuStation, "mnuStationSetTx", QStringLiteral("Set as Transmitter"));
}

void frmMap::SignalsConnect()
{
    connect(cmdZoomIn, &QPushButton::clicked, this, &frmMap::cmdZoomInClick);
    connect(cmdZoomOut, &QPushButton::clicked, this, &frmMap::cmdZoomOutClick);
    connect(cmdZoomOff, &QPushButton::clicked, this, &frmMap::cmdZoomOffClick);
    connect(cmdZoomTxRc, &QPushButton::clicked, this, &frmMap::cmdZoomTxRcClick);
    connect(cmdOverlay, &QPushButton::clicked, this, &frmMap::cmdOverlayClick);
    connect(cmdStations, &QPushButton::clicked, this, &frmMap::cmdStationsClick);
    connect(chkPath, &QToolButton::toggled, pctMap, [this] { pctMap->update(); });
    connect(chkNight, &QToolButton::toggled, pctMap, [this] { pctMap->update(); });
    connect(cmdOk, &QPushButton::clicked, this, &frmMap::cmdOkClick);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { close(); });
    connect(cmdApply, &QPushButton::clicked, this, &frmMap::cmdApplyClick);
    connect(hscMap, &QScrollBar::valueChanged, this, &frmMap::hscMapChange);
    connect(vscMap, &QScrollBar::valueChanged, this, &frmMap::vscMapChange);
    connect(pctMap, &PctMap::MouseDown, this, &frmMap::pctMapMouseDown);
    connect(pctMap, &PctMap::MouseMove, this, &frmMap::pctMapMouseMove);
    connect(pctMap, &PctMap::MouseUp, this, &frmMap::pctMapMouseUp);
    connect(pctMap, &PctMap::Wheel, this, &frmMap::pctMapWheel);
    connect(pctMap, &PctMap::DensityChanged, this, &frmMap::OverlayAgain);
    for (QScrollBar* pBar : {hscMap, vscMap})
        connect(pBar, &QScrollBar::actionTriggered, this,
                [this, pBar](int nAction) { BarAct(pBar, nAction); });
    connect(txtCursor, &QLineEdit::textChanged, this, &frmMap::CursorFit);
    constexpr int kPause = 250;  // ms
    m_tmrOverlay.setInterval(kPause);
    m_tmrOverlay.setSingleShot(true);
    connect(&m_tmrOverlay, &QTimer::timeout, this, &frmMap::OverlayAgain);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*pOld*/, QWidget* pNow) { ButtonShow(pNow); });
    MarkersConnect();
    connect(mnuMapCenter, &QAction::triggered, this, [this] { mnuMapZoom(1.0); });
    connect(mnuMapZoomIn, &QAction::triggered, this, [this] { mnuMapZoom(0.5); });
    connect(mnuMapZoomOut, &QAction::triggered, this, [this] { mnuMapZoom(2.0); });
    connect(mnuOverlay, &QMenu::aboutToShow, this, &frmMap::mnuOverlayOpen);
    connect(mnuOverlayDraw, &QAction::triggered, this, [this](bool bNow) {
        mnuOverlayDraw->setChecked(!bNow);  // as it was when the user chose it
        mnuOverlayDrawClick();
    });
    // A menu hides before its item acts; the symbols are to follow both.
    connect(mnuStations, &QMenu::aboutToHide, this, &frmMap::StationsDraw, Qt::QueuedConnection);
    connect(mnuStationSetRc, &QAction::triggered, this, [this] { mnuStationSet(m_posRc); });
    connect(mnuStationSetTx, &QAction::triggered, this, [this] { mnuStationSet(m_posTx); });
}

void frmMap::MarkersConnect()
{
    for (MarkerLabel* pMarker : {lblRc, lblTx}) {
        LatLon& pos = pMarker == lblRc ? m_posRc : m_posTx;
        connect(pMarker, &MarkerLabel::MouseDown, this, [this, pMarker, &pos](QMouseEvent* pEvent) {
            MarkerMouseDown(pMarker, pos, pEvent);
        });
        connect(pMarker, &MarkerLabel::MouseMove, this, [this, pMarker, &pos](QMouseEvent* pEvent) {
            MarkerMouseMove(pMarker, pos, pEvent);
        });
        connect(pMarker, &MarkerLabel::MouseUp, this, [this, pMarker, &pos](QMouseEvent* pEvent) {
            MarkerMouseUp(pMarker, pos, pEvent);
        });
        connect(pMarker, &MarkerLabel::KeyMove, this, [this, pMarker, &pos](int nByX, int nByY) {
            MarkerKeyMove(pMarker, pos, nByX, nByY);
        });
        connect(pMarker, &MarkerLabel::FocusLeft, txtCursor, &QWidget::hide);
        setTabOrder(cmdApply, pMarker);
    }
}

void frmMap::LayoutSet()
{
    const int nTop = height() - cmdZoomOff->height() - kMargin;
    ButtonsPlace(nTop);
    pctFrame->resize(width() - 2 * pctFrame->x(), nTop - pctFrame->y() - kMargin);
    FrameFill();
}

void frmMap::ButtonsPlace(int nTop)
{
    const ButtonRow row = ButtonRowGet(m_aContent, kRightButtons, width(), m_nRowShift);
    m_nRowShift = std::clamp(m_nRowShift, 0, row.nOver);
    std::size_t i = 0;
    for (QAbstractButton* pButton : RowGet()) {
        const ButtonPlace& plc = row.aPlaces[i++];
        pButton->setGeometry(plc.nLeft, nTop, plc.nWidth, pButton->height());
    }
}

/// Scrolls the row of buttons, where it is wider than the window, to the one that has the focus.
void frmMap::ButtonShow(const QWidget* pButton)
{
    for (const QAbstractButton* pInRow : RowGet())
        if (pInRow == pButton) {
            const int nBeyond = pButton->geometry().right() + kMargin - width();
            m_nRowShift += nBeyond > 0 ? nBeyond : std::min(pButton->x() - kMargin, 0);
            ButtonsPlace(pButton->y());
        }
}

void frmMap::wheelEvent(QWheelEvent* pEvent)
{
    m_nRowShift -= pEvent->angleDelta().y() / 2;
    ButtonsPlace(cmdZoomOff->y());
    pEvent->accept();
}

void frmMap::FrameFill()
{
    const QRect rctInner = pctFrame->contentsRect();
    const int nStripX = vscMap->sizeHint().width();
    const int nStripY = hscMap->sizeHint().height();
    m_view.m_nMapWidth = std::max(rctInner.width() - nStripX, 1);
    m_view.m_nMapHeight = std::max(rctInner.height() - nStripY, 1);
    pctMap->setGeometry(rctInner.x() + m_view.m_nOffsetX, rctInner.y() + m_view.m_nOffsetY,
                        m_view.m_nMapWidth, m_view.m_nMapHeight);
    hscMap->setGeometry(pctMap->x(), pctMap->geometry().bottom() + 1, m_view.m_nMapWidth, nStripY);
    vscMap->setGeometry(pctMap->geometry().right() + 1, pctMap->y(), nStripX, m_view.m_nMapHeight);
    CursorFit();
    txtCursor->raise();
}

/// The read-out is as wide as its text and stands in the middle of the map's upper edge.
void frmMap::CursorFit()
{
    const int nText = txtCursor->fontMetrics().horizontalAdvance(txtCursor->text());
    const int nMost = std::max(m_view.m_nMapWidth - 2 * kMargin, 1);
    txtCursor->resize(std::min(nText + 2 * kCursorPadding, nMost), txtCursor->height());
    txtCursor->move(pctMap->x() + (m_view.m_nMapWidth - txtCursor->width()) / 2,
                    pctMap->y() + kMargin);
}

void frmMap::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    LayoutSet();
    if (!m_bActivated)
        return;
    ViewRestore();
    OverlayLater();
}

void frmMap::closeEvent(QCloseEvent* pEvent)
{
    OverlayFailedSet({});
    QWidget::closeEvent(pEvent);
}

void frmMap::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    if (!m_bActivated)
        Activate();
}

void frmMap::Activate()
{
    cmdOverlay->setIcon(MapPictureGet(QStringLiteral("Overlay")));
    cmdStations->setIcon(MapPictureGet(QStringLiteral("Stations")));
    LocationsTake();
    OverlayFollowSelection();
    LayoutSet();
    m_bActivated = true;
    m_dEdgeSetting = m_view.m_dEdge = EdgeOfSetting(m_host.SettingsGet());
    ViewSet(m_view.BoxGetWhole());
}

/// A setting that Options has changed moves the edge of the world; a view of this window's own
/// stays as long as it has not.
void frmMap::EdgeFollowSetting()
{
    const double dEdge = EdgeOfSetting(m_host.SettingsGet());
    if (dEdge == m_dEdgeSetting)
        return;
    m_dEdgeSetting = dEdge;
    if (dEdge == m_view.m_dEdge)
        return;
    const MapZoom zoom = m_view.EdgeGetZoom(dEdge);
    m_view.m_dEdge = dEdge;
    m_view.ZoomSet(zoom);
    m_bAskedBox = false;
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
    EdgeFollowSetting();
    ViewPaint();
    if (mnuOverlayDraw->isChecked())
        OverlayShow();
}

/// A marker that was dragged beyond a pole has no place; txtCursor says so.
bool frmMap::MarkersCheck()
{
    for (const auto& [sEnd, pos] : {std::pair("receiver", m_posRc), {"transmitter", m_posTx}}) {
        if (PositionInRange(pos.dLat, pos.dLon))
            continue;
        const bool bLat = std::abs(pos.dLat) > kLatitudeMost;
        txtCursor->setText((bLat ? QStringLiteral("Not set: latitude of %1 beyond 90°")
                                 : QStringLiteral("Not set: longitude of %1 beyond 180°"))
                               .arg(QLatin1String(sEnd)));
        txtCursor->show();
        return false;
    }
    txtCursor->hide();
    return true;
}

void frmMap::cmdApplyClick() { Apply(); }

/// @return false when nothing was handed over
bool frmMap::Apply()
{
    if (!MarkersCheck())
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
