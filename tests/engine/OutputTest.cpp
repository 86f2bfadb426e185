// Page and grid: what each column holds, against the readers' rules and the real program's layout.

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <sstream>

#include "engine/DeckSample.h"
#include "engine/ReferenceData.h"
#include "engine/rec533/Luf.h"
#include "engine/run533/AntennaFile.h"
#include "engine/run533/CircuitTable.h"
#include "engine/run533/FieldText.h"
#include "engine/run533/Run.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

using namespace run533;  // NOLINT(google-build-using-namespace)
using rec533::Behaviour;

std::vector<std::string> LinesOf(const std::string& sText)
{
    std::vector<std::string> aLines;
    std::istringstream stm(sText);
    for (std::string sLine; std::getline(stm, sLine);) aLines.push_back(sLine);
    return aLines;
}

std::string Cut(const std::string& sLine, int nCol, int nWidth)
{
    return std::string(TextColumns(sLine, nCol, nWidth));
}

double NumberOf(const std::string& sLine, int nCol, int nWidth)
{
    const auto res = NumberFromText(Cut(sLine, nCol, nWidth));
    EXPECT_TRUE(res) << "\"" << Cut(sLine, nCol, nWidth) << "\" of " << sLine;
    return res ? res.ValueGet() : 0.0;
}

std::string PageOf(const std::string& sDeck, Behaviour eBehaviour = Behaviour::Best)
{
    const auto res = PointOutputMake(sDeck, "/nowhere", eBehaviour);
    EXPECT_TRUE(res) << res.TextGet();
    return res ? res.ValueGet() : std::string();
}

std::string GridOf(const std::string& sDeck, int nThreads = 1,
                   Behaviour eBehaviour = Behaviour::Best)
{
    const auto res = AreaOutputMake(sDeck, "/nowhere", eBehaviour, nThreads);
    EXPECT_TRUE(res) << res.TextGet();
    return res ? res.ValueGet() : std::string();
}

struct FieldCase {
    double dValue;
    int nWidth, nDecimals;
    const char* sText;
};

TEST(FieldText, FitsItsColumnsWithABlankBefore)
{
    for (const FieldCase& c :
         {FieldCase{14.05, 5, 1, " 14.1"}, FieldCase{0.04, 5, 1, "  0.0"},
          FieldCase{-0.04, 5, 1, "  0.0"}, FieldCase{-0.4, 5, 0, "    0"},
          FieldCase{0.5, 5, 0, "    1"}, FieldCase{123.4, 5, 1, " 99.9"},
          FieldCase{-2532.0, 5, 0, " -999"}, FieldCase{12345.0, 5, 0, " 9999"},
          FieldCase{-99.95, 6, 1, " -99.9"}, FieldCase{-0.5, 6, 1, "  -0.5"},
          FieldCase{999.96, 6, 1, " 999.9"}, FieldCase{0.01, 6, 3, " 0.010"},
          FieldCase{-180.0, 10, 4, " -180.0000"}, FieldCase{std::nan(""), 5, 0, "    0"},
          FieldCase{1.0 / 0.0, 5, 0, " 9999"}}) {
        std::string sText;
        FieldAppend(sText, c.dValue, c.nWidth, c.nDecimals);
        EXPECT_EQ(sText, c.sText);
    }
}

TEST(PointOutput, HasTheRealProgramsLinesInItsColumns)
{
    const std::string sPage = PageOf(DeckOf("p2p_01.dat"));
    EXPECT_EQ(sPage.size(), 16083u);  // the size of the real page
    const auto aLines = LinesOf(sPage);
    EXPECT_EQ(Cut(aLines[0], 33, 36), "P.533 with long-path rule           ");
    EXPECT_NE(aLines[3].find("AZIMUTHS"), std::string::npos);
    EXPECT_EQ(aLines[4],
              " 38.00 N  122.00 W   24.00 N  110.00 W    140.40  326.65    1041.0   1927.9");
    EXPECT_EQ(Cut(aLines[4], 43, 6), "140.40");
    EXPECT_EQ(Cut(aLines[4], 51, 6), "326.65");
    EXPECT_NEAR(NumberOf(aLines[4], 60, 7), 1041.0, 0.05);
    EXPECT_EQ(aLines[6],
              " XMTR  2-30 2-D Table [DEFAULT\\SWWHIP.VOA   ] Az=  0.0 OFFaz=140.4   5.000kW");
    EXPECT_EQ(aLines[8],
              " NOISE -145 dBW           S/N 50% of Days @  40 dB  in    1 Hz RX Bandwidth");
    EXPECT_EQ(aLines.back(), " End-of-Run");
    EXPECT_EQ(std::count(sPage.begin(), sPage.end(), '\f'), 4);
    EXPECT_EQ(sPage.find('*'), std::string::npos);
}

