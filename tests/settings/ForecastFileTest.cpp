#include <gtest/gtest.h>

#include "settings/ForecastFile.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace {

const DateTime kToday{2026, 11, 21, 15, 30, 0};

SunSpotForecast NoaaMake()
{
    return {ForecastSource::Noaa,
            ForecastDating::Mailed,
            {2026, 11, 20},
            {{2026, 11, 87.9}, {2026, 12, 85.6}, {2027, 1, 83.0}}};
}

SunSpotForecast WwvMake()
{
    return {ForecastSource::Wwv, ForecastDating::Issued, {2026, 11, 21}, {{2026, 11, 365.5}}};
}

TEST(ForecastFilePath, StandsBesideTheProfileUnderItsBaseName)
{
    EXPECT_EQ(ForecastFilePath("/home/me/hopcast.ini"), "/home/me/hopcast.forecast.txt");
    EXPECT_EQ(ForecastFilePath("C:\\Boat.2\\hopcast.ini"), "C:\\Boat.2\\hopcast.forecast.txt");
    EXPECT_EQ(ForecastFilePath("/boat.2/profile"), "/boat.2/profile.forecast.txt");
    EXPECT_EQ(ForecastFilePath("/boat/.profile"), "/boat/.profile.forecast.txt");
    EXPECT_EQ(ForecastFilePath("two.parts.ini"), "two.parts.forecast.txt");
}

TEST(ForecastFile, TextIsHeadOriginMonthsAndHash)
{
    EXPECT_EQ(ForecastFileText(NoaaMake()),
              "Hopcast sunspot forecast 1\nnoaa mailed 2026 11 20\n2026 11 87.9\n2026 12 85.6\n"
              "2027 1 83\nend 55482f9d\n");
}

TEST(ForecastFile, WhatWasSavedIsLoaded)
{
    const TempFolder folder;
    const std::string sProfile = folder.Path("boat.ini");
    SunSpotForecast silso = NoaaMake();
    silso.eSource = ForecastSource::Silso;
    silso.eDating = ForecastDating::Read;
    for (const SunSpotForecast& forecast : {NoaaMake(), WwvMake(), silso}) {
        const auto resSaved = ForecastSave(sProfile, forecast);
        ASSERT_TRUE(resSaved) << resSaved.TextGet();
        const auto res = ForecastLoad(sProfile);
        ASSERT_TRUE(res && res.ValueGet()) << res.TextGet();
        const SunSpotForecast& loaded = *res.ValueGet();
        EXPECT_EQ(loaded.eSource, forecast.eSource);
        EXPECT_EQ(loaded.eDating, forecast.eDating);
        EXPECT_EQ(loaded.dtDay, forecast.dtDay);
        ASSERT_EQ(loaded.aMonths.size(), forecast.aMonths.size());
        EXPECT_EQ(loaded.aMonths.back().nYear, forecast.aMonths.back().nYear);
        EXPECT_EQ(loaded.aMonths.back().nMonth, forecast.aMonths.back().nMonth);
        EXPECT_EQ(loaded.aMonths.back().dValue, forecast.aMonths.back().dValue);
    }
}

TEST(ForecastFile, NoneIsKeptAtFirst)
{
    const TempFolder folder;
    const auto res = ForecastLoad(folder.Path("boat.ini"));
    ASSERT_TRUE(res);
    EXPECT_FALSE(res.ValueGet());
}

TEST(ForecastFile, CutAtEveryByteIsDamaged)
{
    const std::string sText = ForecastFileText(NoaaMake());
    for (std::size_t n = 0; n < sText.size(); ++n)
        EXPECT_FALSE(ForecastFileParse(sText.substr(0, n))) << n;
}

TEST(ForecastFile, AnyBitFlippedIsDamaged)
{
    const std::string sText = ForecastFileText(NoaaMake());
    for (std::size_t nBit = 0; nBit < sText.size() * 8; ++nBit) {
        std::string sFlipped = sText;
        sFlipped[nBit / 8] = static_cast<char>(sFlipped[nBit / 8] ^ (1 << (nBit % 8)));
        EXPECT_FALSE(ForecastFileParse(sFlipped)) << nBit;
    }
}

TEST(ForecastFile, LineTwiceIsDamaged)
{
    const std::string sText = ForecastFileText(NoaaMake());
    for (std::size_t nFrom = 0; nFrom < sText.size();) {
        const std::size_t nEnd = sText.find('\n', nFrom) + 1;
        EXPECT_FALSE(ForecastFileParse(sText.substr(0, nEnd) + sText.substr(nFrom))) << nFrom;
        nFrom = nEnd;
    }
}

