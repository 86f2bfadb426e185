#include "ui/map/MapGraticule.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb kLineGrey = qRgb(128, 128, 128);
constexpr QRgb kLineBlack = qRgb(0, 0, 0);
constexpr double kLinesMost = 5.0;  // steps across the larger span
constexpr int kLabelMargin = 2;

QString LatLabel(int nLat)
{
    return nLat > 0 ? QStringLiteral("%1N").arg(nLat) : QStringLiteral("%1S").arg(-nLat);
}

QString LonLabel(int nLon)
{
    return nLon <= 180 ? QStringLiteral("%1E").arg(nLon) : QStringLiteral("%1W").arg(360 - nLon);
}

void LabelPaint(QPainter& painter, const QString& sLabel, QRect rct, const QRect& rctPicture)
{
    rct.moveLeft(std::clamp(rct.left(), 0, std::max(rctPicture.right() - rct.width() + 1, 0)));
    rct.moveTop(std::clamp(rct.top(), 0, std::max(rctPicture.bottom() - rct.height() + 1, 0)));
    painter.fillRect(rct, QColor(kMapBackground));
    painter.drawText(rct, Qt::AlignCenter, sLabel);
}

}  // namespace

int GraticuleGetStep(double dSpan)
{
    struct Step {
        double dSpan;
        int nStep;
    };
    constexpr Step kSteps[] = {{10, 1}, {20, 2}, {50, 5}, {100, 10}, {180, 45}};
    int nStep = 90;
    for (const Step& stp : kSteps)
        if (dSpan <= stp.dSpan) {
            nStep = stp.nStep;
            break;
        }
    while (nStep < 360 && dSpan / nStep > kLinesMost) nStep *= 2;
    return nStep;
}

int GraticuleGetStep(const MapBox& box)
{
    return GraticuleGetStep(
        std::max(std::abs(box.dBottom - box.dTop), std::abs(box.dRight - box.dLeft)));
}

std::vector<GraticuleLine> ParallelsGet(const MapView& view)
{
    std::vector<GraticuleLine> aLines;
    const int nStep = GraticuleGetStep(view.m_box);
    for (int nLat = -90; nLat <= 90; nLat += nStep)
        if (view.m_box.dBottom <= nLat && nLat <= view.m_box.dTop)
            aLines.push_back({nLat, view.LatLonGetPoint(nLat, 0).y(), LatLabel(nLat)});
    return aLines;
}

std::vector<GraticuleLine> MeridiansGet(const MapView& view)
{
    std::vector<GraticuleLine> aLines;
    const int nStep = GraticuleGetStep(view.m_box);
    for (int nLon = 0; nLon <= 360; nLon += nStep)
        if (view.m_box.dLeft <= nLon && nLon <= view.m_box.dRight)
            aLines.push_back({nLon, view.LatLonGetPoint(0, nLon).x(), LonLabel(nLon)});
    return aLines;
}

void GraticulePaint(QImage& img, const MapView& view, bool bOverlay, const QFont& font)
{
    {
        QPainter painter(&img);
        painter.setPen(QColor(bOverlay ? kLineBlack : kLineGrey));
        for (const GraticuleLine& lin : ParallelsGet(view))
            painter.drawLine(0, lin.nPixel, img.width() - 1, lin.nPixel);
        for (const GraticuleLine& lin : MeridiansGet(view))
            painter.drawLine(lin.nPixel, 0, lin.nPixel, img.height() - 1);
    }
    GraticuleLabelsPaint(img, view, font);
}

void GraticuleLabelsPaint(QImage& img, const MapView& view, const QFont& font)
{
    QPainter painter(&img);
    painter.setFont(font);
    painter.setPen(QColor(kLineBlack));
    const QFontMetrics metrics(font, &img);
    const int nHeight = metrics.height();
    const auto WidthGet = [&](const QString& sLabel) {
        return metrics.horizontalAdvance(sLabel) + 2 * kLabelMargin;
    };
    for (const GraticuleLine& lin : ParallelsGet(view)) {
        const QRect rct(0, lin.nPixel - nHeight / 2, WidthGet(lin.sLabel), nHeight);
        LabelPaint(painter, lin.sLabel, rct, img.rect());
    }
    for (const GraticuleLine& lin : MeridiansGet(view)) {
        const int nWidth = WidthGet(lin.sLabel);
        const QRect rct(lin.nPixel - nWidth / 2, img.height() - nHeight, nWidth, nHeight);
        LabelPaint(painter, lin.sLabel, rct, img.rect());
    }
}