TEST(PointOutput, HoursComeFrom24AndEveryFieldIsANumber)
{
    for (int nDeck = 1; nDeck <= 13; ++nDeck) {
        const auto aLines = LinesOf(PageOf(PointDeckOf(nDeck)));
        int nHour = 0;
        for (std::size_t i = 0; i < aLines.size(); ++i) {
            if (Cut(aLines[i], 60, 4) != "FREQ")
                continue;
            EXPECT_EQ(NumberOf(aLines[i], 1, 3), nHour == 0 ? 24 : nHour) << nDeck;
            const double dMuf = NumberOf(aLines[i], 5, 4);
            EXPECT_GE(dMuf, 2.0);
            EXPECT_GE(NumberOf(aLines[i], 65, 4), 2.0) << aLines[i];
            EXPECT_LE(NumberOf(aLines[i], 65, 4), dMuf + 0.11) << aLines[i];
            const char* aLabels[]{"MODE", "ANGL", "DBU ", "dBpW", "S/N ", "FS/N", "SNxx"};
            for (std::size_t k = 0; k < 7; ++k) {
                ASSERT_EQ(Cut(aLines[i + 1 + k], 60, 4), aLabels[k]) << nDeck;
                for (int j = 0; j < 10 && k >= 2; ++j) NumberOf(aLines[i + 1 + k], 9 + 5 * j, 5);
            }
            ++nHour;
        }
        EXPECT_EQ(nHour, 24) << nDeck;
    }
}

TEST(PointOutput, UnusedColumnsAreFilledAsTheRealProgramFillsThem)
{
    const auto aLines = LinesOf(PageOf(DeckOf("p2p_13.dat")));
    std::size_t i = 0;
    while (Cut(aLines[i], 60, 4) != "FREQ") ++i;
    EXPECT_EQ(Cut(aLines[i], 9, 15), "  0.5 14.1  0.0");
    EXPECT_EQ(Cut(aLines[i + 1], 19, 10), "  0    0  ");
    EXPECT_EQ(Cut(aLines[i + 2], 19, 10), "    0    0");
    for (const std::size_t k : {3, 4, 5, 7}) EXPECT_EQ(Cut(aLines[i + k], 19, 10), " -999 -999");
    EXPECT_EQ(Cut(aLines[i + 6], 19, 10), " 0.00 0.00");
}

TEST(PointOutput, AnUnusableFrequencyLeavesOnlyItsOwnColumnUnused)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    const auto aGood = LinesOf(PageOf(sDeck));
    const auto aBad = LinesOf(PageOf(Replaced(sDeck, "    8.0", "   88.0")));
    ASSERT_EQ(aGood.size(), aBad.size());
    for (std::size_t i = 0; i < aGood.size(); ++i) {
        EXPECT_EQ(Cut(aGood[i], 1, 23), Cut(aBad[i], 1, 23));
        EXPECT_EQ(Cut(aGood[i], 29, 60), Cut(aBad[i], 29, 60));
        if (Cut(aBad[i], 60, 4) == "SNxx") {
            EXPECT_EQ(Cut(aBad[i], 24, 5), " -999");
        }
    }
}

