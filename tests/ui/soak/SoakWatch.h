/// @file SoakWatch.h
/// Many rounds of the same, and what a process may not pile up meanwhile: memory, file descriptors,
/// threads, processes, windows, temporary and lock files.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "support/TempFolder.h"

/// Bytes.
struct MemoryHeld {
    std::size_t nHeap = 0;      ///< allocated and not freed
    std::size_t nResident = 0;  ///< in the machine's memory
};

struct Holdings {
    std::size_t nDescriptors = 0;
    std::size_t nThreads = 0;
    int nWindows = 0;                  ///< hidden ones and menus included
    bool bChildren = false;            ///< running, or ended and not waited for
    std::vector<std::string> asFiles;  ///< temporary ones, and all of the engine root's
};

/// Rounds to do: all of them with HOPCAST_SOAK=full in the environment, else one in nShare.
[[nodiscard]] int RoundsGet(int nFull, int nShare = 5);

/// While it lives, temporary files go to a folder of its own, and processes that this one's
/// children leave behind become its own children.
class SoakWatch {
public:
    SoakWatch();
    ~SoakWatch();
    SoakWatch(const SoakWatch&) = delete;
    SoakWatch& operator=(const SoakWatch&) = delete;

    /// Fails the test when after all rounds more is held than after the first 100 (at most half of
    /// them). Prints both.
    /// @param fnRound  gets the number of the round, from 1; the first failure ends the rounds
    /// @param fnKept   bytes that caches hold on purpose, which are no growth
    void Rounds(
        int nRounds, const std::function<void(int)>& fnRound,
        const std::function<std::size_t()>& fnKept = [] { return std::size_t{0}; }) const;

private:
    [[nodiscard]] Holdings HoldingsGet() const;

    TempFolder m_folder;
    EnvironmentSet m_environment{"TMPDIR", m_folder.Path()};
};
