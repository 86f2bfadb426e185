#include "ui/map/frmMap.h"

#include <QPointer>
#include <QShortcut>
#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/MathLib.h"

namespace {

constexpr int kMargin = 10;
constexpr int kButtonGap = 6;
constexpr int kButtonPadding = 10;  // beside the text of a button
constexpr int kPictureSide = 20;
constexpr QSize kSizeAtFirst(1000, 660);  // with the window's frame it fits 1024 x 700
constexpr int kHeightMin = 360;
constexpr int kCursorWidth = 46;  // characters of the position read-out

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
    resize(kSizeAtFirst);
}

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
    hscMap->setRange(0, 3600);  // tenths of a degree
    vscMap = new QScrollBar(Qt::Vertical, pctFrame);
    vscMap->setObjectName(QStringLiteral("vscMap"));
    vscMap->setRange(-900, 900);
    for (QScrollBar* pBar : {hscMap, vscMap}) {
        pBar->setSingleStep(10);
        pBar->setPageStep(100);
        pBar->setFocusPolicy(Qt::StrongFocus);
    }
    txtCursor = new QLineEdit(pctFrame);
    txtCursor->setObjectName(QStringLiteral("txtCursor"));
    txtCursor->setAccessibleName(QStringLiteral("Position"));
    txtCursor->setReadOnly(true);
    txtCursor->setFocusPolicy(Qt::NoFocus);
    txtCursor->setAlignment(Qt::AlignCenter);
    txtCursor->resize(fontMetrics().averageCharWidth() * kCursorWidth,
                      txtCursor->sizeHint().height());
    txtCursor->hide();
}

QPushButton* frmMap::ButtonMake(const char* sName, const QString& sText)
{
    auto* pButton = new QPushButton(sText, this);
    pButton->setObjectName(QLatin1String(sName));
    pButton->resize(fontMetrics().horizontalAdvance(sText) + 2 * kButtonPadding,
                    pButton->sizeHint().height());
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
    pToggle->resize(kPictureSide + 2 * kButtonPadding, cmdZoomOff->height());
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
        pButton->resize(kPictureSide + 2 * kButtonPadding, cmdZoomOff->height());
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
    int nWidth = 2 * kMargin - kButtonGap;
    for (const QAbstractButton* pButton : RowGet()) nWidth += pButton->width() + kButtonGap;
    setMinimumSize(nWidth + kMargin, kHeightMin);
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
    for (MarkerLabel* pMarker : {lblRc, lblTx}) {
        LatLon& pos = pMarker == lblRc ? m_posRc : m_posTx;
        connect(pMarker, &MarkerLabel::MouseDown, this, &frmMap::MarkerMouseDown);
        connect(pMarker, &MarkerLabel::MouseMove, this, [this, pMarker, &pos](QMouseEvent* pEvent) {
            MarkerMouseMove(pMarker, pos, pEvent);
        });
        connect(pMarker, &MarkerLabel::MouseUp, this,
                [this, pMarker](QMouseEvent* pEvent) { MarkerMouseUp(pMarker, pEvent); });
    }
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

void frmMap::KeysConnect()
{
    const auto KeyConnect = [this](Qt::Key eKey, const std::function<void()>& fnAct) {
        auto* pKey = new QShortcut(QKeySequence(eKey), this);
        connect(pKey, &QShortcut::activated, this, fnAct);
    };
    KeyConnect(Qt::Key_Left, [this] { ScrollByKey(hscMap, false); });
    KeyConnect(Qt::Key_Right, [this] { ScrollByKey(hscMap, true); });
    KeyConnect(Qt::Key_Up, [this] { ScrollByKey(vscMap, false); });
    KeyConnect(Qt::Key_Down, [this] { ScrollByKey(vscMap, true); });
    KeyConnect(Qt::Key_Plus, [this] { cmdZoomIn->click(); });
    KeyConnect(Qt::Key_Minus, [this] { cmdZoomOut->click(); });
    KeyConnect(Qt::Key_0, [this] { cmdZoomOff->click(); });
    KeyConnect(Qt::Key_Escape, [this] { BandLeave(); });
    for (const Qt::Key eKey : {Qt::Key_Return, Qt::Key_Enter})
        KeyConnect(eKey, [this] { EnterPress(); });
}

/// Enter is OK, save on the two buttons beside it: nobody who stands on Cancel wants to apply.
void frmMap::EnterPress()
{
    for (QPushButton* pButton : {cmdCancel, cmdApply})
        if (pButton->hasFocus()) {
            pButton->click();
            return;
        }
    cmdOk->click();
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
    int nLeft = kMargin;
    for (QAbstractButton* pButton : RowGet()) {
        pButton->move(nLeft, nTop);
        nLeft += pButton->width() + kButtonGap;
    }
    int nRight = width() - kMargin;
    for (QPushButton* pButton : {cmdApply, cmdCancel, cmdOk}) {
        nRight -= pButton->width();
        pButton->move(nRight, nTop);
        nRight -= kButtonGap;
    }
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
    txtCursor->move(pctMap->x() + (m_view.m_nMapWidth - txtCursor->width()) / 2,
                    pctMap->y() + kMargin);
    txtCursor->raise();
}

void frmMap::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    LayoutSet();
    if (m_bActivated)
        ViewRestore();
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
    ViewSet({90, 0, -90, 360});
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
    ViewRepaint();
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
