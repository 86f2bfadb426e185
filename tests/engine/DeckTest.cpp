// Both decks: those that are written can be read, and an error is reported with its card and
// columns.

#include <gtest/gtest.h>

#include "engine/DeckSample.h"
#include "engine/run533/Decks.h"

namespace {

using namespace run533;  // NOLINT(google-build-using-namespace)

std::string WithoutLine(const std::string& sText, const std::string& sStart)
{
    const std::size_t nAt = sText.find(sStart);
    EXPECT_NE(nAt, std::string::npos) << sStart;
    return std::string(sText).erase(nAt, sText.find('\n', nAt) + 1 - nAt);
}

TEST(PointDeck, ReadsEveryField)
{
    const auto res = PointDeckRead(DeckOf("p2p_05.dat"));
    ASSERT_TRUE(res) << res.TextGet();
    const PointDeck& pointDeck = res.ValueGet();
    EXPECT_EQ(pointDeck.common.eMaps, rec533::MapSet::Ursi);
    EXPECT_EQ(pointDeck.common.dSsn, 10.0);
    EXPECT_EQ(pointDeck.nYear, 2026);
    EXPECT_EQ(pointDeck.common.nMonth, 12);
    EXPECT_EQ(pointDeck.sTxName, "Transmit");
    EXPECT_EQ(pointDeck.sRxName, "Receieve");
    EXPECT_EQ(pointDeck.common.dTxLat, 69.65);
    EXPECT_EQ(pointDeck.common.dTxLon, 18.96);
    EXPECT_EQ(pointDeck.dRxLat, 64.84);
    EXPECT_EQ(pointDeck.dRxLon, -147.72);
    EXPECT_EQ(pointDeck.dPowerKw, 1.0);
    EXPECT_EQ(pointDeck.common.dLeastElevation, 3.0);
    EXPECT_EQ(pointDeck.common.dNoise, -163.0);
    EXPECT_EQ(pointDeck.common.dBandwidth, 1.0);
    EXPECT_EQ(pointDeck.common.dRequiredSnr, 40.0);
    EXPECT_EQ(pointDeck.common.dReliability, 50.0);
    ASSERT_TRUE(pointDeck.common.txAntenna && pointDeck.common.rxAntenna);
    EXPECT_EQ(pointDeck.common.txAntenna->sName, "DEFAULT\\SWWHIP.VOA   ");
    EXPECT_EQ(pointDeck.common.txAntenna->dPowerKw, 5.0);
    ASSERT_EQ(pointDeck.aFrequencies.size(), 10u);
    EXPECT_EQ(pointDeck.aFrequencies[0], 1.9);
    EXPECT_EQ(pointDeck.aFrequencies[9], 28.3);
}

TEST(PointDeck, EveryCardButTheAntennasIsNeeded)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    for (const char* sCard : {"OUTPUT", "COEFFS", "SUNSPOT", "TIME", "MONTH", "TRANS", "RECVR",
                              "SYST", "NOIS", "FREQ", "EXEC", "QUIT"}) {
        const auto res = PointDeckRead(WithoutLine(sDeck, std::string("\n") + sCard == "\nOUTPUT"
                                                              ? std::string("OUTPUT")
                                                              : std::string(sCard)));
        ASSERT_FALSE(res) << sCard;
        EXPECT_EQ(res.TextGet(), std::string(sCard) + ": the card is missing");
    }
    const auto res = PointDeckRead(DeckOf("p2p_13.dat"));
    ASSERT_TRUE(res);
    EXPECT_FALSE(res.ValueGet().common.txAntenna);
}

struct BadCase {
    const char* sOld;
    const char* sNew;
    const char* sError;
};

