#include "ui/map/MapControls.h"

#include <QPainter>
#include <QPainterPath>
#include <array>

#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapMarkerPaint.h"

namespace {

constexpr int kDotSize = 9;
constexpr int kKeyStepLong = 10;

bool IsArrow(int nKey)
{
    return nKey == Qt::Key_Left || nKey == Qt::Key_Right || nKey == Qt::Key_Up
           || nKey == Qt::Key_Down;
}

/// Colours that also differ in lightness, from Okabe and Ito's set for all kinds of colour vision.
constexpr std::array<QRgb, 6> kSystemColors{
    qRgb(0xD5, 0x5E, 0x00), qRgb(0x00, 0x72, 0xB2), qRgb(0x00, 0x9E, 0x73),
    qRgb(0xCC, 0x79, 0xA7), qRgb(0xF0, 0xE4, 0x42), qRgb(0x56, 0xB4, 0xE9),
};

QPainterPath SymbolGetPath(int iSystem, const QRectF& rct)
{
    QPainterPath pth;
    switch ((iSystem - 1) % 4) {
        case 1:
            pth.addRect(rct.adjusted(0.5, 0.5, -0.5, -0.5));
            break;
        case 2:
            pth.addPolygon(QPolygonF({{rct.center().x(), rct.top()},
                                      {rct.right(), rct.bottom()},
                                      {rct.left(), rct.bottom()}}));
            pth.closeSubpath();
            break;
        case 3:
            pth.addPolygon(QPolygonF({{rct.center().x(), rct.top()},
                                      {rct.right(), rct.center().y()},
                                      {rct.center().x(), rct.bottom()},
                                      {rct.left(), rct.center().y()}}));
            pth.closeSubpath();
            break;
        default:
            pth.addEllipse(rct);
    }
    return pth;
}

}  // namespace

PctMap::PctMap(QWidget* pParent) : MouseControl(pParent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
}

void PctMap::PictureSize()
{
    const double dDensity = devicePixelRatioF();
    const QSize sizeImg(qRound(width() * dDensity), qRound(height() * dDensity));
    if (m_img.size() == sizeImg && m_img.devicePixelRatio() == dDensity)
        return;
    m_img = QImage(sizeImg, QImage::Format_RGB32);
    m_img.setDevicePixelRatio(dDensity);
    m_img.fill(kMapBackground);
}

void PctMap::paintEvent(QPaintEvent* /*pEvent*/)
{
    if (!m_img.isNull() && m_img.devicePixelRatio() != devicePixelRatioF())
        QMetaObject::invokeMethod(this, &PctMap::DensityChanged, Qt::QueuedConnection);
    const MapLook look = MapLookGet(m_bOverlay);
    if (look.PlainIs()) {
        m_imgShown = QImage();  // a second reference would copy the picture at its next change
    } else if (m_imgShown.isNull() || m_nShownKey != m_img.cacheKey() || look != m_lookShown) {
        m_imgShown = MapPictureShown(m_img, look);
        m_lookShown = look;
        m_nShownKey = m_img.cacheKey();
    }
    QPainter painter(this);
    painter.fillRect(rect(), QColor(MapColorShown(kMapBackground, look)));
    painter.drawImage(0, 0, look.PlainIs() ? m_img : m_imgShown);
    if (m_fnLayersPaint)
        m_fnLayersPaint(painter);
}

MarkerLabel::MarkerLabel(const QString& sText, bool bDark, QWidget* pParent)
    : MouseControl(pParent), m_sText(sText), m_bDark(bDark)
{
    setMouseTracking(true);
    setCursor(Qt::SizeAllCursor);
    setFocusPolicy(Qt::StrongFocus);
    QFont fnt = font();
    fnt.setBold(true);
    setFont(fnt);
    resize(MarkerGetSize(sText, QFontMetrics(fnt)));
    const QRect rctPin(width() / 2 - kMarkerPinRadius, height() / 2 - kMarkerPinLong,
                       2 * kMarkerPinRadius + 1, kMarkerPinLong + kMarkerPinRadius + 1);
    setMask(QRegion(FlagGetRect()) + QRegion(rctPin));
}

QRect MarkerLabel::FlagGetRect() const { return MarkerGetFlag(size()); }

QColor MarkerLabel::FillGetColor() const { return MarkerGetFill(m_bDark); }

QColor MarkerLabel::TextGetColor() const { return MarkerGetTextColor(m_bDark); }

bool MarkerLabel::event(QEvent* pEvent)
{
    // Otherwise the window's arrow keys would scroll.
    if (pEvent->type() == QEvent::ShortcutOverride
        && IsArrow(static_cast<QKeyEvent*>(pEvent)->key())) {
        pEvent->accept();
        return true;
    }
    return MouseControl::event(pEvent);
}

void MarkerLabel::keyPressEvent(QKeyEvent* pEvent)
{
    if (!IsArrow(pEvent->key())) {
        MouseControl::keyPressEvent(pEvent);
        return;
    }
    const int nBy = pEvent->modifiers() & Qt::ShiftModifier ? kKeyStepLong : 1;
    const int nByX = pEvent->key() == Qt::Key_Right  ? nBy
                     : pEvent->key() == Qt::Key_Left ? -nBy
                                                     : 0;
    const int nByY = pEvent->key() == Qt::Key_Down ? nBy : pEvent->key() == Qt::Key_Up ? -nBy : 0;
    Q_EMIT KeyMove(nByX, nByY);
}

void MarkerLabel::focusInEvent(QFocusEvent* pEvent)
{
    MouseControl::focusInEvent(pEvent);
    update();
}

void MarkerLabel::focusOutEvent(QFocusEvent* pEvent)
{
    MouseControl::focusOutEvent(pEvent);
    update();
    if (pEvent->reason() != Qt::PopupFocusReason)  // its own popup menu does not end the move
        Q_EMIT FocusLeft();
}

void MarkerLabel::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    MarkerPaint(painter, size(), m_sText, m_bDark);
    if (!hasFocus())
        return;
    painter.setPen(QPen(TextGetColor(), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(FlagGetRect().adjusted(2, 2, -3, -3));
}

StationDot::StationDot(int iSystem, QWidget* pParent) : MouseControl(pParent), m_iSystem(iSystem)
{
    resize(kDotSize, kDotSize);
    setCursor(Qt::ArrowCursor);
}

void StationDot::ColorSet(const QColor& clr)
{
    m_clr = clr;
    update();
}

QColor StationDot::ColorGet() const
{
    if (m_clr.isValid())
        return m_clr;
    return QColor(kSystemColors[static_cast<std::size_t>(m_iSystem - 1) % kSystemColors.size()]);
}

void StationDot::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Palette ePalette = PaletteShown();
    // In Night the worst band is black on a black sea.
    painter.setPen(ePalette == Palette::Night ? QColor(kNightInk) : QColor(Qt::black));
    painter.setBrush(ColorInPalette(ColorGet(), ePalette));
    painter.drawPath(SymbolGetPath(m_iSystem, QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5)));
}
