#include <array>

#include "engine/rec533/Day.h"
#include "engine/run533/FieldText.h"
#include "engine/run533/PointDay.h"
#include "engine/run533/Run.h"
#include "engine/run533/RunParts.h"
#include "geo/Earth.h"

namespace run533 {
namespace {

constexpr int kColumns = 1 + kFrequenciesMost;  // the MUF's column, then the frequencies
constexpr int kHoursAPage = 5;
constexpr double kUnused = -999.0;

// One column of an hour's block.
struct Column {
    bool bUsed = false;
    double dFrequency = 0.0;
    rec533::Prediction prediction;
};

struct Page {
    const PointDeck* pDeck = nullptr;
    PointDay day;
    std::array<Column, kColumns> aColumns;
    std::string_view sMethod;
    std::string sText;
};

void PlaceAppend(std::string& s, double dLat, double dLon)
{
    FieldAppend(s, std::abs(dLat), 6, 2);
    s += dLat > 0.0 ? " N" : " S";
    FieldAppend(s, std::abs(dLon), 8, 2);
    s += dLon > 0.0 ? " E" : " W";
}

void AntennaAppend(Page& page, const char* sSide, const AntennaCard& deckCard, double dAzimuth,
                   bool bPower)
{
    std::string& s = page.sText;
    s += ' ';
    s += sSide;
    s += "  2-30 2-D Table [";
    FieldAppend(s, deckCard.sName, -21);
    s += "] Az=";
    FieldAppend(s, deckCard.dAzimuth, 5, 1);
    s += " OFFaz=";
    std::string sOff;
    FieldAppend(sOff, std::abs(dAzimuth - deckCard.dAzimuth), 6, 1);
    s += sOff.substr(1);
    if (bPower) {
        FieldAppend(s, deckCard.dPowerKw, 8, 3);
        s += "kW";
    }
    s += '\n';
}

void HeadAppend(Page& page, int nPage)
{
    const PointDeck& deck = *page.pDeck;
    const DeckCommon& common = deck.common;
    std::string& s = page.sText;
    s += nPage > 1 ? '\f' : ' ';
    s += MapNameGet(common.eMaps);
    s += " Coefficients  METHOD  6   ";
    FieldAppend(s, page.sMethod, -36);
    s += "PAGE";
    FieldAppend(s, nPage, 4, 0);
    s += "\n                                                  Analog modulation\n ";
    s += MonthNameGet(common.nMonth);
    FieldAppend(s, deck.nYear, 8, 0);
    s += "          SSN =";
    FieldAppend(s, common.dSsn, 4, 0);
    s += ".                      Path\n ";
    FieldAppend(s, deck.sTxName, -20);
    FieldAppend(s, deck.sRxName, -20);
    s += "   AZIMUTHS <Short> N. MI.      KM\n";
    PlaceAppend(s, common.dTxLat, common.dTxLon);
    s += "  ";
    PlaceAppend(s, deck.dRxLat, page.day.dRxLon);
    FieldAppend(s, page.day.dTxAzimuth, 10, 2);
    FieldAppend(s, page.day.dRxAzimuth, 8, 2);
    FieldAppend(s, page.day.way.dKm / kKmPerMile, 10, 1);
    FieldAppend(s, page.day.way.dKm, 9, 1);
    s += "\n MIN ANG";
    FieldAppend(s, page.day.circuit.dLeastElevation, 5, 1);
    s += " DEG\n";
    if (common.txAntenna)
        AntennaAppend(page, "XMTR", *common.txAntenna, page.day.dTxAzimuth, true);
    if (common.rxAntenna)
        AntennaAppend(page, "RCVR", *common.rxAntenna, page.day.dRxAzimuth, false);
    s += " NOISE";
    FieldAppend(s, page.day.circuit.dNoiseLevel, 5, 0);
    s += " dBW           S/N";
    FieldAppend(s, page.day.circuit.dRequiredReliability, 3, 0);
    s += "% of Days @";
    FieldAppend(s, common.dRequiredSnr, 4, 0);
    s += " dB  in";
    FieldAppend(s, common.dBandwidth, 5, 0);
    s += " Hz RX Bandwidth\n\n"
         " UT  MUF                                                         LUF  FOT OPMUF\n\n";
}

// A column's mode: "1F2", a dash if the long method prevails, 0 if the column is unused.
void ModeAppend(std::string& s, const Column& column)
{
    if (!column.bUsed) {
        s += "  0  ";
        return;
    }
    if (column.prediction.nHops == 0) {
        s += "   - ";
        return;
    }
    char aName[6] = "     ";
    const int nHops = column.prediction.nHops;
    aName[1] = nHops >= 10 ? static_cast<char>('0' + nHops / 10) : ' ';
    aName[2] = static_cast<char>('0' + nHops % 10);
    aName[3] = column.prediction.bE ? 'E' : 'F';
    aName[4] = column.prediction.bE ? ' ' : '2';
    s += aName;
}

void AngleAppend(std::string& s, const Column& column)
{
    if (column.bUsed && column.prediction.nHops == 0)
        s += "   - ";
    else
        FieldAppend(s, column.bUsed ? column.prediction.dElevation * rec533::kDegrees : 0.0, 5, 0);
}

template <class ValueFn>
void RowAppend(Page& page, const char* sLabel, ValueFn fnAppend)
{
    page.sText += "   ";
    for (const Column& column : page.aColumns) fnAppend(page.sText, column);
    page.sText += ' ';
    page.sText += sLabel;
    page.sText += '\n';
}

template <class ValueFn>
void NumberRowAppend(Page& page, const char* sLabel, ValueFn fnValue)
{
    RowAppend(page, sLabel, [&](std::string& s, const Column& column) {
        FieldAppend(s, column.bUsed ? fnValue(column) : kUnused, 5, 0);
    });
}

void HourLineAppend(Page& page, const rec533::DayHour& hour, int nLabel)
{
    std::string& s = page.sText;
    FieldAppend(s, nLabel, 3, 0);
    FieldAppend(s, hour.dMuf, 5, 1);
    for (std::size_t i = 1; i < page.aColumns.size(); ++i)
        FieldAppend(s, page.aColumns[i].bUsed ? page.aColumns[i].dFrequency : 0.0, 5, 1);
    s += " FREQ";
    FieldAppend(s, hour.dLuf, 5, 1);
    FieldAppend(s, hour.dFot, 5, 1);
    FieldAppend(s, hour.dOperational, 6, 1);
    s += '\n';
}

void BlockAppend(Page& page, const rec533::DayHour& hour, int nLabel)
{
    constexpr double kPicowatt = 120.0;  // dBW to dBpW
    HourLineAppend(page, hour, nLabel);
    RowAppend(page, "MODE", ModeAppend);
    RowAppend(page, "ANGL", AngleAppend);
    NumberRowAppend(page, "DBU ", [](const Column& c) { return c.prediction.dField; });
    NumberRowAppend(page, "dBpW", [](const Column& c) { return c.prediction.dPower + kPicowatt; });
    NumberRowAppend(page, "S/N ", [](const Column& c) { return c.prediction.dSnr; });
    RowAppend(page, "FS/N", [](std::string& s, const Column& c) {
        FieldAppend(s, c.bUsed ? std::clamp(c.prediction.dReliability / 100.0, 0.01, 0.99) : 0.0, 5,
                    2);
    });
    NumberRowAppend(page, "SNxx", [](const Column& c) { return c.prediction.dSnrExceeded; });
}

void HourAppend(Page& page, std::size_t nHour)
{
    const rec533::DayHour& hour = page.day.aHours[nHour];
    std::size_t nCell = nHour * page.day.aCells.size() / page.day.aHours.size();
    page.aColumns[0] = {hour.bAtMuf, hour.dMuf, hour.atMuf};
    for (std::size_t i = 1; i < page.aColumns.size(); ++i)
        if (page.aColumns[i].bUsed)
            page.aColumns[i].prediction = page.day.aCells[nCell++];
    BlockAppend(page, hour, nHour == 0 ? 24 : static_cast<int>(nHour));
}

}  // namespace

Result<std::string> PointOutputMake(std::string_view sDeck, std::string_view sRoot,
                                    rec533::Behaviour eBehaviour)
{
    constexpr std::size_t kOutputBytes = 17000;
    const Result<PointDeck> resDeck = PointDeckRead(sDeck);
    if (!resDeck)
        return resDeck.ErrorGet();
    const Result<RunParts> resParts = RunPartsMake(resDeck.ValueGet().common, sRoot, eBehaviour);
    if (!resParts)
        return resParts.ErrorGet();
    const auto pPage = std::make_unique<Page>();
    pPage->pDeck = &resDeck.ValueGet();
    pPage->sMethod = MethodNameGet(eBehaviour);
    pPage->sText.reserve(kOutputBytes);
    rec533::DayWork work;
    PointDayFill(pPage->day, resDeck.ValueGet(), resParts.ValueGet(), work);
    for (std::size_t i = 0; i < pPage->pDeck->aFrequencies.size(); ++i)
        pPage->aColumns[i + 1] = {pPage->day.abUsable[i], pPage->pDeck->aFrequencies[i], {}};
    for (int i = 0; i < 24; ++i) {
        if (i % kHoursAPage == 0)
            HeadAppend(*pPage, i / kHoursAPage + 1);
        else
            pPage->sText += '\n';
        HourAppend(*pPage, static_cast<std::size_t>(i));
    }
    pPage->sText += " End-of-Run\n";
    return std::move(pPage->sText);
}

}  // namespace run533