TEST(PointDeck, WhatIsWrongIsToldByCardAndColumn)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    for (const BadCase& c : {
             BadCase{"URSI", "ursa", "COEFFS, columns 11-16: none of CCIR, URSI, MEAN"},
             BadCase{"170.0", "1x0.0", "SUNSPOT, columns 11-15: \"1x0.0\" is not a number"},
             BadCase{"170.0", "312.0", "SUNSPOT, columns 11-15: 312.0 is not within 0 to 311"},
             BadCase{"   23    1", "   22    1",
                     "TIME, columns 11-25: only the hours 0 to 23 in steps of 1 are known"},
             BadCase{"   11\r", "   13\r", "MONTH, columns 16-20: 13 is not within 1 to 12"},
             BadCase{"   11\r", " 11.5\r", "MONTH, columns 16-20: 11.5 is not a whole number"},
             BadCase{" 38.00N", " 91.00N", "TRANS, columns 32-37: 91.00 is not within 0 to 90"},
             BadCase{" 38.00N", " 38.00Q", "TRANS, columns 38-38: neither N nor S"},
             BadCase{"110.00W", "181.00W", "RECVR, columns 43-48: 181.00 is not within 0 to 180"},
             BadCase{"W  S     D\r\nRECVR", "W  L     D\r\nRECVR",
                     "TRANS, columns 50-52: only the short path is known"},
             BadCase{"     1.0000", "     0.0000",
                     "SYST, columns 11-21: 0.0000 is not within 0.000001 to 100000"},
             BadCase{"    5.0000", "    5.00x0",
                     "ANTENNA, columns 69-78: \"5.00x0\" is not a number"},
             BadCase{"VOA   ]", "VOA    ", "ANTENNA, columns 42-62: no name between brackets"},
             BadCase{" -145", "  abc", "NOIS, columns 11-15: \"abc\" is not a number"},
             BadCase{"    2.0    4.0", "    2.0    4,0",
                     "FREQ, columns 18-24: \"4,0\" is not a number"},
             BadCase{"   20.0\r", "   20.0   21.0\r",
                     "FREQ, columns 81-87: more than 10 frequencies"},
             BadCase{"SUNSPOT   ", " SUNSPOT  ",
                     "\"SUNSPOT\", columns 1-10: not a card of this deck"},
             BadCase{"EXEC\r\n", "EXEC\r\nEXEC\r\n", "EXEC, columns 1-10: given twice"},
             BadCase{"ANTENNA       2", "ANTENNA       1", "ANTENNA, columns 11-15: given twice"},
             // A number in the wrong columns would be cut to a different one.
             BadCase{"  170.0\r", "     170.0\r",
                     "SUNSPOT, columns 11-15: the text continues after these columns"},
             BadCase{"   11\r", "    11\r",
                     "MONTH, columns 16-20: the text continues after these columns"},
             BadCase{"   40   50\r", "   40    50\r",
                     "NOIS, columns 26-30: the text continues after these columns"},
             BadCase{
                 "FREQ          2.0    4.0    6.0    8.0   10.0   12.0   14.0   16.0   18.0   20.0",
                 "FREQ            14.1",
                 "FREQ, columns 11-17: the text continues after these columns"},
             BadCase{"     1.0000 3.00", "     99999.0000 3.00",
                     "SYST, columns 22-26: the text continues after these columns"},
             BadCase{"    5.0000\r", "     5.0000\r",
                     "ANTENNA, columns 69-78: the text continues after these columns"},
         }) {
        const auto res = PointDeckRead(Replaced(sDeck, c.sOld, c.sNew));
        ASSERT_FALSE(res) << c.sError;
        EXPECT_EQ(res.TextGet(), c.sError);
    }
}

TEST(PointDeck, AnErrorIsOneLineWhateverTheDeckHolds)
{
    EXPECT_EQ(PointDeckRead("FREQ\r\x1b[31m 14.1\r\n").TextGet(),
              "\"FREQ  [31m\", columns 1-10: not a card of this deck");
}

TEST(PointDeck, ACutDeckIsRefusedWhereverItIsCut)
{
    const std::string sDeck = DeckOf("p2p_01.dat");
    const std::size_t nQuit = sDeck.find("QUIT") + 4;
    for (std::size_t n = 0; n < nQuit; ++n) ASSERT_FALSE(PointDeckRead(sDeck.substr(0, n))) << n;
    EXPECT_TRUE(PointDeckRead(sDeck.substr(0, nQuit)));
}

TEST(PointDeck, UnusableFrequencyIsReadAllTheSame)
{
    const auto res = PointDeckRead(Replaced(DeckOf("p2p_01.dat"), "   20.0\r", "   60.0\r"));
    ASSERT_TRUE(res);
    EXPECT_FALSE(FrequencyUsable(res.ValueGet().aFrequencies[9]));
    EXPECT_TRUE(FrequencyUsable(res.ValueGet().aFrequencies[8]));
    EXPECT_FALSE(FrequencyUsable(0.0));
}