TEST(PointOutput, LongPathsShowTheModeThatCarriesThePower)
{
    const auto aLines = LinesOf(PageOf(DeckOf("p2p_03.dat")));
    int nDashes = 0, nModes = 0;
    for (std::size_t i = 0; i < aLines.size(); ++i) {
        if (Cut(aLines[i], 60, 4) != "MODE")
            continue;
        for (int j = 0; j < 10; ++j) {
            const std::string sMode = Cut(aLines[i], 9 + 5 * j, 5);
            const bool bDash = sMode == "   - ";
            (bDash ? nDashes : nModes) += 1;
            EXPECT_EQ(Cut(aLines[i + 1], 9 + 5 * j, 5) == "   - ", bDash);
            EXPECT_TRUE(bDash || sMode.find("F2") != std::string::npos) << sMode;
        }
    }
    EXPECT_GT(nDashes, 20);
    EXPECT_GT(nModes, 20);
    // The plain Recommendation has no modes at this distance.
    const std::string sPlain = PageOf(DeckOf("p2p_03.dat"), Behaviour::Corrected);
    EXPECT_EQ(sPlain.find("F2"), std::string::npos);
    EXPECT_NE(sPlain.find("P.533 corrected"), std::string::npos);
}

std::string MapsOf(std::string sDeck, const std::string& sName)
{
    for (const std::string sOld : {"URSI", "CCIR"}) {
        const std::size_t nAt = sDeck.find(sOld);
        if (nAt != std::string::npos)
            sDeck.replace(nAt, 4, sName);
    }
    return sDeck;
}

TEST(PointOutput, MapsAreThoseThatTheDeckNames)
{
    const std::string sDeck = DeckOf("p2p_05.dat");
    std::set<std::string> aBlocks;
    for (const std::string sName : {"CCIR", "URSI", "MEAN"}) {
        const std::string sPage = PageOf(MapsOf(sDeck, sName));
        EXPECT_EQ(sPage.substr(1, 17), sName + " Coefficients");
        aBlocks.insert(sPage.substr(sPage.find(" 24 ")));
    }
    EXPECT_EQ(aBlocks.size(), 3u);
}

TEST(AreaOutput, MapsAreThoseThatTheDeckNames)
{
    const std::string sDeck = DeckOf("area_03.rec");
    std::set<std::string> aPoints;
    for (const std::string sName : {"CCIR", "URSI", "MEAN"}) {
        const auto aLines = LinesOf(GridOf(MapsOf(sDeck, sName)));
        EXPECT_EQ(aLines[0], "P.533 with long-path rule, " + sName + " maps");
        aPoints.insert(aLines[3]);
    }
    EXPECT_EQ(aPoints.size(), 3u);
}

TEST(PointOutput, BothEndsAtOnePlaceAreToldApart)
{
    const auto aLines = LinesOf(PageOf(DeckOf("p2p_11.dat")));
    EXPECT_EQ(Cut(aLines[4], 1, 56), " 10.00 N   20.00 E   10.00 N   20.01 E     90.00  270.00");
}

TEST(PointOutput, OnePlaceOnTheDateLineIsToldApartAcrossIt)
{
    const auto aLines = LinesOf(PageOf(
        Replaced(Replaced(DeckOf("p2p_11.dat"), " 20.00E", "180.00E"), " 20.00E", "180.00E")));
    EXPECT_EQ(Cut(aLines[4], 1, 38), " 10.00 N  180.00 E   10.00 N  179.99 W");
}

struct Near {
    int nAll = 0, nNear = 0;
    void Count(double dOwn, double dReal)
    {
        ++nAll;
        nNear += std::abs(dOwn / dReal - 1.0) <= 0.15 ? 1 : 0;
    }
};

// Hours of the captured pages below 7000 km.
Near PagesNearGet()
{
    Near near;
    const DataTable tbl("real_muf.csv");
    for (std::size_t nRow = 0; nRow < tbl.CountGet(); ++nRow) {
        const auto aLines =
            LinesOf(PageOf(DeckOf(tbl.TextGet(nRow, "deck") + ".dat"), Behaviour::Corrected));
        if (NumberOf(aLines[4], 69, 7) >= 7000.0)
            continue;
        for (const std::string& sLine : aLines) {
            if (Cut(sLine, 60, 4) == "FREQ")
                near.Count(
                    NumberOf(sLine, 4, 5),
                    tbl.NumberGet(
                        nRow, "muf_" + std::to_string(static_cast<int>(NumberOf(sLine, 1, 3)))));
        }
    }
    return near;
}

