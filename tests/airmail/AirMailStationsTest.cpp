#include <gtest/gtest.h>

#include <filesystem>

#include "airmail/AirMailFixture.h"
#include "airmail/AirMailStations.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(const TextList& asText)
{
    Texts as;
    for (int i = 1; i <= asText.CountGet(); ++i) as.push_back(asText[i]);
    return as;
}

class AirMailStations : public AirMailFixture {
protected:
    static Texts SystemsGet()
    {
        int nCount = -1;
        TextList asName;
        asName.Add("left over");
        const bool bOk = AirMailGetSystems(nCount, asName, CallMessages());
        EXPECT_EQ(bOk, nCount > 0);
        EXPECT_EQ(nCount, asName.CountGet());
        return TextsOf(asName);
    }
    // The keys of a file with these bytes; the call must succeed exactly when there are any.
    Texts KeysOf(const std::string& sBytes) const
    {
        AirMailWrite("System.HAM.ini", sBytes);
        int nCount = -1;
        TextList asKey;
        asKey.Add("left over");
        const bool bOk = AirMailGetStations("HAM", nCount, asKey, CallMessages());
        EXPECT_EQ(bOk, nCount > 0);
        EXPECT_EQ(nCount, asKey.CountGet());
        return TextsOf(asKey);
    }
    void NoKeysExpect(const std::string& sBytes) const
    {
        MsgRecorder msg;
        EXPECT_EQ(KeysOf(sBytes), Texts{});
        const MsgShown shown = OneShown(msg);
        EXPECT_EQ(shown.eIcon, MsgIcon::None);
        EXPECT_EQ(shown.sText,
                  "AirMailGetStations, Unable to find any selected AirMail \"HAM\"Stations."
                      + kHintDefault);
    }
    // Expects a failure with this text between the two fixed parts.
    static void FailExpect(const std::string& sMiddle)
    {
        MsgRecorder msg;
        int nCount = -1;
        TextList asKey;
        EXPECT_FALSE(AirMailGetStations("HAM", nCount, asKey, CallMessages()));
        EXPECT_EQ(nCount, 0);
        const MsgShown shown = OneShown(msg);
        EXPECT_EQ(shown.eIcon, MsgIcon::None);
        EXPECT_EQ(shown.sText, "AirMailGetStations - " + sMiddle + kHintDefault);
    }
    void EntryWrite(const std::string& sValue) const
    {
        AirMailWrite("System.HAM.ini", "[Station Info]\r\nXX1=" + sValue + "\r\n");
    }
    static std::string DescriptionGet(bool bShowError)
    {
        return AirMailStationDescription("HAM", "XX1", CallMessages(bShowError));
    }
};

TEST_F(AirMailStations, SystemsAreTheTextsBetweenTheFirstTwoPoints)
{
    for (const char* sFile : {"System.HAM.ini", "System.HAM.old.ini", "System.SailMail.ini",
                              "system.coast.INI", "System..ini"})
        AirMailWrite(sFile, "");
    // None of these is a station file.
    for (const char* sFile : {"System.ini", "System.ini.bak", "System.HAM.ini.bak",
                              "MySystem.HAM.ini", "SystemHAM.ini", "Airmail.ini"})
        AirMailWrite(sFile, "");
    fs::create_directories(AirMailPath("System.Folder.ini"));
    EXPECT_EQ(SystemsGet(), (Texts{"", "coast", "HAM", "HAM", "SailMail"}));
}

TEST_F(AirMailStations, NoSystemIsTold)
{
    for (const bool bFolder : {false, true}) {
        if (bFolder)
            AirMailWrite("System.ini", "");
        MsgRecorder msg;
        EXPECT_EQ(SystemsGet(), Texts{});
        const MsgShown shown = OneShown(msg);
        EXPECT_EQ(shown.eIcon, MsgIcon::Exclamation);
        EXPECT_EQ(shown.sText, "Unable to find AirMail's \"System.*.ini\" files." + kHintDefault);
    }
}

#ifndef _WIN32  // permissions are set in the POSIX way
TEST_F(AirMailStations, FolderWithoutReadPermissionHasNoSystems)
{
    AirMailWrite("System.HAM.ini", "[Station Info]\r\na=b\r\n");
    const std::string sFolder = AirMailPath("");
    fs::permissions(sFolder, fs::perms::none);
    AsUnprivileged([&] {
        const MsgRecorder msg;
        EXPECT_EQ(SystemsGet(), Texts{});
        EXPECT_EQ(OneShown(msg).sText,
                  "Unable to find AirMail's \"System.*.ini\" files." + kHintDefault);
    });
    fs::permissions(sFolder, fs::perms::owner_all);
}

#endif

TEST_F(AirMailStations, KeysAreTheTextsBeforeTheFirstEqualSign)
{
    EXPECT_EQ(KeysOf("[A]\r\nno=1\r\n[Station Info]\r\nXX1=FN42:a=b\r\n XX2 =JJ00\r\n=x\r\n"
                     ";XX3=JJ00\r\nM\xE9xico=DL90"),
              (Texts{"XX1", " XX2 ", "", ";XX3", "M\xC3\xA9xico"}));
}