TEST(PointDeck, KnowsTheMeanOfTheMaps)
{
    std::string sDeck = DeckOf("p2p_05.dat");
    sDeck.replace(sDeck.find("URSI"), 4, "MEAN");
    const auto res = PointDeckRead(sDeck);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_EQ(res.ValueGet().common.eMaps, rec533::MapSet::Mean);
}

TEST(AreaDeck, KnowsTheMeanOfTheMaps)
{
    std::string sDeck = DeckOf("area_03.rec");
    sDeck.replace(sDeck.find("URSI"), 4, "MEAN");
    const auto res = AreaDeckRead(sDeck);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_EQ(res.ValueGet().common.eMaps, rec533::MapSet::Mean);
}

TEST(AreaDeck, ReadsEveryField)
{
    const auto res = AreaDeckRead(DeckOf("area_03.rec"));
    ASSERT_TRUE(res) << res.TextGet();
    const AreaDeck& areaDeck = res.ValueGet();
    EXPECT_EQ(areaDeck.common.eMaps, rec533::MapSet::Ursi);
    EXPECT_EQ(areaDeck.common.dSsn, 60.0);
    EXPECT_EQ(areaDeck.common.nMonth, 12);
    EXPECT_EQ(areaDeck.sTxName, "Transmitter");
    EXPECT_EQ(areaDeck.common.dTxLat, 69.65);
    EXPECT_EQ(areaDeck.common.dTxLon, 18.96);
    EXPECT_EQ(areaDeck.dWest, -30.0);
    EXPECT_EQ(areaDeck.dEast, 90.0);
    EXPECT_EQ(areaDeck.dSouth, 55.0);
    EXPECT_EQ(areaDeck.dNorth, 89.9);
    EXPECT_EQ(areaDeck.nGrid, 40);
    EXPECT_EQ(areaDeck.nHour, 22);
    EXPECT_EQ(areaDeck.dFrequency, 7.1);
    EXPECT_EQ(areaDeck.common.dNoise, -155.0);
    EXPECT_EQ(areaDeck.common.dLeastElevation, 3.0);
    EXPECT_EQ(areaDeck.common.dReliability, 90.0);
    EXPECT_EQ(areaDeck.common.dRequiredSnr, 40.0);
    EXPECT_EQ(areaDeck.common.dBandwidth, 1.0);
    ASSERT_TRUE(areaDeck.common.txAntenna && areaDeck.common.rxAntenna);
    EXPECT_EQ(areaDeck.common.txAntenna->sName, "DEFAULT \\CONST17.VOA ");
    EXPECT_EQ(areaDeck.common.txAntenna->dPowerKw, 0.1);
    EXPECT_EQ(areaDeck.common.rxAntenna->sName, "DEFAULT \\SWWHIP.VOA  ");
}

TEST(AreaDeck, EitherSignOfTheNoiseMeansTheSame)
{
    const auto res = AreaDeckRead(Replaced(DeckOf("area_03.rec"), "  155", " -155"));
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().common.dNoise, -155.0);
}

TEST(AreaDeck, EveryLineButTheAntennasIsNeeded)
{
    const std::string sDeck = DeckOf("area_01.rec");
    for (const char* sLabel :
         {"Model", "Colors", "Cities", "Nparms", "Parameter", "Transmit", "PCenter", "Area",
          "Gridsize", "Coeffs", "Months", "Sssns", "Hours", "Freqs", "System"}) {
        const auto res = AreaDeckRead(WithoutLine(sDeck, sLabel));
        ASSERT_FALSE(res) << sLabel;
        EXPECT_EQ(res.TextGet(), std::string(sLabel) + ": the line is missing");
    }
    EXPECT_TRUE(AreaDeckRead(WithoutLine(WithoutLine(sDeck, "Rec Ants"), "Tx Ants")));
    EXPECT_FALSE(AreaDeckRead(WithoutLine(sDeck, "Tx Ants")));
}

