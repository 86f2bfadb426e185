#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "system/Deadline.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

/// True when the path still names the open file: the last holder may have removed it meanwhile, and
/// a lock on a file without a name locks nobody out.
bool FileHasName(int nFile, const std::string& sPath)
{
    struct stat infoOpen {};
    struct stat infoNamed {};
    return fstat(nFile, &infoOpen) == 0 && stat(sPath.c_str(), &infoNamed) == 0
           && infoOpen.st_dev == infoNamed.st_dev && infoOpen.st_ino == infoNamed.st_ino;
}

/// Opens the lock's file without following a link and without waiting for a named pipe's other end.
/// Anything under its name that is not an ordinary file is nobody's lock, and is deleted.
int LockOpen(const std::string& sPath)
{
    constexpr mode_t kMode = 0666;
    constexpr int kFlags = O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    for (bool bSecond = false;; bSecond = true) {
        int nFile = open(sPath.c_str(), O_RDWR | kFlags, kMode);
        if (nFile < 0 && errno == EACCES)  // another user's file can still be locked
            nFile = open(sPath.c_str(), O_RDONLY | kFlags, kMode);
        struct stat info {};
        if (nFile >= 0 && fstat(nFile, &info) == 0 && S_ISREG(info.st_mode))
            return nFile;
        const int nErrno = nFile < 0 ? errno : EINVAL;
        if (nFile >= 0)
            close(nFile);
        if (bSecond || (nErrno != EINVAL && nErrno != ELOOP && nErrno != ENXIO)
            || unlink(sPath.c_str()) != 0) {
            errno = nErrno;
            return -1;
        }
    }
}

/// One try. @return the locked file, or -1 with errno set (EWOULDBLOCK: another holds it).
int LockTry(const std::string& sPath)
{
    const int nFile = LockOpen(sPath);
    if (nFile < 0)
        return -1;
    int nErrno = flock(nFile, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
    if (nErrno == 0 && FileHasName(nFile, sPath)) {
        (void)!ftruncate(nFile, 0);  // removes a killed program's note, which names another engine
        return nFile;
    }
    if (nErrno == 0 || nErrno == EINTR)
        nErrno = EWOULDBLOCK;
    close(nFile);
    errno = nErrno;
    return -1;
}

/// True when a process exists and is not a zombie.
bool ProcessLives(pid_t nId)
{
    if (kill(nId, 0) != 0)
        return errno != ESRCH;
    const auto resState = FileReadHead("/proc/" + std::to_string(nId) + "/stat", 4096);
    if (!resState)
        return true;
    const std::string& sState = resState.ValueGet();  // "1234 (name) S ..."
    const std::size_t nName = sState.rfind(") ");
    return nName == std::string::npos || sState.compare(nName + 2, 1, "Z") != 0;
}

/// True when the system says that a process of the group has the file open.
bool GroupHasOpen(pid_t nGroup, const struct stat& infoFile)
{
#ifdef __linux__
    std::error_code ec;
    for (fs::directory_iterator itr("/proc", ec), itrEnd; !ec && itr != itrEnd; itr.increment(ec)) {
        const auto resId = NumberFromText(itr->path().filename().native());
        if (!resId || getpgid(static_cast<pid_t>(resId.ValueGet())) != nGroup)
            continue;
        std::error_code ecFile;
        for (fs::directory_iterator itrFile(itr->path() / "fd", ecFile);
             !ecFile && itrFile != itrEnd; itrFile.increment(ecFile)) {
            struct stat info {};
            if (stat(itrFile->path().c_str(), &info) == 0 && info.st_dev == infoFile.st_dev
                && info.st_ino == infoFile.st_ino)
                return true;
        }
    }
    return false;
#else
    (void)nGroup;
    (void)infoFile;
    return true;
#endif
}

/// Ends an engine that holds the lock although the Hopcast that started it is gone. The system ends
/// only the engine's first process, not what that has started.
void OrphanEnd(const std::string& sPath)
{
    constexpr auto kAge = std::chrono::seconds(10);  // longer than any run
    constexpr std::size_t kNoteMax = 64;
    struct stat info {};
    if (lstat(sPath.c_str(), &info) != 0 || !S_ISREG(info.st_mode)
        || std::chrono::system_clock::now() - std::chrono::system_clock::from_time_t(info.st_mtime)
               < kAge)
        return;
    const auto resNote = FileReadHead(sPath, kNoteMax);
    if (!resNote)
        return;
    const std::string_view sBytes = resNote.ValueGet();
    const std::string_view sNote = sBytes.substr(0, sBytes.find('\n'));
    const std::size_t nBlank = sNote.find(' ');
    if (nBlank == std::string_view::npos)
        return;
    const auto resOwner = NumberFromText(sNote.substr(0, nBlank));
    const auto resGroup = NumberFromText(sNote.substr(nBlank));
    if (!resOwner || !resGroup || resOwner.ValueGet() <= 1.0 || resGroup.ValueGet() <= 1.0)
        return;
    const auto nGroup = static_cast<pid_t>(resGroup.ValueGet());
    if (!ProcessLives(static_cast<pid_t>(resOwner.ValueGet())) && GroupHasOpen(nGroup, info))
        kill(-nGroup, SIGKILL);
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
        if (FileHasName(nFile, sPath))  // while it is held, so that it cannot be another's file
            unlink(sPath.c_str());
        close(nFile);
    }
};

Result<FileLock> FileLock::FileTake(const std::string& sPath, double dSeconds,
                                    const std::stop_token& stop)
{
    constexpr std::chrono::milliseconds kStep(2);
    const Deadline deadline(dSeconds);
    const std::string sHost(sPath);
    constexpr int kLookEvery = 100;  // steps
    for (int i = 0;; ++i) {
        const int nFile = LockTry(sHost);
        if (nFile >= 0)
            return FileLock(std::make_unique<Handle>(nFile, sHost));
        if (errno == ENOENT || errno == ENOTDIR)
            return RunError{kPathNotFound};
        if (errno != EWOULDBLOCK)
            return RunErrorFromErrno(errno);
        if (i % kLookEvery == 0)
            OrphanEnd(sHost);
        if (deadline.IsOver() || stop.stop_requested())
            return RunError{kPermissionDenied};
        std::this_thread::sleep_for(kStep);
    }
}

int FileLock::DescriptorGet() const { return m_pHandle->nFile; }

FileLock::FileLock(std::unique_ptr<Handle> pHandle) : m_pHandle(std::move(pHandle)) {}
FileLock::FileLock(FileLock&&) noexcept = default;
FileLock& FileLock::operator=(FileLock&&) noexcept = default;
FileLock::~FileLock() = default;
