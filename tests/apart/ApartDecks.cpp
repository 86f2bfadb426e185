#include "apart/ApartDecks.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <vector>

#include "apart/ApartText.h"

namespace {

/// What may be in a field.
enum class Kind {
    Number,    ///< within its limits
    Whole,     ///< a whole number within its limits
    Noise,     ///< a number whose sign does not matter: the noise is negative
    Latitude,  ///< an absolute value, with N or S in the column after it
    Longitude,
    Maps,    ///< a set of coefficients
    Text,    ///< any text
    Fixed,   ///< exactly the text in sName
    Square,  ///< an antenna's name between square brackets
};

struct Column {
    const char* sCard;
    const char* sName;
    Kind eKind;
    std::size_t nFirst, nLast;
    double dLeast = 0, dMost = 0;
    bool bEnd = false;  ///< only a blank or the end of the line may follow
};

constexpr Column kPointColumns[] = {
    {"COEFFS", "maps", Kind::Maps, 11, 16},
    {"SUNSPOT", "sunspot number", Kind::Number, 11, 15, 0, 311, true},
    {"TIME", "first hour", Kind::Whole, 11, 15, 0, 0},
    {"TIME", "last hour", Kind::Whole, 16, 20, 23, 23},
    {"TIME", "step", Kind::Whole, 21, 25, 1, 1, true},
    {"MONTH", "year", Kind::Whole, 11, 15, 0, 9999},
    {"MONTH", "month", Kind::Whole, 16, 20, 1, 12, true},
    {"TRANS", "name", Kind::Text, 11, 30},
    {"TRANS", "latitude", Kind::Latitude, 32, 37, 0, 90},
    {"TRANS", "longitude", Kind::Longitude, 43, 48, 0, 180},
    {"TRANS", "S", Kind::Fixed, 50, 52},
    {"RECVR", "name", Kind::Text, 11, 30},
    {"RECVR", "latitude", Kind::Latitude, 32, 37, 0, 90},
    {"RECVR", "longitude", Kind::Longitude, 43, 48, 0, 180},
    {"RECVR", "S", Kind::Fixed, 50, 52},
    {"SYST", "power", Kind::Number, 11, 21, 1e-6, 1e5},
    {"SYST", "least elevation", Kind::Number, 22, 26, -99, 99, true},
    {"NOIS", "noise", Kind::Noise, 11, 15, -999, 999},
    {"NOIS", "bandwidth", Kind::Number, 16, 20, 1, 99999},
    {"NOIS", "required ratio", Kind::Number, 21, 25, -200, 200},
    {"NOIS", "reliability", Kind::Number, 26, 30, -999, 9999, true},
};

constexpr Column kAntennaColumns[] = {
    {"ANTENNA", "end", Kind::Whole, 11, 15, 1, 2},
    {"ANTENNA", "antenna", Kind::Square, 42, 62},
    {"ANTENNA", "bearing", Kind::Number, 64, 68, -360, 360},
    {"ANTENNA", "power", Kind::Number, 69, 78, 0, 1e5, true},
};

constexpr Column kAreaColumns[] = {
    {"Model", "REC533", Kind::Fixed, 11, 20},
    {"Transmit", "latitude", Kind::Latitude, 11, 16, 0, 90},
    {"Transmit", "longitude", Kind::Longitude, 21, 26, 0, 180},
    {"Transmit", "name", Kind::Text, 31, 50},
    {"Transmit", "Short", Kind::Fixed, 52, 59},
    {"PCenter", nullptr, Kind::Latitude, 11, 16, 0, 90},  // checked but not kept
    {"PCenter", nullptr, Kind::Longitude, 21, 26, 0, 180},
    {"Area", "west", Kind::Number, 11, 20, -360, 360},
    {"Area", "east", Kind::Number, 21, 30, -360, 360},
    {"Area", "south", Kind::Number, 31, 40, -90, 90},
    {"Area", "north", Kind::Number, 41, 50, -90, 90, true},
    {"Gridsize", "points", Kind::Whole, 11, 15, 2, 999, true},
    {"Coeffs", "maps", Kind::Maps, 11, 16},
    {"Months", "month", Kind::Whole, 11, 17, 1, 12, true},
    {"Sssns", "sunspot number", Kind::Number, 11, 17, 0, 311, true},
    {"Hours", "hour", Kind::Whole, 11, 17, 0, 24, true},
    {"Freqs", "frequency", Kind::Number, 11, 17, 0.1, 45, true},
    {"System", "noise", Kind::Noise, 11, 15, -999, 999},
    {"System", "least elevation", Kind::Number, 16, 25, -99, 99},
    {"System", "reliability", Kind::Number, 26, 30, -999, 9999},
    {"System", "required ratio", Kind::Number, 31, 35, -200, 200},
    {"System", "bandwidth", Kind::Number, 36, 45, 1, 1e6, true},
};

constexpr Column kAreaTxColumns[] = {
    {"Tx Ants", "antenna", Kind::Square, 12, 32},
    {"Tx Ants", "bearing", Kind::Number, 41, 46, -360, 360},
    {"Tx Ants", "power", Kind::Number, 47, 57, 1e-6, 1e5, true},
};

constexpr Column kAreaRxColumns[] = {{"Rec Ants", "antenna", Kind::Square, 12, 32}};

bool Blank(char c) { return c == ' ' || c == '\t'; }

/// Reads one field of a line into the outcome; false if it cannot be used.
bool FieldRead(const Column& column, const std::string& sLine, Outcome& to)
{
    const std::string sRaw = ApartColumns(sLine, column.nFirst, column.nLast);
    const std::string sText = ApartTrim(sRaw);
    if (column.bEnd && sLine.size() > column.nLast && !Blank(sLine[column.nLast]))
        return false;
    const auto fnLetter = [&](std::size_t nColumn) {
        return sLine.size() < nColumn ? ' ' : sLine[nColumn - 1];
    };
    switch (column.eKind) {
        case Kind::Text:
            to.Add(column.sName, sText);
            return true;
        case Kind::Fixed:
            return sText == column.sName;
        case Kind::Maps:
            to.Add(column.sName, sText);
            return sText == "CCIR" || sText == "URSI" || sText == "MEAN";
        case Kind::Square:
            to.Add(column.sName, sRaw);
            return fnLetter(column.nFirst - 1) == '[' && fnLetter(column.nLast + 1) == ']'
                   && !sText.empty();
        default:
            break;
    }
    const auto dNumber = ApartNumber(sText);
    if (!dNumber || *dNumber < column.dLeast || *dNumber > column.dMost
        || (column.eKind == Kind::Whole && *dNumber != std::floor(*dNumber)))
        return false;
    double dValue = column.eKind == Kind::Noise ? -std::abs(*dNumber) : *dNumber;
    if (column.eKind == Kind::Latitude || column.eKind == Kind::Longitude) {
        const char cLetter = fnLetter(column.nLast + 1);
        const bool bLatitude = column.eKind == Kind::Latitude;
        if (cLetter == (bLatitude ? 'S' : 'W'))
            dValue = -dValue;
        else if (cLetter != (bLatitude ? 'N' : 'E'))
            return false;
    }
    if (column.sName != nullptr)
        to.Add(column.sName, dValue);
    return true;
}

/// The fields of a card, in the order of the table.
template <class Columns>
bool CardRead(const Columns& columns, const std::string& sCard, const std::string& sLine,
              Outcome& to)
{
    return std::all_of(std::begin(columns), std::end(columns), [&](const Column& column) {
        return sCard != column.sCard || FieldRead(column, sLine, to);
    });
}

/// Up to ten frequencies in columns of seven; false if one cannot be read.
bool FrequenciesRead(const std::string& sLine, Outcome& to)
{
    constexpr std::size_t kFirst = 11, kWidth = 7, kMost = 10;
    const std::string sCard = ApartTrim("|" + sLine).substr(1);  // trailing blanks do not count
    std::size_t nCount = 0;
    for (std::size_t nColumn = kFirst; nColumn <= sCard.size(); nColumn += kWidth) {
        const Column column{"FREQ", "frequency", Kind::Number, nColumn, nColumn + kWidth - 1,
                            -1e6,   1e6,         true};
        if (++nCount > kMost || !FieldRead(column, sCard, to))
            return false;
    }
    return nCount > 0;
}

/// A label must match its columns exactly; only blanks may follow.
std::string Label(std::string sColumns)
{
    while (sColumns.ends_with(' ')) sColumns.pop_back();
    return sColumns;
}

Outcome Refused()
{
    Outcome outcome;
    outcome.Refuse();
    return outcome;
}

}  // namespace

