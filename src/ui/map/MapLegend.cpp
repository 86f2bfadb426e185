#include "ui/map/MapLegend.h"

#include <QObject>
#include <algorithm>
#include <array>
#include <utility>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"
#include "ui/map/MapColors.h"

namespace {

constexpr int kMargin = 6;
constexpr int kSwatch = 16;
constexpr int kLabels = 60;  // left edge: room for the labels of the parallels

QString Text(float fSnr) { return QString::fromStdString(NumberToText(fSnr)); }

QString RowText(float fLow, float fHigh)
{
    return QObject::tr("%1 to %2").arg(Text(fLow), Text(fHigh));
}

QString HeadText() { return QObject::tr("SNR (dB in 1 Hz)"); }

QString MinText(float fMinSnr) { return QObject::tr("drawn from %1").arg(Text(fMinSnr)); }

int LineGetHeight(const QFontMetrics& metrics) { return std::max(metrics.height() + 2, kSwatch); }

QRect PlaceGet(const QRect& rctMap, const QSize& size, std::span<const QRect> aKeepFree,
               const QRect& rctPointer)
{
    const int nLeft = rctMap.left() + kLabels;
    const int nRight = rctMap.right() - size.width() - kMargin;
    const int nMiddle = rctMap.center().y() - size.height() / 2;
    const int nTop = rctMap.top() + kMargin;
    const int nBottom = rctMap.bottom() - size.height() - kLabels;
    const std::array aPlaces{QPoint(nRight, nMiddle), QPoint(nLeft, nMiddle),
                             QPoint(nRight, nTop),    QPoint(nRight, nBottom),
                             QPoint(nLeft, nTop),     QPoint(nLeft, nBottom)};
    const auto Hides = [aKeepFree](const QRect& rct) {
        return std::any_of(aKeepFree.begin(), aKeepFree.end(),
                           [&rct](const QRect& rctFree) { return rctFree.intersects(rct); });
    };
    QRect rctBest(aPlaces[0], size);
    bool bFound = false;
    for (const QPoint ptPlace : aPlaces) {
        const QRect rct(ptPlace, size);
        if (rct.intersects(rctPointer))
            continue;
        if (!Hides(rct))
            return rct;
        if (!bFound)
            rctBest = rct;
        bFound = true;
    }
    return rctBest;
}

}  // namespace

std::vector<LegendRow> LegendGetRows(float fMinSnr,
                                     const std::function<std::uint32_t(float fSnr)>& fnColor)
{
    const std::span<const SnrBand> aBands = SnrBandsGet();
    const float fHighest = aBands.front().fLowest;
    const float fLowest = aBands[aBands.size() - 2].fLowest;
    const auto ColorGet = [&](float fSnr) { return ColorFromBgr(fnColor(fSnr)).rgb(); };
    std::vector<LegendRow> aRows;
    aRows.push_back({QObject::tr("%1 and above").arg(Text(std::max(fHighest, fMinSnr))),
                     ColorGet(fHighest), true});
    for (std::size_t i = 1; i + 1 < aBands.size(); ++i) {
        const float fLow = aBands[i].fLowest;
        const float fHigh = aBands[i - 1].fLowest;
        const bool bDrawn = fMinSnr < fHigh;
        aRows.push_back(
            {RowText(bDrawn ? std::max(fLow, fMinSnr) : fLow, fHigh), ColorGet(fLow), bDrawn});
    }
    const bool bGrey = fMinSnr < fLowest;
    aRows.push_back({bGrey ? RowText(fMinSnr, fLowest) : QObject::tr("below %1").arg(Text(fLowest)),
                     ColorGet(fLowest - 1), bGrey});
    return aRows;
}

Legend LegendOfSnr(std::vector<LegendRow> aRows, float fMinSnr)
{
    return {HeadText(), std::move(aRows), MinText(fMinSnr)};
}

QRect LegendGetRect(const QFontMetrics& metrics, const QRect& rctMap, const Legend& legend,
                    std::span<const QRect> aKeepFree, const QRect& rctPointer)
{
    int nText = 0;
    for (const LegendRow& row : legend.aRows)
        nText = std::max(nText, metrics.horizontalAdvance(row.sText) + kSwatch + kMargin);
    nText = std::max(
        {nText, metrics.horizontalAdvance(legend.sHead), metrics.horizontalAdvance(legend.sFoot)});
    const int nHeight =
        LineGetHeight(metrics) * (static_cast<int>(legend.aRows.size()) + 2) + 2 * kMargin;
    return PlaceGet(rctMap, QSize(nText + 2 * kMargin, nHeight), aKeepFree, rctPointer);
}

QRect LegendGetRect(const QFontMetrics& metrics, const QRect& rctMap,
                    const std::vector<LegendRow>& aRows, float fMinSnr,
                    std::span<const QRect> aKeepFree, const QRect& rctPointer)
{
    return LegendGetRect(metrics, rctMap, LegendOfSnr(aRows, fMinSnr), aKeepFree, rctPointer);
}

void LegendPaint(QPainter& painter, const QRect& rct, const std::vector<LegendRow>& aRows,
                 float fMinSnr)
{
    LegendPaint(painter, rct, LegendOfSnr(aRows, fMinSnr));
}

void LegendPaint(QPainter& painter, const QRect& rct, const Legend& legend)
{
    const int nLine = LineGetHeight(painter.fontMetrics());
    const int nText = rct.width() - 2 * kMargin;
    const bool bNight = PaletteNightIs();
    const MapLook look = MapLookGet(true);  // as the cells are shown
    const QColor clrInk = bNight ? QColor(kNightInk) : QColor(Qt::black);
    painter.setPen(bNight ? QColor(kNightEdge) : QColor(0x60, 0x60, 0x60));
    painter.setBrush(bNight ? Qt::black : Qt::white);
    painter.drawRect(rct.adjusted(0, 0, -1, -1));
    QRect rctLine(rct.left() + kMargin, rct.top() + kMargin, nText, nLine);
    painter.setPen(clrInk);
    painter.drawText(rctLine, Qt::AlignLeft | Qt::AlignVCenter, legend.sHead);
    for (const LegendRow& row : legend.aRows) {
        rctLine.translate(0, nLine);
        const QRect rctSwatch(rctLine.left(), rctLine.top() + 2, kSwatch, nLine - 4);
        painter.setPen(row.bDrawn ? clrInk : QColor(Qt::gray));
        painter.setBrush(row.bDrawn ? QBrush(QColor(MapColorShown(row.nColor, look)))
                                    : QBrush(Qt::NoBrush));
        painter.drawRect(rctSwatch.adjusted(0, 0, -1, -1));
        painter.drawText(rctLine.adjusted(kSwatch + kMargin, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, row.sText);
    }
    rctLine.translate(0, nLine);
    painter.setPen(clrInk);
    painter.drawText(rctLine, Qt::AlignLeft | Qt::AlignVCenter, legend.sFoot);
}
