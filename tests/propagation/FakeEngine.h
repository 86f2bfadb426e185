/// @file FakeEngine.h
/// A throw-away engine root with small shell scripts in the places of the engines. On Windows a
/// program reads them (FakeEngineProgram.cpp), and knows only what the tests there need.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "propagation/EngineLib.h"
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

/// True when the process is there and no zombie.
bool ProcessIsAlive(int nProcessId);
