#include <gtest/gtest.h>

#include <QFontMetrics>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/map/MapMarkerPaint.h"
#include "ui/map/MapPicture.h"

namespace {

constexpr int kSide = 9;

/// The boxes of an area with the same value everywhere.
MapPictureInput AskedMake(const AreaBox& area, const LatLon& posRc, float fSnr)
{
    MapPictureInput input{area, {}, posRc, QStringLiteral("What it is")};
    const bool bOver = area.dRight <= area.dLeft;
    for (const AreaBox& box :
         AreaBoxesGet({area.dBottom, area.dTop, area.dLeft, area.dRight + (bOver ? 360.0 : 0.0)})) {
        OverlayShown shown{{box, box, kSide, 20.0F, SnrGetColor}, {}};
        for (int iLat = 0; iLat < kSide; ++iLat)
            for (int iLon = 0; iLon < kSide; ++iLon)
                shown.aPoints.push_back(
                    {box.dBottom + (box.dTop - box.dBottom) * iLat / (kSide - 1),
                     box.dLeft + (box.dRight - box.dLeft) * iLon / (kSide - 1), fSnr});
        input.aBoxes.push_back(std::move(shown));
    }
    return input;
}

QRgb PixelAt(const QImage& img, const MapView& view, double dLat, double dLon)
{
    return img.pixel(static_cast<int>(view.LonGetX(view.LonGetOnScale(dLon))),
                     static_cast<int>(view.LatGetY(dLat)));
}

int CountOf(const QImage& img, const QRect& rct, QRgb nColor)
{
    int nPixels = 0;
    for (int nY = rct.top(); nY <= rct.bottom(); ++nY)
        for (int nX = rct.left(); nX <= rct.right(); ++nX)
            nPixels += img.pixel(nX, nY) == nColor ? 1 : 0;
    return nPixels;
}

TEST(MapPicture, ShowsTheWholeAreaWithinTheSizes)
{
    struct Case {
        AreaBox area;
        double dEdge;
        double dLeft;  // as the view counts longitudes
        double dRight;
    };
    for (const Case& c : {Case{{20, 60, -130, -60}, kEdgeDateLine, -130, -60},
                          {{-30, 30, 150, -140}, kEdgeGreenwich, 150, 220},
                          {{-80, 80, -180, 180}, kEdgeDateLine, -180, 180},
                          {{-10, 10, 20, 10}, kEdgeDateLine, -180, 180},
                          {{50, 50.2, 3, 3.1}, kEdgeDateLine, 3, 3.1}}) {
        const MapView view = MapPictureView(c.area);
        EXPECT_EQ(view.m_dEdge, c.dEdge);
        EXPECT_LE(view.m_nMapWidth, 1281);
        EXPECT_LE(view.m_nMapHeight, 961);
        EXPECT_GE(view.m_nMapWidth, 480);
        EXPECT_GE(view.m_nMapHeight, 420);
        EXPECT_LE(view.m_box.dLeft, c.dLeft + 0.2) << c.area.dLeft;
        EXPECT_GE(view.m_box.dRight, c.dRight - 0.2) << c.area.dRight;
        EXPECT_GE(view.m_box.dTop, c.area.dTop - 0.2) << c.area.dTop;
        EXPECT_LE(view.m_box.dBottom, c.area.dBottom + 0.2) << c.area.dBottom;
    }
    // An area with the screen's proportions fills the picture.
    const MapView view = MapPictureView({20, 60, -130, -60});
    EXPECT_NEAR(view.m_box.dTop, 60, 0.2);
    EXPECT_NEAR(view.m_box.dBottom, 20, 0.2);
    EXPECT_TRUE(view.m_nMapWidth >= 1280 || view.m_nMapHeight >= 960);
}

TEST(MapPicture, CellsStandOnBothSidesOfTheDateLineAndOfGreenwich)
{
    for (const AreaBox& area :
         {AreaBox{-30, 30, 150, -140}, {-30, 30, -40, 40}, {-30, 30, 20, 10}}) {
        const MapView view = MapPictureView(area);
        const QImage img = MapPictureGet(AskedMake(area, {5.5, area.dLeft + 5.5}, 52), QFont());
        const double dSpan = area.dRight - area.dLeft + (area.dRight <= area.dLeft ? 360 : 0);
        int nColored = 0;
        for (int i = 1; i < 40; ++i)
            nColored += PixelAt(img, view, -13.3, LonWrap(area.dLeft + dSpan * i / 40))
                                == ColorFromBgr(SnrGetColor(52)).rgb()
                            ? 1
                            : 0;
        EXPECT_GT(nColored, 30) << area.dLeft << ": coasts, lines and the legend apart";
    }
}

TEST(MapPicture, HasLegendReceiverAndCaption)
{
    const AreaBox area{20, 60, -130, -60};
    const MapView view = MapPictureView(area);
    const LatLon posRc{40, -95};
    const QImage img = MapPictureGet(AskedMake(area, posRc, 52), QFont());
    const QRect rctMap(0, 0, view.m_nMapWidth, view.m_nMapHeight);
    ASSERT_EQ(img.width(), rctMap.width());
    ASSERT_GT(img.height(), rctMap.height() + 12);
    EXPECT_EQ(img.text(QStringLiteral("Description")), QStringLiteral("What it is"));
    const QRect rctCaption(0, rctMap.height(), rctMap.width(), img.height() - rctMap.height());
    EXPECT_LT(CountOf(img, rctCaption, qRgb(255, 255, 255)),
              rctCaption.width() * rctCaption.height() - 20)
        << "letters";
    for (const SnrBand& band : SnrBandsGet())
        EXPECT_GT(CountOf(img, rctMap, ColorFromBgr(band.nColor).rgb()), 100) << "the legend's";
    const QPoint ptRc = view.LatLonGetPoint(posRc.dLat, posRc.dLon);
    const QRect rctAround(ptRc - QPoint(20, 40), ptRc + QPoint(20, 4));
    EXPECT_GT(CountOf(img, rctAround, MarkerGetFill(true).rgb()), 50);
    EXPECT_EQ(img.pixel(ptRc), MarkerGetFill(true).rgb()) << "the pin's foot is the place";
    const QImage imgFar = MapPictureGet(AskedMake(area, {40, 20}, 52), QFont());
    EXPECT_EQ(CountOf(imgFar, rctAround, MarkerGetFill(true).rgb()), 0);
    EXPECT_GT(CountOf(imgFar, rctMap, MarkerGetFill(true).rgb()), 50) << "an arrow at the edge";
}

}  // namespace
