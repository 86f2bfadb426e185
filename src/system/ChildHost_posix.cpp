#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <utility>

#include "system/ChildHost.h"
#include "system/FileHost.h"

FileHandle::FileHandle(FileHandle&& other) noexcept : m_nFile(std::exchange(other.m_nFile, -1)) {}

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept
{
    if (this != &other) {
        Close();
        m_nFile = std::exchange(other.m_nFile, -1);
    }
    return *this;
}

void FileHandle::Close()
{
    if (m_nFile >= 0)
        close(m_nFile);
    m_nFile = -1;
}

int ChildOutput::Open(const std::string& sHostPath)
{
    if (sHostPath.empty()) {
        m_writeEnd = FileHandle(open("/dev/null", O_WRONLY | O_CLOEXEC));
        return m_writeEnd.Get() < 0 ? errno : 0;
    }
    int nErrno = 0;
    m_file = FileHandle(HostDescriptorOpenNew(sHostPath, nErrno));
    if (m_file.Get() < 0)
        return nErrno;
    std::array<int, 2> anEnds{-1, -1};
    if (pipe2(anEnds.data(), O_CLOEXEC) != 0)
        return errno;
    m_readEnd = FileHandle(anEnds[0]);
    m_writeEnd = FileHandle(anEnds[1]);
    fcntl(m_readEnd.Get(), F_SETFL, O_NONBLOCK);  // only this end
    return 0;
}

void ChildOutput::Drain()
{
    std::array<char, std::size_t{64} << 10> aBlock{};
    for (std::size_t nTaken = 0; m_readEnd.Get() >= 0 && nTaken < kKeptMax;) {
        const ssize_t nRead = read(m_readEnd.Get(), aBlock.data(), aBlock.size());
        if (nRead < 0 && errno == EINTR)
            continue;
        if (nRead < 0 && errno == EAGAIN)
            return;
        if (nRead <= 0) {
            m_readEnd.Close();
            return;
        }
        nTaken += static_cast<std::size_t>(nRead);
        const std::size_t nKeep = std::min(static_cast<std::size_t>(nRead), kKeptMax - m_nKept);
        // What does not fit on a full disk is lost: it would only have explained an error.
        if (nKeep > 0 && write(m_file.Get(), aBlock.data(), nKeep) > 0)
            m_nKept += nKeep;
    }
}