// Points of the captured grids below 7000 km.
Near GridsNearGet()
{
    Near near;
    for (int nDeck = 1; nDeck <= 5; ++nDeck) {
        const std::string sName = "area_0" + std::to_string(nDeck);
        const std::string sDeck = DeckOf(sName + ".rec");
        const auto resDeck = AreaDeckRead(sDeck);
        const auto aOwn = LinesOf(GridOf(sDeck, 1, Behaviour::Corrected));
        const auto aReal = LinesOf(BytesRead(
            std::string(TEST_DATA) + "/../../propagation/data/engines/rec533/" + sName + ".rg1"));
        EXPECT_TRUE(resDeck && aOwn.size() == aReal.size()) << sName;
        if (!resDeck || aOwn.size() != aReal.size())
            return {};
        const auto& deck = resDeck.ValueGet().common;
        const rec533::Place fixed = rec533::PlaceFromDegrees(deck.dTxLat, deck.dTxLon);
        for (std::size_t i = 3; i < aOwn.size(); ++i) {
            const rec533::Place point = rec533::PlaceFromDegrees(
                NumberOf(aOwn[i], 7, 10), std::remainder(NumberOf(aOwn[i], 17, 10), 360.0));
            EXPECT_EQ(Cut(aOwn[i], 1, 15), Cut(aReal[i], 1, 15));
            if (rec533::WayMake(fixed, point, false).dKm < 7000.0)
                near.Count(NumberOf(aOwn[i], 27, 6), NumberOf(aReal[i], 27, 6));
        }
    }
    return near;
}

// The two methods are twenty years apart, yet typical hours agree. Most exceptions are at distances
// where the editions count hops differently, and in polar nights, where the method keeps an E layer
// without a sun.
TEST(PointOutput, BasicMufsLieNearTheRealPrograms)
{
    const Near pages = PagesNearGet();
    EXPECT_EQ(pages.nAll, 240);
    EXPECT_GE(pages.nNear, 0.89 * pages.nAll);
    const Near grids = GridsNearGet();
    EXPECT_EQ(grids.nAll, 4530);
    EXPECT_GE(grids.nNear, 0.89 * grids.nAll);
}

TEST(Luf, IsTheLowestThatServesAsABruteForceSearchFindsIt)
{
    int nSame = 0, nAll = 0;
    const auto pWork = std::make_unique<rec533::PredictionWork>();
    const auto pRun = std::make_unique<CircuitRun>(Behaviour::Best, rec533::MapSet::Ccir);
    const DataTable tbl("p533_circuits.csv");
    for (std::size_t i = 0; i < tbl.CountGet(); i += 4) {
        for (int nLabel = 1; nLabel <= 24; nLabel += 5) {
            pRun->Go(tbl.TextGet(i, "id"), nLabel);
            const double dMuf = pRun->m_tblHour.dMuf;
            const double dShare = pRun->m_tblPath.circuit.dRequiredReliability;
            double dBrute = std::ceil(dMuf * 10.0) / 10.0;
            for (int n = 20; n <= static_cast<int>(dMuf * 10.0); ++n) {
                if (pRun->PredictionGet(n / 10.0).dReliability >= dShare) {
                    dBrute = n / 10.0;
                    break;
                }
            }
            const double dLuf = LufGet(pRun->m_tblHour, *pWork);
            nSame += dLuf == dBrute ? 1 : 0;
            ++nAll;
            EXPECT_GE(dLuf,
                      dBrute);  // the search may skip a usable range narrower than its coarse step
        }
    }
    EXPECT_EQ(nAll, 75);
    EXPECT_EQ(nSame, nAll);
}

// The rows of one label of a page, without the labels.
std::vector<std::string> RowsOf(const std::string& sPage, const std::string& sLabel)
{
    std::vector<std::string> aRows;
    for (const std::string& sLine : LinesOf(sPage))
        if (Cut(sLine, 60, 4) == sLabel)
            aRows.push_back(Cut(sLine, 4, 55));
    EXPECT_EQ(aRows.size(), 24u) << sLabel;
    return aRows;
}

