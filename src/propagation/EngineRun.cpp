#include "propagation/EngineRun.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "system/FileLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/ProcessLib.h"
#include "system/TextLib.h"

namespace {

constexpr std::size_t kSaidMax = 200;  // bytes that a status line can show

double& LimitGet()
{
    static double dLimit = kEngineLimit;
    return dLimit;
}

/// What is known of the latest attempt.
struct Attempt {
    std::string sSaid;
    EngineFailure eFailure = EngineFailure::None;
    int nGridSize = 0;
    double dLockWait = 0.0;  // seconds
};

Attempt& AttemptGet()
{
    static Attempt attempt;
    return attempt;
}

std::string TimeLimitTell(int nGridSize)
{
    constexpr int kQuickGrid = 40;
    constexpr int kLeastGrid = 2;
    const std::string sText = "gave up after " + NumberToText(LimitGet()) + " s";
    const int nSmaller = std::min(kQuickGrid, nGridSize / 2);
    return nSmaller < kLeastGrid ? sText
                                 : sText + "; a smaller grid, for example "
                                       + std::to_string(nSmaller) + ", is faster";
}

/// A line of foreign bytes as a short printable text.
std::string PrintableText(std::string_view sLine)
{
    std::string sBytes;
    for (const char cByte : TextTrim(sLine)) {
        const auto nByte = static_cast<unsigned char>(cByte);
        if (nByte >= 0x20 && nByte < 0x7F)
            sBytes += cByte;
        if (sBytes.size() == kSaidMax)
            break;
    }
    return std::string(TextTrim(sBytes));
}

void SaidKeep()
{
    constexpr std::size_t kReadMax = std::size_t{64} << 10;
    if (const auto resText = FileReadHead(kEngineConsole, kReadMax))
        for (const std::string_view sLine : TextLines(resText.ValueGet()))
            if (AttemptGet().sSaid = PrintableText(sLine); !AttemptGet().sSaid.empty())
                break;
    (void)FileDelete(kEngineConsole);
}

}  // namespace

std::string EngineSaidGet() { return AttemptGet().sSaid; }

EngineFailure EngineFailureGet() { return AttemptGet().eFailure; }

std::string EngineTroubleGet(int iModel)
{
    const EngineProgram* pEngine = EngineFind(iModel);
    const std::string sLack =
        pEngine != nullptr ? ProgramLackGet(EngineProgramPath(iModel)) : std::string();
    if (!sLack.empty())
        return std::string(pEngine->sProgram) + " is " + sLack;
    switch (AttemptGet().eFailure) {
        case EngineFailure::Busy:
            return "another Hopcast is using the engine folder";
        case EngineFailure::TimeLimit:
            return TimeLimitTell(AttemptGet().nGridSize);
        case EngineFailure::None:
            break;
    }
    return EngineSaidGet();
}

double EngineLimitSet(double dSeconds) { return std::exchange(LimitGet(), dSeconds); }

AttemptTimer::AttemptTimer(int nGridSize)
    : m_tmEnd(std::chrono::steady_clock::now()
              + std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                  std::chrono::duration<double>(LimitGet())))
{
    AttemptGet() = Attempt{{}, EngineFailure::None, nGridSize, 0.0};
}

double AttemptTimer::LeftGet() const
{
    const std::chrono::duration<double> tmLeft = m_tmEnd - std::chrono::steady_clock::now();
    return std::max(0.0, tmLeft.count());
}

Result<FileLock> EngineLockTake(const AttemptTimer& timer)
{
    const double dBefore = timer.LeftGet();
    Result<FileLock> resLock = FileLock::Take(PathToHost(kEngineLock), dBefore);
    AttemptGet().dLockWait = dBefore - timer.LeftGet();
    if (!resLock && timer.LeftGet() <= 0.0)  // other failures do not wait
        AttemptGet().eFailure = EngineFailure::Busy;
    return resLock;
}

Result<void> OldOutputRemove(std::string_view sPath)
{
    Result<void> resDeleted = FileDelete(sPath);
    if (resDeleted || !FileExists(sPath))
        return {};
    const auto resEmptied = OutputFile::OpenNew(sPath);
    if (!resEmptied)
        return resDeleted;
    return {};
}

Result<int> EngineStart(const EngineProgram& engine, const FileLock& lock,
                        std::initializer_list<std::string_view> asArguments)
{
    ProcessCommand command;
    command.asWords = {EngineProgramPath(engine.iModel), std::string(kEngineRoot)};
    command.asWords.insert(command.asWords.end(), asArguments.begin(), asArguments.end());
    command.sWorkFolder = kEngineRoot;
    command.sOutputFile = kEngineConsole;
    command.pLock = &lock;
    Result<int> resId = ProcessStart(command);
    if (!resId || resId.ValueGet() == 0)
        SaidKeep();
    return resId;
}

bool EngineWait(int nProcessId, const AttemptTimer& timer)
{
    const bool bFinished = ProcessWait(nProcessId, timer.LeftGet());
    SaidKeep();
    // A launcher gives up a little earlier than it would be killed.
    constexpr double kNearlyAll = 0.05;
    if (!bFinished && timer.LeftGet() <= kNearlyAll * LimitGet())
        AttemptGet().eFailure = AttemptGet().dLockWait > LimitGet() / 2.0
                                    ? EngineFailure::Busy
                                    : EngineFailure::TimeLimit;
    return bFinished;
}

bool EngineNotStarted(const EngineProgram& engine)
{
    return MsgFail(MsgIcon::Exclamation,
                   "Unable to execute " + std::string(engine.sExecuteName) + " program.");
}

Result<OutputFile> DeckOpen(std::string_view sPath)
{
    // A new file costs a fraction of an emptied one: file systems write the latter out at once.
    return OutputFile::OpenNew(sPath);
}

Result<void> DeckWrite(OutputFile& file, const Result<std::string>& resDeck)
{
    if (!resDeck)
        return resDeck.ErrorGet();
    if (auto resWritten = file.Write(Windows1252FromUtf8(resDeck.ValueGet())); !resWritten)
        return resWritten;
    return file.Close();
}
