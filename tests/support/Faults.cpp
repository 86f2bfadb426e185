#include "support/Faults.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

namespace {

constexpr uid_t kNobody = 65534;

bool RightsDrop()
{
    return geteuid() != 0
           || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

}  // namespace

void AsUnprivileged(const std::function<void()>& fnTest)
{
    std::fflush(nullptr);
    const pid_t nId = fork();
    ASSERT_GE(nId, 0);
    if (nId == 0) {
        const bool bDropped = RightsDrop();
        EXPECT_TRUE(bDropped) << "cannot become an unprivileged user";
        if (bDropped)
            fnTest();
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int nStatus = 0;
    ASSERT_EQ(waitpid(nId, &nStatus, 0), nId);
    EXPECT_TRUE(WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == 0)
        << "failed as an unprivileged user (see above)";
}

FileSizeLimit::FileSizeLimit(rlim_t nBytes)
{
    m_fnBefore =
        std::signal(SIGXFSZ, SIG_IGN);  // gives an error code instead of ending the program
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit{nBytes, m_before.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

FileSizeLimit::~FileSizeLimit()
{
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_fnBefore);
}