Outcome ApartPointDeck(const std::string& sBytes)
{
    const std::vector<std::string> asNeeded{"OUTPUT", "COEFFS", "SUNSPOT", "TIME", "MONTH", "TRANS",
                                            "RECVR",  "SYST",   "NOIS",    "FREQ", "EXEC",  "QUIT"};
    std::map<std::string, std::string> mapLine;
    std::map<int, std::string> mapAntenna;  // by end: only one card for each
    for (const std::string& sLine : ApartLines(sBytes)) {
        const std::string sCard = Label(ApartColumns(sLine, 1, 10));
        if (ApartTrim(sLine).empty())
            continue;
        if (sCard == "ANTENNA") {
            const double dEnd = ApartNumber(ApartColumns(sLine, 11, 15)).value_or(0.0);
            if (!mapAntenna.emplace(dEnd == 1.0 ? 1 : 2, sLine).second)
                return Refused();
        } else if (std::find(asNeeded.begin(), asNeeded.end(), sCard) == asNeeded.end()
                   || !mapLine.emplace(sCard, sLine).second)
            return Refused();
        if (sCard == "QUIT")
            break;
    }
    Outcome outcome;
    for (const std::string& sCard : asNeeded) {
        const auto it = mapLine.find(sCard);
        if (it == mapLine.end() || !CardRead(kPointColumns, sCard, it->second, outcome)
            || (sCard == "FREQ" && !FrequenciesRead(it->second, outcome)))
            return Refused();
    }
    for (const auto& [iEnd, sLine] : mapAntenna)
        if (!CardRead(kAntennaColumns, "ANTENNA", sLine, outcome)
            || (iEnd == 1 && ApartNumber(ApartColumns(sLine, 69, 78)) == 0.0))  // no power
            return Refused();
    return outcome;
}

