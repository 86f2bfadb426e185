/// @file EngineRun.h
/// One attempt to run an engine program: lock, deck, start, wait. Point-to-point and area runs both
/// use it.
///
/// Errors:  a Failure, with the text of the procedure's message box.
/// Threads: an attempt stays on one thread; several may run at once.
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

/// The first words of a procedure's messages, by the stage at which a run failed.
struct EngineTexts {
    std::string_view sOpen;
    std::string_view sOutput;
    std::string_view sShell;
    std::string_view sInput;
    std::string_view sNotFinished;  ///< the whole message
    bool bOldOutputStops;           ///< fails before the start if an old output cannot be removed
};

/// The task of an attempt. Paths are below kEngineRoot, as the contract spells them.
struct EngineTask {
    const EngineProgram* pEngine = nullptr;
    const EngineTexts* pTexts = nullptr;
    std::vector<std::string> asArguments;  ///< after the root
    std::string sDeck;
    std::string sOutput;
    std::function<Result<std::string>()> fnDeck;
    int nGridSize =
        0;  ///< points per side of an area, for the advice after a run that took too long
};

/// How and where a request's engine runs.
struct EngineWay {
    std::stop_token stop = {};
    /// Run each attempt in its own folder, without the root's lock: for engines whose program reads
    /// only its deck and the antennas from the root.
    bool bOwnFolder = false;
    /// Chosen once for all of a request's runs: a package that is installed in between would
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

    /// False if its own folder could not be made.
    [[nodiscard]] bool IsThere() const { return !m_sFolder.empty(); }
    [[nodiscard]] bool IsOwn() const { return m_bOwn; }
    /// Host path of a path below kEngineRoot.
    [[nodiscard]] std::string Path(std::string_view sPath) const;
    /// Host path of a program, which is always in the shared root.
    [[nodiscard]] std::string ProgramPath(int iModel) const;
    /// A path below kEngineRoot as the program's command line names it.
    [[nodiscard]] std::string WordGet(std::string_view sPath, bool bWindowsProgram) const;

private:
    EngineRoot m_root;
    std::string m_sFolder;
    bool m_bOwn;
    std::optional<FileLock> m_owner;  // tells what a killed program left from what is in use
};

/// One attempt. Its time limit counts from its construction.
class EngineAttempt {
public:
    EngineAttempt(EngineTask task, const EngineWay& way);

    /// Runs the engine. @return nothing when its output can be read.
    [[nodiscard]] std::optional<Failure> Run();
    /// Host path of the output.
    [[nodiscard]] std::string OutputPath() const { return m_pPlace->Path(m_task.sOutput); }
    /// A failure at the reading stage, with the error's description.
    [[nodiscard]] Failure InputFailure(const std::string& sError) const;
    [[nodiscard]] const std::shared_ptr<EnginePlace>& PlaceGet() const { return m_pPlace; }
    /// Passes on the root's lock, which keeps others from writing there.
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
    std::string m_sEngineOutput;  // first printable line of the engine's console output
};
