#include "propagation/PropagationLib.h"

#include <algorithm>
#include <string>
#include <utility>

#include "propagation/PowerTable.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/reader/ReaderLib.h"
#include "system/ClockLib.h"

namespace {

constexpr EngineTexts kIcepacVoacapTexts{"PropagationIcepacVoacap, Open ",
                                         "PropagationIcepacVoacap, Output ",
                                         "PropagationIcepacVoacap, Shell ",
                                         "PropagationIcepacVoacap, Input, ",
                                         "PropagationIcepacVoacap, Shell do not finish.",
                                         false};
constexpr EngineTexts kRec533Texts{"PropagationRec533, Open ",
                                   "PropagationRec533, Output ",
                                   "PropagationRec533, Shell ",
                                   "PropagationRec533, Input ",
                                   "PropagationRec533, Shell do not finish.",
                                   false};

/// Frequencies iFirst..iLast of a request.
struct Chunk {
    const Request& m_request;
    int iFirst;
    int iLast;
};

Result<std::string> DeckMake(const Chunk& chunk)
{
    const Request& request = chunk.m_request;
    const int nYear = request.nYear != 0 ? request.nYear : LocalNow().nYear;
    Result<std::string> resDeck = request.iModel == kEngineRec533
                                      ? DeckRec533(request, chunk.iFirst, chunk.iLast, nYear)
                                      : DeckIcepacVoacap(request, chunk.iFirst, chunk.iLast, nYear);
    if (const auto resRange = RangeCheck(request); resDeck && !resRange)
        return resRange.ErrorGet();
    return resDeck;
}

Result<void> OutputRead(const Chunk& chunk, const std::string& sFile, PropagationTable& table)
{
    auto resFile = TextFile::Open(sFile);
    if (!resFile)
        return resFile.ErrorGet();
    if (chunk.m_request.iModel == kEngineRec533)
        return ReaderRec533(resFile.ValueGet(), chunk.m_request, chunk.iFirst, chunk.iLast, table);
    return ReaderIcepacVoacap(resFile.ValueGet(), chunk.iFirst, chunk.iLast, table);
}

/// One attempt of one chunk.
std::optional<Failure> ChunkRun(const Chunk& chunk, const EngineTexts& texts,
                                PropagationTable& table, const EngineWay& way)
{
    Messages aMissing;
    const EngineProgram* pEngine = EngineFind(chunk.m_request.iModel);
    if (!EngineCheckInstalled(chunk.m_request.iModel, &aMissing, way.root))
        return Failure{FailureKind::NotInstalled, aMissing.front().sText};
    if (pEngine == nullptr)
        return Failure{FailureKind::NotInstalled, {}};
    EngineAttempt attempt({pEngine,
                           &texts,
                           {"sound.dat", "sound.out"},
                           std::string(kSoundDeck),
                           std::string(kSoundOutput),
                           [&chunk] { return DeckMake(chunk); }},
                          way);
    if (auto failure = attempt.Run())
        return failure;
    if (const auto resRead = OutputRead(chunk, attempt.OutputPath(), table); !resRead)
        return attempt.InputFailure(resRead.TextGet());
    PowerShiftTable(chunk.m_request, chunk.iFirst, chunk.iLast, table);
    return {};
}

/// A chunk with its two attempts. @return true when it succeeded.
bool ChunkTry(const Chunk& chunk, PropagationTable& table, std::vector<Failure>& aFailures,
              const EngineWay& way)
{
    const int iModel = chunk.m_request.iModel;
    if (EngineFind(iModel) == nullptr)
        return false;  // no such engine
    for (const bool bLast : {false, true}) {
        auto failure =
            iModel == kEngineRec533
                ? PropagationRec533(chunk.m_request, chunk.iFirst, chunk.iLast, table, way)
                : PropagationIcepacVoacap(chunk.m_request, chunk.iFirst, chunk.iLast, table, way);
        if (!failure)
            return true;
        failure->iFirst = chunk.iFirst;
        failure->iLast = chunk.iLast;
        const bool bCancelled = failure->eKind == FailureKind::Cancelled;
        if (bLast || failure->bShowAlways || bCancelled)
            aFailures.push_back(std::move(*failure));
        if (bCancelled)
            return false;
    }
    return false;
}

/// The failure of a run that was stopped before the chunk that begins with iFirst.
Failure CancelledMake(const Request& request, int iFirst)
{
    const EngineTexts& texts = request.iModel == kEngineRec533 ? kRec533Texts : kIcepacVoacapTexts;
    Failure failure{FailureKind::Cancelled, std::string(texts.sNotFinished)};
    failure.iFirst = iFirst;
    failure.iLast = request.nData;
    return failure;
}

bool ChunksRun(const Request& request, PropagationTable& table, std::vector<Failure>& aFailures,
               const EngineWay& way)
{
    table.request = request;
    bool bOk = false;
    for (int iFirst = 1; iFirst <= request.nData; iFirst += kChunkMax) {
        if (way.stop.stop_requested()) {  // between two chunks, or before the first
            aFailures.push_back(CancelledMake(request, iFirst));
            bOk = false;
            break;
        }
        const int iLast = std::min(iFirst + kChunkMax - 1, request.nData);
        bOk = ChunkTry({request, iFirst, iLast}, table, aFailures, way);
        table.PresentSet(iFirst, iLast, bOk);
        if (!bOk && !aFailures.empty() && aFailures.back().eKind == FailureKind::Cancelled)
            break;
    }
    table.bBuiltIn = bOk && EngineIsHopcasts(request.iModel, way.root);
    return bOk;  // of the last chunk, even if others failed: the table is shown with those hatched
}

/// The request with some of its frequencies.
Request FrequenciesKeep(Request request, const std::vector<int>& aiFrequency)
{
    std::vector<float> afKept{0.0F};
    for (const int i : aiFrequency) afKept.push_back(request.FrequencyGet(i));
    request.nData = static_cast<int>(aiFrequency.size());
    request.afFrequency = std::move(afKept);
    return request;
}

/// Moves the rows of a run back to their frequencies.
void RowsSpread(const PropagationTable& tableRun, const std::vector<int>& aiFrequency,
                PropagationTable& table)
{
    table.fMUF = tableRun.fMUF;
    table.fLUF = tableRun.fLUF;
    table.fFOT = tableRun.fFOT;
    table.fAzimuthTxRc = tableRun.fAzimuthTxRc;
    table.fAzimuthRcTx = tableRun.fAzimuthRcTx;
    table.fRange = tableRun.fRange;
    for (int iRun = 1; iRun <= tableRun.nData; ++iRun) {
        const int i = aiFrequency[static_cast<std::size_t>(iRun - 1)];
        for (int iHour = 0; iHour <= kHourCount; ++iHour) {
            table.sLayer(iHour, i) = tableRun.sLayer(iHour, iRun);
            table.fTakeoffAngle(iHour, i) = tableRun.fTakeoffAngle(iHour, iRun);
            table.fTimeDelay(iHour, i) = tableRun.fTimeDelay(iHour, iRun);
            table.fVirtualHeight(iHour, i) = tableRun.fVirtualHeight(iHour, iRun);
            table.fSdBW(iHour, i) = tableRun.fSdBW(iHour, iRun);
            table.fNdBW(iHour, i) = tableRun.fNdBW(iHour, iRun);
            table.fSnr(iHour, i) = tableRun.fSnr(iHour, iRun);
            table.fReliability(iHour, i) = tableRun.fReliability(iHour, iRun);
            table.fSnrLower(iHour, i) = tableRun.fSnrLower(iHour, iRun);
            table.fSnrUpper(iHour, i) = tableRun.fSnrUpper(iHour, iRun);
            table.fSnrMedian(iHour, i) = tableRun.fSnrMedian(iHour, iRun);
        }
        table.PresentSet(i, i, tableRun.PresentIs(iRun));
    }
}

}  // namespace

