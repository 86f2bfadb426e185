/// @file EngineRun.h
/// One run of an engine program, step by step; what point-to-point and area runs have in common.
#pragma once

#include <chrono>
#include <initializer_list>
#include <string>
#include <string_view>

#include "propagation/EngineLib.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/Result.h"

/// The time that an attempt has: it begins with the wait for the lock. A new one forgets what the
/// attempt before left in EngineSaidGet and EngineFailureGet.
class AttemptTimer {
public:
    /// @param nGridSize  points a side of an area run, for the advice after one that took too long;
    ///                   0: a point-to-point run
    explicit AttemptTimer(int nGridSize = 0);
    /// Seconds left, at least 0.
    [[nodiscard]] double LeftGet() const;

private:
    std::chrono::steady_clock::time_point m_tmEnd;
};

/// The lock of the engine root, taken first of all in an attempt.
Result<FileLock> EngineLockTake(const AttemptTimer& timer);

/// Takes an old output away, so that it cannot pass for a new one. A missing one is fine, and so is
/// a folder of that name, which the reader will meet. One that cannot be deleted is emptied.
/// @return the error when neither can be done.
Result<void> OldOutputRemove(std::string_view sPath);

/// Starts the engine with the arguments behind its root. It holds the root's lock, too.
/// @return the process id; 0 when the start gave none.
Result<int> EngineStart(const EngineProgram& engine, const FileLock& lock,
                        std::initializer_list<std::string_view> asArguments);

/// Waits for the engine, at most what the timer has left, and keeps the first line that it said.
/// @return true when it ended by itself with exit code 0.
bool EngineWait(int nProcessId, const AttemptTimer& timer);

/// "Unable to execute ... program.", always shown. @return false
bool EngineNotStarted(const EngineProgram& engine);

/// Opens a deck for output in the place of an old one.
Result<OutputFile> DeckOpen(std::string_view sPath);

/// Writes a deck into an opened file and closes it.
Result<void> DeckWrite(OutputFile& file, const Result<std::string>& resDeck);
