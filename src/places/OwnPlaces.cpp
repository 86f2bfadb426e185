#include "places/OwnPlaces.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "geo/PositionText.h"
#include "places/CsvText.h"
#include "system/ErrorTextLib.h"
#include "system/FileLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kColumns = 4;
constexpr std::size_t kPastedColumns = 2;  // name and position are required

/// Counts a text's replacement characters, which mark what could not be decoded.
std::size_t ReplacementsGet(std::string_view sText)
{
    constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
    std::size_t nCount = 0;
    for (std::size_t n = sText.find(kReplacement); n != std::string_view::npos;
         n = sText.find(kReplacement, n + 1))
        ++nCount;
    return nCount;
}

bool Utf8Is(std::string_view sText)
{
    return ReplacementsGet(TextPrintable(sText)) == ReplacementsGet(sText);
}

std::size_t CharactersGet(std::string_view sText)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        sText, [](char chr) { return (static_cast<unsigned char>(chr) & 0xC0U) != 0x80U; }));
}

/// Trims a field and brings it onto one line.
Result<void> FieldClean(std::string& sField, const char* sName, std::size_t nMost)
{
    sField = TextTrim(sField);
    if (!Utf8Is(sField))
        return RunError{std::string("its ") + sName + " is not UTF-8"};
    sField = TextTrim(TextPrintable(sField));
    if (CharactersGet(sField) > nMost)
        return RunError{std::string("its ") + sName + " is longer than "
                        + NumberToText(static_cast<int>(nMost)) + " characters"};
    return {};
}

Result<void> FieldsClean(OwnPlaceTexts& texts)
{
    constexpr std::size_t kPositionMost = 80;
    constexpr std::size_t kFrequenciesMost = 400;
    for (const auto& [psField, sName, nMost] :
         {std::tuple{&texts.sName, "name", kOwnNameMost},
          std::tuple{&texts.sPosition, "position", kPositionMost},
          std::tuple{&texts.sFrequencies, "list of frequencies", kFrequenciesMost},
          std::tuple{&texts.sNote, "note", kOwnNoteMost}}) {
        if (auto res = FieldClean(*psField, sName, nMost); !res)
            return res;
    }
    return {};
}

Result<void> FrequenciesRead(const std::string& sText, std::vector<float>& afFrequency)
{
    std::string sLeftOut;
    afFrequency = OwnFrequenciesGet(sText, &sLeftOut);
    if (!sLeftOut.empty())
        return RunError{"\"" + TextForMessage(sLeftOut) + "\" is not a frequency from "
                        + NumberToText(kOwnFrequencyLeast) + " to "
                        + NumberToText(kOwnFrequencyMost) + " kHz"};
    if (afFrequency.size() > kOwnFrequenciesMost)
        return RunError{"it has more than " + NumberToText(static_cast<int>(kOwnFrequenciesMost))
                        + " frequencies"};
    return {};
}

/// @param nLeast  number of required columns
OwnPlace RowMake(std::vector<std::string> asField, std::string sFault, std::size_t nLeast)
{
    OwnPlace row;
    if (sFault.empty() && (asField.size() < nLeast || asField.size() > kColumns))
        sFault = "it has " + NumberToText(static_cast<int>(asField.size())) + " columns, not "
                 + NumberToText(static_cast<int>(kColumns));
    if (!sFault.empty()) {
        row.sFault = std::move(sFault);
        return row;
    }
    asField.resize(kColumns);
    auto res = OwnPlaceMake({asField[0], asField[1], asField[2], asField[3]});
    if (res)
        return std::move(res.ValueGet());
    row.sFault = res.TextGet();
    return row;
}

bool HeadIs(const CsvRow& row)
{
    std::string sHead;
    for (const std::string& sField : row.asField)
        sHead += (sHead.empty() ? "" : ",") + std::string(TextTrim(sField));
    return TextEqualNoCase(sHead, kOwnPlacesHead);
}

bool BlankIs(const CsvRow& row) { return TextTrim(row.sRaw).empty(); }

/// Adds a row, unless it is blank.
/// @param nLeast  number of required columns
/// @return an error if the list is full
Result<void> RowAdd(CsvRow csv, std::size_t nLeast, OwnPlaceList& list)
{
    if (BlankIs(csv))
        return {};
    if (list.aRows.size() >= kOwnPlacesMost)
        return RunError{"it has more than " + NumberToText(static_cast<int>(kOwnPlacesMost))
                        + " places"};
    OwnPlace row = RowMake(std::move(csv.asField), std::move(csv.sFault), nLeast);
    row.nLine = csv.nLine;
    if (!row.sFault.empty())
        row.sRaw = std::move(csv.sRaw);
    list.aRows.push_back(std::move(row));
    return {};
}

