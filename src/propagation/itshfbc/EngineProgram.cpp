#include "propagation/itshfbc/EngineProgram.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "propagation/deck/AntennaCards.h"
#include "system/FileLib.h"
#include "system/HostPath.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kProgramFolder = "c:\\itshfbc\\bin_win\\";

// clang-format off
constexpr std::array kEngines{
    EngineProgram{kEngineIcepac, "icepacw.exe", "ICEPAC", "ICEPACW", "working.ice", "working.ig1"},
    EngineProgram{kEngineVoacap, "voacapw.exe", "VOACAP", "VOACAP",  "working.voa", "working.vg1"},
    EngineProgram{kEngineRec533, "rec533w.exe", "REC533", "REC533",  "working.rec", "working.rg1"},
};
// clang-format on

}  // namespace

const EngineProgram* EngineFind(int iModel)
{
    for (const EngineProgram& engine : kEngines)
        if (engine.iModel == iModel)
            return &engine;
    return nullptr;
}

std::string EngineProgramPath(int iModel)
{
    std::string sPath(kProgramFolder);
    if (const EngineProgram* pEngine = EngineFind(iModel))
        sPath += pEngine->sProgram;
    return sPath;
}

bool EngineIsHopcasts(int iModel, const EngineRoot& root)
{
    return iModel == kEngineRec533
           && EngineIsBuiltIn(std::string(EngineFind(iModel)->sProgram), root);
}

bool EngineCheckInstalled(int iModel, Messages* paMessages, const EngineRoot& root)
{
    if (FileExists(root.Path(EngineProgramPath(iModel))))
        return true;
    const EngineProgram* pEngine = EngineFind(iModel);
    return MessageFail(
        paMessages, MsgIcon::Exclamation,
        "Propagation Model " + std::string(pEngine ? pEngine->sName : "")
            + " not found.\r\n\r\nPlease check that ITS HF propagation prediction software has "
              "been installed.");
}

std::string EngineFileStamp(const std::string& sFile)
{
    const fs::path pthFile = PathFromText(sFile);
    std::error_code ec;
    const std::uintmax_t nSize = fs::file_size(pthFile, ec);
    const fs::file_time_type timeWritten = fs::last_write_time(pthFile, ec);
    return sFile + '\0' + std::to_string(nSize) + '\0'
           + std::to_string(timeWritten.time_since_epoch().count());
}

std::string AntennaStamps(const std::string& sRoot)
{
    std::string sStamps;
    for (const std::string_view sFile : kAntennaFiles)
        sStamps += '\0' + EngineFileStamp(HostPathBelow(sRoot, "/antennas/" + std::string(sFile)));
    return sStamps;
}
