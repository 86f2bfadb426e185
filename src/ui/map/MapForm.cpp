#include "ui/map/MapForm.h"

#include <QObject>
#include <algorithm>

#include "ui/map/HourBar.h"

namespace {

constexpr int kPictureSide = 20;

QPushButton* ButtonMake(QWidget* pWindow, const QString& sName, const QString& sText)
{
    auto* pButton = new QPushButton(sText, pWindow);
    pButton->setObjectName(sName);
    pButton->resize(pWindow->fontMetrics().horizontalAdvance(sText), pButton->sizeHint().height());
    return pButton;
}

/// A button with a picture instead of a text.
void ButtonSetTip(QAbstractButton* pButton, const QString& sTip, int nHeight)
{
    pButton->setToolTip(sTip);
    pButton->setAccessibleName(sTip);
    pButton->setIconSize(QSize(kPictureSide, kPictureSide));
    pButton->resize(kPictureSide, nHeight);
}

QToolButton* ToggleMake(QWidget* pWindow, const QString& sName, const QString& sPicture)
{
    auto* pToggle = new QToolButton(pWindow);
    pToggle->setObjectName(sName);
    pToggle->setCheckable(true);
    pToggle->setIcon(MapPictureGet(sPicture));
    pToggle->setFocusPolicy(Qt::StrongFocus);
    return pToggle;
}

QMenu* MenuMake(QWidget* pWindow, const QString& sName)
{
    auto* pMenu = new QMenu(pWindow);
    pMenu->setObjectName(sName);
    return pMenu;
}

QMenu* MenuAdd(QMenu* pMenu, const QString& sName, const QString& sText)
{
    QMenu* pAdded = pMenu->addMenu(sText);
    pAdded->setObjectName(sName);
    return pAdded;
}

}  // namespace

MapForm::MapForm(QWidget* pWindow)
{
    MapMake(pWindow);
    BarsMake();
    barHour = new HourBar(pWindow);
    barHour->hide();
    ButtonsMake(pWindow);
    MenusMake(pWindow);
    QWidget* const apOrder[] = {pctMap, lblRc, lblTx, hscMap, vscMap, cmdZoomIn};
    for (std::size_t i = 0; i + 1 < std::size(apOrder); ++i)
        QWidget::setTabOrder(apOrder[i], apOrder[i + 1]);
}

void MapForm::MapMake(QWidget* pWindow)
{
    pctFrame = new QFrame(pWindow);
    pctFrame->setObjectName(QStringLiteral("pctFrame"));
    pctFrame->setFrameShape(QFrame::Box);
    pctMap = new PctMap(pctFrame);
    pctMap->setObjectName(QStringLiteral("pctMap"));
    pctMap->setAccessibleName(QObject::tr("World map"));
    // The picture itself shows no focus, because it is copied and exported.
    QObject::connect(pctMap, &PctMap::FocusMoved, pctFrame, [this](bool bHere) {
        pctFrame->setForegroundRole(bHere ? QPalette::Highlight : QPalette::WindowText);
    });
    lblRc = new MarkerLabel(QObject::tr("Rc"), true, pctMap);
    lblRc->setObjectName(QStringLiteral("lblRc"));
    lblRc->setAccessibleName(QObject::tr("Receiver"));
    lblTx = new MarkerLabel(QObject::tr("Tx"), false, pctMap);
    lblTx->setObjectName(QStringLiteral("lblTx"));
    lblTx->setAccessibleName(QObject::tr("Transmitter"));
}

void MapForm::BarsMake()
{
    hscMap = new QScrollBar(Qt::Horizontal, pctFrame);
    hscMap->setObjectName(QStringLiteral("hscMap"));
    vscMap = new QScrollBar(Qt::Vertical, pctFrame);
    vscMap->setObjectName(QStringLiteral("vscMap"));
    vscMap->setRange(-840, 840);  // tenths of a degree, to the image's edges
    for (QScrollBar* pBar : {hscMap, vscMap}) pBar->setFocusPolicy(Qt::StrongFocus);
    txtCursor = new QLineEdit(pctFrame);
    txtCursor->setObjectName(QStringLiteral("txtCursor"));
    txtCursor->setAccessibleName(QObject::tr("Position"));
    txtCursor->setReadOnly(true);
    txtCursor->setFocusPolicy(Qt::NoFocus);
    txtCursor->setAlignment(Qt::AlignCenter);
    txtCursor->resize(0, txtCursor->sizeHint().height());
    txtCursor->hide();
}

