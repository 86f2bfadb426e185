#include <filesystem>

#include "system/HostPath.h"
#include "system/UserFolders.h"

namespace fs = std::filesystem;

std::vector<std::string> PrivateRootFolders()
{
    // Not c:\itshfbc: every account of the machine may write to a folder directly below C:\.
    std::error_code ec;
    const std::string sLocal = EnvironmentGet("LOCALAPPDATA");
    const fs::path pthBase = sLocal.empty() ? fs::temp_directory_path(ec) : PathFromText(sLocal);
    return {TextFromPath(pthBase / L"Hopcast" / L"itshfbc")};
}

std::string TemporaryRootMake() { return {}; }

void TemporaryRootsRemove() {}

std::string EngineSearchPathGet() { return {}; }

bool VoacaplIsInstalled(const std::string&)
{
    return false;  // the ITS package brings its own VOACAP
}