TEST(ForecastFile, LineEndsOfWindowsAreTaken)
{
    std::string sText = ForecastFileText(NoaaMake());
    for (std::size_t n = 0; (n = sText.find('\n', n)) != std::string::npos; n += 2)
        sText.insert(n, "\r");
    EXPECT_TRUE(ForecastFileParse(sText));
}

TEST(ForecastFile, RightHashOverAWrongLineIsToldWithItsNumber)
{
    SunSpotForecast forecast = NoaaMake();
    forecast.aMonths[1].dValue = 900.0;
    EXPECT_EQ(ForecastFileParse(ForecastFileText(forecast)).TextGet(),
              "line 4: the number 900 of 2026-12 is outside 0 to 350. Request the forecast again");
    forecast = WwvMake();
    forecast.aMonths[0].nMonth = 10;
    EXPECT_EQ(ForecastFileParse(ForecastFileText(forecast)).TextGet(),
              "line 3: no flux of one day");
    forecast = NoaaMake();
    forecast.dtDay.nDay = 31;
    EXPECT_EQ(ForecastFileParse(ForecastFileText(forecast)).TextGet(),
              "line 2 has no source and date");
}

TEST(ForecastFile, DamagedFileIsToldWithItsNameAndWhatToDo)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("boat.forecast.txt", "rubbish");
    EXPECT_EQ(
        ForecastLoad(folder.Path("boat.ini")).TextGet(),
        "Cannot read " + sFile + ": it is cut. The mean cycle is used. Read the forecast again.");
}

TEST(ForecastFile, SaveThatFailsIsToldWithItsNameAndWhatToDo)
{
    const TempFolder folder;
    EXPECT_EQ(ForecastSave(folder.Path("none") + "/boat.ini", NoaaMake()).TextGet(),
              "Cannot keep the forecast in " + folder.Path("none")
                  + "/boat.forecast.txt: Path not found. Check that files can be written there, and "
                    "read it again.");
}

#ifndef _WIN32
TEST(ForecastFile, SaveOnAFullDiskKeepsTheOldFile)
{
    const TempFolder folder;
    const std::string sProfile = folder.Path("boat.ini");
    ASSERT_TRUE(ForecastSave(sProfile, NoaaMake()));
    {
        const FileSizeLimit limit(50);
        EXPECT_FALSE(ForecastSave(sProfile, WwvMake()));
    }
    const auto res = ForecastLoad(sProfile);
    ASSERT_TRUE(res && res.ValueGet()) << res.TextGet();
    EXPECT_EQ(res.ValueGet()->eSource, ForecastSource::Noaa);
    EXPECT_EQ(FilesList(folder.Path() + "/*"), std::vector<std::string>{"boat.forecast.txt"});
}
#endif

TEST(ForecastOpen, TakesAKeptFileAndAReply)
{
    const TempFolder folder;
    const std::string sKept = folder.Write("kept.txt", ForecastFileText(NoaaMake()));
    const auto resKept = ForecastOpen(sKept, kToday);
    ASSERT_TRUE(resKept) << resKept.TextGet();
    EXPECT_EQ(resKept.ValueGet().dtDay, (DateTime{2026, 11, 20}));
    const auto resReply = ForecastOpen(TEST_DATA "/wwv.txt", kToday);
    ASSERT_TRUE(resReply) << resReply.TextGet();
    EXPECT_EQ(resReply.ValueGet().eSource, ForecastSource::Wwv);
}

TEST(ForecastOpen, TellsWhyAFileIsNoForecast)
{
    const TempFolder folder;
    const std::string sMissing = folder.Path("missing.txt");
    EXPECT_EQ(ForecastOpen(sMissing, kToday).TextGet(),
              "Cannot read " + sMissing + ": File not found. Choose a file that can be read.");
    const std::string sLong = folder.Write("long.txt", std::string((256U << 10U) + 1, ' '));
    EXPECT_EQ(ForecastOpen(sLong, kToday).TextGet(),
              "Cannot read " + sLong + ": it is longer than 256 KB. Choose the file of the reply.");
    const std::string sText = ForecastFileText(NoaaMake());
    const std::string sCut = folder.Write("cut.txt", sText.substr(0, sText.size() - 5));
    EXPECT_EQ(ForecastOpen(sCut, kToday).TextGet(),
              "Cannot read " + sCut + ": it is cut. Read the forecast again.");
}

}  // namespace
