/// @file FakeEngine.h
/// A throw-away engine root with small shell scripts in place of the engines. On Windows a program
/// runs them (FakeEngineProgram.cpp) and supports only what the tests there need.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "propagation/itshfbc/EngineProgram.h"
#include "propagation/itshfbc/EngineRun.h"
#include "support/TempFolder.h"

class FakeRoot {
public:
    FakeRoot();
    /// Fails the test if a process of the scripts is still running after 2 seconds, or if a lock or
    /// a temporary file is left.
    ~FakeRoot();
    FakeRoot(const FakeRoot&) = delete;
    FakeRoot& operator=(const FakeRoot&) = delete;

    [[nodiscard]] std::string Path(std::string_view sName) const { return m_folder.Path(sName); }
    /// Puts a script (run by sh in the root folder; $1 is the root) in an engine's place. Its
    /// process id goes to `pids`, its arguments to `calls`, each deck to `deck.N`, N from 1.
    void Engine(std::string_view sProgram, const std::string& sScript) const;
    /// An engine whose output is a copy of a captured file.
    void EngineCopying(std::string_view sProgram, const std::string& sCaptured) const;
    /// How often scripts have been started so far.
    [[nodiscard]] int CallCount() const;
    /// The deck of the nth start.
    [[nodiscard]] std::string DeckGet(int nCall) const;
    /// Files of a folder, sorted.
    [[nodiscard]] std::vector<std::string> Names(std::string_view sFolder) const;

private:
    TempFolder m_folder;
    EnvironmentSet m_environment;
};

/// Shortens the limit of an attempt while the object exists.
class EngineLimit {
public:
    explicit EngineLimit(double dSeconds) : m_dBefore(EngineLimitSet(dSeconds)) {}
    ~EngineLimit() { EngineLimitSet(m_dBefore); }
    EngineLimit(const EngineLimit&) = delete;
    EngineLimit& operator=(const EngineLimit&) = delete;

private:
    double m_dBefore;
};

/// Collects the failures of one call and shows them as boxes when the call is over, so that a
/// MsgRecorder sees them and an unexpected one fails the test.
class ToldFailures {
public:
    ToldFailures() = default;
    ~ToldFailures();
    ToldFailures(const ToldFailures&) = delete;
    ToldFailures& operator=(const ToldFailures&) = delete;
    operator std::vector<Failure>&() { return m_aFailures; }  // NOLINT

private:
    std::vector<Failure> m_aFailures;
};

/// Shows a failure as a box. @return true if there was none
bool Succeeded(const std::optional<Failure>& failure);

/// The latest failure that ToldFailures and Succeeded have seen; an empty one of the kind Cancelled
/// if the latest call had none.
const Failure& FailureLast();

/// True if the process exists and is no zombie.
bool ProcessIsAlive(int nProcessId);
