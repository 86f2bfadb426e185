/// What docs/decks.md and docs/engines.md say about engines, their files, their antenna cards and
/// voacapl's decks is what the code does.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "house/DocumentTable.h"
#include "house/HouseFiles.h"
#include "propagation/deck/AntennaCards.h"
#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "propagation/reader/ReaderLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"
#ifdef HOPCAST_VOACAP_BUILT
#include "engine/voacap/VoacapDeck.h"
#endif

namespace {

constexpr int kNoType = 3;
constexpr int kModels[]{kEngineIcepac, kEngineVoacap, kEngineRec533};
const std::string kNoCard = "no card";

Request RequestMake(int iModel, int iType)
{
    Request request = RequestFromSettings(Settings{});
    request.iModel = iModel;
    request.iAntennaType = iType;
    request.nYear = 2026;
    request.nData = 1;
    request.afFrequency = {0.0F, 14100.0F};
    return request;
}

std::string DeckMake(const Request& request)
{
    const auto res = request.iModel == kEngineRec533
                         ? DeckRec533(request, 1, 1, request.nYear)
                         : DeckIcepacVoacap(request, 1, 1, request.nYear);
    EXPECT_TRUE(res) << res.TextGet();
    return res ? res.ValueGet() : std::string();
}

std::string AreaDeckMake(int iModel, int iType)
{
    AreaRequest request = AreaRequestFromSettings(Settings{});
    request.iModel = iModel;
    request.iAntennaType = iType;
    request.fFrequency = 14.1F;
    const auto res = DeckArea(request);
    EXPECT_TRUE(res) << res.TextGet();
    return res ? res.ValueGet() : std::string();
}

/// The antenna of a card in the documents' words.
std::string AntennaName(const std::string& sCard)
{
    return sCard.find("CONST17") != std::string::npos ? "CONST17" : "whip";
}

/// "CONST17 to whip, 0.1 kW", from the cards of a deck.
std::string AntennasText(const std::string& sDeck, const std::string& sTx, const std::string& sRc)
{
    std::string sTxCard;
    std::string sRcCard;
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (sLine.starts_with(sTx))
            sTxCard = sLine;
        if (sLine.starts_with(sRc))
            sRcCard = sLine;
    }
    EXPECT_EQ(sTxCard.empty(), sRcCard.empty());
    if (sTxCard.empty())
        return kNoCard;
    const auto resPower = NumberFromText(sTxCard.substr(sTxCard.find_last_of(' ') + 1));
    EXPECT_TRUE(resPower) << sTxCard;
    return AntennaName(sTxCard) + " to " + AntennaName(sRcCard) + ", "
           + NumberToText(static_cast<float>(resPower ? resPower.ValueGet() : 0.0)) + " kW";
}

std::string PointAntennas(int iModel, int iType)
{
    return AntennasText(DeckMake(RequestMake(iModel, iType)), "ANTENNA       1", "ANTENNA       2");
}

std::string AreaAntennas(int iModel, int iType)
{
    return AntennasText(AreaDeckMake(iModel, iType), "Tx Ants  :", "Rec Ants :");
}

TEST(DocumentsEngines, AntennaTypesHaveTheCardsOfTheDecks)
{
    std::vector<TableRow> aWanted{{"type", "ICEPAC, VOACAP", "REC533", "any area"}};
    for (int iType = 0; iType <= kNoType; ++iType) {
        aWanted.push_back({iType == kNoType ? "any other" : std::to_string(iType),
                           PointAntennas(kEngineVoacap, iType), PointAntennas(kEngineRec533, iType),
                           AreaAntennas(kEngineVoacap, iType)});
        EXPECT_EQ(PointAntennas(kEngineIcepac, iType), PointAntennas(kEngineVoacap, iType));
        for (const int iModel : kModels)
            EXPECT_EQ(AreaAntennas(iModel, iType), AreaAntennas(kEngineVoacap, iType));
    }
    TableCheck("decks.md", aWanted);
}