namespace {

constexpr int kLockDescriptor = 3;
constexpr int kFilesUsual = 1024;  ///< the usual limit of a program's open files

/// Blocks all signals, so that no handler of this program runs in the child.
class SignalsBlocked {
public:
    SignalsBlocked()
    {
        sigset_t setAll;
        sigfillset(&setAll);
        pthread_sigmask(SIG_SETMASK, &setAll, &m_setBefore);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_setBefore, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t m_setBefore{};
};

/// Everything that the child needs, prepared before it exists: until it becomes the program it
/// shares this one's memory, and may neither allocate nor lock. The descriptors are above those
/// that the program gets.
struct ChildPlan {
    std::vector<char*> m_apWords;
    std::vector<char*> m_apEnvironment;
    const char* sFolder = nullptr;
    int nInput = -1;
    int nOutput = -1;
    int nLock = -1;
    int nReport = -1;  ///< receives the errno of a failure; closes when the program runs
    bool bOwnGroup = false;
    pid_t nParent = 0;
};

/// Writes "OWNER ENGINE" into the lock file, for those who wait (LockLib).
void HolderNote(const ChildPlan& plan)
{
    std::array<char, 64> aText{};
    char* pEnd = std::to_chars(aText.begin(), aText.end(), plan.nParent).ptr;
    *pEnd++ = ' ';
    pEnd = std::to_chars(pEnd, aText.end(), getpid()).ptr;
    *pEnd++ = '\n';
    // Another user's file cannot be written, but its lock works all the same.
    if (ftruncate(plan.nLock, 0) == 0)
        (void)!pwrite(plan.nLock, aText.data(), static_cast<std::size_t>(pEnd - aText.begin()), 0);
}

void ChildSignalsReset()
{
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    for (int nSignal = 1; nSignal < NSIG; ++nSignal) sigaction(nSignal, &action, nullptr);
    sigset_t setNone;
    sigemptyset(&setNone);
    sigprocmask(SIG_SETMASK, &setNone, nullptr);
}

/// The child's half, until it becomes the program. Makes system calls only.
[[noreturn]] void ChildBecome(const ChildPlan& plan)
{
    constexpr int kLost = 127;
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != plan.nParent)
        _exit(kLost);  // the parent died before the order took effect
#endif
    bool bOk = !plan.bOwnGroup || setpgid(0, 0) == 0;
    bOk = bOk && (plan.sFolder == nullptr || chdir(plan.sFolder) == 0);
    bOk = bOk && dup2(plan.nInput, STDIN_FILENO) >= 0 && dup2(plan.nOutput, STDOUT_FILENO) >= 0
          && dup2(plan.nOutput, STDERR_FILENO) >= 0;
    int nFirstOther = STDERR_FILENO + 1;
    if (bOk && plan.nLock >= 0) {
        HolderNote(plan);
        bOk = dup2(plan.nLock, kLockDescriptor) >= 0;
        nFirstOther = kLockDescriptor + 1;
    }
    if (plan.bOwnGroup
        && close_range(static_cast<unsigned>(nFirstOther), ~0U, CLOSE_RANGE_CLOEXEC) != 0)
        for (int nFile = nFirstOther; nFile < kFilesUsual; ++nFile)  // a kernel before 5.11
            fcntl(nFile, F_SETFD, FD_CLOEXEC);
    if (bOk) {
        ChildSignalsReset();
        execve(plan.m_apWords[0], plan.m_apWords.data(), plan.m_apEnvironment.data());
    }
    const int nErrno = errno;
    (void)!write(plan.nReport, &nErrno, sizeof nErrno);
    _exit(kLost);
}

std::vector<char*> PointersMake(std::vector<std::string>& asWords)
{
    std::vector<char*> apWords;
    apWords.reserve(asWords.size() + 1);
    for (std::string& sWord : asWords) apWords.push_back(sWord.data());
    apWords.push_back(nullptr);
    return apWords;
}

/// A second descriptor for an open file, above those that the program gets.
FileHandle HighDuplicate(int nFile)
{
    constexpr int kHigh = 10;
    return FileHandle(nFile < 0 ? -1 : fcntl(nFile, F_DUPFD_CLOEXEC, kHigh));
}

/// Waits until the child has become the program. @return 0, or the errno of what prevented it.
int ReportRead(int nFile)
{
    int nErrno = 0;
    ssize_t nRead = -1;
    do nRead = read(nFile, &nErrno, sizeof nErrno);
    while (nRead < 0 && errno == EINTR);
    return nRead == sizeof nErrno ? nErrno : 0;
}

}  // namespace

int HostChildStart(ChildStart start, pid_t& nId)
{
    std::array<int, 2> anEnds{-1, -1};
    if (pipe2(anEnds.data(), O_CLOEXEC) != 0)
        return errno;
    const FileHandle reportRead(anEnds[0]);
    FileHandle reportWrite(anEnds[1]);
    FileHandle report = HighDuplicate(reportWrite.Get());
    reportWrite.Close();
    const FileHandle null(open("/dev/null", O_RDONLY | O_CLOEXEC));
    const FileHandle input = HighDuplicate(null.Get());
    const FileHandle output = HighDuplicate(start.nOutput);
    const FileHandle lock = HighDuplicate(start.nLock);
    if (report.Get() < 0 || input.Get() < 0 || output.Get() < 0
        || (start.nLock >= 0 && lock.Get() < 0))
        return errno;
    ChildPlan plan{PointersMake(start.asWords),
                   PointersMake(start.asEnvironment),
                   start.sFolder.empty() ? nullptr : start.sFolder.c_str(),
                   input.Get(),
                   output.Get(),
                   lock.Get(),
                   report.Get(),
                   start.bOwnGroup,
                   getpid()};
    {
        const SignalsBlocked signalsBlocked;
        // As posix_spawn does, which cannot give the order to die with this program: no memory is
        // copied. This thread waits until the child has become the program or has ended.
        nId = vfork();  // NOLINT(clang-analyzer-security.insecureAPI.vfork)
        if (nId == 0)
            ChildBecome(plan);
    }
    if (nId < 0)
        return errno;
    report.Close();
    const int nErrno = ReportRead(reportRead.Get());
    if (nErrno != 0)
        waitpid(nId, nullptr, 0);
    return nErrno;
}

std::vector<std::string> EnvironmentCopy()
{
    std::vector<std::string> asEnvironment;
    for (char** pWord = environ; *pWord != nullptr; ++pWord) asEnvironment.emplace_back(*pWord);
    return asEnvironment;
}
