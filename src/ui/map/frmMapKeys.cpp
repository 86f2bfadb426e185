// Keys of the map window.
#include <QShortcut>

#include "ui/map/frmMap.h"

namespace {

constexpr double kKeyShare = 1.0 / 20;  // of the view

}  // namespace

void frmMap::KeysConnect()
{
    const auto KeyConnect = [this](Qt::Key eKey, const std::function<void()>& fnAct) {
        auto* pKey = new QShortcut(QKeySequence(eKey), this);
        connect(pKey, &QShortcut::activated, this, fnAct);
    };
    KeyConnect(Qt::Key_Left, [this] { ArrowPress(-kKeyShare, 0); });
    KeyConnect(Qt::Key_Right, [this] { ArrowPress(kKeyShare, 0); });
    KeyConnect(Qt::Key_Up, [this] { ArrowPress(0, -kKeyShare); });
    KeyConnect(Qt::Key_Down, [this] { ArrowPress(0, kKeyShare); });
    KeyConnect(Qt::Key_Plus, [this] { cmdZoomIn->click(); });
    KeyConnect(Qt::Key_Minus, [this] { cmdZoomOut->click(); });
    KeyConnect(Qt::Key_0, [this] { cmdZoomOff->click(); });
    KeyConnect(Qt::Key_Escape, [this] { EscapePress(); });
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

/// Ends what the mouse is doing, else it is Cancel.
void frmMap::EscapePress()
{
    if (m_bBand)
        BandLeave();
    else if (m_bPan)
        PanLeave();
    else if (m_pDragged != nullptr)
        MarkerDragLeave();
    else
        cmdCancel->click();
}

void frmMap::ArrowPress(double dShareX, double dShareY)
{
    if (!m_bBand && !m_bPan && m_pDragged == nullptr)
        ViewShift(dShareX, dShareY);
}

/// An arrow key on the focused flag moves it as a drag would.
void frmMap::MarkerKeyMove(MarkerLabel* pMarker, LatLon& pos, int nByX, int nByY)
{
    pMarker->move(pMarker->x() + nByX, pMarker->y() + nByY);
    pos = PointGetLatLon(pMarker, 0, 0);
    txtCursor->show();
    MarkerTextShow(pMarker, pos);
    pctMap->update();
    if (pMarker == lblRc)
        OverlayLater();
}
