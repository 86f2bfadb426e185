#include "system/EngineRootHost.h"
#include "system/HostPath.h"

std::vector<std::string> PrivateRootFolders()
{
    return {BaseFolderGet("XDG_DATA_HOME", ".local/share") + "/hopcast/itshfbc"};
}

std::string EngineSearchPathGet() { return EnvironmentGet("PATH") + ":/usr/bin"; }

bool VoacaplIsThere(const std::string& sSearchPath)
{
    return !ProgramSearch("voacapl", sSearchPath).empty();
}

std::string RootFileAsIs(std::string sHostPath) { return sHostPath; }
