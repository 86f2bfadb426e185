#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/PathLib.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // less the user's mask
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

std::FILE* StreamMake(int nFile, const char* sMode, int& nErrno)
{
    std::FILE* pFile = nFile >= 0 ? fdopen(nFile, sMode) : nullptr;
    if (!pFile) {
        nErrno = errno;
        if (nFile >= 0)
            close(nFile);
    }
    return pFile;
}

/// The file that a chain of links names, whether it exists or not.
fs::path LinkFollow(fs::path pthFile)
{
    constexpr int kLinksMax = 40;  // the kernel's own limit
    std::error_code ec;
    for (int i = 0; i < kLinksMax && fs::is_symlink(pthFile, ec); ++i)
        pthFile = pthFile.parent_path() / fs::read_symlink(pthFile, ec);
    return pthFile;
}

/// What keeps the old file from being replaced; 0 when nothing does.
int ReplaceCheck(const fs::path& pthFile, struct stat& info, bool& bExists)
{
    bExists = stat(pthFile.c_str(), &info) == 0;
    if (!bExists)
        return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(info.st_mode))
        return EISDIR;
    if ((info.st_mode & kAnyWrite) == 0)
        return EACCES;  // the superuser may, but a file made read-only was meant so
    return access(pthFile.c_str(), W_OK) == 0 ? 0 : errno;
}

int BytesWrite(int nFile, std::string_view sBytes)
{
    while (!sBytes.empty()) {
        const ssize_t nWritten = write(nFile, sBytes.data(), sBytes.size());
        if (nWritten < 0 && errno != EINTR)
            return errno;
        if (nWritten > 0)
            sBytes.remove_prefix(static_cast<std::size_t>(nWritten));
    }
    return 0;
}

/// Opens a new file of an unused name in the folder.
int TemporaryOpen(const fs::path& pthFolder, fs::path& pthTemporary)
{
    constexpr int kTriesMax = 100;
    int nFile = -1;
    for (int i = 0; i < kTriesMax && nFile < 0; ++i) {
        pthTemporary =
            pthFolder / (".hopcast-" + std::to_string(getpid()) + '-' + std::to_string(i));
        nFile = open(pthTemporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
        if (nFile < 0 && errno != EEXIST)
            break;
    }
    return nFile;
}

int TemporaryFill(int nFile, std::string_view sBytes, const struct stat* pOld)
{
    int nErrno = BytesWrite(nFile, sBytes);
    if (pOld) {
        // The owner first: changing it drops permission bits. Only the superuser can give a file
        // away; for others the old owner is lost, as with every editor that replaces files.
        const bool bOther = pOld->st_uid != geteuid() || pOld->st_gid != getegid();
        if (bOther && fchown(nFile, pOld->st_uid, pOld->st_gid) != 0 && errno != EPERM
            && nErrno == 0)
            nErrno = errno;
        if (fchmod(nFile, pOld->st_mode & 07777U) != 0 && nErrno == 0)
            nErrno = errno;
    }
    // On their way before the rename, or a power cut could leave the new name without its bytes.
    // Not waited for: a profile is written key by key, and each wait costs 10 ms and more.
    (void)sync_file_range(nFile, 0, 0, SYNC_FILE_RANGE_WRITE);
    if (close(nFile) != 0 && nErrno == 0)
        nErrno = errno;
    return nErrno;
}

int DeviceWrite(const fs::path& pthDevice, std::string_view sBytes)
{
    const int nFile = open(pthDevice.c_str(), O_WRONLY | O_CLOEXEC);
    if (nFile < 0)
        return errno;
    const int nErrno = BytesWrite(nFile, sBytes);
    return close(nFile) != 0 && nErrno == 0 ? errno : nErrno;
}

}  // namespace

std::FILE* HostFileOpenRead(const std::string& sHostPath, int& nErrno)
{
    // Not blocking: the open of a named pipe would wait for a writer that may never come.
    const int nFile = open(sHostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat info {};
    if (nFile >= 0 && (fstat(nFile, &info) != 0 || !S_ISREG(info.st_mode))) {
        nErrno = EISDIR;
        close(nFile);
        return nullptr;
    }
    return StreamMake(nFile, "rb", nErrno);
}

std::FILE* HostFileOpenWrite(const std::string& sHostPath, int& nErrno)
{
    return StreamMake(
        open(sHostPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kNewFileMode), "wb",
        nErrno);
}

int HostDescriptorOpenNew(const std::string& sHostPath, int& nErrno)
{
    unlink(sHostPath.c_str());
    const int nFile =
        open(sHostPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
             kNewFileMode);
    struct stat info {};
    if (nFile < 0) {
        nErrno = errno;
    } else if (fstat(nFile, &info) != 0 || !S_ISREG(info.st_mode)) {
        nErrno = EISDIR;
        close(nFile);
        return -1;
    }
    return nFile;
}

std::FILE* HostFileOpenNew(const std::string& sHostPath, int& nErrno)
{
    const int nFile = HostDescriptorOpenNew(sHostPath, nErrno);
    return nFile < 0 ? nullptr : StreamMake(nFile, "wb", nErrno);
}

int FileReplaceCheck(std::string_view sPath)
{
    struct stat info {};
    bool bExists = false;
    return ReplaceCheck(LinkFollow(PathToHost(sPath)), info, bExists);
}

int FileReplaceErrno(std::string_view sPath, std::string_view sBytes)
{
    const fs::path pthFile = LinkFollow(PathToHost(sPath));
    struct stat info {};
    bool bExists = false;
    if (const int nErrno = ReplaceCheck(pthFile, info, bExists))
        return nErrno;
    if (bExists && !S_ISREG(info.st_mode))
        return DeviceWrite(pthFile, sBytes);
    fs::path pthTemporary;
    const int nFile = TemporaryOpen(
        pthFile.has_parent_path() ? pthFile.parent_path() : fs::path("."), pthTemporary);
    if (nFile < 0)
        return errno;
    int nErrno = TemporaryFill(nFile, sBytes, bExists ? &info : nullptr);
    if (nErrno == 0 && rename(pthTemporary.c_str(), pthFile.c_str()) != 0)
        nErrno = errno;
    if (nErrno != 0)
        unlink(pthTemporary.c_str());
    return nErrno;
}
