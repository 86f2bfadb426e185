#include <gtest/gtest.h>

#include "engine/voacap/VoacapDeck.h"
#include "engine/voacap/VoacapSample.h"

namespace {

std::string Replaced(std::string sText, std::string_view sOld, std::string_view sNew)
{
    for (std::size_t n = 0; (n = sText.find(sOld, n)) != std::string::npos; n += sNew.size())
        sText.replace(n, sOld.size(), sNew);
    return sText;
}

std::string ErrorOfPoint(const std::string& sDeck) { return VoacapDeckPoint(sDeck).TextGet(); }

std::string ErrorOfArea(const std::string& sOld, const std::string& sNew)
{
    return VoacapDeckArea(Replaced(Sample("area_01.voa"), sOld, sNew)).TextGet();
}

TEST(VoacapDeckPointToPoint, LosesTheBlankCardBehindFrequencyAndNothingElse)
{
    for (int i = 1; i <= 13; ++i) {
        const std::string sName = PointName(i);
        const std::string sDeck = Sample(sName + ".dat");
        const auto resDeck = VoacapDeckPoint(sDeck);
        ASSERT_TRUE(resDeck) << sName << resDeck.TextGet();
        // The only blank card of these decks comes after FREQUENCY.
        EXPECT_EQ(resDeck.ValueGet().sText, Replaced(Replaced(sDeck, "\r\n", "\n"), "\n\n", "\n"))
            << sName;
    }
}

TEST(VoacapDeckPointToPoint, KeepsABlankCardElsewhere)
{
    const auto resDeck = VoacapDeckPoint("LABEL\r\n\r\nFREQUENCY 14.1\r\n\r\n\r\nQUIT\r\n\r\n");
    ASSERT_TRUE(resDeck);
    EXPECT_EQ(resDeck.ValueGet().sText, "LABEL\n\nFREQUENCY 14.1\nQUIT\n\n");
}

TEST(VoacapDeckPointToPoint, TakesLineFeedsAloneAndALastLineWithoutEnd)
{
    const auto resDeck = VoacapDeckPoint("FREQUENCY 14.1\n\nQUIT");
    ASSERT_TRUE(resDeck);
    EXPECT_EQ(resDeck.ValueGet().sText, "FREQUENCY 14.1\nQUIT\n");
}

TEST(VoacapDeckPointToPoint, TellsFrequenciesAndAntennas)
{
    const auto resDeck = VoacapDeckPoint(Sample("p2p_02.dat"));
    ASSERT_TRUE(resDeck);
    EXPECT_EQ(resDeck.ValueGet().aFrequencies,
              (std::vector<double>{1.9, 3.6, 5.4, 7.1, 10.1, 14.1, 18.1, 21.2, 24.9, 28.3}));
    const auto resFew = VoacapDeckPoint(Sample("p2p_13.dat"));
    ASSERT_TRUE(resFew);
    EXPECT_EQ(resFew.ValueGet().aFrequencies, (std::vector<double>{0.5, 14.1}));
    EXPECT_TRUE(resFew.ValueGet().aAntennas.empty());
    const auto resBoth = VoacapDeckPoint(Sample("p2p_01.dat"));
    ASSERT_TRUE(resBoth);
    ASSERT_EQ(resBoth.ValueGet().aAntennas.size(), 2u);
    EXPECT_EQ(resBoth.ValueGet().aAntennas[0].sFolder, "DEFAULT");
    EXPECT_EQ(resBoth.ValueGet().aAntennas[0].sFile, "CONST17.VOA");
    EXPECT_EQ(resBoth.ValueGet().aAntennas[1].sFile, "SWWHIP.VOA");
}

TEST(VoacapDeckPointToPoint, NamesTheCardThatCannotBeUsed)
{
    EXPECT_EQ(ErrorOfPoint(""), "no FREQUENCY card");
    EXPECT_EQ(ErrorOfPoint("QUIT\r\n"), "no FREQUENCY card");
    EXPECT_EQ(ErrorOfPoint("FREQUENCY   \r\n"), "FREQUENCY card: no frequency");
    EXPECT_EQ(ErrorOfPoint("FREQUENCY   2.0 *****\r\n"),
              "FREQUENCY card, columns 16-20: no number");
    EXPECT_EQ(ErrorOfPoint("FREQUENCY   1.9  3.7  5.4  7.1 10.1 14.1 18.1 21.2 24.9 28.3 29.0\r\n"),
              "FREQUENCY card, columns 61-65: more than 10 frequencies");
    EXPECT_EQ(ErrorOfPoint("FREQUENCY   2.0       4.0\r\n"),
              "FREQUENCY card, columns 16-20: no number");
}

TEST(VoacapDeckPointToPoint, RefusesAnAntennaNameThatLeadsOutOfTheAntennaFolder)
{
    for (const char* pszName : {"[..\\PASSWD]", "[DEFAULT\\..]", "[DEFAULT\\../X]", "[A/B\\X]",
                                "[DEFAULT]", "[DEFAULT\\]", "[\\X]", "[DEFAULT\\A\\B]", "none"}) {
        const std::string sCard = std::string("ANTENNA       1    1    2   30     0.000") + pszName;
        EXPECT_EQ(ErrorOfPoint(sCard + "\r\nFREQUENCY 14.1\r\n"),
                  "antenna card without a file name in brackets: " + sCard);
    }
}

TEST(VoacapDeckAreaMode, GetsTheLabelsOfThePort)
{
    for (int i = 1; i <= 5; ++i) {
        const std::string sName = "area_0" + std::to_string(i) + ".voa";
        std::string sWanted = Replaced(Sample(sName), "\r\n", "\n");
        sWanted = Replaced(sWanted, "\nPCenter  :", "\nPcenter  :");
        sWanted = Replaced(sWanted, "\nSssns    :", "\nSsns     :");
        sWanted = Replaced(sWanted, "\nQindexs  :   0.00\n", "\n");
        const auto resDeck = VoacapDeckArea(Sample(sName));
        ASSERT_TRUE(resDeck) << sName << resDeck.TextGet();
        EXPECT_EQ(resDeck.ValueGet().sText, sWanted) << sName;
        EXPECT_EQ(resDeck.ValueGet().nGrid, i == 2 || i == 4 ? 11 : 40) << sName;
    }
}

TEST(VoacapDeckAreaMode, TellsTheAntennasWithoutTheBlankBeforeTheBackslash)
{
    const auto resDeck = VoacapDeckArea(Sample("area_02.voa"));
    ASSERT_TRUE(resDeck);
    ASSERT_EQ(resDeck.ValueGet().aAntennas.size(), 2u);
    EXPECT_EQ(resDeck.ValueGet().aAntennas[0].sFolder, "DEFAULT");
    EXPECT_EQ(resDeck.ValueGet().aAntennas[0].sFile, "SWWHIP.VOA");
    EXPECT_EQ(resDeck.ValueGet().aAntennas[1].sFile, "CONST17.VOA");
}

TEST(VoacapDeckAreaMode, NamesTheCardThatCannotBeUsed)
{
    const std::string sNoGrid = "Gridsize card, columns 11-15: no grid size of 1 to 999";
    EXPECT_EQ(ErrorOfArea("Gridsize :   40", "Gridsize :    0"), sNoGrid);
    EXPECT_EQ(ErrorOfArea("Gridsize :   40", "Gridsize : 1000"), sNoGrid);
    EXPECT_EQ(ErrorOfArea("Gridsize :   40", "Gridsize :   xx"), sNoGrid);
    EXPECT_EQ(ErrorOfArea("Gridsize :   40", "Gridsize :  999"), "");
    EXPECT_EQ(ErrorOfArea("Gridsize :", "Gridless :"), "no Gridsize card");
}

// voacapl would take leftover memory for an antenna's name.
TEST(VoacapDeckAreaMode, NeedsAntennas)
{
    const std::string sDeck = Sample("area_01.voa");
    EXPECT_EQ(VoacapDeckArea(sDeck.substr(0, sDeck.find("Rec Ants"))).TextGet(), "no antenna card");
}

}  // namespace
