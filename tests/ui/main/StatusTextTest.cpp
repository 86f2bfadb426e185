#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "ui/main/StatusText.h"

namespace {

Request InputMake(int iModel, int nMonth)
{
    Request input;
    input.iModel = iModel;
    input.nMonth = nMonth;
    input.fSunSpotNumber = 100.0F;
    input.sIonCoefficients = kCoefficientsMean;
    input.iAntennaType = 9;  // no antenna card
    return input;
}

TEST(StatusInForce, TellsEngineMonthAndSunspotNumber)
{
    EXPECT_EQ(StatusInForce(InputMake(kEngineRec533, 11), {true}),
              "REC533 (built-in, P.533 with long-path rule, mean maps) · November · SSN 100 "
              "(typed) · 1 kW, as the antenna choice");
    Request input = InputMake(kEngineVoacap, 1);
    input.eSunSpotSource = SunSpotSource::AirMail;
    input.fSunSpotNumber = 66.5F;
    EXPECT_EQ(StatusInForce(input, {false}),
              "VOACAP · January · SSN 66.5 (Airmail) · 1 kW, as the antenna choice");
}

TEST(StatusInForce, NamesTheMapsOfTheBuiltInEngine)
{
    Request input = InputMake(kEngineRec533, 11);
    input.sIonCoefficients = "CCIR";
    EXPECT_EQ(StatusInForce(input, {true}),
              "REC533 (built-in, P.533 with long-path rule, CCIR maps) · November · SSN 100 "
              "(typed) · 1 kW, as the antenna choice");
    EXPECT_EQ(StatusInForce(input, {false}),
              "REC533 · November · SSN 100 (typed) · 1 kW, as the antenna choice");
}

TEST(StatusInForce, NamesNoNumberThatAirmailDidNotGive)
{
    Request input = InputMake(kEngineVoacap, 1);
    input.eSunSpotSource = SunSpotSource::AirMail;
    EXPECT_EQ(StatusInForce(input, {false, false}),
              "VOACAP · January · no sunspot number (Airmail) · 1 kW, as the antenna choice");
}

TEST(StatusInForce, NamesNumbersThatAreNoEngineOrMonth)
{
    EXPECT_EQ(StatusInForce(InputMake(9, 13), {}),
              "no engine · month 13 · SSN 100 (typed) · 1 kW, as the antenna choice");
}

TEST(StatusInForce, NamesThePowerOfTheAntennaChoice)
{
    Request input = InputMake(kEngineRec533, 11);
    input.iAntennaType = 1;
    EXPECT_EQ(StatusInForce(input, {}),
              "REC533 · November · SSN 100 (typed) · 5 kW, as the antenna choice");
    input.iModel = kEngineVoacap;
    EXPECT_EQ(StatusInForce(input, {}),
              "VOACAP · November · SSN 100 (typed) · 100 W, as the antenna choice");
}

TEST(StatusInForce, NamesTheOwnPowerAlone)
{
    Request input = InputMake(kEngineRec533, 11);
    input.iAntennaType = 1;
    for (const auto& [fPower, sPower] :
         {std::pair{100.0F, "100 W"}, std::pair{1500.0F, "1.5 kW"}, std::pair{0.1F, "0.1 W"}}) {
        input.fPower = fPower;
        EXPECT_EQ(StatusInForce(input, {}),
                  std::string("REC533 · November · SSN 100 (typed) · ") + sPower);
    }
}

TEST(StatusInForce, NamesTheForecastThatTheNumberIsFrom)
{
    Request input = InputMake(kEngineRec533, 11);
    input.fSunSpotNumber = 62.0F;
    input.fPower = 100.0F;
    input.eSunSpotSource = SunSpotSource::MeanCycle;
    EXPECT_EQ(StatusInForce(input, {}), "REC533 · November · SSN 62 (mean cycle) · 100 W");
    input.eSunSpotSource = SunSpotSource::Noaa;
    StatusFacts facts;
    facts.sAirMail = "98";
    EXPECT_EQ(StatusInForce(input, facts),
              "REC533 · November · SSN 62 (NOAA forecast; Airmail has 98) · 100 W");
}

TEST(StatusInForce, NamesAirmailsNumberWhereTheTypedOneIsInForceAndAnotherProfile)
{
    Request input = InputMake(kEngineRec533, 11);
    StatusFacts facts;
    facts.sAirMail = "98";
    facts.sProfile = "sail.ini";
    EXPECT_EQ(StatusInForce(input, facts),
              "REC533 · November · SSN 100 (typed; Airmail has 98) · 1 kW, as the antenna "
              "choice · sail.ini");
    input.eSunSpotSource = SunSpotSource::AirMail;
    EXPECT_EQ(StatusInForce(input, facts),
              "REC533 · November · SSN 100 (Airmail) · 1 kW, as the antenna choice · "
              "sail.ini");
}

TEST(StatusBest, NamesFrequencyAndSnr)
{
    PropagationTable table(2);
    table.request.nData = 2;
    table.request.afFrequency = {0.0F, 7050.6F, 14000.0F};
    table.fSnr(3, 2) = 57.6F;
    EXPECT_EQ(StatusBest(table, 2, 3), "Best now: 14000 kHz, 58 dB");
    EXPECT_EQ(StatusBest(table, -1, 3), "");
}

TEST(StatusPosition, TellsTheAgeInWordsFromSixHoursOn)
{
    const DateTime dtNow{2026, 11, 21, 13, 5, 0};
    const std::string sBefore = "Receiver: position of Airmail, ";
    EXPECT_EQ(StatusPosition({2026, 11, 19, 13, 5, 0}, dtNow), sBefore + "2 days old");
    EXPECT_EQ(StatusPosition({2026, 11, 19, 13, 6, 0}, dtNow), sBefore + "47 hours old");
    EXPECT_EQ(StatusPosition({2026, 11, 21, 7, 5, 0}, dtNow), sBefore + "6 hours old");
    EXPECT_EQ(StatusPosition({2026, 11, 21, 7, 6, 0}, dtNow), sBefore + "07:06 UTC");
    EXPECT_EQ(StatusPosition({2026, 11, 21, 14, 0, 0}, dtNow), sBefore + "14:00 UTC");
    EXPECT_EQ(StatusPosition({}, dtNow), sBefore + "without a time");
}

TEST(StatusTrouble, SaysInAUsersWordsWhichValueIsOutOfRangeThenTheMessage)
{
    const Failure failure{FailureKind::BadInput,
                          "PropagationRec533, Output latitude 99 is outside -90 to 90"};
    Request input = InputMake(kEngineRec533, 11);
    input.dRcLat = 99.0;
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineRec533, failure, StatusInputFault(input)),
              "Receiver latitude 99° is out of range: PropagationRec533, Output latitude 99 is "
              "outside -90 to 90");
    input.dRcLat = 9.0;
    input.dTxLon = -181.5;
    EXPECT_EQ(StatusInputFault(input), "Transmitter longitude -181.5° is out of range");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineRec533, failure, {}).find("A value does"),
              0U);
}

