#include <gtest/gtest.h>

#include "places/OwnPlaces.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace {

OwnPlaceList ListMake()
{
    OwnPlaceList list;
    list.aRows.push_back(OwnPlaceMake({"Malmö", "55.6, 13", "7103", "Öresund"}).ValueGet());
    return list;
}

TEST(OwnPlacesFile, StandsBesideTheProfileUnderItsBaseName)
{
    EXPECT_EQ(OwnPlacesPath("/home/me/hopcast.ini"), "/home/me/hopcast.places.csv");
    EXPECT_EQ(OwnPlacesPath("/boat.2/profile"), "/boat.2/profile.places.csv");
}

TEST(OwnPlacesFile, WhatWasSavedIsLoaded)
{
    const TempFolder folder;
    const std::string sProfile = folder.Path("boat.ini");
    const auto resNone = OwnPlacesLoad(sProfile);
    ASSERT_TRUE(resNone);
    EXPECT_TRUE(resNone.ValueGet().aRows.empty());
    const auto resSaved = OwnPlacesSave(sProfile, ListMake());
    ASSERT_TRUE(resSaved) << resSaved.TextGet();
    EXPECT_EQ(BytesRead(folder.Path("boat.places.csv")),
              "name,position,frequencies,note\nMalmö,\"55.6, 13\",7103,Öresund\n");
    const auto res = OwnPlacesLoad(sProfile);
    ASSERT_TRUE(res);
    EXPECT_EQ(OwnPlacesGet(res.ValueGet()), OwnPlacesGet(ListMake()));
}

TEST(OwnPlacesFile, OfAnotherKindIsToldWithItsNameAndNotOverwrittenUnseen)
{
    const TempFolder folder;
    folder.Write("boat.places.csv", "a;b\n");
    EXPECT_EQ(OwnPlacesLoad(folder.Path("boat.ini")).TextGet(),
              "Cannot read " + folder.Path("boat.places.csv")
                  + ": line 1 is not \"name,position,frequencies,note\". It is left as it is; repair "
                    "it or move it away.");
    folder.Write("huge.places.csv", std::string(kOwnPlacesBytesMost + 1, 'x'));
    EXPECT_NE(OwnPlacesLoad(folder.Path("huge.ini")).TextGet().find("it is larger than 4 MB"),
              std::string::npos);
}

TEST(OwnPlacesFile, IsChangedWhenItHasOtherRowsThanTheList)
{
    const TempFolder folder;
    const std::string sProfile = folder.Path("boat.ini");
    EXPECT_FALSE(OwnPlacesChanged(sProfile, ListMake())) << "without a file nothing is lost";
    ASSERT_TRUE(OwnPlacesSave(sProfile, ListMake()));
    EXPECT_FALSE(OwnPlacesChanged(sProfile, ListMake()));
    EXPECT_TRUE(OwnPlacesChanged(sProfile, {}));
    const std::string sHead = std::string(kOwnPlacesHead) + "\n";
    const std::string sRow = "Malmö,\"55.6, 13\",7103,Öresund\n";
    folder.Write("boat.places.csv", sHead + "\n" + sRow);
    EXPECT_FALSE(OwnPlacesChanged(sProfile, ListMake())) << "blank lines are no rows";
    folder.Write("boat.places.csv", sHead + sRow + "bad\n");
    EXPECT_TRUE(OwnPlacesChanged(sProfile, ListMake()));
    folder.Write("boat.places.csv", "a;b\n");
    EXPECT_TRUE(OwnPlacesChanged(sProfile, ListMake())) << "no list of places";
}

TEST(OwnPlacesFile, AFailedSaveLeavesTheOldOneWhole)
{
    const TempFolder folder;
    const std::string sProfile = folder.Path("boat.ini");
    ASSERT_TRUE(OwnPlacesSave(sProfile, {}));
    const std::string sOld = BytesRead(folder.Path("boat.places.csv"));
    OwnPlaceList listBad = ListMake();
    listBad.aRows[0].sFault = "bad";
    listBad.aRows[0].sRaw = "a,1N 2E,,";  // a valid row
    EXPECT_FALSE(OwnPlacesSave(sProfile, listBad));
    EXPECT_EQ(BytesRead(folder.Path("boat.places.csv")), sOld);
#ifndef _WIN32
    const FileSizeLimit limit(0);
    const auto res = OwnPlacesSave(sProfile, ListMake());
    EXPECT_FALSE(res);
    EXPECT_TRUE(res.TextGet().starts_with("Cannot save " + folder.Path("boat.places.csv") + ": "));
#endif
    EXPECT_EQ(BytesRead(folder.Path("boat.places.csv")), sOld);
}

}  // namespace
