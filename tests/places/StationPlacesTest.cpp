#include <gtest/gtest.h>

#include "airmail/AirMailFixture.h"
#include "airmail/AirMailStations.h"
#include "places/StationPlaces.h"

namespace {

class StationPlacesTest : public AirMailFixture {
protected:
    void ListWrite(const std::string& sSystem, const std::string& sLines) const
    {
        AirMailWrite("System." + sSystem + ".ini", "[Station Info]\r\n" + sLines);
    }
};

TEST_F(StationPlacesTest, AreEveryLineOfEveryListWithItsKind)
{
    ListWrite("HAM", "XX1NYC=FN30AS:New York, 24 h;3590,7103/14098\r\nXX2MIA=el95:Miami\r\n");
    ListWrite("SailMail", "QQA101=EM02QU:Texas, USA;5876 7961\r\n");
    ListWrite("Coast", "Halifax=FN84:Halifax;4385;6507\r\n");
    const StationPlaces stations = StationPlacesGet();
    ASSERT_EQ(stations.aPlaces.size(), 4U);
    EXPECT_TRUE(stations.aFaults.empty());
    EXPECT_TRUE(stations.aMessages.empty());
    const Place& halifax = stations.aPlaces[0];
    EXPECT_EQ(halifax.eKind, PlaceKind::Other);
    EXPECT_EQ(halifax.sSystem, "Coast");
    EXPECT_EQ(halifax.afFrequency, (std::vector<float>{4385.0F, 6507.0F}));
    const Place& newYork = stations.aPlaces[1];
    EXPECT_EQ(newYork.eKind, PlaceKind::Ham);
    EXPECT_EQ(newYork.sKey, "XX1NYC");
    EXPECT_EQ(newYork.sDescription, "New York, 24 h");
    EXPECT_EQ(newYork.afFrequency, (std::vector<float>{3590.0F, 7103.0F, 14098.0F}));
    EXPECT_TRUE(stations.aPlaces[2].afFrequency.empty());
    EXPECT_EQ(stations.aPlaces[3].eKind, PlaceKind::SailMail);
}

TEST_F(StationPlacesTest, StandWhereTheStationMenusPutThem)
{
    ListWrite("HAM", "A=FN42:x\r\nB = \"EM02QU:quoted; 7103\"\r\nC=jj00aaXY:y\r\n");
    const StationPlaces stations = StationPlacesGet();
    ASSERT_EQ(stations.aPlaces.size(), 3U);
    for (const Place& place : stations.aPlaces) {
        double dLat = 0.0;
        double dLon = 0.0;
        Messages aMessages;
        const auto res = AirMailStationPosition("HAM", place.sKey, dLat, dLon, true, aMessages);
        ASSERT_TRUE(res && res.ValueGet()) << place.sKey;
        EXPECT_EQ(place.dLat, dLat);
        EXPECT_EQ(place.dLon, dLon);
        EXPECT_EQ(place.sDescription, AirMailStationDescription("HAM", place.sKey, nullptr));
    }
    EXPECT_NEAR(stations.aPlaces[0].dLat, 42.51304, 1e-5);
    EXPECT_EQ(stations.aPlaces[1].afFrequency, (std::vector<float>{7103.0F}));
}

TEST_F(StationPlacesTest, OfOneNameAreTwoPlaces)
{
    ListWrite("HAM", "XX1=FN42:first\r\nXX1=JO59:second\r\n");
    const StationPlaces stations = StationPlacesGet();
    ASSERT_EQ(stations.aPlaces.size(), 2U);
    EXPECT_EQ(stations.aPlaces[0].sDescription, "first");
    EXPECT_EQ(stations.aPlaces[1].sDescription, "second");
    EXPECT_NE(stations.aPlaces[0].dLat, stations.aPlaces[1].dLat);
}

TEST_F(StationPlacesTest, HaveUmlautsOfWindows1252)
{
    ListWrite("HAM", "M\xFCnchen=JN58:Gr\xFC\xDF\x65;7103\r\n");
    const StationPlaces stations = StationPlacesGet();
    ASSERT_EQ(stations.aPlaces.size(), 1U);
    EXPECT_EQ(stations.aPlaces[0].sKey, "München");
    EXPECT_EQ(stations.aPlaces[0].sDescription, "Grüße");
}

TEST_F(StationPlacesTest, EntriesThatCannotBeUsedAreNamedAndTheOthersStay)
{
    ListWrite(
        "HAM",
        "BAD=FN4:cut\r\nNONE=Wellington\r\nEMPTY=:x\r\nODD=12AB:y\r\n=FN42:no name\r\n"
        "BLANK=FN42 :z\r\nDIGITS=FN4!:d\r\nLETTERS=FN42a!:l\r\n;REMARK=FN42:r\r\nGOOD=FN42:g\r\n");
    const StationPlaces stations = StationPlacesGet();
    ASSERT_EQ(stations.aPlaces.size(), 1U);
    EXPECT_EQ(stations.aPlaces[0].sKey, "GOOD");
    ASSERT_EQ(stations.aFaults.size(), 8U);
    EXPECT_EQ(stations.aFaults[0],
              (PlaceFault{"HAM BAD", "its grid square \"FN4\" cannot be read", PlaceKind::Ham}));
    EXPECT_EQ(stations.aFaults[1],
              (PlaceFault{"HAM NONE", "it has no grid square", PlaceKind::Ham}));
    EXPECT_EQ(stations.aFaults[4].sWhy, "it has no name");
    EXPECT_EQ(stations.aFaults[6].sWhy, "its grid square \"FN4!\" cannot be read");
    EXPECT_EQ(stations.aFaults[7].sWhy, "its grid square \"FN42a!\" cannot be read");
}

TEST_F(StationPlacesTest, WithoutAirmailAreNoneAndOneMessage)
{
    const StationPlaces stations = StationPlacesGet();
    EXPECT_TRUE(stations.aPlaces.empty());
    EXPECT_TRUE(stations.aFaults.empty());
    ASSERT_EQ(stations.aMessages.size(), 1U);
    EXPECT_TRUE(stations.aMessages[0].sText.starts_with("Unable to find AirMail's"));
}

TEST_F(StationPlacesTest, AnEmptyListIsAMessageAndTheOthersStay)
{
    ListWrite("HAM", "\r\n");
    ListWrite("SailMail", "QQA101=EM02QU:Texas\r\n");
    const StationPlaces stations = StationPlacesGet();
    EXPECT_EQ(stations.aPlaces.size(), 1U);
    ASSERT_EQ(stations.aMessages.size(), 1U);
    EXPECT_NE(stations.aMessages[0].sText.find("\"HAM\"Stations."), std::string::npos);
}

TEST_F(StationPlacesTest, OfOtherKindsThanTheWantedOnesAreNotRead)
{
    ListWrite("HAM", "\r\n");
    ListWrite("SailMail", "QQA101=EM02QU:Texas\r\nBAD=x:y\r\n");
    ListWrite("Coast", "Halifax=FN84:Halifax\r\nBAD=x:y\r\n");
    const StationPlaces stations = StationPlacesGet({PlaceKind::Other, PlaceKind::Own});
    ASSERT_EQ(stations.aPlaces.size(), 1U);
    EXPECT_EQ(stations.aPlaces[0].sKey, "Halifax");
    ASSERT_EQ(stations.aFaults.size(), 1U);
    EXPECT_EQ(stations.aFaults[0].eKind, PlaceKind::Other);
    EXPECT_TRUE(stations.aMessages.empty()) << "nobody asked for the empty list";
}

TEST_F(StationPlacesTest, OfTwoFilesOfOneSystemAreReadOnce)
{
    ListWrite("HAM", "XX1=FN42:first\r\n");
    AirMailWrite("System.HAM.old.ini", "[Station Info]\r\nOLD=FN42:x\r\n");
    EXPECT_EQ(StationPlacesGet().aPlaces.size(), 1U);
}

TEST_F(StationPlacesTest, HaveNoHalfOfAFrequencyAtTheEndOfALongLine)
{
    std::string sLine = "LONG=FN42:xyz;";
    for (int i = 20000; i < 20100; ++i) sLine += std::to_string(i) + " ";
    ListWrite("HAM", sLine + "\r\n");
    const StationPlaces stations = StationPlacesGet();
    ASSERT_EQ(stations.aPlaces.size(), 1U);
    EXPECT_EQ(stations.aPlaces[0].afFrequency.size(), 83U);
    EXPECT_EQ(stations.aPlaces[0].afFrequency.back(), 20082.0F) << "not 2008";
}

TEST_F(StationPlacesTest, OfAHugeListAreReadUpToTheLimit)
{
    std::string sLines;
    for (std::size_t n = 0; n < kStationsMost + 3; ++n)
        sLines += "S" + std::to_string(n) + "=FN42:x;7103\r\n";
    ListWrite("HAM", sLines);
    const StationPlaces stations = StationPlacesGet();
    EXPECT_EQ(stations.aPlaces.size(), kStationsMost);
    EXPECT_EQ(stations.aPlaces.back().sKey, "S19999");
    EXPECT_EQ(stations.aFaults.size(), 3U);
}

}  // namespace
