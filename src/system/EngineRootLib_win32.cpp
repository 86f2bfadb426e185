#include "system/EngineRootHost.h"
#include "system/HostPath.h"

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