TEST(StatusTrouble, SaysEveryKindInAUsersWordsFirst)
{
    using enum FailureKind;
    for (const auto& [eKind, sWords] :
         {std::pair(NotStarted, "VOACAP could not be started: Shell"),
          std::pair(Timeout, "VOACAP took too long and was stopped: Shell"),
          std::pair(Busy, "Another program is using the engine, Update tries again: Shell"),
          std::pair(Cancelled, "The run was stopped: Shell"),
          std::pair(File, "The files of the run could not be written: Shell")})
        EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineVoacap, Failure{eKind, "Shell"}),
                  sWords);
}

/// Rows of the guide's table of problems begin with the status line's texts.
TEST(StatusTrouble, OfEveryKindIsExplainedInTheGuide)
{
    using enum FailureKind;
    const std::string sGuide = BytesRead(GUIDE_TEXT);
    for (const FailureKind eKind :
         {NotInstalled, NotStarted, Timeout, BadInput, BadOutput, Busy, Cancelled, File}) {
        const int iModel = eKind == NotInstalled ? kEngineIcepac : kEngineRec533;
        const std::string sLine = StatusTrouble(RunTrouble::Engine, iModel, Failure{eKind, "|"});
        const std::string sWords = sLine.substr(0, sLine.find('|'));
        EXPECT_NE(sGuide.find("\n| " + sWords), std::string::npos) << sWords;
    }
    for (const RunTrouble eTrouble :
         {RunTrouble::SunSpot, RunTrouble::Frequencies, RunTrouble::Engine}) {
        const std::string sWords = StatusTrouble(eTrouble, kEngineIcepac);
        EXPECT_NE(sGuide.find("\n| " + sWords + " |"), std::string::npos) << sWords;
    }
}