void MapForm::ButtonsMake(QWidget* pWindow)
{
    const auto TextMake = [pWindow](const QString& sName, const QString& sText) {
        return ButtonMake(pWindow, sName, sText);
    };
    cmdZoomIn = TextMake(QStringLiteral("cmdZoomIn"), QObject::tr("Zoom In"));
    cmdZoomOut = TextMake(QStringLiteral("cmdZoomOut"), QObject::tr("Zoom Out"));
    cmdZoomOff = TextMake(QStringLiteral("cmdZoomOff"), QObject::tr("Zoom Off"));
    cmdZoomTxRc =
        TextMake(QStringLiteral("cmdZoomTxRc"), QObject::tr("Zoom to Transmitter and Receiver"));
    const int nHeight = cmdZoomOff->height();
    cmdOverlay = TextMake(QStringLiteral("cmdOverlay"), {});
    ButtonSetTip(cmdOverlay, QObject::tr("Display Snr Overlay (Snr vs Range from Rc)"), nHeight);
    cmdStations = TextMake(QStringLiteral("cmdStations"), {});
    ButtonSetTip(cmdStations, QObject::tr("Display AirMail Stations"), nHeight);
    chkPath = ToggleMake(pWindow, QStringLiteral("chkPath"), QStringLiteral("Path"));
    ButtonSetTip(chkPath, QObject::tr("Great-circle path between transmitter and receiver"),
                 nHeight);
    chkNight = ToggleMake(pWindow, QStringLiteral("chkNight"), QStringLiteral("Night"));
    ButtonSetTip(chkNight, QObject::tr("Day/night line at the overlay's hour and month"), nHeight);
    chkTwilight = ToggleMake(pWindow, QStringLiteral("chkTwilight"), QStringLiteral("Twilight"));
    ButtonSetTip(chkTwilight,
                 QObject::tr("Night shaded, darker where the sun is 6, 12 and 18° below the "
                             "horizon"),
                 nHeight);
    cmdOk = TextMake(QStringLiteral("cmdOk"), QObject::tr("OK"));
    cmdCancel = TextMake(QStringLiteral("cmdCancel"), QObject::tr("Cancel"));
    cmdApply = TextMake(QStringLiteral("cmdApply"), QObject::tr("Apply"));
    for (QPushButton* pButton : {cmdOk, cmdApply})
        pButton->resize(cmdCancel->width(), cmdCancel->height());
}

void MapForm::MenusMake(QWidget* pWindow)
{
    mnuMap = MenuMake(pWindow, QStringLiteral("mnuMap"));
    mnuMapCenter = ItemMake(mnuMap, QStringLiteral("mnuMapCenter"), QObject::tr("Center"));
    mnuMapZoomIn = ItemMake(mnuMap, QStringLiteral("mnuMapZoomIn"), QObject::tr("Center, Zoom In"));
    mnuMapZoomOut =
        ItemMake(mnuMap, QStringLiteral("mnuMapZoomOut"), QObject::tr("Center, Zoom Out"));
    mnuMap->addSeparator();
    mnuMapCopy = ItemMake(mnuMap, QStringLiteral("mnuMapCopy"), QObject::tr("Copy Picture"));
    mnuMapExport = ItemMake(mnuMap, QStringLiteral("mnuMapExport"), QObject::tr("Export..."));
    mnuOverlay = MenuMake(pWindow, QStringLiteral("mnuOverlay"));
    mnuOverlayFrequency =
        MenuAdd(mnuOverlay, QStringLiteral("mnuOverlayFrequency"), QObject::tr("Select Frequency"));
    mnuOverlayTime =
        MenuAdd(mnuOverlay, QStringLiteral("mnuOverlayTime"), QObject::tr("Select Time"));
    mnuOverlaySeparator = mnuOverlay->addSeparator();
    mnuOverlaySeparator->setObjectName(QStringLiteral("mnuOverlaySeparator"));
    mnuOverlayDraw = ItemMake(mnuOverlay, QStringLiteral("mnuOverlayDraw"),
                              QObject::tr("Display 1000.0 Khz @ 10:00"));
    mnuOverlayDraw->setCheckable(true);
    mnuOverlay->addSeparator();
    mnuOverlaySmooth =
        ItemMake(mnuOverlay, QStringLiteral("mnuOverlaySmooth"), QObject::tr("Smooth"));
    mnuOverlaySmooth->setCheckable(true);
    mnuStations = MenuMake(pWindow, QStringLiteral("mnuStations"));
    mnuStation = MenuMake(pWindow, QStringLiteral("mnuStation"));
    mnuStationSetRc =
        ItemMake(mnuStation, QStringLiteral("mnuStationSetRc"), QObject::tr("Set as Receiver"));
    mnuStationSetTx =
        ItemMake(mnuStation, QStringLiteral("mnuStationSetTx"), QObject::tr("Set as Transmitter"));
}

QAction* MapForm::ItemMake(QMenu* pMenu, const QString& sName, const QString& sText)
{
    QAction* pItem = pMenu->addAction(sText);
    pItem->setObjectName(sName);
    return pItem;
}

std::vector<QAbstractButton*> MapForm::RowGet() const
{
    return {cmdZoomIn, cmdZoomOut, cmdZoomOff,  cmdZoomTxRc, cmdOverlay, cmdStations,
            chkPath,   chkNight,   chkTwilight, cmdOk,       cmdCancel,  cmdApply};
}

LatLon MapForm::PointGetLatLon(const QWidget* pControl, double dX, double dY) const
{
    if (pControl == pctMap)
        return m_view.PointGetLatLon(MapControl::Map, dX, dY);
    if (pControl == pctFrame)
        return m_view.PointGetLatLon(MapControl::Frame, dX, dY);
    if (pControl == lblRc || pControl == lblTx)
        return m_view.PointGetLatLon(MapControl::Marker, dX, dY, pControl->geometry());
    return m_view.PointGetLatLon(MapControl::Other, dX, dY);
}

QPoint MapForm::LatLonGetPoint(double dLat, double dLon) const
{
    // Qt cannot place a widget further away.
    constexpr int kFar = 30000;
    const QPoint pt = m_view.LatLonGetPoint(dLat, dLon);
    return {std::clamp(pt.x(), -kFar, kFar), std::clamp(pt.y(), -kFar, kFar)};
}
