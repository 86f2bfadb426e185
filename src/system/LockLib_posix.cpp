#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "system/LockLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"

namespace {

using Clock = std::chrono::steady_clock;

/// True when the path still names the open file: its last holder may have removed it meanwhile, and
/// a lock on a file without a name keeps nobody out.
bool FileHasName(int nFile, const std::string& sPath)
{
    struct stat infoOpen {};
    struct stat infoNamed {};
    return fstat(nFile, &infoOpen) == 0 && stat(sPath.c_str(), &infoNamed) == 0
           && infoOpen.st_dev == infoNamed.st_dev && infoOpen.st_ino == infoNamed.st_ino;
}

/// One try. @return the locked file, or -1 with errno set (EWOULDBLOCK: another holds it).
int LockTry(const std::string& sPath)
{
    constexpr mode_t kMode = 0666;
    const int nFile = open(sPath.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kMode);
    if (nFile < 0)
        return -1;
    int nErrno = flock(nFile, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
    if (nErrno == 0 && FileHasName(nFile, sPath))
        return nFile;
    if (nErrno == 0 || nErrno == EINTR)
        nErrno = EWOULDBLOCK;
    close(nFile);
    errno = nErrno;
    return -1;
}

}  // namespace

struct FileLock::Handle {
    int nFile;
    std::string sPath;

    Handle(int nOpen, std::string sName) : nFile(nOpen), sPath(std::move(sName)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle()
    {
        unlink(sPath.c_str());  // while it is held, so that only this lock's file can be meant
        close(nFile);
    }
};

Result<FileLock> FileLock::FileTake(const std::string& sPath, double dSeconds)
{
    constexpr double kSecondsMax = 1e6;
    constexpr std::chrono::milliseconds kStep(2);
    const double dLimit = dSeconds > 0.0 ? std::min(dSeconds, kSecondsMax) : 0.0;
    const auto timeEnd =
        Clock::now()
        + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(dLimit));
    const std::string sHost = PathToHost(sPath);
    for (;;) {
        const int nFile = LockTry(sHost);
        if (nFile >= 0)
            return FileLock(std::make_unique<Handle>(nFile, sHost));
        if (errno == ENOENT || errno == ENOTDIR)
            return RunError{kPathNotFound};
        if (errno != EWOULDBLOCK)
            return RunErrorFromErrno(errno);
        if (Clock::now() >= timeEnd)
            return RunError{kPermissionDenied};
        std::this_thread::sleep_for(kStep);
    }
}

FileLock::FileLock(std::unique_ptr<Handle> pHandle) : m_pHandle(std::move(pHandle)) {}
FileLock::FileLock(FileLock&&) noexcept = default;
FileLock& FileLock::operator=(FileLock&&) noexcept = default;
FileLock::~FileLock() = default;