TEST(StatusTrouble, SaysWhatToDo)
{
    EXPECT_EQ(StatusTrouble(RunTrouble::SunSpot, kEngineIcepac),
              "No sunspot number from Airmail: Options, Model, clear Auto");
    EXPECT_EQ(StatusTrouble(RunTrouble::Frequencies, kEngineIcepac),
              "No frequencies to predict: Options, Frequency");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac,
                            Failure{FailureKind::NotInstalled,
                                    "Propagation Model ICEPAC not found.\r\n\r\nPlease check"}),
              "ICEPAC is not installed: Options, Model, choose another engine (Propagation Model "
              "ICEPAC not found.)");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac,
                            Failure{FailureKind::BadOutput, "one\rtwo"}),
              "ICEPAC gave no usable result: one");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac,
                            Failure{FailureKind::BadOutput, "one\rtwo", "no map"}),
              "ICEPAC gave no usable result: one (no map)");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac),
              "The prediction failed: Options, Model, choose an engine");
}

TEST(StatusTrouble, SaysThatItIsTheOverlayThatFailed)
{
    EXPECT_EQ(StatusTrouble(RunTrouble::Overlay, kEngineRec533,
                            Failure{FailureKind::BadOutput,
                                    "PropagationAreaOpen, Shell do not finish.", "killed"}),
              "No overlay: REC533 gave no usable result: PropagationAreaOpen, Shell do not finish. "
              "(killed)");
}

TEST(StatusTrouble, HasNothingUnprintable)
{
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineRec533,
                            Failure{FailureKind::BadOutput, "a\x1b[31mb"}),
              "REC533 gave no usable result: a [31mb");
}

TEST(StatusAbsent, NamesTheFrequenciesWithoutValuesAndWhy)
{
    PropagationTable table(3);
    table.request.nData = 3;
    table.request.afFrequency = {0.0F, 2000.0F, 4000.0F, 14000.0F};
    table.PresentSet(3, 3, true);
    EXPECT_EQ(StatusAbsent(table, Failure{FailureKind::BadOutput,
                                          "PropagationRec533, Shell do not finish.", "no map"}),
              "No values for 2000, 4000 kHz: PropagationRec533, Shell do not finish. (no map)");
    EXPECT_EQ(StatusAbsent(table, {}), "No values for 2000, 4000 kHz");
    table.PresentSet(1, 3, true);
    EXPECT_EQ(StatusAbsent(table, {}), "");
}

TEST(StatusInForce, TheShortFormLeavesOutBracketsSaveThoseOfTheProfilesName)
{
    Request input = InputMake(kEngineRec533, 11);
    StatusFacts facts;
    facts.bBuiltIn = true;
    facts.sAirMail = "98";
    facts.sProfile = "sail (2027).ini";
    EXPECT_EQ(StatusInForce(input, facts, StatusForm::Short),
              "REC533 built-in · November · SSN 100 · 1 kW, as the antenna choice · "
              "sail (2027).ini");
    facts.bSunSpotNumber = false;
    EXPECT_EQ(StatusInForce(input, facts, StatusForm::Short),
              "REC533 built-in · November · no sunspot number · 1 kW, as the antenna choice · "
              "sail (2027).ini");
}

}  // namespace
