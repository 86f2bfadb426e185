#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <string>

#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/PathLib.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // less the user's umask
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

/// The file at the end of a chain of links, even if it does not exist.
fs::path LinkFollow(fs::path pthFile)
{
    constexpr int kLinksMax = 40;  // the kernel's own limit
    std::error_code ec;
    for (int i = 0; i < kLinksMax && fs::is_symlink(pthFile, ec); ++i)
        pthFile = pthFile.parent_path() / fs::read_symlink(pthFile, ec);
    return pthFile;
}

/// The errno of what prevents replacing the old file; 0 when nothing does.
int ReplaceCheck(const fs::path& pthFile, struct stat& info, bool& bExists)
{
    bExists = stat(pthFile.c_str(), &info) == 0;
    if (!bExists)
        return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(info.st_mode))
        return EISDIR;
    if ((info.st_mode & kAnyWrite) == 0)
        return EACCES;  // the superuser could, but somebody made this file read-only
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

/// Opens a new file with an unused name in the folder.
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
        // The owner first: changing it clears permission bits. Only the superuser can give a file
        // away; for others the old owner is lost, as with every editor that replaces files.
        const bool bOther = pOld->st_uid != geteuid() || pOld->st_gid != getegid();
        if (bOther && fchown(nFile, pOld->st_uid, pOld->st_gid) != 0 && errno != EPERM
            && nErrno == 0)
            nErrno = errno;
        if (fchmod(nFile, pOld->st_mode & 07777U) != 0 && nErrno == 0)
            nErrno = errno;
    }
    // Before the rename: otherwise a power cut could leave the new name without its bytes.
    if (fsync(nFile) != 0 && errno != EINVAL && nErrno == 0)
        nErrno = errno;
    if (close(nFile) != 0 && nErrno == 0)
        nErrno = errno;
    return nErrno;
}

/// The open descriptor of this program that a path names ("/dev/stdout", "/dev/fd/3", and links to
/// them); -1 for any other path.
int DescriptorOf(fs::path pthFile)
{
    constexpr std::array<std::string_view, 2> kNames{"/dev/stdout", "/dev/stderr"};
    constexpr std::array<std::string_view, 2> kFolders{"/dev/fd/", "/proc/self/fd/"};
    constexpr int kLinksMax = 40;
    std::error_code ec;
    for (int i = 0; i < kLinksMax; ++i) {
        const std::string& sPath = pthFile.native();
        for (std::size_t n = 0; n < kNames.size(); ++n) {
            if (sPath == kNames[n])
                return static_cast<int>(n) + STDOUT_FILENO;
        }
        for (const std::string_view sFolder : kFolders) {
            const char* pEnd = sPath.data() + sPath.size();
            int nFile = -1;
            if (sPath.starts_with(sFolder)
                && std::from_chars(sPath.data() + sFolder.size(), pEnd, nFile).ptr == pEnd)
                return nFile;
        }
        if (!fs::is_symlink(pthFile, ec))
            break;
        pthFile = pthFile.parent_path() / fs::read_symlink(pthFile, ec);
    }
    return -1;
}

/// Writes to an open file at its current position, as the shell's redirection needs it.
int DescriptorWrite(int nDescriptor, std::string_view sBytes)
{
    const int nFile = fcntl(nDescriptor, F_DUPFD_CLOEXEC, 0);
    if (nFile < 0)
        return errno;
    const int nErrno = BytesWrite(nFile, sBytes);
    return close(nFile) != 0 && nErrno == 0 ? errno : nErrno;
}

/// Writes into the old file itself, if its folder takes no temporary file. The extra space is
/// reserved first, so that a full disk leaves the file as it was.
int InPlaceWrite(const fs::path& pthFile, std::string_view sBytes)
{
    const int nFile = open(pthFile.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
    if (nFile < 0)
        return errno;
    const auto nSize = static_cast<off_t>(sBytes.size());
    struct stat info {};
    int nErrno = fstat(nFile, &info) == 0 ? 0 : errno;
    if (nErrno == 0 && nSize > info.st_size)
        nErrno = posix_fallocate(nFile, info.st_size, nSize - info.st_size);
    if (nErrno != 0)
        (void)!ftruncate(nFile, info.st_size);
    else
        nErrno = BytesWrite(nFile, sBytes);
    if (nErrno == 0 && ftruncate(nFile, nSize) != 0)
        nErrno = errno;
    return close(nFile) != 0 && nErrno == 0 ? errno : nErrno;
}

/// True for the errors that come from the folder, not from the file.
bool FolderRefuses(int nErrno)
{
    return nErrno == EACCES || nErrno == EPERM || nErrno == EROFS || nErrno == EBUSY;
}

int DeviceWrite(const fs::path& pthDevice, std::string_view sBytes)
{
    const int nFile = open(pthDevice.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (nFile < 0)
        return errno;
    const int nErrno = BytesWrite(nFile, sBytes);
    return close(nFile) != 0 && nErrno == 0 ? errno : nErrno;
}

}  // namespace

std::FILE* HostFileOpenRead(const std::string& sHostPath, int& nErrno)
{
    // Not blocking: opening a named pipe would wait for a writer that may never come.
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
    return ReplaceCheck(LinkFollow(fs::path(sPath)), info, bExists);
}

int FileReplaceErrno(std::string_view sPath, std::string_view sBytes)
{
    const fs::path pthNamed(sPath);
    if (const int nDescriptor = DescriptorOf(pthNamed); nDescriptor >= 0)
        return DescriptorWrite(nDescriptor, sBytes);
    const fs::path pthFile = LinkFollow(pthNamed);
    struct stat info {};
    bool bExists = false;
    if (const int nErrno = ReplaceCheck(pthFile, info, bExists))
        return nErrno;
    if (bExists && !S_ISREG(info.st_mode))
        return DeviceWrite(pthFile, sBytes);
    fs::path pthTemporary;
    const int nFile = TemporaryOpen(
        pthFile.has_parent_path() ? pthFile.parent_path() : fs::path("."), pthTemporary);
    if (nFile < 0) {
        const int nErrno = errno;
        return bExists && FolderRefuses(nErrno) ? InPlaceWrite(pthFile, sBytes) : nErrno;
    }
    int nErrno = TemporaryFill(nFile, sBytes, bExists ? &info : nullptr);
    if (nErrno == 0 && rename(pthTemporary.c_str(), pthFile.c_str()) != 0)
        nErrno = bExists && FolderRefuses(errno) ? InPlaceWrite(pthFile, sBytes) : errno;
    else if (nErrno == 0)
        return 0;
    unlink(pthTemporary.c_str());
    return nErrno;
}
