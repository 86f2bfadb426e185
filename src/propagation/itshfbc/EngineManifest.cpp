#include "propagation/itshfbc/EngineManifest.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <mutex>
#include <string_view>
#include <system_error>

#include "system/FileLib.h"
#include "system/HashText.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/UserFolders.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kManifestMax = std::size_t{64} << 10;
constexpr std::size_t kProgramMax = std::size_t{256} << 20;

}  // namespace

std::string CopyMark(const fs::path& pthFile)
{
    struct Known {
        std::uintmax_t nSize;
        fs::file_time_type m_timeWritten;
        std::string sMark;
    };
    static std::mutex mutexKnown;
    static std::map<fs::path, Known> mapKnown;
    const std::lock_guard lock(mutexKnown);
    std::error_code ec;
    const std::uintmax_t nSize = fs::file_size(pthFile, ec);
    const fs::file_time_type timeWritten =
        ec ? fs::file_time_type() : fs::last_write_time(pthFile, ec);
    if (ec)
        return {};
    const auto itKnown = mapKnown.find(pthFile);
    if (itKnown != mapKnown.end() && itKnown->second.nSize == nSize
        && itKnown->second.m_timeWritten == timeWritten)
        return itKnown->second.sMark;
    const auto resBytes = FileRead(TextFromPath(pthFile), kProgramMax);
    if (!resBytes)
        return {};
    std::string sMark = "copy " + std::to_string(resBytes.ValueGet().size()) + ' '
                        + HashText64(resBytes.ValueGet());
    mapKnown[pthFile] = {nSize, timeWritten, sMark};
    return sMark;
}

std::string EngineMark(const fs::path& pthProgram)
{
    std::error_code ec;
    const fs::file_status status = fs::symlink_status(pthProgram, ec);
    if (fs::is_symlink(status))
        return "link " + TextFromPath(fs::read_symlink(pthProgram, ec));
    return fs::is_regular_file(status) ? CopyMark(pthProgram) : std::string();
}

std::string LineMake(const std::string& sName, const std::string& sMark)
{
    return sName + ' ' + sMark;
}

std::vector<std::string> ManifestRead(const std::string& sRoot)
{
    std::vector<std::string> asLines;
    auto resFile = TextFile::Open(PathJoin(sRoot, kManifest));
    std::string sLine;
    for (std::size_t nBytes = 0; resFile && nBytes < kManifestMax; nBytes += sLine.size()) {
        const auto resLine = resFile.ValueGet().LineRead(sLine);
        if (!resLine || !resLine.ValueGet())
            break;
        asLines.push_back(sLine);
    }
    return asLines;
}

Result<void> ManifestWrite(const std::string& sRoot, const std::vector<std::string>& asLines)
{
    std::string sBytes;
    for (const std::string& sLine : asLines) sBytes += sLine + '\n';
    return FileReplace(PathJoin(sRoot, kManifest), sBytes);
}

bool ProgramIsListed(const std::vector<std::string>& asManifest, const std::string& sName,
                     const std::string& sMark)
{
    return !sMark.empty()
           && std::find(asManifest.begin(), asManifest.end(), LineMake(sName, sMark))
                  != asManifest.end();
}
