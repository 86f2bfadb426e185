#include <gtest/gtest.h>

#include <QFile>
#include <array>
#include <cstdlib>
#include <map>
#include <set>

#include "ui/map/WorldImage.h"
#include "ui/map/WorldMapData.h"

namespace {

using Bytes = std::vector<unsigned char>;

// Two levels (tolerances 0 and 9), one country "Ab" of colour 3: a triangle (1,2) (3,2) (3,300),
// then, for level 1, the lone point (1,2).
// clang-format off
const Bytes kSmallMap{
    'H', 'C', 'W', 'M', 1,
    0x90, 0x03,        // width 400
    0xAC, 0x02,        // height 300
    2, 0, 9,
    1, 2, 'A', 'b', 3,
    1, 3, 2, 4, 4, 0, 0, 0xD4, 0x04,
    1, 1, 2, 4};
// clang-format on
constexpr std::size_t kSmallColor = 16;
constexpr std::size_t kSmallRings = 17;

Bytes BuiltInBytes()
{
    QFile fil(QStringLiteral(":/hopcast_ui_map/world.map"));
    EXPECT_TRUE(fil.open(QIODevice::ReadOnly));
    const QByteArray aBytes = fil.readAll();
    return {aBytes.begin(), aBytes.end()};
}

double RingGetArea(const MapRing& rng)
{
    double dTwice = 0.0;
    MapPoint ptOld = rng.m_aPoints.back();
    for (const MapPoint& pt : rng.m_aPoints) {
        dTwice += double(ptOld.nX) * pt.nY - double(pt.nX) * ptOld.nY;
        ptOld = pt;
    }
    return std::abs(dTwice) / 2;
}

/// A border segment of two points, the same in both directions and in both copies of the map.
using Edge = std::array<int, 4>;
Edge EdgeMake(MapPoint ptOne, MapPoint ptTwo)
{
    ptOne.nX %= kImgWidth;
    ptTwo.nX %= kImgWidth;
    if (std::pair(ptTwo.nX, ptTwo.nY) < std::pair(ptOne.nX, ptOne.nY))
        std::swap(ptOne, ptTwo);
    return {ptOne.nX, ptOne.nY, ptTwo.nX, ptTwo.nY};
}

}  // namespace

TEST(WorldMapData, SmallMapIsRead)
{
    auto resMap = WorldMapRead(kSmallMap);
    ASSERT_TRUE(bool(resMap));
    const WorldMap& map = resMap.ValueGet();
    EXPECT_EQ(map.m_nImgWidth, 400);
    EXPECT_EQ(map.m_nImgHeight, 300);
    EXPECT_EQ(map.m_aTolerances, (std::vector<int>{0, 9}));
    ASSERT_EQ(map.m_aCountries.size(), 1u);
    const MapCountry& cty = map.m_aCountries[0];
    EXPECT_EQ(cty.m_sName, "Ab");
    EXPECT_EQ(cty.m_nColor, 3);
    ASSERT_EQ(cty.m_aLevels.size(), 2u);
    ASSERT_EQ(cty.m_aLevels[0].size(), 1u);
    const MapRing& rng = cty.m_aLevels[0][0];
    ASSERT_EQ(rng.m_aPoints.size(), 3u);
    EXPECT_EQ(rng.m_aPoints[1].nX, 3);
    EXPECT_EQ(rng.m_aPoints[2].nY, 300);
    EXPECT_EQ(rng.m_ptLow.nX, 1);
    EXPECT_EQ(rng.m_ptLow.nY, 2);
    EXPECT_EQ(rng.m_ptHigh.nX, 3);
    EXPECT_EQ(rng.m_ptHigh.nY, 300);
    EXPECT_EQ(cty.m_aLevels[1][0].m_aPoints.size(), 1u);
}

TEST(WorldMapData, MapCutAtAnyByteIsRefused)
{
    for (std::size_t n = 0; n < kSmallMap.size(); ++n) {
        const Bytes aCut(kSmallMap.begin(), kSmallMap.begin() + std::ptrdiff_t(n));
        auto resMap = WorldMapRead(aCut);
        EXPECT_FALSE(bool(resMap)) << n;
        EXPECT_EQ(resMap.TextGet(), "Type mismatch");
    }
}

TEST(WorldMapData, BytesBehindTheMapAreRefused)
{
    Bytes aBytes = kSmallMap;
    aBytes.push_back(0);
    EXPECT_FALSE(bool(WorldMapRead(aBytes)));
}

TEST(WorldMapData, ValuesOutOfRangeAreRefused)
{
    struct Damage {
        const char* sWhat;
        std::size_t nAt;
        unsigned char nByte;
    };
    const Damage aDamages[] = {{"magic", 0, 'h'},
                               {"version", 4, 2},
                               {"width 0", 5, 0x80},
                               {"no levels", 9, 0},
                               {"level 0 not exact", 10, 1},
                               {"more countries", 12, 2},
                               {"colour", kSmallColor, 6},
                               {"no rings", kSmallRings, 0},
                               {"no points", kSmallRings + 1, 0}};
    for (const Damage& dmg : aDamages) {
        Bytes aBytes = kSmallMap;
        aBytes.at(dmg.nAt) = dmg.nByte;
        if (dmg.nAt == 5)
            aBytes[6] = 0;
        EXPECT_FALSE(bool(WorldMapRead(aBytes))) << dmg.sWhat;
    }
}

