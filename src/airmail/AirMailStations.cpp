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

Result<void> KeysRead(TextFile& file, TextList& asKey)
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
            asKey.Add(Utf8FromWindows1252(std::string_view(sLine).substr(0, nEqual)));
        bInside = bInside || sLine == kSectionLine;
    }
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
    nCount = 0;
    auto resFile = TextFile::Open(AirMailFileGet(AirMailDataFolderGet(), StationFileName(sSystem)));
    if (!resFile)
        return StationsFail(paMessages, " - Open, Unable to open", sSystem,
                            " Station Info data." + resFile.TextGet());
    const auto resRead = KeysRead(resFile.ValueGet(), asKey);
    nCount = asKey.CountGet();
    if (!resRead)
        return StationsFail(paMessages, " - Read, Unable to get", sSystem, " Station Info data.");
    if (nCount == 0)
        return StationsFail(paMessages, ", Unable to find any selected", sSystem, "Stations.");
    return true;
}

Result<bool> AirMailStationPosition(const std::string& sSystem, const std::string& sKey,
                                    double& dLatitude, double& dLongitude, bool bShowError,
                                    Messages& aMessages, std::string* psFault)
{
    const std::string sEntry = EntryGet(sSystem, sKey, bShowError ? &aMessages : nullptr);
    if (sEntry.empty())
        return false;
    const std::size_t nColon = sEntry.find(':');
    if (nColon == std::string::npos)
        return RunError{kInvalidCall};
    std::string sGrid = sEntry.substr(0, nColon);
    double dLat = 0.0;
    double dLon = 0.0;
    if (!GridSquareToPosition(sGrid, dLat, dLon, &aMessages))
        return false;
    if (!PositionInRange(dLat, dLon)) {
        const std::string sFault = AirMailPathGet(AirMailDataFolderGet(), StationFileName(sSystem))
                                   + ", [" + kSection + "] " + sKey + ": "
                                   + TextPrintable(sEntry.substr(0, nColon)) + " lies out of range";
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
    const std::string sEntry = EntryGet(sSystem, sKey, paMessages);
    const std::size_t nColon = sEntry.find(':');
    const std::size_t nSemicolon = sEntry.find(';');
    // A semicolon before the colon leaves nothing between them.
    if (nColon == std::string::npos || nSemicolon < nColon)
        return {};
    return sEntry.substr(
        nColon + 1, nSemicolon == std::string::npos ? std::string::npos : nSemicolon - nColon - 1);
}
