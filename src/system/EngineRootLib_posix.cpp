#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "system/EngineRootHost.h"
#include "system/HostPath.h"

std::vector<std::string> PrivateRootFolders()
{
    return {BaseFolderGet("XDG_DATA_HOME", ".local/share") + "/hopcast/itshfbc"};
}

std::string TemporaryRootMake()
{
    std::error_code ec;
    const std::filesystem::path pthParent = std::filesystem::temp_directory_path(ec);
    std::string sFolder = (pthParent / "hopcast-XXXXXX").native();
    return !ec && mkdtemp(sFolder.data()) ? sFolder : std::string();
}

std::string EngineSearchPathGet() { return EnvironmentGet("PATH") + ":/usr/bin"; }

bool VoacaplIsThere(const std::string& sSearchPath)
{
    return !ProgramSearch("voacapl", sSearchPath).empty();
}
