#include "engine/run533/Run.h"

#include "system/FileLib.h"
#include "system/PathLib.h"

namespace run533 {
namespace {

constexpr std::size_t kDeckMost = 1 << 16;
constexpr rec533::Behaviour kBehaviour = rec533::Behaviour::Best;

// The folder of a deck below the root: as it is named, or in small letters.
std::string FolderFind(const std::string& sRoot, const std::string& sName, const std::string& sSmall,
                       const std::string& sDeck)
{
    const std::string sFolder = PathJoin(sRoot, sName);
    const std::string sOther = PathJoin(sRoot, sSmall);
    return !FileExists(PathJoin(sFolder, sDeck)) && FileExists(PathJoin(sOther, sDeck)) ? sOther : sFolder;
}

Result<std::string> DeckRead(const std::string& sPath)
{
    Result<std::string> resDeck = FileRead(sPath, kDeckMost);
    if (!resDeck)
        return RunError{sPath + ", " + resDeck.TextGet()};
    return resDeck;
}

Result<void> OutputWrite(const std::string& sPath, const std::string& sText)
{
    const Result<void> resWritten = FileReplace(sPath, sText);
    if (!resWritten)
        return RunError{sPath + ", " + resWritten.TextGet()};
    return {};
}

}  // namespace

Result<void> PointRun(const std::string& sRoot, const std::string& sDeck, const std::string& sOutput)
{
    const std::string sFolder = FolderFind(sRoot, "RUN", "run", sDeck);
    const Result<std::string> resDeck = DeckRead(PathJoin(sFolder, sDeck));
    if (!resDeck)
        return resDeck.ErrorGet();
    const Result<std::string> resText = PointOutputMake(resDeck.ValueGet(), sRoot, kBehaviour);
    if (!resText)
        return RunError{sDeck + ", " + resText.TextGet()};
    return OutputWrite(PathJoin(sFolder, sOutput), resText.ValueGet());
}

Result<void> AreaRun(const std::string& sRoot, const std::string& sDeck)
{
    const std::string sFolder = FolderFind(sRoot, "areadata", "AREADATA", sDeck);
    const Result<std::string> resDeck = DeckRead(PathJoin(sFolder, sDeck));
    if (!resDeck)
        return resDeck.ErrorGet();
    const Result<std::string> resText = AreaOutputMake(resDeck.ValueGet(), sRoot, kBehaviour);
    if (!resText)
        return RunError{sDeck + ", " + resText.TextGet()};
    const std::string sStem = sDeck.substr(0, sDeck.rfind('.'));
    return OutputWrite(PathJoin(sFolder, sStem + ".rg1"), resText.ValueGet());
}

}  // namespace run533
