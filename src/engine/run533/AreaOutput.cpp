#include <atomic>
#include <thread>

#include "engine/rec533/Day.h"
#include "engine/run533/AreaGrid.h"
#include "engine/run533/FieldText.h"
#include "engine/run533/Run.h"
#include "engine/run533/RunParts.h"
#include "engine/run533/Workers.h"
#include "system/NumberLib.h"

namespace run533 {
namespace {

constexpr std::size_t kLineBytes = 69;
constexpr int kThreadsMost = 16;
constexpr int kPointsAThread = 200;  // fewer are not worth a thread

struct Grid {
    const AreaDeck* pDeck = nullptr;
    const RunParts* pParts = nullptr;
    rec533::Circuit circuit;
    const rec533::Frequencies* pFrequencies = nullptr;
    std::string sHead;
    std::string sPoints;  // kLineBytes per point
    std::atomic<int> nNextRow{0};
};

void PointAppend(std::string& s, const rec533::DayHour& hour, const rec533::Prediction& prediction)
{
    FieldAppend(s, hour.dMuf, 6, 2);
    if (prediction.nHops > 0)
        FieldAppend(s, NumberToText(prediction.nHops) + (prediction.bE ? "E " : "F2"), 6);
    else
        s += "   ---";
    FieldAppend(s, prediction.dElevation * rec533::kDegrees, 6, 1);
    FieldAppend(s, GridValueClamp(prediction.dField), 6, 1);
    FieldAppend(s, GridValueClamp(prediction.dSnr), 6, 1);
    FieldAppend(s, std::clamp(prediction.dReliability / 100.0, 0.01, 0.99), 6, 3);
    FieldAppend(s, GridValueClamp(prediction.dSnrExceeded), 6, 1);
    s += '\n';
}

void RowFill(Grid& grid, int nRow, rec533::DayWork& work)
{
    const AreaDeck& deck = *grid.pDeck;
    std::string sRow;
    sRow.reserve(kLineBytes * static_cast<std::size_t>(deck.nGrid));
    rec533::Circuit circuit = grid.circuit;
    rec533::DayHour hour;
    rec533::Prediction prediction;
    for (int i = 0; i < deck.nGrid; ++i) {
        const GridPlace place = GridPlaceGet(deck, nRow, i);
        circuit.dRxLat = place.dLat;
        circuit.dRxLon = place.dLonOfPath;
        PredictHour(work, *grid.pParts->pIonosphere, *grid.pFrequencies, circuit, deck.nHour, hour,
                    {&prediction, 1});
        FieldAppend(sRow, NumberToText(i + 1), 3);
        FieldAppend(sRow, NumberToText(nRow + 1), 3);
        FieldAppend(sRow, place.dLat, 10, 4);
        FieldAppend(sRow, place.dLon, 10, 4);
        PointAppend(sRow, hour, prediction);
    }
    sRow.copy(grid.sPoints.data() + sRow.size() * static_cast<std::size_t>(nRow), sRow.size());
}

void RowsFill(Grid& grid)
{
    rec533::DayWork work;
    for (int nRow = grid.nNextRow++; nRow < grid.pDeck->nGrid; nRow = grid.nNextRow++)
        RowFill(grid, nRow, work);
}

void HeadMake(Grid& grid, rec533::Behaviour eBehaviour)
{
    constexpr int kTitleWidth = 90;
    const AreaDeck& deck = *grid.pDeck;
    const double dKw = grid.circuit.dPowerKw;
    std::string sTitle =
        deck.sTxName + " [" + (grid.pParts->pTx ? grid.pParts->pTx->sTitle : "Isotropic") + "] "
        + (dKw >= 1.0 ? NumberToText(dKw) + "kW" : NumberToText(std::round(dKw * 1e6) / 1e3) + "W")
        + " " + NumberFormat(deck.common.txAntenna ? deck.common.txAntenna->dAzimuth : 0.0, "0")
        + "deg " + NumberFormat(deck.nHour == 0 ? 24.0 : deck.nHour, "00") + "ut "
        + NumberFormat(deck.dFrequency, "0.000") + "MHz "
        + std::string(MonthNameGet(deck.common.nMonth)) + " " + NumberFormat(deck.common.dSsn, "0")
        + "ssn";
    grid.sHead.append(MethodNameGet(eBehaviour))
        .append(", ")
        .append(MapNameGet(deck.common.eMaps))
        .append(" maps\n");
    FieldAppend(grid.sHead, sTitle, -kTitleWidth);
    grid.sHead += '\n';
    FieldAppend(grid.sHead, NumberToText(deck.nGrid), 3);
    FieldAppend(grid.sHead, NumberToText(deck.nGrid), 3);
    // The label's blank is in the field's first column, so that a reader that takes six columns
    // from there gets the whole number.
    grid.sHead += "  Latitude Longitude   MUF  MODE  ANGL   DBU   S/N  FS/N SNxx\n";
}

void PointsFill(Grid& grid, int nThreads)
{
    const int nPoints = grid.pDeck->nGrid * grid.pDeck->nGrid;
    grid.sPoints.resize(static_cast<std::size_t>(nPoints) * kLineBytes);
    if (nThreads == 0)
        nThreads = static_cast<int>(std::thread::hardware_concurrency());
    nThreads = std::clamp(std::min(nThreads, nPoints / kPointsAThread), 1, kThreadsMost);
    WorkersRun(nThreads, [&grid] { RowsFill(grid); });
}

}  // namespace

Result<std::string> AreaOutputMake(std::string_view sDeck, std::string_view sRoot,
                                   rec533::Behaviour eBehaviour, int nThreads)
{
    const Result<AreaDeck> resDeck = AreaDeckRead(sDeck);
    if (!resDeck)
        return resDeck.ErrorGet();
    const DeckCommon& common = resDeck.ValueGet().common;
    const Result<RunParts> resParts = RunPartsMake(common, sRoot, eBehaviour);
    if (!resParts)
        return resParts.ErrorGet();
    Grid grid;
    grid.pDeck = &resDeck.ValueGet();
    grid.pParts = &resParts.ValueGet();
    grid.circuit = CircuitMake(common, resParts.ValueGet(), kPowerWithoutAntenna);
    const rec533::Frequencies frequencies(*resParts.ValueGet().pIonosphere, grid.circuit,
                                          {&resDeck.ValueGet().dFrequency, 1});
    grid.pFrequencies = &frequencies;
    HeadMake(grid, eBehaviour);
    PointsFill(grid, nThreads);
    return grid.sHead + grid.sPoints;
}

}  // namespace run533
