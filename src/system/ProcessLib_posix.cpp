#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "system/ChildHost.h"
#include "system/DrivePath.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProcessLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

/// Full host path of the program; a bare name is looked for on the search path.
std::string ProgramFind(const std::string& sProgram)
{
    if (sProgram.find('/') == std::string::npos)
        return ProgramSearch(sProgram, EnvironmentGet("PATH"));
    std::error_code ec;
    return fs::absolute(sProgram, ec).native();
}

/// nCount bytes at an offset in a file; fewer when it ends earlier.
std::string BytesAt(const FileHandle& file, off_t nPlace, std::size_t nCount)
{
    std::string sBytes(nCount, '\0');
    const ssize_t nRead =
        file.Get() >= 0 ? pread(file.Get(), sBytes.data(), sBytes.size(), nPlace) : 0;
    sBytes.resize(nRead > 0 ? static_cast<std::size_t>(nRead) : 0);
    return sBytes;
}

FileHandle ProgramOpen(const std::string& sProgram)
{
    return FileHandle(open(sProgram.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

bool IsWindowsProgram(const std::string& sProgram)
{
    return BytesAt(ProgramOpen(sProgram), 0, 2) == "MZ";
}

/// True for a 32-bit Windows program: byte 0x3C holds the offset of the header "PE", and the
/// processor's type follows that.
bool IsWindowsProgram32(const std::string& sProgram)
{
    constexpr std::size_t kHeaderPlace = 0x3C;
    constexpr std::string_view kHeader386("PE\0\0\x4C\x01", 6);
    const FileHandle file = ProgramOpen(sProgram);
    const std::string sStart = BytesAt(file, 0, kHeaderPlace + 4);
    if (sStart.size() < kHeaderPlace + 4 || sStart.substr(0, 2) != "MZ")
        return false;
    std::uint32_t nHeader = 0;
    for (std::size_t i = 4; i-- > 0;)
        nHeader = (nHeader << 8U) + static_cast<unsigned char>(sStart[kHeaderPlace + i]);
    return BytesAt(file, nHeader, kHeader386.size()) == kHeader386;
}

/// True when the Wine prefix is a 64-bit one without 32-bit libraries. (The time stamp is written
/// when the prefix is complete.)
bool WineLacks32()
{
    const std::string sPrefix = WinePrefixGet();
    const std::string sWindows = HostPathBelow(sPrefix + "/drive_c", "/windows");
    std::error_code ec;
    return fs::exists(sPrefix + "/.update-timestamp", ec)
           && fs::is_directory(sWindows + "/syswow64", ec)
           && !fs::exists(sWindows + "/syswow64/ntdll.dll", ec);
}

}  // namespace

RunError StartErrorMake(int nErrno)
{
    switch (nErrno) {
        case ENOENT:
        case ENOTDIR:
            return {kFileNotFound};
        case EACCES:
        case EPERM:
            return {kPermissionDenied};
        default:
            return {kInvalidCall};  // not a program for this machine
    }
}

Result<HostCommand> HostCommandMake(const ProcessCommand& command)
{
    const std::string sProgram =
        ProgramFind(command.sProgram.empty() ? command.asWords.front() : command.sProgram);
    struct stat info {};
    if (sProgram.empty() || stat(sProgram.c_str(), &info) != 0)
        return StartErrorMake(sProgram.empty() ? ENOENT : errno);
    if (!S_ISREG(info.st_mode))
        return RunError{kPermissionDenied};
    HostCommand host{{}, IsWindowsProgram(sProgram)};
    std::vector<std::string>& asWords = host.asWords;
    if (host.bWine) {
        asWords.push_back(ProgramSearch("wine", EnvironmentGet("PATH")));
        if (asWords.front().empty())
            return RunError{std::string(kFileNotFound) + " (wine, which runs Windows programs)"};
        asWords.insert(asWords.end(), command.asWords.begin(), command.asWords.end());
        if (!PathHasDrive(asWords[1]))
            asWords[1] = PathToWindows(sProgram);
    } else {
        asWords = command.asWords;
        asWords.front() = sProgram;
    }
    return host;
}

bool ProgramIsWindows(const std::string& sProgram) { return IsWindowsProgram(sProgram); }

std::string ProgramMissingPartGet(const std::string& sProgram)
{
    if (!IsWindowsProgram32(ProgramFind(sProgram)) || !WineLacks32())
        return {};
    return "a 32-bit program, and Wine's 32-bit half is missing: install the package wine32:i386, "
           "then run wineboot -u";
}