TEST_F(AirMailStations, FirstLineWithoutAnEqualSignEndsTheList)
{
    const std::string sStart = "[Station Info]\r\nXX1=FN42:a\r\n";
    for (const std::string sLine : {"", "; comment", "[Frequencies]", "XX3"})
        EXPECT_EQ(KeysOf(sStart + sLine + "\r\nXX2=FN42:b\r\n"), Texts{"XX1"}) << sLine;
}

TEST_F(AirMailStations, SectionLineIsTakenToTheLetter)
{
    for (const std::string sLine : {"[Station Info] ", " [Station Info]", "[station info]",
                                    "[Station Info];", "[StationInfo]"})
        NoKeysExpect(sLine + "\r\nXX1=FN42:a\r\n");
}

TEST_F(AirMailStations, FileWithoutStationsIsTold)
{
    NoKeysExpect("");
    NoKeysExpect("[Station Info]");
    NoKeysExpect("[Station Info]\r\n\r\nXX1=FN42\r\n");
    NoKeysExpect("[Station Info]\r\n; comment\r\nXX1=FN42\r\n");
    NoKeysExpect(std::string(1000, '\0'));
}

TEST_F(AirMailStations, SecondSectionOfTheNameIsNotRead)
{
    EXPECT_EQ(KeysOf("[Station Info]\r\nXX1=a\r\n[Station Info]\r\nXX2=a\r\n"), Texts{"XX1"});
}

TEST_F(AirMailStations, FileThatCannotBeOpenedIsTold)
{
    FailExpect("Open, Unable to open AirMail \"HAM\" Station Info data.Path not found");
    AirMailWrite("Airmail.ini", "");
    FailExpect("Open, Unable to open AirMail \"HAM\" Station Info data.File not found");
    const std::string sFile = AirMailPath("System.HAM.ini");
#ifndef _WIN32
    fs::create_symlink("nowhere", sFile);
    FailExpect("Open, Unable to open AirMail \"HAM\" Station Info data.File not found");
    fs::remove(sFile);
#endif
    fs::create_directory(sFile);
    FailExpect("Open, Unable to open AirMail \"HAM\" Station Info data.Path/File access error");
#ifndef _WIN32
    fs::remove(sFile);
    AirMailWrite("System.HAM.ini", "[Station Info]\r\na=b\r\n");
    fs::permissions(sFile, fs::perms::none);
    AsUnprivileged([] {
        FailExpect("Open, Unable to open AirMail \"HAM\" Station Info data.Permission denied");
    });
#endif
}

#ifndef _WIN32  // /proc exists on Linux only
TEST_F(AirMailStations, FileThatCannotBeReadIsTold)
{
    // Opens like any file, but reading its first bytes fails.
    fs::create_symlink("/proc/self/mem", AirMailPath("System.HAM.ini"));
    FailExpect("Read, Unable to get AirMail \"HAM\" Station Info data.");
}

#endif

TEST_F(AirMailStations, LongLinesAndManyStationsDoNoHarm)
{
    EXPECT_EQ(
        KeysOf(std::string(1000000, 'x') + "\r\n[Station Info]\r\n" + std::string(1000000, 'k')
               + "=" + std::string(1000000, 'v') + "\r\nX\0X=a\r\n"),
        (Texts{std::string(1000000, 'k')}));  // the literal ends at its NUL
    std::string sMany = "[Station Info]\r\n";
    for (int i = 0; i < 20000; ++i) sMany += "XX" + std::to_string(i) + "=FN42:a\r\n";
    EXPECT_EQ(KeysOf(sMany).size(), 20000U);
}

TEST_F(AirMailStations, PositionIsTheGridBeforeTheFirstColon)
{
    double dLat = 0.0;
    double dLon = 0.0;
    EntryWrite("fn42:Boston: north;JJ00:");
    const auto res = AirMailStationPosition("HAM", "XX1", dLat, dLon, true, CallMessages());
    ASSERT_TRUE(res);
    EXPECT_TRUE(res.ValueGet());
    EXPECT_NEAR(dLat, 42.51304, 5e-6);
    EXPECT_NEAR(dLon, -70.97391, 5e-6);
}

TEST_F(AirMailStations, MissingEntryIsToldWhenAsked)
{
    EntryWrite("");
    for (const bool bShowError : {false, true}) {
        MsgRecorder msg;
        double dLat = 1.0;
        double dLon = 2.0;
        const auto res =
            AirMailStationPosition("HAM", "XX1", dLat, dLon, bShowError, CallMessages());
        ASSERT_TRUE(res);
        EXPECT_FALSE(res.ValueGet());
        EXPECT_EQ(dLat, 1.0);
        EXPECT_EQ(dLon, 2.0);
        if (bShowError) {
            EXPECT_EQ(OneShown(msg).eIcon, MsgIcon::Exclamation);
            EXPECT_EQ(
                OneShown(msg).sText,
                "Unable to find AirMail's Station Info, XX1 in \"System.HAM.ini\"." + kHintDefault);
        } else {
            EXPECT_TRUE(msg.m_aShown.empty());
        }
    }
}