Outcome ApartAreaDeck(const std::string& sBytes)
{
    const std::vector<std::string> asNeeded{
        "Model",    "Colors", "Cities", "Nparms", "Parameter", "Transmit", "PCenter", "Area",
        "Gridsize", "Coeffs", "Months", "Sssns",  "Hours",     "Freqs",    "System"};
    if (!sBytes.ends_with('\n'))
        return Refused();  // the file was cut
    std::map<std::string, std::string> mapLine;
    for (const std::string& sLine : ApartLines(sBytes)) {
        if (ApartTrim(sLine).empty())
            continue;
        const std::string sLabel = Label(ApartColumns(sLine, 1, 9));
        const bool bKnown = std::find(asNeeded.begin(), asNeeded.end(), sLabel) != asNeeded.end()
                            || sLabel == "Tx Ants" || sLabel == "Rec Ants";
        if (!bKnown || ApartColumns(sLine, 10, 10) != ":" || !mapLine.emplace(sLabel, sLine).second)
            return Refused();
    }
    Outcome outcome;
    for (const std::string& sLabel : asNeeded)
        if (!mapLine.contains(sLabel) || !CardRead(kAreaColumns, sLabel, mapLine[sLabel], outcome))
            return Refused();
    if (mapLine.contains("Tx Ants") != mapLine.contains("Rec Ants"))
        return Refused();
    if (mapLine.contains("Tx Ants")
        && (!CardRead(kAreaTxColumns, "Tx Ants", mapLine["Tx Ants"], outcome)
            || !CardRead(kAreaRxColumns, "Rec Ants", mapLine["Rec Ants"], outcome)))
        return Refused();
    return outcome;
}

