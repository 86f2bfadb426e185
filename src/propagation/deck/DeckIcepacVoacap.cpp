#include <cmath>

#include "propagation/deck/AntennaCards.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/deck/DeckWriter.h"

namespace {

void CircuitPut(DeckWriter& deck, const Request& input)
{
    using namespace circuit_row;
    deck.Text(kLabel, "CIRCUIT");
    deck.Number(kTxLat, std::abs(input.dTxLat));
    deck.Text(kTxLatLetter, LatitudeLetter(input.dTxLat));
    deck.Number(kTxLon, std::abs(input.dTxLon));
    deck.Text(kTxLonLetter, LongitudeLetter(input.dTxLon));
    deck.Number(kRcLat, std::abs(input.dRcLat));
    deck.Text(kRcLatLetter, LatitudeLetter(input.dRcLat));
    deck.Number(kRcLon, std::abs(input.dRcLon));
    deck.Text(kRcLonLetter, LongitudeLetter(input.dRcLon));
    deck.Number(kLongPath, 0);
    deck.LineEnd();
}

void SystemPut(DeckWriter& deck, const Request& input)
{
    using namespace system_row;
    deck.Text(kCardLabel, "SYSTEM");
    deck.Number(kPower, 1);
    deck.Number(kNoise, -input.fNoiseLevel);
    deck.Number(kTakeoff, input.fTakeoffAngle);
    deck.Number(kReliability, input.fReliability);
    deck.Number(kRequiredSnr, 40);  // dB, fixed; there is no setting for it
    deck.Number(kMultipathPower, input.fMultipathPower);
    deck.Number(kMultipathDelay, input.fMultipathDelay);
    deck.LineEnd();
}

void FprobPut(DeckWriter& deck, const Request& input)
{
    deck.Text(kCardLabel, "FPROB");
    deck.Number(fprob_row::kE, input.fLayerAdjustE);
    deck.Number(fprob_row::kF1, input.fLayerAdjustF1);
    deck.Number(fprob_row::kF2, input.fLayerAdjustF2);
    deck.Number(fprob_row::kEs, input.fLayerAdjustEs);
    deck.LineEnd();
}

void AntennasPut(DeckWriter& deck, int iAntennaType)
{
    const std::string_view sCard = TxCardGet(false, iAntennaType);
    if (sCard.empty())
        return;
    deck.Line(sCard);
    deck.Line(iAntennaType == 0 ? kRcConst17 : kRcWhip);
}

}  // namespace

Result<std::string> DeckIcepacVoacap(const Request& input, int iFirst, int iLast, int nYear)
{
    DeckWriter deck;
    deck.Line("LINEMAX      55");
    deck.Text(kCardLabel, "COEFFS");
    deck.Text(11, input.sIonCoefficients);
    deck.LineEnd();
    deck.Text(kCardLabel, "TIME");
    deck.Number(time_row::kFirst, 0);
    deck.Number(time_row::kLast, 23);
    deck.Number(time_row::kStep, 1);
    deck.Number(time_row::kUniversal, 1);
    deck.LineEnd();
    deck.Text(kCardLabel, "MONTH");
    deck.Number(month_row::kYear, nYear);
    deck.Number(month_row::kMonth, input.nMonth);
    deck.LineEnd();
    deck.Text(kCardLabel, "SUNSPOT");
    deck.Number(sunspot_row::kSunSpot, input.fSunSpotNumber);
    deck.Number(sunspot_row::kQIndex, input.fQIndex);
    deck.LineEnd();
    deck.Line("LABEL     XMTR                  RCVR");
    CircuitPut(deck, input);
    SystemPut(deck, input);
    FprobPut(deck, input);
    AntennasPut(deck, input.iAntennaType);
    deck.Line("METHOD       26    0");
    deck.Line("EXECUTE");
    deck.Text(kCardLabel, "FREQUENCY");
    for (int i = iFirst; i <= iLast; ++i)
        deck.Number(FieldAt(frequency_row::kFirst, i - iFirst), input.FrequencyGet(i) / 1000.0F);
    deck.LineEnd();
    deck.Line("");
    deck.Line("METHOD       20    0");
    deck.Line("EXECUTE");
    deck.Line("QUIT");
    return deck.TextTake();
}
