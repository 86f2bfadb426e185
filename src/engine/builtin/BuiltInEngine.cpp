#include "engine/builtin/BuiltInEngine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "engine/builtin/BuiltInTable.h"
#include "engine/run533/AreaGrid.h"
#include "engine/run533/FieldText.h"
#include "engine/run533/PointDay.h"
#include "propagation/PowerTable.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/ClockLib.h"
#include "system/RunErrorText.h"

namespace {

constexpr rec533::Behaviour kBehaviour = rec533::Behaviour::Best;

Failure FailureMake(FailureKind eKind, std::string sText, std::string sDetail = {})
{
    Failure failure{eKind, std::move(sText), std::move(sDetail)};
    return failure;
}

/// The stages of a run, named as in the messages of the program's runs.
constexpr const char* kPointOutput = "PropagationRec533, Output ";
constexpr const char* kPointNotFinished = "PropagationRec533, Shell do not finish.";
constexpr const char* kAreaOutput = "PropagationAreaOpen, ";
constexpr const char* kAreaNotFinished = "PropagationAreaOpen, Shell do not finish.";

/// The decks of a request's chunks as one deck, with all usable frequencies.
Result<run533::PointDeck> DeckRead(const Request& request, const std::vector<int>& aiFrequency,
                                   Failure& failure)
{
    const int nYear = request.nYear != 0 ? request.nYear : LocalNow().nYear;
    run533::PointDeck deck;
    Request requestChunk = request;
    for (std::size_t iFirst = 0; iFirst < aiFrequency.size(); iFirst += kChunkMax) {
        const std::size_t nCount =
            std::min(aiFrequency.size() - iFirst, static_cast<std::size_t>(kChunkMax));
        requestChunk.nData = static_cast<int>(nCount);
        requestChunk.afFrequency.assign(1, 0.0F);
        for (std::size_t i = iFirst; i < iFirst + nCount; ++i)
            requestChunk.afFrequency.push_back(request.FrequencyGet(aiFrequency[i]));
        const auto resText = DeckRec533(requestChunk, 1, requestChunk.nData, nYear);
        if (!resText) {
            failure = FailureMake(FailureKind::BadInput, kPointOutput + resText.TextGet());
            return resText.ErrorGet();
        }
        auto resDeck = run533::PointDeckRead(resText.ValueGet());
        if (!resDeck) {
            failure = FailureMake(FailureKind::BadInput, kPointNotFinished, resDeck.TextGet());
            return resDeck.ErrorGet();
        }
        std::vector<double> aFrequencies = std::move(deck.aFrequencies);
        const std::vector<double>& aChunk = resDeck.ValueGet().aFrequencies;
        aFrequencies.insert(aFrequencies.end(), aChunk.begin(), aChunk.end());
        deck = std::move(resDeck.ValueGet());
        deck.aFrequencies = std::move(aFrequencies);
    }
    return deck;
}

Result<run533::AreaDeck> AreaRead(const AreaRequest& request, Failure& failure)
{
    if (const auto resRange = RangeCheck(request); !resRange) {
        failure = FailureMake(FailureKind::BadInput, kAreaOutput + resRange.TextGet());
        return resRange.ErrorGet();
    }
    const auto resText = DeckArea(request);
    if (!resText) {
        failure = FailureMake(FailureKind::BadInput, kAreaOutput + resText.TextGet());
        return resText.ErrorGet();
    }
    auto resDeck = run533::AreaDeckRead(resText.ValueGet());
    if (!resDeck)
        failure = FailureMake(FailureKind::BadInput, kAreaNotFinished, resDeck.TextGet());
    return resDeck;
}

float SnrOfGrid(const rec533::Prediction& prediction, double dPowerShift)
{
    constexpr int kWidth = 6;
    constexpr int kDecimals = 1;
    return PowerShiftSnr(static_cast<float>(run533::FieldValueGet(
                             run533::GridValueClamp(prediction.dSnrExceeded), kWidth, kDecimals)),
                         dPowerShift);
}

/// Unrounded, as in a path's table.
AreaSpread SpreadOfGrid(const rec533::Prediction& prediction, double dPowerShift)
{
    return {PowerShiftSnr(static_cast<float>(prediction.dSnr), dPowerShift),
            static_cast<float>(prediction.dSnrLower), static_cast<float>(prediction.dSnrUpper)};
}

AreaDay::Place PlaceOfGrid(const run533::GridPlace& gridPlace)
{
    constexpr int kWidth = 10;
    constexpr int kDecimals = 4;
    return {run533::FieldValueGet(gridPlace.dLat, kWidth, kDecimals),
            run533::FieldValueGet(gridPlace.dLon, kWidth, kDecimals)};
}

}  // namespace

