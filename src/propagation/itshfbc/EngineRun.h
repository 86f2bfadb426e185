/// @file EngineRun.h
/// One attempt of an engine program: lock, deck, start, wait. What point-to-point and area runs
/// have in common.
///
/// Errors:  told in a Failure, with the text that the procedure's message box shows.
/// Threads: an attempt lives on one thread; several may go on at once.
/// Tests:   tests/propagation/EngineFaultTest.cpp
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "propagation/Prediction.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "system/Deadline.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/Result.h"

/// How a procedure's messages begin, by the stage at which a run failed.
struct EngineTexts {
    std::string_view sOpen;
    std::string_view sOutput;
    std::string_view sShell;
    std::string_view sInput;
    std::string_view sNotFinished;  ///< whole
    bool bOldOutputStops;           ///< an old output that cannot be removed fails before the start
};

/// What an attempt is to do. Paths as the contract spells them, below kEngineRoot.
struct EngineTask {
    const EngineProgram* pEngine = nullptr;
    const EngineTexts* pTexts = nullptr;
    std::vector<std::string> asArguments;  ///< behind the root
    std::string sDeck;
    std::string sOutput;
    std::function<Result<std::string>()> fnDeck;
    int nGridSize = 0;  ///< points a side of an area, for the advice after a run that took too long
};

/// How the runs of a request go on.
struct EngineWay {
    std::stop_token stop = {};
    /// Each attempt in a folder of its own, without the root's lock: for engines whose program
    /// reads nothing but its deck from the root.
    bool bOwnFolder = false;
    /// Sought once for all of a request's runs: a package that is installed in between would
    /// otherwise mix two roots.
    EngineRoot root = EngineRootGet();
};

/// The root that one attempt works in.
class EnginePlace {
public:
    explicit EnginePlace(bool bOwnFolder, EngineRoot root = EngineRootGet());
    ~EnginePlace();
    EnginePlace(const EnginePlace&) = delete;
    EnginePlace& operator=(const EnginePlace&) = delete;

    /// False where the folder of its own could not be made.
    [[nodiscard]] bool IsThere() const { return !m_sFolder.empty(); }
    [[nodiscard]] bool IsOwn() const { return m_bOwn; }
    /// Host path of a path below kEngineRoot.
    [[nodiscard]] std::string Path(std::string_view sPath) const;
    /// Host path of a program, which lies in the shared root in any case.
    [[nodiscard]] std::string ProgramPath(int iModel) const;
    /// A path below kEngineRoot as the program's command line names it.
    [[nodiscard]] std::string WordGet(std::string_view sPath, bool bWindowsProgram) const;

private:
    EngineRoot m_root;
    std::string m_sFolder;
    bool m_bOwn;
};

/// One attempt. The time that it has begins with its construction.
class EngineAttempt {
public:
    EngineAttempt(EngineTask task, const EngineWay& way);

    /// Runs the engine. @return nothing when its output can be read.
    [[nodiscard]] std::optional<Failure> Run();
    /// Host path of the output.
    [[nodiscard]] std::string OutputPath() const { return m_pPlace->Path(m_task.sOutput); }
    /// A failure of the stage of reading, in the words of its error.
    [[nodiscard]] Failure InputFailure(const std::string& sError) const;
    [[nodiscard]] const std::shared_ptr<EnginePlace>& PlaceGet() const { return m_pPlace; }
    /// Hands on the hold on the root, until whose end nobody else writes there.
    [[nodiscard]] std::optional<FileLock> LockTake() { return std::exchange(m_lock, std::nullopt); }

private:
    [[nodiscard]] Failure FailureMake(FailureKind eKind, std::string_view sStage,
                                      const std::string& sError = {}) const;
    [[nodiscard]] std::string DetailGet(FailureKind eKind) const;
    [[nodiscard]] std::optional<Failure> LockWait();
    [[nodiscard]] std::optional<Failure> DeckPut();
    [[nodiscard]] std::optional<Failure> Start(int& nProcessId);
    [[nodiscard]] std::optional<Failure> Await(int nProcessId);
    void OutputOfEngineKeep();

    EngineTask m_task;
    EngineWay m_way;
    std::shared_ptr<EnginePlace> m_pPlace;
    Deadline m_deadline;
    std::optional<FileLock> m_lock;
    double m_dLockWait = 0.0;     // seconds
    std::string m_sEngineOutput;  // first printable line that the engine said
};
