#include "ui/map/MapScaleBar.h"

#include <QObject>
#include <algorithm>
#include <cmath>

#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "ui/map/MapGraticule.h"

namespace {

constexpr double kMilesPerDegree = 60.0;
constexpr int kMargin = 8;
constexpr int kTick = 4;

}  // namespace

std::optional<ScaleBar> ScaleBarGet(const MapView& view)
{
    const double dLonSpan = view.m_box.dRight - view.m_box.dLeft;
    const double dLatSpan = view.m_box.dTop - view.m_box.dBottom;
    const double dShrink = std::cos(view.CenterGet().dLat * kRadiansPerDegree);
    if (MinutesGetStep(std::max(std::abs(dLonSpan), std::abs(dLatSpan))) == 0 || !(dShrink > 0))
        return {};
    const double dPixelsPerMile = view.m_nMapWidth / (dLonSpan * dShrink * kMilesPerDegree);
    const double dMost = view.m_nMapWidth / 4.0 / dPixelsPerMile;
    const double dPower = std::pow(10.0, std::floor(std::log10(dMost)));
    double dMiles = dPower;
    for (const double dRound : {2.0, 5.0})
        if (dRound * dPower <= dMost)
            dMiles = dRound * dPower;
    return ScaleBar{dMiles, dMiles * dPixelsPerMile,
                    QObject::tr("%1 nmi").arg(
                        QString::fromStdString(NumberToText(static_cast<float>(dMiles))))};
}

void ScaleBarPaint(QPainter& painter, const MapView& view)
{
    const std::optional<ScaleBar> bar = ScaleBarGet(view);
    if (!bar)
        return;
    const QFontMetrics metrics = painter.fontMetrics();
    const int nWidth = std::max(static_cast<int>(std::lround(bar->dPixels)),
                                metrics.horizontalAdvance(bar->sLabel));
    const int nHeight = metrics.height() + kTick + kMargin / 2;
    const QRect rct(view.m_nMapWidth - nWidth - 3 * kMargin,
                    view.m_nMapHeight - 2 * metrics.height() - nHeight, nWidth + 2 * kMargin,
                    nHeight + kMargin / 2);
    painter.save();
    painter.fillRect(rct, QColor(kMapBackground));
    painter.setPen(Qt::black);
    painter.drawText(rct, Qt::AlignHCenter | Qt::AlignTop, bar->sLabel);
    const double dLeft = rct.left() + (rct.width() - bar->dPixels) / 2;
    const QRectF rctBar(dLeft, rct.bottom() - kTick - 1, bar->dPixels, kTick);
    painter.fillRect(QRectF(rctBar.left(), rctBar.bottom() - 1, rctBar.width(), 2), Qt::black);
    for (const double dX : {rctBar.left(), rctBar.right() - 1})
        painter.fillRect(QRectF(dX, rctBar.top() - 2, 1, kTick + 2), Qt::black);
    painter.restore();
}