TEST(DocumentsEngines, TheAntennaCardsAreThoseOfTheSource)
{
    const std::string sDocument = DocumentRead("decks.md");
    const std::size_t nFrom =
        sDocument.find("ANTENNA", sDocument.find("There are only these four"));
    ASSERT_NE(nFrom, std::string::npos);
    std::string sWanted;
    for (const std::string_view sCard : {kTxConst17, kTxWhip, kRcConst17, kRcWhip})
        sWanted += std::string(sCard) + "\n";
    EXPECT_EQ(sDocument.substr(nFrom, sDocument.find("```", nFrom) - nFrom), sWanted);
}

std::string Quoted(std::string_view sText) { return "`" + std::string(sText) + "`"; }

/// "`working.ice` `.voa` `.rec`", as the document lists the engines' area files.
std::string AreaFiles(std::string_view EngineProgram::*psFile)
{
    std::string sFiles;
    for (const int iModel : kModels) {
        const std::string sName((EngineFind(iModel)->*psFile));
        sFiles += sFiles.empty() ? "`areadata\\" + sName + "`"
                                 : " " + Quoted(sName.substr(sName.rfind('.')));
    }
    return sFiles;
}

TEST(DocumentsEngines, DecksAndOutputsAreTheFilesOfTheEngines)
{
    const auto BelowRoot = [](std::string_view sPath) {
        return Quoted(sPath.substr(kEngineRoot.size() + 1));
    };
    std::string sAll;
    for (const int iModel : kModels)
        sAll += (sAll.empty() ? "" : ", ") + std::string(EngineFind(iModel)->sName);
    const std::string sTwo = "ICEPAC, VOACAP";
    TableCheck(
        "decks.md",
        {{"file", "engine", "kind", "written by", "read by"},
         {BelowRoot(kSoundDeck), sTwo, "deck, point to point", "`DeckIcepacVoacap.cpp`", ""},
         {BelowRoot(kSoundDeck), "REC533", "deck, point to point", "`DeckRec533.cpp`", ""},
         {BelowRoot(kSoundOutput), sTwo, "output", "", "`ReaderIcepacVoacap.cpp`"},
         {BelowRoot(kSoundOutput), "REC533", "output", "", "`ReaderRec533.cpp`"},
         {AreaFiles(&EngineProgram::sAreaDeck), sAll, "deck, area", "`DeckArea.cpp`", ""},
         {AreaFiles(&EngineProgram::sAreaGrid), sAll, "grid", "", "`PropagationAreaLib.cpp`"}});
}

TEST(DocumentsEngines, WritersAndReadersOfDecksAreThere)
{
    static const std::regex kFile("`([A-Za-z0-9]+\\.cpp)`");
    int nFiles = 0;
    for (const TableRow& asCell :
         TableRead("decks.md", "| file | engine | kind | written by | read by |"))
        for (const std::string& sName : MatchesGet(asCell.at(3) + asCell.at(4), kFile)) {
            bool bThere = false;
            for (const auto& pthFile : SourcesGet()) bThere |= pthFile.filename() == sName;
            EXPECT_TRUE(bThere) << sName;
            ++nFiles;
        }
    EXPECT_EQ(nFiles, 6);
}

/// The cells of ICEPAC, VOACAP and REC533 in a row of "What they give".
TableRow GivenGet(const std::string& sRow)
{
    for (TableRow& asCell : TableRead("engines.md", "| | ICEPAC | VOACAP | REC533 |"))
        if (asCell.at(0) == sRow)
            return {asCell.begin() + 1, asCell.end()};
    ADD_FAILURE() << "no row " << sRow;
    return {"", "", ""};
}

TEST(DocumentsEngines, TypesWithAntennasAreThoseOfTheCards)
{
    TableRow asTypes;
    for (const int iModel : kModels) {
        std::string sTypes;
        for (int iType = 0; iType <= kNoType; ++iType)
            if (PointAntennas(iModel, iType) != kNoCard)
                sTypes += (sTypes.empty() ? "" : ", ") + std::to_string(iType);
        asTypes.push_back(sTypes);
    }
    EXPECT_EQ(GivenGet("antenna types with antennas"), asTypes);
}