TEST(WorldMapData, DamagedBytesOfTheBuiltInMapDoNoHarm)
{
    const Bytes aGood = BuiltInBytes();
    ASSERT_TRUE(bool(WorldMapRead(aGood)));
    for (std::size_t n = 1; n < aGood.size(); n += aGood.size() / 40) {
        const Bytes aCut(aGood.begin(), aGood.begin() + std::ptrdiff_t(n));
        EXPECT_FALSE(bool(WorldMapRead(aCut))) << n;
        Bytes aFlipped = aGood;
        aFlipped[n] = static_cast<unsigned char>(~aFlipped[n]);
        auto resMap = WorldMapRead(aFlipped);  // refused or not, the call must return
        EXPECT_TRUE(bool(resMap) || resMap.TextGet() == "Type mismatch");
    }
}

TEST(WorldMapData, BuiltInMapIsSmallAndHasTheSizeOfTheImage)
{
    EXPECT_LT(BuiltInBytes().size(), 1'000'000u);
    const WorldMap& map = WorldMapGet();
    EXPECT_EQ(map.m_nImgWidth, kImgWidth);
    EXPECT_EQ(map.m_nImgHeight, kImgHeight);
    EXPECT_EQ(map.m_aCountries.size(), 241u);  // as many as Natural Earth 1:50m has
}

TEST(WorldMapData, EveryCountryIsInEveryLevelWithItsLargestRingFirst)
{
    const WorldMap& map = WorldMapGet();
    for (const MapCountry& cty : map.m_aCountries) {
        ASSERT_EQ(cty.m_aLevels.size(), map.m_aTolerances.size()) << cty.m_sName;
        for (const std::vector<MapRing>& aRings : cty.m_aLevels) {
            ASSERT_FALSE(aRings.empty()) << cty.m_sName;
            const double dArea = RingGetArea(aRings[0]);
            for (const MapRing& rng : aRings) {
                EXPECT_LE(RingGetArea(rng), dArea) << cty.m_sName;
                EXPECT_GE(rng.m_ptLow.nX, 0) << cty.m_sName;
                EXPECT_LT(rng.m_ptLow.nX, kImgWidth) << cty.m_sName;
                EXPECT_LE(rng.m_ptHigh.nX, rng.m_ptLow.nX + kImgWidth) << cty.m_sName;
            }
        }
    }
}

TEST(WorldMapData, LevelsGetSmaller)
{
    const WorldMap& map = WorldMapGet();
    std::size_t nPointsFiner = std::size_t(-1);
    for (std::size_t nLevel = 0; nLevel < map.m_aTolerances.size(); ++nLevel) {
        std::size_t nPoints = 0;
        for (const MapCountry& cty : map.m_aCountries)
            for (const MapRing& rng : cty.m_aLevels[nLevel]) nPoints += rng.m_aPoints.size();
        EXPECT_LT(nPoints, nPointsFiner / 5 * 4) << nLevel;
        nPointsFiner = nPoints;
    }
}

TEST(WorldMapData, NoTwoNeighboursHaveOneColour)
{
    const WorldMap& map = WorldMapGet();
    std::map<Edge, std::size_t> mapOwners;
    std::set<std::pair<std::size_t, std::size_t>> setBorders;
    for (std::size_t n = 0; n < map.m_aCountries.size(); ++n)
        for (const MapRing& rng : map.m_aCountries[n].m_aLevels[0]) {
            MapPoint ptOld = rng.m_aPoints.back();
            for (const MapPoint& pt : rng.m_aPoints) {
                const auto [it, bNew] = mapOwners.try_emplace(EdgeMake(ptOld, pt), n);
                if (!bNew && it->second != n)
                    setBorders.emplace(it->second, n);
                ptOld = pt;
            }
        }
    EXPECT_GT(setBorders.size(), 300u);  // the world has slightly more than 300 land borders
    for (const auto& [nOne, nTwo] : setBorders)
        EXPECT_NE(map.m_aCountries[nOne].m_nColor, map.m_aCountries[nTwo].m_nColor)
            << map.m_aCountries[nOne].m_sName << ", " << map.m_aCountries[nTwo].m_sName;
}

TEST(WorldMapData, FullDetailHasNoStairs)
{
    // Outlines traced from a raster would have stairs: horizontal, vertical, horizontal. Three
    // pixels of a view 5 degrees and 1200 pixels wide are 12.5 image pixels.
    const auto LongLevel = [](int nLong, int nAcross) {
        return std::abs(nLong) > 12 && nAcross == 0;
    };
    int nStairs = 0;
    int nPoints = 0;
    for (const MapCountry& cty : WorldMapGet().m_aCountries)
        for (const MapRing& rng : cty.m_aLevels[0])
            for (std::size_t i = 0; i + 3 < rng.m_aPoints.size(); ++i, ++nPoints) {
                const MapPoint* p = &rng.m_aPoints[i];
                if (p[0].nY > kImgHeight)
                    continue;
                nStairs += LongLevel(p[1].nX - p[0].nX, p[1].nY - p[0].nY)
                           && LongLevel(p[2].nY - p[1].nY, p[2].nX - p[1].nX)
                           && LongLevel(p[3].nX - p[2].nX, p[3].nY - p[2].nY);
            }
    EXPECT_GT(nPoints, 80'000);
    EXPECT_LE(nStairs, 2);
}
