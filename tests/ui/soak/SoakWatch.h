/// @file SoakWatch.h
/// Many rounds of the same actions, and what a process must not accumulate: memory, file
/// descriptors, threads, processes, windows, temporary and lock files.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "support/TempFolder.h"

/// In bytes.
struct MemoryHeld {
    std::size_t nHeap = 0;      ///< allocated and not freed
    std::size_t nResident = 0;  ///< in the machine's memory
};

struct Holdings {
    std::size_t nDescriptors = 0;
    std::size_t nThreads = 0;
    int nWindows = 0;                  ///< including hidden ones and menus
    bool bChildren = false;            ///< running, or ended but not waited for
    std::vector<std::string> asFiles;  ///< temporary ones, and all in the engine root
};

/// The number of rounds: nFull with HOPCAST_SOAK=full in the environment, else one in nShare of
/// them.
[[nodiscard]] int RoundsGet(int nFull, int nShare = 10);

/// While the object exists, temporary files go to a folder of its own, and orphaned processes of
/// this one's children become its own children.
class SoakWatch {
public:
    SoakWatch();
    ~SoakWatch();
    SoakWatch(const SoakWatch&) = delete;
    SoakWatch& operator=(const SoakWatch&) = delete;

    /// Fails the test if more is held after all rounds than after the first 100 (or half of them,
    /// if that is fewer); memory may grow by 5 %. Prints both.
    /// @param fnRound  gets the number of the round, from 1; the first failure ends the rounds
    /// @param fnKept   bytes in caches, which do not count as growth
    void Rounds(
        int nRounds, const std::function<void(int)>& fnRound,
        const std::function<std::size_t()>& fnKept = [] { return std::size_t{0}; }) const;

private:
    [[nodiscard]] Holdings HoldingsGet() const;

    TempFolder m_folder;
    EnvironmentSet m_environment{"TMPDIR", m_folder.Path()};
};
