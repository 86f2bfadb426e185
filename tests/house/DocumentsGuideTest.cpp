/// What docs/guide.md says about needs, antennas, palettes and messages is what the programs have,
/// and so are the messages in docs/engines.md.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <vector>

#include "house/DocumentTable.h"
#include "house/HouseFiles.h"
#include "house/SourceTexts.h"
#include "propagation/PowerTable.h"
#include "propagation/deck/AntennaCards.h"
#include "settings/Need.h"
#include "settings/SettingsTable.h"
#include "system/NumberLib.h"

namespace {

/// A row of the guide: kinds of contact, and the matching needs of the list.
struct NeedRow {
    const char* sTold;
    std::vector<const char*> asNeed;
};

TEST(DocumentsGuide, WhatIsEnoughIsTheShippedListOfNeeds)
{
    const std::vector<NeedRow> aRow{
        {"voice (SSB): weak, clear", {"SSB, weak", "SSB, clear"}},
        {"radio e-mail: robust, normal, fast",
         {"E-mail, robust", "E-mail, normal", "E-mail, fast"}},
        {"Morse by ear", {"CW by ear"}},
        {"FT8, JS8, WSPR", {"FT8", "JS8 normal", "WSPR"}},
        {"RTTY, PSK31", {"RTTY", "PSK31"}},
        {"a broadcast on AM", {"AM broadcast"}},
    };
    const NeedList needs = NeedsShipped();
    std::vector<TableRow> aWanted{{"for", "enough"}};
    std::size_t nTold = 0;
    for (const NeedRow& row : aRow) {
        std::string sEnough;
        for (const char* sNeed : row.asNeed) {
            const Need* pNeed = NeedFind(needs, sNeed);
            ASSERT_NE(pNeed, nullptr) << sNeed;
            sEnough += (sEnough.empty() ? "" : ", ") + NumberToText(pNeed->fSnr);
            ++nTold;
        }
        aWanted.push_back({row.sTold, sEnough});
    }
    EXPECT_EQ(nTold, needs.size());
    TableCheck("guide.md", aWanted);
}

/// An antenna choice of the options for an engine, in the guide's words.
std::string AntennasTold(int iModel, int iType)
{
    const std::string sPower = PowerText(CardPowerGet(iModel, iType, DeckKind::PointToPoint));
    const std::string_view sCard = TxCardGet(iModel == kEngineRec533, iType);
    if (sCard.empty())
        return "plain antennas, " + sPower;
    if (sCard == kTxWhip)
        return "whips, " + sPower;
    // The type before the one with whips at both ends has a whip on the boat.
    return TxCardGet(iModel == kEngineRec533, iType + 1) == kTxWhip
               ? "station with gain, " + sPower + ", boat with whip"
               : "ideal antennas with gain, " + sPower;
}

TEST(DocumentsGuide, AntennaChoicesAreThoseOfTheOptionsWithTheirPowers)
{
    static const std::regex kChoice("<string>(T[^<]*?) +- +([^<]*)</string>");
    const std::string sForm = BytesRead(SOURCE_FOLDER "/ui/options/OptionsModel.ui");
    const std::string sChoices = sForm.substr(sForm.find("\"cmbPropagationAntennaType\""));
    std::vector<TableRow> aWanted{{"choice", "VOACAP, ICEPAC", "REC533"}};
    int iType = 0;
    for (std::sregex_iterator it(sChoices.begin(), sChoices.end(), kChoice), itEnd;
         it != itEnd && iType < 3; ++it, ++iType) {
        aWanted.push_back({(*it)[1].str() + " - " + (*it)[2].str(),
                           AntennasTold(kEngineVoacap, iType), AntennasTold(kEngineRec533, iType)});
        EXPECT_EQ(AntennasTold(kEngineIcepac, iType), AntennasTold(kEngineVoacap, iType));
    }
    EXPECT_EQ(iType, 3);
    TableCheck("guide.md", aWanted);
}

TEST(DocumentsGuide, PalettesAreThoseOfTheSettings)
{
    std::string sTold;
    for (const TableRow& asCell : TableRead("guide.md", "| palette | for |"))
        sTold += (sTold.empty() ? "" : ", ") + asCell.at(0);
    EXPECT_EQ(std::regex_replace(sTold, std::regex("[*]{2}"), ""),
              SettingRangeText(SettingRowGet(&Settings::m_ePalette)));
}

/// The fixed parts of a message, without the example values in it.
std::vector<std::string> PartsOfMessage(const std::string& sMessage)
{
    static const std::regex kValue(
        "[.][.][.]|\\bICEPAC\\b|\\bREC533\\b|\\bVOACAP\\b|Propagation, (Latitude|SSN)|"
        "\"Airmail[.]ini|2000, 4000|150|1 to 99|[0-9]+°|\\bNAME\\b|Permission denied|"
        "Path not found|Disk full|File not found|Input past end of file|Type mismatch|"
        "Invalid procedure call or argument|Receiver latitude|[(]and a hint[^)]*[)]|"
        "; the status line names the package|[.] |[()]");
    std::vector<std::string> asPart;
    for (std::sregex_token_iterator it(sMessage.begin(), sMessage.end(), kValue, -1), itEnd;
         it != itEnd; ++it) {
        std::string sPart = *it;
        const auto fnEdge = [](char c) {
            return std::string(" :;,\"").find(c) != std::string::npos;
        };
        while (!sPart.empty() && fnEdge(sPart.back())) sPart.pop_back();
        while (!sPart.empty() && fnEdge(sPart.front())) sPart.erase(0, 1);
        if (sPart.size() > 2)
            asPart.push_back(sPart);
    }
    return asPart;
}

int MessagesCheck(const char* sDocument, const char* sHead, std::size_t iColumn)
{
    int nParts = 0;
    for (const TableRow& asCell : TableRead(sDocument, sHead)) {
        for (const std::string& sPart : PartsOfMessage(asCell.at(iColumn))) {
            EXPECT_TRUE(SourceTextsHave(sPart)) << asCell.at(iColumn) << ": " << sPart;
            ++nParts;
        }
    }
    return nParts;
}

TEST(DocumentsGuide, MessagesAreTextsOfThePrograms)
{
    EXPECT_GT(MessagesCheck("guide.md", "| Hopcast says | what it means | what to do |", 0), 30);
}

TEST(DocumentsGuide, MessagesOfTheEnginesAreTextsOfThePrograms)
{
    EXPECT_GT(MessagesCheck("engines.md", "| what is wrong | message |", 1), 12);
}

}  // namespace
