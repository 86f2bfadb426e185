#include <gtest/gtest.h>

#include "propagation/RequestText.h"

namespace {

TEST(RequestText, TheFootLineSaysWhatTheNumbersAre)
{
    Request request;
    request.iModel = kEngineRec533;
    request.nMonth = 11;
    request.fReliability = 50.0F;
    request.fPower = 100.0F;
    request.fSunSpotNumber = 62.0F;
    request.eSunSpotSource = SunSpotSource::MeanCycle;
    EXPECT_EQ(RequestFootText(request, true, 2026),
              "dB in 1 Hz · 50 % of the days · short path · 100 W · REC533 "
              "(built-in) · November 2026 · SSN 62 (mean cycle)");
    request.nYear = 2031;
    request.iModel = kEngineVoacap;
    request.iAntennaType = 1;
    request.fPower = 0.0F;
    const std::string sFoot = RequestFootText(request, false, 2026);
    EXPECT_NE(sFoot.find(", as the antenna choice"), std::string::npos) << sFoot;
    EXPECT_NE(sFoot.find("VOACAP · November 2031"), std::string::npos) << sFoot;
}

TEST(RequestText, AnAreasFootLineBeginsWithItsFrequencyAndHour)
{
    AreaRequest request;
    request.iModel = kEngineVoacap;
    request.nMonth = 3;
    request.fReliability = 90.0F;
    request.fPower = 250.0F;
    request.fSunSpotNumber = 62.0F;
    request.fFrequency = 14.1055F;
    request.iHour = 5;
    EXPECT_EQ(AreaFootText(request, 2026),
              "14105.5 kHz · 05:00 UTC · dB in 1 Hz · 90 % of the days · short path · 250 W · "
              "VOACAP · March 2026 · SSN 62 (typed)");
}

TEST(RequestText, NumbersThatAreNoneAreTold)
{
    EXPECT_EQ(RequestEngineText(9), "no engine");
    EXPECT_EQ(MonthName(0), "month 0");
    EXPECT_EQ(MonthName(13), "month 13");
    EXPECT_EQ(MonthName(12), "December");
}

TEST(RequestText, NeedsAreNamedWithTheirFigure)
{
    EXPECT_EQ(NeedFootText({"SSB, weak", 44.0F, "estimate"}), "need: SSB, weak, 44 dB");
    EXPECT_EQ(NeedFootText({"", 12.5F, "typed"}), "need: 12.5 dB");
}

}  // namespace