// A page without antennas, and the same circuit in a table.
TEST(PointOutput, AgreesWithTheTableOfCircuitsToThePrintedDigit)
{
    constexpr const char* kHead =
        "id,tx_lat,tx_lon,rx_lat,rx_lon,path,month,ssn,pwr_w,noise,req_snr,req_rel,hour,freq\n";
    int nCompared = 0;
    for (const char* sPlace : {"24.00N    110.00W", "50.00N     10.00E", "33.90S    151.20E"}) {
        std::string sDeck = MapsOf(DeckOf("p2p_01.dat"), "MEAN");
        for (std::size_t n = sDeck.find("ANTENNA"); n != std::string::npos;
             n = sDeck.find("ANTENNA"))
            sDeck.erase(n, sDeck.find('\n', n) + 1 - n);
        const std::size_t nAt = sDeck.find("24.00N    110.00W");
        ASSERT_NE(nAt, std::string::npos);
        sDeck.replace(nAt, 17, sPlace);
        const auto resDeck = PointDeckRead(sDeck);
        ASSERT_TRUE(resDeck) << resDeck.TextGet();
        const auto& deck = resDeck.ValueGet();
        std::string sTable = kHead;
        for (int nHour = 1; nHour <= 24; ++nHour)
            for (const double dFrequency : deck.aFrequencies)
                sTable += "x,38,-122," + NumberToText(deck.dRxLat) + "," + NumberToText(deck.dRxLon)
                          + ",SHORT," + NumberToText(deck.common.nMonth) + ","
                          + NumberToText(deck.common.dSsn) + ","
                          + NumberToText(deck.dPowerKw * 1000.0) + ","
                          + NumberToText(deck.common.dNoise) + ","
                          + NumberToText(deck.common.dRequiredSnr) + ","
                          + NumberToText(deck.common.dReliability) + "," + NumberToText(nHour) + ","
                          + NumberToText(dFrequency) + "\n";
        const auto resTable =
            run533::CircuitTableMake(sTable, Behaviour::Best, rec533::MapSet::Mean);
        ASSERT_TRUE(resTable) << resTable.TextGet();
        const auto aRows = LinesOf(resTable.ValueGet());
        const std::string sPage = PageOf(sDeck);
        const auto aFields = RowsOf(sPage, "DBU ");
        const auto aRatios = RowsOf(sPage, "S/N ");
        ASSERT_EQ(aFields.size(), 24u);
        for (std::size_t i = 0; i < 24; ++i) {
            for (std::size_t k = 0; k < deck.aFrequencies.size(); ++k) {
                const std::size_t nHour = (i + 23) % 24;  // the page begins with hour 24
                std::vector<std::string> aCells;
                std::stringstream stm(aRows[1 + nHour * deck.aFrequencies.size() + k]);
                for (std::string sCell; std::getline(stm, sCell, ',');) aCells.push_back(sCell);
                const auto nCol = static_cast<int>(6 + 5 * k);
                const double dField = std::clamp(std::stod(aCells[29]), -999.0, 9999.0);
                const double dRatio = std::clamp(std::stod(aCells[41]), -999.0, 9999.0);
                EXPECT_NEAR(NumberOf(aFields[i], nCol, 5), dField, 0.5005) << sPlace;
                EXPECT_NEAR(NumberOf(aRatios[i], nCol, 5), dRatio, 0.5005) << sPlace;
                ++nCompared;
            }
        }
    }
    EXPECT_GT(nCompared, 500);
}

