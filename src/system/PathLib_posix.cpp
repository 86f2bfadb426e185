#include <dirent.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "system/DrivePath.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProfileFolder.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

struct FolderCloser {
    void operator()(DIR* pFolder) const { closedir(pFolder); }
};

bool PathExists(const std::string& sPath)
{
    struct stat info {};
    return lstat(sPath.c_str(), &info) == 0;
}

/// The first name in the folder, in byte order, that equals sName except for case; sName when there
/// is none.
std::string NameLookUp(const std::string& sFolder, std::string_view sName)
{
    std::string sFound;
    const std::unique_ptr<DIR, FolderCloser> pFolder(opendir(sFolder.c_str()));
    while (const dirent* pEntry = pFolder ? readdir(pFolder.get()) : nullptr) {
        const std::string_view sEntry = pEntry->d_name;
        if (TextEqualNoCase(sEntry, sName) && (sFound.empty() || sEntry < sFound))
            sFound = sEntry;
    }
    return sFound.empty() ? std::string(sName) : sFound;
}

/// The rest of sPath below sFolder ("" or with a leading slash). @return false if it is elsewhere.
bool PathStrip(std::string_view sPath, const std::string& sFolder, std::string_view& sRest)
{
    if (sPath.substr(0, sFolder.size()) != sFolder)
        return false;
    sRest = sPath.substr(sFolder.size());
    return sRest.empty() || sRest.front() == '/';
}

std::string WindowsPathMake(char cDrive, std::string_view sRest)
{
    std::string sPath{cDrive, ':'};
    sPath += sRest.empty() ? "/" : sRest;
    std::replace(sPath.begin(), sPath.end(), '/', '\\');
    return sPath;
}

}  // namespace

fs::path PathFromText(std::string_view sText) { return {sText}; }

std::string TextFromPath(const fs::path& pthFile) { return pthFile.native(); }

std::string EnvironmentGet(const char* sName)
{
    const char* sValue = std::getenv(sName);
    return sValue ? sValue : "";
}

std::string HostPathBelow(const std::string& sFolder, std::string_view sRest)
{
    std::string sPath = sFolder;
    bool bFound = true;  // nothing can be looked up below a folder that does not exist
    while (!sRest.empty()) {
        const std::size_t nStart = sRest.find_first_not_of("/\\");
        if (nStart == std::string_view::npos)
            return sPath + '/';
        const std::size_t nEnd = std::min(sRest.find_first_of("/\\", nStart), sRest.size());
        const std::string_view sName = sRest.substr(nStart, nEnd - nStart);
        sRest.remove_prefix(nEnd);
        std::string sNext = sPath + '/' + std::string(sName);
        bFound =
            bFound
            && (PathExists(sNext) || PathExists(sNext = sPath + '/' + NameLookUp(sPath, sName)));
        sPath = std::move(sNext);
    }
    return sPath;
}

std::string DrivePath(std::string_view sPath)
{
    if (!PathHasDrive(sPath))
        return std::string(sPath);
    const char cDrive = static_cast<char>(sPath[0] | 0x20);  // an ASCII letter: lower case
    const std::string_view sRest = sPath.substr(2);
    if (cDrive == 'c')
        return HostPathBelow(WinePrefixGet() + "/drive_c", sRest);
    const std::string sDrive = WinePrefixGet() + "/dosdevices/" + cDrive + ':';
    if (cDrive == 'z' && !PathExists(sDrive))  // Wine's own name for the whole host
        return HostPathBelow("", sRest.empty() ? "/" : sRest);
    return HostPathBelow(sDrive, sRest);
}

std::string PathToWindows(std::string_view sHostPath)
{
    std::string_view sRest;
    if (PathStrip(sHostPath, WinePrefixGet() + "/drive_c", sRest))
        return WindowsPathMake('C', sRest);
    if (PathStrip(sHostPath, WinePrefixGet() + "/dosdevices", sRest) && sRest.size() >= 3
        && PathHasDrive(sRest.substr(1)))
        return WindowsPathMake(TextUpper(sRest.substr(1, 1))[0], sRest.substr(3));
    if (sHostPath.empty() || sHostPath.front() != '/')
        return std::string(sHostPath);
    return WindowsPathMake('Z', sHostPath);
}

std::string WinePrefixGet()
{
    std::string sPrefix = EnvironmentGet("WINEPREFIX");
    if (sPrefix.empty())
        return HomeFolderGet() + "/.wine";
    while (sPrefix.size() > 1 && sPrefix.back() == '/') sPrefix.pop_back();
    return sPrefix;
}

std::string ProgramFileGet()
{
    std::error_code ec;
    return fs::read_symlink("/proc/self/exe", ec).native();
}

std::string HomeFolderGet()
{
    std::string sHome = EnvironmentGet("HOME");
    if (!sHome.empty())
        return sHome;
    std::array<char, 4096> aBuffer{};
    passwd entry{};
    passwd* pEntry = nullptr;
    getpwuid_r(getuid(), &entry, aBuffer.data(), aBuffer.size(), &pEntry);
    return pEntry ? pEntry->pw_dir : "";
}

std::string HomeFolderProblemGet()
{
    const std::string sHome = EnvironmentGet("HOME");
    if (sHome.empty() || sHome.front() == '/')
        return {};
    return "HOME is \"" + TextPrintable(sHome)
           + "\", which is no full path; set it to one that begins with /";
}

std::string BaseFolderGet(const char* sVariable, std::string_view sDefault)
{
    std::string sFolder = EnvironmentGet(sVariable);
    if (!sFolder.empty() && sFolder.front() == '/')
        return sFolder;
    return PathJoin(HomeFolderGet(), sDefault);
}

std::string ProgramSearch(std::string_view sName, std::string_view sSearchPath)
{
    while (!sSearchPath.empty()) {
        const std::size_t nEnd = std::min(sSearchPath.find(':'), sSearchPath.size());
        std::string sProgram = PathJoin(sSearchPath.substr(0, nEnd), sName);
        struct stat info {};
        if (nEnd > 0 && stat(sProgram.c_str(), &info) == 0 && S_ISREG(info.st_mode)
            && access(sProgram.c_str(), X_OK) == 0)
            return sProgram;
        sSearchPath.remove_prefix(std::min(nEnd + 1, sSearchPath.size()));
    }
    return {};
}

bool FolderIsSystemOwned(const fs::path& pthFolder)
{
    std::string_view sRest;
    return PathStrip(pthFolder.native(), "/usr", sRest);
}

bool FolderIsWritable(const fs::path& pthFolder)
{
    constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat info {};
    return stat(pthFolder.c_str(), &info) == 0 && (info.st_mode & kAnyWrite) != 0
           && access(pthFolder.c_str(), W_OK | X_OK) == 0;
}

fs::path ProfileFolderGet() { return BaseFolderGet("XDG_CONFIG_HOME", ".config") + "/hopcast"; }
