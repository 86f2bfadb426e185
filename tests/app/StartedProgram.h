/// @file StartedProgram.h
/// A program of this build that runs beside the test, and the processes that it starts from a
/// folder.
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

/// The destructor kills the program if it is still running.
class StartedProgram {
public:
    /// @param sOutput  file for both output streams
    StartedProgram(const std::vector<std::string>& asWords, const std::string& sOutput);
    ~StartedProgram();
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    void Signal(int nSignal) const;
    /// @return nothing if it is still running when the time is up
    std::optional<ProgramEnd> EndAwait(std::chrono::milliseconds tMax);

private:
    pid_t m_nId = -1;
};

/// Processes whose command line contains the folder or that work in it: engines and what they have
/// started. Zombies do not count.
[[nodiscard]] std::vector<pid_t> ProcessesBelow(const std::string& sFolder);

/// Waits until fnTrue returns true. @return false if the time is up first
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