/// What several calls share: the maps that were used last.
class BuiltInEngine::Shared {
public:
    std::shared_ptr<const rec533::Ionosphere> IonosphereGet(const run533::DeckCommon& deckCommon)
    {
        const std::lock_guard lock(m_mutex);
        if (m_pIonosphere == nullptr || m_eMaps != deckCommon.eMaps || m_nMonth != deckCommon.nMonth
            || m_dSsn != deckCommon.dSsn) {
            m_pIonosphere = run533::IonosphereMake(deckCommon, kBehaviour);
            m_eMaps = deckCommon.eMaps;
            m_nMonth = deckCommon.nMonth;
            m_dSsn = deckCommon.dSsn;
        }
        return m_pIonosphere;
    }

private:
    std::mutex m_mutex;
    std::shared_ptr<const rec533::Ionosphere> m_pIonosphere;
    rec533::MapSet m_eMaps = rec533::MapSet::Ccir;
    int m_nMonth = 0;
    double m_dSsn = 0.0;
};

BuiltInEngine::BuiltInEngine(std::string sRoot)
    : m_sRoot(std::move(sRoot)), m_pShared(std::make_unique<Shared>())
{
}

BuiltInEngine::~BuiltInEngine() = default;

std::string BuiltInEngine::VersionGet() const
{
    return "built-in, " + std::string(run533::MethodNameGet(kBehaviour));
}

std::string BuiltInEngine::IdentityGet() const
{
    return Engine::IdentityGet() + AntennaStamps(m_sRoot);
}

EngineLimits BuiltInEngine::LimitsGet() const
{
    return {kFrequencyMax, std::max(1, static_cast<int>(std::thread::hardware_concurrency()))};
}

Prediction BuiltInEngine::Predict(const Request& request, const std::stop_token& stop) const
{
    Prediction prediction;
    prediction.sEngine = NameGet();
    prediction.sEngineVersion = VersionGet();
    prediction.table = PropagationTable(request.nData);
    prediction.table.request = request;
    const auto Fail = [&](Failure failure) {
        failure.iFirst = 1;
        failure.iLast = request.nData;
        prediction.aFailures.push_back(std::move(failure));
        return prediction;
    };
    if (stop.stop_requested())
        return Fail(FailureMake(FailureKind::Cancelled, kPointNotFinished));
    const std::vector<int> aiFrequency = FrequenciesInRangeGet(request);
    if (aiFrequency.empty())
        return prediction;
    if (const auto resRange = RangeCheck(request); !resRange)
        return Fail(FailureMake(FailureKind::BadInput, kPointOutput + resRange.TextGet()));
    Failure failure;
    const auto resDeck = DeckRead(request, aiFrequency, failure);
    if (!resDeck)
        return Fail(std::move(failure));
    const run533::DeckCommon& common = resDeck.ValueGet().common;
    const auto resParts =
        run533::RunPartsMake(common, m_sRoot, kBehaviour, m_pShared->IonosphereGet(common));
    if (!resParts)
        return Fail(FailureMake(FailureKind::BadInput, kPointNotFinished, resParts.TextGet()));
    rec533::DayWork work;
    run533::PointDay dayOfPath;
    PointDayFill(dayOfPath, resDeck.ValueGet(), resParts.ValueGet(), work);
    BuiltInTableFill(dayOfPath, aiFrequency, prediction.table);
    prediction.bOk = true;
    return prediction;
}

/// The rows of an area's day.
class AreaRowsWork final : public AreaDayWork {
public:
    AreaRowsWork(run533::AreaDeck deck, run533::RunParts parts,
                 const std::vector<double>& aMegahertz, double dPowerShift)
        : m_deck(std::move(deck)),
          m_parts(std::move(parts)),
          m_circuit(CircuitMake(m_deck.common, m_parts, run533::kPowerWithoutAntenna)),
          m_frequencies(*m_parts.pIonosphere, m_circuit, aMegahertz),
          m_dPowerShift(dPowerShift)
    {
    }
    [[nodiscard]] std::size_t PiecesGet() const override
    {
        return static_cast<std::size_t>(m_deck.nGrid);
    }
    [[nodiscard]] std::optional<Failure> Run(std::size_t iPiece, AreaDay& day,
                                             const std::stop_token& stop) override
    {
        rec533::DayWork work;
        std::array<rec533::DayHour, 24> aHours;
        const std::size_t nFrequencies = m_frequencies.CountGet();
        std::vector<rec533::Prediction> aCells(aHours.size() * nFrequencies);
        rec533::Circuit circuit = m_circuit;
        for (std::size_t i = 0; i < PiecesGet(); ++i) {
            if (stop.stop_requested())
                return FailureMake(FailureKind::Cancelled, kAreaNotFinished);
            const run533::GridPlace gridPlace =
                GridPlaceGet(m_deck, static_cast<int>(iPiece), static_cast<int>(i));
            circuit.dRxLat = gridPlace.dLat;
            circuit.dRxLon = gridPlace.dLonOfPath;
            PredictDay(work, *m_parts.pIonosphere, m_frequencies, circuit, rec533::DayParts::Cells,
                       aHours, aCells);
            const std::size_t iPoint = iPiece * PiecesGet() + i;
            day.aPlaces[iPoint] = PlaceOfGrid(gridPlace);
            for (int iHour = 0; iHour < kHourCount; ++iHour)
                for (std::size_t j = 0; j < nFrequencies; ++j) {
                    const rec533::Prediction& cell =
                        aCells[static_cast<std::size_t>(iHour) * nFrequencies + j];
                    day.SnrGet(iPoint, iHour, j) = SnrOfGrid(cell, m_dPowerShift);
                    if (day.request.bSpread)
                        day.SpreadGet(iPoint, iHour, j) = SpreadOfGrid(cell, m_dPowerShift);
                }
        }
        return {};
    }

private:
    run533::AreaDeck m_deck;
    run533::RunParts m_parts;
    rec533::Circuit m_circuit;
    rec533::Frequencies m_frequencies;
    double m_dPowerShift;  // dB
};