TEST_F(AirMailStations, EntryWithoutAColonIsAnErrorForTheCaller)
{
    EntryWrite("FN42;Boston");
    double dLat = 1.0;
    double dLon = 2.0;
    const auto res = AirMailStationPosition("HAM", "XX1", dLat, dLon, true, CallMessages());
    EXPECT_FALSE(res);
    EXPECT_EQ(res.TextGet(), "Invalid procedure call or argument");
    EXPECT_EQ(dLat, 1.0);
    EXPECT_EQ(dLon, 2.0);
}

TEST_F(AirMailStations, BadGridIsToldEvenWhenNotAsked)
{
    struct {
        const char *sEntry, *sShown;
    } const aCases[] = {{"FN4:x", "Unable to Convert Grid FN4 to Lat/Lon"},
                        {"fn42m:x", "Unable to Convert Grid FN42M to Lat/Lon"},
                        {"FN42 :x", "Unable to Convert Grid FN42  to Lat/Lon"},
                        {":x", "Unable to Convert Grid  to Lat/Lon"}};
    for (const auto& c : aCases) {
        EntryWrite(c.sEntry);
        MsgRecorder msg;
        double dLat = 1.0;
        double dLon = 2.0;
        const auto res = AirMailStationPosition("HAM", "XX1", dLat, dLon, false, CallMessages());
        ASSERT_TRUE(res);
        EXPECT_FALSE(res.ValueGet());
        EXPECT_EQ(dLat, 1.0);
        EXPECT_EQ(OneShown(msg).eIcon, MsgIcon::None);
        EXPECT_EQ(OneShown(msg).sText, c.sShown);
    }
}

TEST_F(AirMailStations, DescriptionStandsBetweenColonAndSemicolon)
{
    struct {
        const char *sEntry, *sText;
    } const aCases[] = {{"FN42:Boston, 24 h;3590;x", "Boston, 24 h"},
                        {"FN42:Boston", "Boston"},
                        {"FN42:M\xE9xico;", "M\xC3\xA9xico"},
                        {"FN42: Boston: north ;1", " Boston: north "},
                        {"FN42:", ""},
                        {"FN42:;1", ""},
                        {"FN42;Boston", ""},
                        {"FN42", ""},
                        {"FN42;x:Boston", ""}};
    for (const auto& c : aCases) {
        EntryWrite(c.sEntry);
        EXPECT_EQ(DescriptionGet(true), c.sText) << c.sEntry;
    }
}

TEST_F(AirMailStations, DescriptionOfAMissingEntryIsToldWhenAsked)
{
    EntryWrite("");
    EXPECT_EQ(DescriptionGet(false), "");
    MsgRecorder msg;
    EXPECT_EQ(DescriptionGet(true), "");
    EXPECT_EQ(OneShown(msg).sText,
              "Unable to find AirMail's Station Info, XX1 in \"System.HAM.ini\"." + kHintDefault);
}

TEST_F(AirMailStations, HalvedFilesNeverFailTheReaders)
{
    const std::string sWhole =
        "; x\r\n[Station Info]\r\nXX1=FN42MM:Boston;3590\r\nM\xE9x=JJ00:a\r\n\r\n[B]\r\nc=d\r\n";
    for (std::size_t nCut = 0; nCut <= sWhole.size(); ++nCut) {
        MsgRecorder msg;
        const Texts asKey = KeysOf(sWhole.substr(0, nCut));
        EXPECT_EQ(msg.m_aShown.size(), asKey.empty() ? 1U : 0U) << nCut;
        EXPECT_LE(asKey.size(), 2U);
        for (const std::string& sKey : asKey) {
            double dLat = 0.0;
            double dLon = 0.0;
            (void)AirMailStationPosition("HAM", sKey, dLat, dLon, false, CallMessages());
            EXPECT_LE(AirMailStationDescription("HAM", sKey, nullptr).size(), 6U);
        }
    }
}

TEST_F(AirMailStations, APositionOutOfRangeIsNone)
{
    double dLat = 1.0;
    double dLon = 2.0;
    EntryWrite("ZZ99:Nowhere");
    std::string sFault;
    const MsgRecorder msg;
    const auto res =
        AirMailStationPosition("HAM", "XX1", dLat, dLon, false, CallMessages(), &sFault);
    ASSERT_TRUE(res);
    EXPECT_FALSE(res.ValueGet());
    EXPECT_EQ(dLat, 1.0);
    EXPECT_EQ(dLon, 2.0);
    EXPECT_TRUE(msg.m_aShown.empty());
    EXPECT_TRUE(sFault.ends_with("System.HAM.ini, [Station Info] XX1: ZZ99 is out of range"))
        << sFault;
    EXPECT_FALSE(AirMailStationPosition("HAM", "XX1", dLat, dLon, true, CallMessages()).ValueGet());
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, sFault);
}

}  // namespace
