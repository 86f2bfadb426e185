#include "propagation/itshfbc/EngineRun.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

#include "system/DrivePath.h"
#include "system/HostPath.h"
#include "system/LeftoverLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/ProcessLib.h"
#include "system/TextLib.h"
#include "system/UserFolders.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLineMax = 200;  // bytes that a status line can show

std::atomic<double>& LimitGet()
{
    static std::atomic<double> dLimit = kEngineLimit;
    return dLimit;
}

std::string TimeLimitText(int nGridSize)
{
    constexpr int kQuickGrid = 40;
    constexpr int kLeastGrid = 2;
    const std::string sText = "gave up after " + NumberToText(LimitGet().load()) + " s";
    const int nSmaller = std::min(kQuickGrid, nGridSize / 2);
    return nSmaller < kLeastGrid ? sText
                                 : sText + "; a smaller grid, for example "
                                       + std::to_string(nSmaller) + ", is faster";
}

/// A line of unknown bytes as a short printable text.
std::string PrintableText(std::string_view sLine)
{
    std::string sBytes;
    for (const char cByte : TextTrim(sLine)) {
        const auto nByte = static_cast<unsigned char>(cByte);
        if (nByte >= 0x20 && nByte < 0x7F)
            sBytes += cByte;
        if (sBytes.size() == kLineMax)
            break;
    }
    return std::string(TextTrim(sBytes));
}

/// Removes an old output, so that it cannot pass for a new one. A missing one is fine, and so is a
/// folder of that name, which the reader will refuse. One that cannot be deleted is emptied.
Result<void> OldOutputRemove(const std::string& sPath)
{
    Result<void> resDeleted = FileDelete(sPath);
    if (resDeleted || !FileExists(sPath))
        return {};
    const auto resEmptied = OutputFile::OpenNew(sPath);
    if (!resEmptied)
        return resDeleted;
    return {};
}

/// A root for one attempt alone. The launcher takes the root's own antennas before those of the
/// package, so they are linked. @return its path; empty when it cannot be made whole
std::string OwnFolderMake(const EngineRoot& root)
{
    std::string sFolder = TemporaryRootMake();
    if (sFolder.empty())
        return {};
    std::error_code ec;
    for (const char* sName : {"/RUN", "/areadata"})
        if (!ec)
            FolderMakePrivate(PathFromText(HostPathBelow(sFolder, sName)), ec);
    const fs::path pthAntennas = PathFromText(root.Path(kEngineAntennas));
    if (std::error_code ecNone; !ec && fs::is_directory(pthAntennas, ecNone))
        fs::create_directory_symlink(pthAntennas, PathFromText(sFolder) / "antennas", ec);
    if (!ec)
        return sFolder;
    fs::remove_all(PathFromText(sFolder), ec);
    return {};
}

}  // namespace

double EngineLimitSet(double dSeconds) { return LimitGet().exchange(dSeconds); }

EnginePlace::EnginePlace(bool bOwnFolder, EngineRoot root)
    : m_root(std::move(root)),
      m_sFolder(bOwnFolder ? OwnFolderMake(m_root) : m_root.sFolder),
      m_bOwn(bOwnFolder)
{
    if (!m_bOwn || m_sFolder.empty())
        return;
    if (auto resOwner = FileLock::Take(PathJoin(m_sFolder, kRootOwnerLock), 0.0))
        m_owner = std::move(resOwner.ValueGet());
}

EnginePlace::~EnginePlace()
{
    std::error_code ec;
    if (m_bOwn && !m_sFolder.empty())
        fs::remove_all(PathFromText(m_sFolder), ec);
}

std::string EnginePlace::Path(std::string_view sPath) const
{
    return HostPathBelow(m_sFolder, sPath.substr(kEngineRoot.size()));
}

std::string EnginePlace::ProgramPath(int iModel) const
{
    return m_root.Path(EngineProgramPath(iModel));
}

std::string EnginePlace::WordGet(std::string_view sPath, bool bWindowsProgram) const
{
    if (!bWindowsProgram)
        return Path(sPath);
    // The fixed root is passed as the contract spells it.
    return m_root.eKind == EngineRootKind::Installed ? std::string(sPath)
                                                     : PathToWindows(Path(sPath));
}

EngineAttempt::EngineAttempt(EngineTask task, const EngineWay& way)
    : m_task(std::move(task)), m_way(way), m_deadline(LimitGet().load())
{
}

std::string EngineAttempt::DetailGet(FailureKind eKind) const
{
    const std::string sMissing =
        ProgramMissingPartGet(m_pPlace->ProgramPath(m_task.pEngine->iModel));
    if (!sMissing.empty())
        return std::string(m_task.pEngine->sProgram) + " is " + sMissing;
    if (eKind == FailureKind::Busy)
        return "another Hopcast is using the engine folder";
    if (eKind == FailureKind::Timeout)
        return TimeLimitText(m_task.nGridSize);
    return m_sEngineOutput;
}

Failure EngineAttempt::FailureMake(FailureKind eKind, std::string_view sStage,
                                   const std::string& sError) const
{
    Failure failure;
    failure.eKind = eKind;
    failure.sText = std::string(sStage) + sError;
    failure.sDetail = DetailGet(eKind);
    return failure;
}

Failure EngineAttempt::InputFailure(const std::string& sError) const
{
    return FailureMake(FailureKind::BadOutput, m_task.pTexts->sInput, sError);
}

