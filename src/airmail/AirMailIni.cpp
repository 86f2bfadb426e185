#include "airmail/AirMailIni.h"

#include "airmail/AirMailFolders.h"
#include "system/PrivateProfileLib.h"
#include "system/TextLib.h"

namespace {

constexpr const char* kVersionTested = "3.1.936";

}  // namespace

std::string AirMailIniGet(const std::string& sFile, const std::string& sSection,
                          const std::string& sKey, Messages* paMessages)
{
    std::string sValue = PrivateProfileGetWindows1252(
        sSection, sKey, "", kAirMailValueMost + 1, AirMailFileGet(AirMailDataFolderGet(), sFile));
    if (sValue.empty())
        MessageFail(paMessages, MsgIcon::Exclamation,
                    "Unable to find AirMail's " + sSection + ", " + TextForMessage(sKey) + " in \""
                        + TextForMessage(sFile) + "\"." + AirMailFolderHint());
    return sValue;
}

std::string AirMailIniPlaceGet(const std::string& sSection, const std::string& sKey)
{
    return AirMailPathGet(AirMailDataFolderGet(), kAirMailIniFile) + ", [" + sSection + "] " + sKey;
}

std::string AirMailFolderHint()
{
    return "\r\rPlease check that the AirMail Data folder \""
           + TextForMessage(AirMailDataFolderGet()) + "\" is correct.";
}

std::string AirMailVersionText()
{
    const std::string sVersion =
        TextForMessage(AirMailIniGet(kAirMailIniFile, "Settings", "Last Program Version", nullptr));
    if (sVersion.empty())
        return "Unable to get current version number.";
    if (sVersion == kVersionTested)
        return "Airmail " + sVersion;
    return "Airmail " + sVersion + ".  This program was tested with " + kVersionTested + ".";
}

std::string AirMailSunSpotNumberGet(Messages* paMessages)
{
    return AirMailIniGet(kAirMailIniFile, "Propagation", "SSN", paMessages);
}