TEST(PointOutput, PowerIsTheAntennaCardsAndWithoutOneTheSystemCards)
{
    const std::string sWith = DeckOf("p2p_01.dat");
    EXPECT_EQ(PageOf(sWith), PageOf(Replaced(sWith, "     1.0000", "    10.0000")));
    const auto aTen =
        RowsOf(PageOf(Replaced(sWith, "]  0.0    5.0000", "]  0.0   50.0000")), "DBU ");
    const auto aFive = RowsOf(PageOf(sWith), "DBU ");
    const std::string sWithout = DeckOf("p2p_13.dat");
    const auto aMore = RowsOf(PageOf(Replaced(sWithout, "     1.0000", "    10.0000")), "DBU ");
    const auto aOne = RowsOf(PageOf(sWithout), "DBU ");
    for (std::size_t i = 0; i < aOne.size(); ++i) {
        EXPECT_NEAR(NumberOf(aMore[i], 1, 5), NumberOf(aOne[i], 1, 5) + 10.0, 0.5);
        EXPECT_NEAR(NumberOf(aTen[i], 1, 5), NumberOf(aFive[i], 1, 5) + 10.0, 0.5);
    }
}

TEST(PointOutput, EitherSignOfTheNoiseMeansTheSame)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    EXPECT_EQ(PageOf(sDeck), PageOf(Replaced(sDeck, " -145", "  145")));
    EXPECT_NE(PageOf(sDeck), PageOf(Replaced(sDeck, " -145", " -135")));
}

TEST(PointOutput, NoRayLeavesBelowTheLeastTakeoffAngle)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    double dLowest = 90.0;
    for (const std::string& sRow : RowsOf(PageOf(Replaced(sDeck, " 3.00", "25.00")), "ANGL"))
        for (int j = 0; j < 11; ++j)
            if (Cut(sRow, 1 + 5 * j, 5) != "   - ")  // no mode reaches the place
                dLowest = std::min(dLowest, NumberOf(sRow, 1 + 5 * j, 5));
    EXPECT_GE(dLowest, 24.0);
    EXPECT_LT(NumberOf(RowsOf(PageOf(sDeck), "ANGL")[0], 1, 5), 24.0);
}

TEST(PointOutput, SnrOfHalfTheDaysIsTheMedianAndOfMoreDaysLess)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    const std::string sHalf = PageOf(sDeck);
    EXPECT_EQ(RowsOf(sHalf, "SNxx"), RowsOf(sHalf, "S/N "));
    const std::string sMore = PageOf(Replaced(sDeck, "   40   50", "   40   90"));
    EXPECT_EQ(RowsOf(sMore, "S/N "), RowsOf(sHalf, "S/N "));
    const auto aMore = RowsOf(sMore, "SNxx");
    const auto aHalf = RowsOf(sHalf, "SNxx");
    for (std::size_t i = 0; i < aHalf.size(); ++i)
        EXPECT_LT(NumberOf(aMore[i], 1, 5), NumberOf(aHalf[i], 1, 5) - 8.0);
}

TEST(AreaOutput, HasTheRealGridsLinesAndOrder)
{
    const auto aLines = LinesOf(GridOf(DeckOf("area_01.rec")));
    ASSERT_EQ(aLines.size(), 1603u);
    EXPECT_EQ(aLines[0], "P.533 with long-path rule, URSI maps");
    EXPECT_EQ(Cut(aLines[1], 1, 60),
              "Transmitter [SWWhip.VOA] 5kW 0deg 12ut 14.000MHz NOV 170ssn ");
    EXPECT_EQ(aLines[1].size(), 90u);
    EXPECT_EQ(Cut(aLines[2], 1, 26), " 40 40  Latitude Longitude");
    EXPECT_EQ(Cut(aLines[3], 1, 26), "  1  1   10.0000 -130.0000");
    EXPECT_EQ(Cut(aLines[4], 1, 26), "  2  1   10.0000 -128.2051");
    EXPECT_EQ(Cut(aLines[43], 1, 26), "  1  2   11.2821 -130.0000");
    EXPECT_EQ(Cut(aLines.back(), 1, 26), " 40 40   60.0000  -60.0000");
}

