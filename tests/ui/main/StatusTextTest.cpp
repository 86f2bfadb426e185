#include <gtest/gtest.h>

#include "ui/main/StatusText.h"

namespace {

Request InputMake(int iModel, int nMonth)
{
    Request input;
    input.iModel = iModel;
    input.nMonth = nMonth;
    input.fSunSpotNumber = 100.0F;
    input.sIonCoefficients = kCoefficientsMean;
    return input;
}

TEST(StatusInForce, TellsEngineMonthAndSunspotNumber)
{
    EXPECT_EQ(StatusInForce(InputMake(kEngineRec533, 11), true, true),
              "REC533 (built-in, P.533 with long-path rule, mean maps) · November · sunspot number "
              "100 (options)");
    Request input = InputMake(kEngineVoacap, 1);
    input.eSunSpotSource = SunSpotSource::AirMail;
    input.fSunSpotNumber = 66.5F;
    EXPECT_EQ(StatusInForce(input, false, true),
              "VOACAP · January · sunspot number 66.5 (Airmail)");
}

TEST(StatusInForce, NamesTheMapsOfTheBuiltInEngine)
{
    Request input = InputMake(kEngineRec533, 11);
    input.sIonCoefficients = "CCIR";
    EXPECT_EQ(StatusInForce(input, true, true),
              "REC533 (built-in, P.533 with long-path rule, CCIR maps) · November · sunspot number "
              "100 (options)");
    EXPECT_EQ(StatusInForce(input, false, true),
              "REC533 · November · sunspot number 100 (options)");
}

TEST(StatusInForce, NamesNoNumberThatAirmailDidNotGive)
{
    Request input = InputMake(kEngineVoacap, 1);
    input.eSunSpotSource = SunSpotSource::AirMail;
    EXPECT_EQ(StatusInForce(input, false, false), "VOACAP · January · no sunspot number (Airmail)");
}

TEST(StatusInForce, NamesNumbersThatAreNoEngineOrMonth)
{
    EXPECT_EQ(StatusInForce(InputMake(9, 13), false, true),
              "no engine · month 13 · sunspot number 100 (options)");
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
              "ICEPAC is not installed: Options, Model, choose another engine");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac,
                            Failure{FailureKind::BadOutput, "one\rtwo"}),
              "The prediction failed: one");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac,
                            Failure{FailureKind::BadOutput, "one\rtwo", "no map"}),
              "The prediction failed: one (no map)");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineIcepac),
              "The prediction failed: Options, Model, choose an engine");
}

TEST(StatusTrouble, SaysThatItIsTheOverlayThatFailed)
{
    EXPECT_EQ(StatusTrouble(RunTrouble::Overlay, kEngineRec533,
                            Failure{FailureKind::BadOutput,
                                    "PropagationAreaOpen, Shell do not finish.", "killed"}),
              "The overlay failed: PropagationAreaOpen, Shell do not finish. (killed)");
}

TEST(StatusTrouble, HasNothingUnprintable)
{
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, kEngineRec533,
                            Failure{FailureKind::BadOutput, "a\x1b[31mb"}),
              "The prediction failed: a [31mb");
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

}  // namespace
