#include <cmath>

#include "propagation/deck/DeckLib.h"
#include "propagation/deck/DeckWriter.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/RunErrorText.h"

namespace {

void PlacePut(DeckWriter& deck, std::string_view sLabel, std::string_view sName,
              const AreaRequest& input)
{
    using namespace area_place_row;
    deck.Text(kCardLabel, sLabel);
    deck.Number(kLat, std::abs(input.dFixedLat));
    deck.Text(kLatLetter, LatitudeLetter(input.dFixedLat));
    deck.Number(kLon, std::abs(input.dFixedLon));
    deck.Text(kLonLetter, LongitudeLetter(input.dFixedLon));
    deck.Text(kName, sName);
    deck.LineEnd();
}

template <class T>
void ValuePut(DeckWriter& deck, std::string_view sLabel, const Field& fld, T value)
{
    deck.Text(kCardLabel, sLabel);
    deck.Number(fld, value);
    deck.LineEnd();
}

void HeadPut(DeckWriter& deck, const AreaRequest& input, std::string_view sEngineName)
{
    deck.Text(kCardLabel, "Model    :");
    deck.Text(11, sEngineName);
    deck.LineEnd();
    deck.Line("Colors   :Black    :Blue     :Ignore   :Ignore   :Red      :Black with shading");
    deck.Line("Cities   :receive.cty");
    deck.Line("Nparms   :    1");
    deck.Line("Parameter:SNRxx    0");
    PlacePut(deck, "Transmit :", "Transmitter          Short", input);
    PlacePut(deck, "PCenter  :", "Transmitter", input);  // the plot is centred on the transmitter
    deck.Text(kCardLabel, "Area     :");
    deck.Number(area_bounds_row::kWest, input.dWest);
    deck.Number(area_bounds_row::kEast, input.dEast);
    deck.Number(area_bounds_row::kSouth, input.dSouth);
    deck.Number(area_bounds_row::kNorth, input.dNorth);
    deck.LineEnd();
    deck.Text(kCardLabel, "Gridsize :");
    deck.Number(area_value_row::kGridSize, input.nGridSize);
    deck.Number(area_value_row::kGridKind, 1);
    deck.LineEnd();
}

void SystemPut(DeckWriter& deck, const AreaRequest& input, bool bRec533)
{
    using namespace area_system_row;
    deck.Text(kCardLabel, "System   :");
    deck.Number(kNoise, input.fNoiseLevel);
    deck.Number(kTakeoff, input.fTakeoffAngle);
    deck.Number(kReliability, input.fReliability);
    deck.Number(kRequiredSnr, 40);  // dB, fixed
    if (bRec533) {
        deck.Number(kBandwidth, 1);
        deck.LineEnd();
        return;
    }
    deck.Number(kMultipathPower, input.fMultipathPower);
    deck.Number(kMultipathDelay, input.fMultipathDelay);
    deck.LineEnd();
    deck.Text(kCardLabel, "Fprob    :");
    deck.Number(fprob_row::kE, input.fLayerAdjustE);
    deck.Number(fprob_row::kF1, input.fLayerAdjustF1);
    deck.Number(fprob_row::kF2, input.fLayerAdjustF2);
    deck.Number(fprob_row::kEs, input.fLayerAdjustEs);
    deck.LineEnd();
}

void AntennasPut(DeckWriter& deck, int iAntennaType)
{
    if (iAntennaType != 0 && iAntennaType != 1)
        return;
    deck.Line(R"(Rec Ants :[DEFAULT \SWWHIP.VOA  ]  gain=   0.0   0.0)");
    if (iAntennaType == 0)
        deck.Line(R"(Tx Ants  :[DEFAULT \CONST17.VOA ]  0.000  00.0     0.1000)");
    else
        deck.Line(R"(Tx Ants  :[DEFAULT \SWWHIP.VOA  ]  0.000  00.0     5.0000)");
}

}  // namespace

Result<std::string> DeckArea(const AreaRequest& input)
{
    const EngineProgram* pEngine = EngineFind(input.iModel);
    if (pEngine == nullptr)
        return RunError{kInvalidCall};
    const bool bRec533 = input.iModel == kEngineRec533;
    DeckWriter deck;
    HeadPut(deck, input, pEngine->sName);
    if (!bRec533)
        deck.Line("Method   :   20");
    deck.Text(kCardLabel, "Coeffs   :");
    deck.Text(11, input.sIonCoefficients);
    deck.LineEnd();
    ValuePut(deck, "Months   :", area_value_row::kMonth, input.nMonth);
    ValuePut(deck, "Sssns    :", area_value_row::kSunSpot, input.fSunSpotNumber);
    if (!bRec533)
        deck.Line("Qindexs  :   0.00");  // fixed for areas, unlike point to point
    ValuePut(deck, "Hours    :", area_value_row::kHour, input.iHour);
    ValuePut(deck, "Freqs    :", area_value_row::kFrequency, input.fFrequency);
    SystemPut(deck, input, bRec533);
    AntennasPut(deck, input.iAntennaType);
    return deck.TextTake();
}
