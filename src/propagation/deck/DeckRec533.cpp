#include <cmath>

#include "propagation/deck/AntennaCards.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/deck/DeckWriter.h"

namespace {

void StationPut(DeckWriter& deck, std::string_view sLabel, std::string_view sName, double dLat,
                double dLon)
{
    using namespace station_row;
    deck.Text(kCardLabel, sLabel);
    deck.Text(kName, sName);
    deck.Number(kLat, std::abs(dLat));
    deck.Text(kLatLetter, LatitudeLetter(dLat));
    deck.Number(kLon, std::abs(dLon));
    deck.Text(kLonLetter, LongitudeLetter(dLon));
    deck.Text(kTail, "  S     D");
    deck.LineEnd();
}

void AntennasPut(DeckWriter& deck, int iAntennaType)
{
    const std::string_view sCard = TxCardGet(true, iAntennaType);
    if (sCard.empty())
        return;
    deck.Line(sCard);
    deck.Line(kRcWhip);
}

}  // namespace

Result<std::string> DeckRec533(const Request& input, int iFirst, int iLast, int nYear)
{
    DeckWriter deck;
    deck.Line("OUTPUT        6    0");
    deck.Text(kCardLabel, "COEFFS");
    deck.Text(11, input.sIonCoefficients);
    deck.LineEnd();
    deck.Text(kCardLabel, "SUNSPOT");
    deck.Number(sunspot_row::kSunSpot, input.fSunSpotNumber);
    deck.LineEnd();
    deck.Text(kCardLabel, "TIME");
    deck.Number(time_row::kFirst, 0);
    deck.Number(time_row::kLast, 23);
    deck.Number(time_row::kStep, 1);
    deck.LineEnd();
    deck.Text(kCardLabel, "MONTH");
    deck.Number(month_row::kYear, nYear);
    deck.Number(month_row::kMonth, input.nMonth);
    deck.LineEnd();
    StationPut(deck, "TRANS", "Transmit", input.dTxLat, input.dTxLon);
    StationPut(deck, "RECVR", "Receieve", input.dRcLat, input.dRcLon);
    deck.Text(kCardLabel, "SYST");
    deck.Text(syst_row::kPower, "     1.0000");
    deck.Number(syst_row::kTakeoff, input.fTakeoffAngle);
    deck.Text(syst_row::kTail, "    0  0.0");
    deck.LineEnd();
    AntennasPut(deck, input.iAntennaType);
    deck.Text(kCardLabel, "NOIS");
    deck.Number(nois_row::kNoise, input.fNoiseLevel);
    deck.Number(nois_row::kBandwidth, 1);
    deck.Number(nois_row::kRequiredSnr, 40);
    deck.Number(nois_row::kReliability, input.fReliability);
    deck.LineEnd();
    deck.Text(kCardLabel, "FREQ");
    for (int i = iFirst; i <= iLast; ++i)
        deck.Number(FieldAt(freq_row::kFirst, i - iFirst), input.FrequencyGet(i) / 1000.0F);
    deck.LineEnd();
    deck.Line("");
    deck.Line("EXEC");
    deck.Line("QUIT");
    return deck.TextTake();
}