std::optional<Failure> EngineAttempt::LockWait()
{
    if (m_pPlace->IsOwn())
        return {};
    const double dBefore = m_deadline.LeftGet();
    Result<FileLock> resLock = FileLock::Take(m_pPlace->Path(kEngineLock), dBefore, m_way.stop);
    m_dLockWait = dBefore - m_deadline.LeftGet();
    if (m_way.stop.stop_requested())
        return FailureMake(FailureKind::Cancelled, m_task.pTexts->sNotFinished);
    if (!resLock)  // only a lock that is held waits until the deadline
        return FailureMake(m_deadline.LeftGet() <= 0.0 ? FailureKind::Busy : FailureKind::File,
                           m_task.pTexts->sOpen, resLock.TextGet());
    m_lock = std::move(resLock.ValueGet());
    return {};
}

std::optional<Failure> EngineAttempt::DeckPut()
{
    // A new file costs a fraction of an emptied one, which file systems write out at once.
    auto resFile = OutputFile::OpenNew(m_pPlace->Path(m_task.sDeck));
    if (!resFile)
        return FailureMake(FailureKind::File, m_task.pTexts->sOpen, resFile.TextGet());
    const Result<std::string> resDeck = m_task.fnDeck();
    if (!resDeck)
        return FailureMake(FailureKind::BadInput, m_task.pTexts->sOutput, resDeck.TextGet());
    Result<void> resWritten = resFile.ValueGet().Write(Windows1252FromUtf8(resDeck.ValueGet()));
    if (resWritten)
        resWritten = resFile.ValueGet().Close();
    if (!resWritten)
        return FailureMake(FailureKind::File, m_task.pTexts->sOutput, resWritten.TextGet());
    return {};
}

/// Keeps what the engine wrote to its output and error streams, and deletes the file.
void EngineAttempt::OutputOfEngineKeep()
{
    constexpr std::size_t kReadMax = std::size_t{64} << 10;
    const std::string sFile = m_pPlace->Path(kEngineConsole);
    if (const auto resText = FileReadHead(sFile, kReadMax))
        for (const std::string_view sLine : TextLines(resText.ValueGet()))
            if (m_sEngineOutput = PrintableText(sLine); !m_sEngineOutput.empty())
                break;
    (void)FileDelete(sFile);
}

std::optional<Failure> EngineAttempt::Start(int& nProcessId)
{
    ProcessCommand command;
    command.sProgram = m_pPlace->ProgramPath(m_task.pEngine->iModel);
    const bool bWindowsProgram = ProgramIsWindows(command.sProgram);
    command.asWords = {bWindowsProgram
                           ? m_pPlace->WordGet(EngineProgramPath(m_task.pEngine->iModel), true)
                           : command.sProgram,
                       m_pPlace->WordGet(kEngineRoot, bWindowsProgram)};
    command.asWords.insert(command.asWords.end(), m_task.asArguments.begin(),
                           m_task.asArguments.end());
    command.sWorkFolder = m_pPlace->Path(kEngineRoot);
    command.sOutputFile = m_pPlace->Path(kEngineConsole);
    command.pLock = m_lock ? &*m_lock : nullptr;
    const Result<int> resId = ProcessStart(command);
    if (resId && resId.ValueGet() != 0) {
        nProcessId = resId.ValueGet();
        return {};
    }
    OutputOfEngineKeep();
    if (!resId)
        return FailureMake(FailureKind::NotStarted, m_task.pTexts->sShell, resId.TextGet());
    Failure failure =
        FailureMake(FailureKind::NotStarted,
                    "Unable to execute " + std::string(m_task.pEngine->sExecuteName) + " program.");
    failure.bShowAlways = true;
    return failure;
}

std::optional<Failure> EngineAttempt::Await(int nProcessId)
{
    const bool bFinished = ProcessWait(nProcessId, m_deadline.LeftGet(), m_way.stop);
    OutputOfEngineKeep();
    if (m_way.stop.stop_requested())
        return FailureMake(FailureKind::Cancelled, m_task.pTexts->sNotFinished);
    if (bFinished)
        return {};
    // A launcher gives up shortly before it would be killed.
    constexpr double kNearlyAll = 0.05;
    FailureKind eKind = FailureKind::BadOutput;
    if (m_deadline.LeftGet() <= kNearlyAll * LimitGet())
        eKind = m_dLockWait > LimitGet() / 2.0 ? FailureKind::Busy : FailureKind::Timeout;
    return FailureMake(eKind, m_task.pTexts->sNotFinished);
}

std::optional<Failure> EngineAttempt::Run()
{
    m_pPlace = std::make_shared<EnginePlace>(m_way.bOwnFolder, m_way.root);
    if (m_way.stop.stop_requested())
        return FailureMake(FailureKind::Cancelled, m_task.pTexts->sNotFinished);
    if (!m_pPlace->IsThere())
        m_pPlace = std::make_shared<EnginePlace>(false, m_way.root);  // no folder of its own
    if (auto failure = LockWait())
        return failure;
    if (auto failure = DeckPut())
        return failure;
    const Result<void> resRemoved = OldOutputRemove(OutputPath());
    if (!resRemoved && m_task.pTexts->bOldOutputStops)
        return FailureMake(FailureKind::File, m_task.pTexts->sInput, resRemoved.TextGet());
    int nProcessId = 0;
    if (auto failure = Start(nProcessId))
        return failure;
    if (auto failure = Await(nProcessId))
        return failure;
    if (!resRemoved)  // the engine could not replace it either
        return FailureMake(FailureKind::File, m_task.pTexts->sInput, resRemoved.TextGet());
    return {};
}
