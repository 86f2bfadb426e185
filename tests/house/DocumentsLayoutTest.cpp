/// docs/decks.md tells every column as the code has it: one row of its tables for each field.
#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "propagation/deck/DeckLayout.h"
#include "support/TempFolder.h"

namespace {

using Texts = std::vector<std::string>;

/// A row of a table; sCard is the last first cell that was not empty.
struct Row {
    std::string sCard;
    Texts asCell;
};

std::string Trim(const std::string& sText)
{
    const std::size_t nFrom = sText.find_first_not_of(" `");
    return nFrom == std::string::npos
               ? std::string()
               : sText.substr(nFrom, sText.find_last_not_of(" `") - nFrom + 1);
}

Texts CellsGet(const std::string& sLine)
{
    Texts asCell;
    std::istringstream stm(sLine.substr(1));
    for (std::string sCell; std::getline(stm, sCell, '|');) asCell.push_back(Trim(sCell));
    return asCell;
}

/// Table rows from a heading to the next one of any kind.
std::vector<Row> RowsOfSection(const std::string& sHeading)
{
    std::istringstream stm(BytesRead(DOCS_FOLDER "/decks.md"));
    std::vector<Row> aRow;
    std::string sCard;
    bool bInside = false;
    for (std::string sLine; std::getline(stm, sLine);) {
        if (sLine.starts_with("#"))
            bInside = sLine == sHeading;
        if (!bInside || !sLine.starts_with("| "))
            continue;
        Texts asCell = CellsGet(sLine);
        if (!asCell[0].empty())
            sCard = asCell[0];
        aRow.push_back({sCard, std::move(asCell)});
    }
    return aRow;
}

/// "11-15", or "16" for a single column.
std::string RangeGet(const Field& fld)
{
    const std::string sFirst = std::to_string(fld.nCol);
    return fld.nWidth == 1 ? sFirst : sFirst + "-" + std::to_string(fld.nCol + fld.nWidth - 1);
}

/// True when a cell lists the range: "10-15, 16" or "11-15, 16-20 ... 56-60".
bool RangeIsIn(const std::string& sCell, const std::string& sRange)
{
    std::string sBetween = "," + sCell + ",";
    for (const char* sBreak : {" ... ", " "})
        for (std::size_t n = sBetween.find(sBreak); n != std::string::npos;
             n = sBetween.find(sBreak))
            sBetween.replace(n, std::string(sBreak).size(), sBreak[1] == '.' ? "," : "");
    return sBetween.find("," + sRange + ",") != std::string::npos;
}

bool FieldIsTold(const std::vector<Row>& aRow, const std::string& sCard, const Field& fld)
{
    const bool bFormat = fld.sFormat != kText && fld.sFormat != kNumber;
    return std::any_of(aRow.begin(), aRow.end(), [&](const Row& row) {
        const auto Any = [&row](const auto& fnIs) {
            return std::any_of(row.asCell.begin(), row.asCell.end(), fnIs);
        };
        return (sCard.empty() || row.sCard == sCard)
               && Any([&](const std::string& s) { return RangeIsIn(s, RangeGet(fld)); })
               && (!bFormat
                   || Any([&](const std::string& s) { return s.starts_with(fld.sFormat); }));
    });
}

struct Card {
    const char* sHeading;
    const char* sCard;  ///< nothing: the section's table has no column of cards
    std::span<const Field> aFields;
};

constexpr const char* kPoint = "## Point to point: ICEPAC and VOACAP";
constexpr const char* kPointRec533 = "## Point to point: REC533";
constexpr const char* kArea = "## Area";
constexpr const char* kOutput = "### ICEPAC and VOACAP";
constexpr const char* kOutputRec533 = "### REC533";

/// The first, second and last of a row of equal fields are told.
constexpr std::array<Field, 3> Ends(std::span<const Field> aFields)
{
    return {aFields[0], aFields[1], aFields.back()};
}

constexpr auto kFrequencyEnds = Ends(frequency_row::kAll);
constexpr auto kFreqEnds = Ends(freq_row::kAll);
constexpr auto kHourEnds = Ends(hour_row::kAll);
constexpr auto kHourRec533Ends = Ends(hour_row_rec533::kAll);
constexpr std::array kTimeRec533{time_row::kFirst, time_row::kLast, time_row::kStep};
constexpr std::array kSunSpotRec533{sunspot_row::kSunSpot};
constexpr std::array kMonth{area_value_row::kMonth};
constexpr std::array kSunSpot{area_value_row::kSunSpot};
constexpr std::array kHour{area_value_row::kHour};
constexpr std::array kFrequency{area_value_row::kFrequency};
constexpr std::array kMufLufRec533{hour_row_rec533::kMuf, hour_row_rec533::kLuf};

const std::vector<Card>& CardsGet()
{
    static const std::vector<Card> kCards{
        {kPoint, "TIME", time_row::kAll},
        {kPoint, "MONTH", month_row::kAll},
        {kPoint, "SUNSPOT", sunspot_row::kAll},
        {kPoint, "CIRCUIT", circuit_row::kAll},
        {kPoint, "SYSTEM", system_row::kAll},
        {kPoint, "FPROB", fprob_row::kAll},
        {kPoint, "FREQUENCY", kFrequencyEnds},
        {kPointRec533, "SUNSPOT", kSunSpotRec533},
        {kPointRec533, "TIME", kTimeRec533},
        {kPointRec533, "MONTH", month_row::kAll},
        {kPointRec533, "TRANS", station_row::kAll},
        {kPointRec533, "SYST", syst_row::kAll},
        {kPointRec533, "NOIS", nois_row::kAll},
        {kPointRec533, "FREQ", kFreqEnds},
        {kArea, "Transmit :", area_place_row::kAll},
        {kArea, "Area     :", area_bounds_row::kAll},
        {kArea, "Gridsize :", area_value_row::kGrid},
        {kArea, "Months   :", kMonth},
        {kArea, "Sssns    :", kSunSpot},
        {kArea, "Hours    :", kHour},
        {kArea, "Freqs    :", kFrequency},
        {kArea, "System   :", area_system_row::kAll},
        {kArea, "System   :", area_system_row::kRec533},
        {kArea, "Fprob    :", fprob_row::kAll},
        {kOutput, "MUF    LUF", muf_row::kAll},
        {kOutput, "AZIMUTHS", azimuth_row::kAll},
        {kOutput, "MODE", kHourEnds},
        {kOutputRec533, "AZIMUTHS", azimuth_row::kAll},
        {kOutputRec533, "FREQ", kMufLufRec533},
        {kOutputRec533, "MODE", kHourRec533Ends},
        {"## Grids", "", grid_row::kAll},
    };
    return kCards;
}

bool LabelIs(const Field& fld) { return fld.nCol == 1 && fld.sFormat == kText; }

TEST(DocumentsLayout, EveryFieldOfEveryCardIsTold)
{
    for (const Card& card : CardsGet()) {
        const std::vector<Row> aRow = RowsOfSection(card.sHeading);
        EXPECT_FALSE(aRow.empty()) << card.sHeading;
        for (const Field& fld : card.aFields) {
            EXPECT_TRUE(LabelIs(fld) || FieldIsTold(aRow, card.sCard, fld))
                << card.sHeading << ", " << card.sCard << ": " << RangeGet(fld) << " "
                << fld.sFormat;
        }
    }
}

TEST(DocumentsLayout, EveryFormatIsTold)
{
    const std::string sDocument = BytesRead(DOCS_FOLDER "/decks.md");
    const std::string sTable = sDocument.substr(0, sDocument.find(kPoint));
    for (const FortranEntry& entry : kFortranFormats)
        EXPECT_NE(sTable.find(entry.sFormat), std::string::npos) << entry.sFormat;
}

}  // namespace