std::string_view MarkDrop(std::string_view sBytes)
{
    return sBytes.starts_with(kByteOrderMark) ? sBytes.substr(kByteOrderMark.size()) : sBytes;
}

std::vector<std::string> TabFields(std::string_view sLine)
{
    std::vector<std::string> asField;
    for (std::size_t n = 0; n <= sLine.size();) {
        const std::size_t nEnd = std::min(sLine.find('\t', n), sLine.size());
        asField.emplace_back(sLine.substr(n, nEnd - n));
        n = nEnd + 1;
    }
    return asField;
}

/// The next row of a pasted text, in which tables with tabs and rows with commas may be mixed, and
/// each may contain the other's separator. A line with tabs is read the way that gives a usable
/// row, by tabs first; if neither way does, its first separator decides.
CsvRow PastedRowTake(CsvReader& reader)
{
    const auto UsableIs = [](const CsvRow& row) {
        return HeadIs(row) || RowMake(row.asField, row.sFault, kPastedColumns).sFault.empty();
    };
    CsvReader readerTabs = reader;
    CsvReader readerCommas = reader;
    CsvRow rowTabs = readerTabs.LineTake();
    CsvRow rowCommas;
    const std::size_t nTab = rowTabs.sRaw.find('\t');
    if (nTab != std::string::npos)
        rowTabs.asField = TabFields(rowTabs.sRaw);
    bool bTabs = nTab != std::string::npos && UsableIs(rowTabs);
    if (!bTabs) {
        rowCommas = readerCommas.RowTake();
        bTabs = nTab < rowTabs.sRaw.find(',') && !UsableIs(rowCommas);
    }
    reader = bTabs ? readerTabs : readerCommas;
    return bTabs ? rowTabs : rowCommas;
}

std::string LinesText(const OwnPlaceList& list)
{
    const char* sEnd = list.bCrLf ? "\r\n" : "\n";
    std::string sText = list.bMark ? std::string(kByteOrderMark) : std::string();
    sText += kOwnPlacesHead;
    sText += sEnd;
    for (const OwnPlace& row : list.aRows) {
        if (!row.sFault.empty())
            sText += row.sRaw;
        else
            sText += CsvFieldText(row.texts.sName) + "," + CsvFieldText(row.texts.sPosition) + ","
                     + CsvFieldText(row.texts.sFrequencies) + "," + CsvFieldText(row.texts.sNote);
        sText += sEnd;
    }
    return sText;
}

/// True when both lists have the same rows; the line numbers do not matter.
bool RowsEqual(const OwnPlaceList& listA, const OwnPlaceList& listB)
{
    return std::ranges::equal(listA.aRows, listB.aRows, [](const OwnPlace& a, const OwnPlace& b) {
        return a.sFault.empty() == b.sFault.empty() && a.sRaw == b.sRaw && a.texts == b.texts;
    });
}

RunError Refused(std::string_view sFile, const std::string& sWhy)
{
    return RunError{"Cannot read " + std::string(sFile) + ": " + sWhy
                    + ". It is left as it is; repair it or move it away."};
}

}  // namespace

Result<OwnPlace> OwnPlaceMake(OwnPlaceTexts texts)
{
    OwnPlace row;
    if (auto res = FieldsClean(texts); !res)
        return res.ErrorGet();
    if (texts.sName.empty())
        return RunError{"it has no name"};
    const auto resPosition = PositionFromText(texts.sPosition, PositionAxis::Latitude);
    if (!resPosition)
        return resPosition.ErrorGet();
    const PositionRead& pos = resPosition.ValueGet();
    if (!pos.dLat || !pos.dLon)
        return RunError{"\"" + TextForMessage(texts.sPosition) + "\" is not a position"};
    if (auto res = FrequenciesRead(texts.sFrequencies, row.place.afFrequency); !res)
        return res.ErrorGet();
    row.place.eKind = PlaceKind::Own;
    row.place.sSystem = kOwnSystem;
    row.place.sKey = texts.sName;
    row.place.sDescription = texts.sNote;
    row.place.dLat = *pos.dLat;
    row.place.dLon = *pos.dLon;
    row.texts = std::move(texts);
    return row;
}

