#include "ui/map/MapPicture.h"

#include <QFontMetrics>
#include <QObject>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/common/PaletteShown.h"
#include "ui/map/MapColors.h"
#include "ui/map/MapEdgeArrow.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapLegend.h"
#include "ui/map/MapMarkerPaint.h"
#include "ui/map/MapPaint.h"
#include "ui/map/MapScaleBar.h"

namespace {

constexpr QSize kSizeMost(1280, 960);
constexpr QSize kSizeLeast(480, 420);
constexpr int kMargin = 6;  // round the caption

/// The area on a world with an edge that does not cut it. An area over both Greenwich and longitude
/// 180 has no such edge; then the whole world is shown.
MapBox BoxGet(const AreaBox& area, double& dEdge)
{
    const bool bOver = area.dRight <= area.dLeft;
    const bool bWest = bOver && area.dLeft >= 0 && area.dRight <= 0;
    dEdge = bWest ? kEdgeGreenwich : kEdgeDateLine;
    if (bWest)
        return {area.dTop, area.dLeft, area.dBottom, area.dRight + kFullCircle};
    if (bOver)
        return {area.dTop, kEdgeDateLine, area.dBottom, kEdgeDateLine + kFullCircle};
    return {area.dTop, area.dLeft, area.dBottom, area.dRight};
}

void ReceiverPaint(QPainter& painter, const QPointF& pt, const QRect& rctMarker, const QFont& font)
{
    constexpr bool bDark = true;
    const QString sText = QObject::tr("Rc");
    if (const auto arrow = EdgeArrowGet(painter.window(), pt))
        return EdgeArrowPaint(painter, *arrow, sText, MarkerGetFill(bDark),
                              MarkerGetTextColor(bDark));
    painter.save();
    painter.setFont(font);
    painter.translate(rctMarker.topLeft());
    MarkerPaint(painter, rctMarker.size(), sText, bDark);
    painter.restore();
}

}  // namespace

MapView MapPictureView(const AreaBox& area)
{
    MapView view;
    const MapBox box = BoxGet(area, view.m_dEdge);
    const auto OrdinateGet = [&view](double dLat) {
        return std::clamp(view.LatGetOrdinate(dLat), -90.0, 90.0);
    };
    const double dTop = OrdinateGet(box.dTop);
    const double dBottom = OrdinateGet(box.dBottom);
    const double dWidth =
        (box.dRight - box.dLeft) * view.m_nImgWidth / kFullCircle;  // of the image
    const double dHeight = (dTop - dBottom) * view.m_nImgHeight / 180;
    const double dScale =
        std::max({dWidth / kSizeMost.width(), dHeight / kSizeMost.height(), kScaleMin});
    view.m_nMapWidth = std::max(static_cast<int>(std::ceil(dWidth / dScale)), kSizeLeast.width());
    view.m_nMapHeight =
        std::max(static_cast<int>(std::ceil(dHeight / dScale)), kSizeLeast.height());
    view.ZoomSet({dScale, view.OrdinateGetLat((dTop + dBottom) / 2), (box.dLeft + box.dRight) / 2});
    return view;
}

QImage MapPictureGet(const MapPictureInput& input, const QFont& font)
{
    const MapView view = MapPictureView(input.area);
    QImage img(view.m_nMapWidth, view.m_nMapHeight, QImage::Format_RGB32);
    img.fill(kMapBackground);
    WorldImagePaint(img, view.m_rctSource, view.m_dEdge);
    ImageOutline(img);
    GraticulePaint(img, view, true, font);
    for (const OverlayShown& shown : input.aBoxes) CellsPaint(img, view, shown.cell, shown.aPoints);
    GraticuleLabelsPaint(img, view, font);
    const PaletteForPaper paper;
    if (const MapLook look = MapLookGet(!input.aBoxes.empty()); !look.PlainIs())
        img = MapPictureShown(img, look);
    QFont fontMarker = font;
    fontMarker.setBold(true);
    const QPointF ptRc(view.LonGetX(view.LonGetOnScale(input.posRc.dLon)),
                       view.LatGetY(input.posRc.dLat));
    QRect rctMarker(QPoint(), MarkerGetSize(QObject::tr("Rc"), QFontMetrics(fontMarker)));
    rctMarker.moveCenter(ptRc.toPoint());
    QPainter painter(&img);
    painter.setFont(font);
    ScaleBarPaint(painter, view);
    if (!input.aBoxes.empty()) {
        const CellPaint& cell = input.aBoxes.front().cell;
        const auto aRows = LegendGetRows(cell.fMinSnr, cell.fnColor);
        const QRect rct = LegendGetRect(painter.fontMetrics(), img.rect(), aRows, cell.fMinSnr,
                                        std::array{rctMarker});
        LegendPaint(painter, rct, aRows, cell.fMinSnr);
    }
    ReceiverPaint(painter, ptRc, rctMarker, fontMarker);
    painter.end();
    return CaptionAdd(img, input.sCaption, font);
}

QImage CaptionAdd(const QImage& imgMap, const QString& sCaption, const QFont& font)
{
    const double dDensity = imgMap.devicePixelRatio();
    const QSize sizeMap = imgMap.deviceIndependentSize().toSize();
    const QRect rctText =
        QFontMetrics(font)
            .boundingRect(QRect(0, 0, sizeMap.width() - 2 * kMargin, sizeMap.height()),
                          Qt::TextWordWrap, sCaption)
            .translated(kMargin, sizeMap.height() + kMargin);
    const int nHeight = rctText.bottom() + 1 + kMargin;
    QImage image((QSizeF(sizeMap.width(), nHeight) * dDensity).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(dDensity);
    image.setText(QStringLiteral("Description"), sCaption);  // for screen readers
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.drawImage(0, 0, imgMap);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(rctText, Qt::TextWordWrap, sCaption);
    return image;
}