namespace {

/// "[DEFAULT\\CONST17.VOA  ]": both names without blanks; false for a name that leads out of the
/// folder.
bool AntennaAdd(const std::string& sLine, Outcome& to)
{
    const std::size_t nOpen = sLine.find('[');
    const std::size_t nClose = nOpen == std::string::npos ? nOpen : sLine.find(']', nOpen);
    if (nClose == std::string::npos)
        return false;
    const std::string sName = sLine.substr(nOpen + 1, nClose - nOpen - 1);
    if (std::count(sName.begin(), sName.end(), '\\') != 1 || sName.find('/') != std::string::npos)
        return false;
    for (const std::string& sPart :
         {sName.substr(0, sName.find('\\')), sName.substr(sName.find('\\') + 1)}) {
        const std::string sTrimmed = ApartTrim(sPart);
        if (sTrimmed.empty() || sTrimmed.front() == '.')
            return false;
        to.Add("antenna", sTrimmed);
    }
    return true;
}

}  // namespace

Outcome ApartVoacapPoint(const std::string& sBytes)
{
    constexpr std::size_t kFirst = 11, kWidth = 5, kMost = 10;
    Outcome outcome;
    std::string sText;
    std::vector<double> aFrequencies;
    bool bBehind = false;  // after the FREQUENCY card, where empty lines are left out
    for (const std::string& sLine : ApartLines(sBytes)) {
        if (bBehind && ApartTrim(sLine).empty())
            continue;
        sText += sLine + '\n';
        bBehind = sLine.starts_with("FREQUENCY");
        if (sLine.starts_with("ANTENNA") && !AntennaAdd(sLine, outcome))
            return Refused();
        if (!bBehind)
            continue;
        aFrequencies.clear();
        const std::string sCard = Label(sLine);
        for (std::size_t n = kFirst; n <= sCard.size(); n += kWidth) {
            const auto dMhz = ApartNumber(ApartColumns(sCard, n, n + kWidth - 1));
            if (!dMhz || aFrequencies.size() == kMost)
                return Refused();
            aFrequencies.push_back(*dMhz);
        }
        if (aFrequencies.empty())
            return Refused();
    }
    if (aFrequencies.empty())
        return Refused();
    outcome.Add("text", sText);
    for (const double dMhz : aFrequencies) outcome.Add("frequency", dMhz);
    return outcome;
}

Outcome ApartVoacapArea(const std::string& sBytes)
{
    constexpr double kMost = 999;
    Outcome outcome;
    std::string sText;
    double dGrid = 0;
    bool bAntenna = false;
    for (const std::string& sLine : ApartLines(sBytes)) {
        const std::string sLabel = ApartColumns(sLine, 1, 10);
        if (sLabel == "Qindexs  :")
            continue;
        const std::string sRest = sLine.size() > sLabel.size() ? sLine.substr(sLabel.size()) : "";
        sText += (sLabel == "PCenter  :"   ? "Pcenter  :"
                  : sLabel == "Sssns    :" ? "Ssns     :"
                                           : sLabel)
                 + sRest + '\n';
        if (sLabel == "Gridsize :") {
            const auto dRead = ApartNumber(ApartColumns(sLine, 11, 15));
            if (!dRead || *dRead < 1 || *dRead > kMost || *dRead != std::floor(*dRead))
                return Refused();
            dGrid = *dRead;
        }
        if (sLabel == "Rec Ants :" || sLabel == "Tx Ants  :") {
            bAntenna = true;
            if (!AntennaAdd(sLine, outcome))
                return Refused();
        }
    }
    if (dGrid == 0 || !bAntenna)
        return Refused();
    outcome.Add("text", sText);
    outcome.Add("points", dGrid);
    return outcome;
}
