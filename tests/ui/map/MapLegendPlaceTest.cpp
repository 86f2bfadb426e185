// The place of the legend on the map; painting text needs the window system.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <vector>

#include "propagation/SnrScale.h"
#include "ui/map/MapLegend.h"

namespace {

/// Where the legend goes on a picture of 900 x 600 while these places must stay visible.
QRect PlaceGet(const std::vector<QRect>& aKeepFree, const QRect& rctPointer = {})
{
    QImage img(900, 600, QImage::Format_RGB32);
    const QPainter painter(&img);
    return LegendGetRect(painter.fontMetrics(), img.rect(), LegendGetRows(20, SnrGetColor), 20,
                         aKeepFree, rctPointer);
}

TEST(MapLegendPlace, StandsAtTheRightEdge)
{
    const QRect rct = PlaceGet({});
    EXPECT_LT(rct.right(), 899);
    EXPECT_GT(rct.right(), 880);
    EXPECT_NEAR(rct.center().y(), 300, 3);
    EXPECT_EQ(PlaceGet({QRect(300, 280, 30, 40)}), rct);
}

TEST(MapLegendPlace, GivesWayToAMarker)
{
    const QRect rctRight = PlaceGet({});
    const QRect rctMarker(rctRight.center(), QSize(30, 40));
    const QRect rctLeft = PlaceGet({rctMarker});
    EXPECT_LT(rctLeft.right(), rctRight.left());
    EXPECT_LT(rctLeft.left(), 70);
    EXPECT_GT(rctLeft.left(), 50);  // beside the labels of the parallels
    EXPECT_EQ(rctLeft.size(), rctRight.size());
    // With markers at both edges it goes to a corner.
    const QRect rctMarkerLeft(rctLeft.center(), QSize(30, 40));
    const QRect rctCorner = PlaceGet({rctMarker, rctMarkerLeft});
    EXPECT_FALSE(rctCorner.intersects(rctMarker) || rctCorner.intersects(rctMarkerLeft));
    EXPECT_TRUE(QRect(0, 0, 900, 600).contains(rctCorner));
}

TEST(MapLegendPlace, StepsAsideForThePointerWhateverTheMarkers)
{
    const QRect rctRight = PlaceGet({});
    const QRect rctPointer(rctRight.center(), QSize(20, 20));
    const QRect rctLeft = PlaceGet({}, rctPointer);
    EXPECT_LT(rctLeft.right(), rctRight.left());
    const QRect rctMarker(rctLeft.center(), QSize(30, 40));
    const QRect rctFree = PlaceGet({rctMarker}, rctPointer);
    EXPECT_FALSE(rctFree.intersects(rctPointer) || rctFree.intersects(rctMarker));
    // If markers are everywhere, the legend hides them rather than what the pointer is at.
    EXPECT_EQ(PlaceGet({QRect(0, 0, 900, 600)}), rctRight);
    EXPECT_FALSE(PlaceGet({QRect(0, 0, 900, 600)}, rctPointer).intersects(rctPointer));
}

}  // namespace
