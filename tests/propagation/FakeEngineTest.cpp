// The throw-away root itself: what its destructor tolerates, and what it reports.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "propagation/FakeEngine.h"

namespace {

/// A sleeping process, listed among those of the scripts.
pid_t SleeperStart(const FakeRoot& root, unsigned nMicroseconds)
{
    const pid_t nId = fork();
    if (nId == 0) {
        usleep(nMicroseconds);
        _exit(0);
    }
    std::ofstream(root.Path("pids")) << nId << '\n';
    return nId;
}

TEST(FakeRoot, ForgivesAProcessThatIsGoneInAMoment)
{
    pid_t nId = 0;
    {
        const FakeRoot root;
        nId = SleeperStart(root, 500000);
        EXPECT_TRUE(ProcessIsAlive(nId));
    }
    EXPECT_FALSE(ProcessIsAlive(nId)) << "a zombie is gone";
    EXPECT_EQ(waitpid(nId, nullptr, 0), nId);
}

TEST(FakeRoot, TellsAProcessThatStays)
{
    static pid_t nId = 0;
    EXPECT_NONFATAL_FAILURE(
        {
            const FakeRoot root;
            nId = SleeperStart(root, 60000000);
        },
        "is left running");
    EXPECT_TRUE(ProcessIsAlive(nId));
    kill(nId, SIGKILL);
    EXPECT_EQ(waitpid(nId, nullptr, 0), nId);
}

TEST(FakeRoot, TellsAFileThatIsLeft)
{
    EXPECT_NONFATAL_FAILURE(
        {
            const FakeRoot root;
            std::ofstream(root.Path("RUN/hopcast.txt")) << "x";
        },
        "RUN/hopcast.txt is left");
}

}  // namespace