std::optional<Failure> PropagationIcepacVoacap(const Request& request, int iFirst, int iLast,
                                               PropagationTable& table, const EngineWay& way)
{
    return ChunkRun({request, iFirst, iLast}, kIcepacVoacapTexts, table, way);
}

std::optional<Failure> PropagationRec533(const Request& request, int iFirst, int iLast,
                                         PropagationTable& table, const EngineWay& way)
{
    return ChunkRun({request, iFirst, iLast}, kRec533Texts, table, way);
}

bool PropagationRun(const Request& request, PropagationTable& table,
                    std::vector<Failure>& aFailures, const EngineWay& way)
{
    const std::vector<int> aiRun = FrequenciesInRangeGet(request);
    if (static_cast<int>(aiRun.size()) == request.nData)
        return ChunksRun(request, table, aFailures, way);
    const Request requestRun = FrequenciesKeep(request, aiRun);
    PropagationTable tableRun(requestRun.nData);
    std::vector<Failure> aFailuresRun;
    const bool bOk = ChunksRun(requestRun, tableRun, aFailuresRun, way);
    RowsSpread(tableRun, aiRun, table);
    for (Failure& failure : aFailuresRun) {
        failure.iFirst = aiRun[static_cast<std::size_t>(failure.iFirst - 1)];
        failure.iLast = aiRun[static_cast<std::size_t>(failure.iLast - 1)];
        aFailures.push_back(std::move(failure));
    }
    table.request = request;
    table.bBuiltIn = tableRun.bBuiltIn;
    return bOk;
}
