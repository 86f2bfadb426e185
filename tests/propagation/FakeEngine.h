/// @file FakeEngine.h
/// A throw-away engine root with small shell scripts in the places of the engines. On Windows a
/// program reads them (FakeEngineProgram.cpp), and knows only what the tests there need.
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
    /// Fails the test when a process of the scripts is still there 2 seconds on, and when a lock or
    /// a temporary file is left.
    ~FakeRoot();
    FakeRoot(const FakeRoot&) = delete;
    FakeRoot& operator=(const FakeRoot&) = delete;

    [[nodiscard]] std::string Path(std::string_view sName) const { return m_folder.Path(sName); }
    /// Puts a script (run by sh in the root folder; $1 is the root) in an engine's place. Its
    /// process id goes to `pids`, its arguments to `calls`, each deck to `deck.N`, N from 1.
    void Engine(std::string_view sProgram, const std::string& sScript) const;
    /// An engine that hands out a captured file as its output.
    void EngineCopying(std::string_view sProgram, const std::string& sCaptured) const;
    /// Starts of all scripts until now.
    [[nodiscard]] int CallCount() const;
    /// The deck of the nth start.
    [[nodiscard]] std::string DeckGet(int nCall) const;
    /// Files of a folder, sorted.
    [[nodiscard]] std::vector<std::string> Names(std::string_view sFolder) const;

private:
    TempFolder m_folder;
    EnvironmentSet m_environment;
};

/// A shorter limit of an attempt while it lives.
class EngineLimit {
public:
    explicit EngineLimit(double dSeconds) : m_dBefore(EngineLimitSet(dSeconds)) {}
    ~EngineLimit() { EngineLimitSet(m_dBefore); }
    EngineLimit(const EngineLimit&) = delete;
    EngineLimit& operator=(const EngineLimit&) = delete;

private:
    double m_dBefore;
};

/// The failures of one call, shown as boxes when it is over, so that a MsgRecorder has them and an
/// unexpected one fails the test.
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

/// Shows a failure as a box. @return true when there was none.
bool Succeeded(const std::optional<Failure>& failure);

/// The latest of the failures that ToldFailures and Succeeded have seen; an empty one of the kind
/// Cancelled when the latest call had none.
const Failure& FailureLast();

/// True when the process is there and no zombie.
bool ProcessIsAlive(int nProcessId);
