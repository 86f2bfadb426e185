/// @file StartedProgram.h
/// A program of this build that runs beside the test, and what it has started below a folder.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <vector>

/// How a program ended.
struct ProgramEnd {
    int nStatus = -1;  ///< exit status; -1: ended by a signal
    int nSignal = 0;
};

/// Killed by its destructor when it still runs.
class StartedProgram {
public:
    /// @param sOutput  file that takes both streams
    StartedProgram(const std::vector<std::string>& asWords, const std::string& sOutput);
    ~StartedProgram();
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    void Signal(int nSignal) const;
    /// @return nothing when it still runs at the end of the time.
    std::optional<ProgramEnd> EndAwait(std::chrono::milliseconds tMax);

private:
    pid_t m_nId = -1;
};

/// Processes that are named by a program or a word below the folder, or work in it: engines and
/// what they started. Zombies do not count.
[[nodiscard]] std::vector<pid_t> ProcessesBelow(const std::string& sFolder);

/// Waits until fnTrue answers so. @return false when the time is over.
template <class Fn>
bool Await(Fn fnTrue, std::chrono::milliseconds tMax)
{
    const auto tmEnd = std::chrono::steady_clock::now() + tMax;
    while (!fnTrue()) {
        if (std::chrono::steady_clock::now() >= tmEnd)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}
