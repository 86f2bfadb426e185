#include "ui/map/MapOverlayLayer.h"

#include <QObject>
#include <array>

#include "system/NumberLib.h"
#include "ui/common/MainWindowHost.h"
#include "ui/map/MapOverlayControl.h"
#include "ui/map/MapRange.h"

void MapOverlayLayer::Paint(QPainter& painter)
{
    if (!m_overlay.HasCells())
        return;
    m_rctLegend = LegendRectGet(painter.fontMetrics());
    LegendPaint(painter, m_rctLegend, LegendRowsGet(), m_host.SettingsGet().m_fMapOverlayMinSnr);
}

QString MapOverlayLayer::TipGet(const LatLon& pos) const
{
    const std::optional<float> fSnr = m_overlay.OverlayGetSnr(pos.dLat, pos.dLon);
    if (!fSnr)
        return {};
    return QObject::tr(", Snr %1 dB, Rng %2")
        .arg(QString::fromStdString(NumberFormat(*fSnr, "0.0")), RangeText(m_form.m_posRc, pos));
}

void MapOverlayLayer::PointerMove(const QPoint& ptPointer)
{
    constexpr int kNear = 12;
    m_rctPointer = QRect(ptPointer, QSize(1, 1)).adjusted(-kNear, -kNear, kNear, kNear);
    if (m_overlay.HasCells() && LegendRectGet(m_form.pctMap->fontMetrics()) != m_rctLegend)
        m_form.pctMap->update();
}

std::vector<LegendRow> MapOverlayLayer::LegendRowsGet() const
{
    return LegendGetRows(m_host.SettingsGet().m_fMapOverlayMinSnr,
                         [this](float fSnr) { return m_host.SnrGetColor(fSnr); });
}

QRect MapOverlayLayer::LegendRectGet(const QFontMetrics& metrics) const
{
    return LegendGetRect(
        metrics, m_form.pctMap->rect(), LegendRowsGet(), m_host.SettingsGet().m_fMapOverlayMinSnr,
        std::array{m_form.lblRc->geometry(), m_form.lblTx->geometry()}, m_rctPointer);
}