std::vector<Place> OwnPlacesGet(const OwnPlaceList& list)
{
    std::vector<Place> aPlaces;
    for (const OwnPlace& row : list.aRows)
        if (row.sFault.empty())
            aPlaces.push_back(row.place);
    return aPlaces;
}

std::vector<PlaceFault> OwnPlaceFaultsGet(const OwnPlaceList& list)
{
    std::vector<PlaceFault> aFaults;
    for (const OwnPlace& row : list.aRows)
        if (!row.sFault.empty())
            aFaults.push_back({"line " + NumberToText(row.nLine), row.sFault});
    return aFaults;
}

Result<OwnPlaceList> OwnPlacesParse(std::string_view sBytes)
{
    OwnPlaceList list;
    if (sBytes.size() > kOwnPlacesBytesMost)
        return RunError{"it is larger than 4 MB"};
    const std::string_view sText = MarkDrop(sBytes);
    list.bMark = sText.size() != sBytes.size();
    const std::size_t nLineEnd = sText.find('\n');
    list.bCrLf = nLineEnd != std::string_view::npos && nLineEnd > 0 && sText[nLineEnd - 1] == '\r';
    if (sText.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return list;
    CsvReader reader(sText);
    if (!HeadIs(reader.RowTake()))
        return RunError{"line 1 is not \"" + std::string(kOwnPlacesHead) + "\""};
    while (!reader.AtEnd())
        if (auto res = RowAdd(reader.RowTake(), kColumns, list); !res)
            return res.ErrorGet();
    return list;
}

Result<OwnPlaceList> OwnPlacesFromPaste(std::string_view sText)
{
    OwnPlaceList list;
    if (sText.size() > kOwnPlacesBytesMost)
        return RunError{"the text is larger than 4 MB"};
    for (CsvReader reader(MarkDrop(sText)); !reader.AtEnd();) {
        CsvRow row = PastedRowTake(reader);
        if (HeadIs(row))
            continue;
        if (auto res = RowAdd(std::move(row), kPastedColumns, list); !res)
            return res.ErrorGet();
    }
    return list;
}

Result<std::string> OwnPlacesText(const OwnPlaceList& list)
{
    std::string sText = LinesText(list);
    const auto resRead = OwnPlacesParse(sText);
    if (!resRead)
        return resRead.ErrorGet();
    if (!RowsEqual(resRead.ValueGet(), list))
        return RunError{"a line with a missing quote changes the lines after it"};
    return sText;
}

std::string OwnPlacesPath(std::string_view sProfileFile)
{
    return PathWithEnding(sProfileFile, ".places.csv");
}

Result<OwnPlaceList> OwnPlacesLoad(std::string_view sProfileFile)
{
    const std::string sFile = OwnPlacesPath(sProfileFile);
    if (!FileExists(sFile))
        return OwnPlaceList();
    const auto resBytes = FileRead(sFile, kOwnPlacesBytesMost);
    if (!resBytes)
        return Refused(
            sFile, resBytes.TextGet() == kOverflow ? "it is larger than 4 MB" : resBytes.TextGet());
    auto resList = OwnPlacesParse(resBytes.ValueGet());
    if (!resList)
        return Refused(sFile, resList.TextGet());
    return resList;
}

bool OwnPlacesChanged(std::string_view sProfileFile, const OwnPlaceList& list)
{
    if (!FileExists(OwnPlacesPath(sProfileFile)))
        return false;
    const auto resList = OwnPlacesLoad(sProfileFile);
    return !resList || !RowsEqual(resList.ValueGet(), list);
}

Result<void> OwnPlacesSave(const std::string& sProfileFile, const OwnPlaceList& list)
{
    const std::string sFile = OwnPlacesPath(sProfileFile);
    const auto resText = OwnPlacesText(list);
    if (!resText)
        return RunError{"Cannot save " + sFile + ": " + resText.TextGet()
                        + ". Mend or delete the rows that cannot be used, and save again."};
    std::string sWhy;
    if (const int nError = ProfileFolderMake(sProfileFile); nError != 0)
        sWhy = SystemErrorText(nError);
    else if (const auto res = FileReplace(sFile, resText.ValueGet()); !res)
        sWhy = res.TextGet();
    if (!sWhy.empty())
        return RunError{"Cannot save " + sFile + ": " + sWhy
                        + ". Check that files can be written there, and save again."};
    return {};
}
