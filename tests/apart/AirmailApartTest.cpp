/// Airmail's files, whole and spoilt, read by the program and by independently written readers.
#include <gtest/gtest.h>

#include <string>

#include "airmail/AirMailFixture.h"
#include "apart/ApartAirmail.h"
#include "settings/SunSpotLib.h"

namespace {

constexpr double kNoLatitude = 180.0, kNoLongitude = 360.0;

std::string SampleGet(const char* sName)
{
    return BytesRead(AIRMAIL_DATA + (std::string("/") + sName));
}

class AirmailApart : public AirMailFixture {
protected:
    /// The folders found by the search; a folder that no file names stays unchanged.
    static Outcome FoldersRead()
    {
        AirMailFoldersReset();
        AirMailFoldersFind();
        Outcome outcome;
        outcome.Add("program", AirMailProgramFolderGet());
        outcome.Add("data", AirMailDataFolderGet());
        return outcome;
    }
    static Outcome Folders(const std::string& sProgram, const std::string& sData)
    {
        Outcome outcome;
        outcome.Add("program", sProgram);
        outcome.Add("data", sData);
        return outcome;
    }
};

Outcome IniRead()
{
    Outcome outcome;
    outcome.Add("version",
                AirMailIniGet("Airmail.ini", "Settings", "Last Program Version", nullptr));
    double dLat = 0.0, dLon = 0.0;
    DateTime dt;
    const auto res = AirMailPositionGet(dLat, dLon, dt, nullptr);
    if (!res)
        outcome.Add("position", std::string("its time is no date"));
    else if (!res.ValueGet())
        outcome.Add("position", std::string("none"));
    else {
        outcome.Add("latitude", dLat);
        outcome.Add("longitude", dLon);
        for (const int n : {dt.nYear, dt.nMonth, dt.nDay, dt.nHour, dt.nMinute, dt.nSecond})
            outcome.Add("time", n);
    }
    Settings settings;
    settings.m_bPropagationSunSpotNumber = true;
    float fNumber = -1.0F;
    (void)SunSpotNumberGet(settings, fNumber, nullptr);
    outcome.Add("SSN", fNumber);
    return outcome;
}

TEST_F(AirmailApart, AirmailIniIsReadAlikeByAReaderWrittenApart)
{
    // Beyond the sample: the second choice of the position, and dates in the other forms.
    const std::string sSample = SampleGet("Airmail.ini");
    const auto fnWith = [&](const std::string& sOld, const std::string& sNew) {
        return std::string(sSample).replace(sSample.find(sOld), sOld.size(), sNew);
    };
    OutcomesCompare(
        {sSample, fnWith("Current Time", "Current"),
         fnWith("2024/03/18 14:05", "3/18/2024 2:05:06 PM"),
         fnWith("2024/03/18 14:05", "18/3/2024 12:05 am"),
         fnWith("[Position Report]", "[Position]")},
        [&](const std::string& sBytes, std::size_t) {
            AirMailWrite("Airmail.ini", sBytes);
            return IniRead();
        },
        [](const std::string& sBytes, std::size_t) { return ApartAirmailIni(sBytes); }, 1000, 0);
}

TEST_F(AirmailApart, StationFilesAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        {SampleGet("System.HAM.ini"), SampleGet("System.SailMail.ini"),
         SampleGet("System.Coast.ini")},
        [&](const std::string& sBytes, std::size_t) {
            AirMailWrite("System.HAM.ini", sBytes);
            Outcome outcome;
            int nCount = 0;
            TextList asKey;
            Messages aMessages;
            if (!AirMailGetStations("HAM", nCount, asKey, &aMessages))
                outcome.Refuse();
            for (int i = 1; i <= nCount; ++i) {
                outcome.Add("station", asKey[i]);
                outcome.Add("description", AirMailStationDescription("HAM", asKey[i], nullptr));
                double dLat = 0.0, dLon = 0.0;
                const auto res =
                    AirMailStationPosition("HAM", asKey[i], dLat, dLon, false, aMessages);
                const bool bFound = res && res.ValueGet();
                outcome.AddNear("latitude", bFound ? dLat : kNoLatitude);
                outcome.AddNear("longitude", bFound ? dLon : kNoLongitude);
            }
            return outcome;
        },
        [](const std::string& sBytes, std::size_t) { return ApartStations(sBytes); }, 500, 50);
}

TEST_F(AirmailApart, InstallLogIsReadAlikeByAReaderWrittenApart)
{
    AirMailWrite("Airmail3.exe", "MZ");
    const std::string sSample = SampleGet("Install.log");
    OutcomesCompare(
        {sSample, "NewCommonRoot= D:\\First\\\r\n" + sSample, "NewCommonRoot= C:\\D\xE4ta\\\n"},
        [&](const std::string& sBytes, std::size_t) {
            AirMailWrite("Install.log", sBytes);
            return FoldersRead();
        },
        [](const std::string& sBytes, std::size_t) {
            return Folders(kAirMailFolderDefault,
                           ApartInstallLog(sBytes).value_or(kAirMailFolderDefault));
        },
        1000, 0);
}

TEST_F(AirmailApart, TheRegistryIsReadAlikeByAReaderWrittenApart)
{
    AirMailWrite("Airmail.ini", "");  // with Airmail.ini present the search ends here
    const std::string sSample = BytesRead(REGISTRY_SEED);
    const std::string sName = "\"Install Folder\"=str(2):";
    const std::string sPlain =
        std::string(sSample).replace(sSample.find(sName), sName.size(), "\"Install\"=str(2):");
    OutcomesCompare(
        {sSample, sPlain},
        [&](const std::string& sBytes, std::size_t) {
            m_drive.Write("../user.reg", sBytes);
            return FoldersRead();
        },
        [](const std::string& sBytes, std::size_t) {
            const std::string sFolder = ApartUserReg(sBytes).value_or(kAirMailFolderDefault);
            return Folders(sFolder, sFolder);
        },
        1000, 0);
}

}  // namespace
