#include "engine/run533/Run.h"

#include <filesystem>

#include "system/FileLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"

namespace run533 {
namespace {

constexpr std::size_t kDeckMost = 1 << 16;
constexpr rec533::Behaviour kBehaviour = rec533::Behaviour::Best;

std::filesystem::path PathOf(const std::string& sPath)
{
    const std::string sHost = PathToHost(sPath);
    return std::filesystem::path(std::u8string(sHost.begin(), sHost.end()));
}

// The folder of a deck below the root: as it is named, or in small letters.
std::string FolderFind(const std::string& sRoot, const std::string& sName,
                       const std::string& sSmall, const std::string& sDeck)
{
    const std::string sFolder = PathJoin(sRoot, sName);
    const std::string sOther = PathJoin(sRoot, sSmall);
    return !FileExists(PathJoin(sFolder, sDeck)) && FileExists(PathJoin(sOther, sDeck)) ? sOther
                                                                                        : sFolder;
}

Result<std::string> DeckRead(const std::string& sPath)
{
    Result<std::string> resDeck = FileRead(sPath, kDeckMost);
    if (!resDeck)
        return RunError{sPath + ", " + resDeck.TextGet()};
    return resDeck;
}

Result<void> TemporaryWrite(const std::string& sPath, const std::string& sText)
{
    Result<OutputFile> resFile = OutputFile::Open(sPath);
    if (!resFile)
        return resFile.ErrorGet();
    const Result<void> resWritten = resFile.ValueGet().Write(sText);
    return resWritten ? resFile.ValueGet().Close() : resWritten;
}

// A temporary file, moved into place when it is whole. It is not flushed to the disk, as a profile
// would be: an output that a power cut takes is computed again, and waiting for the disk would take
// ten times as long as the computation.
Result<void> OutputWrite(const std::string& sPath, const std::string& sText)
{
    const std::string sTemporary = sPath + ".part";
    Result<void> resDone = TemporaryWrite(sTemporary, sText);
    if (resDone) {
        std::error_code error;
        std::filesystem::rename(PathOf(sTemporary), PathOf(sPath), error);
        if (!error)
            return {};
        resDone = RunErrorFromErrno(error.value());
    }
    std::error_code errorIgnored;
    std::filesystem::remove(PathOf(sTemporary), errorIgnored);
    return RunError{sPath + ", " + resDone.TextGet()};
}

}  // namespace

Result<void> PointRun(const std::string& sRoot, const std::string& sDeck,
                      const std::string& sOutput)
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
