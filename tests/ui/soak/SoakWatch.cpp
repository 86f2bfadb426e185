#include "ui/soak/SoakWatch.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#ifdef __SANITIZE_ADDRESS__
// GCC has the function but not its header.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace fs = std::filesystem;

namespace {

constexpr int kRoundsFirst = 100;
constexpr double kGrowthMax = 1.05;

#ifdef __SANITIZE_ADDRESS__
// The sanitizer holds back freed memory, so only allocated memory is meaningful.
constexpr bool kResidentCounts = false;
std::size_t HeapGet() { return __sanitizer_get_current_allocated_bytes(); }
#else
constexpr bool kResidentCounts = true;
std::size_t HeapGet()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}
#endif

MemoryHeld MemoryGet()
{
    malloc_trim(0);  // what the C library only holds ready is no growth
    std::ifstream stm("/proc/self/statm");
    std::size_t nPages = 0;
    std::size_t nPagesResident = 0;
    stm >> nPages >> nPagesResident;
    return {HeapGet(), nPagesResident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE))};
}

bool ChildrenAreThere()
{
    siginfo_t info{};
    return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

bool GoneAfterARun(const std::string& sFile)
{
    return sFile.ends_with(".lock") || sFile.ends_with(".next") || sFile.ends_with("hopcast.txt");
}

void HeldPrint(int nRound, double dSeconds, const MemoryHeld& memory, std::size_t nKept,
               const Holdings& held)
{
    constexpr double kKb = 1024.0;
    std::printf(
        "after %4d rounds, %5.1f s: heap %.0f KB, resident %.0f KB, caches %.0f KB, "
        "%zu descriptors, %zu threads, %d windows\n",
        nRound, dSeconds, static_cast<double>(memory.nHeap) / kKb,
        static_cast<double>(memory.nResident) / kKb, static_cast<double>(nKept) / kKb,
        held.nDescriptors, held.nThreads, held.nWindows);
    std::fflush(stdout);
}

}  // namespace

int RoundsGet(int nFull, int nShare)
{
    return qEnvironmentVariable("HOPCAST_SOAK") == QStringLiteral("full") ? nFull : nFull / nShare;
}

SoakWatch::SoakWatch() { prctl(PR_SET_CHILD_SUBREAPER, 1L); }

SoakWatch::~SoakWatch() { prctl(PR_SET_CHILD_SUBREAPER, 0L); }

Holdings SoakWatch::HoldingsGet() const
{
    Holdings held;
    held.nDescriptors = static_cast<std::size_t>(
        std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
    held.nThreads = static_cast<std::size_t>(
        std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator()));
    held.nWindows = static_cast<int>(QApplication::topLevelWidgets().size());
    held.bChildren = ChildrenAreThere();
    for (const auto& entry : fs::recursive_directory_iterator(m_folder.Path()))
        held.asFiles.push_back(entry.path().lexically_relative(m_folder.Path()).string());
    std::sort(held.asFiles.begin(), held.asFiles.end());
    return held;
}

void SoakWatch::Rounds(int nRounds, const std::function<void(int)>& fnRound,
                       const std::function<std::size_t()>& fnKept) const
{
    const int nFirst = std::min(kRoundsFirst, nRounds / 2);
    MemoryHeld memoryFirst;
    std::size_t nKeptFirst = 0;
    Holdings heldFirst;
    const auto tmStart = std::chrono::steady_clock::now();
    for (int nRound = 1; nRound <= nRounds && !testing::Test::HasFailure(); ++nRound) {
        fnRound(nRound);
        if (nRound != nFirst && nRound != nRounds)
            continue;
        const std::chrono::duration<double> tmTaken = std::chrono::steady_clock::now() - tmStart;
        const MemoryHeld memory = MemoryGet();
        const std::size_t nKept = fnKept();
        const Holdings held = HoldingsGet();
        HeldPrint(nRound, tmTaken.count(), memory, nKept, held);
        if (nRound == nFirst) {
            memoryFirst = memory;
            nKeptFirst = nKept;
            heldFirst = held;
            EXPECT_FALSE(heldFirst.bChildren);
            continue;
        }
        // Fewer are fine: idle threads of the toolkit end after a while.
        EXPECT_LE(held.nDescriptors, heldFirst.nDescriptors);
        EXPECT_LE(held.nThreads, heldFirst.nThreads);
        EXPECT_LE(held.nWindows, heldFirst.nWindows);
        EXPECT_FALSE(held.bChildren);
        EXPECT_EQ(held.asFiles, heldFirst.asFiles);
        for (const std::string& sFile : held.asFiles) EXPECT_FALSE(GoneAfterARun(sFile)) << sFile;
        const double dKept = double(nKept) - double(nKeptFirst);
        EXPECT_LE(double(memory.nHeap) - dKept, kGrowthMax * double(memoryFirst.nHeap));
        if (kResidentCounts) {
            EXPECT_LE(double(memory.nResident) - dKept, kGrowthMax * double(memoryFirst.nResident));
        }
    }
}