std::unique_ptr<AreaDayWork> BuiltInEngine::AreaDayPrepare(const AreaDayRequest& request,
                                                           std::optional<Failure>& failure) const
{
    constexpr float kKhzPerMhz = 1000.0F;
    failure.reset();
    Failure failureDeck;
    std::vector<double> aMegahertz;
    AreaRequest area = request.area;
    std::optional<run533::AreaDeck> deck;
    for (const float fKhz : request.afFrequency) {  // each rounded as in its deck
        area.fFrequency = fKhz / kKhzPerMhz;
        auto resDeck = AreaRead(area, failureDeck);
        if (!resDeck) {
            failure = std::move(failureDeck);
            return nullptr;
        }
        aMegahertz.push_back(resDeck.ValueGet().dFrequency);
        deck = std::move(resDeck.ValueGet());
    }
    if (!deck) {
        failure = FailureMake(FailureKind::BadInput, kAreaOutput + std::string(kInvalidCall));
        return nullptr;
    }
    auto resParts = run533::RunPartsMake(deck->common, m_sRoot, kBehaviour,
                                         m_pShared->IonosphereGet(deck->common));
    if (!resParts) {
        failure = FailureMake(FailureKind::BadInput, kAreaNotFinished, resParts.TextGet());
        return nullptr;
    }
    return std::make_unique<AreaRowsWork>(std::move(*deck), std::move(resParts.ValueGet()),
                                          aMegahertz, PowerShiftGet(area));
}

AreaPrediction BuiltInEngine::PredictArea(const AreaRequest& request,
                                          const std::stop_token& stop) const
{
    AreaPrediction prediction;
    prediction.request = request;
    prediction.sEngine = NameGet();
    prediction.sEngineVersion = VersionGet();
    Failure failure;
    const auto resDeck = AreaRead(request, failure);
    if (!resDeck) {
        prediction.aFailures.push_back(std::move(failure));
        return prediction;
    }
    const run533::AreaDeck& deck = resDeck.ValueGet();
    const auto resParts = run533::RunPartsMake(deck.common, m_sRoot, kBehaviour,
                                               m_pShared->IonosphereGet(deck.common));
    if (!resParts) {
        prediction.aFailures.push_back(
            FailureMake(FailureKind::BadInput, kAreaNotFinished, resParts.TextGet()));
        return prediction;
    }
    const run533::RunParts& parts = resParts.ValueGet();
    rec533::Circuit circuit = CircuitMake(deck.common, parts, run533::kPowerWithoutAntenna);
    const rec533::Frequencies frequencies(*parts.pIonosphere, circuit, {&deck.dFrequency, 1});
    const double dPowerShift = PowerShiftGet(request);
    rec533::DayWork work;
    rec533::DayHour hour;
    rec533::Prediction predicted;
    for (int iRow = 0; iRow < deck.nGrid; ++iRow)
        for (int iColumn = 0; iColumn < deck.nGrid; ++iColumn) {
            if (stop.stop_requested()) {
                prediction.aPoints.clear();
                prediction.aFailures.push_back(
                    FailureMake(FailureKind::Cancelled, kAreaNotFinished));
                return prediction;
            }
            const run533::GridPlace gridPlace = GridPlaceGet(deck, iRow, iColumn);
            circuit.dRxLat = gridPlace.dLat;
            circuit.dRxLon = gridPlace.dLonOfPath;
            PredictHour(work, *parts.pIonosphere, frequencies, circuit, deck.nHour, hour,
                        {&predicted, 1});
            const AreaDay::Place place = PlaceOfGrid(gridPlace);
            prediction.aPoints.push_back(
                {place.dLat, place.dLon, SnrOfGrid(predicted, dPowerShift)});
        }
    prediction.bOk = true;
    return prediction;
}
