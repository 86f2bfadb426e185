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
    return std::filesystem::path(std::u8string(sPath.begin(), sPath.end()));
}

// The folder of a deck below the root: as spelled, or in lower case.
std::string FolderFind(const std::string& sRoot, const std::string& sName,
                       const std::string& sSmall, const std::string& sDeck)
{
    const std::string sFolder = PathJoin(sRoot, sName);
    const std::string sOther = PathJoin(sRoot, sSmall);
    return !FileExists(PathJoin(sFolder, sDeck)) && FileExists(PathJoin(sOther, sDeck)) ? sOther
                                                                                        : sFolder;
}

Result<void> TemporaryWrite(const std::string& sPath, const std::string& sText)
{
    Result<OutputFile> resFile = OutputFile::OpenNew(sPath);
    if (!resFile)
        return resFile.ErrorGet();
    const Result<void> resWritten = resFile.ValueGet().Write(sText);
    return resWritten ? resFile.ValueGet().Close() : resWritten;
}

// Writes a temporary file and moves it into place when it is complete. Unlike a profile it is not
// flushed to the disk: an output lost in a power cut is computed again, and waiting for the disk
// would take ten times as long as the computation.
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
    static_cast<void>(FileDelete(sTemporary));
    return RunError{sPath + ", " + resDone.TextGet()};
}

// fnMake makes the output's text from the deck's.
template <class MakeFn>
Result<void> DeckRun(const std::string& sFolder, const std::string& sDeck,
                     const std::string& sOutput, MakeFn fnMake)
{
    const std::string sPath = PathJoin(sFolder, sDeck);
    const std::string sOutputPath = PathJoin(sFolder, sOutput);
    if (sDeck == sOutput || FileSame(sPath, sOutputPath))
        return RunError{sDeck + ", named as the output too"};
    // After a refused deck an old output would pass for the new one.
    if (FileExists(sOutputPath)) {
        if (const Result<void> resRemoved = FileDelete(sOutputPath); !resRemoved)
            return RunError{sOutputPath + ", " + resRemoved.TextGet()};
    }
    const Result<std::string> resDeck = FileRead(sPath, kDeckMost);
    if (!resDeck)
        return RunError{sPath + ", " + resDeck.TextGet()};
    const Result<std::string> resText = fnMake(resDeck.ValueGet());
    if (!resText)
        return RunError{sDeck + ", " + resText.TextGet()};
    return OutputWrite(sOutputPath, resText.ValueGet());
}

}  // namespace

Result<void> PointRun(const std::string& sRoot, const std::string& sDeck,
                      const std::string& sOutput)
{
    return DeckRun(FolderFind(sRoot, "RUN", "run", sDeck), sDeck, sOutput,
                   [&](std::string_view s) { return PointOutputMake(s, sRoot, kBehaviour); });
}

Result<void> AreaRun(const std::string& sRoot, const std::string& sDeck)
{
    return DeckRun(FolderFind(sRoot, "areadata", "AREADATA", sDeck), sDeck,
                   sDeck.substr(0, sDeck.rfind('.')) + ".rg1",
                   [&](std::string_view s) { return AreaOutputMake(s, sRoot, kBehaviour); });
}

}  // namespace run533