/// Whether the decks of ICEPAC, VOACAP and REC533 change with a value.
std::vector<bool> DecksChange(const std::function<void(Request&)>& fnChange)
{
    std::vector<bool> abChanged;
    for (const int iModel : kModels) {
        Request request = RequestMake(iModel, 0);
        const std::string sBefore = DeckMake(request);
        fnChange(request);
        abChanged.push_back(DeckMake(request) != sBefore);
    }
    return abChanged;
}

TEST(DocumentsEngines, ValuesThatNoDeckHasAreNamed)
{
    const auto Told = [](const char* sRow) {
        std::vector<bool> abInDeck;
        for (const std::string& sCell : GivenGet(sRow))
            abInDeck.push_back(sCell != "not in the deck");
        return abInDeck;
    };
    EXPECT_EQ(Told("Q index"), DecksChange([](Request& request) { request.fQIndex = 7.0F; }));
    for (float RequestModel::*const pfMember :
         {&RequestModel::fLayerAdjustE, &RequestModel::fLayerAdjustF1,
          &RequestModel::fLayerAdjustF2, &RequestModel::fLayerAdjustEs,
          &RequestModel::fMultipathPower, &RequestModel::fMultipathDelay})
        EXPECT_EQ(Told("layer factors, multipath"),
                  DecksChange([&](Request& request) { request.*pfMember = 0.42F; }));
}

TEST(DocumentsEngines, FrequenciesHaveTheDecimalsOfTheirCards)
{
    const auto Resolution = [](const Field& fld) {
        const int nDecimals = std::stoi(std::string(fld.sFormat.substr(fld.sFormat.find('.') + 1)));
        return "0." + std::string(static_cast<std::size_t>(nDecimals) - 1, '0') + "1 MHz";
    };
    const std::string sTwo = Resolution(frequency_row::kFirst);
    EXPECT_EQ(GivenGet("frequency resolution"),
              (TableRow{sTwo, sTwo, Resolution(freq_row::kFirst)}));
}

/// "24, 1 ... 23 UT": the hours of the lines that match sLines, as an output prints them.
/// @param sHead  a text above these lines
std::string HoursText(const char* sOutput, const char* sHead, const std::string& sLines)
{
    const std::string sText = BytesRead(std::string(CAPTURED_FOLDER "/") + sOutput);
    const std::regex rgx("(?:^|\n) +([0-9]+)(?:[.]0)? " + sLines);
    const auto asHour = MatchesGet(sText.substr(sText.find(sHead)), rgx);
    EXPECT_EQ(asHour.size(), 24U) << sOutput;
    return asHour.empty() ? std::string()
                          : asHour.at(0) + ", " + asHour.at(1) + " ... " + asHour.back() + " UT";
}

TEST(DocumentsEngines, HoursAreThoseOfTheOutputs)
{
    const std::string sVoacap = HoursText("voacap/p2p_01.out", "AZIMUTHS", "[^\n]* FREQ(?=\r?\n)");
    EXPECT_EQ(
        GivenGet("hour blocks"),
        (TableRow{sVoacap, sVoacap, HoursText("rec533/p2p_01.out", "AZIMUTHS", "[^\n]* FREQ ")}));
    // Five numbers follow the two that give the hour.
    const std::string sMuf =
        HoursText("voacap/p2p_01.out", "MUF    LUF", " *[0-9.]+(?: +[0-9.-]+){5}(?= *\r?\n)");
    EXPECT_EQ(sMuf, "1, 2 ... 24 UT");
    EXPECT_EQ(GivenGet("MUF, LUF"),
              (TableRow{"one table, 01 to 24 UT", "one table, 01 to 24 UT", "with each hour"}));
}

