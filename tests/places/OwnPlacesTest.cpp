#include <gtest/gtest.h>

#include "places/OwnPlaces.h"

namespace {

const std::string kHead = std::string(kOwnPlacesHead) + "\n";

OwnPlaceList ListOf(std::string_view sBytes)
{
    auto res = OwnPlacesParse(sBytes);
    EXPECT_TRUE(res) << res.TextGet();
    return res ? res.ValueGet() : OwnPlaceList();
}

std::string TextOf(const OwnPlaceList& list)
{
    const auto res = OwnPlacesText(list);
    EXPECT_TRUE(res) << res.TextGet();
    return res ? res.ValueGet() : "";
}

TEST(OwnPlaces, AreReadWithPositionsInAnySpelling)
{
    const auto aPlaces =
        OwnPlacesGet(ListOf(kHead
                            + "La Paz,\"24.308, -110.403\",7103 14105.5,marina\n"
                              "Malmö,\"55°36.00'N 13°00.00'E\",,\"\xC3\x96resund, östlich\"\n"
                              "Grid,fn42mm,\"5881,7971\",\n"
                              "Dinghy,N38 30.0 W122 15.0,,\n"));
    ASSERT_EQ(aPlaces.size(), 4U);
    EXPECT_EQ(aPlaces[0].eKind, PlaceKind::Own);
    EXPECT_EQ(aPlaces[0].sSystem, "places");
    EXPECT_EQ(aPlaces[0].sKey, "La Paz");
    EXPECT_EQ(aPlaces[0].sDescription, "marina");
    EXPECT_EQ(aPlaces[0].dLat, 24.308);
    EXPECT_EQ(aPlaces[0].dLon, -110.403);
    EXPECT_EQ(aPlaces[0].afFrequency, (std::vector<float>{7103.0F, 14105.5F}));
    EXPECT_EQ(aPlaces[1].sKey, "Malmö");
    EXPECT_EQ(aPlaces[1].sDescription, "Öresund, östlich");
    EXPECT_EQ(aPlaces[1].dLat, 55.6);
    EXPECT_EQ(aPlaces[2].afFrequency.size(), 2U);
    EXPECT_NEAR(aPlaces[2].dLat, 42.5, 0.1);
    EXPECT_EQ(aPlaces[3].dLat, 38.5);
    EXPECT_EQ(aPlaces[3].dLon, -122.25);
}

TEST(OwnPlaces, OfOneNameAreTwoPlaces)
{
    const auto aPlaces = OwnPlacesGet(ListOf(kHead + "Home,1N 2E,,\nHome,3N 4E,,\n"));
    ASSERT_EQ(aPlaces.size(), 2U);
    EXPECT_EQ(aPlaces[0].sKey, aPlaces[1].sKey);
    EXPECT_EQ(aPlaces[1].dLat, 3.0);
}

TEST(OwnPlaces, RowsThatCannotBeUsedAreToldByTheirLine)
{
    struct Case {
        const char* sRow;
        const char* sWhy;
    };
    for (const Case& c :
         {Case{"x,1N 2E,", "it has 3 columns, not 4"},
          Case{"x,1N 2E,,,", "it has 5 columns, not 4"}, Case{",1N 2E,,", "it has no name"},
          Case{"x,1N,,", "\"1N\" is not a position"}, Case{"x,,,", "\"\" is not a position"},
          Case{"x,91N 2E,,", "latitude 91° is beyond 90°"},
          Case{"x,1N 2E,7103 daily,", "\"daily\" is not a frequency from 1600 to 30000 kHz"},
          Case{"x,1N 2E,45000,", "\"45000\" is not a frequency from 1600 to 30000 kHz"},
          Case{"x\xFF,1N 2E,,", "its name is not UTF-8"},
          Case{"x,1N 2E,,\"", "a quote is not closed"}}) {
        const OwnPlaceList list = ListOf(kHead + "\na,5N 6E,,\n" + c.sRow + "\nb,7N 8E,,");
        EXPECT_EQ(OwnPlacesGet(list).size(), 2U) << c.sRow;
        const auto aFaults = OwnPlaceFaultsGet(list);
        ASSERT_EQ(aFaults.size(), 1U) << c.sRow;
        EXPECT_EQ(aFaults[0].sWhere, "line 4");
        EXPECT_EQ(aFaults[0].sWhy, c.sWhy);
    }
}

TEST(OwnPlaces, TextsHaveTheirLimits)
{
    EXPECT_TRUE(OwnPlaceMake({std::string(kOwnNameMost, 'x'), "1N 2E", "", ""}));
    EXPECT_FALSE(OwnPlaceMake({std::string(kOwnNameMost + 1, 'x'), "1N 2E", "", ""}));
    std::string sUmlauts;
    for (std::size_t n = 0; n < kOwnNoteMost; ++n) sUmlauts += "ä";
    EXPECT_TRUE(OwnPlaceMake({"x", "1N 2E", "", sUmlauts}));
    EXPECT_FALSE(OwnPlaceMake({"x", "1N 2E", "", sUmlauts + "ä"}));
    std::string sFrequencies;
    for (std::size_t n = 0; n < kOwnFrequenciesMost; ++n)
        sFrequencies += std::to_string(2000 + n) + " ";
    EXPECT_TRUE(OwnPlaceMake({"x", "1N 2E", sFrequencies, ""}));
    EXPECT_FALSE(OwnPlaceMake({"x", "1N 2E", sFrequencies + "9000", ""}));
}

TEST(OwnPlaces, AreSavedWithBadRowsWhereTheyStood)
{
    OwnPlaceList list = ListOf(kHead
                               + "a,1N 2E,7103,\nb , nowhere,,odd \n\n\"c\",3N 4E,,\"x \"\"y\"\"\"\n"
                                 "d,\"5N 6E,,\ne,7N 8E,,\n");
    EXPECT_EQ(TextOf(list), kHead
                                + "a,1N 2E,7103,\nb , nowhere,,odd \nc,3N 4E,,\"x \"\"y\"\"\"\n"
                                  "d,\"5N 6E,,\ne,7N 8E,,\n");
    list.aRows.erase(list.aRows.begin());
    list.aRows.push_back(OwnPlaceMake({"New, one", "9S 10W", "", ""}).ValueGet());
    EXPECT_EQ(TextOf(list), kHead
                                + "b , nowhere,,odd \nc,3N 4E,,\"x \"\"y\"\"\"\nd,\"5N 6E,,\n"
                                  "e,7N 8E,,\n\"New, one\",9S 10W,,\n");
}

TEST(OwnPlaces, AListThatWouldBeReadOtherwiseIsNotWritten)
{
    OwnPlaceList list = ListOf(kHead + "d,\"5N 6E\n");
    ASSERT_EQ(list.aRows.size(), 1U);
    list.aRows.push_back(OwnPlaceMake({",x,", "9S 10W", "", ",y,"}).ValueGet());
    const auto res = OwnPlacesText(list);
    if (res) {
        EXPECT_EQ(ListOf(res.ValueGet()).aRows.size(), 2U);
    }
    list.aRows[0].sRaw = "d,5N 6E,,";  // no longer a row with a fault
    EXPECT_FALSE(OwnPlacesText(list));
}

TEST(OwnPlaces, KeepByteOrderMarkAndLineEnds)
{
    for (const char* const sMark : {"", "\xEF\xBB\xBF"}) {
        for (const std::string& sEnd : {std::string("\n"), std::string("\r\n")}) {
            const std::string sBytes = sMark + std::string(kOwnPlacesHead) + sEnd + "a,1N 2E,,"
                                       + sEnd + "bad" + sEnd + "b,3N 4E,,x" + sEnd;
            const OwnPlaceList list = ListOf(sBytes);
            EXPECT_EQ(OwnPlacesGet(list).size(), 2U);
            EXPECT_EQ(list.aRows[1].sRaw, "bad");
            EXPECT_EQ(TextOf(list), sBytes);
        }
    }
}

TEST(OwnPlaces, WithoutAnyTextOrRowAreAnEmptyList)
{
    for (const std::string& sBytes :
         {std::string(), std::string("\r\n"), std::string("\xEF\xBB\xBF"), kHead})
        EXPECT_TRUE(ListOf(sBytes).aRows.empty());
    EXPECT_EQ(TextOf({}), kHead);
}

TEST(OwnPlaces, OfAnotherFirstLineAreRefusedWhole)
{
    for (const char* sBytes : {"name;position;frequencies;note\na;1N 2E;;\n", "a,1N 2E,,\n",
                               "name,position\n", "\xFF\xFEn"})
        EXPECT_EQ(OwnPlacesParse(sBytes).TextGet(),
                  "line 1 is not \"name,position,frequencies,note\"");
    EXPECT_TRUE(OwnPlacesParse("Name, Position, Frequencies, Note\n"));
    EXPECT_TRUE(OwnPlacesParse("\"name\",\"position\",\"frequencies\",\"note\"\n"));
}

TEST(OwnPlaces, HaveALimitOfRowsAndBytes)
{
    std::string sBytes = kHead;
    for (std::size_t n = 0; n < kOwnPlacesMost; ++n) sBytes += "a,1N 2E,,\n";
    EXPECT_EQ(ListOf(sBytes).aRows.size(), kOwnPlacesMost);
    EXPECT_EQ(OwnPlacesParse(sBytes + "a,1N 2E,,\n").TextGet(), "it has more than 10000 places");
    EXPECT_EQ(OwnPlacesParse(kHead + std::string(kOwnPlacesBytesMost, '\n')).TextGet(),
              "it is larger than 4 MB");
}

TEST(OwnPlaces, ArePastedFromTablesAndLists)
{
    const auto CountOf = [](const char* sText) {
        const auto res = OwnPlacesFromPaste(sText);
        return res ? OwnPlacesGet(res.ValueGet()).size() : 99U;
    };
    EXPECT_EQ(CountOf("a\t24.308, -110.403\t7103\tnote\r\nb\t1N 2E\r\n"), 2U);
    EXPECT_EQ(CountOf("name\tposition\tfrequencies\tnote\na\t1N 2E\t\t\n"), 1U);
    EXPECT_EQ(CountOf("a,1N 2E\nb,\"3N, 4E\",7103,x\n"), 2U);
    EXPECT_EQ(CountOf("name,position,frequencies,note\na,1N 2E,,\n"), 1U);
    EXPECT_EQ(CountOf(""), 0U);
    const auto resBad = OwnPlacesFromPaste("a\t1N 2E\nhello\t\nb\t\tx\n");
    ASSERT_TRUE(resBad);
    const auto aFaults = OwnPlaceFaultsGet(resBad.ValueGet());
    ASSERT_EQ(aFaults.size(), 2U);
    EXPECT_EQ(aFaults[0].sWhere, "line 2");
    EXPECT_FALSE(OwnPlacesFromPaste(std::string(kOwnPlacesBytesMost + 1, 'x')));
}

TEST(OwnPlaces, ArePastedFromMixedTextsRowByRow)
{
    const auto res = OwnPlacesFromPaste(
        "My places\r\n\r\nname,position,frequencies,note\r\nBay,\"1N, 2E\",7103,see\there\r\n"
        "Boston, MA\t42.4, -71.1\t\t\"the hub\"\r\nname\tposition\tfrequencies\tnote\r\n"
        "Cape\t3N 4E\t7103,\"9\r\nDock,5N 6E,,\"two\tlines\r\nof it\"\r\nEnd\t7N 8E\n");
    ASSERT_TRUE(res);
    const auto aPlaces = OwnPlacesGet(res.ValueGet());
    std::string sKeys;
    for (const Place& place : aPlaces) sKeys += place.sKey + ";";
    EXPECT_EQ(sKeys, "Bay;Boston, MA;Dock;End;");
    EXPECT_EQ(aPlaces.at(0).sDescription, "see here");
    EXPECT_EQ(aPlaces.at(1).sDescription, "\"the hub\"");
    EXPECT_EQ(aPlaces.at(2).sDescription, "two lines  of it");
    const auto aFaults = OwnPlaceFaultsGet(res.ValueGet());
    ASSERT_EQ(aFaults.size(), 2U);
    EXPECT_EQ(aFaults[0].sWhere, "line 1");
    EXPECT_EQ(aFaults[1].sWhere, "line 7") << "of a table, so its lost quote swallows nothing";
    EXPECT_EQ(aFaults[1].sWhy, "\"\"9\" is not a frequency from 1600 to 30000 kHz");
}

TEST(OwnPlaces, AreReadBehindAnyNumberOfBlankLines)
{
    constexpr int kBlank = 200000;
    const auto list = ListOf(kHead + std::string(kBlank, '\n') + "a,1N 2E,,\n");
    ASSERT_EQ(list.aRows.size(), 1U);
    EXPECT_EQ(list.aRows[0].nLine, kBlank + 2);
}

TEST(OwnPlaces, OfAnyTextsComeBackAsTheyWereSaved)
{
    for (const bool bCrLf : {false, true}) {
        OwnPlaceList list;
        list.bCrLf = bCrLf;
        for (const char* sText : {"a\"b", "\"", "\"\"", ",", ";", "a\r\nb", "#1", "'x'", "=1+1",
                                  "name,position,frequencies,note", "\tx", "-", "\xC3\xA9"})
            list.aRows.push_back(
                OwnPlaceMake({sText, "38°30.00'N, 122°15.00'W", "7103, 14098", sText}).ValueGet());
        const auto resPaste = OwnPlacesFromPaste("a\tnowhere\nb,\"c\nd\",,\nx\"y,1N 2E\n");
        ASSERT_TRUE(resPaste);
        for (const OwnPlace& row : resPaste.ValueGet().aRows) list.aRows.push_back(row);
        const std::string sBytes = TextOf(list);
        const OwnPlaceList loaded = ListOf(sBytes);
        ASSERT_EQ(loaded.aRows.size(), list.aRows.size());
        for (std::size_t n = 0; n < list.aRows.size(); ++n) {
            EXPECT_EQ(loaded.aRows[n].texts, list.aRows[n].texts) << n;
            EXPECT_EQ(loaded.aRows[n].sRaw, list.aRows[n].sRaw) << n;
        }
        EXPECT_EQ(loaded.bCrLf, bCrLf);
        EXPECT_EQ(TextOf(loaded), sBytes);
    }
}

}  // namespace
