#include "DeckTables.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/FortranFormat.h"

namespace {

using Texts = std::vector<std::string>;
using Fields = std::span<const Field>;

/// The content of some adjacent fields of a card, which share a row of the table.
struct Told {
    std::size_t nFields;
    std::string sContent;
};

/// "11-15", or "16" for a single column.
std::string RangeText(const Field& fld)
{
    const std::string sFirst = std::to_string(fld.nCol);
    return fld.nWidth == 1 ? sFirst : sFirst + "-" + std::to_string(fld.nCol + fld.nWidth - 1);
}

/// "10-15, 16", or "11-15, 16-20 ... 56-60" for a long row of equal fields.
std::string ColumnsText(Fields aFields)
{
    constexpr std::size_t kListed = 5;
    if (aFields.size() > kListed)
        return RangeText(aFields[0]) + ", " + RangeText(aFields[1]) + " ... "
               + RangeText(aFields.back());
    std::string sColumns;
    for (const Field& fld : aFields) sColumns += (sColumns.empty() ? "" : ", ") + RangeText(fld);
    return sColumns;
}

/// "F6.2, letter": each format once.
std::string FormatText(Fields aFields)
{
    std::string sFormat(aFields[0].sFormat);
    for (std::size_t i = 1; i < aFields.size(); ++i)
        if (aFields[i].sFormat != aFields[0].sFormat)
            sFormat += aFields[i].sFormat == kText && aFields[i].nWidth == 1
                           ? std::string(", letter")
                           : ", " + std::string(aFields[i].sFormat);
    return sFormat;
}

/// A table that replaces the first one of its section.
class Table {
public:
    Table(std::string sHeading, const Texts& asHead) : m_sHeading(std::move(sHeading))
    {
        Row(asHead);
        for (std::size_t i = 0; i < asHead.size(); ++i) m_sText += "|---";
        m_sText += "|\n";
    }

    /// A row that no layout has: card, columns, format, content.
    void Row(const Texts& asCell)
    {
        for (const std::string& sCell : asCell)
            m_sText += sCell.empty() ? "| " : "| " + sCell + " ";
        m_sText += "|\n";
    }

    /// A deck's card, with all fields of its layout, except the label, in their order.
    void Card(std::string sCard, Fields aFields, std::initializer_list<Told> aTold)
    {
        Each(aFields, aTold, [&](Fields aPart, const std::string& sContent) {
            Row({Name(sCard), ColumnsText(aPart), FormatText(aPart), sContent});
        });
    }

    /// A row of an output; sWhere says which row.
    void Output(std::string sLabel, std::string sWhere, Fields aFields,
                std::initializer_list<Told> aTold)
    {
        Each(aFields, aTold, [&](Fields aPart, const std::string& sContent) {
            Row({Name(sLabel), std::exchange(sWhere, ""), ColumnsText(aPart), sContent});
        });
    }

    /// Columns and content only.
    void Plain(Fields aFields, std::initializer_list<Told> aTold)
    {
        Each(aFields, aTold, [&](Fields aPart, const std::string& sContent) {
            Row({ColumnsText(aPart), sContent});
        });
    }

    /// Replaces the section's first table in the document.
    void Put(std::string& sDocument) const
    {
        const std::size_t nSection = sDocument.find("\n" + m_sHeading + "\n");
        if (nSection == std::string::npos)
            throw std::logic_error("no section: " + m_sHeading);
        const std::size_t nFrom = sDocument.find("\n|", nSection + 1) + 1;
        if (nFrom == 0 || nFrom > sDocument.find("\n#", nSection + 1))
            throw std::logic_error("no table: " + m_sHeading);
        std::size_t nEnd = nFrom;
        while (nEnd < sDocument.size() && sDocument[nEnd] == '|')
            nEnd = sDocument.find('\n', nEnd) + 1;
        sDocument.replace(nFrom, nEnd - nFrom, m_sText);
    }

private:
    /// The card's name for its first row, empty for the others.
    static std::string Name(std::string& sCard)
    {
        const std::string sName = std::exchange(sCard, "");
        return sName.find(':') == std::string::npos ? sName : "`" + sName + "`";
    }

