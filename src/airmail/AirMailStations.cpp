#include "airmail/AirMailStations.h"

#include <string_view>

#include "airmail/AirMailFolders.h"
#include "airmail/AirMailIni.h"
#include "geo/GridSquareLib.h"
#include "geo/MathLib.h"
#include "system/FileLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr const char* kSectionLine = "[Station Info]";
constexpr const char* kSection = "Station Info";

std::string StationFileName(const std::string& sSystem) { return "System." + sSystem + ".ini"; }

bool StationsFail(Messages* paMessages, const char* sStage, const std::string& sSystem,
                  const std::string& sReason)
{
    return MessageFail(paMessages, MsgIcon::None,
                       std::string("AirMailGetStations") + sStage + " AirMail \""
                           + TextForMessage(sSystem) + "\"" + sReason + AirMailFolderHint());
}

/// Calls fnLine with the texts before and after the first "=" of each line of the list.
template <class LineFn>
Result<void> LinesRead(TextFile& file, const LineFn& fnLine)
{
    bool bInside = false;
    for (std::string sLine;;) {
        const auto resMore = file.LineRead(sLine);
        if (!resMore)
            return resMore.ErrorGet();
        const std::size_t nEqual = sLine.find('=');
        if (!resMore.ValueGet() || (bInside && nEqual == std::string::npos))
            return {};
        if (bInside)
            fnLine(std::string_view(sLine).substr(0, nEqual),
                   std::string_view(sLine).substr(nEqual + 1));
        bInside = bInside || sLine == kSectionLine;
    }
}

/// A value as the reader of one key gives it, before it is cut to its buffer: without surrounding
/// blanks and one pair of quotes.
std::string_view ValueBare(std::string_view sValue)
{
    sValue = TextTrim(sValue);
    if (sValue.size() >= 2 && (sValue.front() == '"' || sValue.front() == '\'')
        && sValue.back() == sValue.front())
        sValue = sValue.substr(1, sValue.size() - 2);
    return sValue;
}

StationEntry EntryCut(std::string sKey, const std::string& sEntry)
{
    StationEntry entry;
    entry.sKey = std::move(sKey);
    const std::size_t nColon = sEntry.find(':');
    const std::size_t nSemicolon = sEntry.find(';');
    if (nColon != std::string::npos) {
        entry.sGrid = sEntry.substr(0, nColon);
        // A semicolon before the colon leaves nothing between them.
        if (nSemicolon > nColon)
            entry.sDescription = sEntry.substr(nColon + 1, nSemicolon == std::string::npos
                                                               ? std::string::npos
                                                               : nSemicolon - nColon - 1);
    }
    if (nSemicolon != std::string::npos)
        entry.sRest = sEntry.substr(nSemicolon + 1);
    return entry;
}

/// Reads the lines of a system's list. @return false, with a message, when there are none.
template <class LineFn>
bool StationsRead(const std::string& sSystem, const LineFn& fnLine, Messages* paMessages)
{
    auto resFile = TextFile::Open(AirMailFileGet(AirMailDataFolderGet(), StationFileName(sSystem)));
    if (!resFile)
        return StationsFail(paMessages, " - Open, Unable to open", sSystem,
                            " Station Info data." + resFile.TextGet());
    bool bAny = false;
    const auto resRead =
        LinesRead(resFile.ValueGet(), [&](std::string_view sKey, std::string_view sValue) {
            bAny = true;
            fnLine(sKey, sValue);
        });
    if (!resRead)
        return StationsFail(paMessages, " - Read, Unable to get", sSystem, " Station Info data.");
    if (!bAny)
        return StationsFail(paMessages, ", Unable to find any selected", sSystem, "Stations.");
    return true;
}

std::string EntryGet(const std::string& sSystem, const std::string& sKey, Messages* paMessages)
{
    return AirMailIniGet(StationFileName(sSystem), kSection, sKey, paMessages);
}

}  // namespace

bool AirMailGetSystems(int& nCount, TextList& asName, Messages* paMessages)
{
    asName = {};
    for (const std::string& sFile :
         FilesList(AirMailFileGet(AirMailDataFolderGet(), "System.*.ini"))) {
        const std::size_t nFirst = sFile.find('.');
        const std::size_t nSecond =
            nFirst == std::string::npos ? nFirst : sFile.find('.', nFirst + 1);
        if (nSecond != std::string::npos)
            asName.Add(sFile.substr(nFirst + 1, nSecond - nFirst - 1));
    }
    nCount = asName.CountGet();
    if (nCount == 0)
        return MessageFail(
            paMessages, MsgIcon::Exclamation,
            "Unable to find AirMail's \"System.*.ini\" files." + AirMailFolderHint());
    return true;
}

bool AirMailGetStations(const std::string& sSystem, int& nCount, TextList& asKey,
                        Messages* paMessages)
{
    asKey = {};
    const bool bOk = StationsRead(
        sSystem,
        [&](std::string_view sKey, std::string_view /*sValue*/) {
            asKey.Add(Utf8FromWindows1252(sKey));
        },
        paMessages);
    nCount = asKey.CountGet();
    return bOk;
}

bool AirMailGetEntries(const std::string& sSystem, std::vector<StationEntry>& aEntry,
                       Messages* paMessages)
{
    aEntry.clear();
    return StationsRead(
        sSystem,
        [&](std::string_view sKey, std::string_view sValue) {
            if (TextTrim(sKey).starts_with(';'))
                return;
            const std::string_view sBare = ValueBare(sValue);
            aEntry.push_back(EntryCut(Utf8FromWindows1252(TextTrim(sKey)),
                                      Utf8FromWindows1252(sBare.substr(0, kAirMailValueMost))));
            // Half a number would be another frequency.
            std::string& sRest = aEntry.back().sRest;
            if (sBare.size() > kAirMailValueMost)
                sRest.resize(sRest.find_last_of(" \t,/;") + 1);
        },
        paMessages);
}

Result<bool> AirMailStationPosition(const std::string& sSystem, const std::string& sKey,
                                    double& dLatitude, double& dLongitude, bool bShowError,
                                    Messages& aMessages, std::string* psFault)
{
    const std::string sEntry = EntryGet(sSystem, sKey, bShowError ? &aMessages : nullptr);
    if (sEntry.empty())
        return false;
    const StationEntry entry = EntryCut(sKey, sEntry);
    if (!entry.sGrid)
        return RunError{kInvalidCall};
    std::string sGrid = *entry.sGrid;
    double dLat = 0.0;
    double dLon = 0.0;
    if (!GridSquareToPosition(sGrid, dLat, dLon, &aMessages))
        return false;
    if (!PositionInRange(dLat, dLon)) {
        const std::string sFault = AirMailPathGet(AirMailDataFolderGet(), StationFileName(sSystem))
                                   + ", [" + kSection + "] " + sKey + ": "
                                   + TextPrintable(*entry.sGrid) + " is out of range";
        if (psFault)
            *psFault = sFault;
        return MessageFail(bShowError ? &aMessages : nullptr, MsgIcon::Exclamation, sFault);
    }
    dLatitude = dLat;
    dLongitude = dLon;
    return true;
}

std::string AirMailStationDescription(const std::string& sSystem, const std::string& sKey,
                                      Messages* paMessages)
{
    return EntryCut(sKey, EntryGet(sSystem, sKey, paMessages)).sDescription;
}
