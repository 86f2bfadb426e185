#include "system/EngineRootHost.h"
#include "system/HostPath.h"
#include "system/PathLib.h"

std::vector<std::string> PrivateRootFolders()
{
    std::vector<std::string> asFolders{FixedEngineRootGet()};
    if (const std::string sLocal = EnvironmentGet("LOCALAPPDATA"); !sLocal.empty())
        asFolders.push_back(sLocal + "\\Hopcast\\itshfbc");
    return asFolders;
}

std::string TemporaryRootMake() { return {}; }

std::string EngineSearchPathGet() { return {}; }

bool VoacaplIsThere(const std::string&)
{
    return false;  // the ITS package brings its own VOACAP
}

std::string RootFileAsIs(std::string sHostPath)
{
    constexpr std::size_t kDriveLength = 3;  // "c:\"
    return PathIsEngineRoot(sHostPath) ? sHostPath.insert(kDriveLength, ".\\") : sHostPath;
}