TEST(AreaOutput, TheReadersCutHoldsTheWholeNumber)
{
    for (const char* sDeck :
         {"area_01.rec", "area_02.rec", "area_03.rec", "area_04.rec", "area_05.rec"}) {
        const auto aLines = LinesOf(GridOf(DeckOf(sDeck)));
        const auto nCol = static_cast<int>(aLines[2].find(" SNxx")) + 1;
        int nLow = 0;
        for (std::size_t i = 3; i < aLines.size(); ++i) {
            ASSERT_EQ(aLines[i].size(), 68u);
            const double dSnr = NumberOf(aLines[i], nCol, 6);
            EXPECT_EQ(aLines[i].substr(62, 6), Cut(aLines[i], nCol, 6));
            EXPECT_EQ(aLines[i].substr(62, 1), " ");
            EXPECT_GE(dSnr, -99.9);
            nLow += dSnr == -99.9 ? 1 : 0;
        }
        if (std::string(sDeck) == "area_05.rec") {
            EXPECT_GT(nLow, 500);
        }
    }
}

TEST(AreaOutput, APointOnTheFixedEndIsMovedEast)
{
    const auto aLines = LinesOf(GridOf(DeckOf("area_02.rec")));
    EXPECT_EQ(Cut(aLines[3 + 60], 1, 26), "  6  6   45.0000    5.0500");
    const auto aWorld = LinesOf(GridOf(DeckOf("area_04.rec")));
    EXPECT_EQ(Cut(aWorld[3 + 60], 1, 26), "  6  6    0.0000    0.0500");
    EXPECT_NE(aWorld[1].find(" 24ut "), std::string::npos);
}

TEST(AreaOutput, EastLongitudesRunTo360WhereTheWestBoundIsNotNegative)
{
    std::string sDeck = DeckOf("area_02.rec");
    sDeck = Replaced(sDeck, "       .00     10.00", "    170.00    190.00");
    const auto aLines = LinesOf(GridOf(sDeck));
    EXPECT_EQ(Cut(aLines[13], 17, 10), "  190.0000");
}

TEST(AreaOutput, ThreadsGiveTheSameBytes)
{
    const std::string sDeck = DeckOf("area_03.rec");
    EXPECT_EQ(GridOf(sDeck, 1), GridOf(sDeck, 3));
}

TEST(AreaOutput, WithoutAntennasTheTransmitterIsOneKilowattIsotropic)
{
    std::string sDeck = DeckOf("area_01.rec");
    sDeck.resize(sDeck.find("Rec Ants"));
    const auto aLines = LinesOf(GridOf(sDeck));
    EXPECT_EQ(Cut(aLines[1], 1, 31), "Transmitter [Isotropic] 1kW 0de");
}

TEST(AreaOutput, PowersBelowAKilowattAreTitledInWatts)
{
    const auto aLines = LinesOf(GridOf(Replaced(DeckOf("area_01.rec"), "  5.0000", "  0.0041")));
    EXPECT_EQ(Cut(aLines[1], 1, 34), "Transmitter [SWWhip.VOA] 4.1W 0deg");
}

TEST(AreaOutput, AgreesWithThePointToPointRun)
{
    // Row 6, column 9 of area_02 is 45 N 8 E; the page's S/N at 3.6 MHz, 06 UT, must be the same.
    const auto aGrid = LinesOf(GridOf(DeckOf("area_02.rec")));
    const double dSnr = NumberOf(aGrid[3 + 63], 63, 6);
    std::string sDeck = DeckOf("p2p_02.dat");
    sDeck = Replaced(sDeck, " 52.00N      5.00E", " 45.00N      5.00E");
    sDeck = Replaced(sDeck, " 52.50N      6.00E", " 45.00N      8.00E");
    sDeck = Replaced(sDeck, "2026    1", "2026    6");
    sDeck = Replaced(sDeck, " -155", " -145");
    sDeck = Replaced(sDeck, "  .10", " 3.00");
    const auto aPage = LinesOf(PageOf(sDeck));
    for (std::size_t i = 0; i < aPage.size(); ++i) {
        if (Cut(aPage[i], 60, 4) == "FREQ" && NumberOf(aPage[i], 1, 3) == 6.0) {
            EXPECT_EQ(Cut(aPage[i], 14, 5), "  3.6");
            EXPECT_NEAR(NumberOf(aPage[i + 7], 14, 5), dSnr, 0.51);
        }
    }
}