TEST(DocumentsEngines, DelaysAndHeightsAreThoseOfTheReaders)
{
    const Request request = RequestMake(kEngineRec533, 0);
    PropagationTable tblVoacap(1);
    PropagationTable tblRec533(1);
    auto resVoacap = TextFile::Open(CAPTURED_FOLDER "/voacap/p2p_01.out");
    auto resRec533 = TextFile::Open(CAPTURED_FOLDER "/rec533/p2p_01.out");
    ASSERT_TRUE(resVoacap && resRec533);
    ASSERT_TRUE(ReaderIcepacVoacap(resVoacap.ValueGet(), 1, 1, tblVoacap));
    ASSERT_TRUE(ReaderRec533(resRec533.ValueGet(), request, 1, 1, tblRec533));
    const TableRow asTold = GivenGet("delay, virtual height");
    EXPECT_GT(tblVoacap.fTimeDelay(1, 1), 0.0F);
    EXPECT_GT(tblVoacap.fVirtualHeight(1, 1), 0.0F);
    EXPECT_EQ(tblRec533.fTimeDelay(1, 1), tblRec533.fVirtualHeight(1, 1));
    EXPECT_EQ(asTold, (TableRow{"yes", "yes", "no: " + NumberToText(tblRec533.fTimeDelay(1, 1))}));
}

#ifdef HOPCAST_VOACAP_BUILT
/// The text between a cell's first backticks; empty if there are none.
std::string InTicks(const std::string& sCell)
{
    const std::size_t nFrom = sCell.find('`');
    return nFrom == std::string::npos
               ? ""
               : sCell.substr(nFrom + 1, sCell.find('`', nFrom + 1) - nFrom - 1);
}

/// The deck changed as a row of the table says.
std::string Translated(std::string sDeck, const TableRow& asCell)
{
    const bool bNothing = asCell.at(1) == "nothing";
    const bool bEmptyLine = asCell.at(0) == "the empty line after FREQUENCY";
    const bool bLineEnds = asCell.at(0) == "CR LF";
    const std::string sFrom = bEmptyLine ? "\n\n" : bLineEnds ? "\r\n" : InTicks(asCell.at(0));
    EXPECT_FALSE(sFrom.empty()) << asCell.at(0);
    const std::size_t nFrom = sDeck.find(sFrom);
    if (asCell.at(1).starts_with("the same") || nFrom == std::string::npos)
        return sDeck;
    if (bLineEnds) {
        EXPECT_EQ(asCell.at(1), "LF");
        std::erase(sDeck, '\r');
        return sDeck;
    }
    if (bEmptyLine)
        return bNothing ? sDeck.erase(nFrom, 1) : sDeck;
    if (bNothing)
        return sDeck.erase(nFrom, sDeck.find('\n', nFrom) + 1 - nFrom);
    return sDeck.replace(nFrom, sFrom.size(), InTicks(asCell.at(1)));
}

TEST(DocumentsEngines, VoacaplIsGivenWhatTheTableSays)
{
    const std::string sPoint = DeckMake(RequestMake(kEngineVoacap, 0));
    const std::string sArea = AreaDeckMake(kEngineVoacap, 1);
    std::string sPointTold = sPoint;
    std::string sAreaTold = sArea;
    std::vector<std::string> asAntenna;
    for (const TableRow& asCell :
         TableRead("engines.md", "| Hopcast's deck | voacapl is given | why |")) {
        sPointTold = Translated(sPointTold, asCell);
        sAreaTold = Translated(sAreaTold, asCell);
        if (asCell.at(0).starts_with("`["))
            asAntenna.push_back(asCell.at(0));
    }
    const auto resPoint = VoacapDeckPoint(sPoint);
    const auto resArea = VoacapDeckArea(sArea);
    ASSERT_TRUE(resPoint && resArea);
    EXPECT_EQ(sPointTold, resPoint.ValueGet().sText);
    EXPECT_EQ(sAreaTold, resArea.ValueGet().sText);
    const auto Antenna = [](const std::string& sDeck) {
        const std::size_t nFrom = sDeck.find('[');
        return Quoted(sDeck.substr(nFrom, sDeck.find(']', nFrom) + 1 - nFrom));
    };
    EXPECT_EQ(asAntenna, (std::vector<std::string>{Antenna(sPointTold) + ", point to point",
                                                   Antenna(sAreaTold) + ", area"}));
}
#endif

}  // namespace
