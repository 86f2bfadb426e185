#include "ui/map/MapGraticule.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb kLineGrey = qRgb(128, 128, 128);
constexpr QRgb kLineBlack = qRgb(0, 0, 0);
constexpr double kLinesMost = 5.0;  // lines across the larger span
constexpr int kLabelMargin = 2;
constexpr int kMinutes = 60;  // per degree

QString LatLabel(int nLat)
{
    return nLat > 0 ? QStringLiteral("%1N").arg(nLat) : QStringLiteral("%1S").arg(-nLat);
}

QString LonLabel(int nLon)
{
    if (nLon < 0)
        return QStringLiteral("%1W").arg(-nLon);
    return nLon <= 180 ? QStringLiteral("%1E").arg(nLon) : QStringLiteral("%1W").arg(360 - nLon);
}

QString MinuteText(int nMinutes, QChar chrLetter)
{
    return QStringLiteral("%1°%2'%3")
        .arg(nMinutes / kMinutes)
        .arg(nMinutes % kMinutes, 2, 10, QLatin1Char('0'))
        .arg(chrLetter);
}

QString LonMinuteLabel(int nLon)
{
    constexpr int kHalf = 180 * kMinutes;
    if (nLon > kHalf)
        nLon -= 2 * kHalf;
    return MinuteText(std::abs(nLon), QLatin1Char(nLon < 0 ? 'W' : 'E'));
}

QString LatMinuteLabel(int nLat)
{
    return MinuteText(std::abs(nLat), QLatin1Char(nLat < 0 ? 'S' : 'N'));
}

double SpanGet(const MapBox& box)
{
    return std::max(std::abs(box.dBottom - box.dTop), std::abs(box.dRight - box.dLeft));
}

/// Calls fnLine with each minute from dLow to dHigh (degrees) that gets a line.
template <class Fn>
void MinutesEach(const MapBox& box, double dLow, double dHigh, Fn fnLine)
{
    const int nStep = MinutesGetStep(SpanGet(box));
    if (nStep == 0)
        return;
    const int nFirst = static_cast<int>(std::ceil(dLow * kMinutes / nStep)) * nStep;
    for (int nMinute = nFirst; nMinute <= dHigh * kMinutes; nMinute += nStep)
        if (nMinute % kMinutes != 0)
            fnLine(nMinute);
}

std::vector<GraticuleLine> Both(std::vector<GraticuleLine> aLines,
                                const std::vector<GraticuleLine>& aMore)
{
    aLines.insert(aLines.end(), aMore.begin(), aMore.end());
    return aLines;
}

std::vector<GraticuleLine> AllParallelsGet(const MapView& view)
{
    return Both(ParallelsGet(view), MinuteParallelsGet(view));
}

std::vector<GraticuleLine> AllMeridiansGet(const MapView& view)
{
    return Both(MeridiansGet(view), MinuteMeridiansGet(view));
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

int GraticuleGetStep(const MapBox& box) { return GraticuleGetStep(SpanGet(box)); }

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
    const int nEdge = static_cast<int>(view.m_dEdge);
    for (int nLon = nEdge; nLon <= nEdge + 360; nLon += nStep)
        if (view.m_box.dLeft <= nLon && nLon <= view.m_box.dRight)
            aLines.push_back({nLon, view.LatLonGetPoint(0, nLon).x(), LonLabel(nLon)});
    return aLines;
}

int MinutesGetStep(double dSpan)
{
    if (!(dSpan < 1))
        return 0;
    for (const int nStep : {1, 2, 5, 10})
        if (dSpan * kMinutes / nStep <= kLinesMost)
            return nStep;
    return 15;
}

std::vector<GraticuleLine> MinuteParallelsGet(const MapView& view)
{
    std::vector<GraticuleLine> aLines;
    MinutesEach(view.m_box, view.m_box.dBottom, view.m_box.dTop, [&](int nMinute) {
        const double dLat = static_cast<double>(nMinute) / kMinutes;
        aLines.push_back({nMinute / kMinutes, view.LatLonGetPoint(dLat, view.m_dEdge).y(),
                          LatMinuteLabel(nMinute)});
    });
    return aLines;
}

std::vector<GraticuleLine> MinuteMeridiansGet(const MapView& view)
{
    std::vector<GraticuleLine> aLines;
    const double dLeft = std::max(view.m_box.dLeft, view.m_dEdge);
    const double dRight = std::min(view.m_box.dRight, view.m_dEdge + 360);
    MinutesEach(view.m_box, dLeft, dRight, [&](int nMinute) {
        const double dLon = static_cast<double>(nMinute) / kMinutes;
        aLines.push_back(
            {nMinute / kMinutes, view.LatLonGetPoint(0, dLon).x(), LonMinuteLabel(nMinute)});
    });
    return aLines;
}

void GraticulePaint(QImage& img, const MapView& view, bool bOverlay, const QFont& font)
{
    const double dDensity = img.devicePixelRatio();
    img.setDevicePixelRatio(1);
    {
        QPainter painter(&img);
        const MapView viewImg = view.SizedGet(img.width(), img.height());
        const QColor clr(bOverlay ? kLineBlack : kLineGrey);
        const int nWide = std::max(static_cast<int>(dDensity), 1);
        for (const GraticuleLine& lin : AllParallelsGet(viewImg))
            painter.fillRect(0, lin.nPixel - (nWide - 1) / 2, img.width(), nWide, clr);
        for (const GraticuleLine& lin : AllMeridiansGet(viewImg))
            painter.fillRect(lin.nPixel - (nWide - 1) / 2, 0, nWide, img.height(), clr);
    }
    img.setDevicePixelRatio(dDensity);
    GraticuleLabelsPaint(img, view, font);
}

void GraticuleLabelsPaint(QImage& img, const MapView& view, const QFont& font)
{
    QPainter painter(&img);
    painter.setFont(font);
    painter.setPen(QColor(kLineBlack));
    const QFontMetrics metrics(font, &img);
    const int nHeight = metrics.height();
    const QRect rctPicture(0, 0, view.m_nMapWidth, view.m_nMapHeight);
    const auto WidthGet = [&](const QString& sLabel) {
        return metrics.horizontalAdvance(sLabel) + 2 * kLabelMargin;
    };
    for (const GraticuleLine& lin : AllParallelsGet(view)) {
        const QRect rct(0, lin.nPixel - nHeight / 2, WidthGet(lin.sLabel), nHeight);
        LabelPaint(painter, lin.sLabel, rct, rctPicture);
    }
    for (const GraticuleLine& lin : AllMeridiansGet(view)) {
        const int nWidth = WidthGet(lin.sLabel);
        const QRect rct(lin.nPixel - nWidth / 2, view.m_nMapHeight - nHeight, nWidth, nHeight);
        LabelPaint(painter, lin.sLabel, rct, rctPicture);
    }
}
