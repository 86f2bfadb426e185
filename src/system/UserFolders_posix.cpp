#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "system/HostPath.h"
#include "system/LeftoverLib.h"
#include "system/LockLib.h"
#include "system/UserFolders.h"

namespace fs = std::filesystem;

std::vector<std::string> PrivateRootFolders()
{
    return {BaseFolderGet("XDG_DATA_HOME", ".local/share") + "/hopcast/itshfbc"};
}

std::string TemporaryRootMake()
{
    std::error_code ec;
    const fs::path pthParent = fs::temp_directory_path(ec);
    std::string sFolder = (pthParent / "hopcast-XXXXXX").native();
    return !ec && mkdtemp(sFolder.data()) ? sFolder : std::string();
}

void TemporaryRootsRemove()
{
    constexpr std::string_view kPattern = "hopcast-XXXXXX";
    std::error_code ec;
    std::vector<fs::path> apthOld;
    for (fs::directory_iterator itr(fs::temp_directory_path(ec), ec), itrEnd; !ec && itr != itrEnd;
         itr.increment(ec)) {
        const std::string sName = itr->path().filename().native();
        struct stat info {};
        std::error_code ecMark;
        if (sName.size() == kPattern.size() && sName.starts_with("hopcast-")
            && lstat(itr->path().c_str(), &info) == 0 && S_ISDIR(info.st_mode)
            && info.st_uid == geteuid() && LeftoverIsOld(itr->path())
            && (fs::exists(itr->path() / kManifest, ecMark)
                || fs::exists(itr->path() / kRootOwnerLock, ecMark)))
            apthOld.push_back(itr->path());
    }
    for (const fs::path& pthOld : apthOld)
        if (FileLock::Take((pthOld / kRootOwnerLock).native(), 0.0))
            fs::remove_all(pthOld, ec);
}

std::string EngineSearchPathGet() { return EnvironmentGet("PATH") + ":/usr/bin"; }

bool VoacaplIsInstalled(const std::string& sSearchPath)
{
    return !ProgramSearch("voacapl", sSearchPath).empty();
}
