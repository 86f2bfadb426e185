/// Pictures for the map's buttons.
#include <gtest/gtest.h>

#include <QIcon>
#include <QPixmap>

#include "ui/map/MapControls.h"

namespace {

constexpr const char* kKeys[] = {"Overlay", "Stations", "Path", "Night"};

TEST(MapPictures, EveryKeyHasItsOwnAndAnotherKeyHasNone)
{
    QImage imgBefore;
    for (const char* sKey : kKeys) {
        const QImage img = MapPictureGet(QLatin1String(sKey)).pixmap(20, 20).toImage();
        EXPECT_FALSE(img.isNull()) << sKey;
        EXPECT_NE(img, imgBefore) << sKey;
        imgBefore = img;
    }
    EXPECT_TRUE(MapPictureGet(QStringLiteral("None")).isNull());
}

// Each opening of the map once made the toolkit keep a new set of scaled pictures.
TEST(MapPictures, AreTheSameForEveryWindow)
{
    for (const char* sKey : kKeys)
        EXPECT_EQ(MapPictureGet(QLatin1String(sKey)).pixmap(20, 20).cacheKey(),
                  MapPictureGet(QLatin1String(sKey)).pixmap(20, 20).cacheKey())
            << sKey;
}

}  // namespace
