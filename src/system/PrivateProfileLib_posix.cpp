#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/IniText.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFileMax = std::size_t{64} << 20;
constexpr const char* kTooLarge = "it is larger than 64 MB";
constexpr int kPipeWaitSeconds = 60;

/// Closes a file descriptor.
class Descriptor {
public:
    explicit Descriptor(int nFile) : m_nFile(nFile) {}
    ~Descriptor()
    {
        if (m_nFile >= 0)
            close(m_nFile);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int Get() const { return m_nFile; }

private:
    int m_nFile;
};

/// Waits until a pipe that was opened non-blocking has data, or its writer is gone.
Result<void> DataWait(int nFile)
{
    constexpr int kMilliseconds = 1000;
    pollfd entry{nFile, POLLIN, 0};
    int nReady = -1;
    while ((nReady = poll(&entry, 1, kPipeWaitSeconds * kMilliseconds)) < 0 && errno == EINTR) {
    }
    if (nReady == 0)
        return RunError{"no data came for " + std::to_string(kPipeWaitSeconds) + " s"};
    return {};
}

Result<std::string> BytesGet(int nFile, bool bPipe)
{
    std::string sBytes;
    std::array<char, std::size_t{64} << 10> aBlock{};
    for (;;) {
        if (const auto res = bPipe ? DataWait(nFile) : Result<void>(); !res)
            return res.ErrorGet();
        const ssize_t nRead = read(nFile, aBlock.data(), aBlock.size());
        if (nRead == 0)
            return sBytes;
        if (nRead < 0 && errno != EINTR && errno != EAGAIN)
            return RunError{kPathFileAccessError};
        sBytes.append(aBlock.data(), static_cast<std::size_t>(std::max<ssize_t>(nRead, 0)));
        if (sBytes.size() > kFileMax)
            return RunError{kTooLarge};
    }
}

/// The bytes of a file that the user named: an ordinary one or a pipe.
Result<std::string> NamedFileRead(std::string_view sFile)
{
    if (const auto res = PrivateProfileCheck(sFile); !res)
        return res.ErrorGet();
    const Descriptor file(open(std::string(sFile).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat info {};
    if (file.Get() < 0 || fstat(file.Get(), &info) != 0)
        return RunErrorFromErrno(errno);
    return BytesGet(file.Get(), S_ISFIFO(info.st_mode));
}

std::string ValueOr(const IniText& text, std::string_view sSection, std::string_view sKey,
                    std::string_view sDefault, int nBufferSize)
{
    const std::size_t nMax = nBufferSize > 1 ? static_cast<std::size_t>(nBufferSize - 1) : 0;
    if (auto sValue = text.ValueGet(sSection, sKey, nMax))
        return std::move(*sValue);
    return Utf8FromWindows1252(std::string_view(Windows1252FromUtf8(sDefault)).substr(0, nMax));
}

}  // namespace

Result<void> PrivateProfileCheck(std::string_view sFile)
{
    const std::string sHost(sFile);
    struct stat info {};
    if (stat(sHost.c_str(), &info) != 0)
        return errno == ENOTDIR ? RunError{kPathNotFound} : RunErrorFromErrno(errno);
    if (S_ISDIR(info.st_mode))
        return RunError{"it is a folder"};
    if (!S_ISREG(info.st_mode) && !S_ISFIFO(info.st_mode))
        return RunError{"it is a device"};
    if (S_ISREG(info.st_mode) && info.st_size > static_cast<off_t>(kFileMax))
        return RunError{kTooLarge};
    if (access(sHost.c_str(), R_OK) != 0)
        return RunErrorFromErrno(errno);
    return {};
}

struct PrivateProfile::Content {
    IniText text;
};

PrivateProfile::PrivateProfile(std::shared_ptr<const Content> pContent)
    : m_pContent(std::move(pContent))
{
}

Result<PrivateProfile> PrivateProfile::Open(std::string_view sFile)
{
    auto resBytes = NamedFileRead(sFile);
    if (!resBytes)
        return resBytes.ErrorGet();
    return PrivateProfile(
        std::make_shared<const Content>(Content{IniText(std::move(resBytes.ValueGet()))}));
}

std::string PrivateProfile::Get(std::string_view sSection, std::string_view sKey,
                                std::string_view sDefault, int nBufferSize) const
{
    return ValueOr(m_pContent->text, sSection, sKey, sDefault, nBufferSize);
}

std::string PrivateProfileGet(std::string_view sSection, std::string_view sKey,
                              std::string_view sDefault, int nBufferSize, std::string_view sFile)
{
    auto resBytes = FileRead(sFile, kFileMax);
    const IniText text(resBytes ? std::move(resBytes.ValueGet()) : std::string());
    return ValueOr(text, sSection, sKey, sDefault, nBufferSize);
}

int PrivateProfileWriteAll(std::span<const PrivateProfileValue> aValue, std::string_view sFile)
{
    if (const int nErrno = FileReplaceCheck(sFile))
        return nErrno;
    std::string sBytes;
    std::error_code ec;
    const fs::file_status status = fs::status(fs::path(sFile), ec);
    if (fs::is_fifo(status))
        return ENXIO;  // its reader may never come
    if (fs::is_regular_file(status)) {
        auto resBytes = FileRead(sFile, kFileMax);
        if (!resBytes)
            return EACCES;  // replacing it would lose all its other keys
        sBytes = std::move(resBytes.ValueGet());
    }
    IniText text(sBytes);
    for (const PrivateProfileValue& value : aValue)
        text.ValuePut(value.sSection, value.sKey, value.sValue);
    const std::string sNewBytes = text.BytesGet();
    return sNewBytes == sBytes ? 0 : FileReplaceErrno(sFile, sNewBytes);
}

int PrivateProfileWrite(std::string_view sSection, std::string_view sKey, std::string_view sValue,
                        std::string_view sFile)
{
    const PrivateProfileValue value{std::string(sSection), std::string(sKey), std::string(sValue)};
    return PrivateProfileWriteAll({&value, 1}, sFile);
}
