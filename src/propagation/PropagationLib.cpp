#include "propagation/PropagationLib.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "propagation/DeckLib.h"
#include "propagation/EngineRun.h"
#include "propagation/ReaderLib.h"
#include "system/ClockLib.h"
#include "system/FileLib.h"
#include "system/MsgLib.h"
#include "system/RunErrorText.h"

namespace {

/// Beginnings of a run's messages.
struct RunTexts {
    std::string_view sOpen;
    std::string_view sOutput;
    std::string_view sShell;
    std::string_view sInput;
    std::string_view sNotFinished;
};

constexpr RunTexts kIcepacVoacapTexts{
    "PropagationIcepacVoacap, Open ", "PropagationIcepacVoacap, Output ",
    "PropagationIcepacVoacap, Shell ", "PropagationIcepacVoacap, Input, ",
    "PropagationIcepacVoacap, Shell do not finish."};
constexpr RunTexts kRec533Texts{"PropagationRec533, Open ", "PropagationRec533, Output ",
                                "PropagationRec533, Shell ", "PropagationRec533, Input ",
                                "PropagationRec533, Shell do not finish."};

struct RunTask {
    const PropagationInput& m_input;
    int iFirst;
    int iLast;
    bool bShowError;
    PropagationTable& m_table;
};

bool Fail(const RunTask& task, std::string_view sStage, const std::string& sError = {})
{
    if (task.bShowError)
        MsgBox(MsgIcon::Exclamation, std::string(sStage) + sError);
    return false;
}

Result<std::string> DeckMake(const RunTask& task)
{
    const int nYear = LocalNow().nYear;
    Result<std::string> resDeck =
        task.m_input.iModel == kEngineRec533
            ? DeckRec533(task.m_input, task.iFirst, task.iLast, nYear)
            : DeckIcepacVoacap(task.m_input, task.iFirst, task.iLast, nYear);
    if (const auto resRange = RangeCheck(task.m_input); resDeck && !resRange)
        return resRange.ErrorGet();
    return resDeck;
}

Result<void> OutputRead(const RunTask& task)
{
    auto resFile = TextFile::Open(kSoundOutput);
    if (!resFile)
        return resFile.ErrorGet();
    if (task.m_input.iModel == kEngineRec533)
        return ReaderRec533(resFile.ValueGet(), task.m_input, task.iFirst, task.iLast,
                            task.m_table);
    return ReaderIcepacVoacap(resFile.ValueGet(), task.iFirst, task.iLast, task.m_table);
}

bool ChunkRun(const RunTask& task, const RunTexts& texts)
{
    const AttemptTimer timer;
    const EngineProgram* pEngine = EngineFind(task.m_input.iModel);
    if (!EngineCheckInstalled(task.m_input.iModel, task.bShowError) || pEngine == nullptr)
        return false;
    const auto resLock = EngineLockTake(timer);
    if (!resLock)
        return Fail(task, texts.sOpen, resLock.TextGet());
    auto resDeckFile = DeckOpen(kSoundDeck);
    if (!resDeckFile)
        return Fail(task, texts.sOpen, resDeckFile.TextGet());
    if (auto resWritten = DeckWrite(resDeckFile.ValueGet(), DeckMake(task)); !resWritten)
        return Fail(task, texts.sOutput, resWritten.TextGet());
    const Result<void> resRemoved = OldOutputRemove(kSoundOutput);
    const Result<int> resId = EngineStart(*pEngine, resLock.ValueGet(), {"sound.dat", "sound.out"});
    if (!resId)
        return Fail(task, texts.sShell, resId.TextGet());
    if (resId.ValueGet() == 0)
        return EngineNotStarted(*pEngine);
    if (!EngineWait(resId.ValueGet(), timer))
        return Fail(task, texts.sNotFinished);
    if (!resRemoved)  // the engine could not replace it either
        return Fail(task, texts.sInput, resRemoved.TextGet());
    if (auto resRead = OutputRead(task); !resRead)
        return Fail(task, texts.sInput, resRead.TextGet());
    return true;
}

}  // namespace

bool PropagationIcepacVoacap(const PropagationInput& input, int iFirst, int iLast, bool bShowError,
                             PropagationTable& table)
{
    return ChunkRun({input, iFirst, iLast, bShowError, table}, kIcepacVoacapTexts);
}

bool PropagationRec533(const PropagationInput& input, int iFirst, int iLast, bool bShowError,
                       PropagationTable& table)
{
    return ChunkRun({input, iFirst, iLast, bShowError, table}, kRec533Texts);
}

namespace {

bool ChunksRun(const PropagationInput& input, PropagationTable& table)
{
    table.input = input;
    bool bOk = false;
    for (int iFirst = 1; iFirst <= input.nData; iFirst += kChunkMax) {
        const int iLast = std::min(iFirst + kChunkMax - 1, input.nData);
        for (const bool bShowError : {false, true}) {
            switch (input.iModel) {
                case kEngineIcepac:
                case kEngineVoacap:
                    bOk = PropagationIcepacVoacap(input, iFirst, iLast, bShowError, table);
                    break;
                case kEngineRec533:
                    bOk = PropagationRec533(input, iFirst, iLast, bShowError, table);
                    break;
                default:  // no such engine
                    break;
            }
            if (bOk)
                break;
        }
        table.PresentSet(iFirst, iLast, bOk);
    }
    table.bBuiltIn = bOk && EngineIsHopcasts(input.iModel);
    return bOk;  // of the last chunk, whatever became of those before; intended
}

/// The input with some of its frequencies.
PropagationInput FrequenciesKeep(PropagationInput input, const std::vector<int>& aiFrequency)
{
    std::vector<float> afKept{0.0F};
    for (const int i : aiFrequency) afKept.push_back(input.FrequencyGet(i));
    input.nData = static_cast<int>(aiFrequency.size());
    input.afFrequency = std::move(afKept);
    return input;
}

/// Brings the rows of a run back to their frequencies.
void RowsSpread(const PropagationTable& tableRun, const std::vector<int>& aiFrequency,
                PropagationTable& table)
{
    table.fMUF = tableRun.fMUF;
    table.fLUF = tableRun.fLUF;
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
        }
        table.PresentSet(i, i, tableRun.PresentIs(iRun));
    }
}

}  // namespace

bool PropagationRun(const PropagationInput& input, PropagationTable& table)
{
    const std::vector<int> aiRun = FrequenciesInRangeGet(input);
    if (static_cast<int>(aiRun.size()) == input.nData)
        return ChunksRun(input, table);
    const PropagationInput inputRun = FrequenciesKeep(input, aiRun);
    PropagationTable tableRun(inputRun.nData);
    const bool bOk = ChunksRun(inputRun, tableRun);
    RowsSpread(tableRun, aiRun, table);
    table.input = input;
    table.bBuiltIn = tableRun.bBuiltIn;
    return bOk;
}