TEST(AntennaFile, DefaultsAreBuiltInAndFilesGoBeforeThem)
{
    const auto resBuiltIn = AntennaLoad("/nowhere", "DEFAULT\\CONST17.VOA  ");
    ASSERT_TRUE(resBuiltIn);
    EXPECT_EQ(resBuiltIn.ValueGet().antenna.aGain[0], -26.0);
    EXPECT_EQ(resBuiltIn.ValueGet().antenna.aGain[45], 17.0);
    TempFolder tmp;
    std::string sFile = "My aerial of wire\n 3\n 2.00  [ 1]\n 11  [ 2]\n 0.0 [ 3]\n";
    for (int i = 0; i < 91; ++i) sFile += " -1.5";
    tmp.Write("antennas/default/const17.voa", sFile);
    const auto resFile = AntennaLoad(tmp.Path(), "DEFAULT \\CONST17.VOA ");
    ASSERT_TRUE(resFile) << resFile.TextGet();
    EXPECT_EQ(resFile.ValueGet().sTitle, "My aerial");
    EXPECT_EQ(resFile.ValueGet().antenna.aGain[90], 0.5);
}

// A mistyped gain once made powers infinite, and every value of the page the largest of its field.
TEST(AntennaFile, AGainBeyondAllSenseIsRefusedAndTheGreatestTaken)
{
    const auto fnFile = [](const std::string& sGain) {
        std::string sFile = "x\n3\n0.0\n11\n0\n";
        for (int i = 0; i < 91; ++i) sFile += sGain + "\n";
        return sFile;
    };
    for (const char* sGain : {"666666666", "999.1", "-999.1", "1" /* and 308 zeros */}) {
        std::string sLong = sGain;
        if (sLong == "1")
            sLong += std::string(308, '0');
        EXPECT_EQ(AntennaRead(fnFile(sLong)).TextGet(),
                  "antenna file line 6 holds a gain beyond 999 dB");
    }
    for (const char* sGain : {"999", "-999"}) {
        const auto res = AntennaRead(fnFile(sGain));
        ASSERT_TRUE(res) << res.TextGet();
        EXPECT_EQ(std::abs(res.ValueGet().antenna.aGain[90]), 999.0);
    }
}

TEST(AntennaFile, WhatCannotBeUsedIsTold)
{
    EXPECT_EQ(AntennaLoad("/nowhere", "DEFAULT\\OTHER.VOA").TextGet(),
              "antenna file \"DEFAULT\\OTHER.VOA\" not found");
    EXPECT_EQ(AntennaLoad("/nowhere", "..\\..\\SECRET.TXT").TextGet(),
              "\"..\\..\\SECRET.TXT\" names no antenna file");
    EXPECT_EQ(AntennaRead("x\n3\n1.0\n13\n0\n").TextGet(),
              "antenna type 13 is not known, only 11 (91 gains)");
    EXPECT_EQ(AntennaRead("x\n3\n1.0\n11\n0\n 1.0 2.0\n").TextGet(),
              "antenna file with fewer than 91 gains");
    EXPECT_EQ(AntennaRead("x\n3\n1.0\n11\n0\n 1.0 abc\n").TextGet(),
              "antenna file line 6 is not made of numbers");
    EXPECT_EQ(AntennaRead("").TextGet(), "no gain and type in lines 3 and 4 of the antenna file");
    TempFolder tmp;
    tmp.Write("antennas/default/yagi.voa", "x\n3\n1.0\n13\n0\n");
    const std::string sTold = AntennaLoad(tmp.Path(), "DEFAULT\\YAGI.VOA").TextGet();
    EXPECT_TRUE(sTold.starts_with(tmp.Path())) << sTold;  // the system spells the rest its own way
    EXPECT_TRUE(sTold.ends_with(", antenna type 13 is not known, only 11 (91 gains)")) << sTold;
    const auto res = PointOutputMake(Replaced(DeckOf("p2p_01.dat"), "SWWHIP", "SWWHAP"), "/nowhere",
                                     Behaviour::Best);
    EXPECT_EQ(res.TextGet(),
              "ANTENNA 1, columns 42-62: antenna file \"DEFAULT\\SWWHAP.VOA\" not found");
}

}  // namespace