    template <class T>
    void Each(Fields aFields, std::initializer_list<Told> aTold, const T& fnRow)
    {
        if (aFields[0].nCol == 1 && aFields[0].sFormat == kText)
            aFields = aFields.subspan(1);
        for (const Told& told : aTold) {
            if (told.nFields > aFields.size())
                throw std::logic_error(m_sHeading + ": no field for " + told.sContent);
            fnRow(aFields.first(told.nFields), told.sContent);
            aFields = aFields.subspan(told.nFields);
        }
        if (!aFields.empty())
            throw std::logic_error(m_sHeading + ": untold columns " + ColumnsText(aFields));
    }

    std::string m_sHeading;
    std::string m_sText;
};

const Texts kCardHead{"card", "columns", "format", "content"};
const Texts kOutputHead{"label searched", "row", "columns", "becomes"};

/// Formats share a row if they have the same decimals and print two sample numbers alike.
Table FormatTable()
{
    const auto Shown = [](double dValue, const FortranEntry& entry) {
        const std::string sField = FortranFormat(dValue, entry.sFormat).ValueGet();
        return "`" + sField.substr(sField.find_first_not_of(' ')) + "`";
    };
    std::vector<Texts> aRow;
    for (const FortranEntry& entry : kFortranFormats) {
        const std::string sPattern(entry.sPattern);
        const std::size_t nPoint = sPattern.find('.');
        const std::string sDecimals = nPoint == std::string::npos ? "none, no point"
                                      : nPoint + 1 == sPattern.size()
                                          ? "none, but a point"
                                          : std::to_string(sPattern.size() - nPoint - 1);
        const Texts asLook{sDecimals, Shown(14.1, entry), Shown(0.0, entry)};
        const auto it = std::ranges::find_if(aRow, [&](const Texts& asRow) {
            return std::equal(asLook.begin(), asLook.end(), asRow.begin() + 2);
        });
        const std::string sWidth = std::to_string(entry.nWidth);
        if (it == aRow.end()) {
            aRow.push_back({std::string(entry.sFormat), sWidth, asLook[0], asLook[1], asLook[2]});
            continue;
        }
        (*it)[0] += ", " + std::string(entry.sFormat);
        (*it)[1] += ", " + sWidth;
    }
    Table table("## Rules of all decks", {"format", "width", "decimals", "14.1", "0"});
    for (const Texts& asRow : aRow) table.Row(asRow);
    return table;
}

Table PointTable()
{
    Table table("## Point to point: ICEPAC and VOACAP", kCardHead);
    table.Row({"LINEMAX", "1-15", "text", "fixed: `LINEMAX      55`, lines on a page"});
    table.Card("COEFFS", coeffs_row::kAll, {{1, "coefficients of foF2: `URSI` or `CCIR`"}});
    table.Card(
        "TIME", time_row::kAll,
        {{1, "first hour, 0"}, {1, "last hour, 23"}, {1, "step, 1"}, {1, "1: universal time"}});
    table.Card("MONTH", month_row::kAll,
               {{1, "year of the local clock; printed, not used"}, {1, "month, 1 to 12"}});
    table.Card("SUNSPOT", sunspot_row::kAll,
               {{1, "smoothed sunspot number"}, {1, "Q index; ICEPAC uses it"}});
    table.Row({"LABEL", "11-36", "text", "fixed: `XMTR` in 11-14, `RCVR` in 33-36"});
    table.Card("CIRCUIT", circuit_row::kAll,
               {{2, "transmitter's latitude"},
                {2, "transmitter's longitude"},
                {2, "receiver's latitude"},
                {2, "receiver's longitude"},
                {1, "0: the short path"}});
    table.Card("SYSTEM", system_row::kAll,
               {{1, "1.0; the power in force is that of the antenna card"},
                {1, "noise in 1 Hz at 3 MHz, -dBW: 145 for -145 dBW"},
                {1, "least takeoff angle, degrees"},
                {1, "required reliability, %"},
                {1, "required signal-to-noise ratio, 40.0 dB, fixed"},
                {1, "multipath power tolerance, dB"},
                {1, "multipath delay tolerance, ms"}});
    table.Card("FPROB", fprob_row::kAll,
               {{1, "factor on foE"},
                {1, "factor on foF1"},
                {1, "factor on foF2"},
                {1, "factor on foEs"}});
    table.Row({"ANTENNA", "1-78", "text", "transmitter, then receiver: see below; may be absent"});
    table.Row({"METHOD", "1-20", "text", "fixed: `METHOD       26    0`"});
    table.Row({"EXECUTE", "1-7", "text", "fixed"});
    table.Card("FREQUENCY", frequency_row::kAll, {{kChunkMax, "up to 10 frequencies, MHz"}});
    table.Row({"(empty)", "", "", "an empty line"});
    table.Row({"METHOD", "1-20", "text", "fixed: `METHOD       20    0`"});
    table.Row({"EXECUTE", "1-7", "text", "fixed"});
    table.Row({"QUIT", "1-4", "text", "fixed"});
    return table;
}

Table AntennaTable()
{
    Table table("### Antenna cards", {"columns", "content"});
    table.Plain({&antenna_row::kSide, 1}, {{1, "end: 1 transmitter, 2 receiver"}});
    table.Row({"16-20", "number of the antenna"});
    table.Row({"21-25, 26-30", "used from 2 to 30 MHz"});
    table.Row({"31-40", "design frequency, 0.000"});
    table.Row({"41, 63", "brackets"});
    table.Plain(Fields(antenna_row::kAll).subspan(2),
                {{1, "antenna file below the root's `antennas` folder"},
                 {1, "bearing of the main beam, 0.0 degrees"},
                 {1, "transmitter's power, kW"}});
    return table;
}

Table PointRec533Table()
{
    Table table("## Point to point: REC533", kCardHead);
    table.Row({"OUTPUT", "1-20", "text", "fixed: `OUTPUT        6    0`"});
    table.Card(
        "COEFFS", coeffs_row::kAll,
        {{1, "coefficients of foF2: `URSI` or `CCIR`; for the built-in engine alone `MEAN`"}});
    table.Card("SUNSPOT", Fields(sunspot_row::kAll).first(2), {{1, "smoothed sunspot number"}});
    table.Card("TIME", Fields(time_row::kAll).first(4),
               {{3, "first hour 0, last hour 23, step 1"}});
    table.Card("MONTH", month_row::kAll,
               {{1, "year of the local clock; printed, not used"}, {1, "month, 1 to 12"}});
    table.Card("TRANS", station_row::kAll,
               {{1, "`Transmit`"},
                {2, "latitude"},
                {2, "longitude"},
                {1, "fixed: `S` (short path) in 52, `D` in 58"}});
    table.Row(
        {"RECVR", "", "", "as TRANS, with the name `Receieve` (so spelled; engines print it)"});
    table.Card("SYST", syst_row::kAll,
               {{1, "fixed: `     1.0000`; the power in force is that of the antenna card"},
                {1, "least takeoff angle, degrees"},
                {1, "fixed: `    0  0.0`"}});
    table.Row({"ANTENNA", "1-78", "text", "transmitter, then receiver; may be absent"});
    table.Card("NOIS", nois_row::kAll,
               {{1, "noise in 1 Hz at 3 MHz, dBW, with its minus"},
                {1, "bandwidth, 1 Hz"},
                {1, "required signal-to-noise ratio, 40 dB, fixed"},
                {1, "required reliability, %"}});
    table.Card("FREQ", freq_row::kAll, {{kChunkMax, "up to 10 frequencies, MHz"}});
    table.Row({"(empty)", "", "", "an empty line"});
    table.Row({"EXEC", "1-4", "text", "fixed"});
    table.Row({"QUIT", "1-4", "text", "fixed"});
    return table;
}

/// The rows of an area deck from month to frequency, each of which holds one number.
void AreaValuesAdd(Table& table)
{
    using namespace area_value_row;
    table.Card("Months   :", {&kMonth, 1}, {{1, "month"}});
    table.Card("Sssns    :", {&kSunSpot, 1},
               {{1, "smoothed sunspot number, rounded to a whole number"}});
    table.Row(
        {"`Qindexs  :`", "11-17", "text", "fixed: `   0.00`, whatever the setting; not REC533"});
    table.Card("Hours    :", {&kHour, 1}, {{1, "hour UT, 0 to 23"}});
    table.Card("Freqs    :", {&kFrequency, 1}, {{1, "frequency, MHz"}});
}

void AreaSystemAdd(Table& table)
{
    using namespace area_system_row;
    table.Card("System   :", kAll,
               {{1, "noise in 1 Hz at 3 MHz, without its minus"},
                {1, "least takeoff angle, degrees"},
                {1, "required reliability, %"},
                {1, "required signal-to-noise ratio, 40 dB, fixed"},
                {1, "multipath power tolerance, dB; not REC533"},
                {1, "multipath delay tolerance, ms; not REC533"}});
    table.Card("", {&kRec533.back(), 1}, {{1, "bandwidth, 1 Hz; REC533 only"}});
    table.Card("Fprob    :", fprob_row::kAll,
               {{4, "factors on foE, foF1, foF2, foEs; not REC533"}});
}

void AreaAntennasAdd(Table& table)
{
    using namespace area_antenna_row;
    table.Card("Rec Ants :", {&kName, 1},
               {{1, "receiver's antenna file, in brackets; types 0 and 1 only"}});
    table.Row({"", "34-52", "text", "fixed: gain 0.0"});
    table.Card("Tx Ants  :", {&kName, 1},
               {{1, "transmitter's antenna file, in brackets; types 0 and 1 only"}});
    table.Row({"", "34-40", "text", "design frequency, 0.000"});
    table.Card("", Fields(kAll).subspan(2),
               {{1, "bearing of the main beam, 0.0 degrees"}, {1, "power, kW"}});
}

Table AreaTable()
{
    Table table("## Area", {"row", "columns", "format", "content"});
    table.Card("Model    :", area_model_row::kAll, {{1, "`ICEPAC`, `VOACAP` or `REC533`"}});
    table.Row({"`Colors   :`", "11-", "text", "fixed, for the engines' own plots"});
    table.Row({"`Cities   :`", "11-", "text", "fixed: `receive.cty`"});
    table.Row({"`Nparms   :`", "11-15", "text", "fixed: `    1`"});
    table.Row({"`Parameter:`", "11-20", "text", "fixed: `SNRxx    0`"});
    table.Card("Transmit :", area_place_row::kAll,
               {{2, "fixed end's latitude"},
                {2, "fixed end's longitude"},
                {1, "fixed: `Transmitter` and, in 52-56, `Short`"}});
    table.Row({"`PCenter  :`", "11-41", "", "the fixed end again, with the text `Transmitter`"});
    table.Card("Area     :", area_bounds_row::kAll,
               {{1, "west bound, degrees, west negative"},
                {1, "east bound"},
                {1, "south bound"},
                {1, "north bound"}});
    table.Card("Gridsize :", area_value_row::kGrid,
               {{1, "points a side, 2 to 999"}, {1, "1: a grid in latitude and longitude"}});
    table.Row({"`Method   :`", "11-15", "text", "fixed: `   20`; not REC533"});
    table.Card("Coeffs   :", coeffs_row::kAll,
               {{1, "`URSI` or `CCIR`; for the built-in engine alone `MEAN`"}});
    AreaValuesAdd(table);
    AreaSystemAdd(table);
    AreaAntennasAdd(table);
    return table;
}

Table OutputTable()
{
    Table table("### ICEPAC and VOACAP", kOutputHead);
    table.Output("`MUF    LUF`", "head; then an empty line, then 24 rows", muf_row::kAll,
                 {{1, "`fFOT`, optimum working frequency; where it cannot be read, none"},
                  {1, "`fMUF`, MHz in the file, kHz in the table"},
                  {1, "`fLUF`"}});
    table.Output("`AZIMUTHS`", "the row below", azimuth_row::kAll,
                 {{1, "`fAzimuthTxRc`, degrees"},
                  {1, "`fAzimuthRcTx`, degrees"},
                  {1, "`fRange`, nautical miles"}});
    table.Output("`MODE`", "in each of 24 hour blocks", hour_row::kAll,
                 {{kChunkMax, "`sLayer`, text"}});
    table.Row({"`ANGLE`", "", "as MODE", "`fTakeoffAngle`, degrees"});
    table.Row({"`DELAY`", "", "as MODE", "`fTimeDelay`, ms"});
    table.Row({"`V HITE`", "", "as MODE", "`fVirtualHeight`, km"});
    table.Row({"`S DBW`", "", "as MODE", "`fSdBW`, dBW"});
    table.Row({"`N DBW`", "", "as MODE", "`fNdBW`, dBW"});
    table.Row({"`REL`", "between MODE and SNRxx, where it is printed", "as MODE",
               "`fReliability`, share of the days with the required SNR"});
    table.Row({"`SNR LW`, `SNR UP`", "the same", "as MODE",
               "`fSnrLower`, `fSnrUpper`, dB from the median to the deciles"});
    table.Row({"`SNRxx`", "", "as MODE",
               "`fSnr`, dB: the ratio that is exceeded at the required reliability"});
    return table;
}

Table OutputRec533Table()
{
    using namespace hour_row_rec533;
    Table table("### REC533", kOutputHead);
    table.Output("`AZIMUTHS`", "the row below", azimuth_row::kAll,
                 {{1, "`fAzimuthTxRc`, degrees"},
                  {1, "`fAzimuthRcTx`, degrees"},
                  {1, "`fRange`, nautical miles"}});
    table.Output("`FREQ`", "in each of 24 hour blocks", std::array{kMuf, kLuf, kFot},
                 {{1, "`fMUF`, MHz in the file, kHz in the table"},
                  {1, "`fLUF`"},
                  {1, "`fFOT`, where it can be read"}});
    table.Output("`MODE`", "", kAll, {{kChunkMax, "`sLayer`, text"}});
    table.Row(
        {"`ANGL`", "", "as MODE", "`fTakeoffAngle`; no number (beyond 7000 km: dashes) is 0"});
    table.Row(
        {"`DBU`", "", "as MODE", "`fSdBW`, from the field strength E in dB(uV/m), see below"});
    table.Row({"`S/N`", "", "as MODE", "`fNdBW` = `fSdBW` - this ratio"});
    table.Row({"`FS/N`", "", "as MODE", "`fReliability`, where it is printed"});
    table.Row({"`SNxx`", "", "as MODE", "`fSnr`, dB"});
    return table;
}

Table GridTable()
{
    Table table("## Grids", {"columns", "content"});
    table.Plain(
        grid_row::kAll,
        {{1, "index along the longitude, from 1"},
         {1, "index along the latitude, from 1"},
         {1, "latitude, degrees"},
         {1, "longitude, degrees; -180 to 180 when the west bound is negative, else 0 to 360"}});
    const std::string sWidth = std::to_string(grid_row::kSnrWidth) + " columns from the place of ";
    table.Row({sWidth + "` SNRxx` in the head line", "ratio, dB: ICEPAC, VOACAP"});
    table.Row({sWidth + "` SNxx` in the head line", "ratio, dB: REC533"});
    return table;
}

}  // namespace

std::string DeckTablesPut(std::string sDocument)
{
    for (const Table& table : {FormatTable(), PointTable(), AntennaTable(), PointRec533Table(),
                               AreaTable(), OutputTable(), OutputRec533Table(), GridTable()})
        table.Put(sDocument);
    return sDocument;
}