TEST(AreaDeck, WhatIsWrongIsToldByLineAndColumn)
{
    const std::string sDeck = DeckOf("area_01.rec");
    for (const BadCase& c : {
             BadCase{":REC533", ":VOACAP", "Model, columns 11-20: not REC533"},
             BadCase{" 24.00N", " 90.01N", "Transmit, columns 11-16: 90.01 is not within 0 to 90"},
             BadCase{"Short", "Long ", "Transmit, columns 52-59: only the short path is known"},
             BadCase{"   -130.00", "   -13o.00",
                     "Area, columns 11-20: \"-13o.00\" is not a number"},
             BadCase{"     60.00\r", "     90.01\r",
                     "Area, columns 41-50: 90.01 is not within -90 to 90"},
             BadCase{":   40", ":    1", "Gridsize, columns 11-15: 1 is not within 2 to 999"},
             BadCase{"11.00\r", "13.00\r", "Months, columns 11-17: 13.00 is not within 1 to 12"},
             BadCase{":     12", ":     25", "Hours, columns 11-17: 25 is not within 0 to 24"},
             BadCase{" 14.000", " 45.001", "Freqs, columns 11-17: 45.001 is not within 0.1 to 45"},
             BadCase{"Hours    :", "Hours:   :", "\"Hours:\", columns 1-10: no label of this deck"},
             BadCase{
                 "Cities   :", " Cities  :", "\" Cities\", columns 1-10: no label of this deck"},
             BadCase{"Rec Ants :",
                     "Tx Ants  :[DEFAULT \\SWWHIP.VOA  ]  0.000  00.0     5.0000\r\nRec Ants :",
                     "Tx Ants, columns 1-10: given twice"},
             BadCase{
                 "Sssns    :", "Sunspots :", "\"Sunspots\", columns 1-10: no label of this deck"},
             BadCase{"Gridsize :   40    1", "Gridsize :    40    1",
                     "Gridsize, columns 11-15: the text continues after these columns"},
             BadCase{"Months   :  11.00", "Months   :   11.00",
                     "Months, columns 11-17: the text continues after these columns"},
             BadCase{"Sssns    :    170", "Sssns    :     170",
                     "Sssns, columns 11-17: the text continues after these columns"},
             BadCase{"Hours    :     12", "Hours    :      12",
                     "Hours, columns 11-17: the text continues after these columns"},
             BadCase{"Freqs    : 14.000", "Freqs    :  14.000",
                     "Freqs, columns 11-17: the text continues after these columns"},
             BadCase{"     60.00\r", "      60.00\r",
                     "Area, columns 41-50: the text continues after these columns"},
             BadCase{"   40         1\r", "   40         11\r",
                     "System, columns 36-45: the text continues after these columns"},
             BadCase{"   40         1\r", "   40       3  1\r",
                     "System, columns 36-45: the text continues after these columns"},
             BadCase{"  00.0     5.0000", "  00.0      5.0000",
                     "Tx Ants, columns 47-57: the text continues after these columns"},
             BadCase{"SWWHIP.VOA  ]", "SWWHIP.VOA   ",
                     "Rec Ants, columns 12-32: no name between brackets"},
             BadCase{":URSI", ":URSA", "Coeffs, columns 11-16: none of CCIR, URSI, MEAN"},
             BadCase{"  145 ", "  14x ", "System, columns 11-15: \"14x\" is not a number"},
             BadCase{"PCenter  : 24.00N   110.00W", "PCenter  : 24.00N   181.00W",
                     "PCenter, columns 21-26: 181.00 is not within 0 to 180"},
         }) {
        const auto res = AreaDeckRead(Replaced(sDeck, c.sOld, c.sNew));
        ASSERT_FALSE(res) << c.sError;
        EXPECT_EQ(res.TextGet(), c.sError);
    }
}

TEST(AreaDeck, ACutDeckIsRefusedUnlessItEndsBeforeTheAntennas)
{
    const std::string sDeck = DeckOf("area_01.rec");
    const std::size_t nAntennas = sDeck.find("Rec Ants");
    for (std::size_t n = 0; n < sDeck.size(); ++n) {
        if (n != nAntennas) {
            ASSERT_FALSE(AreaDeckRead(sDeck.substr(0, n))) << n;
        }
    }
    EXPECT_TRUE(AreaDeckRead(sDeck));
}

}  // namespace
